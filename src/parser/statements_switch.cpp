// switch and its labels.
//
// The labels of one switch are kept in the order of the source and, to find values that come twice,
// by value. Most switches have ascending labels: a value above the highest so far is appended and
// nothing else is asked. Other values go through a tree that random priorities keep balanced, so
// that a table of n labels in any order costs n log n. The tree is built only when the first label
// comes out of order.
#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/expr.h"
#include "parser/statements_internal.h"
#include "semantics/const_ints.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

a_case_node *free_case_nodes;
std::uint32_t priority_state = 1;

std::uint32_t next_priority() {
  priority_state ^= priority_state << 13;
  priority_state ^= priority_state >> 17;
  priority_state ^= priority_state << 5;
  return priority_state;
}

a_case_node *alloc_case_node(a_switch_case_entry *entry) {
  a_case_node *node = free_case_nodes;
  if (node != nullptr)
    free_case_nodes = node->right;
  else
    node = static_cast<a_case_node *>(alloc_in_region(permanent_region, sizeof(a_case_node)));
  *node = {nullptr, nullptr, entry, next_priority()};
  return node;
}

void free_case_tree(a_case_node *node) {
  if (node == nullptr) return;
  free_case_tree(node->left);
  free_case_tree(node->right);
  node->right = free_case_nodes;
  free_case_nodes = node;
}

const a_constant *low_value(const a_switch_case_entry *entry) {
  return entry->case_value;
}
const a_constant *high_value(const a_switch_case_entry *entry) {
  return entry->range_end_value != nullptr ? entry->range_end_value : entry->case_value;
}

bool lies_before(const a_switch_case_entry *a, const a_switch_case_entry *b) {
  return cmp_integer_constants(high_value(a), low_value(b)) < 0;
}

// An entry of the tree that shares a value with entry; null: none.
a_switch_case_entry *find_conflict(a_case_node *tree, const a_switch_case_entry *entry) {
  while (tree != nullptr) {
    if (lies_before(entry, tree->entry))
      tree = tree->left;
    else if (lies_before(tree->entry, entry))
      tree = tree->right;
    else
      return tree->entry;
  }
  return nullptr;
}

// Splits the tree into what begins below entry and the rest.
void split_tree(a_case_node *tree, const a_switch_case_entry *entry, a_case_node **below,
                a_case_node **above) {
  while (tree != nullptr) {
    if (cmp_integer_constants(low_value(tree->entry), low_value(entry)) < 0) {
      *below = tree;
      below = &tree->right;
      tree = tree->right;
    } else {
      *above = tree;
      above = &tree->left;
      tree = tree->left;
    }
  }
  *below = *above = nullptr;
}

void insert_in_tree(a_case_node **tree, a_switch_case_entry *entry) {
  a_case_node *node = alloc_case_node(entry);
  while (*tree != nullptr && (*tree)->priority >= node->priority)
    tree = cmp_integer_constants(low_value(entry), low_value((*tree)->entry)) < 0 ? &(*tree)->left
                                                                                  : &(*tree)->right;
  split_tree(*tree, entry, &node->left, &node->right);
  *tree = node;
}

// Links the entries of the tree by value; gives the last link.
a_switch_case_entry **link_sorted(a_case_node *tree, a_switch_case_entry **link) {
  for (; tree != nullptr; tree = tree->right) {
    link = link_sorted(tree->left, link);
    *link = tree->entry;
    link = &tree->entry->next_sorted;
  }
  *link = nullptr;
  return link;
}

void report_conflict(const a_switch_case_entry *entry, const a_switch_case_entry *earlier) {
  pos2_error(ec_case_label_conflict, &entry->value_position, &earlier->value_position);
}

void sort_case(a_struct_stmt_stack_entry &entry, a_switch_case_entry *added) {
  a_switch_supplement *supplement = entry.statement->switch_supplement;
  if (entry.highest_case == nullptr || lies_before(entry.highest_case, added)) {
    // Ascending. The sorted list is the one in order of the source while there is no tree.
    if (entry.case_tree == nullptr) {
      if (entry.highest_case == nullptr)
        supplement->sorted_cases = added;
      else
        entry.highest_case->next_sorted = added;
    } else {
      insert_in_tree(&entry.case_tree, added);
    }
    entry.highest_case = added;
    return;
  }
  if (entry.case_tree == nullptr) {
    for (a_switch_case_entry *old = supplement->sorted_cases; old != nullptr;
         old = old->next_sorted)
      insert_in_tree(&entry.case_tree, old);
  }
  a_switch_case_entry *earlier = find_conflict(entry.case_tree, added);
  if (earlier != nullptr) {
    report_conflict(added, earlier);
    entry.case_error = true;
    return;
  }
  insert_in_tree(&entry.case_tree, added);
}

void add_case_to_struct_stmt_stack_entry(a_switch_case_entry *added,
                                         a_struct_stmt_stack_entry &entry) {
  a_switch_supplement *supplement = entry.statement->switch_supplement;
  if (added->is_default) {
    if (supplement->default_case != nullptr) {
      pos_error(ec_default_label_appears_more_than_once, &added->position);
      entry.case_error = true;
    } else {
      supplement->default_case = added;
    }
  }
  if (supplement->last_case == nullptr)
    supplement->first_case = added;
  else
    supplement->last_case->next = added;
  supplement->last_case = added;
  if (added->case_value == nullptr) return;
  if (added->case_value->kind != ck_integer) {
    entry.case_error = true;
    return;
  }
  sort_case(entry, added);
}

