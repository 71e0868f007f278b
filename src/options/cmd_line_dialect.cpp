// The dialect stage: what follows from the language, the standard, the emulated compilers and
// strict mode for every switch that no option gave.
//
// The steps run in a fixed order, because later ones read what earlier ones set: the language and
// the modes that it excludes, the switches of C or of C++, strict mode, consistency, GNU modes, and
// last what is fixed for this tool. What each of them says of the switches stands in dialect.def.
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
  if (!given(opt_gcc) && !given(opt_gpp)) gnu_mode = true;
  if (gnu_mode) (in_cplusplus() ? gpp_mode : gcc_mode) = true;  // K&R drops it again
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

// ---- The table ---------------------------------------------------------------------------------

bool cpp11_group_is_on;  // for the rows of that group

bool in_c90() {
  return !in_cplusplus() && std_version < 199901;
}
bool in_cpp11() {
  return std_version >= 201103;
}
bool in_cpp14() {
  return std_version >= 201402;
}
bool in_clang(int version) {
  return clang_mode && clang_version >= version;
}
bool copy_by_rvalue_was_asked_for() {
  return given(opt_rvalue_ctor_is_copy_ctor) && rvalue_ctor_is_copy_ctor;
}

enum a_dialect_step {
  dst_c,
  dst_c99,
  dst_c11,
  dst_cfront,
  dst_cplusplus,
  dst_cpp11,
  dst_cpp03,
  dst_cpp14,
  dst_cpp17,
  dst_cplusplus_last,
  dst_strict,
  dst_strict_cplusplus,
  dst_gnu,
  dst_gpp,
  dst_gcc,
  dst_tool
};

struct a_dialect_rule {
  a_dialect_step step;
  bool *variable;
  an_option_id option;  // that keeps the switch as it is when given
  bool (*applies)();
  bool (*value)();
};
const a_dialect_rule dialect_rules[] = {
#define DIALECT_RULE(step, variable, option, condition, value)              \
  {dst_##step, &variable, opt_##option, []() -> bool { return condition; }, \
   []() -> bool { return value; }},
#include "options/dialect.def"
};

void run_rules(a_dialect_step step) {
  for (const a_dialect_rule &rule : dialect_rules)
    if (rule.step == step && (rule.option == opt_none || !given(rule.option)) && rule.applies())
      *rule.variable = rule.value();
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

void settle_c() {
  if (std_version == 0)
    std_version =
        gcc_mode && gnu_version >= 50000 && !given(opt_c89) && !given(opt_c99) ? 201112 : 199000;
  for (const a_cplusplus_option &row : cplusplus_options)
    if (given(row.id)) command_line_error(row.code);
  if (given(opt_type_traits_helpers) && type_traits_helpers_enabled)
    command_line_error(ec_cl_type_traits_helpers_option_only_in_cplusplus);
  run_rules(dst_c);
  if (std_version >= 199901) run_rules(dst_c99);
  if (std_version >= 201112) run_rules(dst_c11);
}

// ---- C++ ---------------------------------------------------------------------------------------

void set_cpp11_group(bool on) {
  cpp11_group_is_on = on;
  run_rules(dst_cpp11);
}

void refuse_c_options_in_cplusplus() {
  if (given(opt_designators) && designators_allowed)
    command_line_error(ec_cl_designators_option_only_in_C);
  if (given(opt_extended_designators) && extended_designators_allowed)
    command_line_error(ec_cl_extended_designators_option_only_in_C);
  if (given(opt_compound_literals) && compound_literals_allowed)
    command_line_error(ec_cl_compound_literals_option_only_in_C);
  if (given(opt_gcc89_inlining)) command_line_error(ec_cl_gnu_c89_inlining_option_only_in_C);
  if (given(opt_func_prototype_tags))
    command_line_error(ec_cl_func_prototype_tags_option_only_in_C);
}

void settle_cplusplus() {
  if (in_any_cfront_mode()) run_rules(dst_cfront);
  // The old dialects need temporaries that C++11 cannot have.
  if (std_version == 0) std_version = in_any_cfront_mode() ? 199711 : 201402;
  bool standard_given =
      given(opt_cpp11) || given(opt_cpp14) || given(opt_cpp17) || given(opt_cpp03);
  if (gpp_mode && !clang_mode && gnu_version >= 60000 && !standard_given) std_version = 201402;
  refuse_c_options_in_cplusplus();
  run_rules(dst_cplusplus);
  if (in_cpp11())
    set_cpp11_group(true);
  else if (given(opt_cpp11))
    set_cpp11_group(false);
  else if (!in_any_cfront_mode() && !strict_ansi_mode && !gpp_mode)
    run_rules(dst_cpp03);
  if (in_cpp14()) run_rules(dst_cpp14);
  if (std_version >= 201701) run_rules(dst_cpp17);
  run_rules(dst_cplusplus_last);
}

// ---- Strict mode -------------------------------------------------------------------------------

void settle_strict_mode() {
  if (!strict_ansi_mode) return;
  if (given(opt_anachronisms) && allow_anachronisms)
    command_line_error(ec_cl_strict_mode_incompatible_with_anachronisms);
  if (given(opt_long_preserving_rules) && long_preserving_rules)
    command_line_error(ec_cl_strict_mode_incompatible_with_long_preserving);
  if (in_cplusplus() && given(opt_ignore_std) && ignore_std_namespace)
    command_line_error(ec_cl_strict_mode_incompatible_with_ignore_std);
  run_rules(dst_strict);
  if (in_cplusplus()) run_rules(dst_strict_cplusplus);
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

void settle_gnu_modes() {
  if (gcc_mode || gpp_mode) {
    if (clang_mode && gnu_version < 40800 && !given(opt_gnu_version)) gnu_version = 40800;
    if (!given(opt_clang) && !given(opt_clang_version)) clang_mode = false;
    run_rules(dst_gnu);
    if (gpp_mode) run_rules(dst_gpp);
    if (gcc_mode) run_rules(dst_gcc);
    return;
  }
  if (given(opt_short_enums)) command_line_error(ec_cl_short_enums_requires_gcc_mode);
  if (given(opt_report_gnu_extensions))
    command_line_error(ec_cl_report_gnu_extensions_requires_gnu_mode);
  if (given(opt_nonstd_gnu_keywords) && nonstd_gnu_keywords_enabled)
    command_line_error(ec_cl_nonstd_gnu_keywords_requires_gnu_mode);
}

// ---- What is fixed for this tool, and what is left ---------------------------------------------

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
  run_rules(dst_tool);
  TRG_check_cmd_options();
  settle_last_switches();
  settle_include_paths();
  settle_preprocessing();
  create_template_deduction_name_references = true;
  open_listing_files();
}
