// One declaration from its first token to its ";": the specifiers, the list of declarators, and
// what each of them declares; and the translation unit, which is a list of them.
//
// A declarator is declared before its initializer is read, so that "int x = sizeof x" finds it. A
// function type leads to a routine, also through a typedef; typedef and all other types are told by
// the storage class. Only the first declarator of a list can be a function definition, and then
// nothing follows it.
#include "parser/decls.h"

#include <cstring>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_inits.h"
#include "parser/decl_spec.h"
#include "parser/declarator.h"
#include "parser/decls_internal.h"
#include "parser/disambig.h"
#include "parser/expr.h"
#include "parser/extasm.h"
#include "parser/func_def.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"
#include "target/pragma.h"

bool declaring_at_file_scope() {
  a_scope_kind kind = scope_stack[decl_scope_level].kind;
  return kind == sck_file || kind == sck_namespace || kind == sck_namespace_extension;
}

void report_missing_type_specifier(const a_source_position *position, a_type *type,
                                   bool is_file_scope, bool no_specifiers, bool is_routine,
                                   bool is_definition_or_void) {
  if (type != nullptr && is_error_type(type)) return;
  an_error_code code = no_specifiers ? ec_missing_decl_specifiers : ec_missing_type_specifier;
  if (is_routine) code = ec_missing_type_specifier;
  if (in_pcc_mode()) {
    if (!is_file_scope) pos_warning(code, position);
    return;
  }
  bool c90 = !in_cplusplus() && std_version < 199901;
  if (!c90 && !gcc_mode) {
    pos_diagnostic(strict_ansi_mode ? strict_ansi_discretionary_severity : es_warning, code,
                   position);
    return;
  }
  if (!is_file_scope) {
    pos_warning(code, position);
  } else if (is_definition_or_void && is_routine) {
    pos_diagnostic(gcc_mode && std_version >= 199901 ? es_warning : es_remark,
                   ec_missing_type_specifier, position);
  } else {
    pos_warning(code, position);
  }
}

void start_secondary_declarator(a_decl_parse_state *state) {
  state->symbol = nullptr;
  state->declared_type = state->type;
  state->declarator_pos = pos_curr_token;
  state->declarator_attributes = nullptr;
  state->asm_name = nullptr;
  state->dynamic_init = nullptr;
  state->constant_value = nullptr;
  state->is_first_declarator = false;
  state->has_error = state->error_in_specifiers;
  state->has_body_or_init = false;
  state->static_storage = false;
  state->constant_required = false;
  state->initializer_incomplete = false;
  state->initializer_seen = false;
  state->initializer_in_error = false;
  state->storage_class = state->declared_storage_class;
  if (state->auto_type != nullptr) {
    state->auto_type = make_auto_type(&state->specifiers_pos, false);
    state->type = state->auto_type;
    state->declared_type = state->auto_type;
  }
}

void attach_decl_attributes(a_decl_parse_state *state, bool) {
  if (state->symbol == nullptr) return;
  an_attribute *lists[] = {state->prefix_attributes, state->specifier_attributes,
                           state->declarator_attributes};
  an_il_entry_kind kind = iek_none;
  char *entity = nullptr;
  for (an_attribute *list : lists) {
    if (list == nullptr) continue;
    if (entity == nullptr) entity = il_entry_for_symbol(state->symbol, &kind);
    // A list among the specifiers belongs to every declarator of the declaration.
    an_attribute *own = list == state->declarator_attributes ? list : copy_of_attributes_list(list);
    attach_attributes(own, entity, kind);
  }
  state->declarator_attributes = nullptr;
}

namespace {

// ---- Parts of a declaration --------------------------------------------------------------------

// What decl_specifiers may read at this place.
std::uint32_t specifier_flags(bool in_for_init) {
  std::uint32_t flags =
      dsf_storage_class_ok | dsf_type_ok | dsf_inline_ok | dsf_type_optional | dsf_definition_first;
  if (in_for_init) flags |= dsf_for_init;
  return flags;
}

bool is_typedef_declaration(const a_decl_parse_state *state) {
  return state->storage_class == dsc_typedef;
}

bool at_attribute() {
  return curr_token == tok_attribute || curr_token == tok_declspec || curr_token == tok_alignas ||
         (curr_token == tok_lbracket && std_attributes_enabled && next_token() == tok_lbracket);
}

}  // namespace

