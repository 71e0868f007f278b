// Types: a_type and the records that hang on it. All lie in the file-scope region.
//
// A typedef and a qualified type are records of kind tk_typeref in front of the type they name, so
// almost every question begins by stepping through typerefs.
#ifndef IL_IL_TYPE_H
#define IL_IL_TYPE_H

#include <cstdint>

#include "il/il_source_corresp.h"

using a_targ_size_t = std::uint64_t;     // sizes and offsets on the target, in bytes
using a_targ_alignment = std::uint32_t;  // in bytes
using a_type_qualifier_set = std::uint32_t;

// The word `qualifiers` of a typeref.
inline constexpr a_type_qualifier_set tq_none = 0;
inline constexpr a_type_qualifier_set tq_const = 1;
inline constexpr a_type_qualifier_set tq_volatile = 2;
inline constexpr a_type_qualifier_set tq_restrict = 4;
inline constexpr a_type_qualifier_set tq_atomic = 8;
inline constexpr a_type_qualifier_set tq_nullable = 16;
inline constexpr a_type_qualifier_set tq_nonnull = 32;
inline constexpr a_type_qualifier_set tq_null_unspecified = 64;
inline constexpr a_type_qualifier_set tq_cv = tq_const | tq_volatile;
// In no identity test; each excludes the others.
inline constexpr a_type_qualifier_set tq_nullability =
    tq_nullable | tq_nonnull | tq_null_unspecified;
inline constexpr a_type_qualifier_set tq_mask = 127;
// What else a typeref can be.
inline constexpr a_type_qualifier_set typeref_is_decltype_auto_placeholder = 2048;
inline constexpr a_type_qualifier_set typeref_is_auto_placeholder = 4096;
inline constexpr a_type_qualifier_set typeref_has_vector_size = 0x400;
inline constexpr a_type_qualifier_set typeref_has_mode = 0x4000;
inline constexpr a_type_qualifier_set typeref_has_alignment = 0x8000;
inline constexpr a_type_qualifier_set typeref_has_attributes = 0x1000000;
inline constexpr a_type_qualifier_set typeref_attribute_mask =
    typeref_has_vector_size | typeref_has_mode | typeref_has_alignment | typeref_has_attributes;
inline constexpr a_type_qualifier_set typeref_is_decltype = 0x20000;
inline constexpr a_type_qualifier_set typeref_is_dependent_typedef = 0x200000;

inline constexpr std::uint16_t calling_convention_unset = 65535;

struct a_class_flags {
  bool layout_done : 1;
  bool layout_in_progress : 1;
  bool is_being_defined : 1;
  bool has_definition : 1;
  bool is_empty : 1;
  bool is_local : 1;      // declared in a function
  bool is_unnamed : 1;    // no tag was written
  bool is_anonymous : 1;  // an anonymous struct or union: its members belong to the outside
  bool has_flexible_array_member : 1;
  bool has_const_member : 1;
  bool has_volatile_member : 1;
  bool has_vla_member : 1;
  bool is_transparent_union : 1;
  bool is_vector_type : 1;
  bool is_predeclared : 1;  // made by the front end itself
  bool is_lambda_closure : 1;
  bool is_polymorphic : 1;
  bool is_abstract : 1;
  bool is_final : 1;
  bool is_pod : 1;
  bool is_aggregate : 1;
  bool is_literal : 1;
  bool is_standard_layout : 1;
  bool is_trivially_copyable : 1;
  bool has_virtual_bases : 1;
  bool has_virtual_functions : 1;
  bool has_own_vtbl_pointer : 1;
  bool has_user_ctor : 1;
  bool has_nontrivial_default_ctor : 1;
  bool has_nontrivial_copy_ctor : 1;
  bool has_nontrivial_move_ctor : 1;
  bool has_nontrivial_copy_assign : 1;
  bool has_nontrivial_destructor : 1;
  bool has_virtual_destructor : 1;
  bool has_reference_member : 1;
  bool has_field_initializer : 1;
  bool has_conversion_function : 1;
  bool is_template_instance : 1;
  bool is_prototype_instantiation : 1;
  bool is_nonreal : 1;  // depends on template parameters
  bool is_partial_specialization : 1;
  bool is_specialization : 1;
  bool is_std_initializer_list : 1;
  bool instantiation_attempted : 1;
  bool members_declared : 1;
  bool definition_needed : 1;
  bool keep_definition_in_il : 1;
  bool pass_by_reference : 1;
  bool pm_fixup_pending : 1;  // on the list of classes with pending pointers to member
  bool default_args_fixed_up : 1;
  bool eh_specs_fixed_up : 1;
  bool may_alias : 1;
  bool type_info_needed : 1;
};

