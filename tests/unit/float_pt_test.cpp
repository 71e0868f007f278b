// Software floats against the host's: the host's float and double are the target's formats, so
// every operation rounded through a format must give the host's bits, but for the rare case in
// which rounding at 96 bits first matters.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "semantics/float_pt.h"

namespace {

constexpr a_float_kind kinds[] = {fk_float, fk_double};

simul_fval from_bits(std::uint64_t bits, bool is_double) {
  trg_fval pattern = {{static_cast<std::uint32_t>(is_double ? bits >> 32 : bits),
                       static_cast<std::uint32_t>(bits)}};
  simul_fval value;
  f_cvt_ttos(&pattern, &value, is_double);
  return value;
}

std::uint64_t bits_of(const simul_fval &value, bool is_double) {
  trg_fval pattern;
  fp_error = 0;
  f_cvt_stot(&value, &pattern, is_double);
  return is_double ? static_cast<std::uint64_t>(pattern.word[0]) << 32 | pattern.word[1]
                   : pattern.word[0];
}

std::uint64_t host_bits(double value) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

std::uint64_t host_bits(float value) {
  std::uint32_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

simul_fval simulated(double value) {
  return from_bits(host_bits(value), true);
}
simul_fval simulated(float value) {
  return from_bits(host_bits(value), false);
}

// A fixed stream of values that favours short mantissas, denormals and the edges of the range.
class a_random_stream {
 public:
  std::uint64_t next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return state_;
  }
  double next_double() {
    std::uint64_t bits = next();
    switch (next() % 8) {
      case 0:
        bits &= 0x800FFFFFFFFFFFFFu;
        break;  // denormal
      case 1:
        bits &= 0xFFFFF00000000000u;
        break;  // short
      case 2:
        bits = (bits & 0x801FFFFFFFFFFFFFu) | 0x3FE0000000000000u;
        break;  // near 1
      case 3:
        bits = (bits & 0x801FFFFFFFFFFFFFu) | 0x7FC0000000000000u;
        break;  // near the top
    }
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return std::isfinite(value) ? value : 1.0;
  }

 private:
  std::uint64_t state_ = 0x9E3779B97F4A7C15u;
};

using an_operation = void (*)(a_float_kind, const simul_fval *, const simul_fval *, simul_fval *,
                              bool *, bool *);

template <class T>
void check_operation(an_operation operation, a_float_kind kind, T a, T b, T expected) {
  simul_fval left = simulated(a), right = simulated(b), result;
  bool error, range;
  operation(kind, &left, &right, &result, &error, &range);
  ASSERT_EQ(bits_of(result, kind != fk_float), host_bits(expected))
      << std::hexfloat << a << " and " << b << " expected " << expected;
  bool lost = std::isinf(expected) || (expected == 0 && a != 0 && b != 0);
  bool is_sum = operation == fp_add || operation == fp_subtract;
  if (!(lost && is_sum)) {
    EXPECT_EQ(error, lost);
  }
}

}  // namespace

TEST(FloatPt, FormatsRoundTrip) {
  a_random_stream stream;
  for (int i = 0; i < 20000; ++i) {
    std::uint64_t bits = host_bits(stream.next_double());
    EXPECT_EQ(bits_of(from_bits(bits, true), true), bits);
    std::uint32_t single = static_cast<std::uint32_t>(stream.next());
    if (i % 4 == 0) single &= 0x807FFFFF;
    if ((single >> 23 & 0xFF) == 0xFF) continue;
    EXPECT_EQ(bits_of(from_bits(single, false), false), single);
  }
}

TEST(FloatPt, DoubleArithmeticAgreesWithTheHost) {
  a_random_stream stream;
  for (int i = 0; i < 50000; ++i) {
    double a = stream.next_double(), b = stream.next_double();
    check_operation(fp_add, fk_double, a, b, a + b);
    check_operation(fp_subtract, fk_double, a, b, a - b);
    check_operation(fp_multiply, fk_double, a, b, a * b);
    if (b != 0) check_operation(fp_divide, fk_double, a, b, a / b);
  }
}

TEST(FloatPt, SingleArithmeticAgreesWithTheHost) {
  a_random_stream stream;
  for (int i = 0; i < 50000; ++i) {
    float a = static_cast<float>(std::ldexp(stream.next_double(), 0));
    float b = static_cast<float>(stream.next_double());
    if (!std::isfinite(a)) a = std::ldexp(1.25f, i % 250 - 125);
    if (!std::isfinite(b)) b = std::ldexp(1.75f, 120 - i % 260);
    check_operation(fp_add, fk_float, a, b, a + b);
    check_operation(fp_multiply, fk_float, a, b, a * b);
    if (b != 0) check_operation(fp_divide, fk_float, a, b, a / b);
  }
}

