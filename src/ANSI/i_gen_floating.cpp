// Floating point of a routine: which classes of it cross the routine's interface and those of the
// routines that it calls, told to the linker; and which of it the target must not use
// (--float_operations_allowed).
#include <cstdio>

#include "ANSI/ansi_expr.h"
#include "ANSI/i_gen_be_internal.h"
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "il/il_walk.h"
#include "semantics/sys_predef.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

// What a later stage tells apart; a long double of the size of double is a double.
enum a_float_class { fcl_float, fcl_double, fcl_long_double, fcl_count, fcl_none = fcl_count };

struct a_floating_survey {
  bool crosses[fcl_count];
  a_source_position told;  // of the last message: one operation is told once
};

a_float_class class_of_float(const a_type *type) {
  if (type->size == static_cast<a_targ_size_t>(targ_sizeof_float)) return fcl_float;
  if (type->size == static_cast<a_targ_size_t>(targ_sizeof_double)) return fcl_double;
  return fcl_long_double;
}

// The class in which a value travels: a class of up to four floats of one class goes in registers
// as they do.
a_float_class class_in_interface(a_type *type) {
  constexpr int most_fields = 4;
  type = f_skip_typerefs(type);
  if (type->kind == tk_float) return class_of_float(type);
  if (type->kind != tk_class && type->kind != tk_struct) return fcl_none;
  a_float_class result = fcl_none;
  int count = 0;
  for (const a_field *f = type->fields; f != nullptr; f = f->next) {
    const a_type *field_type = f_skip_typerefs(f->type);
    if (field_type->kind != tk_float || ++count > most_fields) return fcl_none;
    a_float_class field_class = class_of_float(field_type);
    if (result != fcl_none && field_class != result) return fcl_none;
    result = field_class;
  }
  return result;
}

void note_crossing(a_floating_survey *survey, a_type *type) {
  a_float_class found = class_in_interface(type);
  if (found != fcl_none) survey->crosses[found] = true;
}

bool float_type_allowed(a_type *type) {
  type = f_skip_typerefs(type);
  if (!is_floating_type(type) || legal_float_precision == flp_all) return true;
  if (legal_float_precision == flp_none) return false;
  a_targ_size_t bits = type->size * static_cast<a_targ_size_t>(targ_char_bit);
  return bits == (legal_float_precision == flp_32_bits ? 32U : 64U);
}

void check_type(a_floating_survey *survey, a_type *type, const a_source_position &position) {
  if (float_type_allowed(type)) return;
  if (position.seq == survey->told.seq && position.column == survey->told.column) return;
  survey->told = position;
  pos_st_error(ec_float_support_disabled, &position,
               legal_float_precision == flp_none      ? ""
               : legal_float_precision == flp_32_bits ? "64-bit "
                                                      : "32-bit ");
}

bool is_arithmetic(an_expr_operator_kind op) {
  switch (op) {
    case eok_negate:
    case eok_post_incr:
    case eok_post_decr:
    case eok_pre_incr:
    case eok_pre_decr:
    case eok_add:
    case eok_subtract:
    case eok_multiply:
    case eok_divide:
    case eok_assign:
    case eok_add_assign:
    case eok_subtract_assign:
    case eok_multiply_assign:
    case eok_divide_assign:
      return true;
    default:
      return false;
  }
}

a_type *type_of_callee(const an_expr_node *call) {
  a_type *type = f_skip_typerefs(call->operands->type);
  return type->kind == tk_pointer ? f_skip_typerefs(type->pointed_to) : type;
}

void survey_call(a_floating_survey *survey, an_expr_node *call) {
  const a_routine *callee = direct_callee(call->operands);
  bool is_intrinsic = callee != nullptr && !callee->defined && is_gnu_builtin_function(callee);
  a_type *return_type = type_of_callee(call)->return_type;
  check_type(survey, return_type, call->position);
  if (!is_intrinsic) note_crossing(survey, return_type);
  for (an_expr_node *argument = call->operands->next; argument != nullptr;
       argument = argument->next) {
    check_type(survey, argument->type, argument->position);
    if (!is_intrinsic) note_crossing(survey, argument->type);
  }
}

void survey_expression(an_expr_node *node, an_expr_or_stmt_traversal_block *block) {
  a_floating_survey *survey = static_cast<a_floating_survey *>(block->data);
  if (node->kind != enk_operation) return;
  if (node->op == eok_call) {
    survey_call(survey, node);
  } else if (node->op == eok_cast) {
    check_type(survey, node->type, node->position);
    check_type(survey, node->operands->type, node->position);
  } else if (node->op >= eok_eq && node->op <= eok_le) {
    check_type(survey, node->operands->type, node->position);
    check_type(survey, node->operands->next->type, node->position);
  } else if (is_arithmetic(node->op)) {
    check_type(survey, node->type, node->position);
  }
}

void survey_initialization(a_dynamic_init *init, an_expr_or_stmt_traversal_block *block) {
  if (init->variable == nullptr) return;
  if (init->kind != dik_constant && init->kind != dik_expression) return;
  check_type(static_cast<a_floating_survey *>(block->data), init->variable->type,
             init->variable->decl_position);
}

void survey_interface(a_floating_survey *survey, a_routine *routine) {
  a_type *type = f_skip_typerefs(routine->type);
  check_type(survey, type->return_type, routine->decl_position);
  note_crossing(survey, type->return_type);
  for (const a_param_type *p = type->routine_supplement->param_types; p != nullptr; p = p->next) {
    check_type(survey, p->type, routine->decl_position);
    note_crossing(survey, p->type);
  }
}

}  // namespace

void survey_floating_point(a_routine *routine, SYMTAB *symbol) {
  a_floating_survey survey = {};
  survey_interface(&survey, routine);
  an_expr_or_stmt_traversal_block block;
  clear_expr_or_stmt_traversal_block(&block);
  block.expr_pre = survey_expression;
  block.dynamic_init_pre = survey_initialization;
  block.data = &survey;
  traverse_statement(scope_for_routine(routine)->block, &block);
  if (!survey.crosses[fcl_float] && !survey.crosses[fcl_double] && !survey.crosses[fcl_long_double])
    return;
  auto flag = [&](a_float_class c) { return survey.crosses[c] ? "1" : "0"; };
  add_pragma(symbol, fpk_FUNC_HAS_FP_INTERFACE,
             {flag(fcl_float), flag(fcl_double), flag(fcl_long_double)});
}
