// Folding of operations on constants: the operations by kind of operand stand in the other rooms;
// here is what they have in common, and how what they find becomes a message.
//
// The same fault is an error where the language wants a constant ("case 1/0:") and a warning where
// it does not ("x = 1/0;"): there the expression simply stays in the program.
#include "semantics/folding_internal.h"

// ---- Reporting ---------------------------------------------------------------------------------

namespace {

void fail_fold(a_fold &fold, a_constant *result) {
  if (fold.silent_error != nullptr)
    *fold.silent_error = fold.code;
  else
    pos_error(fold.code, fold.position);
  a_type *type = result->type;
  set_error_constant(result);
  result->type = type != nullptr ? type : error_type();
  fold.not_constant = false;
}

}  // namespace

void finish_fold(a_fold &fold, a_constant *result) {
  if (fold.code == ec_no_error) return;
  if (!fold.value_needed) {
    fold.not_constant = true;
    return;
  }
  if (!fold.constant_kind) {
    if (fold.severity >= es_error) {
      fold.not_constant = true;
      fold.severity = es_warning;
    }
  } else if (fold.severity >= es_error) {
    fail_fold(fold, result);
    return;
  }
  if (is_effective_sfinae_error(fold.code, fold.severity, fold.position)) {
    fail_fold(fold, result);
    return;
  }
  if (fold.silent_error == nullptr) pos_diagnostic(fold.severity, fold.code, fold.position);
}

// ---- What all operations begin and end with ----------------------------------------------------

namespace {

bool depends_on_template(const a_constant *c) {
  return c->kind == ck_template_param || is_template_dependent_type(c->type);
}

// False: the result is settled already.
bool begin_operation(a_fold &fold, const a_constant *const *operands, int count,
                     a_type *result_type, a_constant *result) {
  begin_result(result, result_type);
  for (int i = 0; i < count; ++i) {
    if (operands[i]->kind != ck_error) continue;
    set_error_constant(result);
    result->type = result_type;
    return false;
  }
  if (in_cplusplus()) {
    bool dependent = is_template_dependent_type(result_type);
    for (int i = 0; i < count; ++i)
      dependent = dependent || depends_on_template(operands[i]);
    if (dependent) {
      fold.not_constant = fold.not_computed = true;
      return false;
    }
  }
  for (int i = 0; i < count; ++i) {
    if (operands[i]->kind != ck_address_difference) continue;
    fold.not_constant = true;
    return false;
  }
  return true;
}

// Only integers make a constant expression in the language's sense.
bool is_proper_integer(const a_constant *c) {
  if (c->kind != ck_integer || c->not_a_constant_expression) return false;
  return !c->came_from_cast || is_nullptr_type(c->type);
}

void mark_constant_expression(const a_constant *const *operands, int count, a_constant *result) {
  for (int i = 0; i < count; ++i)
    if (!is_proper_integer(operands[i])) result->not_a_constant_expression = true;
}

a_fold make_fold(bool constant_kind, bool value_needed, an_error_code *error,
                 const a_source_position *position) {
  a_fold fold = {};
  fold.constant_kind = constant_kind;
  fold.value_needed = value_needed;
  fold.silent_error = error;
  fold.position = position;
  fold.severity = es_warning;
  return fold;
}

void end_operation(a_fold &fold, const a_constant *const *operands, int count, a_constant *result,
                   bool *not_constant, bool *not_computed) {
  if (!fold.not_constant) mark_constant_expression(operands, count, result);
  finish_fold(fold, result);
  *not_constant = fold.not_constant;
  *not_computed = fold.not_computed;
}

bool is_float_constant_kind(a_constant_kind kind) {
  return kind == ck_float || kind == ck_imaginary || kind == ck_complex;
}

}  // namespace

void copy_constant_with_type(const a_constant *from, a_constant *to, a_type *type) {
  if (from != to) copy_constant(from, to);
  to->next_in_list = nullptr;
  to->symbol = nullptr;
  to->type = type;
}

// ---- Unary operations --------------------------------------------------------------------------

