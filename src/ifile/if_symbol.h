// Symbols as the intermediate file sees them.
#ifndef IFILE_IF_SYMBOL_H
#define IFILE_IF_SYMBOL_H

#include <cstdint>

#include "ifile/if_util.h"

// How long a later stage keeps a symbol that nothing refers to.
enum an_if_retention : std::uint8_t {
  retain_if_referenced = 0,
  retain_always = 1,
  retain_if_inlined_or_comdat = 2,
  retain_never_removed = 3
};

// Storage classes of symbols, by their numbers in the file.
enum an_if_symbol_class : std::uint8_t {
  isc_none = 0,
  isc_auto = 1,
  isc_global = 2,
  isc_static = 3,
  isc_extern = 5,
  isc_label = 6,
  isc_arg = 17,
  isc_register = 22,
  isc_last_arg = 27  // the last parameter of a routine with an ellipsis
};

inline constexpr std::uint32_t no_symbol_index = 0xFFFFFFFFu;

// A symbol of the file. The generator has a class of its own behind this face; sizes and alignments
// are bits.
class I_SYMTAB {
 public:
  virtual ~I_SYMTAB() = default;
  virtual const char *sym_name() const = 0;
  virtual std::uint64_t sym_size() const = 0;
  virtual std::int32_t sym_value() const = 0;
  virtual std::uint8_t sym_class() const = 0;
  virtual std::uint16_t sym_cqual() const = 0;
  virtual TYPE *sym_type() const = 0;
  virtual TYPE *sym_cpp_type() const = 0;
  virtual std::uint32_t sym_align() const = 0;
  virtual const PSN *sym_psn() const = 0;
  virtual const PRAGMA *sym_pragma() const = 0;
  virtual std::uint8_t sym_prag_num() const = 0;
  virtual std::uint64_t sym_location() const = 0;
  virtual std::uint32_t sym_option_set() const = 0;
  virtual std::uint32_t sym_level() const = 0;
  virtual void set_level(std::uint32_t level) = 0;
  virtual void set_location(std::uint64_t position) = 0;

  std::uint32_t index =
      no_symbol_index;  // place in the file's global or the function's local table
  std::uint8_t retention = retain_if_referenced;
};

#endif
