// The pragmas that change what is reported from their place on.
//
//   diag-pragma:   diag_suppress list        (and diag_remark, _warning, _error, _once, _default)
//                  diag_suppress "(" list ")"
//   list:          element
//                  list "," element
//   element:       tag
//                  number
#include "DIAG/error.h"
#include "semantics/const_ints.h"
#include "source/lexical.h"

namespace {

bool at_end_of_pragma() {
  return curr_token == tok_end_of_source || curr_token == tok_newline;
}

// Obeys the element at the current token; false when there is none.
bool scan_diag_element(an_error_severity severity) {
  if (curr_token == tok_identifier) {
    const char *tag = il_string_for_curr_token();
    if (set_severity_for_error_tag(tag, severity, &pos_curr_token, false) != 0) {
      pos_st_warning(ec_invalid_error_tag, &pos_curr_token, tag);
    }
  } else if (curr_token == tok_int_constant) {
    bool large = false;
    const std::int64_t number = value_of_integer_constant(&const_for_curr_token, &large);
    if (large || number < 1 || number >= num_error_codes) {
      pos_warning(ec_invalid_error_number, &pos_curr_token);
    } else {
      set_severity_for_error_number(static_cast<int>(number), severity, &pos_curr_token, false);
    }
  } else {
    pos_warning(ec_exp_error_argument, &pos_curr_token);
    return false;
  }
  return true;
}

// Warns when a pragma that has no arguments is given some.
void check_no_arguments(a_pending_pragma *pragma) {
  begin_rescan_of_pragma_tokens(pragma);
  const bool has_some = !at_end_of_pragma();
  if (has_some) pos_warning(ec_bad_pragma_format, &pos_curr_token);
  wrapup_rescan_of_pragma_tokens(has_some);
}

}  // namespace

// The list is obeyed up to its first mistake.
static bool scan_diag_list(an_error_severity severity, bool in_parens) {
  for (;;) {
    if (!scan_diag_element(severity)) return false;
    get_token();
    if (at_end_of_pragma() || (in_parens && curr_token == tok_rparen)) return true;
    if (curr_token == tok_comma) {
      get_token();
    } else {
      pos_warning(ec_exp_comma, &pos_curr_token);
    }
  }
}

void diag_pragma(a_pending_pragma *pragma, an_error_severity severity) {
  begin_rescan_of_pragma_tokens(pragma);
  const bool in_parens = curr_token == tok_lparen;
  if (in_parens) get_token();
  bool good = scan_diag_list(severity, in_parens);
  if (good && in_parens) {
    if (curr_token == tok_rparen) {
      get_token();
      good = at_end_of_pragma();
      if (!good) pos_warning(ec_bad_pragma_format, &pos_curr_token);
    } else {
      pos_warning(ec_exp_rparen, &pos_curr_token);
      good = false;
    }
  }
  wrapup_rescan_of_pragma_tokens(!good);
}

void diag_push_pragma(a_pending_pragma *pragma) {
  check_no_arguments(pragma);
  push_diag_severities();
}

void diag_pop_pragma(a_pending_pragma *pragma) {
  check_no_arguments(pragma);
  if (!pop_diag_severities(&pos_curr_token)) {
    pos_warning(ec_pragma_diag_pop_unmatched, &pos_curr_token);
  }
}
