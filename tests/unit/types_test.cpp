// Types made by hand: sharing, identity, compatibility, composites, promotions, conversions.
#include "semantics/types.h"

#include <gtest/gtest.h>

#include "front_end_start.h"
#include "il/il.h"
#include "semantics/folding.h"
#include "semantics/target.h"

namespace {

class Types : public ::testing::Test {
 protected:
  void SetUp() override {
    start_front_end([] {
      set_eabi();
      targ_little_endian = true;
    });
  }
  void TearDown() override { end_front_end(); }

  static a_type *pointer_to(a_type *type) { return make_pointer_type_full(type); }
  static a_type *constant(a_type *type) { return f_make_qualified_type(type, tq_const); }
  static a_type *int_type() { return integer_type(ik_int); }
  static a_type *typedef_of(a_type *type, const char *name) {
    a_type *result = alloc_type(tk_typeref);
    result->referenced_type = type;
    result->name = name;
    return result;
  }
  static a_type *new_enum(an_integer_kind kind) {
    a_type *type = alloc_type(tk_integer);
    type->int_kind = kind;
    type->is_enum = true;
    set_type_size(type);
    return type;
  }
  static a_type *old_style(a_type *return_type) { return make_routine_type(return_type); }
};

using ImplicitConversion = Types;

}  // namespace

TEST_F(Types, DerivedTypesAreShared) {
  a_type *type = int_type();
  EXPECT_EQ(pointer_to(type), pointer_to(type));
  EXPECT_EQ(constant(type), constant(type));
  a_type *both = f_make_qualified_type(constant(type), tq_volatile);
  EXPECT_EQ(both->referenced_type, type) << "qualifiers do not pile up";
  EXPECT_EQ(both, f_make_qualified_type(type, tq_const | tq_volatile));
  a_type *name = typedef_of(constant(type), "ci");
  EXPECT_EQ(constant(name), name);
  EXPECT_EQ(get_type_qualifiers(make_unqualified_type(name)), 0u);
  EXPECT_EQ(string_literal_type(chk_char, 80), string_literal_type(chk_char, 80));
  EXPECT_NE(string_literal_type(chk_char, 81), string_literal_type(chk_char, 81));
}

TEST_F(Types, QualifiersOfArraysGoToTheElement) {
  a_type *name = typedef_of(make_array_type(int_type(), 3), "triple");
  a_type *qualified = constant(name);
  EXPECT_EQ(qualified->kind, tk_array);
  EXPECT_EQ(qualified->size, 12u);
  EXPECT_EQ(qualified->element_type, constant(int_type()));
  EXPECT_EQ(is_qualified_version_of_array_typedef(qualified), name);
  a_type *reference = make_reference_type(int_type());
  EXPECT_EQ(constant(reference), reference);
}

TEST_F(Types, AnAlignedTypedefKeepsItsAlignmentUnderQualifiers) {
  a_type *aligned = alloc_type(tk_typeref);
  aligned->referenced_type = int_type();
  aligned->qualifiers = typeref_has_alignment;
  aligned->explicit_alignment = true;
  aligned->alignment = 16;
  a_type *qualified = f_make_qualified_type(constant(aligned), tq_volatile);
  EXPECT_EQ(f_alignment_of_type(qualified), 16u);
  EXPECT_EQ(get_type_qualifiers(qualified), unsigned{tq_const | tq_volatile});
}

TEST_F(Types, IdentityIsStructuralForArraysAndFunctionsOnly) {
  a_type *f = make_routine_type_full(int_type(), pointer_to(int_type()));
  a_type *g = make_routine_type_full(int_type(), pointer_to(typedef_of(int_type(), "t")));
  EXPECT_TRUE(identical_types(f, g));
  EXPECT_FALSE(identical_types(f, make_routine_type_full(int_type())));
  EXPECT_FALSE(identical_types(pointer_to(int_type()), pointer_to(constant(int_type()))));
  EXPECT_TRUE(identical_types_ignoring_qualifiers(int_type(), constant(int_type())));
  EXPECT_FALSE(identical_types(alloc_type(tk_struct), alloc_type(tk_struct)));
  EXPECT_FALSE(
      identical_types(make_incomplete_array_type(int_type()), make_array_type(int_type(), 0)));
  EXPECT_FALSE(identical_types(new_enum(ik_int), int_type()));
  EXPECT_FALSE(identical_types(integer_type(ik_long), int_type()));
}

TEST_F(Types, EnumsAreCompatibleWithTheirIntegerInCOnly) {
  a_type *first = new_enum(ik_unsigned_int), *second = new_enum(ik_unsigned_int);
  EXPECT_TRUE(types_are_compatible(first, integer_type(ik_unsigned_int)));
  EXPECT_FALSE(types_are_compatible(first, int_type()));
  EXPECT_FALSE(types_are_compatible(first, second));
  gnu_version = 30200;
  EXPECT_TRUE(types_are_compatible(first, second));
  C_dialect = dialect_cplusplus;
  EXPECT_FALSE(types_are_compatible(first, integer_type(ik_unsigned_int)));
}

