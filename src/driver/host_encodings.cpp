// Between UTF-8, UTF-16 and code points.
#include <clocale>
#include <cstring>

#include "driver/host_envir.h"
#include "driver/switches.h"

namespace {

bool is_continuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Decodes one sequence of 2 to 4 bytes; 0 when it is none, with *length covering what is to be
// passed over.
std::uint32_t decode_utf8(const char *text, int *length) {
  const auto lead = static_cast<unsigned char>(*text);
  const int wanted = lead >= 0xF8 ? 0 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
  std::uint32_t value = wanted != 0 ? lead & (0x7Fu >> wanted) : 0;
  int count = 1;
  while (count < wanted && is_continuation(text[count])) {
    value = (value << 6) | (static_cast<unsigned char>(text[count]) & 0x3F);
    ++count;
  }
  static constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool valid = wanted != 0 && count == wanted && value >= smallest[wanted] &&
                     value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
  if (!valid) {
    value = 0;
    while (is_continuation(text[count]))
      ++count;
  }
  *length = count;
  return value;
}

}  // namespace

int f_mbc_length(const char *text, bool *invalid, bool decode) {
  std::uint32_t value;
  return mbc_to_wide_char(text, &value, invalid, !decode);
}

int mbc_to_wide_char(const char *text, std::uint32_t *value, bool *invalid, bool as_bytes) {
  const auto first = static_cast<unsigned char>(*text);
  if (invalid != nullptr) *invalid = false;
  if (as_bytes || first < 0x80) {
    *value = first;
    return 1;
  }
  int length;
  *value = decode_utf8(text, &length);
  if (*value == 0 && invalid != nullptr) *invalid = true;
  return length;
}

const char *mbc_strchr(const char *text, int c) {
  for (; *text != '\0'; text += f_mbc_length(text, nullptr, true)) {
    if (static_cast<unsigned char>(*text) == c) return text;
  }
  return nullptr;
}

int unicode_to_utf8(std::uint32_t value, char *out) {
  if (value < 0x80) {
    out[0] = static_cast<char>(value);
    return 1;
  }
  const int length = value < 0x800 ? 2 : value < 0x10000 ? 3 : 4;
  for (int i = length - 1; i > 0; --i, value >>= 6) {
    out[i] = static_cast<char>(0x80 | (value & 0x3F));
  }
  out[0] = static_cast<char>((0xF00u >> length) | value);
  return length;
}

int ucn_to_utf16(std::uint32_t value, std::uint16_t *out) {
  if (value < 0x10000) {
    out[0] = static_cast<std::uint16_t>(value);
    return 1;
  }
  value -= 0x10000;
  out[0] = static_cast<std::uint16_t>(0xD800 | (value >> 10));
  out[1] = static_cast<std::uint16_t>(0xDC00 | (value & 0x3FF));
  return 2;
}

std::uint32_t extract_character_from_string(const char *text, std::size_t index) {
  std::uint32_t value = 0;
  for (;; --index) {
    const int length = mbc_to_wide_char(text, &value, nullptr, false);
    if (index == 0 || *text == '\0') return value;
    text += length;
  }
}

namespace {

// A code unit in the byte order of the file; -1 at its end.
int get_code_unit(std::FILE *stream, int kind) {
  const int first = std::getc(stream);
  if (first == EOF) return -1;
  const int second = std::getc(stream);
  if (second == EOF) return -1;
  return kind == 3 ? first << 8 | second : second << 8 | first;
}

}  // namespace

int getc_utf16(std::FILE *stream, a_getc_source_state *state) {
  if (state->pending_next < state->pending_count) return state->pending[state->pending_next++];
  const int unit = get_code_unit(stream, state->kind);
  if (unit < 0) return EOF;
  if (unit < 0x80) return unit;
  auto value = static_cast<std::uint32_t>(unit);
  if (value >= 0xDC00 && value <= 0xDFFF) return '?';
  if (value >= 0xD800 && value <= 0xDBFF) {
    const int low = get_code_unit(stream, state->kind);
    if (low < 0xDC00 || low > 0xDFFF) return '?';
    value = 0x10000 + ((value - 0xD800) << 10) + static_cast<std::uint32_t>(low - 0xDC00);
  }
  char bytes[4];
  state->pending_count = unicode_to_utf8(value, bytes);
  std::memcpy(state->pending, bytes, sizeof bytes);
  state->pending_next = 1;
  return state->pending[0];
}

void set_multibyte_locale() {
  // The source is UTF-8 whatever the user's locale says, so the host's tables stay those of "C".
  std::setlocale(LC_CTYPE, "C");
}
