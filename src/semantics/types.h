// The meaning of types: how type records are made and shared, tested, compared, combined and
// converted.
//
// Typedefs and qualified types are records of their own (kind tk_typeref) in front of the type they
// name, so nearly every operation steps through typerefs first. A pointer to a given type exists
// once, as does each qualified form: they hang on the based_types list of the type they are made
// from. Classes and enums are unique by declaration; array and routine types are made anew at each
// declaration and compared structurally. All types lie in the file-scope region.
//
// An operation on an error type gives an error type and no message; a predicate answers false for
// it, is_error_type excepted.
#ifndef SEMANTICS_TYPES_H
#define SEMANTICS_TYPES_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il.h"
#include "il/src_seq.h"

// ---- Fundamental types -------------------------------------------------------------------------
// Made at the first request, once for each translation unit.

a_type *error_type();
a_type *void_type();
a_type *unknown_type();
a_type *integer_type(an_integer_kind kind);
a_type *signed_integer_type(an_integer_kind kind);  // written with "signed"
a_type *other_signedness_integer_type(const a_type *type);  // of the same size
a_type *float_type(a_float_kind kind);
a_type *complex_type(a_float_kind kind);
a_type *imaginary_type(a_float_kind kind);
a_type *bool_type();  // bool, _Bool
a_type *wchar_t_type();
a_type *char16_t_type();
a_type *char32_t_type();
// The keyword type, or without the keyword the integer type that stands for it.
a_type *eff_wchar_t_type();
a_type *eff_char16_t_type();
a_type *eff_char32_t_type();
a_type *standard_nullptr_type();
a_type *managed_nullptr_type();
// The array type of a string literal of length characters, the terminating zero included; a length
// of 0 is an array of no elements.
a_type *string_literal_type(a_string_char_kind char_kind, std::uint64_t length);
a_type *qx_wildcard_type();  // of an intrinsic's operand that takes anything
a_type *string_literal_element_type(a_string_char_kind char_kind);  // with const where it has it

// The kinds that __float80 and __float128 stand for.
extern a_float_kind float_kind_for_float80, float_kind_for_float128;

// ---- Stepping through typerefs -----------------------------------------------------------------

a_type *f_skip_typerefs(a_type *type);
inline a_type *skip_typerefs(a_type *type) {
  return type->kind == tk_typeref ? f_skip_typerefs(type) : type;
}
inline const a_type *skip_typerefs(const a_type *type) {
  return skip_typerefs(const_cast<a_type *>(type));
}
a_type *skip_typedefs(a_type *type);               // stops at a typeref with qualifiers
a_type *skip_typerefs_not_typedefs(a_type *type);  // stops at a typeref with a name
a_type *skip_typerefs_not_dependent_decltypes(a_type *type);
a_type *skip_typerefs_not_parameterized_decltypes(a_type *type);
a_type *skip_typedefs_not_dependent_decltypes(a_type *type);
bool is_typedef(const a_type *type);  // a typeref with a name

// ---- Predicates --------------------------------------------------------------------------------

inline bool is_class_kind(a_type_kind kind) {
  return kind >= tk_class && kind <= tk_union;
}
inline bool type_has_kind(const a_type *type, a_type_kind kind) {
  return skip_typerefs(type)->kind == kind;
}

