// The buffer of replacement texts, and the scan of preprocessing tokens in text: their ends only,
// no values. Texts are made and given up in stack order, so the buffer is one run of bytes with one
// mark; it lies in reserved address space and never moves.

#include <array>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "source/input_stack_internal.h"
#include "source/literals.h"
#include "source/macro_internal.h"

// ---- The macro text buffer ---------------------------------------------------------------------

// What is larger is a source that grows without end, not a program.
static constexpr std::size_t largest_macro_text = std::size_t{1} << 29;
static constexpr std::size_t largest_macro_arg = std::size_t{1} << 28;

static char *macro_text_space;
static std::size_t macro_text_space_size;
static char *macro_text_pos;

char *alloc_macro_text(std::size_t size) {
  if (macro_text_space == nullptr) {
    macro_text_space_size = largest_macro_text;
    macro_text_space = macro_text_pos = reserve_text_space(&macro_text_space_size);
    *macro_text_pos++ = ' ';
  }
  std::size_t used = static_cast<std::size_t>(macro_text_pos - macro_text_space);
  if (size + image_padding > macro_text_space_size - used) catastrophe(ec_requested_size_too_large);
  char *text = macro_text_pos;
  macro_text_pos += size;
  return text;
}

void release_macro_text_from(const char *start) {
  if (start > macro_text_space && start < macro_text_pos)
    macro_text_pos = const_cast<char *>(start);
}

void release_macro_text() {
  if (macro_text_space != nullptr) macro_text_pos = macro_text_space + 1;
}

char *macro_text_mark() {
  return macro_text_pos;
}

char *grow_macro_text(a_macro_text_buffer *buffer, std::size_t needed) {
  if (buffer->length + needed > buffer->capacity) {
    std::size_t capacity = buffer->capacity * 2;
    if (capacity < buffer->length + needed) capacity = buffer->length + needed + needed / 10;
    if (capacity < 400) capacity = 400;
    if (capacity > largest_macro_arg) catastrophe(ec_requested_size_too_large);
    buffer->text = static_cast<char *>(realloc_buffer(buffer->text, buffer->capacity, capacity));
    buffer->capacity = capacity;
  }
  return buffer->text + buffer->length;
}

// ---- Characters --------------------------------------------------------------------------------

namespace {

enum : std::uint8_t {
  cc_identifier = 1,  // letters, digits, _, and the bytes of multibyte characters
  cc_digit = 2,
  cc_number = 4,  // goes on in a number
};

constexpr std::array<std::uint8_t, 256> make_char_classes() {
  std::array<std::uint8_t, 256> classes{};
  for (int c = 0; c < 256; ++c) {
    bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c >= 128;
    bool digit = c >= '0' && c <= '9';
    std::uint8_t bits = 0;
    if (letter || digit) bits |= cc_identifier | cc_number;
    if (digit) bits |= cc_digit;
    if (c == '.') bits |= cc_number;
    classes[static_cast<std::size_t>(c)] = bits;
  }
  return classes;
}
constexpr std::array<std::uint8_t, 256> char_classes = make_char_classes();

inline std::uint8_t class_of(char c) {
  return char_classes[static_cast<unsigned char>(c)];
}

bool is_universal_character(const char *p) {
  return p[0] == '\\' && (p[1] == 'u' || p[1] == 'U') && universal_character_names_allowed;
}

const char *end_of_identifier(const char *p) {
  for (;;) {
    while ((class_of(*p) & cc_identifier) != 0)
      ++p;
    if (*p == '$' && allow_dollar_in_id_chars)
      ++p;
    else if (is_universal_character(p))
      p += 2;
    else
      return p;
  }
}

const char *end_of_number(const char *p) {
  for (++p;;) {
    char c = *p;
    if ((class_of(c) & cc_number) != 0) {
      ++p;
      char last = static_cast<char>(c | 0x20);
      if ((last == 'e' || (last == 'p' && hex_floating_point_constants_allowed)) &&
          (*p == '+' || *p == '-'))
        ++p;
    } else if (c == '\'' && digit_separators_enabled && (class_of(p[1]) & cc_identifier) != 0) {
      p += 2;
    } else if (is_universal_character(p)) {
      p += 2;
    } else {
      return p;
    }
  }
}

// Is [start, end), in front of a quote, an encoding prefix? *raw: with R.
bool is_encoding_prefix(const char *start, const char *end, bool is_string, bool *raw) {
  *raw = end[-1] == 'R';
  if (*raw) {
    if (!is_string || !raw_string_literals_enabled) return false;
    --end;
  }
  switch (end - start) {
    case 0:
      return true;
    case 1:
      return *start == 'L' || (uliterals_enabled && (*start == 'u' || *start == 'U'));
    case 2:
      return start[0] == 'u' && start[1] == '8' && uliterals_enabled &&
             (is_string || utf8_char_literals_enabled);
    default:
      return false;
  }
}

// Behind the quote that ends the literal whose inside starts at p; null when it is not closed.
const char *end_of_quoted_text(const char *p, char quote) {
  for (;; ++p) {
    if (*p == quote) return p + 1;
    if (*p == '\\' && p[1] != '\0') {
      ++p;
    } else if (*p == '\0') {
      if (p[1] != tm_null_char) return nullptr;
      ++p;
    }
  }
}

const char *end_of_punctuator(const char *p) {
  switch (*p) {
    case '#':
      return p[1] == '#' ? p + 2 : p + 1;
    case '.':
      if (p[1] == '*' && in_cplusplus()) return p + 2;
      return p[1] == '.' && p[2] == '.' ? p + 3 : p + 1;
    case ':':
      return p[1] == ':' && in_cplusplus() ? p + 2 : p + 1;
    case '%':
      if (p[1] == ':' && alternative_tokens_allowed)
        return p[2] == '%' && p[3] == ':' ? p + 4 : p + 2;
      break;
    case '<':
    case '>':  // << and <<=
      if (p[1] == *p) ++p;
      break;
    case '-':
      if (p[1] == '>') return p[2] == '*' && in_cplusplus() ? p + 3 : p + 2;
      [[fallthrough]];
    case '+':
    case '&':
    case '|':  // ++, && and their like
      if (p[1] == *p) return p + 2;
      break;
    case '*':
    case '/':
    case '^':
    case '=':
    case '!':
      break;
    default:
      return p + 1;
  }
  return p[1] == '=' ? p + 2 : p + 1;
}

}  // namespace

