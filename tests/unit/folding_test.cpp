// Folding of constants: values, overflow and its report, addresses, conversions.
#include "semantics/folding.h"

#include <gtest/gtest.h>

#include "DIAG/error.h"
#include "front_end_start.h"
#include "il/il.h"
#include "semantics/const_ints.h"
#include "semantics/float_pt.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

// What a fold gave.
struct a_result {
  a_constant constant;
  bool not_constant;
  an_error_code code;  // what a silent context was told
};

class Folding : public ::testing::Test {
 protected:
  void SetUp() override {
    start_front_end([] {
      set_eabi();
      targ_little_endian = true;
    });
  }
  void TearDown() override { end_front_end(); }

  static a_constant integer(std::int64_t value, an_integer_kind kind = ik_int) {
    a_constant c = {};
    set_integer_constant(&c, value, kind);
    return c;
  }
  static a_constant real(const char *text, a_float_kind kind = fk_double) {
    simul_fval value;
    bool out_of_range;
    fp_string_to_float(kind, text, &value, &out_of_range);
    a_constant c = {};
    set_float_constant(&c, &value, float_type(kind));
    return c;
  }
  static a_result binary(an_expr_operator_kind op, const a_constant &left, const a_constant &right,
                         a_type *type = nullptr) {
    a_result result = {};
    bool not_computed;
    binary_operation(op, &left, &right, type != nullptr ? type : left.type, &result.constant, true,
                     true, &result.not_constant, &not_computed, &result.code,
                     &null_source_position);
    return result;
  }
  static a_result unary(an_expr_operator_kind op, const a_constant &operand) {
    a_result result = {};
    bool not_computed;
    unary_operation(op, &operand, operand.type, &result.constant, true, true, &result.not_constant,
                    &not_computed, &result.code, &null_source_position);
    return result;
  }
  static std::int64_t value_of(const a_result &result) {
    EXPECT_FALSE(result.not_constant);
    EXPECT_EQ(result.constant.kind, ck_integer);
    bool large;
    return value_of_integer_constant(&result.constant, &large);
  }
  static a_result cast(a_constant c, a_type *type, bool check = false) {
    a_result result = {};
    a_type_change_options options = {};
    options.check = check;
    options.is_explicit = !check;
    bool not_computed;
    type_change_constant_full(&c, type, &options, true, true, &result.not_constant, &not_computed,
                              &result.code, &null_source_position);
    result.constant = c;
    return result;
  }
  static a_variable *new_variable(a_storage_class storage_class) {
    a_variable *variable = alloc_variable(storage_class);
    variable->type = integer_type(ik_int);
    return variable;
  }
  static a_constant address_of(a_variable *variable, std::int64_t offset = 0) {
    a_constant c = {};
    set_variable_address_constant(&c, variable, make_pointer_type_full(variable->type));
    c.address_offset = offset;
    return c;
  }
  // Messages that an operation in a context that wants no constant gives.
  static std::uint64_t warnings_of_tolerant(an_expr_operator_kind op, const a_constant &left,
                                            const a_constant &right, bool *not_constant) {
    std::uint64_t before = total_warnings;
    a_constant result = {};
    bool not_computed;
    binary_operation(op, &left, &right, left.type, &result, false, true, not_constant,
                     &not_computed, nullptr, &null_source_position);
    return total_warnings - before;
  }
};

using FoldingOfAddresses = Folding;
using FoldingOfConversions = Folding;

}  // namespace

TEST_F(Folding, IntegersOfEachKind) {
  EXPECT_EQ(value_of(binary(eok_add, integer(40), integer(2))), 42);
  EXPECT_EQ(value_of(binary(eok_divide, integer(-7), integer(2))), -3);
  EXPECT_EQ(value_of(binary(eok_remainder, integer(-7), integer(2))), -1);
  a_constant large = integer(0xFFFFFFFF, ik_unsigned_int), one = integer(1, ik_unsigned_int);
  EXPECT_EQ(value_of(binary(eok_add, large, one)), 0) << "unsigned wraps";
  EXPECT_EQ(value_of(binary(eok_subtract, integer(0, ik_unsigned_int), one)), 0xFFFFFFFF);
  EXPECT_EQ(value_of(binary(eok_shift_right, integer(-8), integer(1))), -4);
  EXPECT_EQ(value_of(binary(eok_shift_left, integer(3), integer(31))), -0x80000000LL);
  EXPECT_EQ(value_of(unary(eok_complement, integer(0, ik_unsigned_char))), 0xFF);
  EXPECT_EQ(value_of(binary(eok_lt, integer(-1), integer(1))), 1);
  EXPECT_EQ(value_of(binary(eok_lt, integer(-1, ik_unsigned_int), one)), 0);
  EXPECT_EQ(value_of(binary(eok_max, integer(-1), integer(1))), 1);
}

