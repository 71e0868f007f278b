// Calls of builtin functions: folded, made plain code, made an intrinsic of the target, or made a
// call of the runtime routine that does the same.
//
// A builtin that has none of these stays a call of a builtin, which the generator reports.
#include <string>
#include <string_view>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "lower/lower_internal.h"
#include "semantics/float_pt.h"
#include "semantics/folding.h"
#include "semantics/sys_predef.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_arch.h"
#include "target/arm_util.h"

namespace {

a_type *int_type() {
  return integer_type(ik_int);
}
a_type *unsigned_type() {
  return integer_type(ik_unsigned_int);
}

// The routine that a call names, or null.
a_routine *called_routine(const an_expr_node *call) {
  const an_expr_node *callee = call->operands;
  while (is_operation_node(callee, eok_address_of) || is_operation_node(callee, eok_parens) ||
         is_operation_node(callee, eok_function_to_pointer) ||
         (is_operation_node(callee, eok_indirect) && is_function_type(callee->type)))
    callee = callee->operands;
  return callee->kind == enk_routine ? callee->routine : nullptr;
}

// The n-th argument, from 1, in a node of its own; null: there is none.
an_expr_node *argument(const an_expr_node *call, int n) {
  an_expr_node *arg = call->operands;
  while (arg != nullptr && n-- > 0)
    arg = arg->next;
  return arg == nullptr ? nullptr : moved_node(arg);
}

// The call becomes the value, converted to its own type.
void become(an_expr_node *call, an_expr_node *value) {
  a_type *type = call->type;
  if (!is_void_type(type) && !is_void_type(value->type)) value = add_cast_if_necessary(value, type);
  replace_node(call, value);
}

// Only the effects of a value are wanted.
void become_void(an_expr_node *call, an_expr_node *value) {
  replace_node(call, add_cast(value, void_type()));
}

// ---- Runtime routines and intrinsics -----------------------------------------------------------

void become_runtime_call(an_expr_node *call, const char *name, a_type *result, a_type *first,
                         a_type *second = nullptr) {
  an_expr_node *arguments = argument(call, 1);
  arguments = add_cast_if_necessary(arguments, first);
  if (second != nullptr) arguments->next = add_cast_if_necessary(argument(call, 2), second);
  a_type *type = make_routine_type_full(result, first, second);
  become(call, make_prototyped_runtime_call(name, type, arguments));
}

// An intrinsic keeps its operation; without intrinsics the routine of the C library does it.
void become_unary_intrinsic(an_expr_node *call, int number, const char *name,
                            const char *library_name, a_type *type) {
  if (no_intrinsics) {
    become_runtime_call(call, library_name, type, type);
    return;
  }
  an_expr_node *operand = add_cast_if_necessary(argument(call, 1), type);
  become(call, intrinsic_call(number, name, make_routine_type_full(type, type), operand));
}

an_expr_node *intrinsic_of(int number, const char *name, a_type *type, an_expr_node *operand) {
  operand = add_cast_if_necessary(operand, type);
  return intrinsic_call(number, name, make_routine_type_full(type, type), operand);
}

// The same call, of a plain routine of the name.
void call_plain_routine(an_expr_node *call, const char *name) {
  an_expr_node *arguments = call->operands->next;
  a_type *type = f_skip_typerefs(called_routine(call)->type);
  a_type *result = call->type;
  an_expr_node *plain = make_prototyped_runtime_call(name, type, arguments);
  plain->type = result;
  replace_node(call, plain);
}

// ---- Bits --------------------------------------------------------------------------------------

void lower_bit_count(an_expr_node *call, const char *word_name, const char *double_word_name) {
  a_type *type = f_skip_typerefs(argument(call, 1)->type);
  bool is_wide = type->size > 4;
  a_type *operand = integer_type(is_wide ? ik_unsigned_long_long : ik_unsigned_int);
  become_runtime_call(call, is_wide ? double_word_name : word_name, int_type(), operand);
}

void lower_count_leading_zeros(an_expr_node *call) {
  bool is_wide = f_skip_typerefs(argument(call, 1)->type)->size > 4;
  if (is_wide || no_intrinsics || !arm_condition_holds(bc_v5e)) {
    lower_bit_count(call, "__clzsi2", "__clzdi2");
    return;
  }
  become(call, intrinsic_of(qi___clz, "__clz", unsigned_type(), argument(call, 1)));
}

// Processors before version 6 have no instruction for it.
bool swaps_by_instruction() {
  return !no_intrinsics && arm_condition_holds(bc_v6);
}

an_expr_node *swapped_word(an_expr_node *word) {
  if (swaps_by_instruction()) return intrinsic_of(qi___rev, "__rev", unsigned_type(), word);
  a_type *type = make_routine_type_full(unsigned_type(), unsigned_type());
  return make_prototyped_runtime_call("__bswapsi2", type,
                                      add_cast_if_necessary(word, unsigned_type()));
}

an_expr_node *swapped_half_word(an_expr_node *half) {
  a_type *type = unsigned_type();
  an_expr_node *swapped =
      swaps_by_instruction()
          ? intrinsic_of(qi___rev16, "__rev16", type, half)
          : binary_node(eok_shift_right, type, swapped_word(half), int_node(16));
  return add_cast(swapped, integer_type(ik_unsigned_short));
}

// (t = x, (unsigned long long)swap((unsigned)t) << 32 | swap((unsigned)(t >> 32)))
void lower_swap_of_double_word(an_expr_node *call) {
  a_type *wide = integer_type(ik_unsigned_long_long);
  a_variable *temporary;
  an_expr_node *setup =
      assign_expr_to_temp(add_cast_if_necessary(argument(call, 1), wide), &temporary);
  an_expr_node *low = add_cast(swapped_word(var_rvalue_expr(temporary)), wide);
  an_expr_node *high = binary_node(eok_shift_right, wide, var_rvalue_expr(temporary), int_node(32));
  an_expr_node *upper = binary_node(eok_shift_left, wide, low, int_node(32));
  an_expr_node *value = binary_node(eok_or, wide, upper, add_cast(swapped_word(high), wide));
  become(call, comma_node(setup, value));
}

// ---- Floating values ---------------------------------------------------------------------------

a_float_kind float_kind_of(const an_expr_node *value) {
  const a_type *type = skip_typerefs(static_cast<const a_type *>(value->type));
  return type->kind == tk_float ? type->float_kind : fk_double;
}

an_expr_node *float_node(const char *hex_text, a_float_kind kind) {
  simul_fval value;
  bool out_of_range, inexact;
  fp_hex_string_to_float(kind, hex_text, &value, &out_of_range, &inexact);
  a_constant constant;
  set_float_constant(&constant, &value, float_type(kind));
  return alloc_node_for_constant(&constant);
}

an_expr_node *largest_finite(a_float_kind kind) {
  bool is_narrow = float_type(kind)->size == 4;
  return float_node(is_narrow ? "0x1.fffffep127" : "0x1.fffffffffffffp1023", kind);
}

an_expr_node *smallest_normal(a_float_kind kind) {
  bool is_narrow = float_type(kind)->size == 4;
  return float_node(is_narrow ? "0x1p-126" : "0x1p-1022", kind);
}

an_expr_node *absolute_value(an_expr_node *value, a_float_kind kind) {
  bool is_narrow = kind == fk_float;
  a_type *type = float_type(is_narrow ? fk_float : fk_double);
  an_expr_node *result;
  if (no_intrinsics)
    result = make_prototyped_runtime_call(is_narrow ? "fabsf" : "fabs",
                                          make_routine_type_full(type, type),
                                          add_cast_if_necessary(value, type));
  else
    result =
        intrinsic_of(is_narrow ? qi_fabsf : qi_fabs, is_narrow ? "fabsf" : "fabs", type, value);
  return add_cast_if_necessary(result, float_type(kind));
}

an_expr_node *compare(an_expr_operator_kind op, an_expr_node *left, an_expr_node *right) {
  return binary_node(op, int_type(), left, right);
}

// The argument, for several uses; *setup stores it first.
struct a_tested_value {
  a_variable *variable;
  a_float_kind kind;
  an_expr_node *setup;

