// Integers of the target against a wider host type.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "semantics/const_ints.h"

namespace {

using a_wide = __int128;

constexpr std::uint64_t edges[] = {0,
                                   1,
                                   2,
                                   3,
                                   10,
                                   0x7FFFFFFF,
                                   0x80000000,
                                   0xFFFFFFFF,
                                   0x100000000,
                                   0x7FFFFFFFFFFFFFFE,
                                   0x7FFFFFFFFFFFFFFF,
                                   0x8000000000000000,
                                   0x8000000000000001,
                                   0xFFFFFFFF00000000,
                                   0xFFFFFFFFFFFFFFF0,
                                   0xFFFFFFFFFFFFFFFE,
                                   0xFFFFFFFFFFFFFFFF};

a_wide widen(std::uint64_t value, bool is_signed) {
  return is_signed ? a_wide{static_cast<std::int64_t>(value)} : a_wide{value};
}

bool fits(a_wide value, bool is_signed) {
  return is_signed ? value >= INT64_MIN && value <= INT64_MAX
                   : value >= 0 && value <= a_wide{UINT64_MAX};
}

using an_operation = void (*)(a_host_large_integer *, a_host_large_integer, bool, bool *);

void check(an_operation operation, std::uint64_t a, std::uint64_t b, bool is_signed,
           a_wide expected) {
  std::uint64_t result = a;
  bool overflow;
  operation(&result, b, is_signed, &overflow);
  EXPECT_EQ(overflow, !fits(expected, is_signed)) << a << " " << b << " " << is_signed;
  EXPECT_EQ(result, static_cast<std::uint64_t>(expected)) << a << " " << b << " " << is_signed;
}

}  // namespace

TEST(ConstInts, ArithmeticAgreesWithAWiderType) {
  for (bool is_signed : {false, true}) {
    for (std::uint64_t a : edges) {
      for (std::uint64_t b : edges) {
        a_wide left = widen(a, is_signed), right = widen(b, is_signed);
        check(add_integer_values, a, b, is_signed, left + right);
        check(subtract_integer_values, a, b, is_signed, left - right);
        bool product_too_wide =
            !is_signed && left > 1 && right > 1 && left > (a_wide{1} << 126) / right;
        if (!product_too_wide) check(multiply_integer_values, a, b, is_signed, left * right);
        if (b != 0) check(divide_integer_values, a, b, is_signed, left / right);
        EXPECT_EQ(cmp_integer_values(a, is_signed, b, false), left == a_wide{b}  ? 0
                                                              : left < a_wide{b} ? -1
                                                                                 : 1);
      }
    }
  }
}

TEST(ConstInts, RemainderOfTheMinimumByMinusOneIsReported) {
  std::uint64_t value = std::uint64_t{1} << 63;
  bool overflow;
  remainder_integer_values(&value, ~std::uint64_t{0}, true, &overflow);
  EXPECT_TRUE(overflow);
  value = static_cast<std::uint64_t>(-7);
  remainder_integer_values(&value, 3, true, &overflow);
  EXPECT_EQ(static_cast<std::int64_t>(value), -1);
  EXPECT_FALSE(overflow);
}

TEST(ConstInts, MixedSigns) {
  std::uint64_t value = 5;
  bool overflow;
  add_mixed_signed_integer_values(&value, static_cast<std::uint64_t>(-6), &overflow);
  EXPECT_TRUE(overflow);
  value = UINT64_MAX;
  subtract_mixed_signed_integer_values(&value, static_cast<std::uint64_t>(-1), &overflow);
  EXPECT_TRUE(overflow);
  value = UINT64_MAX;
  add_mixed_signed_integer_values(&value, static_cast<std::uint64_t>(-5), &overflow);
  EXPECT_FALSE(overflow);
  EXPECT_EQ(value, UINT64_MAX - 5);
}

