// Variables: tentative and other definitions, extern declarations, locals.
//
// The storage class of the IL tells what a variable is: sc_none a definition with external linkage
// (in C a tentative one until an initializer comes), sc_extern a declaration only, sc_static
// internal linkage or a local of static duration. Every declaration with linkage finds the one
// a_variable of its name, which lives at file scope also when the first declaration stands in a
// block.
#include <cstring>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "il/il_entity.h"
#include "parser/attribute.h"
#include "parser/decl_spec.h"
#include "parser/decls_internal.h"
#include "parser/extasm.h"
#include "parser/statements.h"
#include "semantics/layout.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "target/pragma.h"

a_variable *make_variable(a_type *type, std::uint8_t storage_class, int scope_depth) {
  a_variable *variable = alloc_variable(static_cast<a_storage_class>(storage_class));
  variable->type = type;
  add_to_variables_list(variable, scope_depth);
  return variable;
}

namespace {

// One variable declaration.
struct a_variable_decl {
  a_symbol_locator *locator;
  a_decl_parse_state *state;
  a_type *type;
  a_source_position position;
  bool is_definition;  // it has an initializer
  bool at_file_scope;
  a_prior_declaration prior;
};

a_storage_class il_storage_class(const a_variable_decl &decl) {
  switch (decl.state->storage_class) {
    case dsc_extern:
      return decl.is_definition && decl.at_file_scope ? sc_none : sc_extern;
    case dsc_static:
      return sc_static;
    case dsc_register:
      return sc_register;
    default:
      return decl.at_file_scope ? sc_none : sc_auto;
  }
}

// static int x; int x;     extern int x; static int x;
// The first declaration decides, after a message.
void merge_storage_class(a_variable_decl &decl, a_variable *variable, a_symbol *previous) {
  a_storage_class now = il_storage_class(decl);
  bool was_internal = variable->storage_class == sc_static;
  bool is_internal = now == sc_static;
  if (was_internal && decl.state->storage_class == dsc_extern) return;
  if (was_internal != is_internal) {
    report_linkage_conflict(&decl.position, previous);
    if (decl.is_definition && variable->storage_class == sc_extern)
      variable->storage_class = sc_none;
    return;
  }
  if (variable->storage_class == sc_extern && now == sc_none) variable->storage_class = sc_none;
}

void merge_type(a_variable_decl &decl, a_symbol *previous, a_variable *variable) {
  a_type *old_type = variable->type;
  if (old_type == decl.type) return;
  if (f_types_are_compatible(old_type, decl.type, tcf_error_is_compatible)) {
    if (is_error_type(old_type)) return;
    if (!is_error_type(decl.type)) variable->type = composite_type(old_type, decl.type);
    return;
  }
  bool tolerated = SVR4_C_mode;
  pos_sy_diagnostic(tolerated ? es_warning : es_error, ec_not_compatible_with_previous_decl,
                    &decl.position, previous);
  if (!tolerated) decl.state->has_error = true;
}

a_symbol *redeclare_variable(a_variable_decl &decl, a_symbol *previous) {
  a_variable *variable = previous->variant.variable;
  merge_type(decl, previous, variable);
  merge_storage_class(decl, variable, previous);
  if (decl.is_definition) variable->decl_position = decl.position;
  record_symbol_declaration(decl.is_definition ? dk_definition : dk_declaration, previous,
                            &decl.position, variable);
  return previous;
}

// The variable of a name with linkage that some block has declared before its file-scope
// declaration.
a_symbol *adopt_external_variable(a_variable_decl &decl, int depth) {
  a_symbol *external = decl.prior.external;
  a_variable *variable = external->variant.variable;
  if (reconcile_external_symbol_types(external, &decl.position, decl.type, es_error))
    merge_type(decl, external, variable);
  else
    decl.state->has_error = true;
  if (decl.at_file_scope) merge_storage_class(decl, variable, external);
  a_symbol *symbol = enter_symbol(syk_variable, decl.locator, depth, 0);
  symbol->variant.variable = variable;
  if (decl.at_file_scope)
    set_source_corresp_with_scope_depth(variable, symbol, depth);
  else
    symbol->block_extern = external;
  return symbol;
}

// extern int x;   in a block: the entity is at file scope, the name only here.
a_symbol *declare_block_extern(a_variable_decl &decl) {
  a_symbol *visible = decl.prior.visible;
  if (visible != nullptr && visible->kind == syk_variable && decl.prior.external == nullptr) {
    a_variable *variable = visible->variant.variable;
    merge_type(decl, visible, variable);
    a_symbol *symbol = enter_symbol(syk_variable, decl.locator, decl_scope_level, 0);
    symbol->variant.variable = variable;
    symbol->block_extern = visible->block_extern;
    return symbol;
  }
  if (visible != nullptr && visible->kind != syk_variable) {
    report_name_conflict(decl.locator, visible, decl.state);
  } else if (decl.prior.external != nullptr) {
    if (decl.prior.external->kind == syk_extern_variable ||
        decl.prior.external->kind == syk_variable)
      return adopt_external_variable(decl, decl_scope_level);
    report_name_conflict(decl.locator, decl.prior.external, decl.state);
  }
  a_variable *variable = make_variable(decl.type, sc_extern, 0);
  a_symbol_locator copy = fresh_locator(decl.locator);
  a_symbol *external = enter_extern_symbol(syk_extern_variable, &copy);
  external->variant.variable = variable;
  external->extra.composite_type = decl.type;
  a_symbol *symbol = enter_symbol(syk_variable, decl.locator, decl_scope_level, 0);
  symbol->variant.variable = variable;
  symbol->block_extern = external;
  set_source_corresp_with_scope_depth(variable, symbol, 0);
  return symbol;
}

a_symbol *declare_new_variable(a_variable_decl &decl) {
  int depth = decl_scope_level;
  if (decl.at_file_scope && decl.prior.external != nullptr) {
    if (decl.prior.external->kind == syk_extern_variable)
      return adopt_external_variable(decl, depth);
    report_name_conflict(decl.locator, decl.prior.external, decl.state);
  }
  a_variable *variable = make_variable(decl.type, il_storage_class(decl), depth);
  a_symbol *symbol = enter_symbol(syk_variable, decl.locator, depth, 0);
  symbol->variant.variable = variable;
  set_source_corresp_with_scope_depth(variable, symbol, depth);
  record_symbol_declaration(dk_definition, symbol, &decl.position, variable);
  return symbol;
}

// A name that this scope has already: a redeclaration only where both have linkage.
a_symbol *declare_again(a_variable_decl &decl) {
  a_symbol *previous = decl.prior.in_scope;
  bool is_extern = decl.state->storage_class == dsc_extern;
  if (previous->kind != syk_variable) {
    report_name_conflict(decl.locator, previous, decl.state);
    return nullptr;
  }
  bool both_linked = decl.at_file_scope || (is_extern && previous->block_extern != nullptr) ||
                     (is_extern && previous->variant.variable->storage_class <= sc_extern);
  if (both_linked) return redeclare_variable(decl, previous);
  if (!decl.state->has_error)
    pos_st_error(ec_id_already_declared, &decl.position, decl.locator->header->name);
  decl.state->has_error = true;
  return nullptr;
}

// The name cannot be declared: a variable that no lookup finds takes the initializer.
a_symbol *make_error_variable(a_variable_decl &decl) {
  a_symbol *symbol = make_symbol(syk_variable, decl.locator);
  symbol->is_error_symbol = true;
  a_variable *variable = alloc_variable(decl.at_file_scope ? sc_static : sc_auto);
  variable->type = decl.type;
  symbol->variant.variable = variable;
  return symbol;
}

// register int x asm("r4");   ties a variable to a register; elsewhere the name is the external
// one.
void apply_asm_name(a_variable_decl &decl, a_variable *variable) {
  a_decl_parse_state *state = decl.state;
  if (state->asm_name == nullptr) {
    if (state->register_at_file_scope && gcc_mode && !in_cplusplus())
      pos_error(ec_bad_file_scope_storage_class, &decl.position);
    return;
  }
  bool is_register = state->storage_class == dsc_register || state->register_at_file_scope;
  if (is_register) {
    if (name_to_register(state->asm_name) == invalid_register)
      pos_st_error(ec_bad_reg_name, &state->asm_name_pos, state->asm_name);
    else
      pos_st_error(ec_not_supported, &state->asm_name_pos,
                   "a register variable tied to a register is");
    return;
  }
  if (variable->asm_name != nullptr && std::strcmp(variable->asm_name, state->asm_name) != 0) {
    pos_error(ec_asm_name_conflict, &state->asm_name_pos);
    return;
  }
  variable->asm_name = state->asm_name;
}

void check_variable_type(a_variable_decl &decl) {
  if (is_variably_modified_type(decl.type)) {
    if (decl.state->storage_class == dsc_extern || decl.at_file_scope)
      pos_error(ec_variably_modified_type_not_allowed, &decl.position);
    else if (decl.state->storage_class == dsc_static && is_vla_type(decl.type))
      pos_error(ec_vla_is_not_auto, &decl.position);
  }
  if (is_void_type(decl.type) && decl.state->storage_class != dsc_extern) {
    pos_ty_error(ec_incomplete_type_not_allowed, &decl.position, decl.type);
    decl.type = error_type();
    decl.state->declared_type = decl.type;
    decl.state->has_error = true;
  }
}

void set_variable_marks(a_variable_decl &decl, a_variable *variable) {
  variable->declared_storage_class = static_cast<a_storage_class>(decl.state->storage_class);
  if (decl.at_file_scope) variable->is_file_scope = true;
  variable->is_extern_block_decl = !variable->is_file_scope && variable->storage_class == sc_extern;
  variable->defined = variable->storage_class != sc_extern;
  variable->is_tentative = decl.at_file_scope && variable->defined && !in_cplusplus() &&
                           !decl.is_definition && variable->init_kind == init_none;
  variable->decl_modifiers |= decl.state->decl_modifiers;
}

}  // namespace

