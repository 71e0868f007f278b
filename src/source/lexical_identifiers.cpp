// Identifiers: their characters, their spelling variants, and what a name means to the scanner: a
// macro to expand, a keyword, or a plain name whose symbols the parser looks at.
#include <cstring>

#include "UTIL/unicode.h"
#include "driver/host_envir.h"
#include "semantics/folding.h"
#include "semantics/types.h"
#include "source/lexical_internal.h"
#include "source/macro.h"

namespace {

constexpr int table_size = 256;
constexpr int table_offset = 128;

bool id_char_table[table_size];
bool id_char_no_mbc_table[table_size];
bool ends_id_table[table_size];
bool raw_delimiter_table[table_size];

// The characters in which every source is written.
bool is_basic_character(int c) {
  return c >= ' ' ? c < 127 && c != '$' && c != '@' && c != '`'
                  : c == '\t' || c == '\v' || c == '\f' || c == '\n';
}

bool is_letter_or_digit(int c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

a_unicode_identifier_set identifier_set() {
  if (in_cplusplus())
    return std_version >= 201103 || implicit_microsoft_cpp11_mode ? uis_c11 : uis_cpp98;
  return std_version >= 201112 ? uis_c11 : std_version >= 199901 ? uis_c99 : uis_cpp98;
}

}  // namespace

const bool *is_id_char = id_char_table + table_offset;
const bool *is_id_char_no_mbc = id_char_no_mbc_table + table_offset;
const bool *char_ends_id = ends_id_table + table_offset;
const bool *is_raw_string_delimiter_char = raw_delimiter_table + table_offset;

void init_character_tables() {
  for (int c = -128; c < 128; ++c) {
    bool plain = is_letter_or_digit(c) || (c == '$' && allow_dollar_in_id_chars);
    bool starts_escape = c == '\\' && universal_character_names_allowed;
    bool multibyte = c < 0 && multibyte_chars_in_source_enabled;
    id_char_table[c + table_offset] = plain;
    id_char_no_mbc_table[c + table_offset] = !plain && !multibyte;
    ends_id_table[c + table_offset] = !plain && !multibyte && !starts_escape;
    raw_delimiter_table[c + table_offset] =
        is_basic_character(c) && c > ' ' && c != '(' && c != ')' && c != '\\';
  }
}

bool is_nonstandard_character(char c) {
  return !is_basic_character(c);
}

bool is_valid_ucn_for_identifier(std::uint32_t value, bool at_start) {
  return unicode_may_be_in_identifier(value, identifier_set(), at_start);
}

bool f_is_identifier_char(const char *text, bool at_start, int *length) {
  *length = 1;
  if (*text >= 0)
    return is_id_char[static_cast<int>(*text)] && !(at_start && *text <= '9' && *text >= '0');
  if (!multibyte_chars_in_source_enabled) return false;
  std::uint32_t value;
  bool invalid = false;
  int used = mbc_to_wide_char(text, &value, &invalid, false);
  if (invalid) return false;
  *length = used;
  return is_valid_ucn_for_identifier(value, at_start);
}

// ---- Universal character names -----------------------------------------------------------------

namespace {

int hex_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

void report_ucn(an_error_severity severity, an_error_code code, const char *loc) {
  a_source_position pos;
  source_position_at(loc, &pos);
  pos_diagnostic(severity, code, &pos);
}

// C++: no surrogates and nothing above the range (from C++11), no controls (before), and in
// identifiers only what the standard lists. Basic characters may not be spelled that way outside
// literals.
void check_cplusplus_ucn(std::uint32_t value, bool in_identifier, bool at_start,
                         const char *start) {
  bool old_rules = std_version < 201103 && !uliterals_enabled && !microsoft_mode;
  if (!old_rules && value >= 0xD800 && value <= 0xDFFF) {
    report_ucn(es_error, ec_UCN_names_surrogate_code_point, start);
  } else if (!old_rules && value > 0x10FFFF) {
    report_ucn(es_error, ec_UCN_names_invalid_code_point, start);
  } else if (value < 128 && is_basic_character(static_cast<int>(value))) {
    if (old_rules || in_identifier)
      report_ucn(strict_ansi_error_severity, ec_UCN_names_basic_char, start);
  } else if (old_rules && (value < 32 || (value >= 127 && value <= 159))) {
    report_ucn(es_error, ec_invalid_UCN, start);
  } else if (in_identifier && !is_valid_ucn_for_identifier(value, at_start)) {
    report_ucn(es_error, ec_invalid_identifier_UCN, start);
  }
}

// C: nothing below 160 but $ @ and the back quote.
void check_c_ucn(std::uint32_t value, bool in_identifier, bool at_start, const char *start) {
  bool is_allowed_low = value == '$' || value == '@' || value == '`';
  if (value >= 0xD800 && value <= 0xDFFF) {
    report_ucn(es_error, ec_UCN_names_surrogate_code_point, start);
  } else if (value > 0x10FFFF) {
    report_ucn(es_error, ec_UCN_names_invalid_code_point, start);
  } else if (in_identifier && value == '$' && allow_dollar_in_id_chars) {
    report_ucn(es_error, ec_UCN_names_basic_char, start);
  } else if (value < 160 && !is_allowed_low) {
    report_ucn(es_error, ec_UCN_names_basic_char, start);
  } else if (in_identifier && !is_valid_ucn_for_identifier(value, at_start)) {
    report_ucn(es_error, ec_invalid_identifier_UCN, start);
  }
}

}  // namespace

std::uint32_t scan_universal_character(const char **loc, bool in_identifier, bool at_start,
                                       bool report) {
  const char *start = *loc, *p = start + 2;
  int digits = start[1] == 'U' ? 8 : 4;
  std::uint32_t value = 0;
  if (currently_in_pp_if_skip) report = false;
  for (int i = 0; i < digits; ++i, ++p) {
    int digit = hex_value(*p);
    if (digit < 0) {
      if (report) report_ucn(es_error, ec_malformed_universal_character, p);
      *loc = p;
      return value;
    }
    value = value << 4 | static_cast<std::uint32_t>(digit);
  }
  *loc = p;
  if (report) {
    if (in_cplusplus())
      check_cplusplus_ucn(value, in_identifier, at_start, start);
    else
      check_c_ucn(value, in_identifier, at_start, start);
  }
  return value;
}

// The name as UTF-8, so that \u00e9 and the character itself are one name.
const char *make_canonical_identifier(const char *start, std::size_t length,
                                      std::size_t *canonical_length) {
  static a_text_buffer *buffer;
  if (buffer == nullptr) buffer = alloc_text_buffer(256);
  reset_text_buffer(buffer);
  const char *end = start + length;
  for (const char *p = start; p < end;) {
    if (*p == '\\') {
      char utf8[4];
      std::uint32_t value = scan_universal_character(&p, true, false, false);
      int bytes = value <= 0x10FFFF ? unicode_to_utf8(value, utf8) : 0;
      add_to_text_buffer(buffer, utf8, static_cast<std::size_t>(bytes));
    } else {
      add_char_to_text_buffer(buffer, *p++);
    }
  }
  *canonical_length = buffer->size_used;
  return buffer->buffer;
}

// ---- The identifier path -----------------------------------------------------------------------

namespace {

// Goes on behind p, where a character stands that is no plain one: the characters of several bytes
// and \u names of the identifier that starts at start.
const char *scan_extended_identifier(const char *start, const char *p) {
  for (;;) {
    int length;
    if (is_id_char[static_cast<int>(*p)]) {
      ++p;
    } else if (*p == '\\' && universal_character_names_allowed && (p[1] == 'u' || p[1] == 'U') &&
               hex_value(p[2]) >= 0) {
      scan_universal_character(&p, true, p == start, !fetch_pp_tokens);
    } else if (*p < 0 && f_is_identifier_char(p, p == start, &length)) {
      p += length;
    } else {
      return p;
    }
  }
}

void find_header_of_token(const char *start, std::size_t length, bool is_extended) {
  if (is_extended) start = make_canonical_identifier(start, length, &length);
  locator_for_curr_id = cleared_locator;
  locator_for_curr_id.header = find_symbol_header(start, length);
  locator_for_curr_id.position = pos_curr_token;
}

constexpr char va_args_name[] = "__VA_ARGS__";

bool is_va_args(const char *start, std::size_t length) {
  return *start == '_' && length == sizeof va_args_name - 1 &&
         std::memcmp(start, va_args_name, length) == 0;
}

// Is a keyword of this kind one here? Operators spelled as words are operators everywhere.
bool keyword_is_recognized(a_token_kind kind) {
  if (suppress_keyword_recognition) return false;
  if (token_classes[kind] != tcl_keyword && kind != tok_unimplemented) return true;
  if (fetch_pp_tokens) return false;
  if (!in_preprocessing_directive) return true;
  if (kind == tok_new || kind == tok_delete) return true;
  if (in_pp_if_expression) return in_cplusplus() && (kind == tok_true || kind == tok_false);
  return recognize_keywords_in_pragma;
}

// typename and the like, switched off: said once, an identifier from then on.
void report_disabled_keyword(a_symbol *keyword) {
  pos_sy_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_remark,
                    ec_unimplemented_keyword, &pos_curr_token, keyword);
  remove_symbol(keyword);
}

// "struct __is_pod" of a library written for other compilers: the trait is a name from here on.
bool is_dropped_keyword(a_symbol *keyword) {
  if (!clang_mode || token_before != tok_struct) return false;
  if (std::strncmp(locator_for_curr_id.header->name, "__is_", 5) != 0) return false;
  pos_sy_warning(ec_keyword_dropped, &pos_curr_token, keyword);
  remove_symbol(keyword);
  return true;
}

}  // namespace