struct a_type : a_source_correspondence {
  a_type *next;
  a_based_type_list_member *based_types;  // what was made from this type
  a_targ_size_t size;
  a_targ_alignment alignment;  // starts at 1
  a_type_kind kind;
  // Of every kind.
  bool is_incomplete : 1;
  bool explicit_alignment : 1;  // an attribute or alignas gave the alignment
  bool is_managed : 1;          // tk_nullptr
  bool is_packed : 1;
  bool size_is_set : 1;
  bool is_typedef_of_unnamed : 1;  // the name came from a typedef
  bool is_builtin_type : 1;        // fundamental: no scope owns it
  bool on_types_list : 1;
  bool is_deduced : 1;
  bool has_typeof : 1;
  bool definition_needed : 1;
  bool has_lowered_form : 1;  // found to; clear: not yet asked, or it has none
  a_variable *assoc_variable;
  union {
    struct {  // tk_integer
      an_enum_supplement *enum_supplement;
      an_integer_kind int_kind;
      bool explicit_signed : 1;
      bool is_enum : 1;
      bool is_scoped_enum : 1;
      bool has_fixed_underlying_type : 1;
      bool is_small_enum : 1;
      bool is_wchar_t : 1;
      bool is_char16_t : 1;
      bool is_char32_t : 1;
      bool is_bool : 1;
      bool is_unnamed_enum : 1;
      bool is_local_enum : 1;
      bool enum_is_nonreal : 1;
    };
    a_float_kind float_kind;  // tk_float, tk_imaginary, tk_complex
    struct {                  // tk_pointer
      a_type *pointed_to;
      bool is_reference : 1;         // of either sort
      bool is_rvalue_reference : 1;  // then is_reference too
      std::uint8_t lhsref_kind;      // not 0: an lhs reference
    };
    struct {  // tk_routine
      a_type *return_type;
      a_routine_type_supplement *routine_supplement;
    };
    struct {  // tk_array
      a_type *element_type;
      union {
        a_targ_size_t number_of_elements;
        a_constant *bound_constant;  // bound_is_constant
        an_expr_node *bound_expr;    // bound_is_expr
      };
      an_expr_node *vla_dimension_expr;
      bool bound_is_constant : 1;  // depends on templates
      bool bound_is_expr : 1;
      bool bound_is_unknown : 1;  // not known when parsed
      bool is_vla : 1;
      bool has_pending_local_bound_ref : 1;
      bool has_pending_local_dimension_ref : 1;
      bool has_vla_dimension : 1;
      bool zero_bound : 1;
      bool is_star_bound : 1;         // [*] in a prototype
      bool is_static_bound : 1;       // [static n] of a parameter
      std::uint8_t param_qualifiers;  // [const n] of a parameter
    };
    struct {  // tk_class, tk_struct, tk_union
      a_field *fields;
      a_class_type_supplement *class_supplement;
      a_class_flags class_flags;
      bool is_vector_struct : 1;
    };
    struct {  // tk_typeref
      a_type *referenced_type;
      a_typeref_supplement *typeref_supplement;
      a_type_qualifier_set qualifiers;
    };
    struct {  // tk_ptr_to_member
      a_type *member_class;
      a_type *member_type;
    };
    struct {  // tk_template_param
      a_template_param_type_supplement *template_param_supplement;
      std::uint8_t template_param_kind;  // 0 ordinary, 2 unknown
    };
  };
  std::uint64_t precision;  // bits of value of an integer type
};