// asm ( "name" )
void scan_gnu_asm_name(a_decl_parse_state *state) {
  if (curr_token != tok_asm && curr_token != tok_asm_gnu) return;
  state->asm_name_pos = pos_curr_token;
  if (strict_ansi_mode && curr_token == tok_asm)
    pos_warning(ec_asm_name_is_gnu_extension, &pos_curr_token);
  get_token();
  if (!required_token(tok_lparen, ec_exp_lparen)) return;
  if (curr_token == tok_string_literal) {
    state->asm_name = const_for_curr_token.string_text;
    get_token();
  } else {
    error_position = pos_curr_token;
    syntax_error(ec_exp_string_literal);
  }
  required_token(tok_rparen, ec_exp_rparen);
}

namespace {

void scan_behind_declarator(a_decl_parse_state *state) {
  scan_gnu_asm_name(state);
  while (curr_token == tok_attribute) {
    an_attribute *list = scan_attributes(al_declarator);
    // Attributes that change types act on the declared type, the others on the entity.
    an_attribute **link = &list;
    while (*link != nullptr) {
      an_attribute *attribute = *link;
      if (!attribute->is_type_attribute) {
        link = &attribute->next;
        continue;
      }
      *link = attribute->next;
      attribute->next = nullptr;
      attach_type_attributes(&state->declared_type, attribute, state);
    }
    *f_last_attribute_link(&state->declarator_attributes) = list;
    scan_gnu_asm_name(state);
  }
}

void check_type_specified(a_decl_parse_state *state, bool is_function, bool is_definition) {
  if (state->type_specified || state->has_error) return;
  report_missing_type_specifier(&state->declarator_pos, state->type, declaring_at_file_scope(),
                                state->no_specifiers, is_function, is_definition);
}

// ---- Function definitions ----------------------------------------------------------------------

bool is_function_body_here(const a_decl_parse_state *state, const a_func_info_block *func_info) {
  if (!state->is_first_declarator || !declaring_at_file_scope()) return false;
  return is_start_of_function_body(func_info);
}

void scan_function_definition(a_symbol_locator *locator, a_decl_parse_state *state,
                              a_func_info_block *func_info) {
  if (state->declarator_attributes != nullptr && curr_token == tok_lbrace)
    pos_error(ec_attributes_in_rout_defn, &state->declarator_attributes->position);
  if (state->asm_name != nullptr) pos_error(ec_asm_name_in_rout_defn, &state->asm_name_pos);
  state->has_body_or_init = true;
  decl_routine(locator, state, func_info, true);
  attach_decl_attributes(state, false);
  run_end_of_parse_actions(state, true);
  function_definition(locator, state, func_info, nullptr);
}

// ---- One declarator ----------------------------------------------------------------------------

bool check_function_storage_class(a_decl_parse_state *state) {
  // At file scope the specifiers drop the word; outside GNU C they also told it.
  if (state->register_at_file_scope && gcc_mode && !in_cplusplus()) {
    pos_error(ec_bad_function_storage_class, &state->storage_class_pos);
    return false;
  }
  if (state->storage_class == dsc_auto || state->storage_class == dsc_register) {
    pos_error(ec_bad_function_storage_class, &state->storage_class_pos);
    state->storage_class = dsc_none;
    return false;
  }
  if (!declaring_at_file_scope() && state->storage_class == dsc_static) {
    pos_error(ec_block_scope_function_must_be_extern, &state->storage_class_pos);
    state->storage_class = dsc_extern;
    return false;
  }
  return true;
}

void check_main(a_symbol_locator *locator, a_decl_parse_state *state,
                a_func_info_block *func_info) {
  if (!declaring_at_file_scope() || state->has_error || state->storage_class == dsc_static) return;
  if (std::strcmp(locator->header->name, "main") == 0)
    check_main_function(func_info, state->declared_type, state, &locator->position);
}

void declare_function(a_symbol_locator *locator, a_decl_parse_state *state,
                      a_func_info_block *func_info) {
  check_function_storage_class(state);
  check_main(locator, state, func_info);
  decl_routine(locator, state, func_info, false);
}

void scan_variable_initializer(a_decl_parse_state *state, bool had_declaration) {
  a_source_position position = pos_curr_token;
  bool had_error = false;
  state->initializer_seen = true;
  initializer(state, &position, false, &had_error, nullptr);
  if (had_error || !had_declaration) state->initializer_in_error = true;
}

void declare_object(a_symbol_locator *locator, a_decl_parse_state *state) {
  bool has_initializer = curr_token == tok_assign;
  state->has_body_or_init = has_initializer;
  if (state->inline_seen && !state->has_error) pos_error(ec_inline_not_allowed, &state->inline_pos);
  a_symbol *symbol = decl_variable(locator, state, has_initializer);
  attach_decl_attributes(state, false);
  if (has_initializer)
    scan_variable_initializer(state, symbol != nullptr);
  else
    def_initializer(symbol, &state->declarator_pos, state);
}

// Declares what the declarator names; true: it was a function definition.
bool declare_declarator(a_symbol_locator *locator, a_decl_parse_state *state,
                        a_func_info_block *func_info) {
  bool is_function = is_function_type(state->declared_type);
  if (locator->header == nullptr) {
    // The declarator was in error; an initializer is read all the same.
    state->has_error = true;
    if (curr_token == tok_assign) scan_variable_initializer(state, false);
    return false;
  }
  if (is_typedef_declaration(state)) {
    check_type_specified(state, false, false);
    decl_typedef(locator, state, nullptr, nullptr);
    attach_decl_attributes(state, false);
    if (curr_token == tok_assign) {
      scan_variable_initializer(state, false);
    }
    return false;
  }
  if (!is_function) {
    check_type_specified(state, false, false);
    declare_object(locator, state);
    return false;
  }
  if (state->in_for_init && !in_cplusplus())
    pos_error(ec_invalid_storage_class_in_for_init, &locator->position);
  bool is_definition = is_function_body_here(state, func_info);
  check_type_specified(state, true, is_definition);
  if (is_definition) {
    check_function_storage_class(state);
    check_main(locator, state, func_info);
    scan_function_definition(locator, state, func_info);
    return true;
  }
  declare_function(locator, state, func_info);
  attach_decl_attributes(state, false);
  if (curr_token == tok_assign) {
    scan_variable_initializer(state, false);
  }
  return false;
}

// init-declarator-list:
//     init-declarator { , [attributes] init-declarator }
// True when it ended with a function definition.
bool scan_declarator_list(a_decl_parse_state *state) {
  add_stop_token(tok_comma);
  state->is_first_declarator = true;
  bool was_definition = false;
  for (;;) {
    a_symbol_locator locator;
    a_func_info_block func_info;
    clear_func_info(&func_info);
    std::uint64_t flags = dcl_name_ok;
    if (is_typedef_declaration(state)) flags |= dcl_typedef;
    if (state->is_first_declarator && declaring_at_file_scope()) flags |= dcl_knr_list_ok;
    if (!declaring_at_file_scope() && vla_enabled) flags |= dcl_vla_ok;
    declarator(flags, state, nullptr, &locator, &func_info, nullptr);
    scan_behind_declarator(state);
    was_definition = declare_declarator(&locator, state, &func_info);
    if (was_definition) break;
    run_end_of_parse_actions(state, true);
    if (!loop_token(tok_comma)) break;
    start_secondary_declarator(state);
    if (at_attribute()) {
      an_attribute *list = scan_attributes(al_declarator);
      *f_last_attribute_link(&state->declarator_attributes) = list;
    }
  }
  remove_stop_token(tok_comma);
  return was_definition;
}

// ---- Declarations without declarator -----------------------------------------------------------

// struct s { ... };     fine: a tag is declared
// int;   const;   static struct s { ... };   useless words
void check_declaration_without_declarator(a_decl_parse_state *state) {
  const a_source_position *position = &state->specifiers_pos;
  if (state->has_error) return;
  if (is_typedef_declaration(state)) {
    pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning,
                   ec_missing_typedef_name, position);
    return;
  }
  if (state->noreturn_seen) {
    pos_error(ec_bad_c11_noreturn, &state->noreturn_pos);
    return;
  }
  const a_symbol *tag = skip_typerefs(state->type)->symbol;
  bool is_unnamed = tag == nullptr || is_unnamed_tag_symbol(tag);
  bool names_nothing = is_unnamed && (!state->tag_defined || !is_enum_type(state->type));
  if (!state->tag_declared || names_nothing) {
    pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning, ec_useless_decl,
                   position);
    return;
  }
  if (state->storage_class != dsc_none)
    pos_warning(ec_storage_class_requires_function_or_variable, &state->storage_class_pos);
  if (state->qualifiers != 0) pos_warning(ec_useless_type_qualifiers, &state->qualifier_pos);
}

