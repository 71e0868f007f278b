// The dialect stage: what follows from the language, the standard, the emulated compilers and
// strict mode for every switch that no option gave.
//
// The steps run in a fixed order, because later ones read what earlier ones set: the language and
// the modes that it excludes, the switches of C or of C++, strict mode, consistency, GNU modes, and
// last what is fixed for this tool.
#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/switches.h"
#include "options/cmd_line_internal.h"
#include "semantics/target.h"
#include "source/macro.h"
#include "source/pp_output.h"
#include "target/arm_util.h"

namespace {

// Gives a switch a value unless its option was given.
void unless_given(an_option_id id, bool *variable, bool value) {
  if (!given(id)) *variable = value;
}

bool gnu_options_given() {
  return given(opt_gnu_version) || given(opt_gcc) || given(opt_gpp) || given(opt_clang) ||
         given(opt_clang_version);
}
bool cfront_options_given() {
  return given(opt_cfront_2_1) || given(opt_cfront_3_0);
}

// ---- The language and the modes that it excludes -----------------------------------------------

void choose_gnu_mode_by_default() {
  if (emulate_unsafe_gnu_abi_bugs) emulate_gnu_abi_bugs = true;
  if (gnu_mode && C_dialect == dialect_standard_c) gcc_mode = true;
  if (gnu_mode && in_cplusplus()) gpp_mode = true;
  if (given(opt_gcc) || given(opt_gpp) || in_pcc_mode()) return;
  gnu_mode = true;
  (in_cplusplus() ? gpp_mode : gcc_mode) = true;
}

void drop_modes_of_other_languages() {
  if (in_pcc_mode() || std_version >= 199901) {
    if (given(opt_svr4) && SVR4_C_mode)
      command_line_error(in_cplusplus() ? ec_cl_incompatible_language_modes
                                        : ec_cl_SVR4_C_option_only_in_ansi_C);
    SVR4_C_mode = false;
  }
  if (C_dialect != dialect_standard_c && gcc_mode) {
    if (gnu_options_given()) command_line_error(ec_cl_incompatible_language_modes);
    gcc_mode = false;
    if (!gpp_mode) gnu_mode = false;
  }
  if (!in_cplusplus() && in_any_cfront_mode()) {
    if (cfront_options_given()) command_line_error(ec_cl_incompatible_language_modes);
    cfront_2_1_mode = cfront_3_0_mode = false;
  }
  if (!in_cplusplus() && gpp_mode) {
    if (given(opt_gpp)) command_line_error(ec_cl_incompatible_language_modes);
    gpp_mode = false;
  }
  if (!in_cplusplus() &&
      (given(opt_cpp11) || given(opt_cpp14) || given(opt_cpp17) || given(opt_cpp03)))
    command_line_error(ec_cl_incompatible_language_modes);
}

void drop_modes_in_strict_mode() {
  if (!strict_ansi_mode) return;
  if (in_pcc_mode()) command_line_error(ec_cl_strict_mode_incompatible_with_pcc);
  if (cfront_options_given() && in_any_cfront_mode())
    command_line_error(ec_cl_strict_mode_incompatible_with_cfront);
  cfront_2_1_mode = cfront_3_0_mode = false;
  if (given(opt_svr4) && SVR4_C_mode) command_line_error(ec_cl_strict_mode_incompatible_with_SVR4);
  SVR4_C_mode = false;
  if (gnu_options_given()) command_line_error(ec_cl_incompatible_language_modes);
  gcc_mode = gpp_mode = gnu_mode = false;
}

// ---- C -----------------------------------------------------------------------------------------

struct a_cplusplus_option {
  an_option_id id;
  an_error_code code;
};
constexpr a_cplusplus_option cplusplus_options[] = {
    {opt_anachronisms, ec_cl_anachronism_option_only_in_cplusplus},
    {opt_suppress_vtbl, ec_cl_vtbl_option_only_in_cplusplus},
    {opt_instantiate, ec_cl_instantiation_option_only_in_cplusplus},
    {opt_auto_instantiation, ec_cl_auto_instantiation_option_only_in_cplusplus},
    {opt_exceptions, ec_cl_exceptions_option_only_in_cplusplus},
    {opt_array_new_and_delete, ec_cl_array_new_and_delete_option_only_in_cplusplus},
    {opt_explicit, ec_cl_explicit_option_only_in_cplusplus},
    {opt_namespaces, ec_cl_namespaces_option_only_in_cplusplus},
    {opt_wchar_t_keyword, ec_cl_wchar_t_option_only_in_cplusplus},
    {opt_bool, ec_cl_bool_option_only_in_cplusplus},
    {opt_special_subscript_cost, ec_cl_special_subscript_cost_option_only_in_cplusplus},
    {opt_typename, ec_cl_typename_option_only_in_cplusplus},
    {opt_implicit_typename, ec_cl_implicit_typename_option_only_in_cplusplus},
    {opt_old_for_init, ec_cl_old_for_init_option_only_in_cplusplus},
    {opt_for_init_diff_warning, ec_cl_for_init_diff_warning_option_only_in_cplusplus},
    {opt_guiding_decls, ec_cl_guiding_decls_option_only_in_cplusplus},
    {opt_old_specializations, ec_cl_old_specializations_option_only_in_cplusplus},
    {opt_implicit_extern_c_type_conversion, ec_cl_impl_extern_c_conv_option_only_in_cplusplus},
    {opt_extern_inline, ec_cl_extern_inline_option_only_in_cplusplus},
    {opt_embedded_cpp, ec_cl_embedded_cplusplus_option_only_in_cplusplus},
    {opt_enum_overloading, ec_cl_enum_overloading_option_only_in_cplusplus},
    {opt_nonstd_qualifier_deduction,
     ec_cl_nonstandard_qualifier_deduction_option_only_in_cplusplus},
    {opt_nonstd_using_decl, ec_cl_nonstd_using_decl_option_only_in_cplusplus},
    {opt_class_name_injection, ec_cl_class_name_injection_option_only_in_cplusplus},
    {opt_arg_dep_lookup, ec_cl_arg_dependent_lookup_option_only_in_cplusplus},
    {opt_friend_injection, ec_cl_friend_injection_option_only_in_cplusplus},
    {opt_dep_name, ec_cl_dep_name_option_only_in_cplusplus},
    {opt_parse_templates, ec_cl_parse_nonclass_templates_option_only_in_cplusplus},
    {opt_ignore_std, ec_cl_ignore_std_option_only_in_cplusplus},
    {opt_late_tiebreaker, ec_cl_late_tiebreaker_option_only_in_cplusplus},
    {opt_pending_instantiations, ec_cl_pending_instantiations_option_only_in_cplusplus},
    {opt_lambdas, ec_cl_lambdas_option_only_in_cplusplus},
    {opt_rvalue_refs, ec_cl_rvalue_references_option_only_in_cplusplus},
    {opt_rvalue_ctor_is_copy_ctor, ec_cl_rvalue_ctor_is_copy_ctor_option_only_in_cplusplus},
    {opt_gen_move_operations, ec_cl_gen_move_operations_option_only_in_cplusplus},
    {opt_auto_type, ec_cl_auto_type_option_only_in_cplusplus},
    {opt_auto_storage, ec_cl_auto_storage_option_only_in_cplusplus},
    {opt_nullptr, ec_cl_nullptr_option_only_in_cplusplus},
    {opt_variadic_templates, ec_cl_variadic_templates_only_in_cplusplus},
    {opt_max_depth_constexpr_call, ec_cl_max_constexpr_option_only_in_cplusplus},
    {opt_max_cost_constexpr_call, ec_cl_max_constexpr_option_only_in_cplusplus},
    {opt_unrestricted_unions, ec_cl_unrestricted_unions_option_only_in_cplusplus},
};

// The switches of the C++11 group that an option can give, and the others.
struct a_group_switch {
  an_option_id id;
  bool *variable;
};
const a_group_switch cpp11_switches_with_option[] = {
    {opt_exceptions, &exceptions_enabled},
    {opt_variadic_macros, &variadic_macros_allowed},
    {opt_auto_type, &auto_type_specifier_enabled},
    {opt_dep_name, &do_dependent_name_processing},
    {opt_parse_templates, &nonclass_prototype_instantiations},
    {opt_lambdas, &lambdas_enabled},
    {opt_rvalue_refs, &rvalue_references_enabled},
    {opt_unrestricted_unions, &unrestricted_unions_enabled},
    {opt_variadic_templates, &variadic_templates_enabled},
    {opt_nullptr, &nullptr_enabled},
    {opt_cpp11_sfinae, &cpp11_sfinae_enabled},
    {opt_uliterals, &uliterals_enabled},
    {opt_user_defined_literals, &user_defined_literals_enabled},
};
bool *const cpp11_switches[] = {
    &right_shift_can_be_angle_brackets,
    &extended_friends_enabled,
    &mixed_string_concat_enabled,
    &long_long_is_standard,
    &long_long_promotion_allowed,
    &pragma_operator_allowed,
    &static_assert_enabled,
    &extern_template_allowed,
    &standard_form_of_extern_template,
    &decltype_enabled,
    &enable_decltype_in_base_specifier_and_mem_initializer,
    &explicit_enum_base_enabled,
    &enum_qualifiers_enabled,
    &opaque_enum_decls_enabled,
    &local_types_as_template_args_enabled,
    &decls_using_types_without_linkage_allowed,
    &defaulted_special_members_enabled,
    &deleted_functions_enabled,
    &trailing_return_types_enabled,
    &this_in_trailing_return_types_enabled,
    &list_init_enabled,
    &field_initializers_enabled,
    &std_attributes_enabled,
    &alignas_enabled,
    &alignof_enabled,
    &alias_declarations_enabled,
    &inline_namespaces_enabled,
    &explicit_conversion_functions_enabled,
    &range_based_for_enabled,
    &noexcept_enabled,
    &delegating_constructors_enabled,
    &inheriting_constructors_enabled,
    &constexpr_enabled,
    &raw_string_literals_enabled,
    &std_thread_local_storage_specifier_enabled,
    &std_override_modifiers_enabled,
    &constexpr_implies_const,
    &false_literal_is_not_null_pointer_constant,
    &function_template_default_args_allowed,
};

void clear_cplusplus_features_in_c() {
  exceptions_enabled = rtti_enabled = extern_c_can_throw = false;
  array_new_and_delete_enabled = explicit_keyword_enabled = namespaces_enabled = false;
  wchar_t_is_keyword = bool_is_keyword = record_form_of_name_reference = false;
  enum_types_can_be_larger_than_int = false;
  typename_enabled = implicit_typename_enabled = force_implicit_typename = false;
  operator_overloading_on_enums_enabled = special_subscript_cost = false;
  class_name_injection_enabled = arg_dependent_lookup_enabled = false;
  friend_class_injection_enabled = friend_function_injection_enabled = false;
  do_dependent_name_processing = nonclass_prototype_instantiations = false;
  implicit_using_std = ignore_std_namespace = export_template_allowed = false;
  allow_anachronisms = allow_nonconst_ref_anachronism = false;
  extern_inline_allowed = string_literals_are_const = false;
}

// In C the declarations of the C++11 group are off. Those that C11 shares are set again by the rows
// of that standard, which is why the group is cleared first.
void clear_cpp11_switches_in_c() {
  for (const a_group_switch &row : cpp11_switches_with_option)
    if (row.variable != &variadic_macros_allowed && row.variable != &uliterals_enabled)
      *row.variable = false;
  for (bool *variable : cpp11_switches) {
    bool shared = variable == &mixed_string_concat_enabled || variable == &long_long_is_standard ||
                  variable == &long_long_promotion_allowed ||
                  variable == &pragma_operator_allowed || variable == &static_assert_enabled ||
                  variable == &std_attributes_enabled || variable == &alignas_enabled ||
                  variable == &alignof_enabled ||
                  variable == &std_thread_local_storage_specifier_enabled;
    if (!shared) *variable = false;
  }
}

void set_c99_switches() {
  unless_given(opt_vla, &vla_enabled, true);
  unless_given(opt_restrict, &restrict_keyword_enabled, true);
  unless_given(opt_designators, &designators_allowed, true);
  unless_given(opt_compound_literals, &compound_literals_allowed, true);
  unless_given(opt_variadic_macros, &variadic_macros_allowed, true);
  unless_given(opt_alternative_tokens, &alternative_tokens_allowed, true);
  pragma_operator_allowed = end_of_line_comments_allowed = flexible_array_members_allowed = true;
  universal_character_names_allowed = va_copy_macro_allowed = long_long_is_standard = true;
  long_long_promotion_allowed = c99_complex_enabled = hex_floating_point_constants_allowed = true;
  allow_nonconstant_auto_aggr_init_in_c_mode = mixed_string_concat_enabled = true;
  std_c99_inlining = c99_bool_is_keyword = allow_decl_after_stmt = true;
  gnu_c89_inlining = false;
}

void set_c11_switches() {
  if (!clang_mode) static_assert_enabled = true;
  allow_c11_anonymous_unions = alignas_enabled = alignof_enabled = true;
  unless_given(opt_thread_local_storage, &std_thread_local_storage_specifier_enabled, true);
  unless_given(opt_uliterals, &uliterals_enabled, true);
  c11_atomic_enabled = true;
}

void settle_c() {
  if (std_version == 0)
    std_version =
        gcc_mode && gnu_version >= 50000 && !given(opt_c89) && !given(opt_c99) ? 201112 : 199000;
  for (const a_cplusplus_option &row : cplusplus_options)
    if (given(row.id)) command_line_error(row.code);
  clear_cplusplus_features_in_c();
  enum_types_can_be_smaller_than_int =
      targ_enum_types_can_be_smaller_than_int && !enum_is_int && !in_pcc_mode() && !SVR4_C_mode;
  if (in_pcc_mode())
    alternative_tokens_allowed = bit_field_promotion_applies_to_some_operations = false;
  flexible_array_members_allowed = true;
  if (std_version <= 199900) end_of_line_comments_allowed = !strict_ansi_mode && !in_pcc_mode();
  allow_decl_after_stmt = !strict_ansi_mode;
  if (SVR4_C_mode) address_of_ellipsis_allowed = allow_ellipsis_only_param_in_C_mode = true;
  clear_cpp11_switches_in_c();
  if (std_version >= 199901) set_c99_switches();
  if (std_version >= 201112) set_c11_switches();
  auto_storage_class_specifier_enabled = pragma_operator_allowed = true;
  unless_given(opt_func_prototype_tags, &func_prototype_tags_enabled, true);
  if (given(opt_type_traits_helpers) && type_traits_helpers_enabled)
    command_line_error(ec_cl_type_traits_helpers_option_only_in_cplusplus);
  type_traits_helpers_enabled = false;
}

// ---- C++ ---------------------------------------------------------------------------------------

void set_cpp11_group(bool v) {
  for (const a_group_switch &row : cpp11_switches_with_option)
    unless_given(row.id, row.variable, v);
  for (bool *variable : cpp11_switches)
    *variable = v;
  unless_given(opt_auto_storage, &auto_storage_class_specifier_enabled, !v);
  export_template_allowed = !v;
  ref_qualifiers_enabled = rvalue_references_enabled;
  if (!rvalue_references_enabled) {
    generate_move_operations = rvalue_ctor_is_copy_ctor = false;
  } else if (!(given(opt_rvalue_ctor_is_copy_ctor) && rvalue_ctor_is_copy_ctor)) {
    unless_given(opt_gen_move_operations, &generate_move_operations, true);
    rvalue_ctor_is_copy_ctor = false;
  }
  if (v) {
    unless_given(opt_friend_injection, &friend_class_injection_enabled, false);
    unless_given(opt_friend_injection, &friend_function_injection_enabled, false);
    if (exceptions_enabled) unless_given(opt_implicit_noexcept, &implicit_noexcept_enabled, true);
  }
  register_is_deprecated = true;
  unless_given(opt_deprecated_string_conv, &deprecated_string_literal_conv_allowed, true);
}

void set_cpp14_switches(bool v) {
  if (auto_type_specifier_enabled) decltype_auto_enabled = true;
  deduced_return_types_enabled = generic_lambdas_enabled = true;
  generic_lambdas_can_implicitly_capture = init_capture_enabled = true;
  if (v) aggregate_classes_can_have_field_initializers = true;
  binary_literals_allowed = true;
  unless_given(opt_digit_separators, &digit_separators_enabled, true);
  if (rvalue_references_enabled && !clang_mode && !gpp_mode)
    selection_from_prvalue_is_xvalue = true;
  relaxed_constexpr_enabled = sized_deallocation_enabled = variable_templates_enabled = true;
  constexpr_implies_const = gpp_mode && gnu_version < 50000;
  define_portable_feature_test_macros = true;
}

void set_cpp17_switches(bool v) {
  namespace_attributes_enabled = nested_namespace_definitions_enabled = true;
  enumerator_attributes_enabled = terse_static_assert_enabled = true;
  unless_given(opt_utf8_char_literals, &utf8_char_literals_enabled, true);
  if (v) relaxed_range_based_for_enabled = true;
  register_is_disallowed = true;
  operator_bool_increment_allowed = false;
  using_attribute_namespaces_enabled = nodiscard_attribute_enabled = true;
  hex_floating_point_constants_allowed = true;
}

void settle_cfront() {
  allow_nonconst_call_anachronism = cfront_2_1_mode;
  unless_given(opt_special_subscript_cost, &special_subscript_cost, cfront_3_0_mode);
  unless_given(opt_anachronisms, &allow_anachronisms, true);
  unless_given(opt_nonconst_ref_anachronism, &allow_nonconst_ref_anachronism, true);
  unless_given(opt_long_lifetime_temps, &long_lifetime_temps, true);
  unless_given(opt_bool, &bool_is_keyword, false);
  unless_given(opt_explicit, &explicit_keyword_enabled, false);
  unless_given(opt_typename, &typename_enabled, false);
  unless_given(opt_implicit_typename, &implicit_typename_enabled, true);
  unless_given(opt_old_for_init, &use_nonstandard_for_init_scope, true);
  unless_given(opt_base_assign_op_is_default, &allow_copy_assignment_op_with_base_class_param,
               true);
  unless_given(opt_guiding_decls, &guiding_decls_allowed, false);
  unless_given(opt_old_specializations, &old_specializations_allowed, true);
  unless_given(opt_implicit_extern_c_type_conversion,
               &impl_conv_between_c_and_cpp_function_ptrs_allowed, true);
  unless_given(opt_extern_inline, &extern_inline_allowed, false);
  unless_given(opt_enum_overloading, &operator_overloading_on_enums_enabled, false);
  unless_given(opt_const_string_literals, &string_literals_are_const, false);
  unless_given(opt_deprecated_string_conv, &deprecated_string_literal_conv_allowed, true);
  unless_given(opt_late_tiebreaker, &do_late_ovl_res_tiebreaker, true);
  unless_given(opt_friend_injection, &friend_class_injection_enabled, true);
  unless_given(opt_friend_injection, &friend_function_injection_enabled, true);
  unless_given(opt_dep_name, &do_dependent_name_processing, false);
  export_template_allowed = false;
  unless_given(opt_parse_templates, &nonclass_prototype_instantiations, false);
  unless_given(opt_nonstd_default_arg_deduction, &nonstandard_default_arg_deduction, true);
  unless_given(opt_implicit_noexcept, &implicit_noexcept_enabled, false);
  no_access_check_on_friend_declarator_ids = true;
}

void refuse_c_options_in_cplusplus() {
  if (given(opt_designators) && designators_allowed)
    command_line_error(ec_cl_designators_option_only_in_C);
  if (given(opt_extended_designators) && extended_designators_allowed)
    command_line_error(ec_cl_extended_designators_option_only_in_C);
  if (given(opt_compound_literals) && compound_literals_allowed)
    command_line_error(ec_cl_compound_literals_option_only_in_C);
  designators_allowed = extended_designators_allowed = compound_literals_allowed = false;
  if (given(opt_gcc89_inlining)) command_line_error(ec_cl_gnu_c89_inlining_option_only_in_C);
  if (given(opt_func_prototype_tags))
    command_line_error(ec_cl_func_prototype_tags_option_only_in_C);
  func_prototype_tags_enabled = false;
}

void settle_cplusplus() {
  if (in_any_cfront_mode()) settle_cfront();
  // The old dialects need temporaries that C++11 cannot have.
  if (std_version == 0) std_version = in_any_cfront_mode() ? 199711 : 201402;
  bool standard_given =
      given(opt_cpp11) || given(opt_cpp14) || given(opt_cpp17) || given(opt_cpp03);
  if (gpp_mode && !clang_mode && gnu_version >= 60000 && !standard_given) std_version = 201402;
  SVR4_C_mode = false;
  enum_types_can_be_larger_than_int = true;
  enum_types_can_be_smaller_than_int = targ_enum_types_can_be_smaller_than_int && !enum_is_int;
  unless_given(opt_long_preserving_rules, &long_preserving_rules, false);
  unless_given(opt_vla, &vla_enabled, true);
  vla_deallocations_in_il = false;
  refuse_c_options_in_cplusplus();
  end_of_line_comments_allowed = universal_character_names_allowed = true;
  elab_type_lookup_finds_typedefs = true;
  if (!given(opt_variadic_templates) && !gpp_mode) variadic_templates_enabled = false;
  bool v = std_version >= 201103;
  if (v) {
    set_cpp11_group(true);
  } else if (given(opt_cpp11)) {
    set_cpp11_group(false);
  } else if (!in_any_cfront_mode() && !strict_ansi_mode && !gpp_mode) {
    right_shift_can_be_angle_brackets = false;
    mixed_string_concat_enabled = extended_friends_enabled = variadic_macros_allowed = true;
    pragma_operator_allowed = extern_template_allowed = standard_form_of_extern_template = true;
  }
  if (std_version >= 201402) set_cpp14_switches(v);
  if (std_version >= 201701) set_cpp17_switches(v);
  lambda_default_args_enabled = lambdas_enabled;
  pack_all_structs = false;
  pragma_operator_allowed = true;
}

// ---- Strict mode -------------------------------------------------------------------------------

void settle_strict_cplusplus() {
  const a_group_switch on[] = {
      {opt_alternative_tokens, &alternative_tokens_allowed},
      {opt_wchar_t_keyword, &wchar_t_is_keyword},
      {opt_bool, &bool_is_keyword},
      {opt_array_new_and_delete, &array_new_and_delete_enabled},
      {opt_explicit, &explicit_keyword_enabled},
      {opt_namespaces, &namespaces_enabled},
      {opt_typename, &typename_enabled},
      {opt_extern_inline, &extern_inline_allowed},
      {opt_enum_overloading, &operator_overloading_on_enums_enabled},
      {opt_const_string_literals, &string_literals_are_const},
      {opt_class_name_injection, &class_name_injection_enabled},
      {opt_arg_dep_lookup, &arg_dependent_lookup_enabled},
      {opt_dep_name, &do_dependent_name_processing},
      {opt_parse_templates, &nonclass_prototype_instantiations},
  };
  const a_group_switch off[] = {
      {opt_long_lifetime_temps, &long_lifetime_temps},
      {opt_implicit_typename, &implicit_typename_enabled},
      {opt_special_subscript_cost, &special_subscript_cost},
      {opt_old_for_init, &use_nonstandard_for_init_scope},
      {opt_for_init_diff_warning, &warning_on_for_init_difference},
      {opt_guiding_decls, &guiding_decls_allowed},
      {opt_old_specializations, &old_specializations_allowed},
      {opt_implicit_extern_c_type_conversion, &impl_conv_between_c_and_cpp_function_ptrs_allowed},
      {opt_friend_injection, &friend_class_injection_enabled},
      {opt_friend_injection, &friend_function_injection_enabled},
      {opt_nonstd_using_decl, &nonstandard_using_decl_allowed},
      {opt_nonstd_qualifier_deduction, &nonstandard_qualifier_deduction},
      {opt_nonstd_default_arg_deduction, &nonstandard_default_arg_deduction},
      {opt_nonstd_instantiation_lookup, &nonstandard_instantiation_lookup_enabled},
      {opt_late_tiebreaker, &do_late_ovl_res_tiebreaker},
      {opt_base_assign_op_is_default, &allow_copy_assignment_op_with_base_class_param},
      {opt_exceptions, &exceptions_enabled},
  };
  for (const a_group_switch &row : on)
    unless_given(row.id, row.variable, true);
  for (const a_group_switch &row : off)
    unless_given(row.id, row.variable, false);
  export_template_allowed = false;
  unless_given(opt_deprecated_string_conv, &deprecated_string_literal_conv_allowed,
               std_version < 201103);
  if (given(opt_ignore_std) && ignore_std_namespace)
    command_line_error(ec_cl_strict_mode_incompatible_with_ignore_std);
  ignore_std_namespace = false;
  inexact_ptr_to_member_deduction_enabled = false;
}

void settle_strict_mode() {
  if (!strict_ansi_mode) return;
  if (given(opt_anachronisms) && allow_anachronisms)
    command_line_error(ec_cl_strict_mode_incompatible_with_anachronisms);
  allow_anachronisms = allow_nonconst_ref_anachronism = allow_nonconst_call_anachronism = false;
  if (given(opt_long_preserving_rules) && long_preserving_rules)
    command_line_error(ec_cl_strict_mode_incompatible_with_long_preserving);
  long_preserving_rules = false;
  unless_given(opt_trigraphs, &trigraphs_allowed, true);
  unless_given(opt_extended_designators, &extended_designators_allowed, false);
  unless_given(opt_extended_variadic_macros, &extended_variadic_macros_allowed, false);
  unless_given(opt_dollar, &allow_dollar_in_id_chars, false);
  bool has_uliterals = in_cplusplus() ? std_version >= 201103 : std_version >= 201112;
  if (!has_uliterals) unless_given(opt_uliterals, &uliterals_enabled, false);
  unless_given(opt_check_concatenations, &check_concatenations, true);
  if (!in_cplusplus() && std_version < 199901) {
    flexible_array_members_allowed = false;
    unless_given(opt_variadic_macros, &variadic_macros_allowed, false);
    unless_given(opt_restrict, &restrict_keyword_enabled, false);
  }
  if (in_cplusplus()) settle_strict_cplusplus();
  unless_given(opt_nonstd_anonymous_unions, &allow_nonstandard_anonymous_unions, false);
}

// ---- Consistency -------------------------------------------------------------------------------

void settle_auto() {
  if (given(opt_auto_type) && !auto_type_specifier_enabled && given(opt_auto_storage) &&
      !auto_storage_class_specifier_enabled)
    command_line_error(ec_cl_auto_cannot_be_disabled);
  if (!auto_type_specifier_enabled && !auto_storage_class_specifier_enabled)
    (given(opt_auto_storage) ? auto_type_specifier_enabled : auto_storage_class_specifier_enabled) =
        true;
  if (auto_type_specifier_enabled)
    unless_given(opt_auto_storage, &auto_storage_class_specifier_enabled, false);
}

void make_consistent() {
  if (extended_designators_allowed) designators_allowed = true;
  if (extended_variadic_macros_allowed) variadic_macros_allowed = true;
  if (!do_dependent_name_processing || !distinct_template_signatures || trans_unit_test_mode)
    export_template_allowed = false;
  if (do_dependent_name_processing) {
    if (!nonclass_prototype_instantiations) {
      if (given(opt_dep_name) && given(opt_parse_templates))
        command_line_error(ec_cl_dep_name_requires_parse_nonclass_templates);
      if (given(opt_dep_name))
        nonclass_prototype_instantiations = true;
      else
        do_dependent_name_processing = false;
    }
    if (do_dependent_name_processing)
      unless_given(opt_arg_dep_lookup, &arg_dependent_lookup_enabled, true);
  }
  if (lambdas_enabled)
    local_types_as_template_args_enabled = decls_using_types_without_linkage_allowed = true;
  if (decltype_enabled || trailing_return_types_enabled || variadic_templates_enabled)
    unless_given(opt_cpp11_sfinae, &cpp11_sfinae_enabled, true);
  if (unrestricted_unions_enabled) deleted_functions_enabled = true;
  if (long_lifetime_temps && (lambdas_enabled || cpp11_sfinae_enabled))
    command_line_error(ec_cl_long_lifetime_temps_incompat_with_newer_features);
  settle_auto();
}

// ---- GNU modes ---------------------------------------------------------------------------------

void settle_gnu_group() {
  if (clang_mode && gnu_version < 40800 && !given(opt_gnu_version)) gnu_version = 40800;
  const a_group_switch on[] = {
      {opt_extended_variadic_macros, &extended_variadic_macros_allowed},
      {opt_variadic_macros, &variadic_macros_allowed},
      {opt_designators, &designators_allowed},
      {opt_extended_designators, &extended_designators_allowed},
      {opt_compound_literals, &compound_literals_allowed},
      {opt_dollar, &allow_dollar_in_id_chars},
      {opt_alternative_tokens, &alternative_tokens_allowed},
      {opt_check_concatenations, &check_concatenations},
      {opt_nonstd_gnu_keywords, &nonstd_gnu_keywords_enabled},
  };
  for (const a_group_switch &row : on)
    unless_given(row.id, row.variable, true);
  unless_given(opt_trigraphs, &trigraphs_allowed, false);
  unless_given(opt_stdc_zero_in_system_headers, &stdc_zero_in_system_headers, false);
  pragma_operator_allowed = gnu_restrict_keyword_enabled = flexible_array_members_allowed = true;
  end_of_line_comments_allowed = long_long_is_standard = true;
  hex_floating_point_constants_allowed = null_chars_allowed_in_source = true;
  allow_nonstandard_anonymous_unions = mixed_string_concat_enabled = gnu_attributes_enabled = true;
  pass_stdarg_references_to_generated_code = va_arg_returns_lvalue = false;
  carriage_return_is_line_terminator = false;
  thread_local_storage_specifier_enabled = true;
  if (gnu_version >= 40300) binary_literals_allowed = true;
  long_long_promotion_allowed =
      in_cplusplus() ? std_version >= 201103 && gnu_version >= 40700 : std_version >= 199901;
  if (gnu_version < 40000) bit_field_promotion_applies_to_some_operations = false;
  if (!given(opt_clang) && !given(opt_clang_version)) clang_mode = false;
  if (clang_mode && clang_version >= 30700) nullability_qualifiers_enabled = true;
}

// The part of GNU C++ that came with its versions before C++11.
void settle_gpp_names(int v) {
  unless_given(opt_exceptions, &exceptions_enabled, false);
  unless_given(opt_extern_inline, &extern_inline_allowed, true);
  unless_given(opt_alternative_tokens, &alternative_tokens_allowed, true);
  unless_given(opt_dep_name, &do_dependent_name_processing, v >= 30400);
  unless_given(opt_parse_templates, &nonclass_prototype_instantiations, v >= 30400);
  if (v >= 30400) dependent_lookup_finds_static_functions = true;
  unless_given(opt_nonstd_default_arg_deduction, &nonstandard_default_arg_deduction, v < 40300);
  unless_given(opt_nonstd_instantiation_lookup, &nonstandard_instantiation_lookup_enabled, false);
  unless_given(opt_friend_injection, &friend_class_injection_enabled, v < 40001);
  unless_given(opt_friend_injection, &friend_function_injection_enabled, v < 40100);
  unless_given(opt_vla, &vla_enabled, true);
  gpp_dependent_name_lookup = gpp_using_directive_lookup = true;
  friend_class_decl_can_find_using_dir = true;
  allow_default_arg_on_template_member_definition = true;
  extern_template_allowed = inline_template_allowed = true;
  parameters_visible_late = v <= 40399 && !lambdas_enabled && !trailing_return_types_enabled;
  gnu_namespace_and_class_in_same_scope = v < 40300;
  pragma_define_type_info_is_required = floating_point_template_parameters_allowed = false;
  equiv_typedefs_are_lookup_equivalent = assume_references_cannot_be_null = false;
  assume_this_cannot_be_null_in_conditional_operators = false;
  unless_given(opt_guiding_decls, &guiding_decls_allowed, false);
  unless_given(opt_const_string_literals, &string_literals_are_const, true);
  unless_given(opt_deprecated_string_conv, &deprecated_string_literal_conv_allowed, true);
  no_access_check_on_friend_declarator_ids = v < 30400;
}

// The part that depends on the standard as well.
void settle_gpp_features(int v) {
  bool cpp11 = std_version >= 201103, cpp14 = std_version >= 201402;
  unless_given(opt_user_defined_literals, &user_defined_literals_enabled, cpp11 && v >= 40700);
  macro_preempts_udl_suffix = !clang_mode && v >= 40800;
  unless_given(opt_type_traits_helpers, &type_traits_helpers_enabled, v >= 40300);
  unless_given(opt_cpp11_sfinae, &cpp11_sfinae_enabled, v >= 30400);
  unless_given(opt_cpp11_sfinae_ignore_access, &cpp11_sfinae_ignore_access, v < 40800);
  if (!cpp11) decltype_enabled = enable_underscore_decltype_only = v >= 40300;
  explicit_conversion_functions_enabled = v >= 40500;
  if (v < 40600) unless_given(opt_rvalue_ctor_is_copy_ctor, &rvalue_ctor_is_copy_ctor, false);
  inline_namespaces_enabled = v >= 40400;
  if (!cpp11) explicit_enum_base_enabled = report_explicit_enum_base_as_nonstandard = v >= 40400;
  if (cpp11)
    unless_given(opt_gen_move_operations, &generate_move_operations,
                 !rvalue_ctor_is_copy_ctor && v >= 40600);
  if (v >= 40400) unless_given(opt_variadic_templates, &variadic_templates_enabled, true);
  constexpr_enabled = cpp11 && v >= 40500;
  gnu_bases_operators_enabled =
      v >= 40700 && variadic_templates_enabled && nonclass_prototype_instantiations;
  if (v >= 30400)
    unless_given(opt_defer_parse_function_templates, &defer_function_prototype_instantiations,
                 variadic_templates_enabled || nonclass_prototype_instantiations);
  unless_given(opt_implicit_noexcept, &implicit_noexcept_enabled,
               noexcept_enabled && exceptions_enabled && v >= 40800);
  if (!cpp11) {
    bool clang_30000 = clang_mode && clang_version >= 30000;
    deleted_functions_enabled = defaulted_special_members_enabled = v >= 40400 || clang_30000;
    unless_given(opt_delegating_constructors, &delegating_constructors_enabled,
                 v >= 40700 && !clang_mode);
    field_initializers_enabled = std_override_modifiers_enabled = v >= 40700 || clang_30000;
    inheriting_constructors_enabled = rvalue_references_enabled && v >= 40800 && !clang_mode;
    std_attributes_enabled = v >= 40800 && !clang_mode;
    extended_friends_enabled = v >= 40700 || clang_mode;
  }
  if (!cpp14) {
    init_capture_enabled = lambdas_enabled;
    deduced_return_types_enabled = warn_on_deduced_return_types =
        v >= 40800 && v <= 40899 && !clang_mode;
  }
  if (!clang_mode) late_template_ovl_res_tiebreaker = v >= 40700;
  if (clang_mode || v >= 60000) enumerator_attributes_enabled = true;
  if (cpp11 && v >= 60000 && !clang_mode) terse_static_assert_enabled = true;
  if (!clang_mode) {
    register_is_deprecated = register_is_disallowed = false;
    operator_bool_increment_allowed = true;
  }
  if (clang_mode && clang_version >= 30000) inline_namespaces_enabled = true;
  if (clang_mode && clang_version >= 30100) c11_atomic_enabled = c11_atomic_classes_disabled = true;
}

void settle_gcc(int v) {
  unless_given(opt_vla, &vla_enabled, true);
  enum_types_can_be_larger_than_int = !enum_is_int;
  allow_nonconstant_auto_aggr_init_in_c_mode = allow_decl_after_stmt = true;
  if (v >= 40300 && std_version >= 199901 && !given(opt_gcc89_inlining)) {
    std_c99_inlining = true;
    gnu_c89_inlining = false;
  } else {
    gnu_c89_inlining = true;
  }
  c99_bool_is_keyword = true;
  if (v >= 40700) alignof_enabled = alignas_enabled = true;
  if (clang_mode ? clang_version >= 30100 : v >= 40900) {
    std_thread_local_storage_specifier_enabled = c11_atomic_enabled = true;
    if (clang_mode) c11_atomic_classes_disabled = true;
  }
}

void settle_gnu_modes() {
  if (gcc_mode || gpp_mode) settle_gnu_group();
  if (gpp_mode) {
    settle_gpp_names(gnu_version);
    settle_gpp_features(gnu_version);
  }
  if (gcc_mode) settle_gcc(gnu_version);
  if (gcc_mode || gpp_mode) return;
  if (given(opt_short_enums)) command_line_error(ec_cl_short_enums_requires_gcc_mode);
  if (given(opt_report_gnu_extensions))
    command_line_error(ec_cl_report_gnu_extensions_requires_gnu_mode);
  if (given(opt_nonstd_gnu_keywords) && nonstd_gnu_keywords_enabled)
    command_line_error(ec_cl_nonstd_gnu_keywords_requires_gnu_mode);
}

// ---- What is fixed for this tool, and what is left ---------------------------------------------

void fix_switches_of_tool() {
  long_long_promotion_allowed = std_version >= (in_cplusplus() ? 201103 : 199901);
  binary_literals_allowed = true;
  constexpr_implies_const = std_c99_inlining = gnu_c89_inlining = false;
  variadic_macros_allowed = long_long_is_standard = std_attributes_enabled = true;
  c11_atomic_enabled = !in_cplusplus() && (std_version == 201112 || !strict_ansi_mode);
}

// Rvalue references and the switches that need them agree.
void settle_rvalue_references() {
  if (generate_move_operations && rvalue_ctor_is_copy_ctor) {
    if (given(opt_gen_move_operations) && given(opt_rvalue_ctor_is_copy_ctor))
      command_line_error(ec_cl_gen_move_operations_and_rvalue_ctor_is_copy_ctor);
    (given(opt_gen_move_operations) ? rvalue_ctor_is_copy_ctor : generate_move_operations) = false;
  }
  if (rvalue_references_enabled) return;
  if (generate_move_operations) {
    if (given(opt_gen_move_operations) && given(opt_rvalue_refs))
      command_line_error(ec_cl_move_operations_require_rvalue_references);
    (given(opt_gen_move_operations) ? rvalue_references_enabled : generate_move_operations) =
        given(opt_gen_move_operations);
  }
  if (rvalue_ctor_is_copy_ctor && !given(opt_rvalue_ctor_is_copy_ctor))
    rvalue_ctor_is_copy_ctor = false;
}

void settle_last_switches() {
  char16_t_and_char32_t_are_keywords = in_cplusplus() && uliterals_enabled;
  if (nonclass_prototype_instantiations)
    unless_given(opt_implicit_typename, &implicit_typename_enabled, false);
  restrict_enabled = true;
  settle_rvalue_references();
  if (relaxed_constexpr_enabled && !bool_is_keyword) {
    if (given(opt_bool)) command_line_error(ec_cl_relaxed_constexpr_requires_bool);
    bool_is_keyword = true;
  }
  if (implicit_noexcept_enabled && !noexcept_enabled) {
    if (given(opt_implicit_noexcept))
      command_line_error(ec_cl_implicit_noexcept_requires_noexcept_support);
    implicit_noexcept_enabled = false;
  }
  if (ignore_std_namespace) va_list_in_std_namespace = false;
  if (instantiation_mode == 3) {
    if (automatic_instantiation_mode && given(opt_auto_instantiation))
      command_line_error(ec_cl_tim_local_conflicts_with_auto_instantiation);
    automatic_instantiation_mode = false;
  }
  enum_type_is_integral = !in_cplusplus() || in_any_cfront_mode();
  anachronism_error_severity = allow_anachronisms ? es_warning : es_error;
  if (allow_anachronisms) allow_nonconst_ref_anachronism = true;
  if (constexpr_enabled && max_cost_constexpr_call == 0) max_cost_constexpr_call = 2000000;
  if (use_nonstandard_for_init_scope) warning_on_for_init_difference = false;
  pcc_preprocessing_mode = in_pcc_mode() || old_style_preprocessing;
  unless_given(opt_no_token_separators_in_pp_output, &no_token_separators_in_pp_output,
               pcc_preprocessing_mode);
  if (building_runtime && !(in_cplusplus() && std_version >= 201402))
    command_line_error(ec_cl_must_specify_cpp14_mode);
  if (exceptions_enabled || (in_cplusplus() && std_version >= 201103))
    assignment_to_this_allowed = false;
}

void settle_include_paths() {
  add_default_include_search_path();
  sys_incl_search_path = incl_search_path;
  if (system_path_boundary_seen) {
    while (sys_incl_search_path != nullptr && !sys_incl_search_path->is_system)
      sys_incl_search_path = sys_incl_search_path->next;
  }
  if (gnu_mode && gnu_version >= 30300) {
    a_directory_name_entry *last_user_dir = nullptr;
    if (system_path_boundary_seen)
      for (a_directory_name_entry *dir = incl_search_path;
           dir != nullptr && dir != sys_incl_search_path; dir = dir->next)
        last_user_dir = dir;
    remove_duplicate_include_dirs(&last_user_dir, true);
  }
  if (primary_source_file_name == nullptr) command_line_error(ec_cl_missing_source_file_name);
  // The head of the path is the directory of the file that includes.
  if (put_dir_of_each_opened_source_file_on_incl_search_path)
    add_to_front_of_include_search_path(f_directory_of(primary_source_file_name, true),
                                        &incl_search_path, &end_incl_search_path);
}

void settle_preprocessing() {
  if (!do_preprocessing_only) return;
  pp_output_file_needed = true;
  if (list_macro_definitions) generate_pp_output = false;
  if (no_preproc_only) {
    do_preprocessing_only = false;
    return;
  }
  suppress_back_end = suppress_il_file_write = suppress_il_lowering = true;
  bool is_listing = list_macro_definitions || list_makefile_dependencies || list_included_files;
  if (error_threshold == es_warning && is_listing) error_threshold = es_discretionary_error;
}

void open_listing_files() {
  auto open = [](const char *name, an_error_code kind) {
    return open_output_file_with_error_handling(name, false, false, ofp_command_line, kind);
  };
  if (raw_listing_file_name != nullptr) f_raw_listing = open(raw_listing_file_name, ect_1788);
  if (xref_file_name != nullptr) f_xref_info = open(xref_file_name, ect_1789);
  if (error_file_name != nullptr) f_error = open(error_file_name, ect_1772);
}

}  // namespace

void settle_dialect() {
  choose_gnu_mode_by_default();
  drop_modes_of_other_languages();
  drop_modes_in_strict_mode();
  if (in_cplusplus())
    settle_cplusplus();
  else
    settle_c();
  settle_strict_mode();
  make_consistent();
  settle_gnu_modes();
  fix_switches_of_tool();
  TRG_check_cmd_options();
  settle_last_switches();
  settle_include_paths();
  settle_preprocessing();
  create_template_deduction_name_references = true;
  open_listing_files();
}
