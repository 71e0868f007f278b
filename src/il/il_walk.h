// Walks over the intermediate language.
//
// One table of fields for each record (il_fields.def) tells which fields hold IL pointers. From it
// come the general walker with hooks, the marking of what is needed and of what is kept, the
// rewriting of pointers, the copier's and the verifier's knowledge. A smaller recursion,
// traverse_expr and its kin, serves analyses that only care for expressions and statements.
//
// Each walk takes a new number and leaves it in what it meets, so nothing is ever cleared. The
// state of a running walk is saved by every entry point: hooks may call them.
#ifndef IL_IL_WALK_H
#define IL_IL_WALK_H

#include <cstddef>
#include <cstdint>

#include "il/il_alloc.h"

using a_post_entry_hook = void (*)(char *entry, an_il_entry_kind kind);
using a_text_hook = void (*)(char *text, an_il_entry_kind kind, std::size_t size);
using a_pre_entry_hook = int (*)(char *entry, an_il_entry_kind kind);  // not 0: go no deeper
using a_remap_hook = char *(*)(char *entry, an_il_entry_kind kind);

// Every hook may be null. A pre hook replaces the test whether the entry was visited; the remap
// hooks give the pointer that replaces a field, and a list's link.
void walk_file_scope_il(a_post_entry_hook post_hook, a_text_hook text_hook, a_remap_hook remap_hook,
                        a_remap_hook list_remap_hook, a_pre_entry_hook pre_hook,
                        bool clear_hidden_links);
void walk_routine_scope_il(a_memory_region_number region, a_post_entry_hook post_hook,
                           a_text_hook text_hook, a_remap_hook remap_hook,
                           a_remap_hook list_remap_hook, a_pre_entry_hook pre_hook,
                           bool clear_hidden_links);
// Belongs to the walk that runs, or to the last one: what that one visited is not entered again.
void walk_il_subtree(a_post_entry_hook post_hook, a_text_hook text_hook, a_remap_hook remap_hook,
                     a_remap_hook list_remap_hook, a_pre_entry_hook pre_hook,
                     bool clear_hidden_links, void *entry, an_il_entry_kind kind);
// One level.
void remap_pointers_in_il_entry(void *entry, an_il_entry_kind kind, a_remap_hook remap_hook,
                                a_remap_hook list_remap_hook, bool clear_hidden_links);
void remap_last_ptr_of_orphaned_file_scope_entry_array(a_remap_hook remap_hook);
// Begins a new walk of subtrees.
void start_new_il_walk();

// ---- What is needed, what is kept --------------------------------------------------------------

extern bool end_of_file_scope_needed_flags_phase;

void mark_as_needed(void *entry, an_il_entry_kind kind);    // nothing when marked before
void remark_as_needed(void *entry, an_il_entry_kind kind);  // walks again
void mark_as_needed_like(void *entry, an_il_entry_kind kind, const a_source_correspondence *like);
void mark_to_keep_in_il(void *entry, an_il_entry_kind kind);
void set_routine_definition_needed(a_routine *routine);
void remark_routine_definition_needed(a_routine *routine);
void set_class_definition_needed(a_type *type);
void set_routine_keep_definition_in_il(a_routine *routine);
void set_class_keep_definition_in_il(a_type *type);
// The keep walk of what a function body needs.
void walk_subtrees_of_local_entities(a_scope *scope);

// ---- Traversal of expressions and statements ---------------------------------------------------

struct an_expr_or_stmt_traversal_block {
  void (*expr_pre)(an_expr_node *node, an_expr_or_stmt_traversal_block *block);
  void (*expr_post)(an_expr_node *node, an_expr_or_stmt_traversal_block *block);
  void (*constant_pre)(a_constant *constant, an_expr_or_stmt_traversal_block *block);
  void (*constant_post)(a_constant *constant, an_expr_or_stmt_traversal_block *block);
  void (*dynamic_init_pre)(a_dynamic_init *init, an_expr_or_stmt_traversal_block *block);
  void (*dynamic_init_post)(a_dynamic_init *init, an_expr_or_stmt_traversal_block *block);
  void (*statement_pre)(a_statement *statement, an_expr_or_stmt_traversal_block *block);
  void (*statement_post)(a_statement *statement, an_expr_or_stmt_traversal_block *block);
  void (*type_hook)(a_type *type, an_expr_or_stmt_traversal_block *block);
  bool stop;           // ends the traversal at once
  bool skip_children;  // set by a pre hook, cleared behind it
  bool follow_variable_initializers;
  bool into_constants;
  bool into_template_constants;
  bool lvalue_operands_only;  // only the operands that decide the lvalue
  bool selection_from_prvalue_counts;
  std::int64_t result;  // for the hooks
  void *data;           // for the hooks
};
void clear_expr_or_stmt_traversal_block(an_expr_or_stmt_traversal_block *block);
void traverse_expr(an_expr_node *node, an_expr_or_stmt_traversal_block *block);
void traverse_expr_list(an_expr_node *list, an_expr_or_stmt_traversal_block *block);
void traverse_statement(a_statement *statement, an_expr_or_stmt_traversal_block *block);
void traverse_statement_list(a_statement *list, an_expr_or_stmt_traversal_block *block);
void traverse_constant(a_constant *constant, an_expr_or_stmt_traversal_block *block);
void traverse_dynamic_init(a_dynamic_init *init, an_expr_or_stmt_traversal_block *block);

// Applies process to the types that belong to the function.
void process_local_types(a_scope *scope, a_routine *routine,
                         void (*process)(a_type *type, a_routine *routine));

void il_walk_init();

#endif
