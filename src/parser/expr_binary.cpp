// Binary operators that compute, and the conditional operator.
#include "driver/switches.h"
#include "il/il.h"
#include "parser/expr_internal.h"
#include "semantics/folding.h"
#include "semantics/scope_stk.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

an_expr_operator_kind operator_of_token(a_token_kind token) {
  switch (token) {
    case tok_star:
      return eok_multiply;
    case tok_divide:
      return eok_divide;
    case tok_remainder:
      return eok_remainder;
    case tok_plus:
      return eok_add;
    case tok_minus:
      return eok_subtract;
    case tok_shift_left:
      return eok_shift_left;
    case tok_shift_right:
      return eok_shift_right;
    case tok_lt:
      return eok_lt;
    case tok_gt:
      return eok_gt;
    case tok_le:
      return eok_le;
    case tok_ge:
      return eok_ge;
    case tok_eq:
      return eok_eq;
    case tok_ne:
      return eok_ne;
    case tok_ampersand:
      return eok_and;
    case tok_excl_or:
      return eok_xor;
    case tok_or:
      return eok_or;
    default:
      check_invariant(false);
      return eok_add;
  }
}

// Other compilers take these with a warning, and so do their modes.
bool constraints_are_lenient() {
  return gcc_mode || in_pcc_mode();
}

an_error_severity constraint_severity() {
  return constraints_are_lenient() ? es_warning : es_error;
}

// The value of an operand as a condition: 0, 1, or -1 when it is not known.
int known_truth(const an_operand *operand) {
  if (operand->kind != ok_constant ||
      !constant_bool_value_known_at_compile_time(&operand->constant))
    return -1;
  return is_false_constant(&operand->constant) ? 0 : 1;
}

// Sets value_needed of the context for the operand in hand.
class a_dead_branch {
 public:
  explicit a_dead_branch(bool dead) : saved(expr_stack->value_needed) {
    if (dead) expr_stack->value_needed = false;
  }
  ~a_dead_branch() { expr_stack->value_needed = saved; }

 private:
  bool saved;
};

void fail(an_operand *left, an_operand *right, an_operand *result) {
  conv_to_error_operand(left);
  conv_to_error_operand(right);
  make_error_operand(result);
  result->start_pos = left->start_pos;
  result->end_pos = right->end_pos;
}

void incompatible(an_operand *left, an_operand *right, an_operand *result,
                  const a_source_position *position) {
  expr_pos_ty2_diagnostic(es_error, ec_incompatible_operands, position, left->type, right->type);
  fail(left, right, result);
}

void convert_to_common_type(an_operand *left, an_operand *right, a_type **type) {
  *type = usual_arithmetic_conversions_full(left->type, bit_field_of_operand(left), right->type,
                                            bit_field_of_operand(right));
  cast_operand(*type, left, true);
  cast_operand(*type, right, true);
}

bool is_null_constant_operand(const an_operand *operand) {
  return operand->kind == ok_constant && is_null_pointer_constant(&operand->constant);
}

// The type in which two pointers, or a pointer and an integer, meet: in comparisons and "?:". Null
// when they cannot.
a_type *common_pointer_type(an_operand *left, an_operand *right,
                            const a_source_position *position) {
  bool left_pointer = is_pointer_type(left->type), right_pointer = is_pointer_type(right->type);
  if (left_pointer && is_null_constant_operand(right) && !right_pointer)
    return make_unqualified_type(left->type);
  if (right_pointer && is_null_constant_operand(left) && !left_pointer)
    return make_unqualified_type(right->type);
  if (!left_pointer || !right_pointer) {
    const an_operand *other = left_pointer ? right : left;
    if (!is_integral_or_enum_type(other->type)) return nullptr;
    expr_pos_ty2_diagnostic(constraint_severity(), ec_incompatible_operands, position, left->type,
                            right->type);
    if (!constraints_are_lenient()) return error_type();
    return make_unqualified_type(left_pointer ? left->type : right->type);
  }
  a_type *left_target = type_pointed_to(left->type), *right_target = type_pointed_to(right->type);
  unsigned qualifiers = get_type_qualifiers(left_target) | get_type_qualifiers(right_target);
  a_type *plain_left = make_unqualified_type(left_target);
  a_type *plain_right = make_unqualified_type(right_target);
  a_type *target;
  if (is_void_type(plain_left) || is_null_constant_operand(left)) {
    target = is_null_constant_operand(left) && is_void_type(plain_left) ? plain_right : plain_left;
  } else if (is_void_type(plain_right) || is_null_constant_operand(right)) {
    target =
        is_null_constant_operand(right) && is_void_type(plain_right) ? plain_left : plain_right;
  } else if (types_are_compatible(plain_left, plain_right)) {
    target = composite_type(plain_left, plain_right);
  } else {
    expr_pos_ty2_diagnostic(
        interchangeable_types(plain_left, plain_right) ? es_warning : constraint_severity(),
        ec_incompatible_operands, position, left->type, right->type);
    if (!constraints_are_lenient() && !interchangeable_types(plain_left, plain_right))
      return error_type();
    target = void_type();
  }
  return make_pointer_type(make_qualified_type(target, qualifiers));
}

