// One translation unit: its record, its parse, its end, and the switching between units.
#include "driver/trans_unit.h"

#include <cstring>

#include "DIAG/error.h"
#include "UTIL/basics.h"
#include "driver/fe_init.h"
#include "driver/host_envir.h"
#include "driver/switches.h"
#include "driver/trans_unit_internal.h"
#include "il/il_alloc.h"
#include "il/src_seq.h"
#include "lower/lower_il.h"
#include "parser/decls.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "source/lexical.h"
#include "source/preproc.h"

a_translation_unit *curr_translation_unit;
a_translation_unit *translation_units;
a_trans_unit_stack_entry *curr_translation_unit_stack_entry;
int secondary_trans_units_on_stack;

namespace {

a_translation_unit *end_of_translation_units;
a_trans_unit_stack_entry *avail_trans_unit_stack_entries;

a_translation_unit *alloc_translation_unit(an_exported_template_file *file) {
  auto *unit = static_cast<a_translation_unit *>(
      alloc_in_region(permanent_region, sizeof(a_translation_unit)));
  *unit = {};
  const std::size_t size = size_of_trans_unit_variables();
  unit->saved_variables = static_cast<char *>(alloc_in_region(permanent_region, size));
  std::memset(unit->saved_variables, 0, size);
  unit->exported_template_file = file;
  unit->is_ordinary_unit = file == nullptr;
  return unit;
}

void add_to_translation_units(a_translation_unit *unit) {
  (end_of_translation_units != nullptr ? end_of_translation_units->next : translation_units) = unit;
  end_of_translation_units = unit;
}

}  // namespace

void translation_unit_wrapup() {
  pop_scope();
  push_file_scope(true);
  make_module_id(nullptr);
  lower_functions_waiting_for_module_id();
}

void begin_translation_unit(const char *name, int is_primary, an_exported_template_file *file) {
  if (curr_translation_unit != nullptr) save_trans_unit_variables(curr_translation_unit);
  pos_curr_token = null_source_position;
  error_position = null_source_position;
  is_primary_translation_unit = is_primary;
  translation_unit_needed_only_for_exported_templates = file != nullptr;
  trans_unit_file_name = name;
  compute_il_prefix_size();
  if (is_primary) fe_init_part_1();

  a_translation_unit *unit = alloc_translation_unit(file);
  fix_up_translation_unit(unit);
  add_to_translation_units(unit);
  curr_translation_unit = unit;
  push_translation_unit_stack(unit);
  fe_translation_unit_init();
  unit->file_scope_region_number = file_scope_region_number;
}

void process_translation_unit(const char *name, int is_primary, an_exported_template_file *file) {
  begin_translation_unit(name, is_primary, file);
  fe_init_part_2();
  if (do_preprocessing_only)
    cpp_driver();
  else
    translation_unit();
  translation_unit_wrapup();
  pop_translation_unit_stack();
}

// ---- Switching ---------------------------------------------------------------------------------

void switch_translation_unit(a_translation_unit *unit) {
  if (unit == curr_translation_unit) return;
  save_trans_unit_variables(curr_translation_unit);
  curr_translation_unit = unit;
  load_trans_unit_variables(unit);
}

void push_translation_unit_stack(a_translation_unit *unit) {
  a_trans_unit_stack_entry *entry = avail_trans_unit_stack_entries;
  if (entry != nullptr) {
    avail_trans_unit_stack_entries = entry->next;
  } else {
    entry =
        static_cast<a_trans_unit_stack_entry *>(alloc_general(sizeof(a_trans_unit_stack_entry)));
  }
  entry->translation_unit = unit;
  entry->next = curr_translation_unit_stack_entry;
  curr_translation_unit_stack_entry = entry;
  if (unit != primary_translation_unit()) ++secondary_trans_units_on_stack;
  switch_translation_unit(unit);
}

void pop_translation_unit_stack() {
  a_trans_unit_stack_entry *entry = curr_translation_unit_stack_entry;
  check_invariant(entry != nullptr);
  curr_translation_unit_stack_entry = entry->next;
  if (entry->translation_unit != primary_translation_unit()) --secondary_trans_units_on_stack;
  entry->next = avail_trans_unit_stack_entries;
  avail_trans_unit_stack_entries = entry;
  if (curr_translation_unit_stack_entry != nullptr) {
    switch_translation_unit(curr_translation_unit_stack_entry->translation_unit);
  }
}

bool push_translation_unit_if_needed(a_symbol *symbol) {
  a_translation_unit *unit = trans_unit_for_symbol(symbol);
  if (unit == nullptr || unit == curr_translation_unit) return false;
  push_translation_unit_stack(unit);
  return true;
}

a_trans_unit_corresp *alloc_trans_unit_corresp() {
  constexpr std::size_t size = 3 * sizeof(void *);
  void *record = alloc_in_region(permanent_region, size);
  std::memset(record, 0, size);
  return static_cast<a_trans_unit_corresp *>(record);
}

// ---- Phases ------------------------------------------------------------------------------------

void trans_unit_early_init() {
  forget_trans_unit_variables();
  trans_unit_init();
}

void trans_unit_one_time_init() {
  register_trans_unit_variable(&is_primary_translation_unit);
  register_trans_unit_variable(&trans_unit_file_name);
  register_trans_unit_variable(&translation_unit_needed_only_for_exported_templates);
}

void trans_unit_init() {
  curr_translation_unit = translation_units = end_of_translation_units = nullptr;
  translation_unit_needed_only_for_exported_templates = false;
  curr_translation_unit_stack_entry = nullptr;
  secondary_trans_units_on_stack = 0;
}
