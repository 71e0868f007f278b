// The writer of the intermediate file: a binary stream of records that the later stages read. This
// class knows the bytes and nothing of the language; docs/intermediate_file.md tells the format.
//
// Records are built in memory, because their length leads them, and are written in the order of the
// calls. The header comes twice: once to hold the place, and again at the end with the positions of
// the closing sections.
#ifndef IFILE_IF_WRITE_H
#define IFILE_IF_WRITE_H

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "TYPES/type_pkg.h"
#include "ifile/if_nodes.h"
#include "ifile/if_symbol.h"
#include "ifile/if_util.h"

// Numbers of the format.
inline constexpr std::int32_t icode_version = -71;
inline constexpr std::int32_t icode_cpu_id = 400;
inline constexpr char icode_magic[] = "!<icode>\n";

// Kinds of records.
enum an_if_record : std::uint8_t {
  ifr_begin_func = 1,
  ifr_end_func = 2,
  ifr_begin_block = 3,
  ifr_end_block = 4,
  ifr_end_args = 5,
  ifr_end_locals = 6,
  ifr_header = 8,
  ifr_symbol = 35,
  ifr_assembly = 36,
  ifr_loop = 38,
  ifr_label = 42,
  ifr_mbank = 45,
  ifr_expr = 46,
  ifr_comment = 47,
  ifr_dep_edge = 58,
  ifr_dep_vector = 59,
  ifr_eht_catch_entry = 63,
  ifr_func_info = 64,
  ifr_eht_entry = 91,
  ifr_eht_header = 93,
  ifr_pragma = 94,
  ifr_expr_node = 101,
  ifr_init = 105,
  ifr_ldspec = 108,
  ifr_option_set = 111,
  ifr_type = 116,
  ifr_inloop = 124,
  ifr_source = 126,
  ifr_eof = 255
};

class I_FILE {
 public:
  // Starts a file on a stream that is open for writing in binary and can be positioned. The names
  // and the package outlive the writer.
  void if_create(std::FILE *stream, TYPE_PKG *type_pkg, const char *source_name);
  // Writes the closing sections and the true header, and closes the stream; with abandon only
  // closes it. Returns true if anything could not be written.
  bool if_close(bool keep_types, bool abandon);

  // Position of the next record, in bytes from the start of the file.
  std::uint64_t if_tell() const { return flushed + out.size(); }
  void set_header_extra_bit(std::uint32_t bit) { header_extra |= bit; }

  // Tables. A symbol gets its index and its level.
  void if_enter_global(I_SYMTAB *symbol);
  void if_enter_local(I_SYMTAB *symbol);
  void if_enter_option_set(const OPTION_SET &set) { option_sets.push_back(set); }
  std::uint32_t i_enter_file_name(const char *name);

  // Records of the code section.
  void if_write_begin_func(I_SYMTAB *symbol, const PSN *psn);
  void if_write_control(an_if_record kind, const PSN *psn);  // kinds 2 to 6
  void if_write_symbol(const I_SYMTAB *symbol);
  void if_write_assembly(const char *text, const PSN *psn);
  void if_write_label(std::uint32_t id);
  void if_write_expr(const BASE_NODE *node, const PSN *psn);  // node null: the nodes follow
  void if_write_expr_node(const BASE_NODE *node);             // the node and its children
  void if_write_comment(const char *text);
  void if_write_pragma(const PRAGMA *pragma);
  void if_write_eht_hdr(std::uint32_t count);
  void if_write_eht_entry(std::uint32_t id, std::uint32_t kind, std::uint32_t a, std::uint32_t b);
  void if_write_eht_catch_entry(std::uint32_t count, const I_CATCH_ENTRY *entries);
  // Starts the initial value of a symbol; its nodes follow. No code record may come behind it.
  void if_write_init(I_SYMTAB *symbol);

  void if_reference_type(TYPE *type) {
    if (type != nullptr) find_type(type)->referenced = true;
  }
  std::uint32_t block_level = 0;  // 0 outside functions

 private:
  void i_write_i8(unsigned value) { buffer.push_back(static_cast<char>(value)); }
  void i_write_bool(bool value) { buffer.push_back(value ? 1 : 0); }
  void i_write_i16(std::int64_t value);
  void i_write_i32(std::uint32_t value);
  void i_write_uint(std::uint64_t value);
  void i_write_uint_signed(std::int64_t value) { i_write_uint(static_cast<std::uint64_t>(value)); }
  void i_write_sint(std::int64_t value);
  void i_write_string(const char *text);
  void i_write_bytes(const char *text, std::size_t length) { buffer.append(text, length); }
  void i_write_typeref(TYPE *type);
  void i_write_psn(const PSN *psn);
  void i_flush(an_if_record kind);
  void i_write_eof();
  void flush_out();
  void if_write_magic();

  void write_node_items(const BASE_NODE *node);
  void if_write_all_options();
  void if_write_all_types(bool keep_types);
  void if_write_all_files();
  void if_write_all_globals();
  void write_all_csu_types();
  void write_type_tree();
  void if_write_type(TYPE *type);
  void write_type_record(TYPE *type);
  void write_type_start(TYPE *type, unsigned code);
  void write_integral_type(TYPE *type);
  void write_function_type(TYPE *type);
  void write_enum_type(TYPE *type);
  void write_csu_type(TYPE *type);
  void write_csu_type_lists(TYPE *type);
  void write_list_frame(TYPE *owner, unsigned frame, unsigned list_kind);
  void write_item_start(TYPE *owner, unsigned code);
  void write_listof_params(TYPE *owner, const fkPARAM *list);
  void write_listof_data_members(TYPE *owner, const fkMDATA *list);
  template <typename ELEMENT>
  void write_types_of_list(const ELEMENT *list);

  const char *source_name = nullptr;
  std::FILE *stream = nullptr;
  TYPE_PKG *type_pkg = nullptr;
  std::uint64_t options_position = 0, init_position = 0, types_position = 0, files_position = 0,
                globals_position = 0;
  std::uint32_t header_extra = 0;
  std::vector<OPTION_SET> option_sets;
  std::vector<const char *> file_names;  // the first is file 1
  std::unordered_map<std::string_view, std::uint32_t> file_ids;
  const char *last_file_name = nullptr;  // the name that was entered last, and its id
  std::uint32_t last_file_id = 0;
  std::vector<I_SYMTAB *> locals, globals;
  std::string buffer;         // the record under construction
  std::string out;            // records not yet given to the stream
  std::uint64_t flushed = 0;  // bytes given to the stream
  bool write_failed = false;
};

#endif
