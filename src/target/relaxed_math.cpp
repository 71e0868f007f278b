// Relaxed floating point: (float)sin(x) with x of type float is sinf(x), which costs a fraction.
#include <cstring>

#include "driver/switches.h"
#include "il/il.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_util.h"

namespace {

struct a_math_function {
  const char *name;
  const char *float_name;
};
#define MATH(name) \
  { #name, #name "f" }
const a_math_function math_functions[] = {
    MATH(acos),    MATH(asin),      MATH(atan),       MATH(atan2),     MATH(cos),
    MATH(sin),     MATH(tan),       MATH(acosh),      MATH(asinh),     MATH(atanh),
    MATH(cosh),    MATH(sinh),      MATH(tanh),       MATH(exp),       MATH(exp2),
    MATH(expm1),   MATH(frexp),     MATH(ilogb),      MATH(ldexp),     MATH(log),
    MATH(log10),   MATH(log1p),     MATH(log2),       MATH(logb),      MATH(modf),
    MATH(scalbln), MATH(scalbn),    MATH(cbrt),       MATH(fabs),      MATH(hypot),
    MATH(pow),     MATH(sqrt),      MATH(erf),        MATH(erfc),      MATH(lgamma),
    MATH(tgamma),  MATH(ceil),      MATH(floor),      MATH(nearbyint), MATH(rint),
    MATH(lrint),   MATH(llrint),    MATH(round),      MATH(lround),    MATH(llround),
    MATH(trunc),   MATH(fmod),      MATH(remainder),  MATH(remquo),    MATH(copysign),
    MATH(nan),     MATH(nextafter), MATH(nexttoward), MATH(fdim),      MATH(fmax),
    MATH(fmin),    MATH(fma),
};
#undef MATH

a_routine *declared_routine(const char *name) {
  for (a_symbol *s = find_symbol_header(name, std::strlen(name))->active_symbols; s != nullptr;
       s = s->next_active)
    if (s->kind == syk_routine) return s->variant.routine;
  return nullptr;
}

// The node of the routine that a call names directly; null: it calls through a value.
an_expr_node *routine_node(an_expr_node *callee) {
  while (callee->kind == enk_operation &&
         (callee->op == eok_address_of || callee->op == eok_function_to_pointer ||
          callee->op == eok_parens))
    callee = callee->operands;
  return callee->kind == enk_routine ? callee : nullptr;
}

// The float behind the conversions that a double parameter asked for; null: there is none.
const an_expr_node *float_behind(const an_expr_node *argument) {
  for (;;) {
    if (is_float_floating_type(argument->type)) return argument;
    if (argument->kind == enk_constant && argument->constant->expr != nullptr)
      argument = argument->constant->expr;
    else if (argument->kind == enk_operation && argument->op == eok_cast && argument->is_implicit &&
             is_real_floating_type(argument->type))
      argument = argument->operands;
    else
      return nullptr;
  }
}

// Copies of the arguments for the float form; false: one of them does not fit.
bool copy_arguments(const an_expr_node *argument, const a_param_type *from, const a_param_type *to,
                    an_expr_node **copies) {
  *copies = nullptr;
  for (an_expr_node **end = copies; argument != nullptr || from != nullptr || to != nullptr;
       argument = argument->next, from = from->next, to = to->next) {
    if (argument == nullptr || from == nullptr || to == nullptr) return false;
    const an_expr_node *source = argument;
    if (!types_are_compatible(from->type, to->type)) {
      if (!is_double_floating_type(from->type) || !is_float_floating_type(to->type)) return false;
      source = float_behind(argument);
      if (source == nullptr) return false;
    }
    *end = copy_expr_tree(source, ctf_share_temporaries);
    (*end)->next = nullptr;
    end = &(*end)->next;
  }
  return true;
}

void set_callee(an_expr_node *callee, a_routine *routine) {
  for (; callee->kind == enk_operation; callee = callee->operands)
    callee->type = is_pointer_type(callee->type) ? make_pointer_type(routine->type) : routine->type;
  callee->routine = routine;
  callee->type = routine->type;
}

void replace_call(an_expr_node *call, a_type *type) {
  const an_expr_node *node = routine_node(call->operands);
  if (node == nullptr || node->routine->name == nullptr) return;
  const char *name = lookup_float_math_function(node->routine->name);
  a_routine *routine = name != nullptr ? declared_routine(name) : nullptr;
  if (routine == nullptr) return;
  const a_type *from = f_skip_typerefs(node->routine->type);
  const a_type *to = f_skip_typerefs(routine->type);
  bool gives_float = is_double_floating_type(from->return_type) &&
                     is_float_floating_type(to->return_type) && is_float_floating_type(type);
  if (!gives_float && !types_are_compatible(from->return_type, to->return_type)) return;
  an_expr_node *arguments;
  if (!copy_arguments(call->operands->next, from->routine_supplement->param_types,
                      to->routine_supplement->param_types, &arguments))
    return;
  set_callee(call->operands, routine);
  call->operands->next = arguments;
  call->type = to->return_type;
  mark_routine_referenced(routine);
}

void replace_in(an_expr_node *expr, a_type *type) {
  if (expr->kind != enk_operation) return;
  if (expr->op == eok_cast) {
    replace_in(expr->operands, expr->type);
    return;
  }
  for (an_expr_node *operand = expr->operands; operand != nullptr; operand = operand->next)
    replace_in(operand, operand->type);
  if (expr->op == eok_call) replace_call(expr, type);
}

}  // namespace

const char *lookup_float_math_function(const char *name) {
  for (const a_math_function &f : math_functions)
    if (std::strcmp(f.name, name) == 0) return f.float_name;
  return nullptr;
}

void replace_math_funcs(an_expr_node *expr, a_type *type) {
  if (!relaxed_fp || in_cplusplus() || targ_sizeof_float == targ_sizeof_double) return;
  replace_in(expr, type);
}
