// Variable arguments: va_list is struct { void *__ap; }, and the arguments lie in memory one behind
// the other, each in a slot of its size rounded up to 4 bytes.
//
//     va_start(ap, p)   ap.__ap = (char *)__va_parmadr(p) + slot of p
//     va_arg(ap, T)     *(T *)(t = (char *)ap.__ap, ap.__ap = t + slot of T, t)
//
// Under the EABI __ap is rounded up to 8 first for a type of alignment 8.
#include "driver/switches.h"
#include "lower/lower_internal.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

a_type *byte_pointer() {
  return make_pointer_type(integer_type(ik_char));
}

std::int64_t slot_of(a_type *type) {
  if (is_passed_by_ref_type(type)) return 4;
  return static_cast<std::int64_t>((f_skip_typerefs(type)->size + 3) / 4 * 4);
}

// ap, or *ap where the list came as a pointer.
an_expr_node *list_object(an_expr_node *operand) {
  if (is_pointer_type(operand->type)) return add_indirection_to_node(operand);
  return operand;
}

// ap.__ap as a place.
an_expr_node *position_in(an_expr_node *list) {
  return field_lvalue_selection_expr(list, f_skip_typerefs(list->type)->fields);
}

an_expr_node *set_position(an_expr_node *list, an_expr_node *bytes) {
  an_expr_node *place = position_in(list);
  return assignment_node(place, add_cast(bytes, make_unqualified_type(place->type)));
}

an_expr_node *advanced(an_expr_node *bytes, std::int64_t distance) {
  return binary_node(eok_ptr_add, bytes->type, bytes, int_node(distance));
}

// (char *)(((unsigned)p + 7) & -8)
an_expr_node *rounded_up_to_8(an_expr_node *bytes) {
  a_type *word = integer_type(ik_unsigned_int);
  an_expr_node *seven = node_for_integer_constant(7, ik_unsigned_int);
  an_expr_node *mask = node_for_integer_constant(0xFFFFFFF8, ik_unsigned_int);
  an_expr_node *sum = binary_node(eok_add, word, add_cast(bytes, word), seven);
  return add_cast(binary_node(eok_and, word, sum, mask), byte_pointer());
}

void lower_va_start(an_expr_node *expr) {
  an_expr_node *parameter = moved_node(expr->operands->next);
  an_expr_node *list = list_object(moved_node(expr->operands));
  a_type *type = parameter->type;
  if (parameter->kind == enk_variable) {
    parameter->variable->address_taken = true;
    type = parameter->variable->type;
  }
  parameter->is_lvalue = true;
  an_expr_node *address =
      make_operator_node(eok_gnu_address_of_label, make_pointer_type(type), parameter);
  an_expr_node *behind = advanced(add_cast(address, byte_pointer()), slot_of(type));
  replace_node(expr, add_cast(set_position(list, behind), void_type()));
}

void lower_va_arg(an_expr_node *expr) {
  a_type *type = expr->type;
  bool is_lvalue = expr->is_lvalue;
  bool by_reference = is_passed_by_ref_type(type);
  an_expr_node *setup = nullptr;
  an_expr_node *list = list_object(moved_node(expr->operands));
  an_expr_node *again = reusable_lvalue(list, &setup);
  an_expr_node *start = add_cast(rvalue_expr_for_lvalue(position_in(list)), byte_pointer());
  if (is_eabi && !by_reference && f_alignment_of_type(type) >= 8) start = rounded_up_to_8(start);
  a_variable *temporary;
  an_expr_node *fetch = assign_expr_to_temp(start, &temporary);
  setup = setup == nullptr ? fetch : comma_node(setup, fetch);
  an_expr_node *behind = advanced(var_rvalue_expr(temporary), slot_of(type));
  setup = comma_node(setup, set_position(again, behind));
  a_type *pointer = make_pointer_type(type);
  an_expr_node *address;
  if (by_reference) {
    address = add_cast(var_rvalue_expr(temporary), make_pointer_type(pointer));
    address = rvalue_expr_for_lvalue(add_indirection_to_node(address));
  } else {
    address = add_cast(var_rvalue_expr(temporary), pointer);
  }
  an_expr_node *value = add_indirection_to_node(comma_node(setup, address));
  if (!is_lvalue) value = rvalue_expr_for_lvalue(value);
  replace_node(expr, value);
}

void lower_va_end(an_expr_node *expr) {
  an_expr_node *list = moved_node(expr->operands);
  if (has_side_effects(list) && !list->is_lvalue)
    replace_node(expr, add_cast(list, void_type()));
  else if (has_side_effects(list))
    replace_node(expr, add_cast(add_address_of_to_node(list), void_type()));
  else
    replace_node(expr, zero_cast_to_void());
}

void lower_va_copy(an_expr_node *expr) {
  an_expr_node *to = list_object(moved_node(expr->operands));
  an_expr_node *from = list_object(moved_node(expr->operands->next));
  if (from->is_lvalue) from = rvalue_expr_for_lvalue(from);
  replace_node(expr, add_cast(assignment_node(to, from), void_type()));
}

}  // namespace

void lower_va_operation(an_expr_node *expr) {
  switch (expr->op) {
    case eok_va_start:
      lower_va_start(expr);
      break;
    case eok_va_arg:
      lower_va_arg(expr);
      break;
    case eok_va_end:
      lower_va_end(expr);
      break;
    default:
      lower_va_copy(expr);
      break;
  }
}