namespace {

void fold_logical_not(a_fold &fold, const a_constant *operand, a_constant *result) {
  if (!constant_bool_value_known_at_compile_time(operand)) {
    fold.not_constant = true;
    return;
  }
  set_bool_result(result, is_false_constant(operand));
}

void fold_unary(a_fold &fold, an_expr_operator_kind op, const a_constant *operand,
                a_constant *result) {
  if (op == eok_not) {
    fold_logical_not(fold, operand, result);
  } else if (is_integral_address(operand)) {
    fold.not_constant = true;
  } else if (op == eok_unary_plus) {
    copy_constant_with_type(operand, result, result->type);
  } else if (operand->kind == ck_integer && !is_pointer_type(operand->type)) {
    fold_integer_unary(fold, op, operand, result);
  } else if (is_float_constant_kind(operand->kind)) {
    fold_float_unary(fold, op, operand, result);
  } else {
    fold.not_constant = true;
  }
}

}  // namespace

void unary_operation(an_expr_operator_kind op, const a_constant *operand, a_type *result_type,
                     a_constant *result, bool constant_kind, bool value_needed, bool *not_constant,
                     bool *not_computed, an_error_code *error, const a_source_position *position) {
  a_fold fold = make_fold(constant_kind, value_needed, error, position);
  const a_constant *operands[] = {operand};
  if (begin_operation(fold, operands, 1, result_type, result))
    fold_unary(fold, op, operand, result);
  end_operation(fold, operands, 1, result, not_constant, not_computed);
}

// ---- Binary operations -------------------------------------------------------------------------

namespace {

void fold_logical(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                  const a_constant *right, a_constant *result) {
  if (!constant_bool_value_known_at_compile_time(left)) {
    fold.not_constant = true;
    return;
  }
  bool left_value = !is_false_constant(left);
  bool decided = op == eok_land ? !left_value : left_value;
  if (decided) {
    set_bool_result(result, left_value);
  } else if (constant_bool_value_known_at_compile_time(right)) {
    set_bool_result(result, !is_false_constant(right));
  } else {
    fold.not_constant = true;
  }
}

// An address that was cast to an integer takes part in addition, and little else.
void fold_integral_addresses(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                             const a_constant *right, a_constant *result) {
  bool both = is_integral_address(left) && is_integral_address(right);
  const a_constant *other = is_integral_address(left) ? right : left;
  const a_constant *address = other == right ? left : right;
  bool with_integer = !both && other->kind == ck_integer;
  if (op == eok_add && with_integer) {
    fold_pointer_arithmetic(fold, false, address, other, 1, result);
  } else if (op == eok_subtract && with_integer && address == left) {
    fold_pointer_arithmetic(fold, true, left, right, 1, result);
  } else if (op == eok_subtract && both && (gcc_mode || (gpp_mode && gnu_version < 40000))) {
    do_pdiff(left, right, result, &fold.not_constant, &fold.code, &fold.severity);
  } else if (op == eok_and && gnu_mode && other->kind == ck_integer && other->integer_value == 0) {
    set_bool_result(result, false);
  } else {
    fold.not_constant = true;
  }
}

bool is_comparison(an_expr_operator_kind op) {
  return op >= eok_eq && op <= eok_le;
}

void fold_binary_by_kind(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                         const a_constant *right, a_type *underlying_left_type,
                         a_constant *result) {
  switch (binary_operation_type_kind(op, left->type, right->type)) {
    case tk_integer:
      if (left->kind == ck_integer && right->kind == ck_integer)
        fold_integer_binary(fold, op, left, right, underlying_left_type, result);
      else
        fold.not_constant = true;
      break;
    case tk_float:
    case tk_imaginary:
    case tk_complex:
      if (is_float_constant_kind(left->kind) && is_float_constant_kind(right->kind))
        fold_float_binary(fold, op, left, right, result);
      else
        fold.not_constant = true;
      break;
    case tk_pointer:
    case tk_nullptr:
      if (op == eok_ptr_add || op == eok_ptr_subtract)
        fold_ptr_add(fold, op == eok_ptr_subtract, left, right, result);
      else if (op == eok_ptr_diff)
        do_pdiff(left, right, result, &fold.not_constant, &fold.code, &fold.severity);
      else if (is_comparison(op))
        fold_pointer_comparison(fold, op, left, right, result);
      else
        fold.not_constant = true;
      break;
    case tk_ptr_to_member:
      fold_ptr_to_member_comparison(fold, op, left, right, result);
      break;
    default:
      fold.not_constant = true;
      break;
  }
}

void fold_binary(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                 const a_constant *right, a_type *underlying_left_type, a_constant *result) {
  if (op == eok_land || op == eok_lor)
    fold_logical(fold, op, left, right, result);
  else if (op == eok_comma)
    copy_constant_with_type(right, result, result->type);
  else if (is_integral_address(left) || is_integral_address(right))
    fold_integral_addresses(fold, op, left, right, result);
  else
    fold_binary_by_kind(fold, op, left, right, underlying_left_type, result);
}

}  // namespace