// int f();  goes with every prototype that default promotion leaves alone.
TEST_F(Types, FunctionsWithoutPrototype) {
  a_type *open = old_style(int_type());
  auto with = [](a_type *param) { return make_routine_type_full(integer_type(ik_int), param); };
  EXPECT_TRUE(types_are_compatible(open, with(int_type())));
  EXPECT_TRUE(types_are_compatible(with(float_type(fk_double)), open));
  EXPECT_FALSE(types_are_compatible(open, with(integer_type(ik_char))));
  EXPECT_FALSE(types_are_compatible(open, with(float_type(fk_float))));
  a_type *variadic = with(int_type());
  variadic->routine_supplement->has_ellipsis = true;
  EXPECT_FALSE(types_are_compatible(open, variadic));
  a_type_difference_descr difference;
  EXPECT_FALSE(
      f_types_are_compatible_full(with(int_type()), with(float_type(fk_float)), 0, &difference));
  EXPECT_EQ(difference.difference, tdf_param_types);
  EXPECT_EQ(difference.parameter, 1);
}

TEST_F(Types, CompositesKnowWhatEitherKnows) {
  a_type *open = make_incomplete_array_type(int_type());
  a_type *closed = make_array_type(int_type(), 7);
  EXPECT_EQ(composite_type(open, closed), closed);
  EXPECT_EQ(composite_type(closed, open), closed);
  EXPECT_EQ(composite_type(pointer_to(open), pointer_to(closed)), pointer_to(closed));
  a_type *prototype = make_routine_type_full(int_type(), int_type());
  EXPECT_EQ(composite_type(old_style(int_type()), prototype), prototype);
  // int (*f(int (*)[]))[7]   and   int (*f(int (*)[7]))[]
  a_type *f = make_routine_type_full(pointer_to(closed), pointer_to(open));
  a_type *g = make_routine_type_full(pointer_to(open), pointer_to(closed));
  a_type *both = composite_type(f, g);
  EXPECT_EQ(both->return_type, pointer_to(closed));
  EXPECT_EQ(both->routine_supplement->param_types->type, pointer_to(closed));
  EXPECT_EQ(f->return_type, pointer_to(closed));
  EXPECT_EQ(f->routine_supplement->param_types->type, pointer_to(open)) << "f is left alone";
}

// Qualifiers count at every level but that of a parameter.
TEST_F(Types, QualifiersAndBoundsInCompatibility) {
  a_type *type = int_type();
  EXPECT_FALSE(types_are_compatible(type, constant(type)));
  EXPECT_FALSE(types_are_compatible(pointer_to(type), pointer_to(constant(type))));
  EXPECT_FALSE(types_are_compatible(pointer_to(type), constant(pointer_to(type))));
  EXPECT_TRUE(
      types_are_compatible(constant(typedef_of(type, "n")), typedef_of(constant(type), "m")));
  EXPECT_TRUE(f_types_are_compatible(type, constant(type), tcf_ignore_qualifiers));
  EXPECT_FALSE(
      f_types_are_compatible(pointer_to(type), pointer_to(constant(type)), tcf_ignore_qualifiers));
  a_type *three = make_array_type(type, 3), *four = make_array_type(type, 4);
  a_type *open = make_incomplete_array_type(type);
  EXPECT_FALSE(types_are_compatible(three, four));
  EXPECT_FALSE(types_are_compatible(pointer_to(three), pointer_to(four)));
  EXPECT_TRUE(types_are_compatible(pointer_to(open), pointer_to(four)));
  EXPECT_FALSE(types_are_compatible(open, make_incomplete_array_type(constant(type))));
  EXPECT_FALSE(types_are_compatible(make_array_type(three, 2), make_array_type(four, 2)));
  EXPECT_TRUE(types_are_compatible(make_incomplete_array_type(three), make_array_type(three, 2)));
  EXPECT_FALSE(types_are_compatible(three, pointer_to(type)));
}

// A wrong type is compatible with everything where that is asked for, and is no kind of type.
TEST_F(Types, ErrorTypesAnswerNothing) {
  a_type *error = error_type();
  EXPECT_TRUE(f_types_are_compatible(error, int_type(), tcf_error_is_compatible));
  EXPECT_TRUE(f_types_are_compatible(pointer_to(int_type()), error, tcf_error_is_compatible));
  for (auto *predicate : {is_integral_type, is_arithmetic_type, is_pointer_type, is_array_type,
                          is_function_type, is_scalar_type, is_class_struct_union_type})
    EXPECT_FALSE(predicate(error));
  EXPECT_TRUE(is_error_type(typedef_of(constant(error), "wrong")));
}

TEST_F(Types, Promotions) {
  EXPECT_EQ(type_after_integral_promotion(integer_type(ik_unsigned_short)), int_type());
  EXPECT_EQ(type_after_integral_promotion(bool_type()), int_type());
  EXPECT_EQ(type_after_integral_promotion(new_enum(ik_unsigned_char)), int_type());
  EXPECT_EQ(type_after_integral_promotion(integer_type(ik_unsigned_long)),
            integer_type(ik_unsigned_long));
  EXPECT_EQ(default_argument_promotion(float_type(fk_float)), float_type(fk_double));
  a_field *field = alloc_field();
  field->type = integer_type(ik_unsigned_int);
  field->is_bit_field = true;
  field->bit_size = 31;
  EXPECT_EQ(type_after_integral_promotion_of_field(field, field->type), int_type());
  field->bit_size = 32;
  EXPECT_EQ(type_after_integral_promotion_of_field(field, field->type), field->type);
  C_dialect = dialect_pcc;
  EXPECT_EQ(type_after_integral_promotion(integer_type(ik_unsigned_char)),
            integer_type(ik_unsigned_int));
}