TEST(ConstInts, ShiftsNeverReachTheHost) {
  std::uint64_t value = 3;
  bool overflow;
  shift_left_integer_value(&value, 63, &overflow);
  EXPECT_TRUE(overflow);
  EXPECT_EQ(value, std::uint64_t{1} << 63);
  shift_right_integer_value(&value, 3, true, true);
  EXPECT_EQ(value, 0xF000000000000000u);
  shift_right_integer_value(&value, 64, true, true);
  EXPECT_EQ(value, UINT64_MAX);
  shift_right_integer_value(&value, 4, true, false);
  EXPECT_EQ(value, UINT64_MAX >> 4);
  shift_left_integer_value(&value, 64, &overflow);
  EXPECT_TRUE(overflow);
  EXPECT_EQ(value, 0u);
  shift_left_integer_value(&value, 1000, &overflow);
  EXPECT_FALSE(overflow);
}

TEST(ConstInts, MasksAndTruncation) {
  std::uint64_t mask;
  make_integer_value_mask(&mask, 0);
  EXPECT_EQ(mask, 0u);
  make_integer_value_mask(&mask, 64);
  EXPECT_EQ(mask, UINT64_MAX);
  std::uint64_t value = 0x12380;
  truncate_integer_value(&value, 8, true);
  EXPECT_EQ(static_cast<std::int64_t>(value), -128);
  truncate_integer_value(&value, 8, false);
  EXPECT_EQ(value, 0x80u);
}

// Floor of value / 2^count, as an arithmetic shift of any width gives it.
a_wide shifted_right(a_wide value, int count) {
  return count >= 127 ? (value < 0 ? -1 : 0) : value >> count;
}

TEST(ConstInts, RightShiftsAgreeWithAWiderType) {
  for (std::uint64_t edge : edges) {
    for (int count = 0; count <= 70; ++count) {
      std::uint64_t value = edge;
      shift_right_integer_value(&value, count, true, true);
      EXPECT_EQ(a_wide{static_cast<std::int64_t>(value)}, shifted_right(widen(edge, true), count))
          << edge << " >> " << count;
      if (count > 63) continue;
      value = edge;
      shift_right_integer_value(&value, count, false, true);
      EXPECT_EQ(a_wide{value}, shifted_right(widen(edge, false), count)) << edge << " >> " << count;
    }
  }
}

TEST(ConstInts, LeftShiftsTellWhatIsLost) {
  for (std::uint64_t edge : edges) {
    for (int count = 0; count < 64; ++count) {
      std::uint64_t value = edge;
      bool overflow;
      shift_left_integer_value(&value, count, &overflow);
      EXPECT_EQ(value, edge << count);
      bool bits_lost = (value >> count) != edge;
      if (bits_lost) {
        EXPECT_TRUE(overflow) << edge << " << " << count;
      }
    }
  }
}

TEST(ConstInts, TruncationKeepsTheLowBitsAtEveryWidth) {
  for (std::uint64_t edge : edges) {
    for (int bits = 1; bits <= 64; ++bits) {
      std::uint64_t mask, kept = edge, extended = edge;
      make_integer_value_mask(&mask, bits);
      truncate_integer_value(&kept, bits, false);
      EXPECT_EQ(kept, edge & mask);
      truncate_integer_value(&extended, bits, true);
      EXPECT_EQ(extended & mask, edge & mask);
      bool negative = (edge >> (bits - 1) & 1) != 0;
      EXPECT_EQ(extended & ~mask, negative ? ~mask : 0) << edge << " to " << bits;
    }
  }
}

TEST(ConstInts, ComparisonsOfMixedSignsAreByValue) {
  for (std::uint64_t a : edges) {
    for (std::uint64_t b : edges) {
      for (bool a_signed : {false, true}) {
        for (bool b_signed : {false, true}) {
          a_wide left = widen(a, a_signed), right = widen(b, b_signed);
          int expected = left < right ? -1 : left > right;
          EXPECT_EQ(cmp_integer_values(a, a_signed, b, b_signed), expected) << a << " " << b;
        }
      }
    }
  }
}

TEST(ConstInts, DecimalText) {
  EXPECT_STREQ(str_for_integer_value(std::uint64_t{1} << 63, true), "-9223372036854775808");
  EXPECT_STREQ(str_for_integer_value(UINT64_MAX, false), "18446744073709551615");
  EXPECT_STREQ(str_for_integer_value(0, true), "0");
}
