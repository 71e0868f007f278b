// Functions: declarations and redeclarations, the composite type of a function, and main.
//
// One a_routine stands for all declarations of a name with linkage; its type is the composite of
// theirs. A definition leads: its own parameter list, with what earlier prototypes knew about it.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "il/il_entity.h"
#include "parser/attribute.h"
#include "parser/decl_spec.h"
#include "parser/declarator.h"
#include "parser/decls_internal.h"
#include "parser/statements.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/pragma.h"

a_routine *make_routine(a_type *type, std::uint8_t storage_class, int scope_depth) {
  a_routine *routine = alloc_routine();
  routine->type = type;
  routine->storage_class = static_cast<a_storage_class>(storage_class);
  add_to_routines_list(routine, scope_depth);
  return routine;
}

namespace {

// One function declaration.
struct a_routine_decl {
  a_symbol_locator *locator;
  a_decl_parse_state *state;
  a_type *type;
  a_source_position position;
  bool is_definition;
  bool at_file_scope;
  bool has_identifier_list;  // f(a, b)   the parameters are declared behind it
  a_prior_declaration prior;
};

// f();   after   f(int);   says less than was known.
bool loses_prototype(a_type *old_type, a_type *new_type) {
  return skip_typerefs(old_type)->routine_supplement->prototyped &&
         !skip_typerefs(new_type)->routine_supplement->prototyped;
}

// int f(int);   int f(a) int a; { }   the parameters are compared when they are known.
bool keeps_prototype(const a_routine_decl &decl, a_type *old_type) {
  return decl.is_definition && decl.has_identifier_list && loses_prototype(old_type, decl.type) &&
         !skip_typerefs(old_type)->routine_supplement->has_ellipsis &&
         f_types_are_compatible(return_type_of(old_type), return_type_of(decl.type),
                                tcf_error_is_compatible);
}

a_storage_class il_storage_class(const a_routine_decl &decl) {
  if (decl.state->storage_class == dsc_static) return sc_static;
  return decl.is_definition ? sc_none : sc_extern;
}

// static f after extern f is a conflict; extern f after static f is not.
void merge_storage_class(a_routine_decl &decl, a_routine *routine, a_symbol *previous) {
  if (decl.state->storage_class == dsc_static && routine->storage_class != sc_static) {
    report_linkage_conflict(&decl.position, previous);
  } else if (decl.is_definition && routine->storage_class == sc_extern) {
    routine->storage_class = sc_none;
  }
}

// What the inline rules of C need to know of all declarations of a function.
void merge_inline(a_routine_decl &decl, a_routine *routine) {
  a_decl_parse_state *state = decl.state;
  if (state->inline_seen) routine->is_inline = true;
  if (!state->inline_seen || state->storage_class == dsc_extern) routine->extern_inline_seen = true;
}

void apply_asm_name(a_routine_decl &decl, a_routine *routine) {
  a_decl_parse_state *state = decl.state;
  if (state->asm_name == nullptr) return;
  if (routine->defined) {
    pos_warning(ec_asm_name_after_definition, &state->asm_name_pos);
    return;
  }
  routine->asm_name = state->asm_name;
}

// A function of the program may have the name of a builtin one: with another type, or as static, it
// takes its place.
void take_builtin_name(a_routine_decl &decl, a_routine *routine) {
  bool fits = f_types_are_compatible(routine->type, decl.type, tcf_error_is_compatible);
  bool is_static = decl.state->storage_class == dsc_static;
  if (fits && !is_static) return;
  if (!fits) pos_sy_warning(ec_builtin_function_hidden, &decl.position, routine->symbol);
  routine->special_data.all = 0;
  routine->type = decl.type;
  if (is_static) routine->storage_class = sc_static;
}

a_symbol *redeclare_routine(a_routine_decl &decl, a_symbol *previous) {
  a_routine *routine = previous->variant.routine;
  if (routine->special_kind == sfk_none && routine->special_data.builtin_number != 0)
    take_builtin_name(decl, routine);
  if (decl.is_definition && routine->defined) {
    if (!decl.state->has_error) pos_sy_error(ec_already_defined, &decl.position, previous);
    decl.state->has_error = true;
    return nullptr;
  }
  if (strict_ansi_mode && !decl.is_definition && loses_prototype(routine->type, decl.type))
    pos_sy_diagnostic(es_remark, ec_prototype_lost, &decl.position, previous);
  bool agrees = keeps_prototype(decl, routine->type) ||
                reconcile_routine_types(routine, decl.type, &decl.position, decl.is_definition);
  if (!agrees) {
    decl.state->has_error = true;
    if (decl.is_definition) return nullptr;
  }
  merge_storage_class(decl, routine, previous);
  merge_inline(decl, routine);
  record_symbol_declaration(decl.is_definition ? dk_definition : dk_declaration, previous,
                            &decl.position, routine);
  return previous;
}

a_symbol *declare_again(a_routine_decl &decl) {
  a_symbol *previous = decl.prior.in_scope;
  if (previous->kind == syk_routine) return redeclare_routine(decl, previous);
  report_name_conflict(decl.locator, previous, decl.state);
  return nullptr;
}

// A symbol of this scope for a routine that another scope declared.
a_symbol *enter_known_routine(a_routine_decl &decl, a_symbol *known, a_symbol *external) {
  a_routine *routine = known->variant.routine;
  reconcile_routine_types(routine, decl.type, &decl.position, decl.is_definition);
  if (external != nullptr) external->extra.composite_type = routine->type;
  merge_storage_class(decl, routine, known);
  merge_inline(decl, routine);
  a_symbol *symbol = enter_symbol(syk_routine, decl.locator, decl_scope_level, 0);
  symbol->variant.routine = routine;
  if (decl.at_file_scope)
    set_source_corresp_with_scope_depth(routine, symbol, decl_scope_level);
  else
    symbol->block_extern = external;
  return symbol;
}

// int f(void);   in a block: the entity is at file scope.
a_symbol *declare_block_function(a_routine_decl &decl) {
  a_symbol *visible = decl.prior.visible;
  a_symbol *external = decl.prior.external;
  if (visible != nullptr && visible->kind == syk_routine)
    return enter_known_routine(decl, visible, visible->block_extern);
  if (visible != nullptr) {
    report_name_conflict(decl.locator, visible, decl.state);
  } else if (external != nullptr) {
    if (external->kind == syk_extern_routine || external->kind == syk_routine)
      return enter_known_routine(decl, external, external);
    report_name_conflict(decl.locator, external, decl.state);
  }
  a_routine *routine = make_routine(decl.type, sc_extern, 0);
  a_symbol_locator copy = fresh_locator(decl.locator);
  external = enter_extern_symbol(syk_extern_routine, &copy);
  external->variant.routine = routine;
  external->extra.composite_type = decl.type;
  a_symbol *symbol = enter_symbol(syk_routine, decl.locator, decl_scope_level, 0);
  symbol->variant.routine = routine;
  symbol->block_extern = external;
  set_source_corresp_with_scope_depth(routine, symbol, 0);
  merge_inline(decl, routine);
  return symbol;
}

a_symbol *declare_new_routine(a_routine_decl &decl) {
  a_symbol *external = decl.prior.external;
  if (external != nullptr && external->kind == syk_extern_routine)
    return enter_known_routine(decl, external, external);
  if (external != nullptr && external->kind == syk_extern_variable)
    report_name_conflict(decl.locator, external, decl.state);
  a_routine *routine = make_routine(decl.type, il_storage_class(decl), decl_scope_level);
  a_symbol *symbol = enter_symbol(syk_routine, decl.locator, decl_scope_level, 0);
  symbol->variant.routine = routine;
  set_source_corresp_with_scope_depth(routine, symbol, decl_scope_level);
  merge_inline(decl, routine);
  record_symbol_declaration(decl.is_definition ? dk_definition : dk_declaration, symbol,
                            &decl.position, routine);
  return symbol;
}

// The name is taken: a routine that no lookup finds, so that a body can be read.
a_symbol *make_error_routine(a_routine_decl &decl) {
  a_symbol *symbol = make_symbol(syk_routine, decl.locator);
  symbol->is_error_symbol = true;
  a_routine *routine = make_routine(decl.type, sc_static, 0);
  symbol->variant.routine = routine;
  set_source_corresp_with_scope_depth(routine, symbol, 0);
  return symbol;
}

}  // namespace

