// What each option does that is more than giving one switch a value, in the order of the table.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "DIAG/error.h"
#include "TYPES/type_pkg.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/signals.h"
#include "driver/switches.h"
#include "options/cmd_line_internal.h"
#include "options/configuration.h"
#include "semantics/layout.h"
#include "semantics/target.h"
#include "source/input_stack.h"
#include "source/macro.h"
#include "target/arm_util.h"
#include "target/misra.h"

namespace {

bool argument_is(const char *text) {
  return std::strcmp(curr_option_argument, text) == 0;
}

// The place of the argument in a list of words; -1: it is none of them.
template <std::size_t COUNT>
int argument_among(const char *const (&words)[COUNT]) {
  for (std::size_t i = 0; i < COUNT; i++)
    if (argument_is(words[i])) return static_cast<int>(i);
  return -1;
}

[[noreturn]] void invalid_argument() {
  str_command_line_error(ec_cl_invalid_option, curr_option_argument);
}

// What the user asked for and this program does not do; the compilation goes on without it.
void warn_of_missing(const char *what) {
  str_command_line_warning(ec_not_supported, what);
}

void preprocess_only(bool generate) {
  do_preprocessing_only = true;
  generate_pp_output = generate;
}

void preprocess_to_text() {
  preprocess_only(true);
  list_included_files = false;
  list_makefile_dependencies = false;
}

void lower_threshold_to(an_error_severity severity) {
  if (error_threshold > severity) error_threshold = severity;
}

// `count word...`: that many further words.
std::vector<const char *> counted_words(const char *count_text) {
  const char *saved = curr_option_argument;
  curr_option_argument = count_text;
  std::int64_t count = decimal_argument();
  curr_option_argument = saved;
  std::vector<const char *> words;
  while (count-- > 0) {
    const char *word = next_word();
    if (word == nullptr) command_line_error(ec_cl_missing_override_args);
    words.push_back(word);
  }
  return words;
}

// `name options`: the text is kept as one of the name's overrides.
void store_override(const char *an_opt_override::*part) {
  std::string name = curr_option_argument;
  const char *text = next_word();
  if (text == nullptr) command_line_error(ec_cl_missing_override_args);
  lookup_opt_override(name, true)->*part = text;
}

int symbol_visibility_argument() {
  static const char *const words[] = {"default", "protected", "hidden", "internal", "extern"};
  return argument_among(words) + 1;
}

int hook_parameter_argument() {
  static const char *const words[] = {"none", "name", "address"};
  int parameter = argument_among(words);
  if (parameter < 0) invalid_argument();
  return parameter;
}

void cfront_mode(bool is_2_1, int value) {
  bool on = value != 0;
  cfront_2_1_mode = on && is_2_1;
  cfront_3_0_mode = on && !is_2_1;
  set_dialect(dialect_cplusplus);
  if (!given(opt_strict) && !given(opt_strict_warnings)) strict_ansi_mode = false;
}

struct a_named_flag {
  const char *name;
  bool *variable;
};
const a_named_flag named_flags[] = {
    {"suppress_inline_corresp_check", &suppress_inline_corresp_check},
    {"allow_anon_types_in_anon_unions", &allow_anon_types_in_anon_unions},
    {"emulate_gnu_abi_bugs", &emulate_gnu_abi_bugs},
    {"emulate_unsafe_gnu_abi_bugs", &emulate_unsafe_gnu_abi_bugs},
    {"warn_about_tail_padding_use", &warn_about_tail_padding_use},
    {"reuse_tail_padding", &reuse_tail_padding},
    {"packing_applies_to_base_classes", &packing_applies_to_base_classes},
    {"stack_referenced_include_directories", &stack_referenced_include_directories},
    {"use_nonstd_partial_ordering", &use_nonstd_partial_ordering},
    {"no_checking_pragmas", &no_checking_pragmas},
    {"warn_on_try_statement", &warn_on_try_statement},
    {"terse_range_based_for_enabled", &terse_range_based_for_enabled},
    {"relaxed_constexpr", &relaxed_constexpr_flag},
    {"constexpr_implies_const", &constexpr_implies_const},
    {"mangle_had_been_implicitly_const", &mangle_had_been_implicitly_const},
    {"suppress_deferral_on_partial_spec_members", &suppress_deferral_on_partial_spec_members},
    {"no_very_expensive_checking", &no_very_expensive_checking},
    {"diag_override_does_not_affect_sfinae", &diag_override_does_not_affect_sfinae},
    {"preload_builtin_functions", &preload_builtin_functions},
    {"lazy_field_initializers", &lazy_field_initializers},
};

}  // namespace