inline bool is_error_type(const a_type *t) {
  return type_has_kind(t, tk_error);
}
inline bool is_void_type(const a_type *t) {
  return type_has_kind(t, tk_void);
}
inline bool is_unknown_type(const a_type *t) {
  return type_has_kind(t, tk_unknown);
}
inline bool is_function_type(const a_type *t) {
  return type_has_kind(t, tk_routine);
}
inline bool is_array_type(const a_type *t) {
  return type_has_kind(t, tk_array);
}
inline bool is_nullptr_type(const a_type *t) {
  return type_has_kind(t, tk_nullptr);
}
inline bool is_ptr_to_member_type(const a_type *t) {
  return type_has_kind(t, tk_ptr_to_member);
}
inline bool is_imaginary_type(const a_type *t) {
  return type_has_kind(t, tk_imaginary);
}
inline bool is_complex_type(const a_type *t) {
  return type_has_kind(t, tk_complex);
}
inline bool is_union_type(const a_type *t) {
  return type_has_kind(t, tk_union);
}
inline bool is_template_param_type(const a_type *t) {
  return type_has_kind(t, tk_template_param);
}
inline bool is_class_struct_union_type(const a_type *t) {
  return is_class_kind(skip_typerefs(t)->kind);
}
inline bool is_class_struct_type(const a_type *t) {
  a_type_kind kind = skip_typerefs(t)->kind;
  return kind == tk_class || kind == tk_struct;
}
// A pointer, no reference.
inline bool is_pointer_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_pointer && !t->is_reference;
}
inline bool is_plain_pointer_type(const a_type *t) {
  return is_pointer_type(t);
}
inline bool is_ptr_or_ref_type(const a_type *t) {
  return type_has_kind(t, tk_pointer);
}
inline bool is_any_reference_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_pointer && t->is_reference;
}
inline bool is_reference_type(const a_type *t) {
  return is_any_reference_type(t);
}
inline bool is_rvalue_reference_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_pointer && t->is_reference && t->is_rvalue_reference;
}
inline bool is_lvalue_reference_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_pointer && t->is_reference && !t->is_rvalue_reference;
}
inline bool is_enum_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_integer && t->is_enum;
}
inline bool is_scoped_enum_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_integer && t->is_enum && t->is_scoped_enum;
}
inline bool is_unscoped_enum_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_integer && t->is_enum && !t->is_scoped_enum;
}
inline bool is_integral_or_enum_type(const a_type *t) {
  return type_has_kind(t, tk_integer);
}
inline bool is_integral_or_unscoped_enum_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_integer && !(t->is_enum && t->is_scoped_enum);
}
inline bool is_bool_type(const a_type *t) {
  t = skip_typerefs(t);
  return t->kind == tk_integer && t->is_bool;
}
inline bool is_real_floating_type(const a_type *t) {
  return type_has_kind(t, tk_float);
}
inline bool is_nonreal_floating_type(const a_type *t) {
  a_type_kind kind = skip_typerefs(t)->kind;
  return kind == tk_imaginary || kind == tk_complex;
}
inline bool is_floating_type(const a_type *t) {  // real, imaginary or complex
  a_type_kind kind = skip_typerefs(t)->kind;
  return kind >= tk_float && kind <= tk_complex;
}
inline bool is_simple_scalar_type(const a_type *t) {  // integer, enum, floating or pointer
  a_type_kind kind = skip_typerefs(t)->kind;
  return (kind >= tk_integer && kind <= tk_complex) || is_pointer_type(t);
}

bool is_integral_type(const a_type *type);         // an enum only when enum_type_is_integral
bool is_signed_integral_type(const a_type *type);  // enums too
bool is_character_type(const a_type *type);
bool is_plain_char_type(const a_type *type);
bool is_wchar_t_type(const a_type *type);
bool is_char16_t_type(const a_type *type);
bool is_char32_t_type(const a_type *type);
bool is_float_floating_type(const a_type *type);
bool is_double_floating_type(const a_type *type);
bool is_arithmetic_type(const a_type *type);  // in C an enum counts
bool is_arithmetic_or_enum_type(const a_type *type);
bool is_arithmetic_or_unscoped_enum_type(const a_type *type);
bool is_scalar_type(const a_type *type);  // also pointers to member and nullptr_t; no references
bool is_incomplete_type(
    const a_type *type);  // void, an open class or enum, an array of unknown bound
bool is_incomplete_array_type(const a_type *type);  // int[]
bool is_flexible_array_type(const a_type *type);    // as the last member of a struct
bool is_object_type(const a_type *type);
bool is_complete_object_type(const a_type *type);
bool is_void_star_type(const a_type *type);  // void *, unqualified
bool is_pointer_to_void_type(const a_type *type);
bool is_pointer_to_function_type(const a_type *type);
bool is_pointer_to_object_type(const a_type *type);
bool is_lhsref_type(const a_type *type);
bool is_vla_type(const a_type *type);  // an array whose own bound is computed
bool is_variably_modified_type(a_type *type);
bool is_char_array_type(const a_type *type);
bool is_wchar_t_array_type(const a_type *type);
bool is_char16_t_array_type(const a_type *type);
bool is_char32_t_array_type(const a_type *type);
bool is_string_type(const a_type *type);  // an array of some character type
// An array that a string literal may initialize; *char_kind says which.
bool may_be_string_type(const a_type *type, a_string_char_kind *char_kind);
bool is_ptrdiff_t_type(const a_type *type);
bool is_size_t_type(const a_type *type);
bool is_real_class_type(const a_type *type);  // a class that is no union and no vector struct
bool is_transparent_union_type(const a_type *type);
bool is_aggregate_type(const a_type *type);
bool is_aggregate_or_union_type(const a_type *type);
bool is_unknown_template_param_type(const a_type *type);
bool is_template_class_type(const a_type *type);
bool is_polymorphic_class_type(const a_type *type);
bool is_abstract_class_type(const a_type *type);
bool is_auto_type(const a_type *type);
bool is_std_initializer_list_type(const a_type *type);
// The scalar type that stands for a class with one member; null: it stays a class.
a_type *scalar_csu(a_type *type);
bool is_passed_by_ref_type(const a_type *type);
bool is_qx_wildcard_type(const a_type *type);
bool is_template_dependent_type(const a_type *type);  // false at once in C