TEST_F(Types, UsualArithmeticConversions) {
  auto common = [](an_integer_kind a, an_integer_kind b) {
    return usual_arithmetic_conversions(integer_type(a), integer_type(b))->int_kind;
  };
  EXPECT_EQ(common(ik_unsigned_int, ik_long), ik_unsigned_long);
  EXPECT_EQ(common(ik_char, ik_unsigned_short), ik_int);
  EXPECT_EQ(common(ik_unsigned_long, ik_long_long), ik_long_long);
  EXPECT_EQ(common(ik_unsigned_long_long, ik_long_long), ik_unsigned_long_long);
  long_preserving_rules = true;
  EXPECT_EQ(common(ik_unsigned_int, ik_long), ik_long);
  EXPECT_EQ(usual_arithmetic_conversions(float_type(fk_float), integer_type(ik_long_long)),
            float_type(fk_float));
  EXPECT_EQ(usual_arithmetic_conversions(float_type(fk_double), float_type(fk_long_double)),
            float_type(fk_long_double));
  EXPECT_EQ(usual_arithmetic_conversions(complex_type(fk_float), float_type(fk_double)),
            complex_type(fk_double));
  EXPECT_TRUE(is_error_type(usual_arithmetic_conversions(error_type(), int_type())));
}

// ---- Simple assignment in C --------------------------------------------------------------------

namespace {

enum an_outcome : std::uint8_t { is_fine, is_questionable, is_impossible };

an_outcome outcome_of(a_type *source, a_type *target, const a_constant *constant = nullptr) {
  a_std_conv_descr descr;
  if (!impl_conversion_possible(source, constant, false, target, &descr)) return is_impossible;
  return descr.is_incompatible_c_conversion ? is_questionable : is_fine;
}

}  // namespace

TEST_F(ImplicitConversion, FollowsTheConstraintsOfAssignment) {
  a_type *ip = pointer_to(int_type()), *cip = pointer_to(constant(int_type()));
  a_type *vp = pointer_to(void_type()), *up = pointer_to(integer_type(ik_unsigned_int));
  a_type *a_struct = alloc_type(tk_struct);
  EXPECT_EQ(outcome_of(ip, cip), is_fine);
  EXPECT_EQ(outcome_of(cip, ip), is_questionable);
  EXPECT_EQ(outcome_of(ip, vp), is_fine);
  EXPECT_EQ(outcome_of(vp, ip), is_fine);
  EXPECT_EQ(outcome_of(ip, up), is_questionable);
  EXPECT_EQ(outcome_of(int_type(), ip), is_questionable);
  EXPECT_EQ(outcome_of(ip, int_type()), is_questionable);
  EXPECT_EQ(outcome_of(ip, bool_type()), is_fine);
  EXPECT_EQ(outcome_of(a_struct, alloc_type(tk_struct)), is_impossible);
  EXPECT_EQ(outcome_of(constant(a_struct), a_struct), is_fine);
  EXPECT_EQ(outcome_of(float_type(fk_double), ip), is_impossible);
  EXPECT_EQ(outcome_of(make_array_type(int_type(), 4), ip), is_fine);
  a_constant *zero = fs_constant(ck_integer);
  set_integer_constant(zero, 0, ik_int);
  EXPECT_EQ(outcome_of(int_type(), ip, zero), is_fine);
  C_dialect = dialect_cplusplus;
  EXPECT_EQ(outcome_of(cip, ip), is_impossible);
  EXPECT_EQ(outcome_of(vp, ip), is_impossible);
  EXPECT_EQ(outcome_of(int_type(), new_enum(ik_int)), is_impossible);
}

TEST_F(ImplicitConversion, CastsGoBetweenScalars) {
  a_type *ip = pointer_to(int_type());
  bool reinterpret;
  an_error_code warning;
  auto cast = [&](a_type *from, a_type *to) {
    return expl_conversion_possible(from, nullptr, false, to, &reinterpret, &warning);
  };
  EXPECT_TRUE(cast(ip, int_type()));
  EXPECT_TRUE(reinterpret);
  EXPECT_EQ(warning, ec_no_error);
  EXPECT_TRUE(cast(ip, integer_type(ik_char)));
  EXPECT_EQ(warning, ec_pointer_conversion_loses_bits);
  EXPECT_TRUE(cast(float_type(fk_double), int_type()));
  EXPECT_FALSE(cast(float_type(fk_double), ip));
  EXPECT_TRUE(cast(alloc_type(tk_struct), void_type()));
  EXPECT_FALSE(cast(alloc_type(tk_struct), int_type()));
}
