// Function declarators: the three forms of a parameter list, and the parameters of a prototype.
//
//     f()             nothing is known of the parameters (C)
//     f(a, b)         K&R identifier list: only before a function body
//     f(int a, ...)   prototype: a scope of its own, whose names a definition enters again
//
// The prototype of the declared name itself leaves its parameters in the a_func_info_block; those
// of other function types (of pointers to functions, of parameters) only form their type.
#include <cstring>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_spec.h"
#include "parser/declarator_internal.h"
#include "parser/decls.h"
#include "parser/def_arg.h"
#include "parser/depth_guard.h"
#include "parser/disambig.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"

void clear_func_info(a_func_info_block *info) {
  *info = a_func_info_block{};
  info->scope_depth = -1;
}

namespace {

a_param_id **chain_of_param_id(const a_symbol_header *header, const a_func_info_block *info) {
  std::uint64_t hash = reinterpret_cast<std::uintptr_t>(header) * 0x9E3779B97F4A7C15u;
  return &info->param_id_chains[hash >> 32 & (info->num_param_id_chains - 1)];
}

void enter_in_chain(a_param_id *id, a_func_info_block *info) {
  a_param_id **chain = chain_of_param_id(id->header, info);
  id->next_in_chain = *chain;
  *chain = id;
}

void grow_param_id_chains(a_func_info_block *info) {
  info->num_param_id_chains = info->num_param_id_chains == 0 ? 16 : 4 * info->num_param_id_chains;
  const std::size_t bytes = info->num_param_id_chains * sizeof(a_param_id *);
  info->param_id_chains = static_cast<a_param_id **>(alloc_in_region(0, bytes));
  std::memset(info->param_id_chains, 0, bytes);
  for (a_param_id *id = info->param_id_list; id != nullptr; id = id->next)
    enter_in_chain(id, info);
}

}  // namespace

void add_to_param_id_list(const a_symbol_locator *locator, a_func_info_block *info) {
  auto *id = static_cast<a_param_id *>(alloc_in_region(0, sizeof(a_param_id)));
  *id = a_param_id{};
  id->header = locator->header;
  id->position = locator->position;
  if (info->param_id_list == nullptr)
    info->param_id_list = id;
  else
    info->last_param_id->next = id;
  info->last_param_id = id;
  ++info->num_param_ids;
  if (info->num_param_ids > info->num_param_id_chains)
    grow_param_id_chains(info);
  else
    enter_in_chain(id, info);
}

a_param_id *param_id_on_list(const a_symbol_locator *locator, const a_func_info_block *info) {
  if (info->param_id_list == nullptr) return nullptr;
  for (a_param_id *id = *chain_of_param_id(locator->header, info); id != nullptr;
       id = id->next_in_chain)
    if (id->header == locator->header) return id;
  return nullptr;
}

void free_param_id_list(a_func_info_block *info) {
  info->param_id_list = info->last_param_id = nullptr;
  info->param_id_chains = nullptr;
  info->num_param_id_chains = info->num_param_ids = 0;
}

void adjust_parameter_type(a_type **type) {
  if (is_array_type(*type)) {
    a_type *array = skip_typerefs(*type);
    unsigned qualifiers = array->param_qualifiers;
    a_type *element = array_element_type(*type);
    *type = make_pointer_type_full(element);
    if (qualifiers != 0) *type = f_make_qualified_type(*type, qualifiers);
  } else if (is_function_type(*type)) {
    *type = make_pointer_type_full(*type);
  }
}

bool check_and_adjust_parameter_type(a_decl_parse_state *state, const a_source_position *position) {
  a_type *type = state->declared_type;
  if (is_error_type(type)) return false;
  if (is_void_type(type)) {
    // (void !)   the message about what follows is enough
    if (curr_token == tok_comma || curr_token == tok_rparen)
      pos_error(ec_void_param_not_allowed, position);
    state->declared_type = error_type();
    return false;
  }
  adjust_parameter_type(&state->declared_type);
  return true;
}

void attach_param_attributes(a_param_type *param, an_attribute *attributes) {
  if (attributes != nullptr)
    attach_attributes(attributes, reinterpret_cast<char *>(param), iek_param_type);
}

