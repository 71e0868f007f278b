// Converting between types: promotions, the usual arithmetic conversions, and which conversions the
// language allows, implicitly or by a cast.
//
// In C a broken constraint of assignment is not "impossible" where other compilers go on with a
// warning: the answer is yes with is_incompatible_c_conversion, and the caller says how hard it is.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"

// ---- Promotions --------------------------------------------------------------------------------

namespace {

an_integer_kind promoted_kind(an_integer_kind kind) {
  switch (kind) {
    case ik_char:
    case ik_signed_char:
    case ik_short:
      return ik_int;
    case ik_unsigned_char:
      return in_pcc_mode() || targ_sizeof_int < 2 ? ik_unsigned_int : ik_int;
    case ik_unsigned_short:
      return in_pcc_mode() || targ_sizeof_int <= targ_sizeof_short ? ik_unsigned_int : ik_int;
    default:
      return kind;
  }
}

}  // namespace

a_type *type_after_integral_promotion(a_type *type) {
  a_type *bottom = skip_typerefs(type);
  if (bottom->kind != tk_integer || (bottom->is_enum && bottom->is_scoped_enum)) return type;
  if (bottom->is_bool) return integer_type(ik_int);
  an_integer_kind kind = promoted_kind(bottom->int_kind);
  bool is_plain =
      !bottom->is_enum && !bottom->is_wchar_t && !bottom->is_char16_t && !bottom->is_char32_t;
  if (kind == bottom->int_kind && is_plain && !in_cplusplus()) return bottom;
  return integer_type(kind);
}

a_type *type_after_integral_promotion_of_field(const a_field *field, a_type *type) {
  if (field == nullptr || !field->is_bit_field || !is_integral_or_enum_type(type))
    return type_after_integral_promotion(type);
  bool is_signed = is_signed_integral_type(field->type);
  if (in_pcc_mode() && !is_signed) return integer_type(ik_unsigned_int);
  if (field->bit_size < targ_precisionof_int + (is_signed ? 1 : 0)) return integer_type(ik_int);
  if (field->bit_size <= targ_precisionof_int) return integer_type(ik_unsigned_int);
  return type_after_integral_promotion(type);
}

a_type *default_argument_promotion(a_type *type) {
  a_type *bottom = skip_typerefs(type);
  switch (bottom->kind) {
    case tk_float:
      return bottom->float_kind == fk_float ? float_type(fk_double) : type;
    case tk_imaginary:
      return bottom->float_kind == fk_float ? imaginary_type(fk_double) : type;
    case tk_integer:
      return type_after_integral_promotion(type);
    default:
      return type;
  }
}

a_type *type_after_array_to_pointer_transformation(a_type *type) {
  a_type *bottom = skip_typerefs(type);
  if (bottom->kind != tk_array) return type;
  unsigned qualifiers = f_get_type_qualifiers(type, true);
  return make_pointer_type_full(make_qualified_type(bottom->element_type, qualifiers));
}

a_type *type_after_function_to_pointer_transformation(a_type *type) {
  return is_function_type(type) ? make_pointer_type_full(type) : type;
}

a_type *adjusted_param_type(a_type *type) {
  return type_after_function_to_pointer_transformation(
      type_after_array_to_pointer_transformation(type));
}

// ---- Usual arithmetic conversions --------------------------------------------------------------

namespace {

constexpr int not_floating = fk_last;

int float_kind_or_none(const a_type *type) {
  return is_floating_type(type) ? type->float_kind : not_floating;
}

// More digits win; of equal ones the higher kind.
a_float_kind wider_float_kind(int a, int b) {
  if (a == not_floating) return static_cast<a_float_kind>(b);
  if (b == not_floating) return static_cast<a_float_kind>(a);
  int digits_a = mantissa_digits_of_float_kind(static_cast<a_float_kind>(a));
  int digits_b = mantissa_digits_of_float_kind(static_cast<a_float_kind>(b));
  if (digits_a != digits_b) return static_cast<a_float_kind>(digits_a > digits_b ? a : b);
  return static_cast<a_float_kind>(a > b ? a : b);
}

a_type *floating_result(const a_type *a, const a_type *b) {
  a_float_kind kind = wider_float_kind(float_kind_or_none(a), float_kind_or_none(b));
  if (in_pcc_mode() && kind == fk_float) kind = fk_double;
  bool a_is_real = a->kind != tk_imaginary && a->kind != tk_complex;
  bool b_is_real = b->kind != tk_imaginary && b->kind != tk_complex;
  if (a_is_real && b_is_real) return float_type(kind);
  if (a->kind == tk_imaginary && b->kind == tk_imaginary) return imaginary_type(kind);
  return complex_type(kind);
}

an_integer_kind common_integer_kind(an_integer_kind a, an_integer_kind b) {
  auto either = [a, b](an_integer_kind kind) { return a == kind || b == kind; };
  if (either(ik_unsigned_long_long)) return ik_unsigned_long_long;
  if (either(ik_long_long)) {
    bool as_wide_as_long = targ_precisionof_long_long == targ_precisionof_long;
    bool as_wide_as_int = targ_precisionof_long_long == targ_precisionof_int;
    bool loses = (as_wide_as_long && either(ik_unsigned_long)) ||
                 (as_wide_as_int && either(ik_unsigned_int));
    return loses ? ik_unsigned_long_long : ik_long_long;
  }
  if (either(ik_unsigned_long)) return ik_unsigned_long;
  if (either(ik_long)) {
    bool loses = !long_preserving_rules && targ_precisionof_long == targ_precisionof_int &&
                 either(ik_unsigned_int);
    return loses ? ik_unsigned_long : ik_long;
  }
  return either(ik_unsigned_int) ? ik_unsigned_int : ik_int;
}

}  // namespace