// ---- Recovery and dispatch ---------------------------------------------------------------------

void scan_empty_declaration() {
  pos_diagnostic(strict_ansi_mode ? strict_ansi_discretionary_severity : es_remark,
                 ec_extra_semicolon, &pos_curr_token);
  get_token();
}

// At the { of a body whose head was no function: goes behind the body.
void skip_body() {
  flush_until_matching_token_full(false);
  if (curr_token == tok_rbrace) get_token();
}

// No declaration stands here: one message, then on to a place that looks like the next one.
void recover_from_non_declaration() {
  error_position = pos_curr_token;
  std::uint32_t before = curr_token_sequence_number;
  if (curr_token == tok_lbrace) {
    pos_error(ec_exp_declaration, &pos_curr_token);
    skip_body();
    return;
  }
  add_stop_token(tok_lbrace);
  syntax_error(ec_exp_declaration);
  remove_stop_token(tok_lbrace);
  if (curr_token == tok_lbrace) {
    skip_body();
  } else if (curr_token == tok_semicolon || curr_token_sequence_number == before) {
    if (curr_token != tok_end_of_source) get_token();
  }
}

bool can_start_declarator() {
  return curr_token == tok_identifier || curr_token == tok_star || curr_token == tok_lparen;
}

void close_declaration(a_decl_parse_state *state) {
  discard_end_of_parse_actions(state);
  if (declaring_at_file_scope() && curr_token == tok_semicolon)
    next_token_is_top_level_decl_start = true;
  bool is_outermost = declaring_at_file_scope();
  if (curr_token == tok_lbrace && is_outermost) {
    if (!state->has_error) pos_error(ec_exp_semicolon, &pos_curr_token);
    skip_body();
    return;
  }
  if (is_outermost) add_stop_token(tok_lbrace);
  if (state->has_error && !state->type_specified && curr_token != tok_semicolon) flush_tokens();
  bool is_body = is_outermost && curr_token == tok_lbrace;
  if (!is_body && !required_token(tok_semicolon, ec_exp_semicolon))
    is_body = is_outermost && curr_token == tok_lbrace;
  if (is_outermost) remove_stop_token(tok_lbrace);
  if (is_body) skip_body();
}