namespace {

// The parameter list of one prototype while it is read.
struct a_prototype_scan {
  a_declarator_scan *outer;
  a_type *routine;
  a_param_type *last_type;
  a_param_decl *first_decl;
  a_param_decl *last_decl;
  int count;
  bool for_name;
  bool failed;  // a message said that the list is no list
  bool broken;  // or that one of its parameters is none
};

// ( identifier-list )   with the first identifier current.
void scan_identifier_list(a_declarator_scan &scan, bool for_name) {
  a_func_info_block *info = for_name ? scan.func_info : nullptr;
  bool allowed = info != nullptr && (scan.flags & dcl_knr_list_ok) != 0;
  if (!allowed) pos_error(ec_param_id_list_needs_function_def, &pos_curr_token);
  do {
    if (curr_token == tok_ellipsis) {
      pos_error(ec_ellipsis_not_allowed, &pos_curr_token);
      get_token();
      return;
    }
    if (curr_token != tok_identifier) {
      error_position = pos_curr_token;
      syntax_error(ec_exp_identifier);
      return;
    }
    if (curr_type_symbol() != nullptr) pos_error(ec_typedef_cannot_be_param_name, &pos_curr_token);
    if (allowed && param_id_on_list(&locator_for_curr_id, info) != nullptr) {
      pos_st_error(ec_dupl_param_name, &pos_curr_token, locator_for_curr_id.header->name);
    } else if (allowed) {
      add_to_param_id_list(&locator_for_curr_id, info);
    }
    get_token();
  } while (loop_token(tok_comma));
}

// A lone void: "(void)" is an empty list; typedef names and qualified forms of it are judged by
// dialect.
bool is_void_parameter_list(const a_decl_parse_state &state, const a_prototype_scan &scan) {
  return scan.count == 0 && curr_token == tok_rparen && is_void_type(state.type) &&
         state.storage_class == dsc_none;
}

void check_void_parameter_list(const a_decl_parse_state &state) {
  if (state.only_void) return;
  if (get_type_qualifiers(state.type) != 0) {
    pos_diagnostic(in_cplusplus() || gcc_mode ? es_discretionary_error : es_error,
                   ec_nonstd_qualified_void_param_list, &state.specifiers_pos);
  } else if (in_cplusplus() ? std_version <= 201102 : std_version < 199901) {
    pos_diagnostic(strict_ansi_mode ? strict_ansi_discretionary_severity : es_warning,
                   ec_nonstd_void_param_list, &state.specifiers_pos);
  }
}

void check_prototype_has_type(const a_decl_parse_state &state) {
  if (state.type_specified || state.has_error) return;
  report_missing_type_specifier(&state.specifiers_pos, state.type, false, state.no_specifiers,
                                false, false);
}

void enter_prototype_parameter(a_param_decl *decl, a_symbol_locator *locator) {
  if (decl->header == nullptr) return;
  const a_symbol *previous = curr_scope_id_lookup(locator, 0);
  if (previous != nullptr) {
    // int f(int a[n], int n);   the message about the use of n is enough
    if (!previous->is_error_symbol)
      pos_st_error(ec_dupl_param_name, &decl->position, decl->header->name);
    decl->header = nullptr;
    return;
  }
  locator->symbol = nullptr;
  a_symbol *symbol = enter_symbol(syk_parameter, locator, depth_scope_stack, 0);
  a_variable *variable = alloc_variable(sc_auto);
  variable->type = decl->type;
  variable->param_type = decl->param_type;
  symbol->variant.variable = variable;
}

a_param_decl *make_param_decl(const a_decl_parse_state &state, const a_symbol_locator &locator,
                              a_type *written_type) {
  auto *decl = static_cast<a_param_decl *>(alloc_in_region(0, sizeof(a_param_decl)));
  *decl = a_param_decl{};
  decl->header = locator.header;
  decl->type = state.declared_type;
  decl->declared_type = written_type;
  decl->position = state.declarator_pos;
  decl->storage_class = state.storage_class;
  decl->attributes = state.declarator_attributes;
  return decl;
}

void append_parameter(a_prototype_scan &scan, a_param_decl *decl) {
  a_param_type *param = alloc_param_type(make_unqualified_type(decl->type));
  param->declared_type = decl->declared_type;
  ++scan.count;
  param->position = static_cast<std::uint8_t>(scan.count > 255 ? 255 : scan.count);
  param->position_in_source = decl->position;
  param->declared_register = decl->storage_class == dsc_register;
  if (decl->header != nullptr) param->name = decl->header->name;
  decl->param_type = param;
  if (scan.last_type == nullptr)
    scan.routine->routine_supplement->param_types = param;
  else
    scan.last_type->next = param;
  scan.last_type = param;
  if (scan.last_decl == nullptr)
    scan.first_decl = decl;
  else
    scan.last_decl->next = decl;
  scan.last_decl = decl;
}

// parameter-declaration:
//     declaration-specifiers [declarator | abstract-declarator] [attributes]
// Gives false for the lone void.
bool scan_parameter(a_prototype_scan &scan) {
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  state.in_parameter_list = true;
  decl_specifiers(dsf_parameter | dsf_type_ok | dsf_type_optional, &state, nullptr);
  check_prototype_has_type(state);
  if (is_void_parameter_list(state, scan)) {
    check_void_parameter_list(state);
    return false;
  }
  a_symbol_locator locator;
  std::uint64_t flags = dcl_name_ok | dcl_abstract_ok | dcl_param_array | dcl_template_type_ok;
  if (vla_enabled) flags |= dcl_vla_ok;
  declarator(flags, &state, nullptr, &locator, nullptr, nullptr);
  if (curr_token == tok_attribute) {
    an_attribute *list = scan_attributes(al_declarator);
    *f_last_attribute_link(&state.declarator_attributes) = list;
  }
  *f_last_attribute_link(&state.specifier_attributes) = state.declarator_attributes;
  state.declarator_attributes = state.specifier_attributes;
  a_type *written_type = state.declared_type;
  check_and_adjust_parameter_type(&state, &state.declarator_pos);
  a_param_decl *decl = make_param_decl(state, locator, written_type);
  append_parameter(scan, decl);
  enter_prototype_parameter(decl, &locator);
  attach_param_attributes(decl->param_type, decl->attributes);
  if (curr_token == tok_assign) {
    pos_error(ec_initializer_in_param, &pos_curr_token);
    prescan_default_function_arg_expr(decl->param_type, nullptr, false, false, nullptr);
  }
  return true;
}

void scan_ellipsis(a_prototype_scan &scan) {
  if (scan.count == 0 && !in_cplusplus() && !allow_ellipsis_only_param_in_C_mode)
    pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning,
                   ec_nonstd_ellipsis_only_param, &pos_curr_token);
  scan.routine->routine_supplement->has_ellipsis = true;
  get_token();
}

