// Expressions of C: statement expressions, _Bool, and the operators that the generator lacks.
//
// A statement expression cannot stay where it stands:
//
//     x = f(a++, ({ int t = g(); if (!t) goto out; t * t; }), b);
//
// Its block runs in front of the whole statement, its value waits in a temporary. What the source
// evaluates before it must then run in front, too: the earlier operands of every operator around it
// go into temporaries, placed before the block. Lowering goes from left to right with one run of
// statements that grows at its end, so that the place is simply where the run ended when the
// operand began. Where an operand is evaluated only sometimes (&&, ||, ?:) it gets a run of its
// own; if the run stays empty the operator stays, else it becomes an if statement. Each node is
// visited once, and saved at most once.
//
// Saving everything first and turning each operator into statements would be simpler, but would
// flatten every expression of a function that has one statement expression somewhere.
#include "DIAG/error.h"
#include "lower/lower_c99.h"
#include "lower/lower_internal.h"
#include "semantics/types.h"

// ---- Runs of statements ------------------------------------------------------------------------

void append_to_run(a_statement_run *run, a_statement *statement) {
  statement->next = nullptr;
  (run->first == nullptr ? run->first : run->last->next) = statement;
  run->last = statement;
}

a_statement *insert_in_run(a_statement *place, a_statement *statement) {
  check_invariant(current_run != nullptr);
  a_statement *&link = place == nullptr ? current_run->first : place->next;
  statement->next = link;
  link = statement;
  if (current_run->last == place) current_run->last = statement;
  return statement;
}

a_statement_run lower_expr_in_own_run(an_expr_node *expr, bool is_discarded) {
  a_statement_run run = {};
  a_statement_run *outer = current_run;
  if (outer != nullptr) current_run = &run;
  lower_expr(expr, is_discarded);
  current_run = outer;
  return run;
}