TEST(FloatPt, SpecialOperands) {
  simul_fval result;
  fp_error = 0;
  EXPECT_LT(f_sub(&pos_infin, &pos_infin, &result), 0);
  EXPECT_TRUE(f_is_nan(result));
  EXPECT_EQ(fp_error, fps_invalid);
  fp_error = 0;
  EXPECT_LT(f_div(&neg_one, &pos_zero, &result), 0);
  EXPECT_TRUE(f_is_infinity(result) && result.sign == 1);
  EXPECT_EQ(fp_error, fps_divide_by_zero);
  EXPECT_LT(f_mul(&pos_infin, &neg_zero, &result), 0);
  EXPECT_EQ(f_div(&neg_one, &pos_infin, &result), 0);
  EXPECT_TRUE(f_is_zero(result) && result.sign == 1);
  EXPECT_EQ(f_add(&one, &neg_one, &result), 0);
  EXPECT_TRUE(f_is_zero(result) && result.sign == 0);
  EXPECT_EQ(f_add(&neg_zero, &neg_zero, &result), 0);
  EXPECT_EQ(result.sign, 1);
  EXPECT_TRUE(f_eq(&pos_zero, &neg_zero));
  EXPECT_FALSE(f_eq(&a_nan, &a_nan));
  EXPECT_TRUE(f_ne(&a_nan, &a_nan));
  bool unordered;
  EXPECT_EQ(fp_compare(fk_double, &a_nan, &one, &unordered), 0);
  EXPECT_TRUE(unordered);
  EXPECT_EQ(fp_compare(fk_double, &neg_two, &one, &unordered), -1);
  EXPECT_EQ(fp_compare(fk_double, &four, &neg_infin, &unordered), 1);
}

TEST(FloatPt, DecimalLiterals) {
  const char *const texts[] = {
      "0.1",
      "1.5",
      "3.14159265358979323846264338327950288419716939937510582097494459",
      "1e22",
      "1e23",
      "123456789012345678901234567890",
      "5e-324",
      "4.9406564584124654e-324",
      "2.2250738585072014e-308",
      "2.2250738585072011e-308",
      "1.7976931348623157e308",
      "9007199254740993",
      "8.5e-46",
      "0.000001",
      "100000",
      "12.50e+3",
      "1e-45",
      "3.4028235e38",
      "1.17549435e-38",
      "1.1754943e-38",
      "0.30000000000000004",
      "007.5",
      "1000000000000000000000000000000000000000000000000000000000000000000000000000000000000001"};
  for (const char *text : texts) {
    simul_fval value;
    bool out_of_range;
    fp_string_to_float(fk_double, text, &value, &out_of_range);
    EXPECT_FALSE(out_of_range) << text;
    EXPECT_EQ(bits_of(value, true), host_bits(std::strtod(text, nullptr))) << text;
    float expected = std::strtof(text, nullptr);
    fp_string_to_float(fk_float, text, &value, &out_of_range);
    EXPECT_EQ(out_of_range, std::isinf(expected) || expected == 0) << text;
    EXPECT_EQ(bits_of(value, false), host_bits(expected)) << text;
  }
}

TEST(FloatPt, RandomDecimalLiterals) {
  a_random_stream stream;
  for (int i = 0; i < 20000; ++i) {
    double expected = std::fabs(stream.next_double());
    if (expected == 0) continue;
    char text[64];
    std::snprintf(text, sizeof text, "%.17g", expected);
    simul_fval value;
    bool out_of_range;
    fp_string_to_float(fk_double, text, &value, &out_of_range);
    ASSERT_EQ(bits_of(value, true), host_bits(expected)) << text;
    double next = std::nextafter(expected, INFINITY);
    if (std::isinf(next)) continue;
    std::snprintf(text, sizeof text, "%.17e", next);
    fp_string_to_float(fk_double, text, &value, &out_of_range);
    ASSERT_EQ(bits_of(value, true), host_bits(next)) << text;
  }
}

TEST(FloatPt, LiteralsOutOfRange) {
  simul_fval value;
  bool out_of_range;
  for (const char *text : {"1e400", "1e-400", "1e512", "1e-512", "1e999999999999", "1e309"}) {
    fp_string_to_float(fk_double, text, &value, &out_of_range);
    EXPECT_TRUE(out_of_range) << text;
  }
  fp_string_to_float(fk_double, "0e999", &value, &out_of_range);
  EXPECT_FALSE(out_of_range);
  EXPECT_TRUE(fp_is_zero_constant(&value));
}