// ---- Messages and the program itself -----------------------------------------------------------

void option_buffer_diagnostics(int) {
  std::setvbuf(stderr, nullptr, _IOLBF, 256);
}
void option_relaxed(int) {
  strict_ansi_mode = false;
}
void option_strict(int) {
  strict_ansi_mode = true;
  strict_ansi_error_severity = es_error;
  strict_ansi_discretionary_severity = es_discretionary_error;
  lower_threshold_to(es_error);
}
void option_strict_warnings(int) {
  strict_ansi_mode = true;
  strict_ansi_error_severity = strict_ansi_discretionary_severity = es_warning;
  lower_threshold_to(es_warning);
}
void option_no_warnings(int) {
  error_threshold = es_discretionary_error;
}
void option_remarks(int) {
  error_threshold = es_remark;
}
void option_error_limit(int) {
  error_limit = 0;
  std::int64_t limit = 0;
  for (const char *c = curr_option_argument; *c != '\0'; c++) {
    if (*c < '0' || *c > '9')
      str_command_line_error(ec_cl_invalid_error_limit, curr_option_argument);
    if (limit < INT32_MAX) limit = limit * 10 + (*c - '0');
  }
  if (limit <= 0 || limit > INT32_MAX)
    str_command_line_error(ec_cl_invalid_error_limit, curr_option_argument);
  error_limit = static_cast<int>(limit);
}
void option_diag_suppress(int) {
  set_severity_for_error_list(curr_option_argument, es_none);
}
void option_diag_remark(int) {
  set_severity_for_error_list(curr_option_argument, es_remark);
}
void option_diag_warning(int) {
  set_severity_for_error_list(curr_option_argument, es_warning);
}
void option_diag_error(int) {
  set_severity_for_error_list(curr_option_argument, es_discretionary_error);
}
void option_diag_once(int) {
  set_severity_for_error_list(curr_option_argument, es_once);
}
void option_context_limit(int) {
  std::int64_t limit = *curr_option_argument == '\0' ? 0 : decimal_argument();
  if (limit > INT32_MAX) limit = INT32_MAX;
  context_limit = limit == 1 ? 2 : static_cast<int>(limit & ~std::int64_t{1});
}
void option_help(int) {
  std::printf("Usage: %s [-options] filename\n\n", "<toolname>");
  std::printf("This tool is designed to be invoked by the compiler.\n");
  std::exit(0);
}
void option_toolversion(int) {
  std::printf("%s v%s\n", tool_name(), tool_version);
  std::exit(0);
}
void option_zvnversion(int) {
  std::fprintf(f_error, "Zelvane C/C++ Front End, version %s (%s %s)\n\n", tool_version, build_date,
               build_time);
}
void option_lossy_conversion_warning(int value) {
  warning_on_lossy_conversion = value != 0;
  if (warning_on_lossy_conversion) warn_of_missing("the warning on lossy conversions is");
}
void option_dump_configuration(int) {
  dump_configuration(f_error);
}
void option_dump_legacy_as_target(int) {
  dump_legacy_config_as_target_config = curr_option_argument;
  warn_of_missing("the naming of a target configuration is");
}

// ---- Rule checks, advice, precompiled headers --------------------------------------------------