// The declarations that begin with a word of their own; true when one was read.
bool scan_special_declaration() {
  switch (curr_token) {
    case tok_static_assert:
      static_assert_declaration();
      return true;
    case tok_asm:
    case tok_asm_gnu:
      asm_declaration(true, depth_innermost_function_scope >= 0, nullptr);
      return true;
    case tok_semicolon:
      scan_empty_declaration();
      return true;
    case tok_using:
    case tok_namespace:
    case tok_template:
    case tok_export:
      pos_st_error(ec_not_supported, &pos_curr_token, "this C++ declaration is");
      flush_tokens();
      if (curr_token == tok_semicolon) get_token();
      return true;
    default:
      return false;
  }
}

void scan_simple_declaration(a_decl_parse_state *state, bool in_for_init) {
  state->is_file_scope_declaration = declaring_at_file_scope();
  state->in_for_init = in_for_init;
  bool has_attributes = at_attribute();
  if (has_attributes) state->prefix_attributes = scan_attributes(al_decl_start);
  decl_specifiers(specifier_flags(in_for_init), state, nullptr);
  if (curr_token == tok_semicolon) {
    // "__attribute__((fallthrough));" is taken where nothing else stands.
    if (!has_attributes || !state->no_specifier_seen) check_declaration_without_declarator(state);
    run_end_of_parse_actions(state, false);
    close_declaration(state);
    return;
  }
  if (!scan_declarator_list(state)) close_declaration(state);
  discard_end_of_parse_actions(state);
}

