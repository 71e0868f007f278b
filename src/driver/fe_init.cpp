// The four levels of initialisation, and the opening of the source.
//
// The rows of fe_init.def are the orders; what stands here is what the levels do besides.
#include "driver/fe_init.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <ctime>

#include "DIAG/error.h"
#include "driver/diag_hooks.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il.h"
#include "il/src_seq.h"
#include "parser/statements.h"
#include "semantics/scope_stk.h"
#include "semantics/sys_predef.h"
#include "semantics/target.h"
#include "source/input_stack.h"
#include "source/lexical.h"
#include "source/macro.h"
#include "source/pp_output.h"
#include "source/preproc.h"

#define EARLY_INIT(module) void module##_early_init();
#define ONE_TIME_INIT(module) void module##_one_time_init();
#define INIT(module) void module##_init();
#define TRANS_UNIT_INIT(module) void module##_trans_unit_init();
#include "driver/fe_init.def"

namespace {

// One row of an order.
struct an_init_row {
  const char *module;
  void (*routine)();
};

constexpr an_init_row early_rows[] = {
#define EARLY_INIT(module) {#module, module##_early_init},
#include "driver/fe_init.def"
};
constexpr an_init_row one_time_rows[] = {
#define ONE_TIME_INIT(module) {#module, module##_one_time_init},
#include "driver/fe_init.def"
};
constexpr an_init_row init_rows[] = {
#define INIT(module) {#module, module##_init},
#include "driver/fe_init.def"
};
constexpr an_init_row trans_unit_rows[] = {
#define TRANS_UNIT_INIT(module) {#module, module##_trans_unit_init},
#include "driver/fe_init.def"
};

template <std::size_t count>
void run_rows(const an_init_row (&rows)[count]) {
  for (const an_init_row &row : rows)
    row.routine();
}

// Power advice is asked for rule by rule: none of its messages is on by itself.
void turn_off_power_advice_messages() {
  for (int code = 1; code < num_error_codes; ++code) {
    const char *tag = tag_for_error_code(code);
    if (tag != nullptr && std::strncmp(tag, "pwa_", 4) == 0) {
      set_severity_for_error_number(code, es_none, nullptr, true);
    }
  }
}

// The settings that the later phases read from the IL.
void copy_settings_to_il_header() {
  il_header.plain_char_is_signed = targ_has_signed_chars;
  il_header.source_language = in_cplusplus() ? sl_cplusplus : sl_c;
  il_header.std_version = std_version;
  il_header.short_enums_in_use = enum_types_can_be_smaller_than_int;
  il_header.target_configuration_index = target_configuration_index;
}

void open_pp_output() {
  static char buffer[0x10000];  // the text of large headers goes out in few steps
  if (pp_file_name == nullptr) {
    f_pp_output = stdout;
    if (isatty(STDOUT_FILENO)) return;
  } else {
    f_pp_output = open_output_file_with_error_handling(pp_file_name, false, false, 0, ect_1787);
    note_begun_output(pp_file_name);
  }
  std::setvbuf(f_pp_output, buffer, _IOFBF, sizeof buffer);
}

}  // namespace

void fe_early_init() {
  reset_switches();
  connect_diagnostics();
  run_rows(early_rows);
  depth_scope_stack = -1;
  set_multibyte_locale();
  turn_off_power_advice_messages();
}

void fe_one_time_init() {
  pos_curr_token = null_source_position;
  error_position = null_source_position;
  if (multibyte_chars_in_source_enabled) set_multibyte_locale();
  run_rows(one_time_rows);
}

void fe_init_part_1() {
  static char date[32];
  const std::time_t now = std::time(nullptr);
  std::strncpy(date, std::ctime(&now), sizeof date - 1);
  compilation_date_string = date;
  in_front_end = true;
  depth_stmt_stack = -1;
  run_rows(init_rows);
  if (object_file_name == nullptr) {
    object_file_name = derived_name(primary_source_file_name, ".obj");
  }
  copy_settings_to_il_header();
  if (pp_output_file_needed) open_pp_output();
  if (!do_preprocessing_only && !suppress_il_file_write) {
    str_catastrophe(ec_not_supported, "a file of the front end's own IL is");
  }
}

void fe_translation_unit_init() {
  pos_curr_token = null_source_position;
  error_position = null_source_position;
  run_rows(trans_unit_rows);
  enter_all_keywords();
  init_predefined_macros(compilation_date_string);
  push_file_scope(false);  // makes the unit's file scope
  enter_system_specific_predeclared_symbols();
}

void fe_init_part_2() {
  a_translation_unit *unit = curr_translation_unit;
  open_file_and_push_input_stack(trans_unit_file_name, false, false, false, false, false, false,
                                 false, false, nullptr);
  unit->primary_source_file = curr_ise->source_file;
  process_macro_preincludes();  // while no line of the source is read
  push_next_preinclude_file();
  read_logical_source_line(true, false);
}
