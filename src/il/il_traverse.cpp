// Traversal of expressions and statements with hooks, for analyses that care for code alone: no
// entity is entered, nothing is marked, a tree is seen as it stands.
#include <cstring>

#include "il/il.h"
#include "il/il_walk.h"
#include "semantics/types.h"

void clear_expr_or_stmt_traversal_block(an_expr_or_stmt_traversal_block *block) {
  std::memset(static_cast<void *>(block), 0, sizeof *block);
}

namespace {

using a_block = an_expr_or_stmt_traversal_block;

// Calls a hook in front; false: the children are skipped, or all ends.
template <class T>
bool enter(T *entry, void (*hook)(T *, a_block *), a_block *block) {
  if (hook == nullptr) return !block->stop;
  hook(entry, block);
  if (block->stop) return false;
  if (!block->skip_children) return true;
  block->skip_children = false;
  return false;
}

template <class T>
void leave(T *entry, void (*hook)(T *, a_block *), a_block *block) {
  if (hook != nullptr && !block->stop) hook(entry, block);
}

// ---- Expressions -------------------------------------------------------------------------------

// The operands that decide which object an lvalue names.
void traverse_lvalue_operands(an_expr_node *node, a_block *block) {
  an_expr_node *first = node->operands;
  switch (node->op) {
    case eok_min:
    case eok_max:
      traverse_expr_list(first, block);
      return;
    case eok_comma:
      traverse_expr(first->next, block);
      return;
    case eok_subscript:
      traverse_expr(node->array_is_second_operand ? first->next : first, block);
      return;
    case eok_conditional:
    case eok_lvalue_conditional:
      for (an_expr_node *branch = first->next; branch != nullptr && !block->stop;
           branch = branch->next) {
        if (!is_void_type(branch->type)) traverse_expr(branch, block);
      }
      return;
    case eok_dot_field:
      if (block->selection_from_prvalue_counts || first->is_lvalue) traverse_expr(first, block);
      return;
    default:
      if (first != nullptr) traverse_expr(first, block);
      return;
  }
}

void traverse_new_delete(a_new_delete_supplement *supplement, a_block *block) {
  traverse_expr_list(supplement->placement_args, block);
  traverse_expr(supplement->number_of_elements, block);
  traverse_expr(supplement->operand, block);
  traverse_dynamic_init(supplement->init, block);
}

void traverse_sizeof(an_expr_node *node, a_block *block) {
  if (!node->sizeof_is_type && !node->sizeof_is_template_form)
    traverse_expr(node->sizeof_expr, block);
}

void traverse_children(an_expr_node *node, a_block *block) {
  switch (node->kind) {
    case enk_operation:
      if (block->lvalue_operands_only)
        traverse_lvalue_operands(node, block);
      else
        traverse_expr_list(node->operands, block);
      break;
    case enk_template_dependent:
    case enk_init_list:
    case enk_unresolved_call:
      traverse_expr_list(node->operands, block);
      break;
    case enk_constant:
      traverse_constant(node->constant, block);
      break;
    case enk_temp_init:
    case enk_reusable_value:
    case enk_lambda:
      traverse_dynamic_init(node->init, block);
      break;
    case enk_new_delete:
      traverse_new_delete(node->new_delete, block);
      break;
    case enk_throw:
      traverse_dynamic_init(node->throw_info->init, block);
      break;
    case enk_condition:
      traverse_dynamic_init(node->condition->init, block);
      traverse_expr(node->condition->expr, block);
      break;
    case enk_object_lifetime:
      traverse_expr(node->lifetime_expr, block);
      break;
    case enk_typeid:
      traverse_expr(node->typeid_expr, block);
      break;
    case enk_sizeof:
    case enk_alignof:
    case enk_noexcept:
      traverse_sizeof(node, block);
      break;
    case enk_statement_expr:
      traverse_statement_list(node->statement, block);
      break;
    case enk_fold:
      traverse_expr_list(node->fold_operands, block);
      traverse_expr(node->fold_init, block);
      break;
    case enk_lowered_eh:
      traverse_expr(node->eh_expr, block);
      break;
    default:
      break;
  }
}

}  // namespace

void traverse_expr(an_expr_node *node, an_expr_or_stmt_traversal_block *block) {
  if (node == nullptr || block->stop) return;
  if (block->type_hook != nullptr && node->type != nullptr) block->type_hook(node->type, block);
  if (enter(node, block->expr_pre, block)) traverse_children(node, block);
  leave(node, block->expr_post, block);
}

void traverse_expr_list(an_expr_node *list, an_expr_or_stmt_traversal_block *block) {
  for (an_expr_node *node = list; node != nullptr && !block->stop;) {
    an_expr_node *next = node->next;  // a hook may relink the node
    traverse_expr(node, block);
    node = next;
  }
}

// ---- Constants and initializations -------------------------------------------------------------

