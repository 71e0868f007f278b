// The small records that stand beside symbols in the intermediate file.
#ifndef IFILE_IF_UTIL_H
#define IFILE_IF_UTIL_H

#include <cstdint>
#include <vector>

#include "TYPES/type_pkg.h"
#include "target/pragma_kinds.h"

// One recorded set of options of the command line; set 0 is the base set.
struct OPTION_SET {
  std::uint32_t id = 0;
  std::vector<const char *> texts;
};

// One pragma on a symbol or on the file. Owned by whoever made it.
struct PRAGMA {
  std::uint8_t kind = fpk_INVALID;
  std::vector<const char *> texts;
  PRAGMA *next = nullptr;  // of the same symbol
  const char *name() const { return file_pragma_name(kind); }
};

// One row of a catch list: the caught type's external name, "..." for all, and its handler.
struct I_CATCH_ENTRY {
  const char *name = nullptr;
  std::uint32_t value = 0;  // label of the handler
  bool by_reference = false;
};

#endif