// Every pair of small values in every kind, against the host's own arithmetic in the same width.
template <typename T>
void check_small_values(const char *what, an_integer_kind kind,
                        std::int64_t (*fold)(an_expr_operator_kind, std::int64_t, std::int64_t,
                                             an_integer_kind)) {
  const T values[] = {static_cast<T>(0),  static_cast<T>(1),  static_cast<T>(-1),
                      static_cast<T>(7),  static_cast<T>(-7), static_cast<T>(100),
                      static_cast<T>(-96)};
  for (T a : values) {
    for (T b : values) {
      auto same = [&](an_expr_operator_kind op, T expected) {
        EXPECT_EQ(static_cast<T>(
                      fold(op, static_cast<std::int64_t>(a), static_cast<std::int64_t>(b), kind)),
                  expected)
            << what << " " << op << ": " << std::int64_t(a) << ", " << std::int64_t(b);
      };
      same(eok_and, static_cast<T>(a & b));
      same(eok_or, static_cast<T>(a | b));
      same(eok_xor, static_cast<T>(a ^ b));
      same(eok_lt, a < b);
      same(eok_ge, a >= b);
      same(eok_eq, a == b);
      if (b == 0) continue;
      same(eok_divide, static_cast<T>(a / b));
      same(eok_remainder, static_cast<T>(a % b));
    }
  }
}

TEST_F(Folding, SmallValuesOfEachKindAgreeWithTheHost) {
  auto fold = [](an_expr_operator_kind op, std::int64_t a, std::int64_t b, an_integer_kind kind) {
    bool is_comparison = op == eok_lt || op == eok_ge || op == eok_eq;
    return value_of(binary(op, integer(a, kind), integer(b, kind),
                           is_comparison ? integer_type(ik_int) : nullptr));
  };
  check_small_values<std::int32_t>("int", ik_int, fold);
  check_small_values<std::uint32_t>("unsigned", ik_unsigned_int, fold);
  check_small_values<std::int64_t>("long long", ik_long_long, fold);
  check_small_values<std::uint64_t>("unsigned long long", ik_unsigned_long_long, fold);
}

TEST_F(Folding, OverflowIsAWarningAndTheValueWraps) {
  std::uint64_t before = total_warnings;
  a_constant max = integer(0x7FFFFFFF), one = integer(1), result = {};
  bool not_constant, not_computed;
  binary_operation(eok_add, &max, &one, max.type, &result, true, true, &not_constant, &not_computed,
                   nullptr, &null_source_position);
  EXPECT_EQ(total_warnings, before + 1);
  EXPECT_EQ(static_cast<std::int64_t>(result.integer_value), -0x80000000LL);
  EXPECT_FALSE(not_constant);
  for (an_integer_kind kind : {ik_int, ik_long_long}) {
    a_constant min = integer(static_cast<std::int64_t>(min_integer_value_of_kind[kind]), kind);
    a_result quotient = binary(eok_divide, min, integer(-1, kind));
    EXPECT_EQ(quotient.constant.kind, ck_integer);
    EXPECT_EQ(value_of(binary(eok_remainder, min, integer(-1, kind))), 0);
    EXPECT_FALSE(unary(eok_negate, min).not_constant);
  }
}

TEST_F(Folding, FaultsAreErrorsOnlyWhereAConstantIsWanted) {
  EXPECT_EQ(binary(eok_divide, integer(1), integer(0)).code, ec_divide_by_zero);
  EXPECT_EQ(binary(eok_remainder, integer(1), integer(0)).code, ec_mod_by_zero);
  EXPECT_EQ(binary(eok_divide, integer(1), integer(0)).constant.kind, ck_error);
  EXPECT_EQ(binary(eok_shift_left, integer(1), integer(-1)).code, ec_negative_shift_count);
  EXPECT_EQ(value_of(binary(eok_shift_left, integer(1), integer(32))), 0);
  EXPECT_EQ(value_of(binary(eok_shift_right, integer(-1), integer(40))), -1);
  gnu_mode = gcc_mode = false;
  EXPECT_EQ(binary(eok_shift_left, integer(1), integer(32)).code, ec_shift_count_too_large);
  bool not_constant;
  EXPECT_EQ(warnings_of_tolerant(eok_divide, integer(1), integer(0), &not_constant), 1u);
  EXPECT_TRUE(not_constant);
}

