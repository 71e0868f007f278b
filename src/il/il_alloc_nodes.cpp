// Allocation of expressions, statements, initializations, lifetimes and scopes: the records that
// lie in the region of their function.
#include <cstring>

#include "il/il_alloc.h"
#include "il/il_alloc_internal.h"
#include "semantics/scope_stk.h"

// ---- Expressions -------------------------------------------------------------------------------

an_expr_node *alloc_expr_node(an_expr_node_kind kind) {
  an_expr_node *node = alloc_record<an_expr_node>();
  node->kind = kind;
  if (kind == enk_template_dependent) node->op = eok_xor;
  return node;
}

void clear_expr_node(an_expr_node *node, an_expr_node_kind kind) {
  clear_record(node);
  set_expr_node_kind(node, kind);
}

void set_expr_node_kind(an_expr_node *node, an_expr_node_kind kind) {
  node->kind = kind;
  node->op = kind == enk_template_dependent ? eok_xor : eok_address_of;
  node->op_kind_info = 0;
  clear_expr_node_variant(node);
}

an_expr_node *alloc_lowered_eh_construct_node(a_lowered_eh_construct_kind kind) {
  an_expr_node *node = alloc_expr_node(enk_lowered_eh);
  node->eh_construct = kind;
  return node;
}

a_catch_entry *alloc_catch_entry(a_variable *typeinfo_variable, a_label *label) {
  a_catch_entry *entry = alloc_record<a_catch_entry>();
  entry->typeinfo_variable = typeinfo_variable;
  entry->label = label;
  return entry;
}

an_eh_info_entry *alloc_eh_info_entry(an_eh_entry_kind kind, std::uint32_t id) {
  an_eh_info_entry *entry = alloc_record<an_eh_info_entry>();
  entry->kind = kind;
  entry->id = id;
  return entry;
}

a_call_expr_entry *alloc_call_expr_entry(an_expr_node *expr) {
  a_call_expr_entry *entry = alloc_record<a_call_expr_entry>();
  entry->expr = expr;
  return entry;
}

a_routine_selection *alloc_routine_selection() {
  return alloc_record<a_routine_selection>();
}
a_subobject_path *alloc_subobject_path() {
  return alloc_fs_record<a_subobject_path>();
}
an_element_position *alloc_element_position() {
  return alloc_record<an_element_position>();
}
an_il_entity_list_entry *alloc_il_entity_list_entry() {
  return alloc_record<an_il_entity_list_entry>();
}

// ---- Statements --------------------------------------------------------------------------------

a_statement *alloc_statement(a_statement_kind kind) {
  a_statement *statement = alloc_record<a_statement>();
  set_statement_kind(statement, kind);
  return statement;
}

void set_statement_kind(a_statement *statement, a_statement_kind kind) {
  statement->kind = kind;
  clear_statement_variant(statement);
  switch (kind) {
    case stmk_block:
      statement->block_supplement = alloc_record<a_block_supplement>();
      break;
    case stmk_for:
      statement->for_supplement = alloc_record<a_for_loop_supplement>();
      break;
    case stmk_range_for:
      statement->range_for_supplement = alloc_record<a_range_for_supplement>();
      break;
    case stmk_switch:
      statement->switch_supplement = alloc_record<a_switch_supplement>();
      break;
    case stmk_try:
      statement->try_supplement = alloc_record<a_try_supplement>();
      break;
    default:
      break;
  }
}

a_switch_case_entry *alloc_switch_case_entry() {
  return alloc_record<a_switch_case_entry>();
}
a_handler *alloc_handler() {
  return alloc_record<a_handler>();
}

// ---- Initializations ---------------------------------------------------------------------------

// Finished lifetimes of a function serve again.
an_object_lifetime *alloc_object_lifetime(an_object_lifetime_kind kind) {
  an_object_lifetime *lifetime = nullptr;
  const int depth = depth_innermost_function_scope;
  if (depth >= 0 && scope_stack[depth].free_lifetimes != nullptr &&
      scope_stack[depth].il_region == curr_il_region_number) {
    lifetime = scope_stack[depth].free_lifetimes;
    scope_stack[depth].free_lifetimes = lifetime->free_link;
    clear_record(lifetime);
  } else {
    lifetime = alloc_record<an_object_lifetime>();
  }
  lifetime->kind = kind;
  return lifetime;
}

// Outside functions it is only forgotten.
void free_object_lifetime(an_object_lifetime *lifetime) {
  const int depth = depth_innermost_function_scope;
  if (depth < 0 || in_file_scope_region(lifetime)) return;
  lifetime->free_link = scope_stack[depth].free_lifetimes;
  scope_stack[depth].free_lifetimes = lifetime;
}

a_dynamic_init *alloc_dynamic_init(a_dynamic_init_kind kind) {
  a_dynamic_init *init = alloc_record<a_dynamic_init>();
  init->kind = kind;
  return init;
}

void set_dynamic_init_kind(a_dynamic_init *init, a_dynamic_init_kind kind) {
  init->kind = kind;
  clear_bytes(&init->constant, &init->ctor_init);
}

a_local_static_variable_init *alloc_local_static_variable_init() {
  return alloc_record<a_local_static_variable_init>();
}
a_vla_dimension *alloc_vla_dimension() {
  return alloc_record<a_vla_dimension>();
}

a_constructor_init *alloc_ctor_init(a_ctor_init_kind kind) {
  a_constructor_init *init = alloc_record<a_constructor_init>();
  init->kind = kind;
  return init;
}

// ---- Local entities ----------------------------------------------------------------------------

a_using_decl *alloc_using_decl() {
  return alloc_record<a_using_decl>();
}
an_asm_entry *alloc_asm_entry() {
  return alloc_record_with_head<an_asm_entry>();
}
an_asm_operand *alloc_asm_operand() {
  return alloc_record<an_asm_operand>();
}
a_named_register_list *alloc_named_register_list() {
  return alloc_record<a_named_register_list>();
}
a_label_list *alloc_label_list() {
  return alloc_record<a_label_list>();
}
a_local_scope_ref *alloc_local_scope_ref() {
  return alloc_record<a_local_scope_ref>();
}
a_local_expr_node_ref *alloc_local_expr_node_ref() {
  return alloc_record<a_local_expr_node_ref>();
}

// ---- Scopes ------------------------------------------------------------------------------------

a_scope *alloc_scope(a_scope_kind kind, std::int32_t number, a_routine *routine) {
  a_scope *scope = alloc_record<a_scope>();
  scope->scope_number = number;
  scope->stack_depth = -1;
  scope->kind = kind;
  if (kind == sck_function) scope->assoc.routine = routine;
  return scope;
}

void set_scope_kind(a_scope *scope, a_scope_kind kind) {
  scope->kind = kind;
  scope->assoc.entry = nullptr;
  scope->parameters = nullptr;
  scope->ctor_inits = nullptr;
  scope->function_lifetime = nullptr;
  scope->this_param = nullptr;
  scope->return_var = nullptr;
}