a_symbol *decl_variable(a_symbol_locator *locator, a_decl_parse_state *state, bool is_definition) {
  a_variable_decl decl = {};
  decl.locator = locator;
  decl.state = state;
  decl.position = locator->position;
  decl.is_definition = is_definition;
  decl.at_file_scope = declaring_at_file_scope();
  decl.type = state->declared_type;
  check_variable_type(decl);
  bool is_block_extern = !decl.at_file_scope && state->storage_class == dsc_extern;
  decl.prior = find_prior_declaration(locator, is_block_extern);
  a_symbol *symbol = nullptr;
  if (decl.prior.in_scope != nullptr)
    symbol = declare_again(decl);
  else if (is_block_extern)
    symbol = declare_block_extern(decl);
  else
    symbol = declare_new_variable(decl);
  if (symbol == nullptr) symbol = make_error_variable(decl);
  state->symbol = symbol;
  a_variable *variable = symbol->variant.variable;
  state->static_storage = variable->storage_class < sc_auto;
  set_variable_marks(decl, variable);
  apply_asm_name(decl, variable);
  if (variable->asm_name != nullptr) record_asm_name_for_lookup(symbol);
  if (state->storage_class != dsc_extern) apply_variable_block_section_specification(variable);
  if (!decl.at_file_scope)
    record_entity_in_decl_stmt_if_needed(reinterpret_cast<char *>(variable), iek_variable,
                                         &decl.position);
  return symbol;
}

void complete_tentative_definitions() {
  if (in_cplusplus()) return;
  for (a_variable *variable = il_header.primary_scope->variables; variable != nullptr;
       variable = variable->next) {
    if (variable->storage_class == sc_extern || variable->init_kind != init_none) continue;
    a_type *type = variable->type;
    if (is_error_type(type)) continue;
    if (is_incomplete_array_type(type) && !is_incomplete_type(array_element_type(type))) {
      pos_warning(ec_array_size_one_assumed, &variable->decl_position);
      variable->type = make_array_type(array_element_type(type), 1);
    } else if (is_incomplete_type(type)) {
      pos_ty_error(ec_incomplete_type_not_allowed, &variable->decl_position, type);
      variable->type = error_type();
    }
  }
}
