// What earlier declarations of a name mean for a new one, and the type that all of them make
// together.
//
// Three symbols can matter. The one in the scope of the declaration itself: a redeclaration. For an
// extern inside a block: the declaration with linkage that is visible there. And the external
// symbol that the table keeps for all block-scope externs of the name: it holds the composite type
// also when none of those blocks is open any more, so that two functions cannot disagree about
// "extern int x".
#include "DIAG/error.h"
#include "driver/switches.h"
#include "parser/decl_spec.h"
#include "parser/decls_internal.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"

a_symbol_locator fresh_locator(const a_symbol_locator *locator) {
  a_symbol_locator copy = *locator;
  copy.symbol = nullptr;
  return copy;
}

namespace {

bool has_linkage(const a_symbol *symbol) {
  if (symbol->kind == syk_routine) return true;
  if (symbol->kind != syk_variable) return false;
  return symbol->block_extern != nullptr || !is_local_symbol(symbol);
}

}  // namespace

a_prior_declaration find_prior_declaration(a_symbol_locator *locator, bool is_block_extern) {
  a_prior_declaration prior = {};
  a_symbol_locator copy = fresh_locator(locator);
  prior.in_scope = curr_scope_id_lookup(&copy, lookup_in_declarator);
  if (is_block_extern) {
    copy = fresh_locator(locator);
    a_symbol *visible = normal_id_lookup(&copy, lookup_in_declarator);
    if (visible != nullptr && has_linkage(visible)) prior.visible = visible;
  }
  prior.external = find_external_symbol(locator->header);
  return prior;
}

void report_name_conflict(a_symbol_locator *locator, a_symbol *previous,
                          a_decl_parse_state *state) {
  if (!previous->is_error_symbol && previous->kind != syk_undefined && !state->has_error)
    pos_sy_error(ec_not_compatible_with_previous_decl, &locator->position, previous);
  state->has_error = true;
}

void report_linkage_conflict(const a_source_position *position, a_symbol *) {
  pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning, ec_linkage_conflict,
                 position);
}

bool reconcile_external_symbol_types(a_symbol *external_symbol, const a_source_position *position,
                                     a_type *type, int severity) {
  a_type *previous = type_of_symbol(external_symbol);
  if (previous == nullptr || previous == type) return true;
  if (f_types_are_compatible(previous, type, tcf_error_is_compatible)) {
    set_type_of_symbol(external_symbol, composite_type(previous, type));
    return true;
  }
  if (is_error_type(previous) || is_error_type(type)) return true;
  if (SVR4_C_mode) severity = severity > es_warning ? es_warning : severity;
  an_error_code code = is_block_extern_symbol(external_symbol)
                           ? ec_decl_incompatible_with_previous_use
                           : ec_not_compatible_with_previous_decl;
  pos_sy_diagnostic(severity, code, position, external_symbol);
  return false;
}
