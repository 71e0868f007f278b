// Arithmetic of simulated floats. A value at rest has its radix point on a digit boundary (the
// exponent is a multiple of 16), so that operands align by whole digits; a working form with the
// top bit of digit 0 set serves the conversions. Results are the exact ones rounded half up in the
// last digit of six, so that 81 to 96 bits hold.
#include "UTIL/fpsmath.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

thread_local int fp_error = 0;

const simul_fval const_one = {{1}, 16, 0}, one = {{1}, 16, 0}, neg_one = {{1}, 16, 1};
const simul_fval const_ten = {{10}, 16, 0}, const_sixteen = {{16}, 16, 0};
const simul_fval two = {{2}, 16, 0}, neg_two = {{2}, 16, 1}, four = {{4}, 16, 0};
const simul_fval one_p_five = {{1, 32768}, 16, 0}, one_q = {{16384}, 0, 0};
const simul_fval one_half = {{32768}, 0, 0}, three_q = {{49152}, 0, 0};
const simul_fval pos_huge = {{1}, 32752, 0}, neg_huge = {{1}, 32752, 1};
const simul_fval pos_zero = {{}, simul_exp_zero, 0}, neg_zero = {{}, simul_exp_zero, 1};
const simul_fval pos_infin = {{}, simul_exp_special, 0}, neg_infin = {{}, simul_exp_special, 1};
const simul_fval a_nan = {{1}, simul_exp_special, 0};
const simul_fval const_dig[16] = {{{}, simul_exp_zero, 0},
                                  {{1}, 16, 0},
                                  {{2}, 16, 0},
                                  {{3}, 16, 0},
                                  {{4}, 16, 0},
                                  {{5}, 16, 0},
                                  {{6}, 16, 0},
                                  {{7}, 16, 0},
                                  {{8}, 16, 0},
                                  {{9}, 16, 0},
                                  {{10}, 16, 0},
                                  {{11}, 16, 0},
                                  {{12}, 16, 0},
                                  {{13}, 16, 0},
                                  {{14}, 16, 0},
                                  {{15}, 16, 0}};

