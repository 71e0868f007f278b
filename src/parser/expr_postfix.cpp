// Subscripts and the selection of members.
#include "driver/host_envir.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/expr_internal.h"
#include "semantics/lookup.h"
#include "semantics/symbol_ref.h"
#include "semantics/types.h"

// a[i]
// C11 6.5.2.1
void scan_subscript(an_operand *left, an_operand *result) {
  a_source_position position = pos_curr_token, start = left->start_pos;
  get_token();
  an_operand index;
  add_stop_token(tok_rbracket);
  scan_expr_at_level(&index, level_any);
  a_source_position end = end_pos_curr_token;
  required_token(tok_rbracket, ec_exp_rbracket);
  remove_stop_token(tok_rbracket);
  do_operand_transformations(left);
  do_operand_transformations(&index);
  if (left->kind == ok_error || index.kind == ok_error) {
    make_error_operand(result);
  } else {
    an_operand sum;
    if (!is_pointer_type(left->type) && is_pointer_type(index.type))
      add_to_pointer(&index, left, true, &sum, &position);
    else if (check_object_pointer_operand(left))
      add_to_pointer(left, &index, false, &sum, &position);
    else
      make_error_operand(&sum);
    make_indirection(&sum, result, &start);
    if (result->kind == ok_expression) result->expr->is_subscript_form = true;
  }
  result->start_pos = start;
  result->end_pos = end;
}

// ---- Members -----------------------------------------------------------------------------------

namespace {

// One step: a member of exactly the class of the object.
an_expr_node *direct_selection(an_expr_node *object, a_field *field, bool by_pointer,
                               bool is_lvalue) {
  a_type *class_type = by_pointer ? type_pointed_to(object->type) : object->type;
  a_type *type = make_field_selection_type(field, get_type_qualifiers(class_type));
  an_expr_node *selector = alloc_expr_node(enk_field);
  selector->field = field;
  selector->type = field->type;
  object->next = selector;
  if (is_lvalue || by_pointer)
    return make_lvalue_operator_node(by_pointer ? eok_arrow_field : eok_dot_field, type, object);
  return make_operator_node(eok_dot_field, make_unqualified_type(type), object);
}

// Members of anonymous members are selected through these, the outermost first.
an_expr_node *selection_through(an_expr_node *object, a_field *field, a_type *class_type,
                                bool by_pointer, bool is_lvalue) {
  a_field *anonymous = field->anonymous_union_field;
  if (anonymous == nullptr || skip_typerefs(anonymous->type) == class_type)
    return direct_selection(object, field, by_pointer, is_lvalue);
  an_expr_node *outer = selection_through(object, anonymous, class_type, by_pointer, is_lvalue);
  return direct_selection(outer, field, false, is_lvalue || by_pointer);
}

}  // namespace

void make_field_selection(an_operand *object, a_field *field, bool by_pointer, an_operand *result) {
  a_ref_entry *reference = by_pointer ? nullptr : object->ref_entry;
  bool is_lvalue = by_pointer || object->value_category == vc_glvalue;
  a_type *class_type = by_pointer ? type_pointed_to(object->type) : object->type;
  a_source_position start = object->start_pos;
  bool not_integral = object->not_integral_constant;
  an_expr_node *node = selection_through(make_node_from_operand(object), field,
                                         skip_typerefs(class_type), by_pointer, is_lvalue);
  if (is_lvalue)
    make_glvalue_expression_operand(node, result);
  else
    make_expression_operand(node, result);
  result->ref_entry = reference;
  result->start_pos = start;
  result->not_integral_constant = not_integral || !by_pointer;
  result->not_constant = true;
}

// The class in which the member of an object is searched; null after a message.
static a_type *class_of_object(an_operand *object, bool by_pointer) {
  if (object->kind == ok_error) return nullptr;
  if (by_pointer && !(is_pointer_type(object->type) &&
                      is_class_struct_union_type(type_pointed_to(object->type)))) {
    error_in_operand(ec_expr_not_ptr_to_struct_or_union, object);
    return nullptr;
  }
  if (!by_pointer && !is_class_struct_union_type(object->type)) {
    error_in_operand(ec_expr_not_struct_or_union, object);
    return nullptr;
  }
  a_type *type = by_pointer ? type_pointed_to(object->type) : object->type;
  if (!is_incomplete_type(type)) return skip_typerefs(type);
  if (expr_error_should_be_issued())
    pos_ty_error(ec_incomplete_type_not_allowed, &object->start_pos, type);
  conv_to_error_operand(object);
  return nullptr;
}

void scan_member_name(an_operand *object, bool by_pointer, an_operand *result) {
  a_source_position start = object->start_pos, end = end_pos_curr_token;
  a_type *class_type = class_of_object(object, by_pointer);
  if (curr_token != tok_identifier) {
    expr_syntax_error(ec_exp_field_name);
    make_error_operand(result);
    result->start_pos = start;
    return;
  }
  a_symbol_locator locator = locator_for_curr_id;
  a_source_position position = pos_curr_token;
  a_symbol *symbol = class_type != nullptr ? field_lookup(&locator, class_type) : nullptr;
  get_token();
  if (symbol != nullptr && symbol->variant.field->is_deprecated && expr_error_should_be_issued())
    check_use_of_deprecated_entity(symbol->variant.field, &position);
  if (class_type != nullptr && symbol == nullptr) {
    if (expr_error_should_be_issued())
      pos_stsy_error(ec_not_a_field, &position, locator.header->name, class_type->symbol);
    conv_to_error_operand(object);
  }
  if (symbol == nullptr || symbol->variant.field->has_error_type)
    make_error_operand(result);
  else
    make_field_selection(object, symbol->variant.field, by_pointer, result);
  if (f_xref_info != nullptr && symbol != nullptr) {
    a_ref_entry *entry = ref_entry(symbol, &position);
    entry->object = result->ref_entry;
    result->ref_entry = entry;
  }
  result->start_pos = start;
  result->end_pos = end;
}

// object.member, pointer->member
// C11 6.5.2.3
void scan_field_selection(an_operand *left, an_operand *result) {
  bool by_pointer = curr_token == tok_arrow;
  get_token();
  if (by_pointer)
    do_operand_transformations(left);
  else
    do_operand_transformations(left, dot_keep_lvalue | dot_keep_array | dot_keep_function);
  scan_member_name(left, by_pointer, result);
}
