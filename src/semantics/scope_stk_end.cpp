// The end of a scope: what was declared there and never defined, used or set; and the end of a
// function's definition.
// Also here: what a unit must keep, the start of the walk over everything that is needed.
//
// The remarks on unused entities come at the severity "remark", so only a run that asks for remarks
// sees them; what cannot be linked is reported in every run.
#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il_alloc.h"
#include "il/il_check.h"
#include "il/il_entity.h"
#include "il/il_kinds.h"
#include "il/il_walk.h"
#include "il/src_seq.h"
#include "lower/lower_il.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"

namespace {

bool may_stay_unused(const a_source_correspondence *entity) {
  return entity == nullptr || entity->marked_as_used || entity->marked_as_unused ||
         entity->decl_position.seq == 0 || seq_is_in_system_header(entity->decl_position.seq);
}

// goto l;  with no l: in the function.  And labels that nothing jumps to.
void check_label(a_symbol *symbol) {
  a_label *label = symbol->variant.label;
  if (!symbol->defined) {
    if (symbol->undefined_use_reported) return;
    symbol->undefined_use_reported = true;
    // A declaration "__label__ l;" alone asks for nothing.
    if (symbol->referenced || !symbol->is_declared_label)
      pos_sy_error(ec_never_defined, &symbol->decl_position, symbol);
    return;
  }
  if (!symbol->referenced && !may_stay_unused(label))
    pos_sy_remark(ec_declared_but_not_referenced, &symbol->decl_position, symbol);
}

void check_local_variable(a_symbol *symbol) {
  a_variable *variable = symbol->variant.variable;
  if (variable == nullptr || variable->is_compiler_generated || may_stay_unused(variable)) return;
  if (is_block_extern_symbol(symbol)) return;
  if (symbol->kind == syk_parameter || variable->is_parameter) {
    if (!symbol->referenced && !symbol->value_set)
      pos_sy_remark(ec_unreferenced_function_param, &symbol->decl_position, symbol);
    return;
  }
  if (!symbol->referenced && !symbol->value_used && !symbol->value_set)
    pos_sy_remark(ec_declared_but_not_referenced, &symbol->decl_position, symbol);
  else if (symbol->value_set && !symbol->value_used)
    pos_sy_remark(ec_set_but_not_used, &symbol->decl_position, symbol);
}

void check_static_variable(a_symbol *symbol) {
  a_variable *variable = symbol->variant.variable;
  if (variable == nullptr || variable->storage_class != sc_static || may_stay_unused(variable))
    return;
  if (!symbol->referenced && !symbol->value_used && !variable->is_compiler_generated)
    pos_sy_remark(ec_declared_but_not_referenced, &symbol->decl_position, symbol);
}

// static int f(void);  called and nowhere defined, or defined and never called.
void check_routine(a_symbol *symbol) {
  a_routine *routine = symbol->variant.routine;
  if (routine == nullptr || routine->is_compiler_generated ||
      routine->special_data.builtin_number != 0)
    return;
  bool used = symbol->referenced || routine->referenced;
  if (routine->defined || routine->alias_target != nullptr) {
    if (!used && routine->storage_class == sc_static && !routine->is_inline &&
        !may_stay_unused(routine))
      pos_sy_remark(ec_declared_but_not_referenced, &symbol->decl_position, symbol);
    return;
  }
  if (!used || symbol->undefined_use_reported) return;
  if (routine->storage_class == sc_static) {
    symbol->undefined_use_reported = true;
    pos_sy_warning(routine->is_inline ? ec_inline_never_defined : ec_never_defined,
                   &symbol->decl_position, symbol);
  } else if (in_cplusplus() && routine->is_inline) {
    symbol->undefined_use_reported = true;
    pos_sy_warning(ec_inline_never_defined, &symbol->decl_position, symbol);
  }
}

}  // namespace

void wrapup_scope(a_scope *, a_scope_kind kind, a_scope_pointers_block *pointers) {
  const bool is_function_part = kind == sck_block || kind == sck_function || kind == sck_condition;
  const bool is_file_part = kind == sck_file || kind == sck_namespace;
  if (!is_function_part && !is_file_part) return;
  for (a_symbol *symbol = pointers->first_symbol; symbol != nullptr;
       symbol = symbol->next_in_scope) {
    if (symbol->is_error_symbol) continue;
    switch (symbol->kind) {
      case syk_label:
        check_label(symbol);
        break;
      case syk_variable:
      case syk_parameter:
        if (is_function_part)
          check_local_variable(symbol);
        else
          check_static_variable(symbol);
        break;
      case syk_routine:
        if (is_file_part) check_routine(symbol);
        break;
      default:
        break;
    }
  }
}