// The statement of a label, in the innermost list; the entry of the switch stands further out.
void enter_case(int depth, a_switch_case_entry *added) {
  a_struct_stmt_stack_entry &entry = stmt_entry(depth);
  added->falls_in = stmt_reachable;
  a_statement *statement = add_statement_at_stmt_pos(stmk_case, &added->position);
  statement->switch_case_entry = added;
  added->statement = statement;
  add_case_to_struct_stmt_stack_entry(added, entry);
  top_stmt_entry().has_label_or_case = true;
  check_jump(entry.descr_at_entry, innermost_descr, &added->position);
  a_reachability state = curr_reachability();
  merge_reachability(&state, entry.saved);
  if (state.stmt_reachable && state.end_reachable) state.unreachable_reported = false;
  set_reachability(state);
}

a_constant *scan_case_value(const a_struct_stmt_stack_entry *entry) {
  a_type *type = entry != nullptr ? entry->switch_orig_type : integer_type(ik_int);
  a_type *promoted = entry != nullptr ? entry->switch_type : type;
  return scan_case_label_constant(type, promoted);
}

void scan_range_end(const a_struct_stmt_stack_entry *entry, a_switch_case_entry *added) {
  get_token();
  added->range_end_position = pos_curr_token;
  a_constant *end = scan_case_value(entry);
  if (end == nullptr || added->case_value == nullptr || end->kind != ck_integer ||
      added->case_value->kind != ck_integer)
    return;
  int order = cmp_integer_constants(end, added->case_value);
  if (order < 0) pos_error(ec_invalid_case_range, &added->range_end_position);
  if (order <= 0) return;
  added->range_end_value = end;
  added->is_range = true;
}

}  // namespace

// case constant-expression [ ... constant-expression ] :
void scan_case_label() {
  a_source_position position = pos_curr_token;
  int depth = nearest_stmt_entry(ssk_switch, ssk_switch);
  if (depth < 0) pos_error(ec_case_label_must_be_in_switch, &position);
  const a_struct_stmt_stack_entry *entry = depth < 0 ? nullptr : &stmt_entry(depth);
  add_stop_token(tok_colon);
  get_token();
  a_switch_case_entry *added = alloc_switch_case_entry();
  added->position = position;
  added->value_position = pos_curr_token;
  added->case_value = scan_case_value(entry);
  if (curr_token == tok_ellipsis && gnu_mode) scan_range_end(entry, added);
  required_token(tok_colon, ec_exp_colon);
  remove_stop_token(tok_colon);
  if (depth >= 0 && added->case_value != nullptr)
    enter_case(depth, added);
  else
    set_reachable();
}

// default :
void scan_default_label() {
  a_source_position position = pos_curr_token;
  int depth = nearest_stmt_entry(ssk_switch, ssk_switch);
  if (depth < 0) pos_error(ec_default_label_must_be_in_switch, &position);
  add_stop_token(tok_colon);
  get_token();
  required_token(tok_colon, ec_exp_colon);
  remove_stop_token(tok_colon);
  if (depth < 0) {
    set_reachable();
    return;
  }
  a_switch_case_entry *added = alloc_switch_case_entry();
  added->position = added->value_position = position;
  added->is_default = true;
  enter_case(depth, added);
}

// switch ( expression ) statement
// C11 6.8.4.2
void scan_switch_statement() {
  a_source_position position = pos_curr_token;
  warn_if_code_is_unreachable(ec_code_is_unreachable, &position);
  a_statement *statement = add_statement_at_stmt_pos(stmk_switch, &position);
  push_struct_stmt_entry(ssk_switch, statement);
  get_token();
  add_stop_token(tok_rparen);
  bool has_paren = scan_left_paren_of_condition();
  a_source_position expr_position = pos_curr_token;
  a_type *orig_type = integer_type(ik_int);
  if (has_paren) {
    statement->expr = scan_integer_expression(&orig_type);
    scan_right_paren_of_condition();
  } else {
    statement->expr = error_node();
    statement->expr->type = orig_type;
    if (curr_token == tok_rparen) get_token();
  }
  remove_stop_token(tok_rparen);
  if (statement->expr->kind == enk_constant)
    pos_remark(ec_switch_selector_expr_is_constant, &expr_position);
  {
    a_struct_stmt_stack_entry &entry = top_stmt_entry();
    entry.switch_type = statement->expr->type;
    entry.switch_orig_type = orig_type != nullptr ? orig_type : entry.switch_type;
    entry.saved = curr_reachability();
  }
  set_reachability(not_reachable);
  scan_dependent_statement();
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  merge_reachability(&entry.merged, curr_reachability());
  a_switch_supplement *supplement = statement->switch_supplement;
  if (supplement->default_case == nullptr) merge_reachability(&entry.merged, entry.saved);
  if (entry.case_tree != nullptr) {
    link_sorted(entry.case_tree, &supplement->sorted_cases);
    free_case_tree(entry.case_tree);
  }
  if (entry.case_error) supplement->sorted_cases = nullptr;
  a_label *break_label = entry.break_label;
  a_reachability after = entry.merged;
  if (after.stmt_reachable && after.end_reachable) after.unreachable_reported = false;
  statement->end_position = end_pos_curr_token;
  // Labels inside belong to this switch: for what is around it, no jump comes in.
  pop_struct_stmt_entry();
  if (break_label != nullptr) place_label(break_label, &statement->end_position);
  set_reachability(after);
}
