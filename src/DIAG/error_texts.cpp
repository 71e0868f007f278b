// The catalogue: texts by code, codes by tag.
#include <algorithm>
#include <array>
#include <cstring>

#include "DIAG/error.h"

namespace {

struct an_error_row {
  const char *tag;   // null: none
  const char *text;  // null: nothing reports the code
};

constexpr std::array<an_error_row, num_error_codes> make_rows() {
  std::array<an_error_row, num_error_codes> rows{};
#define ERROR_ROW(number, tag, text) rows[number] = {#tag, text};
#define ERROR_TEXT(number, text) rows[number] = {nullptr, text};
#include "DIAG/error_codes.def"
  return rows;
}
constexpr std::array<an_error_row, num_error_codes> rows = make_rows();

// The numbers are part of the outside world: no row may go or come.
constexpr int num_tags = 0
#define ERROR_ROW(number, tag, text) +1
#define ERROR_TEXT(number, text)
#include "DIAG/error_codes.def"
    ;
constexpr int num_texts_without_tag = 0
#define ERROR_ROW(number, tag, text)
#define ERROR_TEXT(number, text) +1
#include "DIAG/error_codes.def"
    ;
static_assert(num_tags == 2853 && num_texts_without_tag == 149);

// The codes that have a tag, in the order of their tags; made by the first look for one.
struct a_tag_order {
  int count = 0;
  std::uint16_t codes[num_error_codes];
  a_tag_order() {
    for (int code = 0; code < num_error_codes; ++code) {
      if (rows[code].tag != nullptr) codes[count++] = static_cast<std::uint16_t>(code);
    }
    std::sort(codes, codes + count, [](std::uint16_t a, std::uint16_t b) {
      return std::strcmp(rows[a].tag, rows[b].tag) < 0;
    });
  }
};

}  // namespace

const char *error_text(int code) {
  if (code <= 0 || code >= num_error_codes) return "unknown error";
  const an_error_row &row = rows[code];
  if (row.text != nullptr) return row.text;
  return row.tag != nullptr ? row.tag : "unknown error";
}

int error_code_for_tag(const char *tag) {
  static const a_tag_order order;
  const std::uint16_t *end = order.codes + order.count;
  const std::uint16_t *found =
      std::lower_bound(order.codes, end, tag, [](std::uint16_t code, const char *wanted) {
        return std::strcmp(rows[code].tag, wanted) < 0;
      });
  return found != end && std::strcmp(rows[*found].tag, tag) == 0 ? *found : -1;
}

const char *tag_for_error_code(int code) {
  return code >= 0 && code < num_error_codes ? rows[code].tag : nullptr;
}