a_type *usual_arithmetic_conversions_full(a_type *a, const a_field *field_of_a, a_type *b,
                                          const a_field *field_of_b) {
  a = skip_typerefs(a);
  b = skip_typerefs(b);
  if (a->kind == tk_error || b->kind == tk_error) return error_type();
  if (is_floating_type(a) || is_floating_type(b)) return floating_result(a, b);
  a = skip_typerefs(type_after_integral_promotion_of_field(field_of_a, a));
  b = skip_typerefs(type_after_integral_promotion_of_field(field_of_b, b));
  if (a->kind != tk_integer || b->kind != tk_integer) return error_type();
  return integer_type(common_integer_kind(a->int_kind, b->int_kind));
}

a_type *usual_arithmetic_conversions(a_type *a, a_type *b) {
  return usual_arithmetic_conversions_full(a, nullptr, b, nullptr);
}

namespace {

bool assembles_complex(an_expr_operator_kind op) {
  return op >= eok_real_plus_imag && op <= eok_imag_minus_real;
}

bool is_multiply_or_divide(an_expr_operator_kind op) {
  return op == eok_multiply || op == eok_divide || op == eok_divide_assign;
}

a_type_kind kind_of_mixed_operation(an_expr_operator_kind op, a_type_kind a, a_type_kind b) {
  auto either = [a, b](a_type_kind kind) { return a == kind || b == kind; };
  if (either(tk_error)) return tk_error;
  if (either(tk_template_param)) return tk_template_param;
  if (either(tk_pointer)) return tk_pointer;
  if (either(tk_ptr_to_member)) return tk_ptr_to_member;
  if (either(tk_complex) || assembles_complex(op)) return tk_complex;
  if (either(tk_imaginary)) return is_multiply_or_divide(op) ? tk_imaginary : tk_complex;
  if (either(tk_nullptr)) return tk_nullptr;
  return tk_unknown;
}

}  // namespace

a_type_kind binary_operation_type_kind(an_expr_operator_kind op, const a_type *a, const a_type *b) {
  if (op == eok_land || op == eok_lor) return tk_integer;
  if (op == eok_comma) return tk_unknown;
  a_type_kind kind_a = skip_typerefs(a)->kind, kind_b = skip_typerefs(b)->kind;
  if (is_class_kind(kind_a)) kind_a = tk_class;
  if (is_class_kind(kind_b)) kind_b = tk_class;
  if (kind_a != kind_b) return kind_of_mixed_operation(op, kind_a, kind_b);
  bool cancels = op == eok_imag_multiply || is_multiply_or_divide(op);
  return kind_a == tk_imaginary && cancels ? tk_float : kind_a;
}

// ---- Implicit conversions ----------------------------------------------------------------------

void clear_std_conv_descr(a_std_conv_descr *descr) {
  *descr = {};
  descr->real_conversion = true;
}

