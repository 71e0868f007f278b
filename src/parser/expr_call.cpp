// Function calls.
#include "driver/switches.h"
#include "il/il.h"
#include "parser/expr_internal.h"
#include "parser/format_check.h"
#include "semantics/folding.h"
#include "semantics/symbol_ref.h"
#include "semantics/sys_predef.h"
#include "semantics/types.h"

namespace {

a_routine *called_routine(const an_operand *function) {
  if (function->kind == ok_expression && function->expr->kind == enk_routine)
    return function->expr->routine;
  return nullptr;
}

// The type of the function that an operand calls; null after a message. The operand becomes the
// designator of a known function or a pointer.
a_type *prepare_callee(an_operand *function) {
  do_operand_transformations(function, dot_keep_function);
  if (function->kind == ok_error) return nullptr;
  if (function->value_category == vc_function) {
    change_ref_kinds(function, ref_call);
    a_type *type = skip_typerefs(function->type);
    if (called_routine(function) == nullptr) conv_function_designator_to_ptr_to_function(function);
    return type;
  }
  if (is_pointer_to_function_type(function->type))
    return skip_typerefs(type_pointed_to(function->type));
  error_in_operand(ec_expr_not_ptr_to_function, function);
  return nullptr;
}

// Converts one argument to the type of its parameter; a null parameter promotes it.
void prepare_argument(an_operand *argument, a_param_type *param) {
  if (param == nullptr || is_qx_wildcard_type(param->type)) {
    default_promote_argument(argument);
    return;
  }
  if (param->type_is_error) {
    do_operand_transformations(argument);
    return;
  }
  prep_assignment_operand(argument, param->type, ec_incompatible_param);
}

struct an_argument_list {
  an_expr_node *first;
  an_expr_node *last;
  bool has_error;
};

// The arguments behind "("; goes behind ")". A null type checks nothing: the callee is in error.
void scan_arguments(a_type *routine_type, an_argument_list *list) {
  *list = {};
  bool prototyped = routine_type != nullptr && routine_type->routine_supplement->prototyped;
  bool has_ellipsis = prototyped && routine_type->routine_supplement->has_ellipsis;
  a_param_type *param = routine_type != nullptr ? param_types_of(routine_type) : nullptr;
  bool excess_reported = false;
  add_stop_token(tok_rparen);
  add_stop_token(tok_comma);
  if (curr_token != tok_rparen) {
    for (;;) {
      an_operand argument;
      scan_expr_at_level(&argument, level_comma);
      if (prototyped && param == nullptr && !has_ellipsis && !excess_reported) {
        if (argument.kind != ok_error) expr_pos_error(ec_too_many_arguments, &argument.start_pos);
        excess_reported = list->has_error = true;
      }
      if (routine_type == nullptr)
        do_operand_transformations(&argument);
      else
        prepare_argument(&argument, prototyped ? param : nullptr);
      if (param != nullptr) param = param->next;
      if (argument.kind == ok_error) {
        list->has_error = true;
      } else {
        an_expr_node *node = make_node_from_operand(&argument);
        (list->last != nullptr ? list->last->next : list->first) = node;
        list->last = node;
      }
      if (curr_token != tok_comma) break;
      get_token();
    }
  }
  remove_stop_token(tok_comma);
  if (prototyped && param != nullptr && !list->has_error && curr_token == tok_rparen) {
    expr_pos_error(ec_too_few_arguments, &pos_curr_token);
    list->has_error = true;
  }
}

// A call of a builtin with constant arguments that is a constant itself.
bool fold_call(a_routine *routine, an_expr_node *arguments, an_expr_node *call, an_operand *result,
               const a_source_position *position) {
  bool always = false;
  if (routine == nullptr || !is_gnu_builtin_function(routine) ||
      !is_foldable_gnu_builtin_function(routine, &always))
    return false;
  a_constant constant;
  clear_constant(&constant, ck_error);
  an_error_code error = ec_no_error;
  bool folded =
      fold_gnu_builtin_function_call_if_possible(routine, arguments, call, &constant, &error);
  if (error != ec_no_error) expr_pos_error(error, position);
  if (!folded) return false;
  make_constant_operand(&constant, result);
  return true;
}

}  // namespace

// C11 6.5.2.2
void scan_function_call(an_operand *left, an_operand *result) {
  a_source_position start = left->start_pos, position = pos_curr_token;
  a_routine *routine = called_routine(left);
  if (routine != nullptr && is_gnu_builtin_function(routine) &&
      scan_builtin_call(routine, left, result)) {
    result->start_pos = start;
    return;
  }
  a_type *routine_type = prepare_callee(left);
  get_token();
  an_argument_list arguments;
  scan_arguments(routine_type, &arguments);
  a_source_position end = end_pos_curr_token;
  bool ok =
      required_token(tok_rparen, ec_exp_rparen) && routine_type != nullptr && !arguments.has_error;
  remove_stop_token(tok_rparen);
  if (ok) {
    a_type *type = make_unqualified_type(return_type_of(routine_type));
    if (is_incomplete_type(type) && !is_void_type(type)) {
      if (expr_error_should_be_issued()) pos_ty_error(ec_incomplete_type_not_allowed, &start, type);
      ok = false;
    } else {
      if (routine != nullptr) check_format_of_call(routine, arguments.first);
      an_expr_node *callee = make_node_from_operand(left);
      callee->next = arguments.first;
      an_expr_node *call = make_operator_node(eok_call, type, callee);
      call->call_uses_function_pointer = routine == nullptr;
      call->position = start;
      call->end_position = end;
      if (!fold_call(routine, arguments.first, call, result, &start)) {
        make_expression_operand(call, result);
        result->not_constant = result->not_integral_constant = true;
        if (in_constant_expression() && expr_stack->value_needed) {
          expr_pos_error(ec_bad_constant_function_call, &position);
          ok = false;
        }
      }
    }
  }
  if (!ok) make_error_operand(result);
  result->start_pos = start;
  result->end_pos = end;
}