void option_check_misra(int) {
  bool error;
  process_check_misra(curr_option_argument, nullptr, &error, true, false);
  if (error) str_command_line_error(ec_misra_invalid_rules, "check_misra");
}
void option_misra_required(int) {
  process_misra_severity(mrk_required, curr_option_argument, nullptr);
}
void option_misra_advisory(int) {
  process_misra_severity(mrk_advisory, curr_option_argument, nullptr);
}
void option_advice_power(int) {
  if (!argument_is("none")) warn_of_missing("power advice is");
  lower_threshold_to(es_power_remark);
}
// Without power advice there is nothing that these two could change.
void option_advice_power_severity(int) {}
void option_pwa_standalone_mode(int) {}

void option_create_pch(int) {
  pch_output_file_name = curr_option_argument;
  if (!okay_as_output_file(pch_output_file_name))
    str_command_line_error(ec_cl_invalid_option, pch_output_file_name);
  create_precompiled_header = true;
  automatic_pch_processing = use_precompiled_header = false;
  warn_of_missing("the making of precompiled headers is");
}
void option_use_pch(int) {
  pch_input_file_name = curr_option_argument;
  use_precompiled_header = true;
  automatic_pch_processing = create_precompiled_header = false;
  warn_of_missing("the use of precompiled headers is");
}
void option_pch(int) {
  automatic_pch_processing = true;
  warn_of_missing("the keeping of precompiled headers is");
  use_precompiled_header = create_precompiled_header = false;
}
void option_pch_dir(int) {
  pch_dir_name = curr_option_argument;
  if (!is_directory(pch_dir_name))
    str_command_line_error(ec_cl_invalid_pch_directory, pch_dir_name);
}

// ---- Preprocessing and files -------------------------------------------------------------------

void option_preproc_macros(int) {
  preprocess_only(false);
  list_macros = true;
  list_included_files = false;
  list_makefile_dependencies = false;
}
void option_no_line_commands(int) {
  preprocess_to_text();
}
void option_preprocess(int) {
  preprocess_to_text();
  gen_line_info_in_pp_output = true;
}
void option_comments(int) {
  preprocess_to_text();
  keep_comments_in_pp_output = true;
}
void option_dependencies(int) {
  preprocess_only(false);
  list_makefile_dependencies = true;
}
void option_trace_includes(int) {
  preprocess_only(false);
  list_included_files = true;
}
void option_list_macros(int) {
  preprocess_only(false);
  list_macro_definitions = true;
}
void option_no_preproc_only(int value) {
  no_preproc_only = value != 0;
}
void option_old_style_preprocessing(int value) {
  old_style_preprocessing = value != 0;
}
void option_multibyte_chars(int value) {
  multibyte_chars_in_source_enabled = value != 0;
  if (value != 0) set_multibyte_locale();
}
void option_unicode_source_kind(int) {
  static const char *const words[] = {"none", "UTF-8", "UTF-16LE", "UTF-16BE", "UTF-16"};
  int kind = argument_among(words);
  if (kind < 0)
    str_command_line_error(ec_cl_unrecognized_unicode_source_kind, curr_option_argument);
  default_unicode_source_kind = kind < 4 ? kind : host_little_endian ? 2 : 3;
}
void option_include_directory(int) {
  if (argument_is("-")) {
    system_path_boundary_seen = true;
    put_dir_of_each_opened_source_file_on_incl_search_path = false;
    return;
  }
  add_to_include_search_path(curr_option_argument, system_path_boundary_seen);
}
void option_sys_include(int) {
  add_to_include_search_path(curr_option_argument, true);
}
void option_incl_suffixes(int) {
  include_file_suffixes = curr_option_argument;
}
void option_define_macro(int) {
  add_macro_definition_from_cmd_line(curr_option_argument, false);
}
void option_undefine_macro(int) {
  add_macro_definition_from_cmd_line(curr_option_argument, true);
}
void option_preinclude(int) {
  alloc_preinclude_file(curr_option_argument, false);
}
void option_preinclude_macros(int) {
  alloc_preinclude_file(curr_option_argument, true);
}
void option_i_output_file(int) {
  i_file_name = curr_option_argument;
}
void option_il_output_file(int) {
  il_file_name = curr_option_argument;
}
void option_pp_output_file(int) {
  pp_file_name = curr_option_argument;
}
void option_ah_output_file(int) {
  ah_file_name = curr_option_argument;
}
void option_object_file(int) {
  object_file_name = curr_option_argument;
}
void option_list(int) {
  raw_listing_file_name = curr_option_argument;
}
void option_xref(int) {
  xref_file_name = curr_option_argument;
}
void option_error_output(int) {
  error_file_name = curr_option_argument;
}
void option_ii_file(int) {
  ii_file_name = curr_option_argument;
}
void option_template_info_file(int) {
  template_info_file_name = curr_option_argument;
}
void option_definition_list_file(int) {
  definition_list_file_name = curr_option_argument;
}
void option_zvn_base_dir(int) {
  zvn_base_directory = curr_option_argument;
  if (!is_directory(zvn_base_directory))
    str_command_line_error(ec_cl_invalid_zvn_base_directory, zvn_base_directory);
}
// The writer of assembly headers is not part of this program yet.
void option_asmheaders(int) {
  str_command_line_error(ec_not_supported, "the writing of assembly headers is");
}
void option_no_il_lowering(int) {
  suppress_il_lowering = suppress_back_end = true;
}
void option_no_code_gen(int) {
  suppress_back_end = suppress_il_file_write = suppress_il_lowering = true;
}

