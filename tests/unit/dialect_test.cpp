// Which switches are on in which dialect: a list written from the description of the dialects, held
// against what the command line leaves behind.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "front_end_start.h"
#include "options/cmd_line.h"
#include "semantics/target.h"
#include "target/arm_util.h"

namespace {

struct a_dialect {
  char letter;
  const char *options;
};
const a_dialect dialects[] = {
    {'k', "--old_c"},
    {'a', "--c89 --strict"},
    {'A', "--c89 --gcc"},
    {'b', "--c99 --strict"},
    {'n', "--c99"},
    {'c', "--c11 --strict"},
    {'C', "--c11 --gcc"},
    {'D', "--c --gnu_version=50000"},  // C11, as that version of the other compiler has it
    {'L', "--c11 --clang"},
    {'p', "--c++03 --strict"},
    {'P', "--c++03 --g++"},
    {'o', "--c++03 --gnu_version=30200"},
    {'m', "--c++03 --gnu_version=30400"},
    {'q', "--c++11 --strict"},
    {'Q', "--c++11 --g++"},
    {'r', "--c++14 --strict_warnings"},
    {'R', ""},
    {'l', "--c++14 --clang"},
    {'s', "--c++17 --strict"},
    {'S', "--c++17 --g++"},
    {'N', "--c++14 --gnu_version=60000"},
};
#define OLD_C "kaA"
#define C99 "bncCDL"
#define C OLD_C C99
#define GNU_C "AnCDL"
#define CPP03 "pPom"
#define CPP11 "qQrRlsSN"
#define CPP14 "rRlsSN"
#define CPP17 "sS"
#define CPP CPP03 CPP11
#define GNU_CPP "PomQRlSN"
#define GNU GNU_C GNU_CPP
#define ALL C CPP

struct a_group {
  const char *dialects;  // where the switches are on; off everywhere else
  const char *switches;
};
const a_group groups[] = {
    // Everywhere, or nowhere.
    {ALL,
     "long_long_is_standard binary_literals_allowed variadic_macros_allowed std_attributes_enabled "
     "pragma_operator_allowed"},
    {"",
     "std_c99_inlining gnu_c89_inlining constexpr_implies_const rvalue_ctor_is_copy_ctor "
     "exceptions_enabled guiding_decls_allowed use_nonstandard_for_init_scope rtti_enabled "
     "cfront_2_1_mode cfront_3_0_mode"},

    // The modes.
    {"k", "pcc_preprocessing_mode no_token_separators_in_pp_output"},
    {"abcpqrs", "strict_ansi_mode"},
    {GNU, "gnu_mode extended_designators_allowed"},
    {GNU_C, "gcc_mode"},
    {GNU_CPP,
     "gpp_mode gpp_dependent_name_lookup gpp_using_directive_lookup inline_template_allowed "
     "friend_class_decl_can_find_using_dir allow_default_arg_on_template_member_definition"},
    {"Ll", "clang_mode"},
    {GNU,
     "allow_dollar_in_id_chars extended_variadic_macros_allowed nonstd_gnu_keywords_enabled "
     "gnu_restrict_keyword_enabled null_chars_allowed_in_source "
     "allow_nonstandard_anonymous_unions"},
    {"kabcpqrs", "trigraphs_allowed"},
    {"abcpqrs" GNU, "check_concatenations"},

    // C.
    {C, "enum_type_is_integral func_prototype_tags_enabled"},
    {ALL, "c99_complex_enabled"},
    {C99, "va_copy_macro_allowed"},
    {C99, "restrict_keyword_enabled"},
    {C99 CPP, "universal_character_names_allowed"},
    {"AbncCDL", "c99_bool_is_keyword allow_nonconstant_auto_aggr_init_in_c_mode"},
    {"AbncCDL" CPP, "vla_enabled"},
    {"bc" GNU, "designators_allowed compound_literals_allowed"},
    {"bc" GNU CPP11, "mixed_string_concat_enabled"},
    {"bc" GNU "s", "hex_floating_point_constants_allowed"},
    {C99 CPP11, "long_long_promotion_allowed"},
    {"A" C99 CPP, "end_of_line_comments_allowed"},
    {"kA" C99, "allow_decl_after_stmt"},
    {"kAncCDL", "c11_atomic_enabled"},
    {"cCDL", "allow_c11_anonymous_unions"},
    {"cCDL" CPP11, "uliterals_enabled std_thread_local_storage_specifier_enabled"},
    {"cCD" CPP11, "static_assert_enabled"},
    {"AncCDL" CPP11, "alignas_enabled alignof_enabled"},

    // C++ in every version.
    {CPP,
     "namespaces_enabled array_new_and_delete_enabled wchar_t_is_keyword bool_is_keyword "
     "explicit_keyword_enabled typename_enabled class_name_injection_enabled "
     "arg_dependent_lookup_enabled extern_inline_allowed "
     "operator_overloading_on_enums_enabled elab_type_lookup_finds_typedefs"},
    {"pmP" CPP11, "do_dependent_name_processing nonclass_prototype_instantiations"},

    // What changed with the versions of the emulated compiler.
    {"mPQRlSN", "dependent_lookup_finds_static_functions"},
    {"om",
     "nonstandard_default_arg_deduction friend_class_injection_enabled "
     "friend_function_injection_enabled parameters_visible_late "
     "gnu_namespace_and_class_in_same_scope cpp11_sfinae_ignore_access"},
    {"o", "no_access_check_on_friend_declarator_ids"},
    {"PQRSN", "macro_preempts_udl_suffix late_template_ovl_res_tiebreaker"},
    {"PQRlSN", "type_traits_helpers_enabled gnu_bases_operators_enabled"},
    {"P", "report_explicit_enum_base_as_nonstandard enable_underscore_decltype_only"},
    {"PQ", "warn_on_deduced_return_types"},
    {"pPomQRlSN", "deprecated_string_literal_conv_allowed"},
    {"qrsl", "register_is_deprecated"},
    {"s", "register_is_disallowed"},

    // C++11, and what the emulated compiler has of it earlier.
    {CPP11,
     "auto_type_specifier_enabled lambdas_enabled rvalue_references_enabled nullptr_enabled "
     "unrestricted_unions_enabled user_defined_literals_enabled right_shift_can_be_angle_brackets "
     "standard_form_of_extern_template enum_qualifiers_enabled opaque_enum_decls_enabled "
     "trailing_return_types_enabled list_init_enabled alias_declarations_enabled "
     "range_based_for_enabled noexcept_enabled raw_string_literals_enabled constexpr_enabled "
     "generate_move_operations ref_qualifiers_enabled inheriting_constructors_enabled "
     "false_literal_is_not_null_pointer_constant local_types_as_template_args_enabled "
     "decls_using_types_without_linkage_allowed this_in_trailing_return_types_enabled "
     "char16_t_and_char32_t_are_keywords lambda_default_args_enabled "
     "enable_decltype_in_base_specifier_and_mem_initializer "
     "function_template_default_args_allowed"},
    {"P" CPP11,
     "variadic_templates_enabled decltype_enabled explicit_enum_base_enabled "
     "inline_namespaces_enabled delegating_constructors_enabled deleted_functions_enabled "
     "defaulted_special_members_enabled field_initializers_enabled std_override_modifiers_enabled "
     "explicit_conversion_functions_enabled extended_friends_enabled"},
    {"Pm" CPP11, "cpp11_sfinae_enabled"},
    {"Pom" CPP11, "extern_template_allowed"},
    {C CPP03, "auto_storage_class_specifier_enabled"},
    {"qrs", "implicit_noexcept_enabled"},

    // C++14, C++17.
    {CPP14,
     "decltype_auto_enabled generic_lambdas_enabled generic_lambdas_can_implicitly_capture "
     "aggregate_classes_can_have_field_initializers digit_separators_enabled "
     "relaxed_constexpr_enabled sized_deallocation_enabled variable_templates_enabled"},
    {"Q" CPP14, "init_capture_enabled"},
    {"PQ" CPP14, "deduced_return_types_enabled"},
    {"rs", "selection_from_prvalue_is_xvalue"},
    {CPP17,
     "namespace_attributes_enabled nested_namespace_definitions_enabled "
     "utf8_char_literals_enabled relaxed_range_based_for_enabled "
     "using_attribute_namespaces_enabled nodiscard_attribute_enabled"},
    {"lsSN", "enumerator_attributes_enabled"},
    {"sSN", "terse_static_assert_enabled"},
};

// Numbers that a dialect settles.
struct a_number_row {
  const char *options;
  const char *name;
  int value;
};
const a_number_row numbers[] = {
    {"", "std_version", 201402},
    {"", "gnu_version", 40800},
    {"", "C_dialect", 2},
    {"--old_c", "C_dialect", 1},
    {"--old_c", "std_version", 199000},
    {"--c", "std_version", 199000},
    {"--c --gnu_version=50000", "std_version", 201112},
    {"--c --gnu_version=50000 --c99", "std_version", 199901},
    {"--c99 --no_c99", "std_version", 199000},
    {"--no_c++11", "std_version", 199711},
    {"--c++03 --gnu_version=60000", "std_version", 199711},
    {"--clang --gnu_version=40200", "gnu_version", 40200},
    {"--clang", "gnu_version", 40800},
    {"--clang_version=30700", "clang_version", 30700},
    {"--strict", "error_threshold", 6},
    {"--no_warnings", "error_threshold", 9},
    {"--remarks", "error_threshold", 4},
    {"--no_warnings --strict_warnings", "error_threshold", 6},
    {"-M", "error_threshold", 9},
    {"--context_limit=3", "context_limit", 2},
    {"--context_limit=1", "context_limit", 2},
    {"--context_limit=", "context_limit", 0},
    {"--pending_instantiations=0", "max_pending_instantiations", -1},
    {"--instantiate=none", "instantiation_mode", 0},
};

// What the target's options settle, outside the switches.
struct a_target_row {
  const char *options;
  const char *name;
  long (*value)();
  long expected;
};
#define VALUE(variable) #variable, [] { return static_cast<long>(variable); }
const a_target_row target_rows[] = {
    {"--float_operations_allowed=none", VALUE(legal_float_precision), 0},
    {"--float_operations_allowed=all", VALUE(legal_float_precision), 1},
    {"--float_operations_allowed=32", VALUE(legal_float_precision), 2},
    {"--float_operations_allowed=64", VALUE(legal_float_precision), 3},
    {"--float_operations_allowed=0 --float_operations_allowed=x", VALUE(legal_float_precision), 1},
    {"--fp_mode=relaxed", VALUE(relaxed_fp), 1},
    {"--fp_mode=relaxed --fp_mode=strict", VALUE(relaxed_fp), 0},
    {"--small-enum", VALUE(targ_enum_types_can_be_smaller_than_int), 1},
    {"--keep_unneeded_types=true", VALUE(keep_unneeded_types), 1},
    {"--keep_unneeded_types=false", VALUE(keep_unneeded_types), 0},
    {"--abi=eabi", VALUE(is_eabi), 1},
    {"--abi=eabi", VALUE(targ_max_bit_field_size), 64},
    {"--abi=other", VALUE(is_eabi), 0},
    {"--small_container_bitfield_layout", VALUE(targ_bit_field_container_size), 0},
    {"--align_structs=8", VALUE(targ_minimum_struct_alignment), 8},
    {"--array_alignment=8", VALUE(targ_top_aryaln), 8},
    {"--unaligned_access=on", VALUE(unaligned_access_supported), 1},
    {"--unaligned_access=off", VALUE(unaligned_access_supported), 0},
    {"--symdebug:dwarf", VALUE(targ_compile_with_sym_debug), 1},
    {"--symdebug:coff", VALUE(targ_compile_with_sym_debug), 1},
    {"--mem_model:code=near", VALUE(targ_code_access_model), 0},
    {"--mem_model:code=large", VALUE(targ_code_access_model), 4},
    {"--mem_model:data=far_aggregates", VALUE(targ_data_access_model), 2},
    {"--mem_model:data=flat", VALUE(targ_data_access_model), 6},
    {"--mem_model:const=far", VALUE(targ_const_access_model), 1},
    {"--predefine_memory_model_macros", VALUE(targ_predefine_memory_model_macros), 1},
    {"--long_precision_bits=32", VALUE(targ_sizeof_long), 4},
    {"--wchar_t_bits=32", VALUE(targ_sizeof_wchar_t), 4},
    {"--wchar_t_bits=16", VALUE(targ_sizeof_wchar_t), 2},
    {"--code_state=16", VALUE(targ_code_state), 16},
    {"--code_state=32", VALUE(targ_code_state), 32},
    {"--eabi_compat=gcc34", VALUE(std::strcmp(eabi_compat, "GCC34")), 0},
    {"--eabi_compat=RVCT21", VALUE(std::strcmp(eabi_compat, "RVCT21")), 0},
    {"--float_support=none", VALUE(softfp_support), 1},
    {"--float_support=VFPv3D16", VALUE(std::strcmp(vfp_support, "VFPv3D16")), 0},
    {"--import_undef=on", VALUE(import_undef), 1},
    {"--import_undef=off", VALUE(import_undef), 0},
    {"--visibility=hidden", VALUE(targ_sym_default_visibility), 3},
    {"--visibility=other", VALUE(targ_sym_default_visibility), 0},
    {"--dllexport_visibility=protected", VALUE(targ_sym_export_visibility), 2},
    {"--advice:performance=all", VALUE(performance_advice), 1},
    {"--advice:performance=none", VALUE(performance_advice), 0},
    {"--size_speed_goal=high_risk_performance", VALUE(targ_size_speed_goal), 0},
    {"--size_speed_goal=high_risk_size", VALUE(targ_size_speed_goal), 5},
    {"--big_endian", VALUE(targ_little_endian), 0},
    {"--little_endian", VALUE(targ_little_endian), 1},
    {"--neon", VALUE(targ_is_neon), 1},
    {"--printf_support=nofloat", VALUE(printf_support), 0},
    {"--printf_support=minimal", VALUE(printf_support), 1},
    {"--printf_support=full", VALUE(printf_support), 2},
    {"--signed_chars", VALUE(targ_has_signed_chars), 1},
    {"-s", VALUE(targ_has_signed_chars), 1},
    {"-s -u", VALUE(targ_has_signed_chars), 0},
    {"--unsigned_chars", VALUE(targ_has_signed_chars), 0},
    {"--signed_bit_fields", VALUE(targ_plain_int_bit_field_is_unsigned), 0},
    {"--unsigned_bit_fields", VALUE(targ_plain_int_bit_field_is_unsigned), 1},
    {"--max_cost_constexpr_call=9", VALUE(max_cost_constexpr_call), 9},
    {"--max_depth_constexpr_call=7", VALUE(max_depth_constexpr_call), 7},
    {"--multibyte_chars", VALUE(multibyte_chars_in_source_enabled), 1},
    {"--no_multibyte_chars", VALUE(multibyte_chars_in_source_enabled), 0},
    {"--old_style_preprocessing", VALUE(pcc_preprocessing_mode), 1},
    {"--force_vtbl", VALUE(virtual_function_table_definition), 2},
    {"--suppress_vtbl", VALUE(virtual_function_table_definition), 1},
    {"--strict --relaxed", VALUE(strict_ansi_mode), 0},
    {"--pack_alignment=4", VALUE(default_max_member_alignment), 4},
    {"--ii_file=a.ii", VALUE(std::strcmp(ii_file_name, "a.ii")), 0},
    {"--template_info_file=a.ti", VALUE(std::strcmp(template_info_file_name, "a.ti")), 0},
    {"--definition_list_file=a.dl", VALUE(std::strcmp(definition_list_file_name, "a.dl")), 0},
    {"--ah_output_file=a.h", VALUE(std::strcmp(ah_file_name, "a.h")), 0},
    {"--il_output_file=a.cil", VALUE(std::strcmp(il_file_name, "a.cil")), 0},
    {"--object_file=a.obj", VALUE(std::strcmp(object_file_name, "a.obj")), 0},
    {"--incl_suffixes=::h", VALUE(std::strcmp(include_file_suffixes, "::h")), 0},
    {"--db_typerw --db_typerw", VALUE(tp_print_debug), 2},
    {"--opt_shell 2 --one --two", VALUE(std::strcmp(shell_opts[1], "--two")), 0},
    {"--opt_opt f -O2", VALUE(std::strcmp(lookup_opt_override("f", false)->opt_options, "-O2")), 0},
    {"--opt_cg f -s", VALUE(std::strcmp(lookup_opt_override("f", false)->cg_options, "-s")), 0},
    {"--opt_ansi f -s", VALUE(std::strcmp(lookup_opt_override("f", false)->ansi_options, "-s")), 0},
    // Letters.
    {"--strict -R", VALUE(strict_ansi_mode), 0},
    {"-A", VALUE(strict_ansi_error_severity), 10},
    {"-a", VALUE(strict_ansi_error_severity), 6},
    {"-qnj", VALUE(quiet_mode + suppress_back_end + suppress_used_before_set_warnings), 3},
    {"-N", VALUE(suppress_il_lowering), 1},
    {"-K", VALUE(C_dialect), 1},
    {"-m", VALUE(C_dialect), 0},
    {"-p", VALUE(C_dialect), 2},
    {"-x", VALUE(exceptions_enabled), 1},
    {"-tall", VALUE(instantiation_mode), 1},
    {"-t none", VALUE(instantiation_mode), 0},
    {"--no_auto_instantiation -T", VALUE(automatic_instantiation_mode), 1},
    {"-V", VALUE(virtual_function_table_definition), 1},
    {"--strict -$", VALUE(allow_dollar_in_id_chars), 1},
    {"-w", VALUE(error_threshold), 9},
    {"-r", VALUE(error_threshold), 4},
    {"-e7", VALUE(error_limit), 7},
    {"-#", VALUE(display_compilation_time), 1},
};

std::map<std::string, int> values() {
  std::map<std::string, int> result;
#define FLAG(name, default, meaning) result[#name] = name;
#define NUMBER(name, default, meaning) result[#name] = name;
#define TEXT(name, meaning)
#include "driver/switches.def"
  return result;
}

// The switches behind a command line; the program is left as it was before.
std::map<std::string, int> values_with(const std::string &options) {
  start_front_end_with_options(options);
  std::map<std::string, int> result = values();
  end_front_end();
  return result;
}

}  // namespace