void routine_defined(a_routine *routine) {
  routine->defined = true;
}

namespace {

void lower_body(const a_function_def_entry &entry) {
  a_routine *routine = entry.scope->assoc.routine;
  if (routine->body_lowered) return;
  check_function_il_or_stop(routine, icp_after_parsing);
  lower_function_scope(routine, entry.scope);
  if (total_errors == 0) check_function_il_or_stop(routine, icp_after_lowering);
}

}  // namespace

// What remains to be done for a body when it is complete (C) or the unit is (C++). Bodies of a unit
// with errors go nowhere. The rest of the body's memory goes to the next one.
void finish_function_processing_for_function_def(int function_def_number) {
  const a_function_def_entry &entry = function_def_table[function_def_number];
  if (entry.scope == nullptr || mem_region_table[entry.region] == nullptr) return;
  if (!suppress_il_lowering && total_errors == 0) lower_body(entry);
  check_for_done_with_memory_region(entry.region);
}

// Namespaces that were closed and may have been opened again are checked when the unit ends.
void wrapup_namespace_scopes() {
  for (a_namespace *name_space = il_header.primary_scope->namespaces; name_space != nullptr;
       name_space = name_space->next) {
    if (name_space->is_alias || name_space->scope == nullptr) continue;
    a_scope_pointers_block *pointers = get_pointers_block_for_scope(name_space->scope);
    if (pointers != nullptr) wrapup_scope(name_space->scope, sck_namespace, pointers);
  }
}

// ---- What is needed ----------------------------------------------------------------------------

namespace {

bool has_external_linkage(const a_source_correspondence *entity, a_storage_class storage_class) {
  return storage_class != sc_static && entity->name_linkage != nlk_internal;
}

bool is_asked_for_from_outside(const a_routine *routine) {
  return routine->marked_as_used || routine->never_removed || routine->is_retained ||
         routine->is_interrupt || routine->is_constructor_function ||
         routine->alias_target != nullptr;
}

// An inline routine of C with external linkage is emitted if a declaration of it lacks "inline" or
// says "extern"; with gnu_inline such a declaration says that the body is elsewhere.
bool inline_definition_is_external(const a_routine *routine) {
  return !in_cplusplus() && routine->extern_inline_seen && !routine->gnu_inline;
}

bool routine_is_needed(const a_routine *routine) {
  if (routine->alias_target != nullptr) return true;
  if (!routine->defined) return false;
  if (!remove_unneeded_entities || is_asked_for_from_outside(routine)) return true;
  if (!has_external_linkage(routine, routine->storage_class))
    return keep_unneeded_statics && !routine->is_inline;
  if (routine->is_template_instance || routine->is_compiler_generated) return false;
  return !routine->is_inline || inline_definition_is_external(routine);
}

bool variable_is_needed(const a_variable *variable) {
  if (variable->alias_target != nullptr) return true;
  bool is_definition = variable->defined || variable->is_tentative;
  if (!is_definition) return false;
  if (!remove_unneeded_entities || variable->marked_as_used || variable->never_removed) return true;
  if (variable->init_kind == init_dynamic) return true;
  if (variable->is_template_instance || variable->is_compiler_generated) return false;
  return keep_unneeded_statics || has_external_linkage(variable, variable->storage_class);
}

}  // namespace

void set_needed_flags_at_end_of_file_scope(a_scope *file_scope) {
  end_of_file_scope_needed_flags_phase = true;
  for (a_routine *routine = file_scope->routines; routine != nullptr; routine = routine->next) {
    if (!routine_is_needed(routine)) continue;
    mark_as_needed(routine, iek_routine);
    if (routine->defined) set_routine_definition_needed(routine);
    if (routine->alias_target != nullptr) mark_as_needed(routine->alias_target, iek_routine);
  }
  for (a_variable *variable = file_scope->variables; variable != nullptr;
       variable = variable->next) {
    if (!variable_is_needed(variable)) continue;
    mark_as_needed(variable, iek_variable);
    if (variable->alias_target != nullptr) mark_as_needed(variable->alias_target, iek_variable);
  }
  if (!remove_unneeded_entities || keep_unneeded_types)
    for (a_type *type = file_scope->types; type != nullptr; type = type->next)
      mark_as_needed(type, iek_type);
  end_of_file_scope_needed_flags_phase = false;
}