// The pragmas in front of a declaration; true when some wait for its symbol.
bool select_declaration_pragmas() {
  if (curr_token_pragmas == nullptr) return false;
  select_curr_construct_pragmas(false);
  return true;
}

}  // namespace

// declaration:
//     declaration-specifiers [init-declarator-list] ;
//     static_assert-declaration
// function-definition:
//     declaration-specifiers declarator [declaration-list] compound-statement
// C11 6.7, 6.9
void scan_nonmember_declaration(a_decl_parse_state *state, a_source_range *range) {
  a_source_position start = pos_curr_token;
  bool has_pragmas = select_declaration_pragmas();
  while (curr_token == tok_extension)
    get_token();
  add_stop_token(tok_semicolon);
  if (!scan_special_declaration()) {
    if (!is_decl_start(dst_statement) && !can_start_declarator())
      recover_from_non_declaration();
    else
      scan_simple_declaration(state, false);
  }
  remove_stop_token(tok_semicolon);
  if (has_pragmas && any_curr_construct_pragmas())
    process_curr_construct_pragmas(state->symbol, nullptr);
  if (range != nullptr) {
    range->start = start;
    range->end = end_pos_curr_token;
  }
}

void declaration(bool in_for_init) {
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  if (!in_for_init) {
    scan_nonmember_declaration(&state, nullptr);
    return;
  }
  add_stop_token(tok_semicolon);
  while (curr_token == tok_extension)
    get_token();
  scan_simple_declaration(&state, true);
  remove_stop_token(tok_semicolon);
}

// _Static_assert ( constant-expression , string-literal ) ;
void static_assert_declaration() {
  a_source_position position = pos_curr_token;
  get_token();
  if (!required_token(tok_lparen, ec_exp_lparen)) {
    required_token(tok_semicolon, ec_exp_semicolon);
    return;
  }
  add_stop_token(tok_rparen);
  add_stop_token(tok_comma);
  a_constant value;
  clear_constant(&value, ck_error);
  scan_bool_constant_expression(&value);
  remove_stop_token(tok_comma);
  const char *text = "";
  if (curr_token == tok_rparen && terse_static_assert_enabled) {
    // no message
  } else if (required_token(tok_comma, ec_exp_comma)) {
    if (curr_token == tok_string_literal) {
      text = const_for_curr_token.string_text;
      get_token();
    } else {
      error_position = pos_curr_token;
      syntax_error(ec_exp_string_literal);
      set_error_constant(&value);
    }
  }
  if (value.kind == ck_integer && value.integer_value == 0)
    pos_st_error(ec_static_assert, &position, text);
  remove_stop_token(tok_rparen);
  required_token(tok_rparen, ec_exp_rparen);
  required_token(tok_semicolon, ec_exp_semicolon);
}

void alias_declaration(a_decl_parse_state *, const a_source_position *position) {
  pos_st_error(ec_not_supported, position, "an alias declaration is");
  flush_tokens();
}

void translation_unit() {
  next_token_is_top_level_decl_start = true;
  get_token();
  if (curr_token == tok_end_of_source && !in_cplusplus() && strict_ansi_mode)
    pos_diagnostic(strict_ansi_error_severity, ec_empty_translation_unit, &pos_curr_token);
  while (curr_token != tok_end_of_source) {
    if (curr_token_pragmas != nullptr && !in_cplusplus() && std_version >= 199901)
      check_for_stdc_pragmas();
    a_decl_parse_state state;
    clear_decl_parse_state(&state);
    scan_nonmember_declaration(&state, nullptr);
  }
  complete_tentative_definitions();
  process_alias_fixup_list();
  process_pragmas_at_end_of_source();
  process_alias_fixup_list();
}

void decls_one_time_init() {}
void decls_trans_unit_init() {}