// ---- Words for later stages --------------------------------------------------------------------

void option_opt_cmdfile(int) {
  open_command_file(curr_option_argument);
}
void option_opt_shell(int) {
  if (shell_opts != nullptr) command_line_error(ec_cl_duplicate_shell_opts_list);
  std::vector<const char *> words = counted_words(curr_option_argument);
  shell_opts = static_cast<const char **>(alloc_general((words.size() + 1) * sizeof(const char *)));
  std::size_t count = 0;
  for (const char *word : words)
    shell_opts[count++] = word;
  shell_opts[count] = nullptr;
}
void option_opt_ansi(int) {
  store_override(&an_opt_override::ansi_options);
}
void option_opt_opt(int) {
  store_override(&an_opt_override::opt_options);
}
void option_opt_cg(int) {
  store_override(&an_opt_override::cg_options);
}
void option_embed_opts(int) {
  icode_optlist.clear();
  OPTION_SET set;
  set.texts = counted_words(curr_option_argument);
  icode_optlist.push_back(set);
}
void option_override_opts(int) {
  if (icode_optlist.empty()) command_line_error(ec_missing_base_option_set);
  std::string name = curr_option_argument;
  const char *count = next_word();
  if (count == nullptr) command_line_error(ec_cl_missing_override_args);
  OPTION_SET set;
  set.id = static_cast<std::uint32_t>(icode_optlist.size());
  set.texts = counted_words(count);
  icode_optlist.push_back(set);
  lookup_opt_override(name, true)->option_set_id = set.id;
}
void option_db_typerw(int) {
  tp_print_debug++;
}

// ---- The target --------------------------------------------------------------------------------