namespace {

a_statement *end_of_run() {
  return current_run == nullptr ? nullptr : current_run->last;
}

a_statement *made_statement(an_expr_node *expr, const an_expr_node *for_position) {
  a_statement *statement = make_expr_statement(expr);
  statement->position = for_position->position;
  statement->end_position = for_position->end_position;
  statement->is_generated = true;
  return statement;
}

void append_expr(a_statement_run *run, an_expr_node *expr, const an_expr_node *for_position) {
  append_to_run(run, made_statement(expr, for_position));
}

a_statement *made_block(a_statement_run run, const an_expr_node *for_position) {
  a_statement *block = alloc_statement(stmk_block);
  block->position = for_position->position;
  block->end_position = block->block_supplement->end_position = for_position->end_position;
  block->is_generated = block->block_supplement->is_generated = true;
  block->first_statement = run.first;
  for (a_statement *s = run.first; s != nullptr; s = s->next)
    s->parent = block;
  return block;
}

// Runs one of two runs, at the end of the current one.
void append_if(an_expr_node *condition, a_statement_run then_run, a_statement_run else_run,
               const an_expr_node *for_position) {
  a_statement *statement = alloc_statement(stmk_if);
  statement->position = for_position->position;
  statement->end_position = for_position->end_position;
  statement->is_generated = true;
  condition->next = nullptr;
  statement->expr = condition;
  statement->then_stmt = made_block(then_run, for_position);
  statement->then_stmt->parent = statement;
  if (else_run.first != nullptr) {
    statement->else_stmt = made_block(else_run, for_position);
    statement->else_stmt->parent = statement;
  }
  append_to_run(current_run, statement);
}

// ---- Earlier operands --------------------------------------------------------------------------

void save_value(an_expr_node *value, a_statement **place) {
  a_variable *temporary;
  an_expr_node *assignment = assign_expr_to_temp(moved_node(value), &temporary);
  *place = insert_in_run(*place, made_statement(assignment, value));
  replace_node(value, var_rvalue_expr(temporary));
}

// The place that an lvalue names is settled; what is there may still change.
void save_place(an_expr_node *lvalue, a_statement **place) {
  if (!has_side_effects(lvalue)) return;
  an_expr_node *setup = nullptr;
  an_expr_node *second = reusable_lvalue(lvalue, &setup);
  if (setup != nullptr) *place = insert_in_run(*place, made_statement(setup, lvalue));
  replace_node(lvalue, second);
}

// Its only value was assigned in front.
bool is_made_temporary(const an_expr_node *value) {
  return value->kind == enk_variable && value->variable->is_temporary &&
         value->variable->is_compiler_generated && !value->variable->address_taken;
}

void save_operand(an_expr_node *operand, a_statement **place) {
  if (operand->kind == enk_constant || operand->kind == enk_field || operand->kind == enk_routine ||
      is_function_type(operand->type) || is_operation_node(operand, eok_function_to_pointer))
    return;
  if (is_operation_node(operand, eok_address_of) ||
      is_operation_node(operand, eok_array_to_pointer))
    save_place(operand->operands, place);
  else if (operand->is_lvalue)
    save_place(operand, place);
  else if (is_void_type(operand->type)) {
    *place = insert_in_run(*place, made_statement(moved_node(operand), operand));
    replace_node(operand, zero_cast_to_void());
  } else if (!is_made_temporary(operand)) {
    save_value(operand, place);
  }
}

void lower_operands(an_expr_node *expr) {
  for (an_expr_node *operand = expr->operands; operand != nullptr; operand = operand->next) {
    a_statement *before = end_of_run();
    lower_expr(operand, is_operation_node(expr, eok_cast) && is_void_type(expr->type));
    if (operand->is_lvalue) lower_place(operand);
    if (end_of_run() == before) continue;
    // What stood in the run when the first operand began stays in front.
    a_statement *place = before;
    for (an_expr_node *earlier = expr->operands; earlier != operand; earlier = earlier->next)
      save_operand(earlier, &place);
  }
}

// ---- Operators with a sequence point -----------------------------------------------------------

// a && b, a || b
void lower_logical(an_expr_node *expr, bool is_discarded) {
  an_expr_node *left = expr->operands, *right = left->next;
  lower_expr(left, false);
  a_statement_run run = lower_expr_in_own_run(right, false);
  if (run.first == nullptr) return;
  bool is_or = expr->op == eok_lor;
  if (is_discarded) {
    append_expr(&run, moved_node(right), right);
    an_expr_node *condition = moved_node(left);
    append_if(is_or ? not_node(condition) : condition, run, {}, expr);
    replace_node(expr, int_node(0));
    return;
  }
  a_variable *result = make_local_temporary(integer_type(ik_int));
  an_expr_node *first = make_var_assignment_expr(result, boolean_value(moved_node(left)));
  append_expr(current_run, first, left);
  an_expr_node *second = make_var_assignment_expr(result, boolean_value(moved_node(right)));
  append_expr(&run, second, right);
  an_expr_node *condition = var_rvalue_expr(result);
  append_if(is_or ? not_node(condition) : condition, run, {}, expr);
  replace_node(expr, var_rvalue_expr(result));
}

// The value of an arm goes into the temporary.
void finish_arm(a_statement_run *run, an_expr_node *arm, a_variable *result) {
  an_expr_node *value = moved_node(arm);
  append_expr(run, result == nullptr ? value : make_var_assignment_expr(result, value), arm);
}

// c ? a : b
void lower_question(an_expr_node *expr, bool is_discarded) {
  an_expr_node *condition = expr->operands;
  an_expr_node *arms[2] = {condition->next, condition->next->next};
  lower_expr(condition, false);
  a_statement_run runs[2];
  for (int i = 0; i < 2; i++)
    runs[i] = lower_expr_in_own_run(arms[i], is_discarded);
  if (runs[0].first == nullptr && runs[1].first == nullptr) return;
  bool is_place = expr->is_lvalue;
  bool no_value = is_discarded || is_void_type(expr->type);
  a_variable *result = nullptr;
  if (!no_value)
    result = make_local_temporary(is_place ? make_pointer_type(expr->type) : expr->type);
  for (int i = 0; i < 2; i++) {
    if (is_place && !no_value) {
      lower_place(arms[i]);
      replace_node(arms[i], add_address_of_to_node(moved_node(arms[i])));
    }
    finish_arm(&runs[i], arms[i], result);
  }
  append_if(moved_node(condition), runs[0], runs[1], expr);
  if (no_value)
    replace_node(expr, is_void_type(expr->type) ? zero_cast_to_void() : int_node(0));
  else if (is_place)
    replace_node(expr, add_indirection_to_node(var_rvalue_expr(result)));
  else
    replace_node(expr, var_rvalue_expr(result));
}

// a, b
void lower_comma(an_expr_node *expr, bool is_discarded) {
  an_expr_node *left = expr->operands, *right = left->next;
  lower_expr(left, true);
  a_statement *before = end_of_run();
  lower_expr(right, is_discarded);
  if (end_of_run() == before) return;
  insert_in_run(before, made_statement(moved_node(left), left));
  replace_node(expr, moved_node(right));
}

// ---- Statement expressions ---------------------------------------------------------------------

// The statement that gives the value; null: there is none.
a_statement *result_statement(a_statement *block) {
  a_statement *last = block->first_statement;
  if (last == nullptr) return nullptr;
  while (last->next != nullptr)
    last = last->next;
  return last->kind == stmk_stmt_expr_result ? last : nullptr;
}

// ({ ... e; })
void lower_gnu_statement_expression(an_expr_node *expr, bool is_discarded) {
  check_invariant(current_run != nullptr);
  a_statement *block = expr->statement;
  a_statement *result = result_statement(block);
  an_expr_node *value = nullptr;
  if (result != nullptr) {
    value = result->expr;
    if (value == nullptr && result->init != nullptr) value = result->init->expr;
    set_statement_kind(result, stmk_expr);
    result->expr = value;
  }
  a_variable *temporary = nullptr;
  if (value != nullptr && !is_discarded && !is_void_type(expr->type)) {
    temporary = make_local_temporary(expr->type);
    result->expr = make_var_assignment_expr(temporary, value);
  }
  lower_statement(block);
  append_to_run(current_run, block);
  if (temporary != nullptr)
    replace_node(expr, var_rvalue_expr(temporary));
  else if (is_void_type(expr->type))
    replace_node(expr, zero_cast_to_void());
  else
    replace_node(expr,
                 is_discarded || !is_scalar_type(expr->type) ? int_node(0) : zero_node(expr->type));
}

// ---- _Bool -------------------------------------------------------------------------------------

// The conversion to _Bool asks whether the value is not zero; only 0 and 1 are ever converted.
void lower_bool_cast(an_expr_node *expr) {
  an_expr_node *operand = moved_node(expr->operands);
  if (is_bool_type(operand->type)) {
    operand->is_lvalue = false;
    replace_node(expr, operand);
    return;
  }
  a_type *type = expr->type;
  replace_node(expr, add_cast(boolean_value(operand), type));
}

// b++, --b
void lower_bool_incr_decr(an_expr_node *expr, bool is_discarded) {
  bool is_incr = expr->op == eok_post_incr || expr->op == eok_pre_incr;
  bool is_post = expr->op == eok_post_incr || expr->op == eok_post_decr;
  a_type *type = make_unqualified_type(expr->type);
  an_expr_node *lvalue = moved_node(expr->operands);
  an_expr_node *setup = nullptr;
  an_expr_node *old = nullptr;
  a_variable *temporary = nullptr;
  if (!is_incr || (is_post && !is_discarded))
    old = rvalue_expr_for_lvalue(reusable_lvalue(lvalue, &setup));
  if (is_post && !is_discarded) {
    setup = setup == nullptr ? assign_expr_to_temp(old, &temporary)
                             : comma_node(setup, assign_expr_to_temp(old, &temporary));
    old = var_rvalue_expr(temporary);
  }
  an_expr_node *value = is_incr ? int_node(1) : not_node(old);
  an_expr_node *result = assignment_node(lvalue, add_cast(value, type));
  if (temporary != nullptr) result = comma_node(result, var_rvalue_expr(temporary));
  replace_node(expr, with_setup(setup, result));
}

an_expr_operator_kind corresponding_operator_for_compound_assignment(an_expr_operator_kind op) {
  switch (op) {
    case eok_add_assign:
      return eok_add;
    case eok_subtract_assign:
      return eok_subtract;
    case eok_multiply_assign:
      return eok_multiply;
    case eok_divide_assign:
      return eok_divide;
    case eok_remainder_assign:
      return eok_remainder;
    case eok_shift_left_assign:
      return eok_shift_left;
    case eok_shift_right_assign:
      return eok_shift_right;
    case eok_and_assign:
      return eok_and;
    case eok_or_assign:
      return eok_or;
    case eok_xor_assign:
      return eok_xor;
    case eok_ptr_add_assign:
      return eok_ptr_add;
    default:
      return eok_ptr_subtract;
  }
}

// b += x  is  b = (b + x) != 0
void rewrite_compound_assignment(an_expr_node *expr) {
  an_expr_operator_kind op = corresponding_operator_for_compound_assignment(expr->op);
  an_expr_node *lvalue = moved_node(expr->operands);
  an_expr_node *right = moved_node(expr->operands->next);
  a_type *type = make_unqualified_type(lvalue->type);
  an_expr_node *setup = nullptr;
  an_expr_node *left = rvalue_expr_for_lvalue(reusable_lvalue(lvalue, &setup));
  a_type *operation_type;
  if (op == eok_shift_left || op == eok_shift_right) {
    operation_type = type_after_integral_promotion(left->type);
  } else {
    operation_type = usual_arithmetic_conversions(left->type, right->type);
    right = add_cast_if_necessary(right, operation_type);
  }
  left = add_cast_if_necessary(left, operation_type);
  an_expr_node *value = binary_node(op, operation_type, left, right);
  an_expr_node *result = assignment_node(lvalue, add_cast(boolean_value(value), type));
  replace_node(expr, with_setup(setup, result));
}

// ---- Other operators ---------------------------------------------------------------------------

// +x
void lower_unary_plus(an_expr_node *expr) {
  an_expr_node *operand = moved_node(expr->operands);
  a_type *type = expr->type;
  operand->is_lvalue = false;
  replace_node(expr, add_cast_if_necessary(operand, type));
}

// (e), __extension__ e
void strip_operator(an_expr_node *expr) {
  bool is_lvalue = expr->is_lvalue;
  an_expr_node *operand = moved_node(expr->operands);
  operand->is_lvalue = is_lvalue;
  replace_node(expr, operand);
}

// a <? b
void lower_min_max(an_expr_node *expr) {
  an_expr_node *setup = nullptr;
  a_type *type = expr->type;
  an_expr_node *left = moved_node(expr->operands), *right = moved_node(expr->operands->next);
  an_expr_node *second_left = reusable_value(left, &setup);
  an_expr_node *second_right = reusable_value(right, &setup);
  an_expr_operator_kind op = expr->op == eok_min ? eok_lt : eok_gt;
  an_expr_node *condition = binary_node(op, integer_type(ik_int), left, right);
  replace_node(expr,
               with_setup(setup, conditional_node(type, condition, second_left, second_right)));
}

bool is_step(an_expr_operator_kind op) {
  return op >= eok_post_incr && op <= eok_pre_decr;
}

void lower_operation(an_expr_node *expr, bool is_discarded) {
  switch (expr->op) {
    case eok_land:
    case eok_lor:
      lower_logical(expr, is_discarded);
      return;
    case eok_conditional:
    case eok_lvalue_conditional:
      lower_question(expr, is_discarded);
      return;
    case eok_comma:
      lower_comma(expr, is_discarded);
      return;
    default:
      break;
  }
  lower_operands(expr);
  if (is_step(expr->op)) {
    if (is_bool_type(expr->operands->type)) lower_bool_incr_decr(expr, is_discarded);
    return;
  }
  if (is_compound_assignment_operator(expr->op)) {
    if (is_bool_type(expr->operands->type)) rewrite_compound_assignment(expr);
    return;
  }
  switch (expr->op) {
    case eok_parens:
    case eok_extension:
    case eok_lvalue_to_rvalue:
      strip_operator(expr);
      break;
    case eok_unary_plus:
      lower_unary_plus(expr);
      break;
    case eok_bool_cast:
      lower_bool_cast(expr);
      break;
    case eok_cast:
      if (is_bool_type(expr->type)) lower_bool_cast(expr);
      break;
    case eok_min:
    case eok_max:
      lower_min_max(expr);
      break;
    case eok_address_of:
    case eok_array_to_pointer:
      lower_address_operation(expr);
      break;
    case eok_dot_field:
      lower_rvalue_selection(expr);
      break;
    case eok_va_arg:
    case eok_va_start:
    case eok_va_end:
    case eok_va_copy:
      lower_va_operation(expr);
      break;
    case eok_assume:
      replace_node(expr, zero_cast_to_void());
      break;
    case eok_call:
      lower_builtins(expr);
      break;
    default:
      break;
  }
}

// The value of an aggregate has to stand somewhere.
void lower_constant_expr(an_expr_node *expr) {
  a_constant *constant = expr->constant;
  lower_constant(constant);
  if (constant->kind != ck_aggregate) return;
  bool is_lvalue = expr->is_lvalue;
  an_expr_node *variable = var_lvalue_expr(assoc_var_for_constant(constant, constant->type));
  variable->is_lvalue = is_lvalue;
  replace_node(expr, variable);
}

}  // namespace

void lower_expr(an_expr_node *expr, bool is_discarded) {
  if (report_unlowered_c99_expr(expr)) return;
  switch (expr->kind) {
    case enk_operation:
      lower_operation(expr, is_discarded);
      break;
    case enk_constant:
      lower_constant_expr(expr);
      break;
    case enk_temp_init:
      lower_temp_init(expr);
      break;
    case enk_statement_expr:
      lower_gnu_statement_expression(expr, is_discarded);
      break;
    case enk_object_lifetime: {
      an_expr_node *inner = moved_node(expr->lifetime_expr);
      lower_expr(inner, is_discarded);
      replace_node(expr, inner);
      break;
    }
    default:
      break;
  }
}

void lower_full_expr(an_expr_node *expr) {
  a_statement_run run = lower_expr_in_own_run(expr, false);
  check_invariant(run.first == nullptr);
}
