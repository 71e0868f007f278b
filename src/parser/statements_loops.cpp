// if, while, do and for.
//
// Reachability behind a construct is the or of its ways out. A constant condition closes the way
// that it excludes, unless a label inside lets a jump come in.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/decls.h"
#include "parser/disambig.h"
#include "parser/expr.h"
#include "parser/statements_internal.h"
#include "semantics/scope_stk.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

bool body_is_a_scope() {
  return in_cplusplus() || std_version >= 199901;
}

// Is the node a constant, and which truth value has it?
void find_truth_value(const an_expr_node *node, bool *is_true, bool *is_false) {
  *is_true = *is_false = false;
  if (node == nullptr || node->kind != enk_constant) return;
  const a_constant *constant = node->constant;
  if (constant->kind != ck_integer) return;
  *is_false = constant->integer_value == 0;
  *is_true = !*is_false;
}

// A loop that control does not come to and does not jump into.
void warn_if_loop_is_not_reachable(const a_struct_stmt_stack_entry &entry) {
  if (entry.saved.stmt_reachable || entry.saved.unreachable_reported || entry.has_label_or_case)
    return;
  pos_warning(ec_loop_not_reachable, &entry.statement_pos);
}

// The body of a loop that is not reached is left without warnings of its own.
void start_loop_body(const a_struct_stmt_stack_entry &entry) {
  if (!entry.saved.stmt_reachable) unreachable_reported = true;
}

// Places the label of continue; control arrives there from the body's end and from each continue.
void finish_loop_body() {
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  if (entry.continue_label != nullptr) {
    a_source_position position = end_pos_curr_token;
    a_reachability state = curr_reachability();
    merge_reachability(&state, entry.at_continue);
    place_label(entry.continue_label, &position);
    if (state.stmt_reachable && state.end_reachable) state.unreachable_reported = false;
    set_reachability(state);
  }
}

// Leaves the loop. at_condition: where control stands when the condition is asked.
void finish_loop(const a_reachability &at_condition) {
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  warn_if_loop_is_not_reachable(entry);
  a_reachability after = entry.merged;
  if (!entry.condition_is_true) merge_reachability(&after, at_condition);
  if (!entry.saved.stmt_reachable && !after.stmt_reachable) after.unreachable_reported = true;
  if (after.stmt_reachable && after.end_reachable) after.unreachable_reported = false;
  a_label *break_label = entry.break_label;
  a_source_position position = end_pos_curr_token;
  pop_struct_stmt_entry();
  if (break_label != nullptr) place_label(break_label, &position);
  set_reachability(after);
}

void warn_if_body_is_empty(an_error_code code) {
  if (curr_token == tok_semicolon) pos_warning(code, &pos_curr_token);
}

// The statement with a block of its own around it.
void scan_statement_as_block() {
  a_statement *block = alloc_statement(stmk_block);
  block->position = pos_curr_token;
  block->is_generated = true;
  block->block_supplement->is_generated = true;
  add_statement_to_list(block);
  push_block_scope(nullptr);
  push_struct_stmt_entry(ssk_block, block);
  // A declaration is no statement; in C++ the block around it makes it one.
  scan_statement(!in_cplusplus(), false);
  block->end_position = block->block_supplement->end_position = pos_curr_token;
  block->block_supplement->scope = top_scope().il_scope;
  if (top_scope().il_scope != nullptr) top_scope().il_scope->block = block;
  pop_struct_stmt_entry();
  pop_block_scope(false);
}

}  // namespace

bool scan_left_paren_of_condition() {
  add_stop_token(tok_semicolon);
  add_stop_token(tok_lbrace);
  bool is_there = required_token(tok_lparen, ec_exp_lparen);
  remove_stop_token(tok_lbrace);
  remove_stop_token(tok_semicolon);
  return is_there;
}

// while (n { ... }   Whatever the body begins with ends the search for a forgotten ")".
void scan_right_paren_of_condition() {
  add_stop_token(tok_semicolon);
  add_stop_token(tok_lbrace);
  required_token(tok_rparen, ec_exp_rparen);
  remove_stop_token(tok_lbrace);
  remove_stop_token(tok_semicolon);
}

an_expr_node *scan_condition(bool *is_true, bool *is_false) {
  add_stop_token(tok_rparen);
  an_expr_node *node;
  if (scan_left_paren_of_condition()) {
    node = scan_boolean_controlling_expression();
    scan_right_paren_of_condition();
  } else {
    node = error_node();
    if (curr_token == tok_rparen) get_token();
  }
  remove_stop_token(tok_rparen);
  find_truth_value(node, is_true, is_false);
  return node;
}

