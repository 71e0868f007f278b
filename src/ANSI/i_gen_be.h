// The code-tree generator: the last phase of a compilation. It takes the lowered intermediate
// language and streams it into the intermediate file: symbols, function bodies as labels, branches
// and expression trees, initial values, types.
//
// No tree stands in memory: each operation writes its node and generates its operands next, because
// the file's node stream is in prefix order. Types and symbols are made on demand, once for each
// entity.
#ifndef ANSI_I_GEN_BE_H
#define ANSI_I_GEN_BE_H

#include <cstdint>

#include "ifile/if_symbol.h"
#include "il/il_fwd.h"

struct a_type;

// A symbol of the generator. Sizes and alignments are bits.
class SYMTAB final : public I_SYMTAB {
 public:
  const char *name = "";
  std::uint64_t size = 0;
  std::int32_t value = 0;
  std::uint8_t storage_class = isc_none;
  std::uint16_t cqual = 0;
  TYPE *type = nullptr;
  std::uint32_t alignment = 8;
  const PSN *psn = nullptr;
  PRAGMA *pragma_list = nullptr;  // newest first
  std::uint8_t pragma_count = 0;
  std::uint32_t level = 0;
  std::uint64_t location = 0;
  std::uint32_t option_set = 0;

  const char *sym_name() const override { return name; }
  std::uint64_t sym_size() const override { return size; }
  std::int32_t sym_value() const override { return value; }
  std::uint8_t sym_class() const override { return storage_class; }
  std::uint16_t sym_cqual() const override { return cqual; }
  TYPE *sym_type() const override { return type; }
  TYPE *sym_cpp_type() const override { return nullptr; }
  std::uint32_t sym_align() const override { return alignment; }
  const PSN *sym_psn() const override { return psn; }
  const PRAGMA *sym_pragma() const override { return pragma_list; }
  std::uint8_t sym_prag_num() const override { return pragma_count; }
  std::uint64_t sym_location() const override { return location; }
  std::uint32_t sym_option_set() const override { return option_set; }
  std::uint32_t sym_level() const override { return level; }
  void set_level(std::uint32_t l) override { level = l; }
  void set_location(std::uint64_t position) override { location = position; }
};

// Writes the intermediate file i_file_name, or one named after the source. Errors found here are
// counted; then no file is left.
void back_end();

// The name of the primary source file for the header of the file.
void i_set_trans_unit_name(const char *name);

#endif
