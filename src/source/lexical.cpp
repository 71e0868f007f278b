// get_token over the text: one switch on the first character of a token. Every loop over text stops
// at a byte 0, behind which a marker tells why: the end of a line, of the buffer, of a macro's
// text, or a mark on the identifier that follows.
#include "source/lexical.h"

#include <cstring>

#include "driver/host_envir.h"
#include "il/il_expr.h"
#include "source/lexical_internal.h"
#include "source/macro.h"
#include "source/preproc.h"

const char *const token_names[tok_last] = {
#define TOKEN(number, name, spelling, class) spelling,
#include "source/token_kinds.def"
};

const a_token_class token_classes[tok_last] = {
#define TOKEN(number, name, spelling, class) tcl_##class,
#include "source/token_kinds.def"
};

a_token_kind curr_token;
a_source_position pos_curr_token;
a_source_position end_pos_curr_token;
const char *start_of_curr_token;
const char *end_of_curr_token;
std::size_t len_of_curr_token;
std::uint32_t curr_token_sequence_number;
std::uint32_t last_token_sequence_number_of_token;
std::uint32_t last_token_sequence_number_used;
a_symbol_locator locator_for_curr_id;
a_constant const_for_curr_token;
a_constant *const_with_curr_tok_spelling;
a_symbol *ud_lit_op_sym_for_curr_token;
a_type *ud_lit_type_for_curr_token;
an_error_code ud_lit_error_for_curr_token;
const char *curr_token_asm_string;
a_cached_token *curr_cached_token_handle;
a_pending_pragma *curr_token_pragmas;
an_error_code err_code_for_error_token;
bool any_initial_get_token_tests_needed;
bool curr_token_is_inert_macro;
bool curr_token_is_temporarily_inert;
a_source_position pos_of_macro_invocation;
bool comma_is_from_argument;
bool first_token_on_line_seen;

bool fetch_pp_tokens;
bool expand_macros = true;
bool in_preprocessing_directive;
bool treat_newline_as_token;
bool suppress_keyword_recognition;
bool in_pp_if_expression;
bool scanning_macro_name;
bool exp_header_name;
bool exp_system_header_name;
bool exp_digit_sequence;
bool currently_in_pp_if_skip;
bool recognize_keywords_in_pragma;
bool do_string_literal_concatenation = true;
bool next_token_is_top_level_decl_start;
bool caching_tokens;
a_token_kind token_before;

namespace {

bool in_cpp11() {
  return in_cplusplus() && (std_version >= 201103 || implicit_microsoft_cpp11_mode);
}

a_token_kind punctuator(const char *start, int length, a_token_kind kind) {
  set_curr_token_text(start, start + length);
  return kind;
}

bool is_in_preprocessing_mode() {
  return fetch_pp_tokens || in_preprocessing_directive;
}

}  // namespace

// How many tokens from text come until the one at which the parser may stumble; 0: no such token.
static int tokens_to_consequence;

void expect_syntax_error_after(int tokens) {
  if (tokens_to_consequence == 1) forgive_syntax_error_at(&pos_curr_token);  // this one was awaited
  tokens_to_consequence = tokens + 1;
}

// A character that starts no token. As a preprocessing token it is an error token, which does no
// harm unless it is wanted; in a program it is reported and passed over.
a_token_kind bad_token(an_error_code code) {
  err_code_for_error_token = code;
  if (is_in_preprocessing_mode()) return tok_error;
  pos_error(code, &pos_curr_token);
  expect_syntax_error_after(0);
  return tok_rescan;
}