// ---- Comparisons -------------------------------------------------------------------------------

// Comparisons of unsigned values whose result does not depend on the value.
void check_unsigned_comparison(an_expr_operator_kind op, an_operand *left, an_operand *right,
                               const a_source_position *position) {
  if (!expr_stack->value_needed || left->kind == ok_constant || right->kind != ok_constant ||
      right->constant.kind != ck_integer || right->not_integral_constant)
    return;
  if (!is_integral_or_enum_type(left->type) || is_signed_integral_type(left->type) ||
      is_bool_type(left->type) || is_enum_type(left->type))
    return;
  if (is_zero_constant(&right->constant) && (op == eok_lt || op == eok_ge))
    expr_pos_warning(ec_unsigned_compare_with_zero, position);
}

void scan_comparison(an_expr_operator_kind op, an_operand *left, an_operand *right,
                     an_operand *result, const a_source_position *position) {
  a_type *type;
  if (is_arithmetic_or_enum_type(left->type) && is_arithmetic_or_enum_type(right->type)) {
    check_unsigned_comparison(op, left, right, position);
    convert_to_common_type(left, right, &type);
  } else if (is_pointer_type(left->type) || is_pointer_type(right->type)) {
    type = common_pointer_type(left, right, position);
    if (type == nullptr) {
      incompatible(left, right, result, position);
      return;
    }
    if (is_error_type(type)) {
      fail(left, right, result);
      return;
    }
    cast_operand(type, left, true);
    cast_operand(type, right, true);
  } else if (is_scalar_type(left->type) && is_scalar_type(right->type)) {
    incompatible(left, right, result, position);
    return;
  } else {
    check_scalar_operand(is_scalar_type(left->type) ? right : left);
    fail(left, right, result);
    return;
  }
  do_binary_operation(op, left, right, integer_type(ik_int), result, position);
}

// ---- Addition ----------------------------------------------------------------------------------

void scan_pointer_difference(an_operand *left, an_operand *right, an_operand *result,
                             const a_source_position *position) {
  a_type *left_target = make_unqualified_type(type_pointed_to(left->type));
  a_type *right_target = make_unqualified_type(type_pointed_to(right->type));
  if (!types_are_compatible(left_target, right_target)) {
    bool lenient = interchangeable_types(left_target, right_target) || is_void_type(left_target) ||
                   is_void_type(right_target);
    if (!lenient) {
      incompatible(left, right, result, position);
      return;
    }
    expr_pos_ty2_diagnostic(es_warning, ec_incompatible_operands, position, left->type,
                            right->type);
  }
  if (!check_object_pointer_operand(left) || !check_object_pointer_operand(right)) {
    fail(left, right, result);
    return;
  }
  do_binary_operation(eok_ptr_diff, left, right, ptrdiff_type(), result, position);
}

void scan_additive(an_expr_operator_kind op, an_operand *left, an_operand *right,
                   an_operand *result, const a_source_position *position) {
  bool left_pointer = is_pointer_type(left->type), right_pointer = is_pointer_type(right->type);
  if (!left_pointer && !right_pointer) {
    if (!check_arithmetic_or_enum_operand(left) || !check_arithmetic_or_enum_operand(right)) {
      fail(left, right, result);
      return;
    }
    a_type *type;
    convert_to_common_type(left, right, &type);
    do_binary_operation(op, left, right, type, result, position);
  } else if (left_pointer && right_pointer && op == eok_subtract) {
    scan_pointer_difference(left, right, result, position);
  } else if (op == eok_add && right_pointer) {
    add_to_pointer(right, left, true, result, position);
  } else if (!left_pointer) {
    check_arithmetic_or_enum_operand(right);
    fail(left, right, result);
  } else if (op == eok_add) {
    add_to_pointer(left, right, false, result, position);
  } else {
    if (!check_object_pointer_operand(left) || !check_integral_or_enum_operand(right)) {
      fail(left, right, result);
      return;
    }
    promote_operand(right);
    do_binary_operation(eok_ptr_subtract, left, right, make_unqualified_type(left->type), result,
                        position);
  }
}