  explicit a_tested_value(an_expr_node *value) {
    if (!type_has_kind(value->type, tk_float)) value = add_cast(value, float_type(fk_double));
    kind = float_kind_of(value);
    setup = assign_expr_to_temp(value, &variable);
  }
  an_expr_node *value() const { return var_rvalue_expr(variable); }
  an_expr_node *magnitude() const { return absolute_value(value(), kind); }
  an_expr_node *is_nan() const { return compare(eok_ne, value(), value()); }
  an_expr_node *is_infinite() const { return compare(eok_gt, magnitude(), largest_finite(kind)); }
  an_expr_node *is_finite() const { return compare(eok_le, magnitude(), largest_finite(kind)); }
  an_expr_node *is_at_least_normal() const {
    return compare(eok_ge, magnitude(), smallest_normal(kind));
  }
};

void lower_float_test(an_expr_node *call, int builtin) {
  a_tested_value tested(argument(call, 1));
  an_expr_node *test;
  switch (builtin) {
    case bi_isnan:
    case bi_isnanf:
    case bi_isnanl:
      test = tested.is_nan();
      break;
    case bi_isinf:
    case bi_isinff:
    case bi_isinfl:
      test = tested.is_infinite();
      break;
    case bi_isfinite:
      test = tested.is_finite();
      break;
    default:
      test = binary_node(eok_land, int_type(), tested.is_at_least_normal(), tested.is_finite());
      break;
  }
  become(call, comma_node(tested.setup, test));
}

// fpclassify(nan, infinite, normal, subnormal, zero, x)
void lower_classification(an_expr_node *call) {
  a_tested_value tested(argument(call, 6));
  a_type *type = int_type();
  an_expr_node *value =
      conditional_node(type, compare(eok_eq, tested.value(), zero_node(float_type(tested.kind))),
                       argument(call, 5), argument(call, 4));
  value = conditional_node(type, tested.is_at_least_normal(), argument(call, 3), value);
  value = conditional_node(type, tested.is_infinite(), argument(call, 2), value);
  value = conditional_node(type, tested.is_nan(), argument(call, 1), value);
  become(call, comma_node(tested.setup, value));
}

// 1 for infinity, -1 for the negative one.
void lower_sign_of_infinity(an_expr_node *call) {
  a_tested_value tested(argument(call, 1));
  an_expr_node *zero = zero_node(float_type(tested.kind));
  an_expr_node *sign = conditional_node(int_type(), compare(eok_lt, tested.value(), zero),
                                        int_node(-1), int_node(1));
  an_expr_node *value = conditional_node(int_type(), tested.is_infinite(), sign, int_node(0));
  become(call, comma_node(tested.setup, value));
}

// The sign stands in the highest byte; a comparison would not see that of a zero.
void lower_signbit(an_expr_node *call) {
  a_tested_value tested(argument(call, 1));
  a_type *byte = integer_type(ik_unsigned_char);
  an_expr_node *address = add_address_of_to_node(var_lvalue_expr(tested.variable));
  an_expr_node *bytes = add_cast(address, make_pointer_type(byte));
  std::uint64_t last = f_skip_typerefs(tested.variable->type)->size - 1;
  bytes->next = int_node(targ_little_endian ? static_cast<std::int64_t>(last) : 0);
  an_expr_node *sign_byte = make_operator_node(eok_subscript, byte, bytes);
  an_expr_node *bits = add_cast(sign_byte, int_type());
  an_expr_node *test = binary_node(eok_shift_right, int_type(), bits, int_node(7));
  become(call, comma_node(tested.setup, test));
}

// ---- Atomic operations -------------------------------------------------------------------------

// A load cannot release, a store cannot acquire.
void check_memory_order(const an_expr_node *call, const a_routine *routine, int builtin) {
  bool is_load =
      (builtin >= bi_atomic_compare_exchange && builtin <= bi_atomic_compare_exchange_8) ||
      (builtin >= bi_atomic_load && builtin <= bi_atomic_load_8);
  bool is_store = builtin >= bi_atomic_store && builtin <= bi_atomic_store_8;
  const an_expr_node *order = call->operands;
  while (order->next != nullptr)
    order = order->next;
  if (order->kind != enk_constant || order->constant->kind != ck_integer) return;
  std::uint64_t value = order->constant->integer_value;
  if ((is_load && (value == 3 || value == 4)) ||
      (is_store && (value == 1 || value == 2 || value == 4)))
    pos_st_error(ec_gcc_atomic_builtin_order_not_supported, &call->position, routine->name);
}

bool is_atomic_builtin(int builtin) {
  return builtin >= bi_atomic_always_lock_free && builtin <= bi_atomic_thread_fence;
}

bool is_sync_builtin(int builtin) {
  return builtin >= bi_sync_fetch_and_add && builtin <= bi_sync_synchronize;
}

// ---- The rest ----------------------------------------------------------------------------------

// The later arguments only say what is known of the first; their side effects stay.
void keep_first_argument(an_expr_node *call) {
  an_expr_node *value = argument(call, 1);
  an_expr_node *setup = nullptr;
  for (an_expr_node *a = call->operands->next->next; a != nullptr; a = a->next)
    if (has_side_effects(a)) {
      if (setup == nullptr) {
        a_variable *temporary;
        setup = assign_expr_to_temp(value, &temporary);
        value = var_rvalue_expr(temporary);
      }
      setup = comma_node(setup, moved_node(a));
    }
  become(call, with_setup(setup, value));
}

int class_of_type(const a_type *type) {
  switch (skip_typerefs(type)->kind) {
    case tk_void:
      return 0;
    case tk_integer:
      return 1;
    case tk_pointer:
      return 5;
    case tk_float:
      return 8;
    case tk_complex:
    case tk_imaginary:
      return 9;
    case tk_class:
    case tk_struct:
      return 12;
    case tk_union:
      return 13;
    default:
      return -1;
  }
}

bool fold_call(an_expr_node *call, const a_routine *routine) {
  bool always;
  if (!is_foldable_gnu_builtin_function(routine, &always)) return false;
  a_constant result;
  clear_constant(&result, ck_error);
  an_error_code error = ec_no_error;
  if (!fold_gnu_builtin_function_call_if_possible(routine, call->operands->next, call, &result,
                                                  &error) ||
      error != ec_no_error || result.kind == ck_error)
    return false;
  become(call, alloc_node_for_constant(&result));
  return true;
}

// With an argument of 0 only: the frame of the function itself.
void lower_frame_address(an_expr_node *call) {
  const an_expr_node *level = call->operands->next;
  if (level->kind != enk_constant || level->constant->integer_value != 0) return;
  a_type *type = make_routine_type(make_pointer_type(void_type()));
  become(call, intrinsic_call(qi___curfp, "__curfp", type, nullptr));
}

void become_memory_copy(an_expr_node *call) {
  an_expr_node *arguments = call->operands->next;
  a_type *type = f_skip_typerefs(called_routine(call)->type);
  if (no_intrinsics)
    become(call, make_prototyped_runtime_call("memcpy", type, arguments));
  else
    become(call, intrinsic_call(qi_memcpy, "memcpy", type, arguments));
}

void lower_call_without_argument(an_expr_node *call, int builtin) {
  if (builtin == bi_trap) {
    call_plain_routine(call, "abort");
    return;
  }
  if (builtin != bi_unreachable) return;
  a_type *type = make_routine_type(void_type());
  become(call, intrinsic_call(qi__never_executed, "_never_executed", type, nullptr));
}

void lower_math_call(an_expr_node *call, int builtin) {
  a_type *float_t = float_type(fk_float), *double_t = float_type(fk_double);
  a_type *long_double_t = float_type(fk_long_double);
  switch (builtin) {
    case bi_abs:
      become_unary_intrinsic(call, qi_abs, "abs", "abs", int_type());
      break;
    case bi_labs:
      become_unary_intrinsic(call, qi_labs, "labs", "labs", integer_type(ik_long));
      break;
    case bi_llabs:
      become_unary_intrinsic(call, qi_llabs, "llabs", "llabs", integer_type(ik_long_long));
      break;
    case bi_fabs:
    case bi_fabsl:
      become_unary_intrinsic(call, qi_fabs, "fabs", "fabs", double_t);
      break;
    case bi_fabsf:
      become_unary_intrinsic(call, qi_fabsf, "fabsf", "fabsf", float_t);
      break;
    case bi_sqrt:
      become_unary_intrinsic(call, qi___sqrt, "__sqrt", "sqrt", double_t);
      break;
    case bi_sqrtf:
      become_unary_intrinsic(call, qi___sqrtf, "__sqrtf", "sqrtf", float_t);
      break;
    case bi_pow:
      become_runtime_call(call, "pow", double_t, double_t, double_t);
      break;
    case bi_powf:
      become_runtime_call(call, "powf", float_t, float_t, float_t);
      break;
    case bi_powl:
      become_runtime_call(call, "powl", long_double_t, long_double_t, long_double_t);
      break;
    default:
      break;
  }
}

void lower_library_call(an_expr_node *call, int builtin) {
  a_type *text = make_ptr_to_const_type(integer_type(ik_char));
  switch (builtin) {
    case bi_nan:
    case bi_nans:
      become_runtime_call(call, "nan", float_type(fk_double), text);
      break;
    case bi_nanf:
    case bi_nansf:
      become_runtime_call(call, "nanf", float_type(fk_float), text);
      break;
    case bi_nanl:
    case bi_nansl:
      become_runtime_call(call, "nanl", float_type(fk_long_double), text);
      break;
    default:
      become_runtime_call(call, "strlen", integer_type(targ_size_t_int_kind), text);
      break;
  }
}

void lower_builtin_operation(an_expr_node *call, int builtin) {
  switch (builtin) {
    case bi_bswap16:
      become(call, swapped_half_word(argument(call, 1)));
      break;
    case bi_bswap32:
      become(call, swapped_word(argument(call, 1)));
      break;
    case bi_bswap64:
      lower_swap_of_double_word(call);
      break;
    case bi_clz:
    case bi_clzl:
    case bi_clzll:
      lower_count_leading_zeros(call);
      break;
    case bi_ctz:
    case bi_ctzl:
    case bi_ctzll:
      lower_bit_count(call, "__ctzsi2", "__ctzdi2");
      break;
    case bi_ffs:
    case bi_ffsl:
    case bi_ffsll:
      lower_bit_count(call, "__ffssi2", "__ffsdi2");
      break;
    case bi_parity:
    case bi_parityl:
    case bi_parityll:
      lower_bit_count(call, "__paritysi2", "__paritydi2");
      break;
    case bi_popcount:
    case bi_popcountl:
    case bi_popcountll:
      lower_bit_count(call, "__popcountsi2", "__popcountdi2");
      break;
    case bi_isnan:
    case bi_isnanf:
    case bi_isnanl:
    case bi_isinf:
    case bi_isinff:
    case bi_isinfl:
    case bi_isfinite:
    case bi_isnormal:
      lower_float_test(call, builtin);
      break;
    case bi_isinf_sign:
      lower_sign_of_infinity(call);
      break;
    case bi_signbit:
    case bi_signbitf:
    case bi_signbitl:
      lower_signbit(call);
      break;
    case bi_fpclassify:
      if (argument(call, 6) != nullptr) lower_classification(call);
      break;
    case bi_constant_p:
      become(call, int_node(0));
      break;
    case bi_classify_type:
      become(call, int_node(class_of_type(argument(call, 1)->type)));
      break;
    case bi_expect:
    case bi_assume_aligned:
      keep_first_argument(call);
      break;
    case bi_frame_address:
      lower_frame_address(call);
      break;
    case bi_prefetch:
      keep_first_argument(call);
      become_void(call, moved_node(call));
      break;
    case bi_memcpy:
      become_memory_copy(call);
      break;
    case bi_nan:
    case bi_nanf:
    case bi_nanl:
    case bi_nans:
    case bi_nansf:
    case bi_nansl:
    case bi_strlen:
      lower_library_call(call, builtin);
      break;
    default:
      lower_math_call(call, builtin);
      break;
  }
}

}  // namespace

void lower_builtins(an_expr_node *call) {
  a_routine *routine = called_routine(call);
  if (!builtin_functions_enabled || routine == nullptr || routine->defined ||
      !is_gnu_builtin_function(routine) || is_qx_builtin_function(routine))
    return;
  int builtin = builtin_function_number(routine);
  if (is_sync_builtin(builtin)) {
    call_plain_routine(call, routine->name);
  } else if (is_atomic_builtin(builtin)) {
    check_memory_order(call, routine, builtin);
    call_plain_routine(call, routine->name);
  } else if (!fold_call(call, routine)) {
    if (call->operands->next == nullptr)
      lower_call_without_argument(call, builtin);
    else
      lower_builtin_operation(call, builtin);
  }
}