TEST(Dialects, Switches) {
  for (const a_dialect &dialect : dialects) {
    const std::map<std::string, int> found = values_with(dialect.options);
    for (const a_group &group : groups) {
      int expected = std::strchr(group.dialects, dialect.letter) != nullptr;
      std::istringstream names(group.switches);
      for (std::string name; names >> name;) {
        auto value = found.find(name);
        ASSERT_NE(value, found.end()) << name << " is no switch";
        EXPECT_EQ(value->second, expected) << name << " with " << dialect.options;
      }
    }
  }
}

TEST(Dialects, Numbers) {
  for (const a_number_row &row : numbers) {
    const std::map<std::string, int> found = values_with(row.options);
    ASSERT_NE(found.find(row.name), found.end()) << row.name << " is no switch";
    EXPECT_EQ(found.at(row.name), row.value) << row.name << " with " << row.options;
  }
}

TEST(Dialects, OptionsOfSwitches) {
  struct a_row {
    const char *context, *option, *name;
    int value;
  };
  const a_row rows[] = {
#define OPTION_ROW(context, option, name, value) {context, option, #name, value},
#include "option_rows.def"
  };
  for (const a_row &row : rows) {
    const std::string options = std::string(row.context) + " " + row.option;
    const std::map<std::string, int> found = values_with(options);
    ASSERT_NE(found.find(row.name), found.end()) << row.name << " is no switch";
    EXPECT_EQ(found.at(row.name), row.value) << row.name << " with " << options;
  }
}

TEST(Dialects, OptionsOfTheTarget) {
  for (const a_target_row &row : target_rows) {
    values_with(row.options);
    EXPECT_EQ(row.value(), row.expected) << row.name << " with " << row.options;
  }
}