void binary_operation(an_expr_operator_kind op, const a_constant *left, const a_constant *right,
                      a_type *result_type, a_constant *result, bool constant_kind,
                      bool value_needed, bool *not_constant, bool *not_computed,
                      an_error_code *error, const a_source_position *position,
                      a_type *underlying_left_type) {
  a_fold fold = make_fold(constant_kind, value_needed, error, position);
  const a_constant *operands[] = {left, right};
  if (begin_operation(fold, operands, 2, result_type, result))
    fold_binary(fold, op, left, right, underlying_left_type, result);
  end_operation(fold, operands, 2, result, not_constant, not_computed);
}

// ---- Making constants --------------------------------------------------------------------------

void set_integer_constant_of_type(a_constant *c, std::int64_t value, a_type *type) {
  begin_result(c, type);
  c->integer_value = static_cast<a_host_large_integer>(value);
  const a_type *bottom = skip_typerefs(type);
  if (bottom->kind == tk_integer)
    truncate_integer_value(&c->integer_value, precision_of_integer_kind(bottom->int_kind),
                           int_kind_is_signed[bottom->int_kind] != 0);
}

void set_integer_constant(a_constant *c, std::int64_t value, an_integer_kind kind) {
  set_integer_constant_of_type(c, value, integer_type(kind));
}

void set_unsigned_integer_constant(a_constant *c, a_host_large_integer value,
                                   an_integer_kind kind) {
  set_integer_constant_of_type(c, static_cast<std::int64_t>(value), integer_type(kind));
}

void set_float_constant(a_constant *c, const simul_fval *value, a_type *type) {
  begin_result(c, type, is_imaginary_type(type) ? ck_imaginary : ck_float);
  c->float_value = *value;
}

void make_zero_constant(a_constant *c, a_type *type) {
  switch (skip_typerefs(type)->kind) {
    case tk_float:
    case tk_imaginary:
      set_float_constant(c, &pos_zero, type);
      break;
    case tk_complex:
      begin_result(c, type, ck_complex);
      c->complex_value = new_complex_value();
      c->complex_value->real_part = c->complex_value->imag_part = pos_zero;
      break;
    case tk_ptr_to_member:
      begin_result(c, type, ck_ptr_to_member);
      c->pm_is_null = true;
      c->pm_is_function = is_function_type(pm_member_type(type));
      break;
    default:
      begin_result(c, type);
      c->integer_value = 0;
      break;
  }
}

namespace {

a_constant *begin_address(a_constant *c, an_address_kind kind, a_type *type) {
  begin_result(c, type, ck_address);
  c->address_kind = kind;
  c->address_offset = 0;
  c->subobject_path = nullptr;
  return c;
}

}  // namespace

void set_variable_address_constant(a_constant *c, a_variable *variable, a_type *pointer_type) {
  begin_address(c, abk_variable, pointer_type)->address_variable = variable;
  c->is_weak_addr = variable->is_weak;
}

void set_routine_address_constant(a_constant *c, a_routine *routine, a_type *pointer_type) {
  begin_address(c, abk_routine, pointer_type)->address_routine = routine;
  c->is_weak_addr = routine->is_weak;
}

void set_constant_address_constant(a_constant *c, a_constant *target_constant,
                                   a_type *pointer_type) {
  begin_address(c, abk_constant, pointer_type)->address_constant = target_constant;
}

