// Typedef names.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/decl_spec.h"
#include "parser/decls_internal.h"
#include "semantics/layout.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"

#include <cstring>

namespace {

// typedef int T; typedef int T;   C11 allows the same type again.
a_symbol *redeclare_typedef(a_symbol *previous, a_symbol_locator *locator,
                            a_decl_parse_state *state) {
  if (previous->kind != syk_type) {
    report_name_conflict(locator, previous, state);
    return nullptr;
  }
  a_type *old_type = previous->variant.type;
  if (is_error_type(old_type) || is_error_type(state->declared_type)) return previous;
  if (!f_identical_types(old_type, state->declared_type, 0)) {
    pos_sy_error(ec_bad_type_name_redeclaration, &locator->position, previous);
    state->has_error = true;
    return previous;
  }
  if (!in_cplusplus() && std_version < 201112 && strict_ansi_mode)
    pos_st_diagnostic(strict_ansi_discretionary_severity, ec_id_already_declared,
                      &locator->position, locator->header->name);
  return previous;
}

void check_size_t(const a_symbol_locator *locator, a_type *type) {
  if (std::strcmp(locator->header->name, "size_t") != 0 || is_error_type(type)) return;
  type = skip_typerefs(type);
  if (type->kind == tk_integer && type->int_kind == targ_size_t_int_kind) return;
  pos_warning(ec_unexpected_type_for_size_t, &locator->position);
}

// typedef struct { int a; } S;
void name_unnamed_tag(a_type *type, a_symbol_locator *locator) {
  if (type->kind == tk_typeref || type->symbol == nullptr) return;
  if (!is_unnamed_tag_symbol(type->symbol) || !in_cplusplus()) return;
  a_symbol_locator copy = fresh_locator(locator);
  relink_unnamed_tag_symbol(type->symbol, &copy);
  set_name_linkage_for_type(type);
}

}  // namespace

a_symbol *decl_typedef(a_symbol_locator *locator, a_decl_parse_state *state, a_type *,
                       a_decl_pos_block *) {
  a_type *type = state->declared_type;
  a_symbol_locator copy = fresh_locator(locator);
  a_symbol *previous = curr_scope_id_lookup(&copy, lookup_in_declarator);
  if (state->auto_type != nullptr) pos_error(ec_auto_not_allowed_here, &state->specifiers_pos);
  if (previous != nullptr) {
    state->symbol = redeclare_typedef(previous, locator, state);
    return state->symbol;
  }
  if (declaring_at_file_scope()) check_size_t(locator, type);
  a_type *named = alloc_type(tk_typeref);
  named->referenced_type = type;
  named->size = type->size;
  named->alignment = type->alignment;
  a_symbol *symbol = enter_typedef_symbol(named, locator, decl_scope_level, 0);
  set_source_corresp_with_scope_depth(named, symbol, decl_scope_level);
  add_to_types_list(named, decl_scope_level);
  name_unnamed_tag(type, locator);
  record_symbol_declaration(dk_definition, symbol, &locator->position, named);
  state->symbol = symbol;
  return symbol;
}