// int f(*p, int a)   int f(int a, , int b)   one parameter of no type among others: a name of it is
// declared, so that its uses are silent. False: what stands here is no parameter at all.
bool scan_parameter_without_type(a_prototype_scan &scan) {
  if (curr_token != tok_star && curr_token != tok_comma && curr_token != tok_rparen) return false;
  if (curr_token == tok_rparen && scan.count == 0) return false;
  scan.broken = true;
  pos_error(ec_exp_type_specifier, &pos_curr_token);
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  state.declared_type = error_type();
  state.declarator_pos = pos_curr_token;
  while (curr_token == tok_star)
    get_token();
  a_symbol_locator locator = cleared_locator;
  if (curr_token == tok_identifier) {
    locator = locator_for_curr_id;
    state.declarator_pos = pos_curr_token;
    get_token();
  }
  if (curr_token != tok_comma && curr_token != tok_rparen) flush_tokens();
  a_param_decl *decl = make_param_decl(state, locator, state.declared_type);
  append_parameter(scan, decl);
  enter_prototype_parameter(decl, &locator);
  return true;
}

// parameter-type-list:
//     parameter-declaration { , parameter-declaration } [, ...]
void scan_prototype(a_prototype_scan &scan) {
  add_stop_token(tok_comma);
  for (;;) {
    if (curr_token == tok_ellipsis) {
      scan_ellipsis(scan);
      break;
    }
    if (!is_decl_start(dst_parameter) && curr_token != tok_identifier) {
      if (scan_parameter_without_type(scan)) {
        if (loop_token(tok_comma)) continue;
        break;
      }
      error_position = pos_curr_token;
      syntax_error(ec_exp_type_specifier);
      scan.failed = true;
      break;
    }
    if (!scan_parameter(scan)) break;
    if (!loop_token(tok_comma)) break;
  }
  remove_stop_token(tok_comma);
}

