// Floating arithmetic in software, so that a folded value never depends on the host's floating
// unit. A value is a 96-bit fraction with a binary exponent; the target's IEEE formats are reached
// by two conversions. Knows nothing of the language: the kinds of the target and the rules for
// literals stand above it in semantics/float_pt.h.
#ifndef UTIL_FPSMATH_H
#define UTIL_FPSMATH_H

#include <cstddef>
#include <cstdint>

inline constexpr int simul_fval_digits = 6;
inline constexpr std::int32_t simul_exp_special = 32767;  // infinity (no digit set) or NaN
inline constexpr std::int32_t simul_exp_zero = -32767;    // a signed zero

// The simulated floating value: 0.d0d1d2d3d4d5 in base 65536, times 2 to the exponent. At rest the
// exponent of a finite value other than zero is a multiple of 16 and digit 0 is not zero.
struct simul_fval {
  std::uint16_t mantissa[simul_fval_digits];  // digit 0 is the most significant
  std::int32_t exponent;                      // power of two, or one of the two special values
  std::uint8_t sign;                          // 0 positive, 1 negative
};
static_assert(sizeof(simul_fval) == 20);

// The target's bit pattern: word[0] alone for a single, high and low word for a double.
struct trg_fval {
  std::uint32_t word[2];
};

// Sticky status of the library; users clear it before an operation.
enum a_fp_status : int {
  fps_invalid = 1,
  fps_divide_by_zero = 2,
  fps_overflow = 4,
  fps_underflow = 8
};
extern thread_local int fp_error;

extern const simul_fval const_one, one, neg_one, const_ten, const_sixteen, two, neg_two, four;
extern const simul_fval one_p_five, one_q, one_half, three_q;
extern const simul_fval pos_huge, neg_huge, pos_zero, neg_zero, pos_infin, neg_infin, a_nan;
extern const simul_fval const_dig[16];  // the values 0 to 15

// Classification of a record by its own fields.
inline bool f_mantissa_is_zero(const simul_fval &v) {
  return (v.mantissa[0] | v.mantissa[1] | v.mantissa[2] | v.mantissa[3] | v.mantissa[4] |
          v.mantissa[5]) == 0;
}
inline bool f_is_zero(const simul_fval &v) {
  return v.exponent == simul_exp_zero && f_mantissa_is_zero(v);
}
inline bool f_is_infinity(const simul_fval &v) {
  return v.exponent == simul_exp_special && f_mantissa_is_zero(v);
}
inline bool f_is_nan(const simul_fval &v) {
  return v.exponent == simul_exp_special && !f_mantissa_is_zero(v);
}

// Arithmetic at 96 bits, rounded half up in the last digit. A negative result says that the
// operation failed (invalid, division by zero, out of range); *result is set all the same, and may
// be an operand.
int f_add(const simul_fval *a, const simul_fval *b, simul_fval *result);
int f_sub(const simul_fval *a, const simul_fval *b, simul_fval *result);
int f_mul(const simul_fval *a, const simul_fval *b, simul_fval *result);
int f_div(const simul_fval *a, const simul_fval *b, simul_fval *result);
int f_neg(const simul_fval *a, simul_fval *result);

// Comparisons; every one but f_ne is false when an operand is a NaN.
bool f_eq(const simul_fval *a, const simul_fval *b);
bool f_ne(const simul_fval *a, const simul_fval *b);
bool f_lt(const simul_fval *a, const simul_fval *b);
bool f_le(const simul_fval *a, const simul_fval *b);
bool f_gt(const simul_fval *a, const simul_fval *b);
bool f_ge(const simul_fval *a, const simul_fval *b);

int f_frexp(const simul_fval *a, int *exponent, simul_fval *fraction);  // fraction in [0.5, 1)
int f_ldexp(const simul_fval *a, int exponent, simul_fval *result);

// From and to 64-bit integers. f_ftoi and f_ftou truncate; out of range gives the largest word of
// the sign and fps_overflow, a NaN gives 0 and fps_invalid.
int f_itof(std::int64_t value, simul_fval *result);
int f_utof(std::uint64_t value, simul_fval *result);
int f_ftoi(const simul_fval *a, std::int64_t *result);
int f_ftou(const simul_fval *a, std::uint64_t *result);

// Text: decimal and hexadecimal literals without suffix, "nan", "inf"; and one "%a" or "%e"-free
// conversion back (only a and A are known, the text is exact).
int f_atof(const char *text, simul_fval *result);
void f_ftoa(char *buffer, std::size_t size, const char *format, const simul_fval *value);

// To and from the target's formats; to_double selects the format. f_cvt_stot returns 1 when the
// value overflows to an infinity or underflows to zero, with fp_error set.
int f_cvt_stot(const simul_fval *value, trg_fval *out, bool to_double);
void f_cvt_ttos(const trg_fval *value, simul_fval *out, bool from_double);

// Builds the value of an n-digit buffer (digit 0 most significant, value 0.d0d1... times
// 2^exponent), rounded half up to the resting form; for literals in hexadecimal.
void f_from_digits(const std::uint16_t *digits, int count, std::int32_t exponent, bool negative,
                   simul_fval *result);

void f_align_radix_pt(simul_fval *value);
void f_left_justify(simul_fval *value);

#endif