namespace {

a_token_kind scan_bad_character(const char *start) {
  int length = 1;
  if (multibyte_chars_in_source_enabled && static_cast<unsigned char>(*start) >= 0x80) {
    bool invalid;
    length = f_mbc_length(start, &invalid, true);
    if (length < 1) length = 1;
  }
  set_curr_token_text(start, start + length);
  return bad_token(ec_bad_token);
}

// # at the start of a line is a directive, inside a directive an operator.
a_token_kind scan_sharp(const char *start, int length) {
  bool starts_line = !first_token_on_line_seen && curr_text_modif == nullptr;
  if (pcc_preprocessing_mode && starts_line) starts_line = start == curr_source_line;
  if (starts_line && !in_preprocessing_directive) {
    curr_token = punctuator(start, length, tok_sharp);
    first_token_on_line_seen = true;
    pp_directive();
    return tok_rescan;
  }
  if (check_misra_c_2004 && macro_depth != 0)
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_19_9, &pos_curr_token);
  bool doubled = length == 1 ? start[1] == '#'
                             : alternative_tokens_allowed && start[2] == '%' && start[3] == ':';
  if (doubled) length *= 2;
  if (in_preprocessing_directive || fetch_pp_tokens)
    return punctuator(start, length, doubled ? tok_sharp_sharp : tok_sharp);
  set_curr_token_text(start, start + length);
  return bad_token(ec_bad_use_of_sharp);
}

// < <= << <<= and the digraphs <: <%; in GNU C++ <?.
a_token_kind scan_less(const char *start) {
  switch (start[1]) {
    case '=':
      return punctuator(start, 2, tok_le);
    case '<':
      return start[2] == '=' ? punctuator(start, 3, tok_shift_left_assign)
                             : punctuator(start, 2, tok_shift_left);
    case '?':
      if (gpp_mode) return punctuator(start, 2, tok_min_op);
      break;
    case '%':
      if (alternative_tokens_allowed) return punctuator(start, 2, tok_lbrace);
      break;
    case ':':
      if (!alternative_tokens_allowed) break;
      // A<::B> is no array: <:: splits unless : or > follows.
      if (in_cpp11() && start[2] == ':' && start[3] != ':' && start[3] != '>') {
        if (!gnu_mode || clang_mode || gnu_version >= 40800) break;
        set_curr_token_text(start, start + 2);
        if (!fetch_pp_tokens)
          pos_warning(ec_probable_inadvertent_lbracket_digraph, &pos_curr_token);
      } else if (in_cplusplus() && start[2] == ':' && start[3] != ':' && start[3] != '>') {
        set_curr_token_text(start, start + 2);
        if (!fetch_pp_tokens)
          pos_warning(ec_probable_inadvertent_lbracket_digraph, &pos_curr_token);
      }
      return punctuator(start, 2, tok_lbracket);
  }
  return punctuator(start, 1, tok_lt);
}

a_token_kind scan_greater(const char *start) {
  switch (start[1]) {
    case '=':
      return punctuator(start, 2, tok_ge);
    case '>':
      return start[2] == '=' ? punctuator(start, 3, tok_shift_right_assign)
                             : punctuator(start, 2, tok_shift_right);
    case '?':
      if (gpp_mode) return punctuator(start, 2, tok_max_op);
      break;
  }
  return punctuator(start, 1, tok_gt);
}

// % %= and the digraphs %> %: %:%:.
a_token_kind scan_percent(const char *start) {
  if (start[1] == '=') return punctuator(start, 2, tok_remainder_assign);
  if (alternative_tokens_allowed) {
    if (start[1] == '>') return punctuator(start, 2, tok_rbrace);
    if (start[1] == ':') {
      if (in_cplusplus() && start[2] == ':' && start[3] != ':' && !fetch_pp_tokens) {
        set_curr_token_text(start, start + 2);
        pos_warning(ec_probable_inadvertent_sharp_digraph, &pos_curr_token);
      }
      return scan_sharp(start, 2);
    }
  }
  return punctuator(start, 1, tok_remainder);
}

a_token_kind scan_minus(const char *start) {
  switch (start[1]) {
    case '-':
      return punctuator(start, 2, tok_minus_minus);
    case '=':
      return punctuator(start, 2, tok_subtract_assign);
    case '>':
      if (in_cplusplus() && start[2] == '*') return punctuator(start, 3, tok_arrow_star);
      return punctuator(start, 2, tok_arrow);
  }
  return punctuator(start, 1, tok_minus);
}