namespace {

// The qualifiers of what a pointer points to; those of an array are its element's.
unsigned target_qualifiers(const a_type *pointer) {
  return get_type_qualifiers(type_pointed_to(pointer)) & ~unsigned{tq_nullability};
}

// What a pointer points to, without its qualifiers; an array is rebuilt on a plain element.
a_type *unqualified_target(a_type *pointer) {
  a_type *target = type_pointed_to(pointer);
  if (get_type_qualifiers(target) == 0) return target;
  if (!is_array_type(target)) return make_unqualified_type(target);
  a_type *element = make_unqualified_type(underlying_array_element_type(target));
  return copy_array_type_replacing_element_type(target, element);
}

bool incompatible_in_c(a_std_conv_descr *descr) {
  if (in_cplusplus()) return false;
  descr->is_incompatible_c_conversion = true;
  return true;
}

// The pointers of C++ convert along qualifications, to void, and to base classes.
bool cplusplus_pointer_conversion(a_type *source, a_type *target, bool is_string_literal,
                                  a_std_conv_descr *descr) {
  a_type *from = unqualified_target(source), *to = unqualified_target(target);
  if ((target_qualifiers(source) & ~target_qualifiers(target)) != 0) {
    if (!is_string_literal || !deprecated_string_literal_conv_allowed) return false;
    descr->string_literal_to_nonconst = true;
    descr->warning_code = ec_deprecated_string_conv;
  }
  descr->qualification_adjusted = target_qualifiers(source) != target_qualifiers(target);
  if (identical_types(from, to)) {
    descr->real_conversion = false;
    return true;
  }
  descr->is_pointer_conversion = true;
  if (is_void_type(to)) return !is_function_type(from);
  if (a_base_class *base = find_base_class_of(from, to)) {
    descr->base_class = base;
    return true;
  }
  descr->is_pointer_conversion = false;
  descr->real_conversion = false;
  return qualification_conversion_possible(source, target);
}

// C11 6.5.16.1: compatible targets, or void on one side, and no qualifier lost.
bool c_pointer_conversion(a_type *source, a_type *target, a_std_conv_descr *descr) {
  a_type *from = unqualified_target(source), *to = unqualified_target(target);
  unsigned lost = target_qualifiers(source) & ~target_qualifiers(target);
  descr->qualification_adjusted = target_qualifiers(source) != target_qualifiers(target);
  if (lost != 0) incompatible_in_c(descr);
  if (f_types_are_compatible(from, to, tcf_error_is_compatible)) {
    descr->real_conversion = false;
    return true;
  }
  descr->is_pointer_conversion = true;
  if (is_void_type(from) || is_void_type(to)) {
    bool is_function = is_function_type(from) || is_function_type(to);
    return is_function && strict_ansi_mode ? incompatible_in_c(descr) : true;
  }
  return incompatible_in_c(descr);
}

bool is_arithmetic_source(const a_type *type) {
  return is_floating_type(type) || is_integral_or_unscoped_enum_type(type);
}

bool conversion_to_integer(a_type *source, a_type *target, a_std_conv_descr *descr) {
  if (target->is_bool && (is_pointer_type(source) || is_ptr_to_member_type(source))) {
    descr->to_bool = true;
    return true;
  }
  if (is_pointer_type(source)) return incompatible_in_c(descr);
  if (!is_arithmetic_source(source)) return false;
  if (target->is_enum && in_cplusplus()) return false;
  descr->to_bool = target->is_bool;
  descr->is_promotion = skip_typerefs(type_after_integral_promotion(source)) == target;
  bool other_enum = target->is_enum && is_enum_type(source) && skip_typerefs(source) != target;
  if (other_enum) descr->warning_code = ec_mixed_enum_type;
  return true;
}

bool conversion_to_floating(a_type *source, a_type *target, a_std_conv_descr *descr) {
  if (!is_arithmetic_source(source)) return false;
  a_type *from = skip_typerefs(source);
  descr->is_promotion = from->kind == tk_float && target->kind == tk_float &&
                        from->float_kind == fk_float && target->float_kind == fk_double;
  descr->real_to_complex =
      from->kind == tk_float && target->kind == tk_complex && gpp_mode && gnu_version >= 40300;
  bool real_to_imaginary =
      target->kind == tk_imaginary && from->kind != tk_imaginary && from->kind != tk_complex;
  bool imaginary_to_real = target->kind == tk_float && from->kind == tk_imaginary;
  if (real_to_imaginary || imaginary_to_real) descr->warning_code = ec_real_imaginary_conversion;
  return true;
}

bool conversion_to_class(a_type *source, const a_constant *constant, bool is_string_literal,
                         a_type *target, a_std_conv_descr *descr) {
  if (f_types_are_compatible(source, target, tcf_ignore_qualifiers)) {
    descr->real_conversion = false;
    return true;
  }
  if (!gcc_mode || !is_transparent_union_type(target)) return false;
  for (a_field *field = target->fields; field != nullptr; field = field->next) {
    a_std_conv_descr inner;
    if (impl_conversion_possible(source, constant, is_string_literal, field->type, &inner) &&
        !inner.is_incompatible_c_conversion)
      return true;
  }
  return false;
}

}  // namespace

bool impl_pointer_conversion(a_type *source, const a_constant *constant, bool is_string_literal,
                             a_type *target, a_std_conv_descr *descr) {
  if (constant != nullptr && is_null_pointer_constant(constant)) return true;
  if (is_nullptr_type(source)) return true;
  if (is_pointer_type(source)) {
    return in_cplusplus() ? cplusplus_pointer_conversion(source, target, is_string_literal, descr)
                          : c_pointer_conversion(source, target, descr);
  }
  return is_integral_or_enum_type(source) && incompatible_in_c(descr);
}