void option_fp_mode(int) {
  relaxed_fp = argument_is("relaxed");
}
void option_float_operations_allowed(int) {
  static const char *const words[] = {"none", "all", "32", "64"};
  int precision = argument_among(words);
  legal_float_precision = precision < 0 ? 1 : precision;
}
void option_small_enum(int) {
  targ_enum_types_can_be_smaller_than_int = true;
}
void option_keep_unneeded_types(int) {
  if (argument_is("true")) keep_unneeded_types = true;
}
void option_abi(int) {
  if (argument_is("eabi")) set_eabi();
}
void option_small_container_bitfield_layout(int) {
  targ_bit_field_container_size = 0;
}
void option_align_structs(int) {
  std::int64_t alignment = decimal_argument();
  if (alignment < targ_minimum_struct_alignment || alignment > 128 ||
      (alignment & (alignment - 1)) != 0)
    str_command_line_error(ec_cl_invalid_align_structs, curr_option_argument);
  set_minimum_struct_alignment(static_cast<int>(alignment));
}
void option_array_alignment(int) {
  std::int64_t alignment = decimal_argument();
  if (alignment >= 5) targ_top_aryaln = static_cast<int>(alignment);
}
void option_unaligned_access(int) {
  unaligned_access_supported = argument_is("on");
}
void option_symdebug_dwarf(int) {
  targ_compile_with_sym_debug = true;
}
void option_symdebug_coff(int) {
  targ_compile_with_sym_debug = true;
}
void option_mem_model_code(int) {
  static const char *const words[] = {"near", "far", "flat", "small", "large"};
  int model = argument_among(words);
  if (model < 0) invalid_argument();
  targ_code_access_model = model;
  reset_internal_type_sizes();
}
void option_mem_model_data(int) {
  static const char *const words[] = {"near", "far", "far_aggregates", "small", "large",
                                      "huge", "flat"};
  int model = argument_among(words);
  if (model < 0) invalid_argument();
  targ_data_access_model = model;
  reset_internal_type_sizes();
}
void option_mem_model_const(int) {
  static const char *const words[] = {"data", "far", "far_aggregates"};
  int model = argument_among(words);
  if (model < 0) invalid_argument();
  targ_const_access_model = model;
  reset_internal_type_sizes();
}
void option_predefine_memory_model_macros(int) {
  targ_predefine_memory_model_macros = true;
}
void option_long_precision_bits(int) {
  set_long_to_32_bits();
}
void option_wchar_t_bits(int) {
  set_wchar_t_bits(argument_is("32") ? 32 : 16);
}
void option_code_state(int) {
  targ_code_state = static_cast<int>(decimal_argument());
}
void option_eabi_compat(int) {
  if (argument_is("rvct21") || argument_is("RVCT21")) eabi_compat = "RVCT21";
  if (argument_is("gcc34") || argument_is("GCC34")) eabi_compat = "GCC34";
}
void option_float_support(int) {
  static const char *const units[] = {"VFPv2", "VFPv3", "VFPv3D16", "FPv4SPD16"};
  if (argument_is("none")) softfp_support = true;
  int unit = argument_among(units);
  if (unit >= 0) vfp_support = units[unit];
}
void option_import_undef(int) {
  import_undef = argument_is("on");
}
void option_visibility(int) {
  targ_sym_default_visibility = symbol_visibility_argument();
}
void option_dllexport_visibility(int) {
  targ_sym_export_visibility = symbol_visibility_argument();
}
void option_version(int) {
  TRG_parse_versions(curr_option_argument);
}
void option_advice_performance(int) {
  if (argument_is("all")) {
    performance_advice = 1;
    warn_of_missing("performance advice is");
  }
  if (argument_is("none")) performance_advice = 0;
}
void option_entry_hook(int) {
  entry_hook_name = curr_option_argument;
}
void option_entry_parm(int) {
  entry_hook_parameter = hook_parameter_argument();
  if (entry_hook_name == nullptr) entry_hook_name = "__entry_hook";
}
void option_exit_hook(int) {
  exit_hook_name = curr_option_argument;
}
void option_exit_parm(int) {
  exit_hook_parameter = hook_parameter_argument();
  if (exit_hook_name == nullptr) exit_hook_name = "__exit_hook";
}
void option_size_speed_goal(int) {
  static const char *const words[] = {"high_risk_performance", "medium_risk_performance",
                                      "low_risk_performance",  "low_risk_size",
                                      "medium_risk_size",      "high_risk_size"};
  int goal = argument_among(words);
  if (goal < 0) invalid_argument();
  targ_size_speed_goal = goal;
}
void option_big_endian(int value) {
  targ_little_endian = value != 0;
}
void option_neon(int) {
  targ_is_neon = true;
}
void option_printf_support(int) {
  static const char *const words[] = {"nofloat", "minimal"};
  int support = argument_among(words);
  printf_support = support < 0 ? 2 : support;
}
void option_signed_chars(int value) {
  targ_has_signed_chars = value != 0;
}
void option_signed_bit_fields(int value) {
  targ_plain_int_bit_field_is_unsigned = value == 0;
}
void option_target(int) {
  target_configuration_index = find_target_configuration(curr_option_argument);
  if (target_configuration_index < 0)
    str_command_line_error(ec_cl_invalid_target, curr_option_argument);
  set_target_configuration(target_configuration_index);
}

