// Initializers of variables and compound literals: what may be initialized, the value of an object
// of any type, and where the value goes.
//
// A constant value of an object of static storage stays with the variable; it and everything that
// it refers to lie in the file-scope region. An automatic object gets a dynamic initialization,
// which is a statement at the place of the declaration, also when its value is a constant.
#include "parser/decl_inits.h"

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/decl_inits_internal.h"
#include "parser/statements.h"
#include "semantics/folding.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"

a_constant *make_error_value(an_init_walk &walk) {
  walk.error = true;
  walk.in_recovery = true;
  a_constant *value = alloc_constant(ck_error);
  value->type = error_type();
  return value;
}

namespace {

// { "text" }   for a character array
bool at_braced_string_for(const a_type *type) {
  a_string_char_kind kind;
  if (curr_token != tok_lbrace || !may_be_string_type(type, &kind)) return false;
  if (next_token() != tok_string_literal) return false;
  a_token_cache cache;
  clear_token_cache(&cache, false);
  cache_curr_token(&cache);
  get_token();
  bool answer = at_string_for(type);
  rescan_cached_tokens(&cache);
  return answer;
}

a_constant *scan_braced_string(an_init_walk &walk, a_type **type) {
  get_token();
  a_constant *value = scan_string_initializer(walk, type);
  if (curr_token == tok_comma) get_token();
  scan_end_of_braced_list();
  return value;
}

// The value of a compound literal of the type in place of braces; null: no such literal waits.
a_constant *take_pending_literal(an_init_walk &walk, a_type *type) {
  a_constant *literal = constant_of_pending_literal(walk);
  if (literal == nullptr) return nullptr;
  a_type *given = make_unqualified_type(type_of_pending(walk));
  if (!types_are_compatible(given, make_unqualified_type(type))) return nullptr;
  drop_pending(walk);
  return alloc_unshared_constant(literal);
}

// An array or class without braces of its own at the top of an initializer.
a_constant *scan_unbraced_array(an_init_walk &walk, a_type **type) {
  if (walk.depth == 0 && !walk.has_pending) {
    a_source_position position = pos_curr_token;
    fetch_operand(walk);
    a_constant *literal = take_pending_literal(walk, *type);
    if (literal != nullptr) {
      *type = literal->type;
      return literal;
    }
    if (f_types_are_compatible(type_of_pending(walk), *type, tcf_error_is_compatible) &&
        !is_error_type(type_of_pending(walk))) {
      pos_st_error(ec_not_supported, &position, "initializing an array from another array is");
      return convert_pending(walk, error_type());
    }
    if (is_error_type(type_of_pending(walk))) return convert_pending(walk, error_type());
    int severity = (strict_ansi_mode || gcc_mode) ? strict_ansi_error_severity : es_warning;
    if (gcc_mode) severity = es_error;
    if (!in_pcc_mode()) pos_diagnostic(severity, ec_missing_initializer_list, &position);
    // The values that follow would only be told to fit as badly as the whole.
    if (severity >= es_error && !in_pcc_mode()) return convert_pending(walk, error_type());
  }
  return scan_aggregate(walk, type, bform_elided);
}

a_constant *scan_unbraced_class(an_init_walk &walk, a_type **type) {
  // A string is no value of a class, but its first member may be an array that takes the string.
  if (walk.depth != 0 && !walk.has_pending && at_whole_string())
    return scan_aggregate(walk, type, bform_elided);
  fetch_operand(walk);
  a_constant *literal = take_pending_literal(walk, *type);
  if (literal != nullptr) return literal;
  a_type *given = type_of_pending(walk);
  if (walk.depth == 0 || is_error_type(given) || identical_types_ignoring_qualifiers(given, *type))
    return convert_pending(walk, *type);
  return scan_aggregate(walk, type, bform_elided);
}

}  // namespace

// initializer:
//     assignment-expression | { [initializer-list [,]] }
a_constant *scan_object_initializer(an_init_walk &walk, a_type **type) {
  a_type *bottom = skip_typerefs(*type);
  bool at_brace = curr_token == tok_lbrace && !walk.has_pending;
  bool is_aggregate = bottom->kind == tk_array || is_class_kind(bottom->kind);
  if (at_brace) {
    if (at_braced_string_for(*type)) return scan_braced_string(walk, type);
    if (is_aggregate) return scan_aggregate(walk, type, bform_braces);
    return scan_braced_scalar(walk, *type);
  }
  if (bottom->kind == tk_array) {
    if (!walk.has_pending && at_string_for(*type)) return scan_string_initializer(walk, type);
    return scan_unbraced_array(walk, type);
  }
  if (is_aggregate) return scan_unbraced_class(walk, type);
  return scan_scalar_value(walk, *type);
}