a_token_kind scan_period(const char *start) {
  if (start[1] >= '0' && start[1] <= '9') return scan_number(start);
  if (start[1] == '.' && start[2] == '.') return punctuator(start, 3, tok_ellipsis);
  if (start[1] == '*' && in_cplusplus()) return punctuator(start, 2, tok_dot_star);
  return punctuator(start, 1, tok_period);
}

// & && &=, and the like: one character, doubled or with = behind.
a_token_kind scan_doubling(const char *start, a_token_kind single, a_token_kind doubled,
                           a_token_kind with_assign) {
  if (start[1] == start[0]) return punctuator(start, 2, doubled);
  if (start[1] == '=') return punctuator(start, 2, with_assign);
  return punctuator(start, 1, single);
}

a_token_kind scan_with_assign(const char *start, a_token_kind single, a_token_kind with_assign) {
  if (start[1] == '=') return punctuator(start, 2, with_assign);
  return punctuator(start, 1, single);
}

// A marker that skip_white_space stopped at: the end of what may be read, or of a line where that
// counts. The scan stays in front of it.
a_token_kind scan_end_marker(const char *start) {
  set_curr_token_text(start, start + 1);
  curr_char_loc = start;
  len_of_curr_token = 0;
  return start[1] == tm_end_of_line ? tok_newline : tok_end_of_source;
}

// The byte 0 at start and its marker. *next: where the scan goes on when tok_rescan is returned.
a_token_kind scan_marker(const char *start) {
  switch (start[1]) {
    case tm_separator:
      curr_char_loc = start + 2;
      return tok_rescan;
    case tm_inert:
    case tm_temporarily_inert:
      return scan_identifier(start + 2, true, start[1] == tm_temporarily_inert);
    case tm_end_of_line:
      if (treat_newline_as_token || in_preprocessing_directive) return scan_end_marker(start);
      break;
  }
  skip_white_space();
  const char *loc = curr_char_loc;
  if (*loc == '\0' &&
      (loc[1] == tm_end_of_buffer || loc[1] == tm_end_of_modif || loc[1] == tm_end_of_line))
    return scan_end_marker(loc);
  return tok_rescan;
}

bool is_quote(char c) {
  return c == '"' || c == '\'';
}

// L u U u8 R in front of a quote start a literal, otherwise an identifier.
a_token_kind scan_identifier_or_prefix(const char *start) {
  char second = start[1];
  if (is_quote(second) || second == 'R' || second == '8') [[unlikely]] {
    int prefix = scan_encoding_prefix(start);
    if (prefix > 0) return scan_prefixed_literal(start, prefix);
  }
  return scan_identifier(start, false, false);
}