TEST(FloatPt, HexadecimalLiterals) {
  struct a_case {
    const char *text;
    bool inexact;
  };
  const a_case cases[] = {{"0x1.8p+0", false},
                          {"0x.8p1", false},
                          {"0x1.fffffffffffff8p0", true},
                          {"0x1.00000000000008p0", true},
                          {"0x1.000000000000080000000000000000000000001p0", true},
                          {"0x0.0000000000001p-1022", false},
                          {"0x0.00000000000018p-1022", true},
                          {"0xffffffffffffffffffffffffffffffffp-100", true},
                          {"0X10P3", false},
                          {"0x1.fffffffffffffp1023", false}};
  for (const a_case &each : cases) {
    simul_fval value;
    bool out_of_range, inexact;
    fp_hex_string_to_float(fk_double, each.text, &value, &out_of_range, &inexact);
    EXPECT_FALSE(out_of_range) << each.text;
    EXPECT_EQ(inexact, each.inexact) << each.text;
    EXPECT_EQ(bits_of(value, true), host_bits(std::strtod(each.text, nullptr))) << each.text;
  }
  simul_fval value;
  bool out_of_range, inexact;
  fp_hex_string_to_float(fk_float, "0x1p128", &value, &out_of_range, &inexact);
  EXPECT_TRUE(out_of_range);
  fp_hex_string_to_float(fk_double, "0x1p99999999999", &value, &out_of_range, &inexact);
  EXPECT_TRUE(out_of_range);
  fp_hex_string_to_float(fk_float, "0x1p-149", &value, &out_of_range, &inexact);
  EXPECT_FALSE(out_of_range || inexact);
}

TEST(FloatPt, TextIsExact) {
  const double values[] = {1.5, -0.75, 0.0, -0.0, 0.1, 5e-324, DBL_MAX, 255.0, INFINITY, -INFINITY};
  for (double each : values) {
    simul_fval value = simulated(each);
    const char *text = fp_to_string(fk_double, &value);
    EXPECT_EQ(host_bits(std::strtod(text, nullptr)), host_bits(each)) << text;
  }
  simul_fval value = simulated(1.5);
  EXPECT_STREQ(fp_to_string(fk_float, &value), "0x1.8p+0");
  value = simulated(-0.75);
  EXPECT_STREQ(fp_to_string(fk_double, &value), "-0x1.8p-1");
  EXPECT_STREQ(fp_to_string(fk_double, &pos_zero), "0x0p+0");
  EXPECT_STREQ(fp_to_string(fk_double, &a_nan), "nan");
}

TEST(FloatPt, IntegersBothWays) {
  const std::int64_t values[] = {0, 1, -1, 7, -65536, INT64_MAX, INT64_MIN, 0x123456789ABCDEF};
  for (std::int64_t each : values) {
    simul_fval value;
    bool error;
    for (a_float_kind kind : kinds) {
      fp_host_large_integer_to_float(kind, each, &value, &error);
      EXPECT_EQ(bits_of(value, kind != fk_float), kind == fk_float
                                                      ? host_bits(static_cast<float>(each))
                                                      : host_bits(static_cast<double>(each)));
    }
  }
  struct a_case {
    double value;
    std::int64_t expected;
    bool overflow;
  };
  const a_case cases[] = {{2.9, 2, false},           {-2.9, -2, false},
                          {-0.5, 0, false},          {9e18, 9000000000000000000, false},
                          {0x1p63, INT64_MAX, true}, {-0x1p63, INT64_MIN, false},
                          {-1e30, INT64_MIN, true},  {NAN, 0, true}};
  for (const a_case &each : cases) {
    simul_fval value = simulated(each.value);
    std::int64_t result;
    bool overflow, unused;
    fp_to_host_large_integer(fk_double, &value, &result, &overflow, &unused);
    EXPECT_EQ(result, each.expected) << each.value;
    EXPECT_EQ(overflow, each.overflow) << each.value;
  }
  simul_fval value = simulated(0x1p63);
  a_host_large_integer result;
  bool overflow, unused;
  fp_to_host_large_unsigned(fk_double, &value, &result, &overflow, &unused);
  EXPECT_EQ(result, std::uint64_t{1} << 63);
  EXPECT_FALSE(overflow);
}

TEST(FloatPt, ChangeOfKind) {
  simul_fval value = simulated(1e-60), result;
  bool error, range;
  fp_change_kind(&value, fk_double, &result, fk_float, &error, &range);
  EXPECT_TRUE(error);
  value = simulated(0x1.fffffep-127);
  fp_change_kind(&value, fk_double, &result, fk_float, &error, &range);
  EXPECT_FALSE(error);
  EXPECT_EQ(bits_of(result, false), host_bits(0x1.fffffep-127f));  // rounds up to the least normal
  value = simulated(0.1);
  fp_change_kind(&value, fk_double, &result, fk_float, &error, &range);
  EXPECT_EQ(bits_of(result, false), host_bits(0.1f));
  EXPECT_TRUE(fp_is_normalized(&result, fk_float, &error));
  value = simulated(1e-310);
  EXPECT_FALSE(fp_is_normalized(&value, fk_double, &error));
}