// ---- Parts of types ----------------------------------------------------------------------------

a_type *type_pointed_to(const a_type *type);  // of a pointer or reference
a_type *array_element_type(const a_type *type);
// The element behind all dimensions, with the qualifiers that stand on it.
a_type *underlying_array_element_type(a_type *type);
inline a_type *skip_array_types(a_type *type) {
  return underlying_array_element_type(type);
}
std::uint64_t num_array_elements(const a_type *type);  // the product over all dimensions
a_type *pm_member_type(const a_type *type);
a_type *pm_class_type(const a_type *type);
a_type *return_type_of(const a_type *type);
// The type that a derived type (pointer, array, function, ...) is derived from; null: none.
a_type *f_underlying_type_of_derived_type(a_type *type, bool *known);
a_type *find_bottom_of_type(a_type *type);     // behind all derivations
a_type *type_specifier_of_type(a_type *type);  // the same, with typedefs and qualifiers kept
std::uint32_t f_alignment_of_type(const a_type *type);
a_type *underlying_enum_type(const a_type *type);  // of an enum: the integer type of its kind
bool routine_type_is_prototyped(const a_type *type);
a_param_type *param_types_of(const a_type *type);  // of a routine type

// Qualifiers along the typerefs (the bits tq_...). Without c_rules an array has those of its
// element.
unsigned f_get_type_qualifiers(const a_type *type, bool c_rules);
inline unsigned get_type_qualifiers(const a_type *type) {
  return type->kind == tk_typeref || type->kind == tk_array ? f_get_type_qualifiers(type, false)
                                                            : 0;
}
inline bool is_const_type(const a_type *t) {
  return (get_type_qualifiers(t) & tq_const) != 0;
}
inline bool is_volatile_type(const a_type *t) {
  return (get_type_qualifiers(t) & tq_volatile) != 0;
}
bool f_any_qualifier_missing(const a_type *from, const a_type *to);  // to lacks one that from has

// ---- Making types ------------------------------------------------------------------------------

a_type *make_pointer_type_full(a_type *type);  // null: a fresh one, to be filled in
inline a_type *make_pointer_type(a_type *type) {
  return make_pointer_type_full(type);
}
a_type *make_reference_type(a_type *type);
a_type *make_rvalue_reference_type(a_type *type);
a_type *make_lhsref_type(a_type *type);
a_type *make_pointer_type_of_same_kind(a_type *type, const a_type *like);
a_type *make_reference_type_of_same_kind(a_type *type, const a_type *like);
a_type *make_ptr_to_const_type(a_type *type);
a_type *ptr_to_member_type_full(a_type *member, a_type *class_type);
// Adds qualifiers; the result sits directly on the type or typedef below. A reference takes only
// restrict. The qualifiers of an array go to its element.
a_type *f_make_qualified_type(a_type *type, unsigned qualifiers);
inline a_type *make_qualified_type(a_type *type, unsigned qualifiers) {
  return qualifiers == 0 ? type : f_make_qualified_type(type, qualifiers);
}
a_type *make_unqualified_type(a_type *type);
a_type *type_plus_qualifiers_from_second_type(a_type *type, const a_type *from);
a_type *make_array_type(a_type *element, std::uint64_t number_of_elements);
a_type *make_incomplete_array_type(a_type *element);  // element[]
// A prototyped routine type; unused parameters are null.
a_type *make_routine_type_full(a_type *return_type, a_type *p1 = nullptr, a_type *p2 = nullptr,
                               a_type *p3 = nullptr, a_type *p4 = nullptr, a_type *p5 = nullptr,
                               a_type *p6 = nullptr, a_type *p7 = nullptr);
