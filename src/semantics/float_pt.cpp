// Floating constants of the target over the software floats: an operation is done at 96 bits, then
// rounded once more through the format of its kind. float is the IEEE single, every other kind the
// IEEE double, which long double shares on this target.
#include "semantics/float_pt.h"

#include <cstring>

namespace {

bool has_double_format(a_float_kind kind) {
  return kind != fk_float;
}

// Rounds *value through the format of kind; true when it left the range.
bool round_through_format(a_float_kind kind, simul_fval *value) {
  trg_fval pattern;
  fp_error = 0;
  f_cvt_stot(value, &pattern, has_double_format(kind));
  bool out_of_range = (fp_error & (fps_overflow | fps_underflow)) != 0;
  f_cvt_ttos(&pattern, value, has_double_format(kind));
  return out_of_range;
}

// The second half of every operation, behind the library's own.
void finish_operation(a_float_kind kind, int status, simul_fval *result, bool *error) {
  if (status < 0 || fp_error != 0) {
    *error = true;
    return;
  }
  *error = round_through_format(kind, result);
}

using a_library_operation = int (*)(const simul_fval *, const simul_fval *, simul_fval *);

void do_operation(a_library_operation operation, a_float_kind kind, const simul_fval *a,
                  const simul_fval *b, simul_fval *result, bool *error, bool *inexact_range) {
  *error = false;
  *inexact_range = false;
  fp_error = 0;
  int status = operation(a, b, result);
  finish_operation(kind, status, result, error);
}

}  // namespace

void float_pt_init() {
  fp_error = 0;
}

void fp_add(a_float_kind kind, const simul_fval *a, const simul_fval *b, simul_fval *result,
            bool *error, bool *inexact_range) {
  do_operation(f_add, kind, a, b, result, error, inexact_range);
}

void fp_subtract(a_float_kind kind, const simul_fval *a, const simul_fval *b, simul_fval *result,
                 bool *error, bool *inexact_range) {
  do_operation(f_sub, kind, a, b, result, error, inexact_range);
}

void fp_multiply(a_float_kind kind, const simul_fval *a, const simul_fval *b, simul_fval *result,
                 bool *error, bool *inexact_range) {
  do_operation(f_mul, kind, a, b, result, error, inexact_range);
}

void fp_divide(a_float_kind kind, const simul_fval *a, const simul_fval *b, simul_fval *result,
               bool *error, bool *inexact_range) {
  do_operation(f_div, kind, a, b, result, error, inexact_range);
}

void fp_negate(a_float_kind kind, const simul_fval *a, simul_fval *result, bool *error,
               bool *inexact_range) {
  *inexact_range = false;
  fp_error = 0;
  int status = f_neg(a, result);
  finish_operation(kind, status, result, error);
}

int fp_compare(a_float_kind, const simul_fval *a, const simul_fval *b, bool *unordered) {
  *unordered = f_is_nan(*a) || f_is_nan(*b);
  if (*unordered) return 0;
  return f_lt(a, b) ? -1 : f_gt(a, b) ? 1 : 0;
}

bool fp_is_negative(a_float_kind, const simul_fval *v) {
  return f_lt(v, &pos_zero);
}
bool fp_is_zero_constant(const simul_fval *v) {
  return f_is_zero(*v);
}
bool fp_is_nan(const simul_fval *v) {
  return f_is_nan(*v);
}
bool fp_is_infinity(const simul_fval *v) {
  return f_is_infinity(*v);
}

bool fp_is_normalized(const simul_fval *v, a_float_kind kind, bool *error) {
  trg_fval pattern;
  *error = false;
  fp_error = 0;
  f_cvt_stot(v, &pattern, has_double_format(kind));
  std::uint32_t field =
      has_double_format(kind) ? pattern.word[0] >> 20 & 0x7FF : pattern.word[0] >> 23 & 0xFF;
  return field != 0 && field != (has_double_format(kind) ? 0x7FFu : 0xFFu);
}

bool fp_same_representation(a_float_kind, const simul_fval *a, const simul_fval *b) {
  return std::memcmp(a->mantissa, b->mantissa, sizeof a->mantissa) == 0 &&
         a->exponent == b->exponent && a->sign == b->sign;
}

std::uint32_t fp_hash(const simul_fval *v) {
  std::uint32_t sum = v->sign;
  for (std::uint16_t digit : v->mantissa)
    sum += (digit & 0xFF) + (digit >> 8);
  for (std::uint32_t rest = static_cast<std::uint32_t>(v->exponent); rest != 0; rest >>= 8)
    sum += rest & 0xFF;
  return sum;
}

void fp_change_kind(const simul_fval *v, a_float_kind, simul_fval *result, a_float_kind to,
                    bool *error, bool *range) {
  *range = false;
  *result = *v;
  *error = round_through_format(to, result);
}

// The target's formats keep no payload and only quiet NaNs.
void make_fp_nan(simul_fval *v, a_float_kind kind, bool, a_host_large_integer) {
  *v = a_nan;
  round_through_format(kind, v);
}

void make_fp_infinity(simul_fval *v, a_float_kind kind) {
  *v = pos_infin;
  round_through_format(kind, v);
}

void make_huge_fp_val(simul_fval *v, a_float_kind kind) {
  make_fp_infinity(v, kind);
}

void fp_string_to_float(a_float_kind kind, const char *text, simul_fval *result,
                        bool *out_of_range) {
  *out_of_range = false;
  fp_error = 0;
  if (f_atof(text, result) < 0 || fp_error != 0) {
    *out_of_range = true;
    return;
  }
  *out_of_range = round_through_format(kind, result);
}