// ---- Shifts, logic -----------------------------------------------------------------------------

void scan_shift(an_expr_operator_kind op, an_operand *left, an_operand *right, an_operand *result,
                const a_source_position *position) {
  if (!check_integral_or_enum_operand(left) || !check_integral_or_enum_operand(right)) {
    fail(left, right, result);
    return;
  }
  a_type *underlying = left->type;
  promote_operand(left);
  promote_operand(right);
  do_binary_operation(op, left, right, left->type, result, position, underlying);
}

void scan_arithmetic(an_expr_operator_kind op, bool integral, an_operand *left, an_operand *right,
                     an_operand *result, const a_source_position *position) {
  bool ok =
      integral ? check_integral_or_enum_operand(left) : check_arithmetic_or_enum_operand(left);
  bool right_ok =
      integral ? check_integral_or_enum_operand(right) : check_arithmetic_or_enum_operand(right);
  if (!ok || !right_ok) {
    fail(left, right, result);
    return;
  }
  bool divides = op == eok_divide || op == eok_remainder;
  if (divides && left->kind != ok_constant && right->kind == ok_constant &&
      is_integral_or_enum_type(left->type) && is_integral_or_enum_type(right->type) &&
      expr_stack->value_needed && is_zero_constant(&right->constant))
    expr_pos_warning(op == eok_divide ? ec_divide_by_zero : ec_mod_by_zero, &right->start_pos);
  a_type *type;
  convert_to_common_type(left, right, &type);
  do_binary_operation(op, left, right, type, result, position);
}

// && and ||: the right operand counts only where the left one does not decide.
void scan_logical(an_operand *left, an_operand *result, int level) {
  a_source_position position = pos_curr_token;
  bool is_and = curr_token == tok_and_and;
  get_token();
  do_operand_transformations(left);
  bool ok = check_scalar_operand(left);
  int truth = ok ? known_truth(left) : -1;
  bool decided = truth == (is_and ? 0 : 1);
  an_operand right;
  {
    a_dead_branch branch(decided);
    scan_expr_at_level(&right, level);
    do_operand_transformations(&right);
    ok &= check_scalar_operand(&right);
  }
  if (!ok) {
    fail(left, &right, result);
    return;
  }
  if (decided) {
    a_source_position start = left->start_pos;
    bool not_integral = left->not_integral_constant;
    make_integer_constant_operand(truth, ik_int, result);
    result->start_pos = start;
    result->end_pos = right.end_pos;
    result->not_integral_constant = not_integral;
    return;
  }
  do_binary_operation(is_and ? eok_land : eok_lor, left, &right, integer_type(ik_int), result,
                      &position);
}

}  // namespace

void add_to_pointer(an_operand *pointer, an_operand *index, bool index_is_first, an_operand *result,
                    const a_source_position *position) {
  a_source_position start = index_is_first ? index->start_pos : pointer->start_pos;
  a_source_position end = index_is_first ? pointer->end_pos : index->end_pos;
  if (!check_object_pointer_operand(pointer) || !check_integral_or_enum_operand(index)) {
    fail(pointer, index, result);
  } else {
    promote_operand(index);
    do_binary_operation(eok_ptr_add, pointer, index, make_unqualified_type(pointer->type), result,
                        position);
  }
  result->start_pos = start;
  result->end_pos = end;
}

void scan_binary_operator(an_operand *left, an_operand *result, int level) {
  if (curr_token == tok_and_and || curr_token == tok_or_or) {
    scan_logical(left, result, level);
    return;
  }
  a_source_position position = pos_curr_token;
  an_expr_operator_kind op = operator_of_token(curr_token);
  get_token();
  an_operand right;
  scan_expr_at_level(&right, level);
  do_operand_transformations(left);
  do_operand_transformations(&right);
  if (left->kind == ok_error || right.kind == ok_error) {
    fail(left, &right, result);
    return;
  }
  switch (level) {
    case level_relational:
    case level_equality:
      scan_comparison(op, left, &right, result, &position);
      break;
    case level_additive:
      scan_additive(op, left, &right, result, &position);
      break;
    case level_shift:
      scan_shift(op, left, &right, result, &position);
      break;
    default:
      scan_arithmetic(op, op != eok_multiply && op != eok_divide, left, &right, result, &position);
      break;
  }
}

// ---- The conditional operator ------------------------------------------------------------------