a_type *make_routine_type(a_type *return_type);  // ()
a_param_type *make_param_type(a_type *type);     // top qualifiers go to declared_type
void add_param_type(a_type *routine_type, a_type *param);
void copy_type(const a_type *from, a_type *to);  // everything but the identity of the entry
a_type *copy_array_type_replacing_element_type(a_type *array, a_type *element);
a_param_type *copy_param_type_list(const a_param_type *list);
a_type *copy_routine_type_with_param_types(a_type *type);
a_type *make_field_selection_type(const a_field *field, unsigned qualifiers);
a_type *make_auto_type(const a_source_position *position, bool is_decltype_auto);
// The typedef of an array whose qualified version type is; null: it is none.
a_type *is_qualified_version_of_array_typedef(const a_type *type);
void add_based_type(a_type *type, a_based_type_relation relation, a_type *based);

// ---- Comparing ---------------------------------------------------------------------------------

// Flags of f_identical_types.
enum an_identity_flag : unsigned {
  itf_ignore_pointer_kind = 2,  // pointer or reference, at this level
  itf_other_trans_unit = 4,     // classes and enums of other units may correspond
  itf_loose_auto = 8,
  itf_compare_auto_levels = 16,
  itf_ignore_qualifiers = 32,  // at the top level; kept for arrays in C++
  itf_strict_template_params = 64,
  itf_template_redeclaration = 0x100,
  itf_ignore_gnu_attributes = 0x400,  // of routine types
  itf_compare_noreturn = 0x800,
  itf_placeholder_matches_deduced = 0x1000,
  itf_see_through_references = 0x80000000u,
};
bool f_identical_types(a_type *a, a_type *b, unsigned flags);
inline bool identical_types(a_type *a, a_type *b) {
  return a == b || f_identical_types(a, b, 0);
}
inline bool identical_types_ignoring_qualifiers(a_type *a, a_type *b) {
  return a == b || f_identical_types(a, b, itf_ignore_qualifiers);
}

// Flags of f_types_are_compatible.
enum a_compatibility_flag : unsigned {
  tcf_error_is_compatible = 1,
  tcf_ignore_qualifiers = 2,  // at the top level
  tcf_parameter = 4,          // of a C function: bounds of arrays do not count
  tcf_loose_auto = 8,
  tcf_enum_is_distinct = 0x100,  // from its integer type
  tcf_placeholder_matches_deduced = 0x1000,
  tcf_ignore_this_class = 0x80000000u,
  // A redeclaration in C++, and the form that also lets auto match.
  tcf_cplusplus_redeclaration = tcf_enum_is_distinct,
  tcf_cplusplus_redeclaration_full =
      tcf_enum_is_distinct | tcf_loose_auto | tcf_placeholder_matches_deduced,
};
// Which part of two types differed, for the message.
enum a_type_difference : std::uint8_t {
  tdf_none,
  tdf_kind,
  tdf_qualifiers,
  tdf_bound,
  tdf_return_type,
  tdf_param_types,
  tdf_prototype,  // an old-style declaration whose promoted parameters do not match
  tdf_name_linkage,
  tdf_other
};
struct a_type_difference_descr {
  a_type_difference difference;
  a_type *first, *second;  // the differing parts; null where a part is missing
  int parameter;           // 1-based; 0: not in a parameter
};
bool f_types_are_compatible_full(a_type *a, a_type *b, unsigned flags,
                                 a_type_difference_descr *difference);
inline bool f_types_are_compatible(a_type *a, a_type *b, unsigned flags) {
  return a == b || f_types_are_compatible_full(a, b, flags, nullptr);
}
inline bool types_are_compatible(a_type *a, a_type *b) {
  return f_types_are_compatible(a, b, 0);
}
bool param_types_are_compatible_full(a_type *a, a_type *b, unsigned flags,
                                     a_type_difference_descr *difference);
bool integral_types_the_same_except_for_signedness(const a_type *a, const a_type *b);
// Types that a program may use for each other by mistake without harm: same size and signedness.
bool interchangeable_types(a_type *a, a_type *b);
bool cast_identical_types(a_type *a, a_type *b);  // a cast from a to b changes nothing
bool same_type_with_added_qualifiers(a_type *from, a_type *to);
bool same_or_related_class_types(a_type *a, a_type *b);
bool is_same_class_or_base_class_thereof(a_type *base, a_type *derived);
a_base_class *find_base_class_of(a_type *derived, a_type *base);  // null: not a base
bool routine_linkages_are_compatible(const a_type *a, const a_type *b);
bool calling_conventions_are_compatible(const a_type *a, const a_type *b);

// A type of which both are declarations, with what either knows more. They must be compatible.
a_type *composite_type(a_type *a, a_type *b);