// f(foo, bar) with unknown names is an identifier list; f(foo x) has a misspelled type.
bool is_identifier_list() {
  if (in_cplusplus() || curr_token != tok_identifier || curr_type_symbol() != nullptr) return false;
  a_token_kind next = next_token();
  return next == tok_comma || next == tok_rparen;
}

void leave_func_info(a_prototype_scan &scan, a_func_info_block *info) {
  info->param_decls = scan.first_decl;
  info->has_params = scan.count != 0;
  info->prototyped = scan.routine->routine_supplement->prototyped;
  info->has_ellipsis = scan.routine->routine_supplement->has_ellipsis;
}

// int f(int (*)(int (*)(int ...
constexpr int max_prototype_depth = 20000;
int prototype_depth;

void scan_prototype_in_scope(a_prototype_scan &scan, a_func_info_block *info) {
  a_depth_guard guard(prototype_depth, max_prototype_depth);
  push_scope(sck_prototype, -1, scan.routine, nullptr);
  scan.routine->routine_supplement->prototyped = true;
  scan_prototype(scan);
  if (info != nullptr) {
    info->param_scope_number = scope_stack[depth_scope_stack].scope_number;
    info->prototype_scope = scope_stack[depth_scope_stack].il_scope;
    info->prototype_scope_symbols = top_scope().pointers->first_symbol;
  }
  pop_scope();
}

// int f(int goto, int b) {   goes on at the parenthesis; int f(void ;   or at what ends the head.
void scan_end_of_parameter_list() {
  if (loop_token(tok_rparen)) return;
  pos_error(ec_exp_rparen, &pos_curr_token);
  a_stop_token_count stops[tok_last] = {};
  stops[tok_rparen] = stops[tok_semicolon] = stops[tok_lbrace] = stops[tok_rbrace] = 1;
  flush_tokens_with_stop_tokens_and_warning_flag(stops, false);
  loop_token(tok_rparen);
}

// unknown_word(1, "x") int a;   is no declaration: one message is enough
void skip_rest_of_parameter_list(a_declarator_scan &scan) {
  while (curr_token == tok_comma) {
    get_token();
    flush_tokens();
  }
  if (!scan.state->type_specified) scan.state->has_error = true;
}

}  // namespace

void reset_prototype_depth() {
  prototype_depth = 0;
}

a_declarator_part *scan_function_declarator(a_declarator_scan &scan, bool for_name) {
  a_declarator_part *part = alloc_declarator_part(dpk_function);
  a_func_info_block *info = for_name ? scan.func_info : nullptr;
  if (info != nullptr) clear_func_info(info);
  part->type = alloc_type(tk_routine);
  a_prototype_scan prototype = {};
  prototype.outer = &scan;
  prototype.routine = part->type;
  prototype.for_name = for_name;
  get_token();
  add_stop_token(tok_rparen);
  if (curr_token == tok_rparen) {
    part->type->routine_supplement->prototyped = in_cplusplus();
  } else if (is_identifier_list()) {
    scan_identifier_list(scan, for_name);
  } else {
    scan_prototype_in_scope(prototype, info);
  }
  if (prototype.failed) skip_rest_of_parameter_list(scan);
  remove_stop_token(tok_rparen);
  if (info != nullptr) {
    info->is_function_declarator = true;
    info->end_position = pos_curr_token;
    leave_func_info(prototype, info);
  }
  prototype.broken |= prototype.failed || curr_token != tok_rparen;
  if (!prototype.failed || curr_token == tok_rparen) scan_end_of_parameter_list();
  // Nobody knows what it takes: calls are not checked against it.
  if (prototype.broken) part->type->routine_supplement->prototyped = false;
  return part;
}