bool starts_identifier(const char *p) {
  return (class_of(*p) & (cc_identifier | cc_digit)) == cc_identifier ||
         (*p == '$' && allow_dollar_in_id_chars) || is_universal_character(p);
}

const char *end_of_pp_token(const char *p, a_pp_text_kind *kind, bool *raw_string) {
  if (raw_string != nullptr) *raw_string = false;
  if (starts_identifier(p)) {
    const char *end = end_of_identifier(p);
    if ((*end == '"' || *end == '\'') && end - p <= 3) [[unlikely]] {
      bool raw;
      if (is_encoding_prefix(p, end, *end == '"', &raw)) {
        *kind = ptk_literal;
        if (raw && raw_string != nullptr) {
          *raw_string = true;
          return end;
        }
        const char *closed = end_of_quoted_text(end + 1, *end);
        if (closed != nullptr) return end_of_suffix_behind_quote(closed);
      }
    }
    *kind = ptk_identifier;
    return end;
  }
  char c = *p;
  if ((class_of(c) & cc_digit) != 0 || (c == '.' && (class_of(p[1]) & cc_digit) != 0)) {
    *kind = ptk_number;
    return end_of_number(p);
  }
  if (c == '"' || c == '\'') {
    const char *closed = end_of_quoted_text(p + 1, c);
    *kind = closed != nullptr ? ptk_literal : ptk_punctuator;
    return closed != nullptr ? end_of_suffix_behind_quote(closed) : p + 1;
  }
  *kind = c == '\0' ? ptk_end : ptk_punctuator;
  return c == '\0' ? p : end_of_punctuator(p);
}

// ---- Raw strings over lines ---------------------------------------------------------------------

// What the file had in place of a trigraph or splice, for text inside a raw string.
static bool put_back_original(a_macro_text_buffer *buffer, const an_orig_line_modif *modif) {
  const char trigraph[] = {'?', '?', static_cast<char>(modif->value), '\0'};
  const char *original = modif->kind == olm_trigraph          ? trigraph
                         : modif->kind == olm_line_splice     ? "\\\n"
                         : modif->kind == olm_trigraph_splice ? "?\?/\n"
                                                              : nullptr;
  if (original == nullptr) return false;
  std::size_t length = std::strlen(original);
  std::memcpy(grow_macro_text(buffer, length), original, length);
  buffer->length += length;
  return true;
}

void append_raw_string_text(a_macro_text_buffer *buffer, const char *quote, bool may_read_on) {
  const char *p = quote + 1;
  char delimiter[17];
  std::size_t length = 0;
  while (length < 16 && p[length] != '(' && p[length] != '\0') {
    delimiter[length] = p[length];
    ++length;
  }
  const an_orig_line_modif *modif = curr_text_modif != nullptr ? nullptr : orig_line_modif_list;
  for (;;) {
    while (modif != nullptr && modif->loc < p)
      modif = modif->next;
    if (modif != nullptr && modif->loc == p && put_back_original(buffer, modif)) {
      if (modif->kind == olm_trigraph) ++p;
      modif = modif->next;
      continue;
    }
    if (*p == ')' && std::strncmp(p + 1, delimiter, length) == 0 && p[length + 1] == '"') {
      curr_char_loc = end_of_suffix_behind_quote(p + length + 2);
      length = static_cast<std::size_t>(curr_char_loc - p);
      std::memcpy(grow_macro_text(buffer, length), p, length);
      buffer->length += length;
      break;
    }
    if (*p == '\0' && p[1] != tm_null_char) {
      if (p[1] != tm_end_of_line || curr_text_modif != nullptr || !may_read_on) {
        curr_char_loc = p;
        break;
      }
      add_orig_line_modif(p, olm_newline, seq_number_last_read + 1);
      modif = end_orig_line_modif_list;
      char *line_end = const_cast<char *>(p);
      line_end[0] = '\\';
      line_end[1] = 'n';
      curr_char_loc = p + 2;
      if (read_logical_source_line(false, true)) {
        line_end[2] = '\0';
        line_end[3] = tm_end_of_buffer;
        break;
      }
      *grow_macro_text(buffer, 1) = '\n';
      ++buffer->length;
      p += 2;
      continue;
    }
    *grow_macro_text(buffer, 1) = *p++;
    ++buffer->length;
  }
}
