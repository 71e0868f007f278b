// The pragmas of loops and statements: iteration counts, unrolling, requests for inlining.
#include <climits>
#include <cstring>

#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "semantics/symbol_tbl.h"
#include "target/qx_pragma_internal.h"

namespace {

bool is_loop(const a_statement *statement) {
  return statement != nullptr && (statement->kind == stmk_while || statement->kind == stmk_for ||
                                  statement->kind == stmk_do);
}

const char *form_word(bool is_attribute) {
  return is_attribute ? "attribute" : "pragma";
}

bool check_loop(const a_pending_pragma *pending, const a_statement *statement, bool is_attribute,
                const char *name) {
  if (is_loop(statement)) return true;
  pos_st2_error(ec_pragma_must_precede_loop, &pending->name_position, name,
                form_word(is_attribute));
  return false;
}

// constant { , constant }   an empty place is 0. The count; -1 after a message.
int scan_values(const a_pending_pragma *pending, std::uint64_t *values, int most,
                an_error_code too_many) {
  int count = 0;
  while (curr_token != tok_rparen && curr_token != tok_semicolon &&
         curr_token != tok_end_of_source) {
    if (count == most) {
      pos_st_error(too_many, &pending->name_position, name_of_pragma(pending));
      return -1;
    }
    values[count] = 0;
    if (curr_token != tok_comma && !scan_icon(&values[count])) return -1;
    ++count;
    if (!loop_token(tok_comma)) break;
  }
  return count;
}

a_pragma_result result_of(bool good) {
  return good ? prs_good : prs_failed;
}

void add_numbers(a_pragma *pragma, const std::uint64_t *values, int count) {
  for (int i = 0; i < count; ++i)
    add_pragma_text(pragma, text_of_number(values[i]));
}

}  // namespace

bool pragma_unroll_backend(a_pending_pragma *pending, a_statement *statement, std::uint64_t value,
                           bool is_attribute, const char *name) {
  if (!use_loop_pragmas) return true;
  if (!check_loop(pending, statement, is_attribute, name)) return false;
  if (value == 0) {
    pos_st_error(ec_parm_gt_zero, &pending->name_position, name);
    return false;
  }
  if (value > INT_MAX) {
    pos_st_error(ec_integer_outofrange, &pending->name_position, "");
    return false;
  }
  add_numbers(create_il_entry_for_pragma(pending, nullptr, statement), &value, 1);
  return true;
}

bool pragma_must_iterate_backend(a_pending_pragma *pending, a_statement *statement,
                                 const std::uint64_t values[3], int count, bool is_attribute,
                                 const char *name) {
  if (!use_iterate_pragmas) return true;
  if (!check_loop(pending, statement, is_attribute, name)) return false;
  if (count < 1 || count > 3) {
    pos_st_error(ec_pragma_requires_1or2or3_parms, &pending->name_position, name);
    return false;
  }
  if (count > 1 && values[1] != 0 && values[0] > values[1]) {
    pos_st2_error(ec_pragma_arg_min_no_gt_max, &pending->name_position, name,
                  form_word(is_attribute));
    return false;
  }
  add_numbers(create_il_entry_for_pragma(pending, nullptr, statement), values, 3);
  return true;
}

bool pragma_prob_iterate_backend(a_pending_pragma *pending, a_statement *statement,
                                 const std::uint64_t values[2], int count, bool is_attribute,
                                 const char *name) {
  if (!use_iterate_pragmas) return true;
  if (!check_loop(pending, statement, is_attribute, name)) return false;
  if (count < 1 || count > 2) {
    pos_st_error(ec_pragma_requires_1or2_parms, &pending->name_position, name);
    return false;
  }
  if (count > 1 && values[1] != 0 && values[0] > values[1]) {
    pos_st2_error(ec_pragma_arg_min_no_gt_max, &pending->name_position, name,
                  form_word(is_attribute));
    return false;
  }
  add_numbers(create_il_entry_for_pragma(pending, nullptr, statement), values, 2);
  return true;
}

// ---- Handlers ----------------------------------------------------------------------------------

a_pragma_result qx_unroll(a_pending_pragma *pending, a_symbol *, a_statement *statement) {
  std::uint64_t value;
  int count = scan_values(pending, &value, 1, ec_pragma_requires_1_parm);
  if (count == 0)
    pos_st_error(ec_pragma_requires_1_parm, &pending->name_position, name_of_pragma(pending));
  if (count != 1 || !finish_pragma_tokens()) return prs_failed;
  return result_of(
      pragma_unroll_backend(pending, statement, value, false, name_of_pragma(pending)));
}

a_pragma_result qx_must_iterate(a_pending_pragma *pending, a_symbol *, a_statement *statement) {
  std::uint64_t values[3] = {};
  int count = scan_values(pending, values, 3, ec_pragma_requires_1or2or3_parms);
  if (count < 0 || !finish_pragma_tokens()) return prs_failed;
  return result_of(pragma_must_iterate_backend(pending, statement, values, count, false,
                                               name_of_pragma(pending)));
}

a_pragma_result qx_prob_iterate(a_pending_pragma *pending, a_symbol *, a_statement *statement) {
  std::uint64_t values[2] = {};
  int count = scan_values(pending, values, 2, ec_pragma_requires_1or2_parms);
  if (count < 0 || !finish_pragma_tokens()) return prs_failed;
  return result_of(pragma_prob_iterate_backend(pending, statement, values, count, false,
                                               name_of_pragma(pending)));
}

a_pragma_result qx_loop_mark(a_pending_pragma *pending, a_symbol *, a_statement *statement) {
  if (more_pragma_arguments()) {
    pos_st_error(ec_pragma_requires_1_parm, &pending->name_position, name_of_pragma(pending));
    return prs_failed;
  }
  if (!finish_pragma_tokens() || !check_loop(pending, statement, false, name_of_pragma(pending)))
    return prs_failed;
  create_il_entry_for_pragma(pending, nullptr, statement);
  return prs_good;
}

// FORCEINLINE [recursive]   the calls of the next statement
a_pragma_result qx_inline_request(a_pending_pragma *pending, a_symbol *, a_statement *statement) {
  bool recursive = pending->description->kind == prk_FORCEINLINE_RECURSIVE;
  if (curr_token == tok_identifier) {
    if (std::strcmp(locator_for_curr_id.header->name, "recursive") != 0) return prs_bad_format;
    recursive = true;
    get_token();
  }
  if (!finish_pragma_tokens()) return prs_failed;
  a_pragma *pragma = create_il_entry_for_pragma(pending, nullptr, statement);
  if (!recursive) return prs_good;
  add_pragma_text(pragma, "");
  add_pragma_text(pragma, "");
  add_pragma_text(pragma, "recursive");
  return prs_good;
}
