// Places: lvalues of forms that the generator cannot write, addresses and members of values.
#include "lower/lower_internal.h"
#include "semantics/types.h"

namespace {

// The address of what an lvalue names, whose node is the caller's to use up.
an_expr_node *address_of_place(an_expr_node *lvalue) {
  lvalue->next = nullptr;
  if (lvalue->kind == enk_operation) {
    an_expr_node *first = lvalue->operands;
    switch (lvalue->op) {
      case eok_comma:
        return comma_node(first, address_of_place(first->next));
      case eok_conditional:
      case eok_lvalue_conditional: {
        an_expr_node *second = first->next, *third = second->next;
        an_expr_node *then_address = address_of_place(second);
        return conditional_node(then_address->type, first, then_address, address_of_place(third));
      }
      case eok_parens:
      case eok_extension:
        return address_of_place(first);
      default:
        if ((lvalue->op >= eok_assign && lvalue->op <= eok_struct_assign) ||
            (lvalue->op >= eok_post_incr && lvalue->op <= eok_pre_decr)) {
          // *(a = b, &a)
          an_expr_node *setup = nullptr;
          an_expr_node *place = reusable_lvalue(first, &setup);
          lvalue->is_lvalue = false;
          return with_setup(setup, comma_node(lvalue, add_address_of_to_node(place)));
        }
        break;
    }
  }
  return add_address_of_to_node(lvalue);
}

bool has_place_form(const an_expr_node *lvalue) {
  if (lvalue->kind != enk_operation) return true;
  switch (lvalue->op) {
    case eok_comma:
    case eok_conditional:
    case eok_lvalue_conditional:
      return false;
    default:
      return !(lvalue->op >= eok_assign && lvalue->op <= eok_struct_assign) &&
             !(lvalue->op >= eok_post_incr && lvalue->op <= eok_pre_decr);
  }
}

// Is the value of a class read from memory, so that its members can be?
bool is_read_from_place(const an_expr_node *object) {
  if (object->kind != enk_operation) return true;
  switch (object->op) {
    case eok_indirect:
    case eok_reference_indirect:
    case eok_subscript:
    case eok_arrow_field:
    case eok_lvalue_cast:
    case eok_lvalue_class_cast:
    case eok_lvalue_adjust:
      return true;
    case eok_dot_field:
      return is_read_from_place(object->operands);
    default:
      return false;
  }
}

}  // namespace

void lower_place(an_expr_node *lvalue) {
  if (has_place_form(lvalue)) return;
  replace_node(lvalue, add_indirection_to_node(address_of_place(moved_node(lvalue))));
}

// f().x stays; f().x.y, f().array and the members of other values read a temporary:
// (t = f(), t.x.y).
void lower_rvalue_selection(an_expr_node *selection) {
  an_expr_node *object = selection->operands;
  bool is_nested = false;
  while (is_operation_node(object, eok_dot_field)) {
    object = object->operands;
    is_nested = true;
  }
  if (is_read_from_place(object)) return;
  if (is_operation_node(object, eok_comma)) {
    // (a, b).x is (a, b.x)
    an_expr_node *first = object->operands;
    replace_node(object, moved_node(first->next));
    an_expr_node *inner = moved_node(selection);
    lower_rvalue_selection(inner);
    replace_node(selection, comma_node(first, inner));
    return;
  }
  bool stays = is_operation_node(object, eok_call) || is_operation_node(object, eok_conditional);
  if (stays && !is_nested && !is_array_type(selection->type)) return;
  a_variable *temporary;
  an_expr_node *assignment = assign_expr_to_temp(moved_node(object), &temporary);
  an_expr_node *place = var_lvalue_expr(temporary);
  place->is_lvalue = object->is_lvalue;
  replace_node(object, place);
  replace_node(selection, comma_node(assignment, moved_node(selection)));
}

// &(a, b) is (a, &b); so is the pointer to an array's first element.
void lower_address_operation(an_expr_node *address) {
  an_expr_node *operand = address->operands;
  if (!is_operation_node(operand, eok_comma)) {
    if (address->op == eok_address_of || operand->is_lvalue) lower_place(operand);
    return;
  }
  an_expr_node *first = operand->operands;
  an_expr_node *inner = moved_node(address);
  inner->operands = first->next;
  lower_address_operation(inner);
  replace_node(address, comma_node(first, inner));
}
