// Literals: from the text of a number, character or string to the constant in
// const_for_curr_token, with the types of the dialect and of the target.
//
// Two stages: the scan_ routines are called by the tokenizer at the first character, find the end
// of the token, check its form and give its kind; the conv_ routines work out the value. While
// preprocessing tokens are fetched only the first stage runs, and no value is judged. After an
// error the constant is an error constant.
#ifndef SOURCE_LITERALS_H
#define SOURCE_LITERALS_H

#include <cstddef>
#include <cstdint>

#include "DIAG/error_codes.h"
#include "driver/switches.h"
#include "il/il_fwd.h"
#include "source/lexical.h"

// The prefix of a character or string literal; the order is that of ranks in a concatenation.
enum an_encoding_prefix : int {
  ep_none = 1,  // char
  ep_u8 = 2,    // char, stored as UTF-8
  ep_u = 3,     // char16_t
  ep_U = 4,     // char32_t
  ep_L = 5,     // wchar_t
  ep_kind_mask = 7,
  ep_raw = 8,  // R in front of the quote
  ep_ud = 16,  // a user-defined literal
};

// The prefix at text, with the quote behind it; -1: no literal starts here.
int scan_encoding_prefix(const char *text);
int length_of_encoding_prefix(int prefix);  // in front of the quote

// ---- From the tokenizer ------------------------------------------------------------------------

a_token_kind scan_number(const char *start);
a_token_kind scan_prefixed_literal(const char *start, int prefix);
a_token_kind scan_string(const char *start, int prefix);
a_token_kind scan_character(const char *start, int prefix);
a_token_kind scan_header_name(const char *start);

// ---- Conversion --------------------------------------------------------------------------------

// From start_of_curr_token to end_of_curr_token, suffix included. *err is 0 or the error, *err_loc
// the character to blame.
void conv_integer_literal(int radix, an_error_code *err, const char **err_loc);
void conv_float_literal(bool is_hex, an_error_code *err, const char **err_loc);
void conv_char_literal(std::size_t count, an_error_code *err, const char **err_loc);
// The literal from start (its prefix) to end (its closing quote), of length code units.
void conv_string_literal(const char *start, const char *end, int prefix, std::size_t length,
                         an_error_code *err, const char **err_loc);

// The end of the user-defined suffix behind a closing quote, where such literals exist; the name of
// a macro may be none.
const char *f_end_of_suffix_behind_quote(const char *quote_end);
inline const char *end_of_suffix_behind_quote(const char *quote_end) {
  return user_defined_literals_enabled ? f_end_of_suffix_behind_quote(quote_end) : quote_end;
}
// The user-defined literal scanned last is a string, which joins with those that follow.
extern bool ud_literal_is_string;
// Joins the string literal in the current token with those that follow. from_function_name: the
// names of the current function count as string literals.
a_token_kind concat_adjacent_string_literals(bool from_function_name);

// The code unit of so many bytes at a place in the text of a literal.
std::uint32_t load_string_unit(const char *text, int size);

// Rebuilds a narrow literal as a wide one of the same length.
void widen_string_literal(a_constant *constant);

#endif
