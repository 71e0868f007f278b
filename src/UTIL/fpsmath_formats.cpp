// Simulated floats to and from the target's bit patterns, decimal and hexadecimal text.
#include <strings.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "UTIL/fpsmath.h"

namespace {

// An IEEE format: how many bits the significand (with the implied bit) and the exponent have.
struct a_format {
  int significand_bits;
  int exponent_bits;
  int bias;  // of a significand read as a fraction: exponent field minus binary exponent
};
constexpr a_format single_format = {24, 8, 126};
constexpr a_format double_format = {53, 11, 1022};

void store_pattern(const a_format &format, int sign, std::uint64_t exponent_field,
                   std::uint64_t fraction, trg_fval *out) {
  std::uint64_t bits = exponent_field << (format.significand_bits - 1) | fraction;
  if (format.significand_bits == single_format.significand_bits) {
    out->word[0] = static_cast<std::uint32_t>(bits | static_cast<std::uint64_t>(sign) << 31);
    out->word[1] = 0;
  } else {
    bits |= static_cast<std::uint64_t>(sign) << 63;
    out->word[0] = static_cast<std::uint32_t>(bits >> 32);
    out->word[1] = static_cast<std::uint32_t>(bits);
  }
}

// Rounds a finite value other than zero, left-justified, to nearest even. Out of range gives 1.
int round_to_format(const simul_fval &value, const a_format &format, trg_fval *out) {
  std::uint64_t top = 0;
  for (int i = 0; i < 4; ++i)
    top = top << 16 | value.mantissa[i];
  int below = 64 - format.significand_bits;
  std::uint64_t significand = top >> below;
  bool guard = top >> (below - 1) & 1;
  bool sticky = (top & ((std::uint64_t{1} << (below - 1)) - 1)) != 0 || value.mantissa[4] != 0 ||
                value.mantissa[5] != 0;
  const std::uint64_t implied = std::uint64_t{1} << (format.significand_bits - 1);
  const int top_field = (1 << format.exponent_bits) - 1;

  int field = value.exponent + format.bias;
  bool denormal = field < 1;
  while (field < 1 && (significand != 0 || guard)) {
    sticky |= guard;
    guard = significand & 1;
    significand >>= 1;
    ++field;
  }
  if (guard && (sticky || (significand & 1))) ++significand;
  if (denormal) {
    field = significand >= implied ? 1 : 0;
  } else if (significand == implied << 1) {
    significand >>= 1;
    ++field;
  }
  if (significand == 0) {
    fp_error = fps_underflow;
    store_pattern(format, value.sign, 0, 0, out);
    return 1;
  }
  if (field >= top_field) {
    fp_error = fps_overflow;
    store_pattern(format, value.sign, top_field, 0, out);
    return 1;
  }
  store_pattern(format, value.sign, field, significand & (implied - 1), out);
  return 0;
}

int convert_to_format(const simul_fval *value, const a_format &format, trg_fval *out) {
  const std::uint64_t top_field = (1u << format.exponent_bits) - 1;
  if (f_is_zero(*value)) {
    store_pattern(format, value->sign, 0, 0, out);
    return 0;
  }
  if (value->exponent == simul_exp_special) {
    std::uint64_t quiet = std::uint64_t{1} << (format.significand_bits - 2);
    store_pattern(format, value->sign, top_field, f_is_nan(*value) ? quiet : 0, out);
    return 0;
  }
  simul_fval justified = *value;
  f_left_justify(&justified);
  if (f_is_zero(justified)) {
    store_pattern(format, value->sign, 0, 0, out);
    return 1;
  }
  return round_to_format(justified, format, out);
}

void convert_from_format(const trg_fval *value, const a_format &format, simul_fval *out) {
  bool single = format.significand_bits == single_format.significand_bits;
  std::uint64_t bits =
      single ? value->word[0] : static_cast<std::uint64_t>(value->word[0]) << 32 | value->word[1];
  const std::uint64_t implied = std::uint64_t{1} << (format.significand_bits - 1);
  const std::uint64_t top_field = (1u << format.exponent_bits) - 1;
  std::uint64_t fraction = bits & (implied - 1);
  std::uint64_t field = bits >> (format.significand_bits - 1) & top_field;
  std::uint8_t sign = static_cast<std::uint8_t>(bits >> (single ? 31 : 63) & 1);
  if (field == top_field) {
    *out = fraction ? a_nan : pos_infin;
    out->sign = sign;
    return;
  }
  if (field == 0 && fraction == 0) {
    *out = sign ? neg_zero : pos_zero;
    return;
  }
  if (field != 0)
    fraction |= implied;
  else
    field = 1;
  fraction <<= 64 - format.significand_bits;
  *out = {{static_cast<std::uint16_t>(fraction >> 48), static_cast<std::uint16_t>(fraction >> 32),
           static_cast<std::uint16_t>(fraction >> 16), static_cast<std::uint16_t>(fraction)},
          static_cast<std::int32_t>(field) - format.bias,
          sign};
  f_left_justify(out);
  f_align_radix_pt(out);
}

// ---- Powers of ten ----

// Ten to the 1, 2, 4, ... 256, rounded from the exact integers on first use.
constexpr int power_count = 9;
simul_fval power_of_ten[power_count];
bool powers_are_filled = false;

struct precise_sim_fval {
  static constexpr int count = 56;  // 10 to the 256 has 851 bits
  std::uint16_t digit[count];
};

void multiply_by_ten(precise_sim_fval *value) {
  std::uint32_t carry = 0;
  for (int i = precise_sim_fval::count - 1; i >= 0; --i) {
    carry += value->digit[i] * 10u;
    value->digit[i] = static_cast<std::uint16_t>(carry);
    carry >>= 16;
  }
}

void f_rnd_prectbl() {
  precise_sim_fval value = {};
  value.digit[precise_sim_fval::count - 1] = 1;
  int exponent = 0;
  for (int i = 0; i < power_count; ++i) {
    for (; exponent < 1 << i; ++exponent)
      multiply_by_ten(&value);
    f_from_digits(value.digit, precise_sim_fval::count, precise_sim_fval::count * 16, false,
                  &power_of_ten[i]);
  }
  powers_are_filled = true;
}

// Multiplies by ten to the exponent. At 512 and above there is no such power: out of range.
int scale_by_power_of_ten(simul_fval *value, int exponent) {
  if (!powers_are_filled) f_rnd_prectbl();
  unsigned magnitude = exponent < 0 ? -static_cast<unsigned>(exponent) : exponent;
  if (magnitude >> power_count != 0) {
    fp_error |= fps_overflow;
    *value = value->sign ? neg_infin : pos_infin;
    return -1;
  }
  for (int i = 0; magnitude != 0; ++i, magnitude >>= 1) {
    if ((magnitude & 1) == 0) continue;
    int status = exponent < 0 ? f_div(value, &power_of_ten[i], value)
                              : f_mul(value, &power_of_ten[i], value);
    if (status < 0) return status;
  }
  return 0;
}

// ---- Text to value ----

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

int hex_digit_value(char c) {
  if (is_digit(c)) return c - '0';
  char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// An exponent in decimal; stops growing far outside every range.
int exponent_value(const char *text) {
  bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  int value = 0;
  for (; is_digit(*text); ++text)
    if (value < 100000000) value = value * 10 + (*text - '0');
  return negative ? -value : value;
}

int convert_hexadecimal(const char *text, simul_fval *result) {
  int exponent = 0;
  bool after_point = false;
  *result = pos_zero;
  for (;; ++text) {
    if (*text == '.') {
      after_point = true;
      continue;
    }
    int digit = hex_digit_value(*text);
    if (digit < 0) break;
    if (f_mul(result, &const_sixteen, result) < 0) return -1;
    f_add(result, &const_dig[digit], result);
    if (after_point) exponent -= 4;
  }
  if (*text == 'p' || *text == 'P') exponent += exponent_value(text + 1);
  return f_ldexp(result, exponent, result);
}

// Digits behind these cannot change the 96 bits; dropping them keeps the scaling in range.
constexpr int max_decimal_digits = 40;

// The text is digits with a point and an exponent. All digits make an integer, the place of the
// point and the exponent a power of ten to scale by.
int convert_decimal(const char *text, simul_fval *result) {
  int exponent = 0, taken = 0, pending_zeros = 0;
  bool after_point = false;
  *result = pos_zero;
  for (;; ++text) {
    if (*text == '.' && !after_point) {
      after_point = true;
      continue;
    }
    if (!is_digit(*text)) break;
    if (after_point) --exponent;
    if (*text == '0' || taken + pending_zeros >= max_decimal_digits) {
      if (taken > 0) ++pending_zeros;  // trailing zeros move to the exponent
      continue;
    }
    for (++pending_zeros; pending_zeros > 0; --pending_zeros, ++taken)
      if (f_mul(result, &const_ten, result) < 0) return -1;
    f_add(result, &const_dig[*text - '0'], result);
  }
  if (taken == 0) return 0;
  exponent += pending_zeros;
  if (*text == 'e' || *text == 'E') exponent += exponent_value(text + 1);
  return exponent == 0 ? 0 : scale_by_power_of_ten(result, exponent);
}

// ---- Value to text ----

// The exact hexadecimal text: 1.5 is 0x1.8p+0.
void f_acvt(const simul_fval *value, char *out, std::size_t size) {
  char digits_text[32];
  int length = 0, exponent;
  simul_fval rest;
  f_frexp(value, &exponent, &rest);
  f_ldexp(&rest, 1, &rest);
  std::int64_t digit;
  f_ftoi(&rest, &digit);
  std::int64_t first = digit;
  for (;;) {
    simul_fval whole;
    f_itof(digit, &whole);
    f_sub(&rest, &whole, &rest);
    if (f_is_zero(rest)) break;
    f_mul(&rest, &const_sixteen, &rest);
    f_ftoi(&rest, &digit);
    digits_text[length++] = "0123456789abcdef"[digit];
  }
  digits_text[length] = '\0';
  std::snprintf(out, size, "0x%d%s%sp%+d", static_cast<int>(first), length > 0 ? "." : "",
                digits_text, exponent - 1);
}

}  // namespace

int f_cvt_stot(const simul_fval *value, trg_fval *out, bool to_double) {
  return convert_to_format(value, to_double ? double_format : single_format, out);
}

void f_cvt_ttos(const trg_fval *value, simul_fval *out, bool from_double) {
  convert_from_format(value, from_double ? double_format : single_format, out);
}

int f_atof(const char *text, simul_fval *result) {
  bool negative = *text == '-';
  if (*text == '-' || *text == '+') ++text;
  if (strcasecmp(text, "nan") == 0) {
    *result = a_nan;
    return 0;
  }
  int status = 0;
  if (strcasecmp(text, "inf") == 0)
    *result = pos_infin;
  else if (text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
    status = convert_hexadecimal(text + 2, result);
  else
    status = convert_decimal(text, result);
  result->sign = negative;
  return status;
}

void f_ftoa(char *buffer, std::size_t size, const char *format, const simul_fval *value) {
  std::size_t used = 0;
  while (*format != '\0' && *format != '%' && used + 1 < size)
    buffer[used++] = *format++;
  buffer[used] = '\0';
  char text[64] = "nan";
  if (!f_is_nan(*value)) {
    simul_fval magnitude = *value;
    magnitude.sign = 0;
    int length = std::snprintf(text, sizeof text, "%s", value->sign ? "-" : "");
    if (f_is_infinity(magnitude))
      std::snprintf(text + length, sizeof text - length, "inf");
    else if (f_is_zero(magnitude))
      std::snprintf(text + length, sizeof text - length, "0x0p+0");
    else
      f_acvt(&magnitude, text + length, sizeof text - length);
  }
  std::snprintf(buffer + used, size - used, "%s", text);
}