// ---- Conversions -------------------------------------------------------------------------------

a_type *type_after_integral_promotion(a_type *type);
// The same for a bit-field operand: a narrow field fits in int.
a_type *type_after_integral_promotion_of_field(const a_field *field, a_type *type);
a_type *default_argument_promotion(a_type *type);
// An array becomes a pointer to its element, a function a pointer to itself.
a_type *type_after_array_to_pointer_transformation(a_type *type);
a_type *type_after_function_to_pointer_transformation(a_type *type);
// The type that a parameter declared with it really has.
a_type *adjusted_param_type(a_type *type);
a_type *usual_arithmetic_conversions(a_type *a, a_type *b);
// The same with the fields of bit-field operands (null: none).
a_type *usual_arithmetic_conversions_full(a_type *a, const a_field *a_field_ptr, a_type *b,
                                          const a_field *b_field_ptr);
// The kind of type that a binary operation gives, without making it.
a_type_kind binary_operation_type_kind(an_expr_operator_kind op, const a_type *a, const a_type *b);

// What an implicit conversion does.
struct a_std_conv_descr {
  a_base_class *base_class;  // of a derived-to-base step
  bool is_ptr_to_member_step : 1;
  bool qualification_adjusted : 1;
  bool reference_qualification_adjusted : 1;
  bool is_pointer_conversion : 1;
  bool real_conversion : 1;  // the types differ in more than qualifiers
  bool is_promotion : 1;
  bool to_bool : 1;
  bool exception_spec_mismatch : 1;
  bool string_literal_to_nonconst : 1;
  bool is_incompatible_c_conversion : 1;  // breaks a constraint of C; severity tells how hard
  bool real_to_complex : 1;
  bool to_initializer_list : 1;
  an_error_code warning_code;  // to be reported; 0: none
};
void clear_std_conv_descr(a_std_conv_descr *descr);

// Can a value of type source (null constant: not a constant) be converted as by assignment? In C
// the constraints of simple assignment; one that is only broken in a way that other compilers warn
// about answers true with is_incompatible_c_conversion and a warning_code.
bool impl_conversion_possible(a_type *source, const a_constant *constant, bool is_string_literal,
                              a_type *target, a_std_conv_descr *descr);
bool impl_pointer_conversion(a_type *source, const a_constant *constant, bool is_string_literal,
                             a_type *target, a_std_conv_descr *descr);
// Can a value be cast? *reinterpret: only the bits are looked at anew. *warning: a code to report.
bool expl_conversion_possible(a_type *source, const a_constant *constant, bool is_string_literal,
                              a_type *target, bool *reinterpret, an_error_code *warning);
bool static_cast_conversion_possible(a_type *source, const a_constant *constant,
                                     bool is_string_literal, a_type *target,
                                     an_error_code *warning);
bool reinterpret_cast_conversion_possible(a_type *source, const a_constant *constant,
                                          a_type *target, an_error_code *warning);
bool qualification_conversion_possible(a_type *source, a_type *target);
bool cast_removes_qualifiers(a_type *source, a_type *target);
bool targ_dest_of_ptr_cast_big_enough(const a_type *pointer, const a_type *integer);

// ---- Sizes -------------------------------------------------------------------------------------

void set_type_size(a_type *type);  // nothing when it is set
// An array's size from its element and bound; an object too large is reported and has size 1.
void set_array_type_size(a_type *type, bool bound_known);
std::uint32_t alignment_of_variable(const a_variable *variable);

// ---- Walking through a type --------------------------------------------------------------------

enum a_type_traversal_flag : unsigned {
  ttf_routine_parts = 1,  // return and parameter types
  ttf_template_args = 4,  // of classes
  ttf_skip_typerefs = 16,
  ttf_skip_unqualified_typerefs = 32,
  ttf_stop_at_typedefs = 0x80000000u,
};
// Calls visit on the types inside a type, outermost first, until it answers true.
using a_type_visitor = bool (*)(a_type *type, bool *go_inside);
bool traverse_type_tree(a_type *type, a_type_visitor visit, unsigned flags);
bool is_or_contains_error_type(a_type *type);
bool is_or_contains_template_param(a_type *type);
bool is_or_contains_local_type(a_type *type);
bool is_or_contains_vla_type_with_unspecified_bound(a_type *type);

// ---- Phases ------------------------------------------------------------------------------------

void types_early_init();
void types_trans_unit_init();  // forgets the fundamental types of the last unit

#endif