bool reconcile_routine_types(a_routine *routine, a_type *type, const a_source_position *position,
                             bool is_definition) {
  a_type *old_type = routine->type;
  if (old_type == type || is_error_type(old_type) || is_error_type(type)) return true;
  if (!f_types_are_compatible(old_type, type, tcf_error_is_compatible)) {
    pos_sy_error(ec_not_compatible_with_previous_decl, position, routine->symbol);
    return false;
  }
  // The type of a definition leads; a K&R one does not take back what a prototype told.
  routine->type = is_definition ? composite_type(type, old_type) : composite_type(old_type, type);
  return true;
}

a_symbol *decl_routine(a_symbol_locator *locator, a_decl_parse_state *state,
                       a_func_info_block *func_info, bool is_definition) {
  a_routine_decl decl = {};
  decl.locator = locator;
  decl.state = state;
  decl.type = skip_typerefs(state->declared_type);
  decl.position = locator->position;
  decl.is_definition = is_definition;
  decl.at_file_scope = declaring_at_file_scope();
  decl.has_identifier_list = func_info != nullptr && func_info->param_id_list != nullptr;
  decl.prior = find_prior_declaration(locator, !decl.at_file_scope);
  a_symbol *symbol = nullptr;
  if (decl.prior.in_scope != nullptr)
    symbol = declare_again(decl);
  else if (!decl.at_file_scope)
    symbol = declare_block_function(decl);
  else
    symbol = declare_new_routine(decl);
  if (symbol == nullptr) symbol = make_error_routine(decl);
  state->symbol = symbol;
  symbol->variant.routine->decl_modifiers |= state->decl_modifiers;
  apply_asm_name(decl, symbol->variant.routine);
  if (state->asm_name != nullptr) record_asm_name_for_lookup(symbol);
  if (is_definition) apply_routine_block_section_specification(symbol->variant.routine);
  if (!decl.at_file_scope)
    record_entity_in_decl_stmt_if_needed(reinterpret_cast<char *>(symbol->variant.routine),
                                         iek_routine, &decl.position);
  if (func_info != nullptr && func_info->param_id_list != nullptr && !is_definition)
    pos_error(ec_param_id_list_needs_function_def, &func_info->param_id_list->position);
  return symbol;
}

