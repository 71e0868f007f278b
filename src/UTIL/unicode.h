// Which characters outside the basic source set may stand in identifiers, by the list of a
// standard.
#ifndef UTIL_UNICODE_H
#define UTIL_UNICODE_H

#include <cstdint>

enum a_unicode_identifier_set : std::uint8_t {
  uis_cpp98 = 1,
  uis_c99 = 2,
  uis_c11 = 4,  // C11 and C++11
};

// May the character stand in an identifier; at_start: as its first character?
bool unicode_may_be_in_identifier(std::uint32_t character, a_unicode_identifier_set set,
                                  bool at_start);

#endif