struct a_based_type_list_member {
  a_based_type_list_member *next;
  a_type *type;
  a_based_type_relation relation;
  bool is_fixup_listed;
};

struct a_param_type {
  a_param_type *next;
  a_type *type;
  a_type *declared_type;  // before adjustment; for array parameters
  const char *name;       // null: none written
  std::uint8_t cctor_param_qualifiers;
  std::uint8_t position;  // from 1; stops at 255
  bool passed_by_value_class : 1;
  bool has_default_arg : 1;
  bool is_pack_expansion : 1;
  bool default_arg_deferred : 1;
  bool default_arg_unparsed : 1;
  bool default_arg_is_dependent : 1;
  bool type_is_error : 1;
  bool declared_register : 1;
  bool is_pack_element : 1;
  bool is_ellipsis_marker : 1;
  bool is_transparent_union : 1;
  bool is_const_range : 1;
  an_expr_node *default_arg_expr;
  an_object_lifetime *default_arg_lifetime;
  an_attribute *attributes;
  void *param_template_info;
  a_source_position position_in_source;  // of the declaration, for messages
};

struct a_routine_type_supplement {
  a_param_type *param_types;
  a_type *special_this_class;
  bool has_ellipsis : 1;
  bool prototyped : 1;
  bool returns_via_hidden_pointer : 1;
  bool is_noreturn : 1;
  bool is_pure : 1;
  bool is_const_function : 1;  // the attribute const
  bool is_impure : 1;
  bool returns_by_cctor : 1;
  bool has_trailing_return : 1;
  bool deduced_return_type : 1;
  bool param_types_adjusted : 1;
  bool old_style_definition : 1;  // K&R parameter list
  bool warn_unused_result : 1;
  a_name_linkage_kind name_linkage;
  std::uint8_t this_qualifiers;      // tq_ bits
  std::uint8_t ref_qualifier;        // a_ref_qualifier
  std::uint16_t calling_convention;  // calling_convention_unset: none written
  std::uint32_t decl_modifiers;
  an_exception_specification *exception_spec;
  a_type *this_class;  // null: no member function
  a_scope *prototype_scope;
  a_routine *owning_routine;
};

struct an_exception_specification {
  bool is_noexcept_form : 1;
  bool is_dependent : 1;
  bool is_deferred : 1;               // in a class; its tokens are read later
  bool throws_anything : 1;           // throw(...)
  bool noexcept_arg_is_constant : 1;  // the union holds noexcept_arg
  union {
    an_exception_specification_type *first_type;
    a_constant *noexcept_arg;
  };
};
struct an_exception_specification_type {
  an_exception_specification_type *next;
  a_type *type;
  bool is_pack_expansion;
};

struct an_enum_supplement {
  a_type *underlying_type;
  a_constant *first_enumerator;  // in order of declaration, linked through next_in_list_in_list
  a_constant *last_enumerator;
  a_source_position decl_position;
  a_template *assoc_template;
  bool definition_seen : 1;
  bool underlying_type_is_fixed : 1;
  bool is_being_defined : 1;
};

struct a_typeref_supplement {
  an_expr_node *typeof_expr;  // operand of typeof or decltype
  a_type *typeof_type;
  an_attribute *attributes;
  a_template_arg *template_args;
  a_template *assoc_template;
  a_type *original_type;        // in front of what an attribute changed
  std::int32_t bit_field_form;  // -1: none
  a_source_range range;
  a_type *chain_end;          // what a long chain of typerefs ends in; null: not yet known
  unsigned chain_qualifiers;  // of this typeref and those behind it, with chain_end
};

