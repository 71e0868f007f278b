// Helpers on expression nodes and statements, which the parser and lowering share.
//
// The value of an object is its lvalue node with is_lvalue cleared and the qualifiers taken off the
// type; only arrays and functions need an operator to become values.
#include "il/il.h"

#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il_alloc_internal.h"
#include "semantics/const_ints.h"
#include "semantics/types.h"

std::uint8_t curr_fp_contract_state;
std::uint8_t curr_fenv_access_state;
std::uint8_t curr_cx_limited_range_state;

// ---- Nodes -------------------------------------------------------------------------------------

an_expr_node *error_node() {
  an_expr_node *node = alloc_expr_node(enk_error);
  node->type = error_type();
  return node;
}

// Enums count as integers, references as pointers, struct and union as class.
std::uint8_t compute_op_kind_info(const a_type *type) {
  if (type == nullptr) return tk_error;
  type = skip_typerefs(type);
  return is_class_kind(type->kind) ? tk_class : type->kind;
}

void set_node_operator(an_expr_node *node, an_expr_operator_kind op, a_type *type, bool is_lvalue,
                       an_expr_node *first) {
  set_expr_node_kind(node, enk_operation);
  node->op = op;
  node->type = type;
  node->is_lvalue = is_lvalue;
  node->operands = first;
  const bool by_second =
      (op == eok_conditional || op == eok_lvalue_conditional || op == eok_comma) &&
      first != nullptr && first->next != nullptr;
  const an_expr_node *decisive = by_second ? first->next : first;
  node->op_kind_info = compute_op_kind_info(decisive != nullptr ? decisive->type : type);
}

an_expr_node *make_operator_node(an_expr_operator_kind op, a_type *type, an_expr_node *first) {
  an_expr_node *node = alloc_expr_node(enk_operation);
  set_node_operator(node, op, type, false, first);
  if (first != nullptr) {
    node->position = first->position;
    const an_expr_node *last = first;
    while (last->next != nullptr)
      last = last->next;
    node->end_position = last->end_position;
  }
  return node;
}

an_expr_node *make_lvalue_operator_node(an_expr_operator_kind op, a_type *type,
                                        an_expr_node *first) {
  an_expr_node *node = make_operator_node(op, type, first);
  node->is_lvalue = true;
  return node;
}

an_expr_node *make_comma_node(an_expr_node *first, an_expr_node *second) {
  first->next = second;
  first->result_not_used = true;
  an_expr_node *node = make_operator_node(eok_comma, second->type, first);
  node->is_lvalue = second->is_lvalue;
  return node;
}

an_expr_node *node_for_il_constant(a_constant *constant) {
  if (constant->kind == ck_error) return error_node();
  an_expr_node *node = alloc_expr_node(enk_constant);
  node->constant = constant;
  node->type = constant->type;
  return node;
}

an_expr_node *alloc_node_for_constant(const a_constant *constant) {
  return node_for_il_constant(alloc_shareable_constant(constant));
}

an_expr_node *node_for_integer_constant(std::int64_t value, an_integer_kind kind) {
  a_constant constant;
  clear_constant(&constant, ck_integer);
  constant.type = integer_type(kind);
  constant.integer_value = static_cast<a_host_large_integer>(value);
  return alloc_node_for_constant(&constant);
}

an_expr_node *var_lvalue_expr(a_variable *variable) {
  an_expr_node *node = alloc_expr_node(enk_variable);
  node->variable = variable;
  node->type = variable->type;
  node->is_lvalue = true;
  return node;
}

an_expr_node *var_rvalue_expr(a_variable *variable) {
  return rvalue_expr_for_lvalue(var_lvalue_expr(variable));
}

an_expr_node *function_lvalue_expr(a_routine *routine) {
  an_expr_node *node = alloc_expr_node(enk_routine);
  node->routine = routine;
  node->type = routine->type;
  node->is_lvalue = true;
  return node;
}

an_expr_node *function_addr_expr(a_routine *routine) {
  return add_address_of_to_node(function_lvalue_expr(routine));
}

an_expr_node *rvalue_expr_for_lvalue(an_expr_node *node) {
  const a_type *type = skip_typerefs(node->type);
  if (type->kind == tk_array) {
    an_expr_node *result = make_operator_node(
        eok_array_to_pointer, make_pointer_type(array_element_type(node->type)), node);
    result->is_implicit = true;
    return result;
  }
  if (type->kind == tk_routine) return add_address_of_to_node(node);
  node->orig_lvalue_type = node->type;
  node->type = make_unqualified_type(node->type);
  node->is_lvalue = node->is_xvalue = false;
  return node;
}

// &*p is p.
an_expr_node *add_address_of_to_node(an_expr_node *lvalue) {
  if (is_operation_node(lvalue, eok_indirect)) return lvalue->operands;
  if (lvalue->kind == enk_variable) lvalue->variable->address_taken = true;
  if (lvalue->kind == enk_routine) lvalue->routine->address_taken = true;
  return make_operator_node(eok_address_of, make_pointer_type(lvalue->type), lvalue);
}

