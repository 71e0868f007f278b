// Getting on after a syntax error: sets of tokens at which the enclosing constructs can go on, and
// the skipping to such a token, over bracketed groups as a whole.
#include <cstring>

#include "source/lexical_internal.h"

a_stop_token_stack_entry *curr_stop_token_stack_entry;

namespace {

a_stop_token_stack_entry *avail_stop_token_stack_entries;

// A skip that goes over this many lines says where it ended.
constexpr std::uint32_t lines_of_a_long_flush = 3;
// Limits, in lines, of the search for a closing bracket.
constexpr std::uint32_t line_limit_for_brace = 20;
constexpr std::uint32_t line_limit_for_others = 2;

std::uint32_t lines_since(const a_source_position &start) {
  return pos_curr_token.seq > start.seq ? pos_curr_token.seq - start.seq : 0;
}

bool names_class_template(const a_symbol_header *header) {
  for (a_symbol *symbol = header->active_symbols; symbol != nullptr; symbol = symbol->next_active)
    if (symbol->kind == syk_class_template) return true;
  return false;
}

// Does the current < open a template argument list, by the token before it?
bool less_opens_list(a_token_kind before, const a_symbol_header *header_before) {
  if (curr_token != tok_lt || !in_cplusplus() || fetch_pp_tokens) return false;
  if (before == tok_template) return true;
  return before == tok_identifier && header_before != nullptr &&
         names_class_template(header_before);
}

}  // namespace

void push_stop_token_stack() {
  a_stop_token_stack_entry *entry = avail_stop_token_stack_entries;
  if (entry != nullptr)
    avail_stop_token_stack_entries = entry->next;
  else
    entry = static_cast<a_stop_token_stack_entry *>(
        alloc_in_region(permanent_region, sizeof(a_stop_token_stack_entry)));
  std::memset(entry->stop_tokens, 0, sizeof entry->stop_tokens);
  entry->next = curr_stop_token_stack_entry;
  curr_stop_token_stack_entry = entry;
}

void pop_stop_token_stack() {
  a_stop_token_stack_entry *entry = curr_stop_token_stack_entry;
  curr_stop_token_stack_entry = entry->next;
  entry->next = avail_stop_token_stack_entries;
  avail_stop_token_stack_entries = entry;
}

void flush_tokens_with_stop_tokens_and_warning_flag(const a_stop_token_count stops[tok_last],
                                                    bool no_warning) {
  a_source_position start = pos_curr_token;
  a_token_kind before = tok_error;
  const a_symbol_header *header_before = nullptr;
  while (stops[curr_token] == 0 && curr_token != tok_end_of_source && curr_token != tok_newline) {
    bool is_group =
        token_classes[curr_token] == tcl_opener || less_opens_list(before, header_before);
    if (is_group) {
      flush_until_matching_token_full(!no_warning);
      if (curr_token == tok_end_of_source || curr_token == tok_newline) break;
    }
    before = curr_token;
    header_before = before == tok_identifier ? locator_for_curr_id.header : nullptr;
    if (is_group && token_classes[curr_token] != tcl_closer && curr_token != tok_gt)
      continue;  // the group was given up: this token is looked at
    get_token();
  }
  error_position = pos_curr_token;
  if (!no_warning && lines_since(start) >= lines_of_a_long_flush)
    pos_warning(ec_end_of_flush, &error_position);
}

void flush_tokens() {
  flush_tokens_with_stop_tokens_and_warning_flag(curr_stop_token_stack_entry->stop_tokens, false);
}

void flush_tokens_without_warning() {
  flush_tokens_with_stop_tokens_and_warning_flag(curr_stop_token_stack_entry->stop_tokens, true);
}

void flush_until_matching_token() {
  flush_until_matching_token_full(true);
}

void flush_until_matching_token_full(bool limited) {
  a_source_position start = pos_curr_token;
  a_token_kind opener = curr_token;
  std::uint32_t limit = opener == tok_lbrace ? line_limit_for_brace : line_limit_for_others;
  int brackets = 0, parens = 0, braces = 0;
  for (get_token();; get_token()) {
    if (curr_token == tok_end_of_source ||
        (curr_token == tok_newline && in_preprocessing_directive))
      return;
    if (limited && lines_since(start) > limit) return;
    bool at_outer_level = brackets == 0 && parens == 0 && braces == 0;
    if (opener == tok_lt && at_outer_level && curr_token == tok_shift_right &&
        right_shift_can_be_angle_brackets)
      split_right_shift_token();
    switch (curr_token) {
      case tok_lbracket:
        ++brackets;
        break;
      case tok_lparen:
        ++parens;
        break;
      case tok_lbrace:
        ++braces;
        break;
      case tok_rbracket:
        if (at_outer_level && opener == tok_lbracket) return;
        if (brackets > 0) --brackets;
        break;
      case tok_rparen:
        if (at_outer_level && opener == tok_lparen) return;
        if (parens > 0) --parens;
        break;
      case tok_rbrace:
        if (at_outer_level && opener == tok_lbrace) return;
        if (braces > 0) --braces;
        break;
      case tok_gt:
        if (at_outer_level && opener == tok_lt) return;
        break;
      default:
        break;
    }
  }
}

void flush_to_closing_paren() {
  a_stop_token_count stops[tok_last] = {};
  stops[tok_end_of_source] = stops[tok_newline] = stops[tok_rparen] = stops[tok_rbrace] = 1;
  flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
}

void flush_to_end_of_arg_list() {
  a_stop_token_count *commas = &curr_stop_token_stack_entry->stop_tokens[tok_comma];
  a_stop_token_count saved = *commas;
  *commas = 0;
  flush_tokens();
  *commas = saved;
}

// ---- Required tokens ---------------------------------------------------------------------------

// Only blanks stand in front of the current token, which is on the line being read.
static bool curr_token_is_first_on_its_line() {
  if (pos_curr_token.seq != curr_seq_number) return false;
  for (std::uint32_t i = 0; i + 1 < pos_curr_token.column; ++i)
    if (curr_source_line[i] != ' ' && curr_source_line[i] != '\t') return false;
  return true;
}

// A ; that is missing in front of a line was forgotten at the end of the line before: what stands
// here is whole, and nothing is skipped.
bool required_token_no_advance(a_token_kind kind, an_error_code code) {
  if (curr_token == kind) return true;
  error_position = pos_curr_token;
  if (kind == tok_semicolon && curr_token_is_first_on_its_line()) {
    pos_syntax_error(code, &error_position);
    return false;
  }
  add_stop_token(kind);
  syntax_error(code);
  remove_stop_token(kind);
  return curr_token == kind;
}

bool required_token(a_token_kind kind, an_error_code code) {
  if (!required_token_no_advance(kind, code)) return false;
  get_token();
  return true;
}

bool loop_token(a_token_kind kind) {
  if (curr_token == kind) {
    get_token();
    return true;
  }
  error_position = pos_curr_token;
  return false;
}
