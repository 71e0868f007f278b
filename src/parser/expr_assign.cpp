// Assignment, compound assignment, and the comma operator.
#include "driver/switches.h"
#include "il/il.h"
#include "parser/expr_internal.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

an_expr_operator_kind assignment_operator_of_token(a_token_kind token) {
  switch (token) {
    case tok_times_assign:
      return eok_multiply_assign;
    case tok_divide_assign:
      return eok_divide_assign;
    case tok_remainder_assign:
      return eok_remainder_assign;
    case tok_add_assign:
      return eok_add_assign;
    case tok_subtract_assign:
      return eok_subtract_assign;
    case tok_shift_left_assign:
      return eok_shift_left_assign;
    case tok_shift_right_assign:
      return eok_shift_right_assign;
    case tok_and_assign:
      return eok_and_assign;
    case tok_excl_or_assign:
      return eok_xor_assign;
    case tok_or_assign:
      return eok_or_assign;
    default:
      return eok_assign;
  }
}

void make_assignment(an_expr_operator_kind op, an_operand *left, an_operand *right,
                     an_operand *result) {
  a_source_position start = left->start_pos, end = right->end_pos;
  a_type *type = make_unqualified_type(left->type);
  an_expr_node *place = make_node_from_operand(left);
  place->next = make_node_from_operand(right);
  an_expr_node *node = make_operator_node(op, type, place);
  node->position = start;
  node->end_position = end;
  make_expression_operand(node, result);
  result->not_constant = result->not_integral_constant = true;
  result->start_pos = start;
  result->end_pos = end;
}

// Checks the right operand of a compound assignment and gives it the type of the computation.
// False after a message.
bool prep_compound_operand(an_expr_operator_kind *op, an_operand *left, an_operand *right) {
  bool additive = *op == eok_add_assign || *op == eok_subtract_assign;
  if (additive && is_pointer_type(left->type)) {
    if (!check_object_pointer_operand(left) || !check_integral_or_enum_operand(right)) return false;
    promote_operand(right);
    *op = *op == eok_add_assign ? eok_ptr_add_assign : eok_ptr_subtract_assign;
    return true;
  }
  bool integral = !additive && *op != eok_multiply_assign && *op != eok_divide_assign;
  bool ok =
      integral ? check_integral_or_enum_operand(left) : check_arithmetic_or_enum_operand(left);
  ok &= integral ? check_integral_or_enum_operand(right) : check_arithmetic_or_enum_operand(right);
  if (!ok) return false;
  if (*op == eok_shift_left_assign || *op == eok_shift_right_assign) {
    promote_operand(right);
    return true;
  }
  if ((*op == eok_divide_assign || *op == eok_remainder_assign) && right->kind == ok_constant &&
      is_integral_or_enum_type(left->type) && is_integral_or_enum_type(right->type) &&
      expr_stack->value_needed && is_zero_constant(&right->constant))
    expr_pos_warning(*op == eok_divide_assign ? ec_divide_by_zero : ec_mod_by_zero,
                     &right->start_pos);
  a_type *type = usual_arithmetic_conversions_full(left->type, bit_field_of_operand(left),
                                                   right->type, bit_field_of_operand(right));
  cast_operand(type, right, true);
  return right->kind != ok_error;
}

}  // namespace

// C11 6.5.16
void scan_assignment(an_operand *left, an_operand *result) {
  an_expr_operator_kind op = assignment_operator_of_token(curr_token);
  a_source_position position = pos_curr_token, start = left->start_pos;
  get_token();
  if (in_constant_expression() && expr_stack->value_needed && left->kind != ok_error) {
    expr_pos_error(ec_bad_constant_operator, &position);
    conv_to_error_operand(left);
  }
  do_operand_transformations(left, dot_keep_lvalue | dot_keep_array | dot_keep_function);
  bool ok = check_modifiable_lvalue_operand(left);
  if (ok) modifying_lvalue(left, op != eok_assign);
  an_operand right;
  scan_expr_at_level(&right, level_assignment);
  if (op == eok_assign) {
    if (ok)
      prep_assignment_operand(&right, left->type, ec_incompatible_assignment_operands);
    else if (!is_incomplete_type(right.type))
      do_operand_transformations(&right);
    ok &= right.kind != ok_error;
  } else {
    do_operand_transformations(&right);
    ok = ok && right.kind != ok_error && prep_compound_operand(&op, left, &right);
  }
  if (ok) {
    make_assignment(op, left, &right, result);
  } else {
    a_source_position end = right.end_pos;
    make_error_operand(result);
    result->start_pos = start;
    result->end_pos = end;
  }
}

// C11 6.5.17
void scan_comma(an_operand *left, an_operand *result) {
  a_source_position position = pos_curr_token, start = left->start_pos;
  get_token();
  if (in_constant_expression() && (expr_stack->value_needed || std_version < 199901) &&
      left->kind != ok_error) {
    expr_pos_error(ec_bad_constant_operator, &position);
    conv_to_error_operand(left);
  }
  discard_operand_value(left);
  an_operand right;
  scan_expr_at_level(&right, level_comma);
  do_operand_transformations(&right);
  if (left->kind == ok_error || right.kind == ok_error) {
    make_error_operand(result);
  } else {
    an_expr_node *first = make_node_from_operand(left);
    first->result_not_used = true;
    first->next = make_node_from_operand(&right);
    an_expr_node *node = make_operator_node(eok_comma, right.type, first);
    make_expression_operand(node, result);
    result->not_constant = result->not_integral_constant = true;
  }
  result->start_pos = start;
  result->end_pos = right.end_pos;
}
