// Calls: of routines, of the target's intrinsics, and how arguments travel.
#include <vector>

#include "ANSI/ansi_expr.h"
#include "ANSI/i_gen_be_internal.h"
#include "DIAG/error.h"
#include "il/il.h"
#include "semantics/sys_predef.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_util.h"

namespace {

bool is_class_argument(const a_type *type) {
  return is_class_struct_union_type(type) && scalar_csu(const_cast<a_type *>(type)) == nullptr;
}

void put_separators(std::size_t count) {
  for (std::size_t i = 1; i < count; i++)
    put(op_COMMA, basic_void());
}

void generate_argument(an_expr_node *argument) {
  a_type *type = argument->type;
  if (is_class_argument(type)) {
    if (is_passed_by_ref_type(type))
      put(op_ARGREF, tp_type(make_pointer_type(type)));
    else
      put(op_STARG, tp_type(type));
    generate_expression(argument);
    return;
  }
  if (is_eabi && is_integral_or_enum_type(type)) {
    a_type *promoted = type_after_integral_promotion(type);
    if (!identical_types(promoted, type)) put(op_ACONV, tp_type(promoted));
  }
  if (argument->kind == enk_operation && argument->op == eok_cast) {
    bool to_pointer = type_has_kind(type, tk_pointer);
    put(to_pointer ? op_PCONV : op_ACONV, tp_type(type));
    argument = first_operand(argument);
  }
  generate_expression(argument);
}

std::vector<an_expr_node *> arguments_of(const an_expr_node *call) {
  std::vector<an_expr_node *> arguments;
  for (an_expr_node *a = first_operand(call)->next; a != nullptr; a = a->next)
    arguments.push_back(a);
  return arguments;
}

// Further arguments of a call of a routine with an ellipsis; the last named one counts.
std::int32_t variable_arguments(const a_type *type, std::size_t count) {
  const a_routine_type_supplement *supplement = type->routine_supplement;
  if (!supplement->has_ellipsis || supplement->param_types == nullptr) return 0;
  std::int32_t named = 0;
  for (const a_param_type *p = supplement->param_types; p != nullptr; p = p->next)
    named++;
  return static_cast<std::int32_t>(count) - named + 1;
}

// The node of an intrinsic that has one of its own; NOP: it has none.
a_node_op node_of_intrinsic(int builtin) {
  switch (builtin) {
    case qi_abs:
    case qi_labs:
    case qi_llabs:
    case qi_fabs:
    case qi_fabsf:
      return op_ABS;
    case qi__assert:
      return op_ASSERT;
    case qi__nassert:
      return op_NASSERT;
    case qi___sqrt:
    case qi___sqrtf:
      return op_SQRT;
    case qi_memcpy:
      return op_MEMCPY;
    default:
      return op_NOP;
  }
}

// An intrinsic of the target: by a node of its own where it has one, else by its name in the node.
void generate_intrinsic(an_expr_node *expr, a_routine *routine) {
  std::vector<an_expr_node *> arguments = arguments_of(expr);
  NODE node(node_of_intrinsic(builtin_function_number(routine)), tp_type(expr->type));
  if (node.op == op_NOP) {
    bool is_machine = is_machine_intrinsic(routine);
    node.op = is_machine ? (arguments.empty() ? op_UMCALL : op_MCALL)
                         : (arguments.empty() ? op_UICALL : op_ICALL);
    node.text = TRG_fname_transform(routine->name);
  }
  put(node);
  put_separators(arguments.size());
  for (an_expr_node *argument : arguments)
    generate_argument(argument);
}

bool call_stays_intrinsic(an_expr_node *call) {
  a_scope *scope = current_routine != nullptr ? scope_for_routine(current_routine) : nullptr;
  return target->ok_to_dump_as_builtin(call, scope);
}

}  // namespace

a_routine *direct_callee(const an_expr_node *callee) {
  while (callee->kind == enk_operation &&
         (callee->op == eok_address_of || callee->op == eok_parens ||
          callee->op == eok_function_to_pointer ||
          (callee->op == eok_indirect && type_has_kind(callee->type, tk_routine))))
    callee = first_operand(callee);
  return callee->kind == enk_routine ? callee->routine : nullptr;
}

void generate_call(an_expr_node *expr) {
  an_expr_node *callee = first_operand(expr);
  a_routine *routine = direct_callee(callee);
  if (routine != nullptr) check_constrange(expr);
  if (routine != nullptr && !routine->defined) {
    bool is_intrinsic = is_qx_builtin_function(routine);
    // One that the code state does not have is a call of a function with its name.
    if (is_intrinsic && call_stays_intrinsic(expr)) {
      generate_intrinsic(expr, routine);
      return;
    }
    // What lowering has not made plain code of has no form in the file.
    if (!is_intrinsic && is_gnu_builtin_function(routine)) {
      pos_st_error(ec_gcc_builtin_not_supported, &expr->position, routine->name);
      return;
    }
  }
  a_type *type = f_skip_typerefs(callee->type);
  if (type->kind == tk_pointer) type = f_skip_typerefs(type->pointed_to);
  check_invariant(type->kind == tk_routine);
  std::vector<an_expr_node *> arguments = arguments_of(expr);
  NODE node(arguments.empty() ? op_UCALL : op_CALL, tp_type(expr->type));
  node.num_vargs = variable_arguments(type, arguments.size());
  put(node);
  generate_expression(callee);
  put_separators(arguments.size());
  for (an_expr_node *argument : arguments)
    generate_argument(argument);
}