namespace {

void traverse_constant_parts(a_constant *constant, a_block *block) {
  if (constant->expr != nullptr && block->into_constants) {
    traverse_expr(constant->expr, block);
    return;
  }
  switch (constant->kind) {
    case ck_aggregate:
      for (a_constant *element = constant->first_element; element != nullptr && !block->stop;
           element = element->next_in_list)
        traverse_constant(element, block);
      break;
    case ck_repeat:
      traverse_constant(constant->repeat_element, block);
      break;
    case ck_dynamic_init:
      traverse_dynamic_init(constant->dynamic_init, block);
      break;
    case ck_template_param:
      if (!block->into_template_constants) break;
      if (constant->template_kind == tpck_expr)
        traverse_expr(constant->param_expr, block);
      else if (constant->template_kind >= tpck_sizeof && constant->template_kind <= tpck_noexcept)
        traverse_expr(constant->param_operand_expr, block);
      break;
    default:
      break;
  }
}

}  // namespace

void traverse_constant(a_constant *constant, an_expr_or_stmt_traversal_block *block) {
  if (constant == nullptr || block->stop) return;
  if (enter(constant, block->constant_pre, block)) traverse_constant_parts(constant, block);
  leave(constant, block->constant_post, block);
}

namespace {

bool constant_of_init_counts(const a_constant *constant, const a_block *block) {
  if (constant == nullptr) return false;
  if (constant->kind == ck_aggregate || block->into_constants) return true;
  return constant->kind == ck_template_param && block->into_template_constants;
}

void traverse_init_parts(a_dynamic_init *init, a_block *block) {
  switch (init->kind) {
    case dik_constant:
    case dik_aggregate:
    case dik_nonconstant_aggr:
      if (constant_of_init_counts(init->constant, block)) traverse_constant(init->constant, block);
      break;
    case dik_expression:
    case dik_call:
      traverse_expr(init->expr, block);
      break;
    case dik_constructor:
      traverse_expr_list(init->arguments, block);
      break;
    default:
      break;
  }
}

}  // namespace

void traverse_dynamic_init(a_dynamic_init *init, an_expr_or_stmt_traversal_block *block) {
  if (init == nullptr || block->stop) return;
  if (enter(init, block->dynamic_init_pre, block)) traverse_init_parts(init, block);
  leave(init, block->dynamic_init_post, block);
}

// ---- Statements --------------------------------------------------------------------------------

namespace {

void traverse_declared_initializers(an_il_entity_list_entry *list, a_block *block) {
  for (; list != nullptr && !block->stop; list = list->next) {
    if (list->kind != iek_variable) continue;
    a_variable *variable = static_cast<a_variable *>(list->entity);
    if (variable->init_kind == init_dynamic)
      traverse_dynamic_init(variable->initializer.dynamic, block);
    else if (variable->init_kind == init_constant && block->into_constants)
      traverse_constant(variable->initializer.constant, block);
  }
}

void traverse_try(a_try_supplement *supplement, a_block *block) {
  traverse_statement_list(supplement->statement, block);
  for (a_handler *handler = supplement->handlers; handler != nullptr && !block->stop;
       handler = handler->next) {
    traverse_dynamic_init(handler->init, block);
    traverse_statement_list(handler->statement, block);
  }
}

// In the order of execution.
void traverse_for(a_statement *statement, a_block *block) {
  traverse_statement_list(statement->for_supplement->init_statement, block);
  traverse_expr(statement->expr, block);
  traverse_statement_list(statement->body, block);
  traverse_expr(statement->for_supplement->increment_expr, block);
}

void traverse_substatements(a_statement *statement, a_block *block) {
  switch (statement->kind) {
    case stmk_if:
      traverse_expr(statement->expr, block);
      traverse_statement_list(statement->then_stmt, block);
      traverse_statement_list(statement->else_stmt, block);
      break;
    case stmk_do:
      traverse_statement_list(statement->body, block);
      traverse_expr(statement->expr, block);
      break;
    case stmk_for:
      traverse_for(statement, block);
      break;
    case stmk_while:
    case stmk_range_for:
    case stmk_switch:
    case stmk_case:
      traverse_expr(statement->expr, block);
      traverse_statement_list(statement->body, block);
      break;
    case stmk_block:
      traverse_statement_list(statement->first_statement, block);
      break;
    case stmk_return:
      traverse_expr(statement->expr, block);
      traverse_dynamic_init(statement->return_init, block);
      break;
    case stmk_init:
    case stmk_stmt_expr_result:
      traverse_dynamic_init(statement->init, block);
      break;
    case stmk_try:
      traverse_try(statement->try_supplement, block);
      break;
    case stmk_decl:
      if (block->follow_variable_initializers)
        traverse_declared_initializers(statement->entities, block);
      break;
    case stmk_set_vla_size:
      if (statement->vla_dimension != nullptr)
        traverse_expr(statement->vla_dimension->bound_expr, block);
      break;
    default:
      traverse_expr(statement->expr, block);
      break;
  }
}

}  // namespace

void traverse_statement(a_statement *statement, an_expr_or_stmt_traversal_block *block) {
  if (statement == nullptr || block->stop) return;
  if (enter(statement, block->statement_pre, block)) traverse_substatements(statement, block);
  leave(statement, block->statement_post, block);
}

void traverse_statement_list(a_statement *list, an_expr_or_stmt_traversal_block *block) {
  for (a_statement *statement = list; statement != nullptr && !block->stop;) {
    a_statement *next = statement->next;
    traverse_statement(statement, block);
    statement = next;
  }
}
