// May a call of an intrinsic stay one? It depends on the state that the function is compiled for,
// on the architecture, and on the values of its arguments.
//
// A row gives a run of numbers, the condition on the state, and the check of the arguments. A call
// that fails the condition is a plain call of a function of that name.
#include <cstdio>
#include <initializer_list>

#include "DIAG/error.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "semantics/const_ints.h"
#include "semantics/sys_predef.h"
#include "semantics/types.h"
#include "target/arm_arch.h"
#include "target/arm_util.h"

namespace {

an_expr_node *argument_of(an_expr_node *call, int number) {  // from 1; null: not there
  an_expr_node *argument = call->operands;
  for (; argument != nullptr && number > 0; --number)
    argument = argument->next;
  return argument;
}

an_expr_node *skip_casts(an_expr_node *expr) {
  while (expr->kind == enk_operation && expr->op == eok_cast)
    expr = expr->operands;
  return expr;
}

a_routine *routine_called_by(const an_expr_node *call) {  // null: not a direct call
  an_expr_node *callee = skip_casts(call->operands);
  if (callee->kind == enk_operation && callee->op == eok_address_of) callee = callee->operands;
  return callee->kind == enk_routine ? callee->routine : nullptr;
}

const a_constant *integer_argument(an_expr_node *argument) {
  if (argument == nullptr || argument->kind != enk_constant) return nullptr;
  return argument->constant->kind == ck_integer ? argument->constant : nullptr;
}

// A constant argument from minimum to maximum.
bool check_range(an_expr_node *call, int number, std::int64_t minimum, std::int64_t maximum) {
  an_expr_node *argument = argument_of(call, number);
  const a_constant *c = integer_argument(argument);
  if (c == nullptr) {
    issue_error_for_non_immediate_arg(call, argument);
    return false;
  }
  if (cmplit_integer_constant(c, minimum) >= 0 && cmplit_integer_constant(c, maximum) <= 0)
    return true;
  pos_st_error(ec_integer_outofrange, &argument->position, "");
  return false;
}

bool check_maxima(an_expr_node *call, std::initializer_list<int> maxima) {  // -1: not checked
  bool good = true;
  int number = 0;
  for (int maximum : maxima) {
    ++number;
    if (maximum >= 0 && !check_ucst(call, number, static_cast<std::uint64_t>(maximum), 1))
      good = false;
  }
  return good;
}

// ---- Argument checks ---------------------------------------------------------------------------

using an_argument_check = bool (*)(an_expr_node *call, bool arm_state);

bool no_check(an_expr_node *, bool) {
  return true;
}
bool check_shift_3(an_expr_node *call, bool) {
  return check_ucst(call, 3, 31, 1);
}
bool check_saturate(an_expr_node *call, bool) {
  return check_maxima(call, {-1, 31, 31});
}
bool check_ssat16(an_expr_node *call, bool) {
  return check_range(call, 2, 1, 16);
}
bool check_usat16(an_expr_node *call, bool) {
  return check_ucst(call, 2, 15, 1);
}
bool check_rotation_3(an_expr_node *call, bool) {
  return check_ucst(call, 3, 31, 8);
}
bool check_rotation_2(an_expr_node *call, bool) {
  return check_ucst(call, 2, 31, 8);
}
bool check_extract(an_expr_node *call, bool) {
  bool no_rotation = arm_arch_types.is(arch_6M0);
  return check_ucst(call, 2, no_rotation ? 0 : 24, 8);
}
bool check_ror(an_expr_node *call, bool) {
  return integer_argument(argument_of(call, 2)) == nullptr || check_range(call, 2, 1, 31);
}
bool check_swi(an_expr_node *call, bool arm_state) {
  return check_ucst(call, 1, arm_state ? 0xFFFFFF : 255, 1);
}
bool check_delay(an_expr_node *call, bool) {
  return check_ucst(call, 1, 0xFFFFFFFF, 1);
}
bool check_mcr(an_expr_node *call, bool) {
  return check_maxima(call, {15, 7, -1, 15, 15, 7});
}
bool check_mrc(an_expr_node *call, bool) {
  return check_maxima(call, {15, 7, 15, 15, 7});
}
bool check_mcrr(an_expr_node *call, bool) {
  return check_maxima(call, {15, 7, -1, 15});
}
bool check_mrrc(an_expr_node *call, bool) {
  return check_maxima(call, {15, 7, 15});
}

// ---- The table ---------------------------------------------------------------------------------

// Where the instructions exist outside ARM state.
enum a_state_condition : std::uint8_t {
  sc_everywhere,
  sc_on_v7,
  sc_on_v7_not_m3,
  sc_on_v7_or_m0,
  sc_on_v7_a_and_r,
};

bool state_allows(a_state_condition condition, bool arm_state) {
  const ARM_ARCH_TYPES &arch = arm_arch_types;
  if (arm_state) return true;
  switch (condition) {
    case sc_everywhere:
      return true;
    case sc_on_v7:
      return arch.is_v7_or_higher();
    case sc_on_v7_not_m3:
      return arch.is_v7_or_higher() && !arch.is(arch_7M3);
    case sc_on_v7_or_m0:
      return arch.is_v7_or_higher() || arch.is(arch_6M0);
    case sc_on_v7_a_and_r:
      return arch.is(arch_7A8) || arch.is(arch_7R4) || arch.is(arch_7R5);
  }
  return false;
}

struct an_intrinsic_rule {
  int first, last;  // builtin numbers
  a_state_condition condition;
  an_argument_check check;
};

constexpr an_intrinsic_rule rules[] = {
    {qi__subc, qi__norm, sc_on_v7, no_check},
    {qi__sadd16, qi__uhsub8, sc_on_v7, no_check},
    {qi__pkhbt, qi__pkhtb, sc_on_v7, check_shift_3},
    {qi__ssatl, qi__usata, sc_on_v7, check_saturate},
    {qi__ssat16, qi__ssat16, sc_on_v7, check_ssat16},
    {qi__usat16, qi__usat16, sc_on_v7, check_usat16},
    {qi__sel, qi__sel, sc_on_v7, no_check},
    {qi__sxtab16, qi__uxtah, sc_on_v7, check_rotation_3},
    {qi__sxtb16, qi__sxtb16, sc_on_v7_not_m3, check_rotation_2},
    {qi__sxtb, qi__sxth, sc_on_v7_or_m0, check_extract},
    {qi__uxtb16, qi__uxtb16, sc_on_v7_not_m3, check_rotation_2},
    {qi__uxtb, qi__uxth, sc_on_v7_or_m0, check_extract},
    {qi__smlad, qi__usada8, sc_on_v7, no_check},
    {qi___rev, qi___rev, sc_on_v7_or_m0, no_check},
    {qi___ror, qi___ror, sc_everywhere, check_ror},
    {qi___revsh, qi___rev16, sc_on_v7_or_m0, no_check},
    {qi___rbit, qi___clz, sc_on_v7, no_check},
    {qi__set_CPSR, qi__get_CPSR, sc_on_v7_a_and_r, no_check},
    {qi__call_swi, qi__call_swi, sc_everywhere, check_swi},
    {qi__enable_IRQ, qi__disable_IRQ, sc_on_v7_or_m0, no_check},
    {qi__enable_FIQ, qi__disable_FIQ, sc_on_v7_a_and_r, no_check},
    {qi___delay_cycles, qi___delay_cycles, sc_everywhere, check_delay},
    {qi__enable_interrupts, qi__restore_interrupts, sc_on_v7_or_m0, no_check},
    {qi___MCR, qi___MCR, sc_on_v7, check_mcr},
    {qi___MRC, qi___MRC, sc_on_v7, check_mrc},
    {qi___MCR2, qi___MCR2, sc_on_v7, check_mcr},
    {qi___MRC2, qi___MRC2, sc_on_v7, check_mrc},
    {qi___MCRR, qi___MCRR, sc_on_v7, check_mcrr},
    {qi___MRRC, qi___MRRC, sc_on_v7, check_mrrc},
    {qi___MCRR2, qi___MCRR2, sc_on_v7, check_mcrr},
    {qi___MRRC2, qi___MRRC2, sc_on_v7, check_mrrc},
};

}  // namespace