namespace {

constexpr int digit_bits = 16;
constexpr int digits = simul_fval_digits;
constexpr int work_digits = 2 * digits + 1;  // a carry digit and a double-width mantissa

using a_digit = std::uint16_t;

bool is_special(const simul_fval *v) {
  return v->exponent == simul_exp_special || f_is_zero(*v);
}

simul_fval signed_zero(int sign) {
  return sign ? neg_zero : pos_zero;
}
simul_fval signed_infinity(int sign) {
  return sign ? neg_infin : pos_infin;
}

void shift_digits_left(a_digit *digit, int count, int places) {
  std::memmove(digit, digit + places, (count - places) * sizeof(a_digit));
  std::memset(digit + count - places, 0, places * sizeof(a_digit));
}

void shift_digits_right(a_digit *digit, int count, int places) {
  std::memmove(digit + places, digit, (count - places) * sizeof(a_digit));
  std::memset(digit, 0, places * sizeof(a_digit));
}

// Brings a buffer (digit 0 takes a carry, digits 1 to 6 are the mantissa, the rest is below it) to
// resting form, rounding half up by the top bit of digit 7. All zero gives exponent 0.
void f_normalize(a_digit *digit, std::int32_t *exponent, int count) {
  int leading = 1;
  while (leading < count && digit[leading] == 0)
    ++leading;
  if (digit[0] == 0) {
    if (leading == count) {
      *exponent = 0;
      return;
    }
    if (leading > 1) {
      shift_digits_left(digit + 1, count - 1, leading - 1);
      *exponent -= digit_bits * (leading - 1);
    }
  }
  bool rounded = false;
  for (;;) {
    if (digit[0] != 0) {
      shift_digits_right(digit, count, 1);
      *exponent += digit_bits;
      if (rounded) return;
    }
    if (rounded || count <= digits + 1 || (digit[digits + 1] & 0x8000) == 0) return;
    rounded = true;
    for (int i = digits; i >= 0 && ++digit[i] == 0; --i) {
    }
  }
}

// Stores a normalized buffer. A failure (out of range) gives -1.
int store_result(const a_digit *digit, std::int32_t exponent, int sign, simul_fval *result) {
  if (exponent >= simul_exp_special) {
    fp_error |= fps_overflow;
    *result = signed_infinity(sign);
    return -1;
  }
  if (exponent < simul_exp_zero) {
    fp_error |= fps_underflow;
    *result = signed_zero(sign);
    return -1;
  }
  std::memcpy(result->mantissa, digit + 1, sizeof result->mantissa);
  result->exponent = exponent;
  result->sign = static_cast<std::uint8_t>(sign);
  return 0;
}

int give_invalid(simul_fval *result) {
  fp_error |= fps_invalid;
  *result = a_nan;
  return -1;
}

// -1, 0, 1 by magnitude; no NaN.
int compare_magnitudes(const simul_fval *a, const simul_fval *b) {
  bool a_zero = f_is_zero(*a), b_zero = f_is_zero(*b);
  if (a_zero || b_zero) return a_zero == b_zero ? 0 : a_zero ? -1 : 1;
  if (a->exponent != b->exponent) return a->exponent < b->exponent ? -1 : 1;
  for (int i = 0; i < digits; ++i)
    if (a->mantissa[i] != b->mantissa[i]) return a->mantissa[i] < b->mantissa[i] ? -1 : 1;
  return 0;
}

// -1, 0, 1; 2 when a NaN makes them unordered.
int compare_values(const simul_fval *a, const simul_fval *b) {
  if (f_is_nan(*a) || f_is_nan(*b)) return 2;
  if (f_is_zero(*a) && f_is_zero(*b)) return 0;
  if (a->sign != b->sign) return a->sign ? -1 : 1;
  int order = compare_magnitudes(a, b);
  return a->sign ? -order : order;
}

// Sum of finite values other than zero, large not below small in magnitude.
int add_finite(const simul_fval *large, const simul_fval *small, simul_fval *result) {
  int offset = (large->exponent - small->exponent) / digit_bits;
  if (large->exponent - small->exponent >= 144) {
    *result = *large;
    return 0;
  }
  a_digit sum[work_digits] = {}, addend[work_digits] = {};
  std::memcpy(sum + 1, large->mantissa, sizeof large->mantissa);
  for (int i = 0; i < digits && 1 + offset + i < work_digits; ++i)
    addend[1 + offset + i] = small->mantissa[i];
  std::uint32_t carry = 0;
  if (large->sign != small->sign) {
    for (a_digit &digit : addend)
      digit = static_cast<a_digit>(~digit);
    carry = 1;
  }
  for (int i = work_digits - 1; i >= 0; --i) {
    carry += static_cast<std::uint32_t>(sum[i]) + addend[i];
    sum[i] = static_cast<a_digit>(carry);
    carry >>= digit_bits;
  }
  std::int32_t exponent = large->exponent;
  int sign = large->sign;
  f_normalize(sum, &exponent, work_digits);
  if (sum[1] == 0) {
    *result = pos_zero;
    return 0;
  }
  return store_result(sum, exponent, sign, result);
}

}  // namespace

int f_add(const simul_fval *a, const simul_fval *b, simul_fval *result) {
  if (f_is_nan(*a) || f_is_nan(*b)) {
    *result = f_is_nan(*a) ? *a : *b;
    return 0;
  }
  if (f_is_infinity(*a) || f_is_infinity(*b)) {
    if (f_is_infinity(*a) && f_is_infinity(*b) && a->sign != b->sign) return give_invalid(result);
    *result = f_is_infinity(*a) ? *a : *b;
    return 0;
  }
  if (f_is_zero(*a) && f_is_zero(*b)) {
    *result = a->sign && b->sign ? neg_zero : pos_zero;
    return 0;
  }
  if (f_is_zero(*a) || f_is_zero(*b)) {
    *result = f_is_zero(*a) ? *b : *a;
    return 0;
  }
  return compare_magnitudes(a, b) < 0 ? add_finite(b, a, result) : add_finite(a, b, result);
}

int f_neg(const simul_fval *a, simul_fval *result) {
  *result = *a;
  result->sign ^= 1;
  return 0;
}

int f_sub(const simul_fval *a, const simul_fval *b, simul_fval *result) {
  simul_fval negated;
  f_neg(b, &negated);
  return f_add(a, &negated, result);
}

