// The end of a scope: what was declared there and never defined, used or set; and the end of a
// function's definition.
//
// The remarks on unused entities come at the severity "remark", so only a run that asks for remarks
// sees them; what cannot be linked is reported in every run.
#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il_alloc.h"
#include "il/il_entity.h"
#include "il/il_kinds.h"
#include "il/src_seq.h"
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