namespace {

// ---- What may be initialized -------------------------------------------------------------------

// Reports what forbids an initializer; true: the object takes one.
bool check_initializable(a_decl_parse_state *state, const a_source_position *position) {
  a_symbol *symbol = state->symbol;
  if (state->in_parameter_list) {
    pos_error(ec_initializer_in_param, position);
    return false;
  }
  if (symbol == nullptr) return false;
  if (symbol->kind != syk_variable) {
    pos_sy_error(ec_cannot_initialize, position, symbol);
    return false;
  }
  if (symbol->is_error_symbol) return true;
  a_variable *variable = symbol->variant.variable;
  if (inside_function_scope() && state->declared_storage_class == dsc_extern) {
    pos_sy_error(ec_cannot_initialize, position, symbol);
    return false;
  }
  if (variable->init_kind != init_none) {
    pos_sy_error(ec_already_initialized, position, symbol);
    return false;
  }
  if (is_variably_modified_type(variable->type) && is_array_type(variable->type)) {
    pos_sy_error(ec_cannot_initialize, position, symbol);
    return false;
  }
  a_type *type = variable->type;
  bool open_array = is_array_type(type) && is_incomplete_array_type(type) &&
                    !is_incomplete_type(array_element_type(type));
  if (!is_error_type(type) && is_incomplete_type(type) && !open_array) {
    pos_ty_error(ec_incomplete_type_not_allowed, position, type);
    variable->type = error_type();
    return false;
  }
  return true;
}

// ---- Where the value goes ----------------------------------------------------------------------

void attach_constant(a_variable *variable, a_constant *value) {
  variable->init_kind = init_constant;
  variable->initializer.constant = value;
}

a_dynamic_init *dynamic_init_for(a_constant *value, a_type *type) {
  a_dynamic_init *init = nullptr;
  if (value->kind == ck_dynamic_init) {
    init = value->dynamic_init;
  } else {
    bool dynamic_parts = value->kind == ck_aggregate && value->has_dynamic_init_component;
    init = alloc_dynamic_init(dynamic_parts ? dik_aggregate : dik_constant);
    init->constant = value;
  }
  init->type = type;
  return init;
}

void attach_dynamic(a_variable *variable, a_constant *value, const a_source_position *position,
                    a_decl_parse_state *state) {
  a_dynamic_init *init = dynamic_init_for(value, variable->type);
  init->variable = variable;
  init->position = *position;
  variable->init_kind = init_dynamic;
  variable->initializer.dynamic = init;
  state->dynamic_init = init;
  add_init_statement(init, position);
  record_init_control_flow(variable, position);
}

void attach_value(a_decl_parse_state *state, an_init_walk &walk, a_type *type, a_constant *value,
                  const a_source_position *position) {
  a_symbol *symbol = state->symbol;
  a_variable *variable = symbol->variant.variable;
  if (is_array_type(type) && type != variable->type) variable->type_completed_by_init = true;
  variable->type = type;
  variable->is_tentative = false;
  variable->init_range.start = *position;
  variable->init_range.end = end_pos_curr_token;
  if (walk.error) {
    state->initializer_in_error = true;
    if (is_array_type(type) && is_incomplete_array_type(type)) variable->type = error_type();
    value = make_error_value(walk);
  }
  state->constant_value = value;
  if (state->static_storage)
    attach_constant(variable, value);
  else if (!symbol->is_error_symbol && !walk.error)
    attach_dynamic(variable, value, position, state);
  if (!symbol->is_error_symbol) mark_variable_value_set(symbol);
}

// The value of something that has no type: passed over in silence.
a_constant *skip_initializer(an_init_walk &walk) {
  a_stop_token_count stops[tok_last] = {};
  stops[tok_comma] = stops[tok_semicolon] = 1;
  flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
  return make_error_value(walk);
}

// __auto_type x = value;
a_type *deduce_auto_type(an_init_walk &walk) {
  if (curr_token == tok_lbrace) {
    pos_error(ec_auto_type_brace_initialization_not_allowed, &pos_curr_token);
    return error_type();
  }
  fetch_operand(walk);
  a_type *type = type_of_pending(walk);
  type = type_after_array_to_pointer_transformation(type);
  type = type_after_function_to_pointer_transformation(type);
  return make_unqualified_type(type);
}

}  // namespace