int f_mul(const simul_fval *a, const simul_fval *b, simul_fval *result) {
  int sign = a->sign ^ b->sign;
  if (is_special(a) || is_special(b)) {
    if (f_is_nan(*a) || f_is_nan(*b)) {
      *result = f_is_nan(*a) ? *a : *b;
      return 0;
    }
    bool infinite = f_is_infinity(*a) || f_is_infinity(*b);
    if (infinite && (f_is_zero(*a) || f_is_zero(*b))) return give_invalid(result);
    *result = infinite ? signed_infinity(sign) : signed_zero(sign);
    return 0;
  }
  a_digit product[work_digits] = {};
  for (int i = digits - 1; i >= 0; --i) {
    std::uint32_t carry = 0;
    for (int j = digits - 1; j >= 0; --j) {
      carry += static_cast<std::uint32_t>(a->mantissa[i]) * b->mantissa[j] + product[i + j + 2];
      product[i + j + 2] = static_cast<a_digit>(carry);
      carry >>= digit_bits;
    }
    product[i + 1] = static_cast<a_digit>(carry);
  }
  std::int32_t exponent = a->exponent + b->exponent;
  f_normalize(product, &exponent, work_digits);
  return store_result(product, exponent, sign, result);
}

int f_div(const simul_fval *a, const simul_fval *b, simul_fval *result) {
  int sign = a->sign ^ b->sign;
  if (is_special(a) || is_special(b)) {
    if (f_is_nan(*a) || f_is_nan(*b)) {
      *result = f_is_nan(*a) ? *a : *b;
      return 0;
    }
    if (f_is_zero(*a) && f_is_zero(*b)) return give_invalid(result);
    if (f_is_infinity(*a) && f_is_infinity(*b)) return give_invalid(result);
    if (f_is_zero(*b) && !f_is_infinity(*a)) {
      fp_error |= fps_divide_by_zero;
      *result = signed_infinity(sign);
      return -1;
    }
    *result = f_is_infinity(*a) ? signed_infinity(sign) : signed_zero(sign);
    return 0;
  }
  // Long division digit by digit: the remainder stays below the divisor's 96 bits.
  unsigned __int128 rest = 0, divisor = 0;
  for (int i = 0; i < digits; ++i) {
    rest = rest << digit_bits | a->mantissa[i];
    divisor = divisor << digit_bits | b->mantissa[i];
  }
  constexpr int quotient_digits = digits + 3;
  a_digit quotient[quotient_digits];
  for (a_digit &digit : quotient) {
    digit = static_cast<a_digit>(rest / divisor);
    rest = rest % divisor << digit_bits;
  }
  std::int32_t exponent = a->exponent - b->exponent;
  f_normalize(quotient, &exponent, quotient_digits);
  return store_result(quotient, exponent, sign, result);
}

bool f_eq(const simul_fval *a, const simul_fval *b) {
  return compare_values(a, b) == 0;
}
bool f_ne(const simul_fval *a, const simul_fval *b) {
  return compare_values(a, b) != 0;
}
bool f_lt(const simul_fval *a, const simul_fval *b) {
  return compare_values(a, b) == -1;
}
bool f_gt(const simul_fval *a, const simul_fval *b) {
  return compare_values(a, b) == 1;
}

bool f_le(const simul_fval *a, const simul_fval *b) {
  int order = compare_values(a, b);
  return order == -1 || order == 0;
}

bool f_ge(const simul_fval *a, const simul_fval *b) {
  int order = compare_values(a, b);
  return order == 1 || order == 0;
}

// Moves leading zero bits out, so that the top bit of digit 0 is set.
void f_left_justify(simul_fval *value) {
  if (is_special(value)) return;
  if (f_mantissa_is_zero(*value)) {
    std::fputs(">>>Internal Error: Illegal float representation!\n", stderr);
    std::exit(1);
  }
  int leading = 0;
  while (value->mantissa[leading] == 0)
    ++leading;
  if (leading > 0) shift_digits_left(value->mantissa, digits, leading);
  int bits = __builtin_clz(value->mantissa[0]) - 16;
  if (bits > 0) {
    for (int i = 0; i < digits; ++i) {
      unsigned next = i + 1 < digits ? value->mantissa[i + 1] : 0;
      value->mantissa[i] =
          static_cast<a_digit>(value->mantissa[i] << bits | next >> (digit_bits - bits));
    }
  }
  value->exponent -= leading * digit_bits + bits;
  if (value->exponent < simul_exp_zero) {
    fp_error |= fps_underflow;
    *value = signed_zero(value->sign);
  }
}