const char *fp_to_string(a_float_kind, const simul_fval *v) {
  static char text[64];
  f_ftoa(text, sizeof text, "%a", v);
  return text;
}

// ---- Hexadecimal literals ----------------------------------------------------------------------

namespace {

// The digits of a hexadecimal literal: as many leading bits as a value holds, and whether a bit
// below them is set. The value is the mantissa as a fraction, times 2 to the exponent.
struct a_mantissa {
  std::uint16_t digit[simul_fval_digits];
  int number_of_bits;  // from the first digit that is not 0
  bool bits_lost;      // a bit behind the last place was set
};

constexpr int mantissa_capacity = simul_fval_digits * 16;

void init_mantissa(a_mantissa *mantissa) {
  *mantissa = {};
}

void append_hex_digit(a_mantissa *mantissa, unsigned value) {
  if (mantissa->number_of_bits >= mantissa_capacity) {
    mantissa->bits_lost |= value != 0;
    return;
  }
  int place = mantissa->number_of_bits;
  mantissa->digit[place / 16] |= static_cast<std::uint16_t>(value << (12 - place % 16));
  mantissa->number_of_bits += 4;
}

int hex_digit_value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::int32_t clamped_exponent(const char *text) {
  bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  std::int32_t value = 0;
  for (; *text >= '0' && *text <= '9'; ++text)
    if (value < 10000000) value = value * 10 + (*text - '0');
  return negative ? -value : value;
}

// 0x digits . digits p exponent
void conv_hex_string_to_mantissa_and_exponent(const char *text, a_mantissa *mantissa,
                                              std::int64_t *exponent) {
  init_mantissa(mantissa);
  *exponent = 0;
  bool after_point = false, nonzero_seen = false;
  for (text += 2;; ++text) {
    if (*text == '.') {
      after_point = true;
      continue;
    }
    int value = hex_digit_value(*text);
    if (value < 0) break;
    nonzero_seen |= value != 0;
    if (nonzero_seen) append_hex_digit(mantissa, static_cast<unsigned>(value));
    if (nonzero_seen && !after_point) *exponent += 4;
    if (!nonzero_seen && after_point) *exponent -= 4;
  }
  if (*text == 'p' || *text == 'P') *exponent += clamped_exponent(text + 1);
}

// Rounds once, from the literal's own bits to the kind's format.
void round_hex_fp_value(a_float_kind kind, const a_mantissa *mantissa, std::int64_t exponent,
                        simul_fval *result, bool *out_of_range, bool *inexact) {
  simul_fval exact = {};
  std::memcpy(exact.mantissa, mantissa->digit, sizeof exact.mantissa);
  exact.exponent = static_cast<std::int32_t>(exponent);
  f_left_justify(&exact);
  if (mantissa->bits_lost) exact.mantissa[simul_fval_digits - 1] |= 1;
  trg_fval pattern;
  fp_error = 0;
  f_cvt_stot(&exact, &pattern, has_double_format(kind));
  *out_of_range = fp_error != 0;
  f_cvt_ttos(&pattern, result, has_double_format(kind));
  simul_fval rounded = *result;
  f_left_justify(&rounded);
  *inexact =
      !*out_of_range && (mantissa->bits_lost || !fp_same_representation(kind, &rounded, &exact));
}

}  // namespace

void fp_hex_string_to_float(a_float_kind kind, const char *text, simul_fval *result,
                            bool *out_of_range, bool *inexact) {
  a_mantissa mantissa;
  std::int64_t exponent;
  *out_of_range = false;
  *inexact = false;
  conv_hex_string_to_mantissa_and_exponent(text, &mantissa, &exponent);
  if (mantissa.number_of_bits == 0) {
    *result = pos_zero;
  } else if (exponent > 30000 || exponent < -30000) {
    *out_of_range = true;
    *result = exponent > 0 ? pos_infin : pos_zero;
  } else {
    round_hex_fp_value(kind, &mantissa, exponent, result, out_of_range, inexact);
  }
}

// ---- From and to integers ----------------------------------------------------------------------

void conv_integer_value_to_float(a_host_large_integer value, bool is_signed, simul_fval *result,
                                 a_float_kind kind, bool *error) {
  if (is_signed)
    f_itof(static_cast<std::int64_t>(value), result);
  else
    f_utof(value, result);
  *error = round_through_format(kind, result);
}

void fp_host_large_integer_to_float(a_float_kind kind, std::int64_t value, simul_fval *result,
                                    bool *error) {
  conv_integer_value_to_float(static_cast<a_host_large_integer>(value), true, result, kind, error);
}

void fp_to_host_large_integer(a_float_kind kind, simul_fval *v, std::int64_t *value, bool *overflow,
                              bool *unused) {
  *unused = false;
  round_through_format(kind, v);
  fp_error = 0;
  f_ftoi(v, value);
  *overflow = fp_error != 0;
}

void fp_to_host_large_unsigned(a_float_kind kind, simul_fval *v, a_host_large_integer *value,
                               bool *overflow, bool *unused) {
  *unused = false;
  round_through_format(kind, v);
  fp_error = 0;
  f_ftou(v, value);
  *overflow = fp_error != 0;
}

void fp_to_target_format(a_float_kind kind, const simul_fval *v, trg_fval *out) {
  fp_error = 0;
  f_cvt_stot(v, out, has_double_format(kind));
}