// One token from the text, or tok_rescan when what stood at curr_char_loc is passed (a directive, a
// macro name whose expansion is to be scanned).
a_token_kind scan_token() {
  const char *loc = curr_char_loc;
  if (*loc == ' ') {
    do
      ++loc;
    while (*loc == ' ');
    kind_of_white_space_skipped |= wsk_blanks;
    curr_char_loc = loc;
  }
  switch (*loc) {
    case '\0':
      return scan_marker(loc);
    case '\t':
    case '\v':
    case '\f':
    case '\r':
    case '\n':
      skip_white_space();
      return tok_rescan;
    case 'L':
    case 'u':
    case 'U':
    case 'R':
      return scan_identifier_or_prefix(loc);
    case 'a':
    case 'b':
    case 'c':
    case 'd':
    case 'e':
    case 'f':
    case 'g':
    case 'h':
    case 'i':
    case 'j':
    case 'k':
    case 'l':
    case 'm':
    case 'n':
    case 'o':
    case 'p':
    case 'q':
    case 'r':
    case 's':
    case 't':
    case 'v':
    case 'w':
    case 'x':
    case 'y':
    case 'z':
    case 'A':
    case 'B':
    case 'C':
    case 'D':
    case 'E':
    case 'F':
    case 'G':
    case 'H':
    case 'I':
    case 'J':
    case 'K':
    case 'M':
    case 'N':
    case 'O':
    case 'P':
    case 'Q':
    case 'S':
    case 'T':
    case 'V':
    case 'W':
    case 'X':
    case 'Y':
    case 'Z':
    case '_':
      return scan_identifier(loc, false, false);
    case '0':
    case '1':
    case '2':
    case '3':
    case '4':
    case '5':
    case '6':
    case '7':
    case '8':
    case '9':
      return scan_number(loc);
    case '"':
      if (exp_header_name) return scan_header_name(loc);
      return scan_string(loc, ep_none);
    case '\'':
      return scan_character(loc, ep_none);
    case '<':
      if (exp_header_name && exp_system_header_name) return scan_header_name(loc);
      return scan_less(loc);
    case '/':
      if (loc[1] == '*' || loc[1] == '/') {
        // A comment is over where the next line may begin at the same place of the buffer.
        kind_of_white_space_skipped = 0;
        skip_white_space();
        if (kind_of_white_space_skipped != 0) return tok_rescan;
      }
      return scan_with_assign(loc, tok_divide, tok_divide_assign);
    case '[':
      return punctuator(loc, 1, tok_lbracket);
    case ']':
      return punctuator(loc, 1, tok_rbracket);
    case '(':
      return punctuator(loc, 1, tok_lparen);
    case ')':
      return punctuator(loc, 1, tok_rparen);
    case '{':
      return punctuator(loc, 1, tok_lbrace);
    case '}':
      return punctuator(loc, 1, tok_rbrace);
    case ';':
      return punctuator(loc, 1, tok_semicolon);
    case ',':
      return punctuator(loc, 1, tok_comma);
    case '~':
      return punctuator(loc, 1, tok_compl);
    case '?':
      return punctuator(loc, 1, tok_quest_mark);
    case ':':
      if (loc[1] == ':' && in_cplusplus()) return punctuator(loc, 2, tok_colon_colon);
      if (loc[1] == '>' && alternative_tokens_allowed) return punctuator(loc, 2, tok_rbracket);
      return punctuator(loc, 1, tok_colon);
    case '.':
      return scan_period(loc);
    case '-':
      return scan_minus(loc);
    case '+':
      return scan_doubling(loc, tok_plus, tok_plus_plus, tok_add_assign);
    case '&':
      return scan_doubling(loc, tok_ampersand, tok_and_and, tok_and_assign);
    case '|':
      return scan_doubling(loc, tok_or, tok_or_or, tok_or_assign);
    case '*':
      return scan_with_assign(loc, tok_star, tok_times_assign);
    case '!':
      return scan_with_assign(loc, tok_not, tok_ne);
    case '=':
      return scan_with_assign(loc, tok_assign, tok_eq);
    case '^':
      return scan_with_assign(loc, tok_excl_or, tok_excl_or_assign);
    case '%':
      return scan_percent(loc);
    case '>':
      return scan_greater(loc);
    case '#':
      return scan_sharp(loc, 1);
    case '@':
      if (pwa_standalone_iar) return punctuator(loc, 1, tok_at_sign);
      return scan_bad_character(loc);
    case '$':
      if (allow_dollar_in_id_chars) return scan_identifier(loc, false, false);
      return scan_bad_character(loc);
    case '\\':
      if (universal_character_names_allowed && (loc[1] == 'u' || loc[1] == 'U'))
        return scan_identifier(loc, false, false);
      return scan_bad_character(loc);
    default: {
      int length;
      if (f_is_identifier_char(loc, true, &length)) return scan_identifier(loc, false, false);
      return scan_bad_character(loc);
    }
  }
}

// ---- Places where ## joined two texts ----------------------------------------------------------

