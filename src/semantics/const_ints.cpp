// Arithmetic of the target's integers in one host word. Overflow is told by tests on the operands
// and the result, so that nothing wider than the word is needed and no host operation can trap.
#include "semantics/const_ints.h"

#include <cstring>

namespace {

constexpr int word_bits = 64;
constexpr a_host_large_integer all_ones = ~a_host_large_integer{0};
constexpr a_host_large_integer sign_bit = a_host_large_integer{1} << 63;

bool is_negative(a_host_large_integer value) {
  return (value & sign_bit) != 0;
}

a_host_large_integer magnitude_of(a_host_large_integer value) {
  return is_negative(value) ? -value : value;
}

// -2^63 / -1 has no result and would trap on the host.
bool is_minimum_by_minus_one(a_host_large_integer a, a_host_large_integer b) {
  return a == sign_bit && b == all_ones;
}

}  // namespace

void add_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                        bool *overflow) {
  a_host_large_integer left = *a;
  *a = left + b;
  *overflow = is_signed ? is_negative(left) == is_negative(b) && is_negative(*a) != is_negative(b)
                        : b > ~left;
}

void subtract_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                             bool *overflow) {
  a_host_large_integer left = *a;
  *a = left - b;
  *overflow = is_signed
                  ? is_negative(left) != is_negative(b) && is_negative(*a) != is_negative(left)
                  : left < b;
}

void add_mixed_signed_integer_values(a_host_large_integer *a, a_host_large_integer b,
                                     bool *overflow) {
  if (is_negative(b))
    subtract_integer_values(a, -b, false, overflow);
  else
    add_integer_values(a, b, false, overflow);
}

void subtract_mixed_signed_integer_values(a_host_large_integer *a, a_host_large_integer b,
                                          bool *overflow) {
  if (is_negative(b))
    add_integer_values(a, -b, false, overflow);
  else
    subtract_integer_values(a, b, false, overflow);
}

void multiply_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                             bool *overflow) {
  a_host_large_integer left = *a;
  *a = left * b;
  if (left == 0 || b == 0) {
    *overflow = false;
  } else if (!is_signed) {
    *overflow = left > all_ones / b;
  } else {
    a_host_large_integer limit = is_negative(left) != is_negative(b) ? sign_bit : ~sign_bit;
    *overflow = magnitude_of(left) > limit / magnitude_of(b);
  }
}

void divide_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                           bool *overflow) {
  check_invariant(b != 0);
  *overflow = is_signed && is_minimum_by_minus_one(*a, b);
  if (*overflow) return;
  if (is_signed)
    *a = static_cast<a_host_large_integer>(static_cast<std::int64_t>(*a) /
                                           static_cast<std::int64_t>(b));
  else
    *a /= b;
}

void remainder_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                              bool *overflow) {
  check_invariant(b != 0);
  *overflow = is_signed && is_minimum_by_minus_one(*a, b);
  if (*overflow)
    *a = 0;
  else if (is_signed)
    *a = static_cast<a_host_large_integer>(static_cast<std::int64_t>(*a) %
                                           static_cast<std::int64_t>(b));
  else
    *a %= b;
}

void negate_integer_value(a_host_large_integer *a, bool *overflow) {
  *overflow = *a == sign_bit;
  *a = -*a;
}

void shift_left_integer_value(a_host_large_integer *a, int count, bool *overflow) {
  if (count <= 0) {
    *overflow = false;
  } else if (count >= word_bits) {
    *overflow = *a != 0;
    *a = 0;
  } else {
    *overflow = *a >> (word_bits - count) != 0;
    *a <<= count;
  }
}

void shift_right_integer_value(a_host_large_integer *a, int count, bool is_signed,
                               bool arithmetic) {
  bool fill = is_signed && arithmetic && is_negative(*a);
  if (count >= word_bits) {
    *a = fill ? all_ones : 0;
  } else if (count > 0) {
    *a >>= count;
    if (fill) *a |= all_ones << (word_bits - count);
  }
}

void make_integer_value_mask(a_host_large_integer *mask, int bits) {
  *mask = bits <= 0 ? 0 : bits >= word_bits ? all_ones : all_ones >> (word_bits - bits);
}

void truncate_integer_value(a_host_large_integer *a, int precision, bool is_signed) {
  if (precision <= 0 || precision >= word_bits) return;
  a_host_large_integer mask;
  make_integer_value_mask(&mask, precision);
  bool negative = is_signed && (*a >> (precision - 1) & 1) != 0;
  *a = negative ? *a | ~mask : *a & mask;
}

int cmp_integer_values(a_host_large_integer a, bool a_signed, a_host_large_integer b,
                       bool b_signed) {
  bool a_negative = a_signed && is_negative(a);
  bool b_negative = b_signed && is_negative(b);
  if (a_negative != b_negative) return a_negative ? -1 : 1;
  return a == b ? 0 : a < b ? -1 : 1;
}

char *f_unsigned_to_string_buf(a_host_large_integer value, char buffer[integer_text_size]) {
  char reversed[integer_text_size];
  int length = 0;
  do {
    reversed[length++] = static_cast<char>('0' + value % 10);
    value /= 10;
  } while (value != 0);
  for (int i = 0; i < length; ++i)
    buffer[i] = reversed[length - 1 - i];
  buffer[length] = '\0';
  return buffer;
}

const char *str_for_integer_value(a_host_large_integer value, bool is_signed) {
  static char text[integer_text_size + 1];
  bool negative = is_signed && is_negative(value);
  text[0] = '-';
  f_unsigned_to_string_buf(negative ? -value : value, text + 1);
  return negative ? text : text + 1;
}