TEST_F(Folding, FloatsFollowIeee) {
  a_constant one = real("1"), zero = real("0");
  a_result inf = binary(eok_divide, one, zero);
  EXPECT_EQ(inf.code, ec_no_error);
  EXPECT_TRUE(fp_is_infinity(&inf.constant.float_value));
  a_result nan = binary(eok_divide, zero, zero);
  EXPECT_TRUE(fp_is_nan(&nan.constant.float_value));
  a_type *type = integer_type(ik_int);
  EXPECT_EQ(value_of(binary(eok_eq, nan.constant, nan.constant, type)), 0);
  EXPECT_EQ(value_of(binary(eok_ne, nan.constant, nan.constant, type)), 1);
  EXPECT_EQ(value_of(binary(eok_lt, nan.constant, one, type)), 0);
  a_result none = binary(eok_subtract, one, one);
  EXPECT_TRUE(fp_is_zero_constant(&none.constant.float_value));
  EXPECT_EQ(none.constant.float_value.sign, 0);
  // 16777217 has no float.
  a_result narrow = cast(integer(16777217), float_type(fk_float));
  EXPECT_EQ(value_of(cast(narrow.constant, integer_type(ik_int))), 16777216);
}

TEST_F(Folding, ComplexValuesByParts) {
  a_type *type = complex_type(fk_double);
  a_constant a = cast(real("1"), type).constant, b = {};
  simul_fval two = real("2").float_value;
  set_float_constant(&b, &two, imaginary_type(fk_double));
  a_constant z = binary(eok_real_plus_imag, real("1"), b, type).constant;
  a_constant product = binary(eok_multiply, z, z, type).constant;  // (1+2i)^2 = -3+4i
  ASSERT_EQ(product.kind, ck_complex);
  bool unordered;
  simul_fval minus_three = real("-3").float_value, four = real("4").float_value;
  EXPECT_EQ(fp_compare(fk_double, &product.complex_value->real_part, &minus_three, &unordered), 0);
  EXPECT_EQ(fp_compare(fk_double, &product.complex_value->imag_part, &four, &unordered), 0);
  EXPECT_EQ(value_of(binary(eok_eq, z, z, integer_type(ik_int))), 1);
  EXPECT_EQ(value_of(binary(eok_eq, z, a, integer_type(ik_int))), 0);
}

TEST_F(Folding, LogicalOperatorsStopAtTheLeftOperand) {
  a_constant unknown = address_of(new_variable(sc_extern));
  a_type *type = integer_type(ik_int);
  EXPECT_EQ(value_of(binary(eok_land, integer(0), unknown, type)), 0);
  EXPECT_EQ(value_of(binary(eok_lor, integer(2), unknown, type)), 1);
  EXPECT_TRUE(binary(eok_land, integer(1), unknown, type).not_constant);
  EXPECT_EQ(value_of(binary(eok_land, integer(1), address_of(new_variable(sc_static)), type)), 1);
}

TEST_F(FoldingOfConversions, ReportWhatChangesTheValue) {
  EXPECT_EQ(value_of(cast(integer(0x1FF), integer_type(ik_unsigned_char))), 0xFF);
  EXPECT_EQ(value_of(cast(integer(0x80), integer_type(ik_signed_char))), -128);
  std::uint64_t before = total_warnings;
  auto warns = [&](const a_constant &c, an_integer_kind kind) {
    a_constant copy = c;
    bool not_constant;
    type_change_constant(&copy, integer_type(kind), true, &not_constant, &null_source_position);
    bool warned = total_warnings != before;
    before = total_warnings;
    return warned;
  };
  EXPECT_TRUE(warns(integer(300), ik_unsigned_char));
  EXPECT_TRUE(warns(integer(-1), ik_unsigned_int));
  EXPECT_FALSE(warns(integer(200), ik_unsigned_char));
  EXPECT_FALSE(warns(unary(eok_complement, integer(0)).constant, ik_unsigned_int));
  EXPECT_FALSE(warns(unary(eok_negate, integer(1, ik_unsigned_int)).constant, ik_int));
}

