// Statements of C: each expression is lowered, and what it puts in front is placed.
//
// Most statements simply become a block: the run, then the statement. A loop asks its condition
// again and again, so the run goes into the body:
//
//     while (({ a; b; })) s     while (1) { a; if (!b) goto out; s }  out:
//     do s while (({ a; b; }))  do { s  a; } while (b)
//     for (i; ({ a; b; }); ({ c; d; })) s
//                               for (i;;) { a; if (!b) goto out; s  c; d; }  out:
//
// The label of continue stands at the end of s, in front of what is added there.
#include "DIAG/error.h"
#include "lower/lower_internal.h"
#include "semantics/types.h"

namespace {

a_statement *made_statement(a_statement_kind kind, const a_statement *like) {
  a_statement *statement = alloc_statement(kind);
  statement->position = like->position;
  statement->end_position = like->end_position;
  statement->is_generated = true;
  return statement;
}

a_statement *made_block(a_statement_run run, const a_statement *like) {
  a_statement *block = made_statement(stmk_block, like);
  block->block_supplement->is_generated = true;
  block->block_supplement->end_position = like->end_position;
  block->first_statement = run.first;
  for (a_statement *s = run.first; s != nullptr; s = s->next)
    s->parent = block;
  return block;
}

// The pragmas of a statement follow it when a block takes its place.
void move_pragmas(a_scope *scope, const a_statement *from, a_statement *to) {
  for (a_pragma *pragma = scope->pragmas; pragma != nullptr; pragma = pragma->next)
    if (pragma->entity == from) pragma->entity = to;
  for (a_scope *inner = scope->nested_scopes; inner != nullptr; inner = inner->next)
    move_pragmas(inner, from, to);
}

// { run statement }; gives the statement, which has moved.
a_statement *put_in_front(a_statement *statement, a_statement_run run) {
  if (run.first == nullptr) return statement;
  bool has_pragma = statement->has_associated_pragma;
  change_statement_into_block(statement);
  a_statement *child = statement->first_statement;
  if (has_pragma) move_pragmas(lowered_scope, statement, child);
  for (a_statement *s = run.first; s != nullptr; s = s->next)
    s->parent = statement;
  run.last->next = child;
  statement->first_statement = run.first;
  return child;
}

void put_behind(a_statement *statement, a_statement *child, a_statement *added) {
  if (child == statement) {
    bool has_pragma = statement->has_associated_pragma;
    change_statement_into_block(statement);
    child = statement->first_statement;
    if (has_pragma) move_pragmas(lowered_scope, statement, child);
  }
  added->parent = statement;
  child->next = added;
}

// Lowers the expression for a place where statements can go in front.
a_statement_run lower_in_new_run(an_expr_node *expr, bool is_discarded) {
  a_statement_run run = {};
  if (expr == nullptr) return run;
  a_statement_run *outer = current_run;
  current_run = &run;
  lower_expr(expr, is_discarded);
  current_run = outer;
  return run;
}

a_statement *made_label(const a_statement *like) {
  a_label *label = alloc_label();
  label->is_compiler_generated = label->is_break_label = true;
  label->is_defined = label->is_used = true;
  label->next = lowered_scope->labels;
  lowered_scope->labels = label;
  set_parent_scope(label, iek_label, lowered_scope);
  a_statement *statement = made_statement(stmk_label, like);
  statement->label = label;
  label->statement = statement;
  return statement;
}

// if (!condition) goto label;
a_statement *leave_unless(an_expr_node *condition, a_label *label, const a_statement *like) {
  a_statement *statement = made_statement(stmk_if, like);
  statement->expr = not_node(moved_node(condition));
  a_statement *jump = made_statement(stmk_goto, like);
  jump->label = label;
  jump->is_break = true;
  jump->parent = statement;
  statement->then_stmt = jump;
  return statement;
}

void append_all(a_statement_run *run, a_statement_run added) {
  if (added.first == nullptr) return;
  (run->first == nullptr ? run->first : run->last->next) = added.first;
  run->last = added.last;
}

void append_body(a_statement_run *run, a_statement *body) {
  if (body != nullptr) append_to_run(run, body);
}

// The statements of a condition in front of the body, with the way out of the loop; gives the label
// to be placed behind it.
a_statement *move_condition_into_body(a_statement *loop, a_statement_run condition_run) {
  a_statement *out = made_label(loop);
  append_to_run(&condition_run, leave_unless(loop->expr, out->label, loop));
  append_body(&condition_run, loop->body);
  loop->body = made_block(condition_run, loop);
  loop->body->parent = loop;
  return out;
}

void lower_while(a_statement *statement) {
  a_statement_run run = lower_in_new_run(statement->expr, false);
  lower_statement(statement->body);
  if (run.first == nullptr) return;
  a_statement *out = move_condition_into_body(statement, run);
  statement->expr = int_node(1);
  put_behind(statement, statement, out);
}

void lower_do(a_statement *statement) {
  lower_statement(statement->body);
  a_statement_run run = lower_in_new_run(statement->expr, false);
  if (run.first == nullptr) return;
  a_statement_run body = {};
  append_body(&body, statement->body);
  append_all(&body, run);
  statement->body = made_block(body, statement);
  statement->body->parent = statement;
}

void lower_for(a_statement *statement) {
  a_for_loop_supplement *supplement = statement->for_supplement;
  lower_statement_list(supplement->init_statement);
  a_statement_run condition_run = lower_in_new_run(statement->expr, false);
  a_statement_run increment_run = lower_in_new_run(supplement->increment_expr, true);
  lower_statement(statement->body);
  if (increment_run.first != nullptr) {
    a_statement_run body = {};
    append_body(&body, statement->body);
    append_all(&body, increment_run);
    append_to_run(&body, make_expr_statement(moved_node(supplement->increment_expr)));
    statement->body = made_block(body, statement);
    statement->body->parent = statement;
    supplement->increment_expr = nullptr;
  }
  if (condition_run.first == nullptr) return;
  a_statement *out = move_condition_into_body(statement, condition_run);
  statement->expr = nullptr;
  put_behind(statement, statement, out);
}

// A long range of case labels makes the generator write the selector more than once.
void make_selector_stable(an_expr_node *selector, a_statement_run *run) {
  if (selector->kind == enk_variable || selector->kind == enk_constant) return;
  a_variable *temporary;
  an_expr_node *assignment = assign_expr_to_temp(moved_node(selector), &temporary);
  append_to_run(run, make_expr_statement(assignment));
  replace_node(selector, var_rvalue_expr(temporary));
}

bool has_case_range(const a_switch_supplement *supplement) {
  for (const a_switch_case_entry *e = supplement->first_case; e != nullptr; e = e->next)
    if (e->range_end_value != nullptr) return true;
  return false;
}

void lower_switch(a_statement *statement) {
  a_statement_run run = lower_in_new_run(statement->expr, false);
  if (has_case_range(statement->switch_supplement)) make_selector_stable(statement->expr, &run);
  lower_statement(statement->body);
  put_in_front(statement, run);
}

void lower_return(a_statement *statement) {
  an_expr_node *value = statement->expr;
  a_dynamic_init *init = statement->return_init;
  if (init != nullptr && (init->kind == dik_expression || init->kind == dik_call)) {
    init->kind = dik_expression;
    value = init->expr;
  } else if (init != nullptr && init->kind == dik_constant) {
    lower_constant(init->constant);
  }
  put_in_front(statement, lower_in_new_run(value, false));
}

void lower_if(a_statement *statement) {
  a_statement_run run = lower_in_new_run(statement->expr, false);
  lower_statement(statement->then_stmt);
  lower_statement(statement->else_stmt);
  put_in_front(statement, run);
}

}  // namespace

