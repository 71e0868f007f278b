// Makers of nodes, and the second use of an expression.
//
// `b += 1` on a _Bool reads and writes b: whoever needs an operand twice asks for a reusable form.
// Only names and constants are written twice; anything else goes into a temporary, since it may
// hold calls, and a tree that is copied at every level would grow exponentially.
#include "DIAG/error.h"
#include "lower/lower_internal.h"
#include "semantics/folding.h"
#include "semantics/types.h"

an_expr_node *moved_node(const an_expr_node *node) {
  an_expr_node *copy = alloc_expr_node(node->kind);
  *copy = *node;
  copy->next = nullptr;
  return copy;
}

void replace_node(an_expr_node *node, const an_expr_node *replacement) {
  an_expr_node *next = node->next;
  a_source_position position = node->position, end_position = node->end_position;
  bool not_used = node->result_not_used;
  *node = *replacement;
  node->next = next;
  if (position.seq != 0) node->position = position, node->end_position = end_position;
  node->result_not_used |= not_used;
}

an_expr_node *comma_node(an_expr_node *first, an_expr_node *second) {
  second->next = nullptr;
  return make_comma_node(first, second);
}

an_expr_node *binary_node(an_expr_operator_kind op, a_type *type, an_expr_node *left,
                          an_expr_node *right) {
  left->next = right;
  right->next = nullptr;
  return make_operator_node(op, type, left);
}

an_expr_node *conditional_node(a_type *type, an_expr_node *condition, an_expr_node *then_value,
                               an_expr_node *else_value) {
  condition->next = then_value;
  then_value->next = else_value;
  else_value->next = nullptr;
  return make_operator_node(eok_conditional, type, condition);
}

an_expr_node *assignment_node(an_expr_node *lvalue, an_expr_node *value) {
  return binary_node(eok_assign, make_unqualified_type(lvalue->type), lvalue, value);
}

an_expr_node *int_node(std::int64_t value) {
  return node_for_integer_constant(value, ik_int);
}

an_expr_node *not_node(an_expr_node *operand) {
  return make_operator_node(eok_not, integer_type(ik_int), operand);
}

an_expr_node *zero_node(a_type *type) {
  a_constant zero;
  make_zero_constant(&zero, make_unqualified_type(type));
  return alloc_node_for_constant(&zero);
}

an_expr_node *zero_cast_to_void() {
  return make_operator_node(eok_cast, void_type(), int_node(0));
}

bool is_zero_or_one(const an_expr_node *value) {
  if (is_bool_type(value->type)) return true;
  if (value->kind == enk_constant)
    return value->constant->kind == ck_integer && value->constant->integer_value <= 1;
  if (value->kind != enk_operation) return false;
  if (value->op == eok_cast && is_integral_or_enum_type(value->type))
    return is_zero_or_one(value->operands);
  return is_operator_returning_bool(value->op);
}

an_expr_node *boolean_value(an_expr_node *value) {
  value->next = nullptr;
  if (is_zero_or_one(value)) return value;
  return binary_node(eok_ne, integer_type(ik_int), value, zero_node(value->type));
}

bool has_side_effects(const an_expr_node *expr) {
  switch (expr->kind) {
    case enk_constant:
    case enk_field:
    case enk_routine:
      return false;
    case enk_variable:
      return !expr->is_lvalue && is_volatile_type(expr->variable->type);
    case enk_operation:
      break;
    default:
      return true;
  }
  switch (expr->op) {
    case eok_call:
    case eok_post_incr:
    case eok_post_decr:
    case eok_pre_incr:
    case eok_pre_decr:
      return true;
    case eok_assign:
    case eok_struct_assign:
      return true;
    case eok_indirect:
      if (!expr->is_lvalue && is_volatile_type(type_pointed_to(expr->operands->type))) return true;
      break;
    default:
      if (is_compound_assignment_operator(expr->op)) return true;
      break;
  }
  for (const an_expr_node *operand = expr->operands; operand != nullptr; operand = operand->next)
    if (has_side_effects(operand)) return true;
  return false;
}

namespace {

// A name of the function's own whose value nobody else changes.
bool is_stable_name(const an_expr_node *value) {
  if (value->kind != enk_variable) return false;
  const a_variable *variable = value->variable;
  return variable->storage_class >= sc_auto && !variable->address_taken &&
         !is_volatile_type(variable->type);
}

void add_setup(an_expr_node **setup, an_expr_node *expr) {
  *setup = *setup == nullptr ? expr : comma_node(*setup, expr);
}

}  // namespace

an_expr_node *with_setup(an_expr_node *setup, an_expr_node *expr) {
  return setup == nullptr ? expr : comma_node(setup, expr);
}

an_expr_node *reusable_value(an_expr_node *value, an_expr_node **setup) {
  if (value->kind == enk_constant || is_stable_name(value)) return moved_node(value);
  a_variable *temporary;
  add_setup(setup, assign_expr_to_temp(moved_node(value), &temporary));
  replace_node(value, var_rvalue_expr(temporary));
  return var_rvalue_expr(temporary);
}

an_expr_node *reusable_lvalue(an_expr_node *lvalue, an_expr_node **setup) {
  if (lvalue->kind == enk_variable) return moved_node(lvalue);
  if (is_operation_node(lvalue, eok_dot_field) || is_operation_node(lvalue, eok_arrow_field) ||
      is_operation_node(lvalue, eok_indirect)) {
    an_expr_node *base = lvalue->operands;
    an_expr_node *copy = moved_node(lvalue);
    copy->operands =
        lvalue->op == eok_dot_field ? reusable_lvalue(base, setup) : reusable_value(base, setup);
    if (base->next != nullptr) copy->operands->next = moved_node(base->next);
    return copy;
  }
  lower_place(lvalue);
  an_expr_node *pointer = add_address_of_to_node(moved_node(lvalue));
  an_expr_node *second = reusable_value(pointer, setup);
  replace_node(lvalue, add_indirection_to_node(pointer));
  return add_indirection_to_node(second);
}

// ---- Temporaries -------------------------------------------------------------------------------

an_expr_node *make_var_assignment_expr(a_variable *variable, an_expr_node *expr) {
  expr->next = nullptr;
  an_expr_node *assignment = assignment_node(var_lvalue_expr(variable), expr);
  assignment->position = expr->position;
  assignment->end_position = expr->end_position;
  return assignment;
}

an_expr_node *assign_expr_to_temp(an_expr_node *expr, a_variable **temporary) {
  *temporary = make_local_temporary(expr->type);
  return make_var_assignment_expr(*temporary, expr);
}