a_symbol *declare_implicit_function(a_symbol_locator *locator) {
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  a_type *type = alloc_type(tk_routine);
  type->return_type = integer_type(ik_int);
  type->routine_supplement->prototyped = false;
  state.type = integer_type(ik_int);
  state.declared_type = type;
  state.storage_class = dsc_extern;
  a_symbol *symbol = decl_routine(locator, &state, nullptr, false);
  symbol->implicitly_declared = true;
  symbol->variant.routine->is_prototyped_by_use = true;
  return symbol;
}

namespace {

// int main(int, char **)
void check_main_parameters(a_type *type, const a_source_position *position) {
  a_routine_type_supplement *supplement = type->routine_supplement;
  if (!supplement->prototyped || supplement->param_types == nullptr) return;
  a_param_type *first = supplement->param_types;
  a_param_type *second = first->next;
  if (!f_identical_types(first->type, integer_type(ik_int), 0))
    pos_remark(ec_main_first_param_not_int, position);
  if (second == nullptr || second->next != nullptr) {
    pos_remark(ec_main_wrong_num_params, position);
  }
  if (second == nullptr) return;
  a_type *wanted =
      make_pointer_type_full(make_pointer_type_full(integer_type(plain_char_int_kind)));
  if (!f_identical_types(second->type, wanted, 0))
    pos_remark(ec_main_second_param_wrong_type, position);
}

}  // namespace

void check_main_function(a_func_info_block *func_info, a_type *type, a_decl_parse_state *state,
                         const a_source_position *position) {
  func_info->is_main = true;
  type = skip_typerefs(type);
  if (!is_error_type(type->return_type) &&
      !f_identical_types(type->return_type, integer_type(ik_int), 0))
    pos_diagnostic(strict_ansi_mode ? strict_ansi_discretionary_severity : es_none,
                   ec_bad_return_type_on_main, position);
  if ((in_cplusplus() || std_version >= 199901) && state->inline_seen)
    pos_error(ec_inline_main, &state->inline_pos);
  check_main_parameters(type, position);
}
