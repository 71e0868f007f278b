// User-defined literals: 12_km, 1.5e3_s, 'x'_c, "text"_s. The literal is converted as without its
// suffix; the suffix is kept as a name. Which operator the name means is looked up by the parser,
// which knows the scope, each time the token is met.
#include <cstring>

#include "il/il_expr.h"
#include "semantics/folding.h"
#include "semantics/types.h"
#include "source/literals_internal.h"

namespace {

// The name between start and end, as UTF-8.
a_symbol_header *header_of_suffix(const char *start, const char *end) {
  std::size_t length = static_cast<std::size_t>(end - start);
  if (std::memchr(start, '\\', length) != nullptr)
    start = make_canonical_identifier(start, length, &length);
  return find_symbol_header(start, length);
}

bool is_macro_name(const a_symbol_header *header) {
  for (const a_symbol *symbol = header->active_symbols; symbol != nullptr;
       symbol = symbol->next_active)
    if (symbol->kind == syk_macro) return true;
  return false;
}

}  // namespace

bool ud_literal_is_string;

int length_of_universal_character(const char *text) {
  if (*text != '\\' || (text[1] != 'u' && text[1] != 'U') || !universal_character_names_allowed)
    return 0;
  const char *end = text;
  scan_universal_character(&end, true, false, false);
  int length = static_cast<int>(end - text);
  return length == (text[1] == 'U' ? 10 : 6) ? length : 0;
}

// \u00e9 where an identifier may hold it; 0: none.
static int length_of_identifier_escape(const char *text, bool at_start) {
  int length = length_of_universal_character(text);
  if (length == 0) return 0;
  std::uint32_t value = scan_universal_character(&text, true, at_start, false);
  return is_valid_ucn_for_identifier(value, at_start) ? length : 0;
}

const char *end_of_ud_suffix(const char *start) {
  const char *p = start;
  int length;
  for (;;) {
    if (f_is_identifier_char(p, p == start, &length)) {
      p += length;
    } else if (const int escape = length_of_identifier_escape(p, p == start); escape != 0) {
      p += escape;
    } else {
      return p;
    }
  }
}

// PRIu32 directly behind a string is a macro where macros go before suffixes.
const char *f_end_of_suffix_behind_quote(const char *quote_end) {
  const char *end = end_of_ud_suffix(quote_end);
  if (end == quote_end || !macro_preempts_udl_suffix) return end;
  return is_macro_name(header_of_suffix(quote_end, end)) ? quote_end : end;
}

void set_ud_literal(const a_symbol_locator *suffix) {
  const_with_curr_tok_spelling = nullptr;
  ud_lit_op_sym_for_curr_token = nullptr;
  ud_lit_error_for_curr_token = ec_no_error;
  ud_lit_type_for_curr_token = const_for_curr_token.type;
  locator_for_curr_id = *suffix;
}

a_token_kind make_ud_literal(const char *suffix, const char *end) {
  a_symbol_locator locator = cleared_locator;
  locator.header = header_of_suffix(suffix, end);
  locator.is_literal_operator_name = true;
  source_position_at(suffix, &locator.position);
  set_ud_literal(&locator);
  ud_literal_is_string = false;
  return tok_ud_literal;
}

// What does not fit is no error yet: an operator may take the text.
a_token_kind make_ud_number(const char *start, const char *suffix, const char *end, bool is_float,
                            an_error_code conversion_error) {
  if (conversion_error != ec_no_error) set_error_constant(&const_for_curr_token);
  make_ud_literal(suffix, end);
  if (conversion_error != ec_no_error) {
    ud_lit_error_for_curr_token = conversion_error;
    ud_lit_type_for_curr_token =
        is_float ? float_type(fk_long_double) : integer_type(ik_unsigned_long_long);
  }
  const_with_curr_tok_spelling =
      make_spelling_constant(start, static_cast<std::size_t>(suffix - start));
  return tok_ud_literal;
}
