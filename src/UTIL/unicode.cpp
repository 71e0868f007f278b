#include "UTIL/unicode.h"

#include <algorithm>
#include <iterator>

namespace {

struct a_unicode_range {
  std::uint32_t low;
  std::uint32_t high;
  std::uint8_t allowed;
  std::uint8_t not_at_start;
};

constexpr std::uint8_t cpp98 = uis_cpp98, c99 = uis_c99, c11 = uis_c11;
constexpr a_unicode_range ranges[] = {
#define UNICODE_RANGE(low, high, allowed, not_at_start) {low, high, allowed, not_at_start},
#include "UTIL/unicode_ranges.def"
};

constexpr bool rows_ascend() {
  for (std::size_t i = 1; i < std::size(ranges); ++i)
    if (ranges[i - 1].high >= ranges[i].low || ranges[i].low > ranges[i].high) return false;
  return true;
}
static_assert(rows_ascend());

}  // namespace

bool unicode_may_be_in_identifier(std::uint32_t character, a_unicode_identifier_set set,
                                  bool at_start) {
  const a_unicode_range *row = std::lower_bound(
      std::begin(ranges), std::end(ranges), character,
      [](const a_unicode_range &range, std::uint32_t value) { return range.high < value; });
  if (row == std::end(ranges) || character < row->low) return false;
  return (row->allowed & set) != 0 && !(at_start && (row->not_at_start & set) != 0);
}
