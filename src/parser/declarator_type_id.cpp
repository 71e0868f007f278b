// Type names: specifiers with an abstract declarator, as in casts, sizeof and _Alignof.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_spec.h"
#include "parser/declarator.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

// No entity follows that could take the attributes among the specifiers: the type does.
void give_attributes_to_type(a_decl_parse_state *state) {
  an_attribute *list = state->prefix_attributes;
  *f_last_attribute_link(&list) = state->specifier_attributes;
  state->prefix_attributes = state->specifier_attributes = nullptr;
  attach_type_attributes(&state->type, list, state);
}

}  // namespace

// type-name:
//     specifier-qualifier-list [abstract-declarator]
// C11 6.7.7
void type_name_full(a_decl_parse_state *state) {
  decl_specifiers(dsf_type_ok | dsf_no_name, state, nullptr);
  give_attributes_to_type(state);
  a_symbol_locator locator;
  std::uint64_t flags = dcl_abstract_ok;
  if (vla_enabled) flags |= dcl_vla_ok;
  declarator(flags, state, nullptr, &locator, nullptr, nullptr);
  state->type = state->declared_type;
}

void type_name(a_type **type) {
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  type_name_full(&state);
  *type = state.declared_type;
}

void new_type_name(a_decl_parse_state *state, std::uint64_t flags) {
  pos_st_error(ec_not_supported, &pos_curr_token, "a new expression is");
  decl_specifiers(dsf_type_ok | dsf_no_name, state, nullptr);
  a_symbol_locator locator;
  declarator(flags | dcl_abstract_ok | dcl_in_new, state, nullptr, &locator, nullptr, nullptr);
}

a_type *scan_type_for_cast() {
  a_type *type = nullptr;
  add_stop_token(tok_rparen);
  type_name(&type);
  remove_stop_token(tok_rparen);
  return type;
}

a_type *scan_type_for_sizeof() {
  return scan_type_for_cast();
}

a_type *simple_type_specifier_sequence() {
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  decl_specifiers(dsf_type_ok | dsf_no_name, &state, nullptr);
  return state.type;
}

a_type *type_keyword() {
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  decl_specifiers(dsf_type_ok | dsf_no_name | dsf_stop_after_type, &state, nullptr);
  return state.type;
}
