// Calls of builtin functions whose arguments are constants. One routine per family; a call that is
// not folded stays a call.
#include <cstdlib>
#include <cstring>

#include "semantics/folding_internal.h"
#include "semantics/sys_predef.h"
#include "target/arm_arch.h"

namespace {

// One call that may be folded.
struct a_builtin_call {
  int builtin;
  a_type *return_type;
  an_expr_node *args;
  a_constant *result;
  an_error_code *error;
};

// ---- Arguments ---------------------------------------------------------------------------------

const an_expr_node *argument(const a_builtin_call &call, int number) {  // from 1; null: not there
  const an_expr_node *arg = call.args;
  for (; arg != nullptr && number > 1; --number)
    arg = arg->next;
  return arg;
}

int count_arguments(const a_builtin_call &call) {
  int count = 0;
  for (const an_expr_node *arg = call.args; arg != nullptr; arg = arg->next)
    ++count;
  return count;
}

const a_constant *constant_argument(const a_builtin_call &call, int number, a_constant_kind kind) {
  const an_expr_node *arg = argument(call, number);
  if (arg == nullptr || arg->kind != enk_constant || arg->constant->kind != kind) return nullptr;
  return arg->constant;
}

void give_integer(const a_builtin_call &call, std::int64_t value) {
  set_integer_constant_of_type(call.result, value, call.return_type);
}

// ---- Absolute values ---------------------------------------------------------------------------

bool fold_abs(const a_builtin_call &call) {
  const a_constant *c = constant_argument(call, 1, ck_integer);
  if (c == nullptr || !is_integral_type(call.return_type)) return false;
  a_host_large_integer value = c->integer_value;
  if (cmplit_integer_constant(c, 0) < 0) {
    bool overflow;
    negate_integer_value(&value, &overflow);
    an_integer_kind kind = skip_typerefs(call.return_type)->int_kind;
    if (overflow || !value_in_range_for_integer_kind(value, true, kind)) return false;
  }
  give_integer(call, static_cast<std::int64_t>(value));
  return true;
}

bool fold_fabs(const a_builtin_call &call) {
  const a_constant *c = constant_argument(call, 1, ck_float);
  if (c == nullptr) return false;
  simul_fval value = c->float_value;
  value.sign = 0;
  set_float_constant(call.result, &value, call.return_type);
  return true;
}

// ---- Infinities, NaNs --------------------------------------------------------------------------

using a_float_maker = void (*)(simul_fval *, a_float_kind);

bool fold_special_float(const a_builtin_call &call, a_float_maker make) {
  if (call.args != nullptr || !is_real_floating_type(call.return_type)) return false;
  simul_fval value;
  make(&value, float_kind_of(call.return_type));
  set_float_constant(call.result, &value, call.return_type);
  return true;
}

bool fold_nan(const a_builtin_call &call, bool is_signalling) {
  const an_expr_node *arg = argument(call, 1);
  a_constant *string;
  if (arg == nullptr || !expr_is_pointer_to_string_literal(arg, &string)) return false;
  if (string->string_char_kind != chk_char) return false;
  const char *text = string->string_text;
  char *end = nullptr;
  std::uint64_t payload = *text == '\0' ? 0 : std::strtoull(text, &end, 0);
  if (*text != '\0' && *end != '\0') return false;
  simul_fval value;
  make_fp_nan(&value, float_kind_of(call.return_type), is_signalling, payload);
  set_float_constant(call.result, &value, call.return_type);
  return true;
}

// ---- Classification of floats ------------------------------------------------------------------

enum a_float_question : std::uint8_t { ask_finite, ask_inf, ask_nan, ask_normal, ask_sign };

bool fold_float_question(const a_builtin_call &call, a_float_question question) {
  if (count_arguments(call) != 1) {
    *call.error = ec_call_requires_one_argument;
    return false;
  }
  if (!is_real_floating_type(call.args->type) && !is_template_param_type(call.args->type) &&
      !is_error_type(call.args->type)) {
    *call.error = ec_call_requires_floating_point_argument;
    return false;
  }
  const a_constant *c = constant_argument(call, 1, ck_float);
  if (c == nullptr) return false;
  const simul_fval *value = &c->float_value;
  bool special = fp_is_nan(value) || fp_is_infinity(value);
  bool answer = false, error;
  switch (question) {
    case ask_finite:
      answer = !special;
      break;
    case ask_inf:
      answer = fp_is_infinity(value);
      break;
    case ask_nan:
      answer = fp_is_nan(value);
      break;
    case ask_normal:
      answer = !special && !fp_is_zero_constant(value) &&
               fp_is_normalized(value, float_kind_of(c->type), &error);
      break;
    case ask_sign:
      if (fp_is_nan(value)) return false;
      answer = value->sign != 0;
      break;
  }
  give_integer(call, answer ? 1 : 0);
  return true;
}

// ---- Bits --------------------------------------------------------------------------------------

enum a_bit_question : std::uint8_t { ask_clz, ask_ctz, ask_ffs, ask_parity, ask_popcount };

// The answer for zero is the width, 0 for ffs.
bool fold_bits_of(const a_builtin_call &call, a_bit_question question, an_integer_kind kind) {
  const a_constant *c = constant_argument(call, 1, ck_integer);
  if (c == nullptr || is_ptr_or_ref_type(c->type)) return false;
  int width = precision_of_integer_kind(kind);
  a_host_large_integer mask, value = c->integer_value;
  make_integer_value_mask(&mask, width);
  value &= mask;
  int answer = 0;
  switch (question) {
    case ask_clz:
      answer = value == 0 ? width : __builtin_clzll(value) - (64 - width);
      break;
    case ask_ctz:
      answer = value == 0 ? width : __builtin_ctzll(value);
      break;
    case ask_ffs:
      answer = value == 0 ? 0 : __builtin_ctzll(value) + 1;
      break;
    case ask_parity:
      answer = __builtin_popcountll(value) & 1;
      break;
    case ask_popcount:
      answer = __builtin_popcountll(value);
      break;
  }
  give_integer(call, answer);
  return true;
}

bool fold_bswap(const a_builtin_call &call, int bytes) {
  const a_constant *c = constant_argument(call, 1, ck_integer);
  if (c == nullptr || is_ptr_or_ref_type(c->type)) return false;
  a_host_large_integer value = __builtin_bswap64(c->integer_value) >> (64 - 8 * bytes);
  give_integer(call, static_cast<std::int64_t>(value));
  return true;
}

// ---- Powers ------------------------------------------------------------------------------------

// The exponent as a whole number from 0 to 255; -1: it is none.
int small_whole_number(const a_constant *c) {
  simul_fval value = c->float_value, back;
  std::int64_t whole;
  bool overflow, unused, error;
  fp_to_host_large_integer(float_kind_of(c->type), &value, &whole, &overflow, &unused);
  if (overflow || whole < 0 || whole > 255) return -1;
  fp_host_large_integer_to_float(float_kind_of(c->type), whole, &back, &error);
  bool unordered;
  bool same = fp_compare(fk_double, &back, &c->float_value, &unordered) == 0;
  return error || unordered || !same ? -1 : static_cast<int>(whole);
}

bool fold_pow(const a_builtin_call &call) {
  if (!gcc_mode || gnu_version < 30400 || count_arguments(call) != 2) return false;
  const a_constant *base = constant_argument(call, 1, ck_float);
  const a_constant *exponent = constant_argument(call, 2, ck_float);
  if (base == nullptr || exponent == nullptr) return false;
  int power = small_whole_number(exponent);
  if (power < 0) return false;
  simul_fval square, product = const_one;
  bool error, range;
  fp_change_kind(&base->float_value, float_kind_of(base->type), &square, fk_long_double, &error,
                 &range);
  for (; power != 0 && !error; power >>= 1) {
    if ((power & 1) != 0) fp_multiply(fk_long_double, &product, &square, &product, &error, &range);
    if (power > 1 && !error) fp_multiply(fk_long_double, &square, &square, &square, &error, &range);
  }
  simul_fval value;
  if (!error)
    fp_change_kind(&product, fk_long_double, &value, float_kind_of(call.return_type), &error,
                   &range);
  if (error) return false;
  set_float_constant(call.result, &value, call.return_type);
  return true;
}

// ---- Strings, atomics, the rest ----------------------------------------------------------------

bool fold_strlen(const a_builtin_call &call) {
  const an_expr_node *arg = argument(call, 1);
  a_constant *string;
  if (in_cplusplus() || arg == nullptr || !expr_is_pointer_to_string_literal(arg, &string))
    return false;
  if (string->string_char_kind != chk_char) return false;
  const void *end = std::memchr(string->string_text, 0, string->string_length);
  if (end == nullptr) return false;
  give_integer(call, static_cast<const char *>(end) - string->string_text);
  return true;
}

bool fold_lock_free(const a_builtin_call &call) {
  bool always = call.builtin == bi_atomic_always_lock_free;
  const a_constant *size = constant_argument(call, 1, ck_integer);
  if (size == nullptr) {
    if (always) *call.error = ec_first_arg_must_be_integer_constant;
    return false;
  }
  const an_expr_node *object = argument(call, 2);
  bool no_object = always || (object != nullptr && object->kind == enk_constant &&
                              is_null_pointer_value(object->constant));
  switch (size->integer_value) {
    case 1:
    case 2:
    case 4:
      give_integer(call, 1);
      return true;
    case 8:
      if (no_object && !arm_arch_types.is_v7m()) {
        give_integer(call, 1);
        return true;
      }
      break;
    default:
      break;
  }
  if (!always) return false;
  give_integer(call, 0);
  return true;
}

bool fold_constant_p(const a_builtin_call &call) {
  const an_expr_node *arg = argument(call, 1);
  bool is_constant = arg != nullptr && arg->kind == enk_constant &&
                     arg->constant->kind != ck_address && arg->constant->kind != ck_error;
  give_integer(call, is_constant ? 1 : 0);
  return true;
}

// The numbers of the library's typeclass.h.
bool fold_classify_type(const a_builtin_call &call) {
  enum : std::uint8_t {
    void_class = 0,
    integer_class = 1,
    pointer_class = 5,
    real_class = 8,
    complex_class = 9,
    record_class = 12,
    union_class = 13
  };
  const an_expr_node *arg = argument(call, 1);
  if (arg == nullptr) return false;
  int answer = -1;
  switch (skip_typerefs(adjusted_param_type(arg->type))->kind) {
    case tk_void:
      answer = void_class;
      break;
    case tk_integer:
      answer = integer_class;
      break;
    case tk_pointer:
    case tk_nullptr:
      answer = pointer_class;
      break;
    case tk_float:
    case tk_imaginary:
      answer = real_class;
      break;
    case tk_complex:
      answer = complex_class;
      break;
    case tk_class:
    case tk_struct:
      answer = record_class;
      break;
    case tk_union:
      answer = union_class;
      break;
    default:
      break;
  }
  give_integer(call, answer);
  return true;
}

bool check_assume_aligned(const a_builtin_call &call) {
  const an_expr_node *third = argument(call, 3);
  if (count_arguments(call) > 3)
    *call.error = ec_too_many_arguments;
  else if (third != nullptr && !is_integral_type(third->type) && !is_error_type(third->type))
    *call.error = ec_3rd_arg_of_assume_aligned_must_be_integral;
  return false;
}

bool check_fpclassify(const a_builtin_call &call) {
  const an_expr_node *last = argument(call, 6);
  if (count_arguments(call) != 6)
    *call.error = ec_invalid_builtin_fpclassify_args;
  else if (!is_real_floating_type(last->type) && !is_template_param_type(last->type) &&
           !is_error_type(last->type))
    *call.error = ec_bad_final_builtin_fpclassify_arg;
  return false;
}

// ---- The table ---------------------------------------------------------------------------------

bool fold_known_builtin(const a_builtin_call &call) {
  switch (call.builtin) {
    case bi_abs:
    case bi_labs:
    case bi_llabs:
      return fold_abs(call);
    case bi_fabs:
    case bi_fabsf:
    case bi_fabsl:
      return fold_fabs(call);
    case bi_huge_val:
    case bi_huge_valf:
    case bi_huge_vall:
      return fold_special_float(call, make_huge_fp_val);
    case bi_inf:
    case bi_inff:
    case bi_infl:
      return fold_special_float(call, make_fp_infinity);
    case bi_nan:
    case bi_nanf:
    case bi_nanl:
      return fold_nan(call, false);
    case bi_nans:
    case bi_nansf:
    case bi_nansl:
      return fold_nan(call, true);
    case bi_isfinite:
      return fold_float_question(call, ask_finite);
    case bi_isinf:
    case bi_isinff:
    case bi_isinfl:
      return fold_float_question(call, ask_inf);
    case bi_isnan:
    case bi_isnanf:
    case bi_isnanl:
      return fold_float_question(call, ask_nan);
    case bi_isnormal:
      return fold_float_question(call, ask_normal);
    case bi_signbit:
    case bi_signbitf:
    case bi_signbitl:
      return fold_float_question(call, ask_sign);
#define BIT_FAMILY(name)                                     \
  case bi_##name:                                            \
    return fold_bits_of(call, ask_##name, ik_unsigned_int);  \
  case bi_##name##l:                                         \
    return fold_bits_of(call, ask_##name, ik_unsigned_long); \
  case bi_##name##ll:                                        \
    return fold_bits_of(call, ask_##name, ik_unsigned_long_long);
      BIT_FAMILY(clz)
      BIT_FAMILY(ctz)
      BIT_FAMILY(ffs)
      BIT_FAMILY(parity)
      BIT_FAMILY(popcount)
#undef BIT_FAMILY
    case bi_bswap16:
      return fold_bswap(call, 2);
    case bi_bswap32:
      return fold_bswap(call, 4);
    case bi_bswap64:
      return fold_bswap(call, 8);
    case bi_pow:
    case bi_powf:
    case bi_powl:
      return fold_pow(call);
    case bi_strlen:
      return fold_strlen(call);
    case bi_atomic_always_lock_free:
    case bi_atomic_is_lock_free:
      return fold_lock_free(call);
    case bi_constant_p:
      return fold_constant_p(call);
    case bi_classify_type:
      return fold_classify_type(call);
    case bi_assume_aligned:
      return check_assume_aligned(call);
    case bi_fpclassify:
      return check_fpclassify(call);
    default:
      return false;
  }
}

}  // namespace

bool is_foldable_gnu_builtin_function(const a_routine *routine, bool *always) {
  *always = false;
  int builtin = builtin_function_number(routine);
  switch (builtin) {
    case bi_classify_type:
    case bi_constant_p:
    case bi_stdarg_start:
    case bi_va_start:
    case bi_va_end:
    case bi_va_copy:
    case bi_va_arg:
      *always = true;
      return true;
    case bi_abs:
    case bi_labs:
    case bi_llabs:
    case bi_fabs:
    case bi_fabsf:
    case bi_huge_val:
    case bi_huge_valf:
    case bi_huge_vall:
    case bi_inf:
    case bi_inff:
    case bi_infl:
    case bi_nan:
    case bi_nanf:
    case bi_nanl:
    case bi_nans:
    case bi_nansf:
    case bi_nansl:
    case bi_bswap16:
    case bi_bswap32:
    case bi_bswap64:
    case bi_strlen:
    case bi_atomic_always_lock_free:
    case bi_atomic_is_lock_free:
      return true;
    default:
      // The front end's own rows but for the ones that only lowering knows.
      return builtin >= bi_clz && builtin <= bi_assume_aligned;
  }
}

bool fold_gnu_builtin_function_call_if_possible(const a_routine *routine, an_expr_node *args,
                                                an_expr_node *, a_constant *result,
                                                an_error_code *error) {
  *error = ec_no_error;
  a_builtin_call call = {builtin_function_number(routine), return_type_of(routine->type), args,
                         result, error};
  return call.builtin != bi_none && fold_known_builtin(call);
}