void initializer(a_decl_parse_state *state, const a_source_position *, bool, bool *had_error,
                 a_decl_pos_block *) {
  *had_error = false;
  get_token();
  a_source_position position = pos_curr_token;
  bool usable = check_initializable(state, &position);
  a_type *type = usable ? state->symbol->variant.variable->type : error_type();
  an_init_walk walk = {};
  walk.state = state;
  bool is_aggregate = is_array_type(type) || is_class_struct_union_type(type);
  walk.constant_required =
      usable &&
      (state->static_storage || (is_aggregate && curr_token == tok_lbrace && !in_cplusplus() &&
                                 !allow_nonconstant_auto_aggr_init_in_c_mode));
  state->constant_required = walk.constant_required;
  a_memory_region_number saved_region = curr_il_region_number;
  if (state->static_storage) switch_to_file_scope_region(&saved_region);
  if (usable && state->auto_type != nullptr) type = deduce_auto_type(walk);
  a_constant *value = is_error_type(type) && !walk.has_pending
                          ? skip_initializer(walk)
                          : scan_object_initializer(walk, &type);
  drop_pending(walk);
  if (state->static_storage) switch_back_to_original_region(saved_region);
  if (usable)
    attach_value(state, walk, type, value, &position);
  else
    state->initializer_in_error = true;
  *had_error = !usable || walk.error;
}

void scan_compound_literal_initializer(a_decl_parse_state *state) {
  an_init_walk walk = {};
  walk.state = state;
  walk.constant_required = state->constant_required || state->static_storage;
  state->initializer_seen = true;
  a_type *type = state->type;
  a_constant *value = scan_object_initializer(walk, &type);
  drop_pending(walk);
  if (walk.error) {
    state->initializer_in_error = true;
    if (is_array_type(type) && is_incomplete_array_type(type)) type = error_type();
    value = make_error_value(walk);
  }
  state->type = type;
  state->declared_type = type;
  if (state->static_storage || walk.error) {
    state->constant_value = value;
    return;
  }
  bool dynamic = value->kind == ck_dynamic_init ||
                 (value->kind == ck_aggregate && value->has_dynamic_init_component);
  if (dynamic)
    state->dynamic_init = dynamic_init_for(value, type);
  else
    state->constant_value = value;
}

void check_for_missing_initializer_full(a_symbol *symbol, a_type *type, bool in_new,
                                        bool *quiet_error, const a_source_position *position) {
  if (in_new || in_cplusplus() || symbol == nullptr || !is_const_type(type)) return;
  if (quiet_error != nullptr) {
    *quiet_error = true;
    return;
  }
  pos_sy_warning(ec_missing_initializer_on_const, position, symbol);
}

void def_initializer(a_symbol *symbol, const a_source_position *position,
                     a_decl_parse_state *state) {
  if (symbol == nullptr || symbol->kind != syk_variable || symbol->is_error_symbol) return;
  a_variable *variable = symbol->variant.variable;
  if (state->storage_class == dsc_extern || variable->init_kind != init_none) return;
  a_type *type = variable->type;
  if (is_error_type(type)) return;
  if (!variable->is_file_scope && is_incomplete_type(type)) {
    pos_ty_error(ec_incomplete_type_not_allowed, position, type);
    variable->type = error_type();
    return;
  }
  check_for_missing_initializer_full(symbol, type, false, nullptr, position);
}

void field_initializer(a_decl_parse_state *) {
  pos_st_error(ec_not_supported, &pos_curr_token, "an initializer of a member is");
}

void update_array_var_type_from_initializer_constant(a_variable *variable) {
  if (variable->init_kind != init_constant || !is_incomplete_array_type(variable->type)) return;
  a_constant *value = variable->initializer.constant;
  if (value->type != nullptr && is_array_type(value->type)) variable->type = value->type;
}

bool prep_aggr_initializer(an_init_component *, a_type **, an_init_state *,
                           an_arg_match_summary *) {
  pos_st_error(ec_not_supported, &pos_curr_token, "list initialization is");
  return false;
}

a_field *curr_initializer_field() {
  return nullptr;
}

void decl_inits_one_time_init() {}
void decl_inits_trans_unit_init() {}