// ---- The decision ------------------------------------------------------------------------------

// _symval(&x): the address of something that has a symbol.
bool TARGET::ok_to_dump_as_builtin(an_expr_node *call, a_scope *) {
  const a_routine *routine = routine_called_by(call);
  if (routine == nullptr || builtin_function_number(routine) != qi__symval) return true;
  an_expr_node *argument = argument_of(call, 1);
  if (argument != nullptr) {
    argument = skip_casts(argument);
    if (argument->kind == enk_operation && argument->op == eok_address_of)
      argument = skip_casts(argument->operands);
    bool is_array = argument->kind == enk_operation && argument->op == eok_array_to_pointer;
    bool is_address = argument->kind == enk_constant && argument->constant->kind == ck_address;
    if (argument->kind == enk_variable || argument->kind == enk_routine || is_array || is_address)
      return true;
  }
  pos_error(ec_symval_bad_arg, &call->position);
  return false;
}

bool ARM_TARGET::ok_to_dump_as_builtin(an_expr_node *call, a_scope *scope) {
  a_routine *routine = routine_called_by(call);
  int number = routine != nullptr ? builtin_function_number(routine) : bi_none;
  for (const an_intrinsic_rule &rule : rules) {
    if (number < rule.first || number > rule.last) continue;
    bool arm_state = code_state_of_scope(scope) == 32;
    if (!state_allows(rule.condition, arm_state)) {
      pos_st_warning(ec_arm_intrinsic_not_valid_thumb, &call->position, routine->name);
      return false;
    }
    return rule.check(call, arm_state);
  }
  return TARGET::ok_to_dump_as_builtin(call, scope);
}