bool impl_conversion_possible(a_type *source, const a_constant *constant, bool is_string_literal,
                              a_type *target, a_std_conv_descr *descr) {
  clear_std_conv_descr(descr);
  source = adjusted_param_type(source);
  if (is_error_type(source) || is_error_type(target)) return true;
  if (identical_types_ignoring_qualifiers(source, target)) {
    descr->real_conversion = false;
    return true;
  }
  a_type *bottom = skip_typerefs(target);
  switch (bottom->kind) {
    case tk_integer:
      return conversion_to_integer(source, bottom, descr);
    case tk_float:
    case tk_imaginary:
    case tk_complex:
      return conversion_to_floating(source, bottom, descr);
    case tk_pointer:
      return !bottom->is_reference &&
             impl_pointer_conversion(source, constant, is_string_literal, bottom, descr);
    case tk_class:
    case tk_struct:
    case tk_union:
      return conversion_to_class(source, constant, is_string_literal, bottom, descr);
    case tk_nullptr:
    case tk_ptr_to_member:
      return constant != nullptr && is_null_pointer_constant(constant);
    default:
      return false;
  }
}

// T * to const T *, and in C++ T ** to const T *const *: from the second level on every level
// between must be const.
bool qualification_conversion_possible(a_type *source, a_type *target) {
  bool all_const_so_far = true;
  for (int level = 0;; ++level) {
    a_type *from = skip_typerefs(source), *to = skip_typerefs(target);
    if (from->kind != tk_pointer || to->kind != tk_pointer || from->is_reference ||
        to->is_reference)
      return f_types_are_compatible(from, to, tcf_ignore_qualifiers);
    unsigned had = target_qualifiers(from), has = target_qualifiers(to);
    if ((had & ~has) != 0) return false;
    if (had != has && level > 0 && !all_const_so_far) return false;
    if ((has & tq_const) == 0) all_const_so_far = false;
    source = from->pointed_to;
    target = to->pointed_to;
  }
}

// ---- Casts -------------------------------------------------------------------------------------

bool targ_dest_of_ptr_cast_big_enough(const a_type *pointer, const a_type *integer) {
  return skip_typerefs(integer)->size >= skip_typerefs(pointer)->size;
}

bool cast_removes_qualifiers(a_type *source, a_type *target) {
  while (is_pointer_type(source) && is_pointer_type(target)) {
    if ((target_qualifiers(source) & ~target_qualifiers(target)) != 0) return true;
    source = type_pointed_to(source);
    target = type_pointed_to(target);
  }
  return false;
}

bool reinterpret_cast_conversion_possible(a_type *source, const a_constant *, a_type *target,
                                          an_error_code *warning) {
  bool from_pointer = is_pointer_type(source) || is_nullptr_type(source);
  if (is_pointer_type(target)) return is_pointer_type(source) || is_integral_or_enum_type(source);
  if (from_pointer && is_integral_or_enum_type(target)) {
    if (!targ_dest_of_ptr_cast_big_enough(source, target) && !is_bool_type(target))
      *warning = ec_pointer_conversion_loses_bits;
    return true;
  }
  return is_ptr_to_member_type(source) && is_ptr_to_member_type(target) &&
         is_function_type(pm_member_type(source)) == is_function_type(pm_member_type(target));
}

bool static_cast_conversion_possible(a_type *source, const a_constant *constant,
                                     bool is_string_literal, a_type *target,
                                     an_error_code *warning) {
  if (is_void_type(target)) return true;
  a_std_conv_descr descr;
  if (impl_conversion_possible(source, constant, is_string_literal, target, &descr) &&
      !descr.is_incompatible_c_conversion) {
    if (descr.warning_code != ec_mixed_enum_type) *warning = descr.warning_code;
    return true;
  }
  if (is_integral_or_enum_type(target)) return is_arithmetic_or_enum_type(source);
  if (is_floating_type(target)) return is_arithmetic_or_enum_type(source);
  if (!is_pointer_type(source) || !is_pointer_type(target)) return false;
  if (cast_removes_qualifiers(source, target)) return false;
  a_type *from = unqualified_target(source), *to = unqualified_target(target);
  return is_void_type(from) || find_base_class_of(to, from) != nullptr;
}

bool expl_conversion_possible(a_type *source, const a_constant *constant, bool is_string_literal,
                              a_type *target, bool *reinterpret, an_error_code *warning) {
  *reinterpret = false;
  *warning = ec_no_error;
  if (is_error_type(source) || is_error_type(target)) return true;
  source = adjusted_param_type(source);
  if (!is_void_type(target) && is_incomplete_type(target)) return false;
  if (static_cast_conversion_possible(source, constant, is_string_literal, target, warning))
    return true;
  if (!reinterpret_cast_conversion_possible(source, constant, target, warning)) return false;
  *reinterpret = true;
  return true;
}
