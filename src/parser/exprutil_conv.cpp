// Conversions of operands, and the operations that fold or build.
#include "driver/switches.h"
#include "il/il.h"
#include "parser/exprutil.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

bool value_is_needed() {
  return expr_stack == nullptr || expr_stack->value_needed;
}

// Converts a constant operand in place; false: it becomes a tree.
bool cast_constant_operand(a_type *type, an_operand *operand, bool is_implicit) {
  a_constant constant = operand->constant;
  a_type_change_options options = {};
  options.is_explicit = !is_implicit;
  options.check = is_implicit;
  bool not_constant = false, not_computed = false;
  type_change_constant_full(&constant, type, &options, in_constant_expression(), value_is_needed(),
                            &not_constant, &not_computed, nullptr, &operand->start_pos);
  if (not_constant) return false;
  if (!is_implicit) {
    constant.explicit_cast = true;
  }
  if (constant.kind == ck_error) {
    conv_to_error_operand(operand);
    return true;
  }
  an_operand saved = *operand;
  constant.type = type;
  make_constant_operand(&constant, operand);
  restore_operand_details(operand, &saved);
  return true;
}

}  // namespace

void cast_operand(a_type *type, an_operand *operand, bool is_implicit) {
  if (operand->kind == ok_error) return;
  type = make_unqualified_type(type);
  if (identical_types(type, operand->type)) {
    if (!is_implicit && operand->kind == ok_constant) operand->type = operand->constant.type = type;
    // The value of a bit-field that was cast promotes like any other of its type.
    if (is_implicit || bit_field_of_operand(operand) == nullptr) return;
  }
  bool scalar = is_scalar_type(type) && is_scalar_type(operand->type);
  if (operand->kind == ok_constant && scalar && cast_constant_operand(type, operand, is_implicit))
    return;
  an_operand saved = *operand;
  an_expr_node *node = make_operator_node(eok_cast, type, make_node_from_operand(operand));
  node->is_implicit = is_implicit;
  node->is_explicit_cast = !is_implicit;
  make_expression_operand(node, operand);
  restore_operand_details(operand, &saved);
  operand->not_constant = true;
}

void prep_assignment_operand(an_operand *operand, a_type *type, an_error_code code) {
  do_operand_transformations(operand);
  if (operand->kind == ok_error) return;
  a_type *target = make_unqualified_type(type);
  if (is_error_type(target)) {
    conv_to_error_operand(operand);
    return;
  }
  a_std_conv_descr descr;
  clear_std_conv_descr(&descr);
  const a_constant *constant = operand->kind == ok_constant ? &operand->constant : nullptr;
  if (!impl_conversion_possible(operand->type, constant, operand->string_literal, target, &descr)) {
    if (!is_void_type(operand->type) && is_incomplete_type(operand->type)) {
      error_in_operand(ec_incomplete_type_not_allowed, operand);
      return;
    }
    expr_pos_ty2_diagnostic(es_error, code, &operand->start_pos, operand->type, target);
    conv_to_error_operand(operand);
    return;
  }
  // Other compilers take these, and so do their modes.
  if (descr.is_incompatible_c_conversion) {
    bool is_error = !gcc_mode && !in_pcc_mode();
    expr_pos_ty2_diagnostic(is_error ? es_error : es_warning, code, &operand->start_pos,
                            operand->type, target);
    if (is_error) {
      conv_to_error_operand(operand);
      return;
    }
  } else if (descr.warning_code != ec_no_error) {
    expr_pos_ty2_diagnostic(es_warning, descr.warning_code, &operand->start_pos, operand->type,
                            target);
  }
  if (is_class_struct_union_type(target)) {
    if (is_union_type(target) && !identical_types_ignoring_qualifiers(operand->type, target))
      expr_pos_st_error(ec_not_supported, &operand->start_pos,
                        "conversion to a transparent union is");
    return;
  }
  cast_operand(target, operand, true);
}

void default_promote_argument(an_operand *operand) {
  do_operand_transformations(operand);
  if (operand->kind == ok_error) return;
  if (is_void_type(operand->type)) {
    error_in_operand(ec_incomplete_type_not_allowed, operand);
    return;
  }
  if (is_integral_or_enum_type(operand->type)) {
    promote_operand(operand);
  } else if (is_real_floating_type(operand->type)) {
    cast_operand(default_argument_promotion(operand->type), operand, true);
  }
}

// A cast to a union takes a value of the type of a member.
static bool cast_to_union(an_operand *operand, a_type *type) {
  if (!gnu_mode || !is_union_type(type)) return false;
  a_type *source = make_unqualified_type(operand->type);
  for (a_field *field = skip_typerefs(type)->fields; field != nullptr; field = field->next) {
    if (!types_are_compatible(make_unqualified_type(field->type), source)) continue;
    an_operand saved = *operand;
    a_constant *aggregate = alloc_constant(ck_aggregate);
    aggregate->type = type;
    a_constant *designator = alloc_constant(ck_designator);
    designator->designator_is_field = true;
    designator->designator_field = field;
    a_constant *value;
    if (operand->kind == ok_constant) {
      value = alloc_unshared_constant(&operand->constant);
    } else {
      value = alloc_constant(ck_dynamic_init);
      value->type = field->type;
      value->dynamic_init = make_expression_dynamic_init(make_node_from_operand(operand));
      aggregate->has_dynamic_init_component = true;
    }
    aggregate->has_designators = true;
    aggregate->first_element = designator;
    designator->next_in_list = value;
    aggregate->last_element = value;
    a_dynamic_init *init = alloc_dynamic_init(
        aggregate->has_dynamic_init_component ? dik_nonconstant_aggr : dik_aggregate);
    init->constant = aggregate;
    init->type = type;
    init->is_temporary = true;
    an_expr_node *node = alloc_expr_node(enk_temp_init);
    node->init = init;
    node->init_type = type;
    node->type = type;
    make_expression_operand(node, operand);
    restore_operand_details(operand, &saved);
    return true;
  }
  return false;
}