// ---- Checks of arguments -----------------------------------------------------------------------

void issue_error_for_non_immediate_arg(an_expr_node *call, an_expr_node *argument) {
  pos_error(ec_exp_int_constant, argument != nullptr ? &argument->position : &call->position);
}

bool check_ucst(an_expr_node *call, int argument_number, std::uint64_t maximum,
                std::uint64_t multiple) {
  an_expr_node *argument = argument_of(call, argument_number);
  const a_constant *c = integer_argument(argument);
  if (c == nullptr) {
    issue_error_for_non_immediate_arg(call, argument);
    return false;
  }
  if (cmplit_integer_constant(c, 0) < 0 || cmpulit_integer_constant(c, maximum) > 0) {
    pos_error(ec_integer_too_large, &argument->position);
    return false;
  }
  if (c->integer_value % multiple != 0) {
    char text[24];
    std::snprintf(text, sizeof text, "%lld", static_cast<long long>(multiple));
    pos_st_error(ec_integer_not_multiple, &argument->position, text);
    return false;
  }
  return true;
}

bool check_lit(an_expr_node *call, int argument_number) {
  an_expr_node *argument = argument_of(call, argument_number);
  if (argument != nullptr && argument->kind == enk_constant &&
      argument->constant->kind == ck_address)
    return true;
  pos_error(ec_exp_string_literal, argument != nullptr ? &argument->position : &call->position);
  return false;
}

namespace {

const an_attribute *find_constrange(const a_param_type *param) {
  for (const an_attribute *a = param->attributes; a != nullptr; a = a->next)
    if (a->kind == atk_constrange) return a;
  return nullptr;
}

// The value of an argument that must be constant; a vector of one repeated element counts.
const a_constant *constant_value_of(an_expr_node *argument) {
  if (argument->kind != enk_constant) return nullptr;
  const a_constant *c = argument->constant;
  if (c->kind == ck_aggregate && c->first_element != nullptr &&
      c->first_element == c->last_element && c->first_element->kind == ck_repeat)
    c = c->first_element->repeat_element;
  return c->kind == ck_integer ? c : nullptr;
}

void report_out_of_range(const an_expr_node *argument, const a_constant *value,
                         const a_constant *lower, const a_constant *upper) {
  char text[96], value_text[integer_text_size], lower_text[integer_text_size];
  std::snprintf(value_text, sizeof value_text, "%s", str_for_integer_constant(value));
  std::snprintf(lower_text, sizeof lower_text, "%s", str_for_integer_constant(lower));
  std::snprintf(text, sizeof text, " [Value: %s, Allowable Range: (%s,%s)]", value_text, lower_text,
                str_for_integer_constant(upper));
  pos_st_error(ec_integer_outofrange, &argument->position, text);
}

bool check_one_constrange(const an_attribute *attribute, const a_param_type *param,
                          an_expr_node *argument) {
  if (!is_integral_type(param->type)) return true;
  const an_attribute_arg *first = attribute->args;
  if (first == nullptr || first->next == nullptr) return true;
  const a_constant *lower = first->constant, *upper = first->next->constant;
  bool is_unsigned = !is_signed_integral_type(param->type);
  bool negative = cmplit_integer_constant(lower, 0) < 0 || cmplit_integer_constant(upper, 0) < 0;
  if (cmp_integer_constants(upper, lower) < 0 || (is_unsigned && negative)) {
    pos_st_error(ec_invalid_argument_to_attribute, &attribute->position, attribute->name);
    return false;
  }
  const a_constant *value = constant_value_of(argument);
  if (value == nullptr) {
    pos_error(ec_not_a_constant, &argument->position);
    return false;
  }
  if (cmp_integer_constants(value, lower) >= 0 && cmp_integer_constants(value, upper) <= 0)
    return true;
  report_out_of_range(argument, value, lower, upper);
  return false;
}

}  // namespace

bool check_constrange(an_expr_node *call) {
  const a_routine *routine = routine_called_by(call);
  if (routine == nullptr) return true;
  bool good = true;
  an_expr_node *argument = call->operands->next;
  for (const a_param_type *param = param_types_of(routine->type);
       param != nullptr && argument != nullptr; param = param->next, argument = argument->next) {
    const an_attribute *attribute = find_constrange(param);
    if (attribute != nullptr && !check_one_constrange(attribute, param, argument)) good = false;
  }
  return good;
}
