// The numbers of pragma records in the intermediate file.
#ifndef TARGET_PRAGMA_KINDS_H
#define TARGET_PRAGMA_KINDS_H

#include <cstdint>

enum a_file_pragma_kind : std::uint8_t {
#define PRAGMA_ROW(number, name, text) fpk_##name = number,
#include "target/pragma_kinds.def"
};

inline constexpr int num_file_pragma_kinds = 129;

// The spelling of a kind; "unknown" for a number that the format does not know.
const char *file_pragma_name(unsigned kind);

#endif
