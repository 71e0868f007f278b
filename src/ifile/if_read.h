// The reader of the intermediate file: what the tools use to see what the compiler wrote.
//
// A file is read whole into memory and decoded into types, files, symbols, functions and initial
// values. Reading takes two passes: the header's positions lead to types, files and globals; then
// code and initial values are decoded, which refer to them. Nothing is believed without a check: a
// damaged file gives an an_if_damage with the offset of the trouble.
#ifndef IFILE_IF_READ_H
#define IFILE_IF_READ_H

#include <cstdint>
#include <deque>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "TYPES/type_pkg.h"
#include "ifile/if_nodes.h"
#include "ifile/if_symbol.h"
#include "ifile/if_write.h"

// What is wrong with a file, and where.
struct an_if_damage : std::runtime_error {
  std::uint64_t offset;  // bytes from the start of the file
  an_if_damage(std::uint64_t where, const std::string &what)
      : std::runtime_error(what), offset(where) {}
};

// A symbol as read. All texts live as long as the file object.
class IF_SYMBOL : public I_SYMTAB {
 public:
  const char *name = "";
  std::uint64_t size = 0;
  std::int64_t value = 0;
  std::uint8_t storage_class = 0;
  std::uint16_t cqual = 0;
  TYPE *type = nullptr;
  TYPE *cpp_type = nullptr;
  std::uint32_t align = 0;
  std::uint8_t pragma_count = 0;
  std::vector<PRAGMA> pragmas;
  std::uint64_t location = 0;
  std::uint32_t option_set = 0;
  const PSN *psn = nullptr;
  std::uint32_t level = 0;

  const char *sym_name() const override { return name; }
  std::uint64_t sym_size() const override { return size; }
  std::int32_t sym_value() const override { return static_cast<std::int32_t>(value); }
  std::uint8_t sym_class() const override { return storage_class; }
  std::uint16_t sym_cqual() const override { return cqual; }
  TYPE *sym_type() const override { return type; }
  TYPE *sym_cpp_type() const override { return cpp_type; }
  std::uint32_t sym_align() const override { return align; }
  const PSN *sym_psn() const override { return psn; }
  const PRAGMA *sym_pragma() const override { return pragmas.empty() ? nullptr : &pragmas[0]; }
  std::uint8_t sym_prag_num() const override { return pragma_count; }
  std::uint64_t sym_location() const override { return location; }
  std::uint32_t sym_option_set() const override { return option_set; }
  std::uint32_t sym_level() const override { return level; }
  void set_level(std::uint32_t l) override { level = l; }
  void set_location(std::uint64_t position) override { location = position; }

  bool has_pragma(unsigned kind) const;
  bool is_routine() const { return type != nullptr && type->stripped->kind == TYPE::FUNCTION; }
  // A class that reserves storage, or for a routine one that may have a body.
  bool is_defining() const { return storage_class == isc_global || storage_class == isc_static; }
};

// One record of a function or of the file level.
struct an_if_record_read {
  an_if_record kind;
  std::uint64_t offset;
  const PSN *psn = nullptr;
  IF_SYMBOL *symbol = nullptr;         // 35
  const char *text = nullptr;          // 36, 47, 126
  std::uint32_t number = 0;            // 42 label, 93 count
  std::vector<NODE *> trees;           // 46: usually one; a DEFAULT may stand behind its SWITCH
  PRAGMA pragma;                       // 94
  std::uint32_t eh[4] = {};            // 91
  std::vector<I_CATCH_ENTRY> catches;  // 63
};

struct an_if_function {
  IF_SYMBOL *symbol = nullptr;
  std::uint64_t offset = 0;
  const PSN *psn = nullptr;
  std::vector<an_if_record_read> records;  // begin and end of the function left out
  std::vector<IF_SYMBOL *> locals;         // by index, parameters first
};

struct an_if_init {
  IF_SYMBOL *symbol = nullptr;
  std::uint64_t offset = 0;
  std::vector<NODE *> values;  // without the closing ENDINIT
};

class IF_READER {
 public:
  IF_READER();
  ~IF_READER();
  // Reads a file; throws an_if_damage, or std::runtime_error if it cannot be read at all.
  void read(const char *file_name);

  // The header.
  std::int32_t version = 0, cpu_id = 0;
  const char *source_name = "";
  std::uint32_t header_extra = 0;
  std::uint32_t positions[5] = {};  // options, initial values, types, files, globals

  TYPE_PKG types;
  std::vector<TYPE *> type_list;                // in file order
  std::vector<const char *> files;              // the first is file 1
  std::deque<IF_SYMBOL> symbols;                // owner of all symbols
  std::vector<IF_SYMBOL *> globals;             // by index
  std::vector<an_if_record_read> file_records;  // the code section outside functions
  std::vector<an_if_function> functions;
  std::vector<an_if_init> inits;
  std::vector<OPTION_SET> option_sets;
  std::size_t size_in_bytes() const { return bytes.size(); }  // of the file

  struct a_cursor;  // of the reader's own rooms

 private:
  void read_header(a_cursor &cursor);
  void read_types(std::uint64_t position);
  void read_files(std::uint64_t position);
  void read_globals(std::uint64_t position);
  void read_options(std::uint64_t position);
  void read_code(std::uint64_t position);
  void read_inits(std::uint64_t position);
  IF_SYMBOL *read_symbol(a_cursor &cursor, a_cursor &section);
  void read_pragma(a_cursor &record, PRAGMA *pragma);
  void read_record(a_cursor &record, an_if_record kind, a_cursor &section,
                   std::vector<IF_SYMBOL *> &locals, an_if_record_read *result);
  NODE *read_tree(a_cursor &section, std::vector<IF_SYMBOL *> &locals);
  NODE *read_node(a_cursor &section, std::vector<IF_SYMBOL *> &locals);
  void read_node_items(a_cursor &record, NODE *node, std::vector<IF_SYMBOL *> &locals);
  const PSN *read_psn(a_cursor &record);
  TYPE *find_typeref(a_cursor &record);
  void check_types_complete();

  // Builders of types, one for each form of record.
  void read_type_record(a_cursor &record);
  TYPE *enter_type(a_cursor &record, std::uint64_t id, TYPE::KIND kind);
  TYPE *type_for_id(a_cursor &record, std::uint64_t id);
  void tp_make_integral_type(a_cursor &record, TYPE *type, unsigned code);
  void tp_make_csu(a_cursor &record, TYPE *type, bool is_long);
  void tp_make_list_item(a_cursor &record, TYPE *owner, unsigned code);

  std::string bytes;
  std::vector<TYPE *> types_by_id;  // null: not met
  std::vector<bool> type_is_read;
  std::vector<std::uint64_t> first_use;  // offset of the first reference to an id
  TYPE *open_list_owner = nullptr;
  unsigned open_list_kind = 0;
};

#endif