// From the left-justified form to the resting form.
void f_align_radix_pt(simul_fval *value) {
  if (is_special(value)) return;
  int bits = -value->exponent & (digit_bits - 1);
  if (bits > 0) {
    for (int i = digits - 1; i >= 0; --i) {
      unsigned above = i > 0 ? value->mantissa[i - 1] : 0;
      value->mantissa[i] =
          static_cast<a_digit>(value->mantissa[i] >> bits | above << (digit_bits - bits));
    }
    value->exponent += bits;
  }
  if (value->exponent >= simul_exp_special) {
    fp_error |= fps_overflow;
    *value = signed_infinity(value->sign);
  }
}

int f_frexp(const simul_fval *a, int *exponent, simul_fval *fraction) {
  *fraction = *a;
  *exponent = 0;
  if (is_special(a)) return 0;
  f_left_justify(fraction);
  *exponent = fraction->exponent;
  fraction->exponent = 0;
  return 0;
}

int f_ldexp(const simul_fval *a, int exponent, simul_fval *result) {
  *result = *a;
  if (is_special(a)) return 0;
  f_left_justify(result);
  std::int64_t sum = std::int64_t{result->exponent} + exponent;
  if (sum >= simul_exp_special || sum < simul_exp_zero) {
    bool over = sum > 0;
    fp_error |= over ? fps_overflow : fps_underflow;
    *result = over ? signed_infinity(a->sign) : signed_zero(a->sign);
    return -1;
  }
  result->exponent = static_cast<std::int32_t>(sum);
  f_align_radix_pt(result);
  return f_is_infinity(*result) ? -1 : 0;
}

void f_from_digits(const std::uint16_t *source, int count, std::int32_t exponent, bool negative,
                   simul_fval *result) {
  int leading = 0;
  while (leading < count && source[leading] == 0)
    ++leading;
  a_digit buffer[digits + 2] = {};
  for (int i = 0; i < digits + 1 && leading + i < count; ++i)
    buffer[i + 1] = source[leading + i];
  exponent -= leading * digit_bits;
  f_normalize(buffer, &exponent, digits + 2);
  if (buffer[1] == 0)
    *result = signed_zero(negative);
  else
    store_result(buffer, exponent, negative, result);
}

int f_utof(std::uint64_t value, simul_fval *result) {
  const a_digit source[4] = {static_cast<a_digit>(value >> 48), static_cast<a_digit>(value >> 32),
                             static_cast<a_digit>(value >> 16), static_cast<a_digit>(value)};
  f_from_digits(source, 4, 64, false, result);
  return 0;
}

int f_itof(std::int64_t value, simul_fval *result) {
  bool negative = value < 0;
  f_utof(negative ? -static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value), result);
  if (negative) result->sign = 1;
  return 0;
}

namespace {

// The integer part of a magnitude; false when it needs more than 64 bits.
bool integer_part(const simul_fval *a, std::uint64_t *value) {
  *value = 0;
  if (f_is_zero(*a) || a->exponent <= 0) return true;
  if (a->exponent > 64) return false;
  int whole = a->exponent / digit_bits;
  for (int i = 0; i < whole; ++i)
    *value = *value << digit_bits | a->mantissa[i];
  return true;
}

int give_integer_failure(const simul_fval *a) {
  fp_error |= f_is_nan(*a) ? fps_invalid : fps_overflow;
  return -1;
}

}  // namespace

int f_ftoi(const simul_fval *a, std::int64_t *result) {
  std::uint64_t magnitude;
  if (f_is_nan(*a)) {
    *result = 0;
    return give_integer_failure(a);
  }
  constexpr std::uint64_t limit = std::uint64_t{1} << 63;
  if (!integer_part(a, &magnitude) || magnitude > limit || (magnitude == limit && !a->sign)) {
    *result = a->sign ? INT64_MIN : INT64_MAX;
    return give_integer_failure(a);
  }
  *result = static_cast<std::int64_t>(a->sign ? -magnitude : magnitude);
  return 0;
}

int f_ftou(const simul_fval *a, std::uint64_t *result) {
  if (f_is_nan(*a)) {
    *result = 0;
    return give_integer_failure(a);
  }
  bool fits = integer_part(a, result);
  if (fits && (!a->sign || *result == 0)) return 0;
  *result = a->sign ? 0 : UINT64_MAX;
  return give_integer_failure(a);
}