// *&x is x.
an_expr_node *add_indirection_to_node(an_expr_node *pointer) {
  if (is_operation_node(pointer, eok_address_of)) return pointer->operands;
  return make_lvalue_operator_node(eok_indirect, type_pointed_to(pointer->type), pointer);
}

an_expr_node *field_lvalue_selection_expr(an_expr_node *object, a_field *field) {
  an_expr_node *selector = alloc_expr_node(enk_field);
  selector->field = field;
  selector->type = field->type;
  const unsigned qualifiers = get_type_qualifiers(object->type);
  object->next = selector;
  an_expr_node *node =
      make_operator_node(eok_dot_field, make_field_selection_type(field, qualifiers), object);
  node->is_lvalue = object->is_lvalue;
  return node;
}

an_expr_node *add_cast(an_expr_node *node, a_type *type) {
  an_expr_node *result = make_operator_node(eok_cast, type, node);
  result->is_implicit = true;
  return result;
}

an_expr_node *add_cast_if_necessary(an_expr_node *node, a_type *type) {
  return identical_types(node->type, type) ? node : add_cast(node, type);
}

// By operator, from eok_cast to eok_bool_cast.
bool is_cast_operation_node(const an_expr_node *node) {
  static constexpr bool is_cast[16] = {true, false, false, false, true, false, false, false,
                                       true, false, false, false, true, false, false, false};
  return node->kind == enk_operation && node->op >= eok_cast && node->op <= eok_bool_cast &&
         is_cast[node->op - eok_cast];
}

bool is_operation_node(const an_expr_node *node, an_expr_operator_kind op) {
  return node->kind == enk_operation && node->op == op;
}

void set_error_constant(a_constant *constant) {
  set_constant_kind(constant, ck_error);
  constant->type = error_type();
}

a_dynamic_init *make_expression_dynamic_init(an_expr_node *expr) {
  a_dynamic_init *init = alloc_dynamic_init(dik_expression);
  init->expr = expr;
  init->type = expr->type;
  init->position = expr->position;
  return init;
}

// ---- Statements --------------------------------------------------------------------------------

namespace {

// Its direct substatements name the statement as their parent again.
void adopt_substatements(a_statement *parent) {
  const auto adopt = [parent](a_statement *list) {
    for (; list != nullptr; list = list->next)
      list->parent = parent;
  };
  switch (parent->kind) {
    case stmk_if:
      adopt(parent->then_stmt);
      adopt(parent->else_stmt);
      break;
    case stmk_block:
      adopt(parent->first_statement);
      break;
    case stmk_for:
      adopt(parent->for_supplement->init_statement);
      adopt(parent->body);
      break;
    case stmk_while:
    case stmk_do:
    case stmk_range_for:
    case stmk_switch:
    case stmk_case:
      adopt(parent->body);
      break;
    case stmk_try:
      adopt(parent->try_supplement->statement);
      for (a_handler *h = parent->try_supplement->handlers; h != nullptr; h = h->next)
        adopt(h->statement);
      break;
    default:
      break;
  }
}

}  // namespace

void change_statement_into_block(a_statement *statement) {
  a_statement *child = alloc_statement(stmk_null);
  *child = *statement;
  child->next = nullptr;
  child->parent = statement;
  adopt_substatements(child);
  if (child->kind == stmk_label && child->label->statement == statement)
    child->label->statement = child;
  if (child->kind == stmk_case && child->switch_case_entry != nullptr)
    child->switch_case_entry->statement = child;
  statement->expr = nullptr;
  statement->attributes = nullptr;
  statement->has_associated_pragma = false;
  set_statement_kind(statement, stmk_block);
  statement->is_generated = true;
  statement->first_statement = child;
  statement->block_supplement->is_generated = true;
  statement->block_supplement->end_position = statement->end_position;
}

void turn_statement_into_noop(a_statement *statement) {
  statement->expr = nullptr;
  set_statement_kind(statement, stmk_block);
  statement->block_supplement->is_generated = true;
  statement->block_supplement->end_position = statement->end_position;
}

a_statement *make_expr_statement(an_expr_node *expr) {
  a_statement *statement = alloc_statement(stmk_expr);
  statement->expr = expr;
  statement->position = expr->position;
  statement->end_position = expr->end_position;
  expr->result_not_used = true;
  return statement;
}

// ---- Namespaces --------------------------------------------------------------------------------

a_namespace *f_skip_namespace_aliases(a_namespace *name_space) {
  while (name_space->is_alias)
    name_space = name_space->alias_target;
  return name_space;
}

// ---- Phases ------------------------------------------------------------------------------------

void il_one_time_init() {
  il_alloc_one_time_init();
  register_trans_unit_variable(&curr_fp_contract_state);
  register_trans_unit_variable(&curr_fenv_access_state);
  register_trans_unit_variable(&curr_cx_limited_range_state);
}

void il_init() {
  il_alloc_init();
}

void il_trans_unit_init() {
  il_alloc_trans_unit_init();
  curr_fp_contract_state = stdc_unset;
  curr_fenv_access_state = stdc_unset;
  curr_cx_limited_range_state = stdc_unset;
}

void il_reset() {
  src_seq_reset();
}
