// K&R function headers: the parameter declarations between the declarator and the body.
//
//     f(a, b, c) char a; float b; { ... }      c is an int
//
// The arguments of a call of such a function arrive promoted: a as int, b as double.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_inits.h"
#include "parser/decl_spec.h"
#include "parser/declarator.h"
#include "parser/decls_internal.h"
#include "parser/disambig.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"

bool is_start_of_function_body(const a_func_info_block *func_info) {
  if (curr_token == tok_lbrace) return true;
  if (func_info->param_id_list == nullptr) return false;
  return curr_token != tok_semicolon && curr_token != tok_comma && curr_token != tok_assign &&
         curr_token != tok_asm && curr_token != tok_asm_gnu && curr_token != tok_attribute &&
         is_decl_start(dst_parameter);
}

namespace {

void declare_knr_parameter(a_param_id *id, a_decl_parse_state *state) {
  check_and_adjust_parameter_type(state, &state->declarator_pos);
  a_type *type = state->declared_type;
  if (in_pcc_mode() && is_float_floating_type(type)) type = float_type(fk_double);
  id->type = type;
  id->position = state->declarator_pos;
  id->storage_class = state->storage_class;
  id->attributes = state->declarator_attributes;
}

void scan_knr_declarator(a_decl_parse_state *state, a_func_info_block *func_info) {
  a_symbol_locator locator;
  std::uint64_t flags = dcl_name_ok | dcl_param_array;
  if (vla_enabled) flags |= dcl_vla_ok;
  declarator(flags, state, nullptr, &locator, nullptr, nullptr);
  if (curr_token == tok_attribute) state->declarator_attributes = scan_attributes(al_declarator);
  a_param_id *id = locator.header != nullptr ? param_id_on_list(&locator, func_info) : nullptr;
  if (id != nullptr && id->type == nullptr) {
    declare_knr_parameter(id, state);
  } else if (id != nullptr) {
    pos_st_error(ec_id_already_declared, &state->declarator_pos, locator.header->name);
  } else if (locator.header != nullptr) {
    pos_error(ec_decl_should_be_of_param, &state->declarator_pos);
  }
  if (curr_token == tok_assign) {
    pos_error(ec_initializer_in_param, &pos_curr_token);
    a_stop_token_count stops[tok_last] = {};
    stops[tok_comma] = stops[tok_semicolon] = stops[tok_lbrace] = 1;
    flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
  }
}

// One declaration of the header; always moves on.
void scan_knr_declaration(a_func_info_block *func_info) {
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  state.in_knr_parameter_declarations = true;
  decl_specifiers(dsf_parameter | dsf_type_ok | dsf_type_optional, &state, nullptr);
  if (curr_token == tok_semicolon) {
    if (!state.tag_declared) pos_warning(ec_useless_decl, &state.specifiers_pos);
    get_token();
    return;
  }
  add_stop_token(tok_comma);
  for (;;) {
    scan_knr_declarator(&state, func_info);
    if (!loop_token(tok_comma)) break;
    start_secondary_declarator(&state);
  }
  remove_stop_token(tok_comma);
  required_token(tok_semicolon, ec_exp_semicolon);
}

void set_promoted_types(a_func_info_block *func_info, a_type *routine_type) {
  a_param_type *last = nullptr;
  for (a_param_id *id = func_info->param_id_list; id != nullptr; id = id->next) {
    if (id->type == nullptr) {
      id->type = integer_type(ik_int);
      if (strict_ansi_mode)
        pos_st_diagnostic(es_remark, ec_undeclared_parameter, &id->position, id->header->name);
    }
    id->promoted_type = is_error_type(id->type)
                            ? id->type
                            : default_argument_promotion(make_unqualified_type(id->type));
    if (routine_type == nullptr || routine_type->kind != tk_routine ||
        routine_type->routine_supplement->prototyped)
      continue;
    a_param_type *param = alloc_param_type(id->promoted_type);
    param->declared_type = id->type;
    param->name = id->header->name;
    if (last == nullptr)
      routine_type->routine_supplement->param_types = param;
    else
      last->next = param;
    last = param;
  }
}

// int f(char);   int f(c) char c; { }   is not what the language says, but a small integer is
// passed as the same int either way.
bool fits_prototype(const a_param_id *id, const a_param_type *param) {
  a_type *wanted = make_unqualified_type(param->type);
  if (f_types_are_compatible(wanted, id->promoted_type, tcf_error_is_compatible)) return true;
  return gnu_mode && is_integral_or_enum_type(wanted) &&
         f_types_are_compatible(wanted, make_unqualified_type(id->type), tcf_error_is_compatible);
}

// The parameters against those of an earlier prototype, which stays the type of the function.
void check_against_prototype(const a_func_info_block *func_info, const a_routine *routine) {
  a_type *type = skip_typerefs(routine->type);
  if (type->kind != tk_routine || !type->routine_supplement->prototyped) return;
  const a_param_type *param = type->routine_supplement->param_types;
  const a_param_id *id = func_info->param_id_list;
  while (id != nullptr && param != nullptr && fits_prototype(id, param)) {
    id = id->next;
    param = param->next;
  }
  if (id == nullptr && param == nullptr) return;
  const a_source_position *position =
      id != nullptr ? &id->position : &func_info->param_id_list->position;
  pos_sy_error(ec_not_compatible_with_previous_decl, position, routine->symbol);
}

}  // namespace

void scan_knr_parameter_declarations(a_func_info_block *func_info, a_routine *routine) {
  add_stop_token(tok_lbrace);
  add_stop_token(tok_semicolon);
  while (curr_token != tok_lbrace && curr_token != tok_end_of_source &&
         is_decl_start(dst_parameter))
    scan_knr_declaration(func_info);
  remove_stop_token(tok_semicolon);
  remove_stop_token(tok_lbrace);
  set_promoted_types(func_info, skip_typerefs(routine->type));
  check_against_prototype(func_info, routine);
}
