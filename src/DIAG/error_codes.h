// The codes of the front end's messages, made from the catalogue's rows: ec_<tag> for a code with
// a tag, ect_<number> for a text without one.
#ifndef DIAG_ERROR_CODES_H
#define DIAG_ERROR_CODES_H

#include <cstdint>

enum an_error_code : std::uint16_t {
#define ERROR_ROW(number, tag, text) ec_##tag = number,
#define ERROR_TEXT(number, text) ect_##number = number,
#include "DIAG/error_codes.def"
};

inline constexpr int num_error_codes = 3192;

#endif