TEST_F(FoldingOfConversions, BoolAndFloat) {
  EXPECT_EQ(value_of(cast(real("0.5"), bool_type())), 1);
  EXPECT_EQ(value_of(cast(integer(256), bool_type())), 1);
  EXPECT_TRUE(cast(address_of(new_variable(sc_extern)), bool_type()).not_constant);
  EXPECT_EQ(value_of(cast(real("-1.9"), integer_type(ik_int))), -1);
  EXPECT_EQ(cast(real("1e-60"), float_type(fk_float)).code, ec_float_to_float_conversion);
  EXPECT_EQ(cast(real("1e20"), integer_type(ik_int)).code, ec_float_to_integer_conversion);
  EXPECT_TRUE(cast(address_of(new_variable(sc_static)), float_type(fk_float)).not_constant);
}

TEST_F(FoldingOfConversions, NullPointerConstants) {
  a_constant zero = integer(0);
  EXPECT_TRUE(is_null_pointer_constant(&zero));
  a_constant null = cast(zero, make_pointer_type_full(void_type())).constant;
  EXPECT_TRUE(is_null_pointer_constant(&null));
  a_constant other = cast(zero, make_pointer_type_full(integer_type(ik_int))).constant;
  EXPECT_FALSE(is_null_pointer_constant(&other));
  EXPECT_TRUE(is_null_pointer_value(&other));
  a_constant one = integer(1);
  EXPECT_FALSE(is_null_pointer_constant(&one));
  C_dialect = dialect_cplusplus;
  EXPECT_FALSE(is_null_pointer_constant(&null));
}

TEST_F(FoldingOfAddresses, ArithmeticMovesTheOffset) {
  a_variable *array = new_variable(sc_static);
  a_constant base = address_of(array);
  a_constant third = binary(eok_ptr_add, base, integer(3), base.type).constant;
  EXPECT_EQ(third.address_offset, 12);
  a_constant below = binary(eok_ptr_subtract, third, integer(4), base.type).constant;
  EXPECT_EQ(below.address_offset, -4);
  a_type *ptrdiff = integer_type(targ_ptrdiff_t_int_kind);
  EXPECT_EQ(value_of(binary(eok_ptr_diff, third, below, ptrdiff)), 4);
  EXPECT_EQ(value_of(binary(eok_gt, third, below, ptrdiff)), 1);
  // &((struct s *)0)->member and the like: a pointer of integer value.
  a_constant at_16 = cast(integer(16), base.type).constant;
  EXPECT_EQ(value_of(binary(eok_ptr_subtract, at_16, integer(4), base.type)), 0);
  a_constant as_integer = cast(third, integer_type(ik_unsigned_int)).constant;
  ASSERT_EQ(as_integer.kind, ck_address);
  a_constant moved = binary(eok_add, as_integer, integer(5, ik_unsigned_int)).constant;
  EXPECT_EQ(moved.address_offset, 17);
  EXPECT_TRUE(binary(eok_multiply, as_integer, integer(2, ik_unsigned_int)).not_constant);
  EXPECT_TRUE(cast(third, integer_type(ik_char)).not_constant);
}

TEST_F(FoldingOfAddresses, DifferentObjectsAreToldApartWhereItIsSafe) {
  a_constant a = address_of(new_variable(sc_static)), b = address_of(new_variable(sc_static));
  a_constant outside = address_of(new_variable(sc_extern));
  a_constant null = cast(integer(0), a.type).constant;
  a_type *type = integer_type(ik_int);
  EXPECT_TRUE(binary(eok_eq, a, b, type).not_constant);
  EXPECT_EQ(value_of(binary(eok_eq, a, null, type)), 0);
  EXPECT_EQ(value_of(binary(eok_ne, null, a, type)), 1);
  EXPECT_TRUE(binary(eok_eq, outside, null, type).not_constant);
  constexpr_enabled = true;
  EXPECT_EQ(value_of(binary(eok_eq, a, b, type)), 0);
  EXPECT_TRUE(binary(eok_eq, outside, null, type).not_constant);
}