// ---- The language ------------------------------------------------------------------------------

void option_c(int) {
  set_dialect(dialect_standard_c);
}
void option_cpp(int) {
  set_dialect(dialect_cplusplus);
}
void option_old_c(int) {
  set_dialect(dialect_pcc);
  gnu_mode = false;
  if (!given(opt_strict) && !given(opt_strict_warnings)) strict_ansi_mode = false;
}
void option_cfront_2_1(int value) {
  cfront_mode(true, value);
}
void option_cfront_3_0(int value) {
  cfront_mode(false, value);
}
void option_svr4(int value) {
  SVR4_C_mode = value != 0;
  set_dialect(dialect_standard_c);
}
void option_c99(int value) {
  std_version = value != 0 ? 199901 : 0;
  set_dialect(dialect_standard_c);
}
void option_c11(int) {
  std_version = 201112;
  set_dialect(dialect_standard_c);
}
void option_c89(int) {
  std_version = 199000;
  SVR4_C_mode = false;
  set_dialect(dialect_standard_c);
}
void option_gpp(int value) {
  gnu_mode = gpp_mode = value != 0;
  set_dialect(dialect_cplusplus);
}
void option_cpp11(int value) {
  std_version = value != 0 ? 201103 : 199711;
  set_dialect(dialect_cplusplus);
}
void option_cpp03(int) {
  std_version = 199711;
  set_dialect(dialect_cplusplus);
}
void option_cpp14(int) {
  std_version = 201402;
  set_dialect(dialect_cplusplus);
}
void option_cpp17(int) {
  std_version = 201701;
  set_dialect(dialect_cplusplus);
}
void option_gnu_version(int) {
  std::int64_t version = decimal_argument();
  if (version < 30200 || version > 999999)
    str_command_line_error(ec_cl_invalid_gnu_version, curr_option_argument);
  gnu_version = static_cast<int>(version);
  gnu_mode = true;
}
void option_clang_version(int) {
  clang_version = *curr_option_argument == '\0' ? 0 : static_cast<int>(decimal_argument());
  clang_mode = true;
}
void option_short_enums(int value) {
  if (value == 0) return;
  targ_enum_types_can_be_smaller_than_int = true;
  short_enums_in_force = true;
}
void option_set_flag(int value) {
  for (const a_named_flag &flag : named_flags) {
    if (!argument_is(flag.name)) continue;
    *flag.variable = value != 0;
    return;
  }
  str_command_line_error(ec_cl_invalid_flag_name, curr_option_argument);
}
void option_pack_alignment(int) {
  std::int64_t alignment = *curr_option_argument == '\0' ? 0 : decimal_argument();
  if (alignment != 0 && !check_pack_alignment_value(alignment))
    str_command_line_error(ec_bad_pack_alignment, curr_option_argument);
  default_max_member_alignment = static_cast<int>(alignment);
}
void option_implicit_typename(int value) {
  implicit_typename_enabled = force_implicit_typename = value != 0;
}
void option_friend_injection(int value) {
  friend_class_injection_enabled = friend_function_injection_enabled = value != 0;
}
void option_pending_instantiations(int) {
  std::int64_t count = *curr_option_argument == '\0' ? 0 : decimal_argument();
  max_pending_instantiations = count == 0 ? -1 : static_cast<int>(count);
}
void option_instantiate(int) {
  static const char *const words[] = {"none", "all", "used", "local"};
  instantiation_mode = argument_among(words);
  if (instantiation_mode < 0)
    str_command_line_error(ec_cl_invalid_instantiation_mode, curr_option_argument);
}
void option_suppress_vtbl(int value) {
  virtual_function_table_definition = value;
}
void option_gcc89_inlining(int) {
  std_c99_inlining = false;
  gnu_c89_inlining = true;
}
void option_default_nocommon_tentative_definitions(int) {}
void option_max_depth_constexpr_call(int) {
  max_depth_constexpr_call = static_cast<int>(decimal_argument());
}
void option_max_cost_constexpr_call(int) {
  max_cost_constexpr_call = static_cast<int>(decimal_argument());
}
void option_embedded_c(int) {}