void set_label_address_constant(a_constant *c, a_label *label, a_type *pointer_type) {
  begin_address(c, abk_label, pointer_type)->address_label = label;
}

// ---- Predicates --------------------------------------------------------------------------------

bool is_zero_constant(const a_constant *c) {
  switch (c->kind) {
    case ck_integer:
      return c->integer_value == 0;
    case ck_float:
    case ck_imaginary:
    case ck_complex:
      return float_constant_is_zero(c);
    case ck_ptr_to_member:
      return c->pm_is_null;
    default:
      return false;
  }
}

bool is_false_constant(const a_constant *c) {
  return is_zero_constant(c);
}

bool is_null_pointer_value(const a_constant *c) {
  return c->kind == ck_integer && c->integer_value == 0 &&
         (is_pointer_type(c->type) || is_nullptr_type(c->type));
}

// C11 6.3.2.3: an integer constant expression of value 0, or that cast to void *.
bool is_null_pointer_constant(const a_constant *c) {
  if (c->kind != ck_integer || c->integer_value != 0) return false;
  if (is_nullptr_type(c->type)) return true;
  if (is_pointer_type(c->type))
    return !in_cplusplus() && is_void_star_type(c->type) && c->came_from_cast && c->explicit_cast &&
           !c->not_a_constant_expression;
  if (!is_integral_or_enum_type(c->type)) return false;
  if (is_enum_type(c->type) && in_cplusplus()) return false;
  if (!in_cplusplus()) return !c->not_a_constant_expression || !strict_ansi_mode;
  if (false_literal_is_not_null_pointer_constant && c->is_bool_literal) return false;
  return !c->not_a_constant_expression;
}

bool is_or_might_be_null_pointer_constant(const a_constant *c) {
  return c->kind == ck_template_param || is_null_pointer_constant(c);
}

bool variable_has_non_null_address(const a_variable *variable) {
  return variable->storage_class != sc_extern && !variable->is_weak;
}

bool routine_has_non_null_address(const a_routine *routine) {
  return routine->storage_class != sc_extern && !routine->is_weak;
}

namespace {

bool address_is_known_not_to_be_null(const a_constant *c) {
  if (c->is_weak_addr) return false;
  switch (c->address_kind) {
    case abk_routine:
      return routine_has_non_null_address(c->address_routine);
    case abk_variable:
      return variable_has_non_null_address(c->address_variable);
    default:
      return true;
  }
}

bool same_label_addresses(const a_constant *c) {
  const a_constant *from = c->difference_from, *subtract = c->difference_subtract;
  return from->kind == ck_address && subtract->kind == ck_address &&
         from->address_kind == abk_label && subtract->address_kind == abk_label &&
         from->address_label == subtract->address_label;
}

}  // namespace

bool constant_bool_value_known_at_compile_time(const a_constant *c) {
  switch (c->kind) {
    case ck_template_param:
    case ck_error:
      return false;
    case ck_address_difference:
      return same_label_addresses(c);
    case ck_address:
      return address_is_known_not_to_be_null(c);
    default:
      return true;
  }
}

bool constant_is_pointer_to_string_literal(const a_constant *c, a_constant **string) {
  *string = nullptr;
  if (c->kind != ck_address || c->address_kind != abk_constant || c->address_offset != 0)
    return false;
  if (c->address_constant->kind != ck_string || is_integral_address(c)) return false;
  *string = c->address_constant;
  return true;
}

bool expr_is_pointer_to_string_literal(const an_expr_node *expr, a_constant **string) {
  *string = nullptr;
  while (expr->kind == enk_operation && (expr->op == eok_cast || expr->op == eok_array_to_pointer))
    expr = expr->operands;
  if (expr->kind != enk_constant) return false;
  if (expr->constant->kind == ck_string) {
    *string = expr->constant;
    return true;
  }
  return constant_is_pointer_to_string_literal(expr->constant, string);
}

// ---- Phases ------------------------------------------------------------------------------------

void folding_one_time_init() {}

void folding_init() {}

void folding_trans_unit_init() {}