// Takes the records of the text up to the current token out, and warns of those where the paste did
// not make one token that ends with what stood behind ##: "a ## +" reads as a and +, and "+ ## ++"
// as ++ and +.
void check_concatenations_at_token() {
  a_concatenation_record **link = &curr_text_modif->concatenations;
  while (*link != nullptr && (*link)->place <= end_of_curr_token) {
    a_concatenation_record *record = *link;
    *link = record->next;
    const char *place = record->place;
    bool separate = place == start_of_curr_token;
    bool tail_left = place > start_of_curr_token && end_of_curr_token + 1 < record->end;
    if (separate || tail_left)
      pos_stsy_diagnostic(strict_ansi_mode ? strict_ansi_discretionary_severity : es_warning,
                          ec_concat_yields_invalid_token, &pos_curr_token, place, record->symbol);
    record->next = avail_concatenation_records;
    avail_concatenation_records = record;
  }
}

a_token_kind get_token_from_text() {
  token_before = curr_token;
  kind_of_white_space_skipped = 0;
  comma_is_from_argument = false;
  a_token_kind kind;
  do {
    curr_token_is_inert_macro = false;
    curr_token_is_temporarily_inert = false;
    kind = scan_token();
  } while (kind == tok_rescan);
  // Numbered now: directives and macros took numbers for the tokens that they read.
  last_token_sequence_number_used += 2;
  curr_token_sequence_number = last_token_sequence_number_of_token =
      last_token_sequence_number_used;
  curr_cached_token_handle = nullptr;
  first_token_on_line_seen = true;
  if (!in_preprocessing_directive && kind != tok_end_of_source)
    any_tokens_fetched_from_curr_input_file = true;
  curr_token = kind;
  if (tokens_to_consequence != 0 && --tokens_to_consequence == 0) [[unlikely]]
    forgive_syntax_error_at(&pos_curr_token);
  if (curr_text_modif != nullptr && curr_text_modif->concatenations != nullptr) [[unlikely]]
    check_concatenations_at_token();
  if (kind == tok_string_literal && !fetch_pp_tokens) {
    if (do_string_literal_concatenation) return concat_adjacent_string_literals(false);
    if (ud_literal_is_string) return curr_token = tok_ud_literal;
  }
  return kind;
}

}  // namespace

a_concatenation_record *avail_concatenation_records;

void add_concatenation_record(a_concatenation_record **head, a_concatenation_record **tail,
                              const char *place, const char *end, a_symbol *symbol) {
  a_concatenation_record *record = avail_concatenation_records;
  if (record != nullptr)
    avail_concatenation_records = record->next;
  else
    record = static_cast<a_concatenation_record *>(
        alloc_in_region(permanent_region, sizeof(a_concatenation_record)));
  *record = {nullptr, place, end, symbol};
  if (*head == nullptr)
    *head = record;
  else
    (*tail)->next = record;
  *tail = record;
}

a_token_kind get_token() {
  if (!(any_initial_get_token_tests_needed && get_cached_token())) get_token_from_text();
  if (caching_tokens) [[unlikely]]
    record_fetched_token();
  return curr_token;
}

// A :: where : separates, as in "a ? b ::c" read by older programs: two tokens, one place apart.
a_token_kind get_token_with_colon_separation(bool *second_owed) {
  if (*second_owed) {
    *second_owed = false;
    ++pos_curr_token.column;
    end_pos_curr_token = pos_curr_token;
    ++curr_token_sequence_number;
    last_token_sequence_number_of_token = curr_token_sequence_number;
    return curr_token = tok_colon;
  }
  if (get_token() == tok_colon_colon) {
    *second_owed = true;
    curr_token = tok_colon;
    end_pos_curr_token = pos_curr_token;
  }
  return curr_token;
}

bool is_keyword_token(a_token_kind kind) {
  return token_classes[kind] == tcl_keyword;
}

bool curr_token_is_identifier_string(const char *text) {
  return curr_token == tok_identifier && std::strcmp(locator_for_curr_id.header->name, text) == 0;
}

bool check_context_sensitive_keyword(a_token_kind kind, const char *text) {
  if (!curr_token_is_identifier_string(text)) return false;
  curr_token = kind;
  return true;
}