void scan_dependent_statement() {
  const int depth = depth_stmt_stack;
  stmt_entry(depth).in_body = true;
  if (curr_token == tok_lbrace || !body_is_a_scope())
    scan_statement(true, false);
  else
    scan_statement_as_block();
  stmt_entry(depth).in_body = false;
}

// if ( expression ) statement [ else statement ]
// C11 6.8.4.1
void scan_if_statement() {
  a_source_position position = pos_curr_token;
  warn_if_code_is_unreachable(ec_code_is_unreachable, &position);
  a_statement *statement = add_statement_at_stmt_pos(stmk_if, &position);
  push_struct_stmt_entry(ssk_if, statement);
  get_token();
  bool is_true, is_false;
  statement->expr = scan_condition(&is_true, &is_false);
  a_reachability head = curr_reachability();
  warn_if_body_is_empty(ec_empty_then_statement);
  add_stop_token(tok_else);
  scan_dependent_statement();
  remove_stop_token(tok_else);
  a_reachability after = not_reachable;
  bool then_excluded = is_false && !top_stmt_entry().has_label_or_case;
  if (!then_excluded) merge_reachability(&after, curr_reachability());
  if (curr_token == tok_else) {
    statement->else_position = pos_curr_token;
    a_struct_stmt_stack_entry &entry = top_stmt_entry();
    entry.in_else = true;
    entry.wrapper = entry.last_statement = nullptr;
    bool label_before = entry.has_label_or_case;
    entry.has_label_or_case = false;
    set_reachability(head);
    get_token();
    warn_if_body_is_empty(ec_empty_else_statement);
    scan_dependent_statement();
    bool else_excluded = is_true && !top_stmt_entry().has_label_or_case;
    if (!else_excluded) merge_reachability(&after, curr_reachability());
    top_stmt_entry().has_label_or_case |= label_before;
  } else if (!is_true) {
    merge_reachability(&after, head);
  }
  statement->end_position = end_pos_curr_token;
  if (after.stmt_reachable && after.end_reachable) after.unreachable_reported = false;
  pop_struct_stmt_entry();
  set_reachability(after);
}

// while ( expression ) statement
void scan_while_statement() {
  a_source_position position = pos_curr_token;
  a_statement *statement = add_statement_at_stmt_pos(stmk_while, &position);
  push_struct_stmt_entry(ssk_while, statement);
  get_token();
  bool is_true, is_false;
  statement->expr = scan_condition(&is_true, &is_false);
  top_stmt_entry().condition_is_true = is_true;
  top_stmt_entry().condition_is_false = is_false;
  a_reachability at_condition = curr_reachability();
  start_loop_body(top_stmt_entry());
  scan_dependent_statement();
  finish_loop_body();
  merge_reachability(&at_condition, curr_reachability());
  statement->end_position = end_pos_curr_token;
  finish_loop(at_condition);
}

// do statement while ( expression ) ;
void scan_do_statement() {
  a_source_position position = pos_curr_token;
  a_statement *statement = add_statement_at_stmt_pos(stmk_do, &position);
  push_struct_stmt_entry(ssk_do, statement);
  get_token();
  start_loop_body(top_stmt_entry());
  add_stop_token(tok_while);
  add_stop_token(tok_semicolon);
  scan_dependent_statement();
  finish_loop_body();
  a_reachability at_condition = curr_reachability();
  bool is_true = false, is_false = false;
  bool has_while = required_token(tok_while, ec_exp_while);
  statement->expr = has_while ? scan_condition(&is_true, &is_false) : error_node();
  top_stmt_entry().condition_is_true = is_true;
  top_stmt_entry().condition_is_false = is_false;
  remove_stop_token(tok_while);
  statement->end_position = end_pos_curr_token;
  if (has_while || curr_token == tok_semicolon) required_token(tok_semicolon, ec_exp_semicolon);
  remove_stop_token(tok_semicolon);
  finish_loop(at_condition);
}