a_token_kind set_constant_of_keyword(a_token_kind kind) {
  if (kind == tok_true || kind == tok_false) {
    set_integer_constant_of_type(&const_for_curr_token, kind == tok_true, bool_type());
    const_for_curr_token.is_literal = true;
  }
  return kind;
}

a_token_kind scan_identifier(const char *start, bool inert, bool temporarily_inert) {
  const char *p = start;
  while (is_id_char[static_cast<int>(p[0])]) {
    if (!is_id_char[static_cast<int>(p[1])]) {
      ++p;
      break;
    }
    p += 2;
  }
  bool is_extended = false;
  if (!char_ends_id[static_cast<int>(*p)]) [[unlikely]] {
    const char *end = scan_extended_identifier(start, p);
    is_extended = end != p;
    p = end;
  }
  if (p == start) {
    set_curr_token_text(start, start + 1);
    return bad_token(ec_bad_token);
  }
  set_curr_token_text(start, p);
  std::size_t length = static_cast<std::size_t>(p - start);
  find_header_of_token(start, length, is_extended);
  curr_token_is_inert_macro = inert;
  curr_token_is_temporarily_inert = temporarily_inert;
  if (variadic_macros_allowed && is_va_args(start, length) && !currently_in_pp_if_skip)
    pos_error(ec_VA_ARGS_not_allowed, &pos_curr_token);

  a_symbol *macro = nullptr, *keyword = nullptr;
  for (a_symbol *symbol = locator_for_curr_id.header->active_symbols; symbol != nullptr;
       symbol = symbol->next_active) {
    if (symbol->kind == syk_macro) macro = symbol;
    if (symbol->kind == syk_keyword) keyword = symbol;
  }
  if (macro != nullptr && expand_macros && !inert) {
    bool text_changed = false;
    curr_token = tok_identifier;
    first_token_on_line_seen = true;
    macro_invocation(macro, &text_changed);
    if (text_changed) return tok_rescan;
    // A look at what follows may have scanned other tokens.
    set_curr_token_text(start, p);
    find_header_of_token(start, length, is_extended);
  }
  if (keyword != nullptr) {
    a_token_kind kind = keyword->variant.keyword;
    if (keyword_is_recognized(kind)) {
      if (kind == tok_unimplemented)
        report_disabled_keyword(keyword);
      else if (!is_dropped_keyword(keyword))
        return set_constant_of_keyword(kind);
    }
  }
  return tok_identifier;
}