void lower_statement(a_statement *statement) {
  if (statement == nullptr || statement->is_lowered) return;
  statement->is_lowered = true;
  switch (statement->kind) {
    case stmk_expr:
    case stmk_stmt_expr_result:
      put_in_front(statement, lower_in_new_run(statement->expr, true));
      break;
    case stmk_if:
      lower_if(statement);
      break;
    case stmk_while:
      lower_while(statement);
      break;
    case stmk_do:
      lower_do(statement);
      break;
    case stmk_for:
      lower_for(statement);
      break;
    case stmk_switch:
      lower_switch(statement);
      break;
    case stmk_case:
      lower_statement(statement->body);
      break;
    case stmk_return:
      lower_return(statement);
      break;
    case stmk_block:
      lower_statement_list(statement->first_statement);
      break;
    case stmk_init:
      lower_stmk_init(statement);
      break;
    case stmk_set_vla_size:
    case stmk_vla_decl:
      pos_st_error(ec_not_supported, &statement->position, "a variable-length array is");
      break;
    default:
      break;
  }
}

void lower_statement_list(a_statement *first) {
  // A statement that becomes a block keeps its link, so the next one is asked for behind it.
  for (a_statement *statement = first; statement != nullptr; statement = statement->next)
    lower_statement(statement);
}