void c_style_cast(an_operand *operand, a_type *type, const a_source_position *position) {
  if (operand->ref_entry != nullptr && is_void_type(type))
    operand->ref_entry->value_is_dropped = true;
  do_operand_transformations(operand);
  if (operand->kind == ok_error) return;
  if (is_error_type(type)) {
    conv_to_error_operand(operand);
    return;
  }
  a_source_position start = *position;
  if (is_void_type(type)) {
    an_operand saved = *operand;
    an_expr_node *node = make_operator_node(eok_cast, void_type(), make_node_from_operand(operand));
    node->is_explicit_cast = true;
    make_expression_operand(node, operand);
    restore_operand_details(operand, &saved);
    operand->start_pos = start;
    operand->not_constant = true;
    return;
  }
  if (is_class_struct_union_type(type)) {
    if (gcc_mode && identical_types_ignoring_qualifiers(type, operand->type)) return;
    if (cast_to_union(operand, type)) return;
    if (expr_error_should_be_issued()) pos_ty_error(ec_cast_to_bad_type, position, type);
    conv_to_error_operand(operand);
    return;
  }
  if (is_array_type(type) || is_function_type(type)) {
    if (expr_error_should_be_issued()) pos_ty_error(ec_cast_to_bad_type, position, type);
    conv_to_error_operand(operand);
    return;
  }
  bool reinterpret = false;
  an_error_code warning = ec_no_error;
  const a_constant *constant = operand->kind == ok_constant ? &operand->constant : nullptr;
  if (!expl_conversion_possible(operand->type, constant, operand->string_literal, type,
                                &reinterpret, &warning)) {
    error_in_operand(is_void_type(operand->type) ? ec_expr_not_scalar : ec_bad_cast, operand);
    return;
  }
  if (warning != ec_no_error)
    expr_pos_ty2_diagnostic(es_warning, warning, position, operand->type, type);
  bool is_address = operand->kind == ok_constant && operand->constant.kind == ck_address;
  bool from_float = is_floating_type(operand->type) && operand->kind == ok_constant;
  cast_operand(type, operand, false);
  operand->start_pos = start;
  if (is_address || is_pointer_type(type)) operand->not_integral_constant = true;
  if (from_float && is_integral_or_enum_type(type)) operand->not_integral_constant = false;
}

void do_binary_operation(an_expr_operator_kind op, an_operand *left, an_operand *right,
                         a_type *type, an_operand *result, const a_source_position *position,
                         a_type *underlying_left_type) {
  a_source_position start = left->start_pos, end = right->end_pos;
  bool not_integral = left->not_integral_constant || right->not_integral_constant;
  if (left->kind == ok_error || right->kind == ok_error) {
    make_error_operand(result);
    result->start_pos = start;
    result->end_pos = end;
    return;
  }
  bool folded = false;
  if (left->kind == ok_constant && right->kind == ok_constant) {
    a_constant value;
    clear_constant(&value, ck_error);
    bool not_constant = false, not_computed = false;
    binary_operation(op, &left->constant, &right->constant, type, &value, in_constant_expression(),
                     value_is_needed(), &not_constant, &not_computed, nullptr, position,
                     underlying_left_type);
    if (!not_constant) {
      if (value.kind != ck_error) value.type = type;
      make_constant_operand(&value, result);
      folded = true;
    }
  }
  if (!folded) {
    an_expr_node *first = make_node_from_operand(left);
    first->next = make_node_from_operand(right);
    an_expr_node *node = make_operator_node(op, type, first);
    node->position = start;
    node->end_position = end;
    make_expression_operand(node, result);
    result->not_constant = true;
  }
  result->start_pos = start;
  result->end_pos = end;
  result->not_integral_constant |= not_integral;
}

void do_unary_operation(an_expr_operator_kind op, an_operand *operand, a_type *type,
                        an_operand *result, const a_source_position *position) {
  a_source_position start = *position, end = operand->end_pos;
  bool not_integral = operand->not_integral_constant;
  if (operand->kind == ok_error) {
    make_error_operand(result);
    result->start_pos = start;
    return;
  }
  bool folded = false;
  if (operand->kind == ok_constant) {
    a_constant value;
    clear_constant(&value, ck_error);
    bool not_constant = false, not_computed = false;
    unary_operation(op, &operand->constant, type, &value, in_constant_expression(),
                    value_is_needed(), &not_constant, &not_computed, nullptr, position);
    if (!not_constant) {
      if (value.kind != ck_error) value.type = type;
      make_constant_operand(&value, result);
      folded = true;
    }
  }
  if (!folded) {
    an_expr_node *node = make_operator_node(op, type, make_node_from_operand(operand));
    node->position = start;
    node->end_position = end;
    make_expression_operand(node, result);
    result->not_constant = true;
  }
  result->start_pos = start;
  result->end_pos = end;
  result->not_integral_constant |= not_integral;
}
