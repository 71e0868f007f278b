// The end of the front end.
//
// What the back end gets is decided here: the definitions that somebody outside may use are marked,
// everything that they reach is marked with them, and the rest leaves the IL.
#include "driver/fe_wrapup.h"

#include <cerrno>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il.h"
#include "il/il_alloc.h"
#include "il/il_check.h"
#include "il/il_walk.h"
#include "lower/lower_il.h"
#include "lower/lower_name.h"
#include "semantics/folding.h"
#include "semantics/scope_stk.h"
#include "source/lexical.h"
#include "source/macro.h"
#include "source/pp_output.h"
#include "source/preproc.h"

namespace {

// What the unit still owes when its last token is read.
void end_of_unit_step(a_translation_unit *unit) {
  switch_translation_unit(unit);
  lexical_trans_unit_wrapup();
  wrapup_scope(unit->file_scope, sck_file, scope_stack[depth_scope_stack].pointers);
  if (in_cplusplus()) wrapup_namespace_scopes();
  if (il_lowering_needed()) do_all_name_mangling(0);
}

void mark_and_eliminate(a_translation_unit *unit) {
  if (total_errors != 0) {
    okay_to_eliminate_unneeded_il_entries = false;
    return;
  }
  set_needed_flags_at_end_of_file_scope(unit->file_scope);
  mark_to_keep_in_il(unit->file_scope, iek_scope);
}

void eliminate_unneeded(a_translation_unit *unit) {
  if (total_errors != 0) {
    okay_to_eliminate_unneeded_il_entries = false;
    return;
  }
  if (!okay_to_eliminate_unneeded_il_entries) return;
  eliminate_bodies_of_unneeded_functions(unit->file_scope);
  eliminate_unneeded_il_entries(unit->file_scope);
}

// Lowers what was put off, once all instances exist and have their names.
void lower_delayed_functions() {
  if (!function_body_processing_delayed_on_some_func_in_primary_il) return;
  for (int number = 1; number <= highest_used_function_def_number; ++number) {
    finish_function_processing_for_function_def(number);
  }
  function_body_processing_delayed_on_some_func_in_primary_il = false;
}

void end_of_file_scope_step(a_translation_unit *unit) {
  lower_file_scope();
  empty_shareable_constants_table();
  pop_scope();
  mark_and_eliminate(unit);
  if (il_lowering_needed()) do_final_name_mangling();
  eliminate_unneeded(unit);
  check_for_done_with_all_function_memory_regions();
  if (il_lowering_needed()) clear_parent_information(unit->file_scope);
  check_for_done_with_memory_region(unit->file_scope_region_number);
}

}  // namespace

void fe_wrapup() {
  a_translation_unit *primary = primary_translation_unit();
  switch_translation_unit(primary);
  for (a_translation_unit *unit = primary->next; unit != nullptr; unit = unit->next) {
    end_of_unit_step(unit);
  }
  if (list_macros) gen_listing_of_macros();
  if (list_macro_definitions) gen_pp_output_for_macro_definitions();
  end_of_unit_step(primary);
  check_il_or_stop(icp_after_parsing);
  lower_delayed_functions();
  end_of_file_scope_step(primary);
  if (total_errors == 0) check_il_or_stop(icp_after_lowering);

  close_output_file_with_error_handling(&f_pp_output, ect_1787);
  if (pp_file_name != nullptr) forget_begun_output(pp_file_name);
  close_output_file_with_error_handling(&f_xref_info, ect_1789);
  curr_stop_token_stack_entry = nullptr;
  in_front_end = false;
}

void fe_wrapup_part_2() {
  if (f_raw_listing != nullptr) {
    std::FILE *listing = f_raw_listing;
    f_raw_listing = nullptr;
    const bool failed = std::fflush(listing) != 0 || std::ferror(listing) != 0;
    if (std::fclose(listing) != 0 || failed) {
      str_catastrophe(ec_file_write_error, error_text(ect_1788));
    }
  }
  write_signoff();
  free_all_memory_regions();
}