void copy_to_temporary(an_operand *operand, an_expr_node **setup) {
  an_operand saved = *operand;
  a_type *type = make_unqualified_type(operand->type);
  a_variable *variable = alloc_variable(sc_auto);
  variable->type = type;
  variable->decl_position = operand->start_pos;
  variable->is_temporary = true;
  variable->is_local_to_routine = true;
  variable->defined = true;
  add_to_variables_list(variable, depth_innermost_function_scope);
  an_expr_node *place = var_lvalue_expr(variable);
  place->next = make_node_from_operand(operand);
  *setup = make_operator_node(eok_assign, type, place);
  make_expression_operand(var_rvalue_expr(variable), operand);
  restore_operand_details(operand, &saved);
  operand->not_constant = operand->not_integral_constant = true;
}

namespace {

// The type of the result and the conversions to it; null after a message.
a_type *convert_branches(an_operand *middle, an_operand *third, const a_source_position *position) {
  if (is_arithmetic_or_enum_type(middle->type) && is_arithmetic_or_enum_type(third->type)) {
    a_type *type;
    convert_to_common_type(middle, third, &type);
    return type;
  }
  bool middle_void = is_void_type(middle->type), third_void = is_void_type(third->type);
  if (middle_void && third_void) return void_type();
  if ((middle_void || third_void) && gnu_mode) {
    an_operand *other = middle_void ? third : middle;
    c_style_cast(other, void_type(), &other->start_pos);
    return void_type();
  }
  if (is_class_struct_union_type(middle->type) &&
      types_are_compatible(make_unqualified_type(middle->type), make_unqualified_type(third->type)))
    return make_unqualified_type(middle->type);
  if (is_pointer_type(middle->type) || is_pointer_type(third->type)) {
    a_type *type = common_pointer_type(middle, third, position);
    if (type != nullptr) {
      if (is_error_type(type)) return nullptr;
      cast_operand(type, middle, true);
      cast_operand(type, third, true);
      return type;
    }
  }
  expr_pos_ty2_diagnostic(es_error, ec_incompatible_operands, position, middle->type, third->type);
  return nullptr;
}

}  // namespace

// condition ? middle : third
// C11 6.5.15
void scan_conditional(an_operand *left, an_operand *result) {
  a_source_position position = pos_curr_token, start = left->start_pos;
  get_token();
  do_operand_transformations(left);
  bool ok = check_scalar_operand(left);
  int truth = ok ? known_truth(left) : -1;
  an_operand middle, third;
  an_expr_node *setup = nullptr;
  bool is_gnu_form = gnu_mode && curr_token == tok_colon;
  if (is_gnu_form) {
    if (ok && truth < 0 && innermost_function_scope != nullptr) copy_to_temporary(left, &setup);
    middle = *left;
    if (left->kind == ok_expression && setup != nullptr) {
      middle.expr = copy_node(left->expr);
      middle.ref_entry = nullptr;
    }
  } else {
    a_dead_branch branch(truth == 0);
    add_stop_token(tok_colon);
    scan_expr_at_level(&middle, level_any);
    do_operand_transformations(&middle);
    remove_stop_token(tok_colon);
  }
  bool has_colon = required_token(tok_colon, ec_exp_colon);
  if (!has_colon) {
    make_error_operand(result);
    result->start_pos = start;
    return;
  }
  {
    a_dead_branch branch(truth == 1);
    scan_expr_at_level(&third, level_conditional);
    do_operand_transformations(&third);
  }
  if (!ok || middle.kind == ok_error || third.kind == ok_error) {
    fail(&middle, &third, result);
    result->start_pos = start;
    return;
  }
  a_type *type = convert_branches(&middle, &third, &position);
  if (type == nullptr) {
    fail(&middle, &third, result);
  } else if (truth >= 0) {
    bool not_integral = left->not_integral_constant;
    *result = truth == 1 ? middle : third;
    result->not_integral_constant |= not_integral;
    result->is_plain_id = result->string_literal = false;
    result->ref_entry = nullptr;
  } else {
    an_expr_node *condition = make_node_from_operand(left);
    condition->next = make_node_from_operand(&middle);
    condition->next->next = make_node_from_operand(&third);
    an_expr_node *node = make_operator_node(eok_conditional, type, condition);
    node->is_gnu_conditional = is_gnu_form;
    node->position = start;
    node->end_position = third.end_pos;
    if (setup != nullptr) node = make_comma_node(setup, node);
    make_expression_operand(node, result);
    result->not_constant = result->not_integral_constant = true;
  }
  result->start_pos = start;
  result->end_pos = third.end_pos;
}
