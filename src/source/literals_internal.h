// What the rooms of literals share.
#ifndef SOURCE_LITERALS_INTERNAL_H
#define SOURCE_LITERALS_INTERNAL_H

#include "source/lexical_internal.h"
#include "source/literals.h"

// Reports at a character of the line.
void report_at(an_error_severity severity, an_error_code code, const char *loc);
void not_supported_at(const char *loc, const char *subject);
inline void error_at(an_error_code code, const char *loc) {
  report_at(es_error, code, loc);
}
inline void warn_at(an_error_code code, const char *loc) {
  report_at(es_warning, code, loc);
}

// Is the form and value of literals judged at all?
inline bool literals_are_judged() {
  return !fetch_pp_tokens && !currently_in_pp_if_skip;
}

// ---- Characters --------------------------------------------------------------------------------

// Walks over the characters of a literal, code unit by code unit.
struct a_char_conversion_state {
  const char *source;                    // next character of the text
  const an_orig_line_modif *next_modif;  // first record not passed; only used in raw literals
  std::uint32_t pending[4];              // units of a character that are still to be given
  int pending_count;
  int pending_next;
  bool utf16_output;    // a value above 0xFFFF becomes a pair
  bool bytes_are_text;  // a byte above 127 of a source without multibyte characters is a character
};
// prefix: the literal's, an_encoding_prefix.
void init_char_conversion(a_char_conversion_state *state, const char *source, bool is_raw,
                          int prefix);

// One code unit. mask: its largest value. to_narrow_text: for narrow literals; utf8_output: values
// above 127 become several units.
std::uint32_t conv_single_char(a_char_conversion_state *state, bool process_escapes,
                               std::uint64_t mask, bool to_narrow_text, bool utf8_output);
// The same for the wide kinds: a multibyte character is one unit, or a pair.
std::uint32_t conv_single_wide_char(a_char_conversion_state *state, bool process_escapes,
                                    std::uint64_t mask);

// The delimiter of a raw string, between the quote and the parenthesis.
struct a_raw_delimiter {
  const char *text;
  std::size_t length;
  int trigraphs;  // how many of its characters are trigraphs in the file
};

// Moves curr_char_loc to the closing quote and counts code units. raw: null for other literals.
// True: the line ended before the quote.
bool accum_quoted_string(std::size_t *length, bool is_header_name, int prefix, char quote,
                         const a_raw_delimiter *raw);

// Properties of the code unit of a prefix: string kind, bytes and bits, largest value.
int string_kind_of_prefix(int prefix);
int unit_size_of_prefix(int prefix);
std::uint64_t unit_mask_of_prefix(int prefix);
inline bool is_wide_prefix(int prefix) {
  return (prefix & ep_kind_mask) >= ep_u;
}
bool prefix_is_utf16(int prefix);

// ---- User-defined literals ---------------------------------------------------------------------

// Of the whole universal character name at text; 0: there is none.
int length_of_universal_character(const char *text);
// The end of the name at start that is a suffix in form; start: no name stands there.
const char *end_of_ud_suffix(const char *start);
// Makes the literal in const_for_curr_token one with the suffix from suffix to end.
a_token_kind make_ud_literal(const char *suffix, const char *end);
void set_ud_literal(const a_symbol_locator *suffix);
a_token_kind make_ud_number(const char *start, const char *suffix, const char *end, bool is_float,
                            an_error_code conversion_error);
// The text of a number as a string literal, for operators that take it raw.
a_constant *make_spelling_constant(const char *text, std::size_t length);

#endif