enum an_auto_kind : std::uint8_t { auto_none, auto_plain, auto_decltype };
inline constexpr std::uint32_t auto_placeholder_level = 0xFFFFFFFF;
struct a_template_param_coordinate {
  std::uint32_t level;  // auto_placeholder_level: the auto placeholder
  std::uint32_t position;
};
struct a_template_param_type_supplement {
  a_template_param_coordinate coordinate;
  an_auto_kind kind;
  bool is_pack : 1;
  bool is_generic_param : 1;
  bool is_template_template : 1;
  a_type *proxy_class;  // stands for the parameter where a class is required
  a_type *deduced_type;
  a_template *assoc_template;
  a_template_arg *template_args;
};

struct a_class_type_supplement {
  a_base_class *base_classes;  // every direct and indirect one
  a_base_class *virtual_bases_first;
  a_base_class *primary_base;
  a_scope *member_scope;
  std::int32_t scope_number;
  std::uint32_t class_def_number;  // starts at 1
  std::int64_t vtbl_index;         // starts at -3
  a_targ_size_t size_without_virtual_bases;
  a_targ_alignment alignment_without_virtual_bases;
  a_targ_size_t vptr_offset;
  a_targ_size_t max_empty_base_offset;
  a_class_list_entry *friend_classes;
  a_routine_list_entry *friend_routines;
  an_overriding_virtual_function *overriding_virtuals;
  a_vcall_offset_entry *vcall_offsets;
  a_routine *destructor;
  a_routine *assoc_operator_new;
  a_routine *assoc_operator_delete;
  a_routine_list_entry *inline_members;
  a_template *assoc_template;
  a_template_arg *template_args;
  a_lambda *lambda;  // of a closure class
  a_variable *vtbl_variable;
  a_variable *typeinfo_variable;
  a_routine *key_function;
  a_type *subobject_type;  // the class as a base subobject, made by lowering
  a_variable *construction_vtbls;
  void *routine_fixups;            // front end: member bodies that wait for the end of the class
  void *field_initializer_fixups;  // front end
  std::uint32_t class_flags_2;
  std::uint32_t pragma_pack_alignment;  // 0: none was in force
  a_source_position definition_position;
};

struct a_base_class {
  a_base_class *next;
  a_base_class *next_virtual;
  a_type *derived_class;
  a_type *base_type;
  a_targ_size_t offset;
  bool is_direct : 1;
  bool is_virtual : 1;
  bool is_ambiguous : 1;
  bool offset_is_set : 1;
  bool shares_virtual_pointer : 1;
  bool is_nonvirtual_primary : 1;
  bool is_pack_expansion : 1;
  std::uint8_t access;  // an_access_specifier
  a_base_class_derivation *derivation;
  a_variable *vtbl_variable;
  a_source_position position;
  an_attribute *attributes;
};
struct a_base_class_derivation {
  a_base_class_derivation *next;
  a_derivation_step *steps;
  std::uint8_t access;
  bool is_ambiguous : 1;
  bool preferred_path : 1;
};
struct a_derivation_step {
  a_derivation_step *next;
  a_base_class *base;
};
struct a_vcall_offset_entry {
  a_vcall_offset_entry *next;
  a_routine *routine;
  std::int64_t offset;
};
struct an_overriding_virtual_function {
  an_overriding_virtual_function *next;
  a_routine *overridden_function;
  a_routine *overriding_function;
  a_base_class *base_class;         // where the overridden one stands
  a_base_class *return_adjustment;  // null: the returned pointer stays as it is
  bool needs_thunk;
};
struct a_class_list_entry {
  a_class_list_entry *next;
  a_type *type;
  a_source_position position;
};
struct a_routine_list_entry {
  a_routine_list_entry *next;
  a_routine *routine;
  a_source_position position;
};

#endif