namespace {

// The first clause, up to and past its ";": a declaration, an expression or nothing. A declaration
// becomes a block of statements.
void scan_for_init(a_statement *for_statement) {
  a_for_loop_supplement *supplement = for_statement->for_supplement;
  if (curr_token == tok_semicolon) {
    get_token();
    return;
  }
  bool is_declaration = in_cplusplus() ? is_decl_not_expr(dam_statement | dam_for_init)
                                       : is_decl_start(dst_statement);
  if (is_declaration) {
    if (!in_cplusplus() && std_version < 199901)
      pos_error(ec_type_identifier_not_allowed, &pos_curr_token);
    a_statement *block = alloc_statement(stmk_block);
    block->position = pos_curr_token;
    block->parent = for_statement;
    block->is_generated = block->block_supplement->is_generated = true;
    supplement->init_statement = block;
    push_struct_stmt_entry(ssk_block, block);
    declaration(true);
    // What the declaration initializes is in force in the body, too.
    a_control_flow_descr *inside = innermost_descr;
    pop_struct_stmt_entry();
    innermost_descr = inside;
    return;
  }
  a_statement *init = alloc_statement(stmk_expr);
  init->position = pos_curr_token;
  init->parent = for_statement;
  a_dynamic_init *dynamic_init = nullptr;
  init->expr = scan_void_expression(nullptr, &dynamic_init);
  supplement->init_statement = init;
  required_token(tok_semicolon, ec_exp_semicolon);
}

void scan_for_condition(a_statement *statement) {
  bool is_true = true, is_false = false;
  if (curr_token != tok_semicolon) {
    statement->expr = scan_boolean_controlling_expression();
    find_truth_value(statement->expr, &is_true, &is_false);
  }
  top_stmt_entry().condition_is_true = is_true;
  top_stmt_entry().condition_is_false = is_false;
  required_token(tok_semicolon, ec_exp_semicolon);
}

// Evaluated behind the body: reached whenever the body is.
void scan_for_increment(a_statement *statement) {
  if (curr_token == tok_rparen) return;
  a_reachability state = curr_reachability();
  bool saved_suppress = suppress_used_before_set_warnings;
  suppress_used_before_set_warnings = true;
  set_reachable();
  a_dynamic_init *init = nullptr;
  statement->for_supplement->increment_expr = scan_void_expression(nullptr, &init);
  suppress_used_before_set_warnings = saved_suppress;
  set_reachability(state);
}

// The clauses and the parenthesis behind them.
void scan_for_clauses(a_statement *statement, a_reachability *at_condition) {
  add_stop_token(tok_rparen);
  add_stop_token(tok_semicolon);
  scan_for_init(statement);
  scan_for_condition(statement);
  remove_stop_token(tok_semicolon);
  *at_condition = curr_reachability();
  scan_for_increment(statement);
  if (curr_token == tok_semicolon && next_token() == tok_rparen) {
    // for (;; i++;)
    pos_syntax_error(ec_exp_rparen, &pos_curr_token);
    get_token();
  }
  scan_right_paren_of_condition();
  remove_stop_token(tok_rparen);
}

// for i = 0; i < n; i++) ...   without its parenthesis: what follows cannot be told apart.
void skip_for_clauses() {
  pos_syntax_error(ec_exp_lparen, &pos_curr_token);
  a_stop_token_count stops[tok_last] = {};
  stops[tok_rparen] = stops[tok_lbrace] = stops[tok_rbrace] = stops[tok_semicolon] = 1;
  for (int clause = 0; clause < 3; ++clause) {
    flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
    if (curr_token != tok_semicolon || clause == 2) break;
    get_token();
  }
  if (curr_token == tok_rparen) get_token();
}

}  // namespace

// for ( [expression] ; [expression] ; [expression] ) statement
// for ( declaration [expression] ; [expression] ) statement
// C11 6.8.5.3
void scan_for_statement() {
  a_source_position position = pos_curr_token;
  a_statement *statement = add_statement_at_stmt_pos(stmk_for, &position);
  push_struct_stmt_entry(ssk_for, statement);
  bool own_scope = body_is_a_scope() && !use_nonstandard_for_init_scope;
  if (own_scope) push_for_init_scope(nullptr);
  get_token();
  bool has_header = curr_token == tok_lparen;
  a_reachability at_condition = curr_reachability();
  if (has_header) {
    get_token();
    scan_for_clauses(statement, &at_condition);
  } else {
    skip_for_clauses();
  }
  start_loop_body(top_stmt_entry());
  scan_dependent_statement();
  finish_loop_body();
  merge_reachability(&at_condition, curr_reachability());
  statement->end_position = end_pos_curr_token;
  if (own_scope) {
    statement->for_supplement->scope = top_scope().il_scope;
    if (top_scope().il_scope != nullptr) top_scope().il_scope->is_for_init = true;
    pop_block_scope(false);
  }
  finish_loop(at_condition);
}
