// The body of a function: its scope and region, its parameters as variables, its statements.
//
//     int f(int a, struct s *p)  { ... }
//                              ^ the declarator is read and declared
//
// The parameters get new symbols in the function's scope, which is the scope of the outermost
// block, too, so that "int f(int a) { int a; }" is a redeclaration. Tags that the parameter list
// declares move there with them. The function's region opens with its scope and holds everything of
// its body.
#include "parser/func_def.h"

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_spec.h"
#include "parser/declarator.h"
#include "parser/decls.h"
#include "parser/statements.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"
#include "target/pragma.h"

namespace {

a_storage_class storage_of_parameter(std::uint8_t declared) {
  return declared == dsc_register ? sc_register : sc_auto;
}

// One parameter as a variable of the function, named or not.
a_variable *make_parameter(a_symbol_header *header, a_type *type, std::uint8_t storage_class,
                           const a_source_position *position) {
  a_variable *variable = alloc_variable(storage_of_parameter(storage_class));
  variable->type = type;
  variable->is_parameter = true;
  variable->decl_position = *position;
  if (is_incomplete_type(type) && !is_error_type(type)) {
    pos_error(ec_incomplete_type_not_allowed, position);
    variable->type = error_type();
  }
  if (header != nullptr) {
    a_symbol *symbol = full_enter_symbol(syk_variable, header, position, depth_scope_stack, 0);
    symbol->variant.variable = variable;
    symbol->defined = true;
    set_source_corresp_with_scope_depth(variable, symbol, depth_scope_stack);
  }
  add_to_parameters_list(variable, depth_scope_stack);
  return variable;
}

void attach_parameter_attributes(a_variable *variable, an_attribute *attributes) {
  if (attributes != nullptr)
    attach_attributes(attributes, reinterpret_cast<char *>(variable), iek_variable);
}

a_param_type *first_param_type(a_routine *routine) {
  a_type *type = skip_typerefs(routine->type);
  return type->kind == tk_routine ? type->routine_supplement->param_types : nullptr;
}

void enter_prototype_parameters(a_routine *routine, a_func_info_block *func_info) {
  a_param_type *param_type = first_param_type(routine);
  for (a_param_decl *param = func_info->param_decls; param != nullptr; param = param->next) {
    // A list with a syntax error is no prototype: names may be missing through it.
    if (param->header == nullptr && !in_cplusplus() && routine_type_is_prototyped(routine->type))
      pos_diagnostic(es_discretionary_error, ec_all_proto_params_must_be_named, &param->position);
    a_variable *variable =
        make_parameter(param->header, param->type, param->storage_class, &param->position);
    variable->param_type = param->param_type != nullptr ? param->param_type : param_type;
    attach_parameter_attributes(variable, param->attributes);
    if (param_type != nullptr) param_type = param_type->next;
  }
}

void enter_knr_parameters(a_routine *routine, a_func_info_block *func_info) {
  a_param_type *param_type = first_param_type(routine);
  for (a_param_id *id = func_info->param_id_list; id != nullptr; id = id->next) {
    a_type *type = id->type != nullptr ? id->type : integer_type(ik_int);
    a_variable *variable = make_parameter(id->header, type, id->storage_class, &id->position);
    id->symbol = variable->symbol;
    variable->param_type = param_type;
    attach_parameter_attributes(variable, id->attributes);
    if (param_type != nullptr) param_type = param_type->next;
  }
  routine->is_old_style_definition = true;
}

// struct s { int a; } and enumerators of a parameter list are known in the body.
void enter_tags_of_prototype(a_func_info_block *func_info) {
  a_symbol *next;
  for (a_symbol *symbol = func_info->prototype_scope_symbols; symbol != nullptr; symbol = next) {
    next = symbol->next_in_scope;
    if (is_tag_symbol_kind(symbol->kind) || symbol->kind == syk_constant)
      reenter_symbol(symbol, depth_scope_stack, 0);
  }
  func_info->prototype_scope_symbols = nullptr;
}

}  // namespace

bool check_function_return_type(a_type *type, const a_source_position *position, unsigned,
                                a_routine *) {
  if (is_error_type(type)) return true;
  a_type *plain = skip_typerefs(type);
  if (plain->kind == tk_array || plain->kind == tk_routine) {
    pos_error(ec_bad_function_return_type, position);
    return false;
  }
  if (plain->kind == tk_void) {
    if (plain != type && get_type_qualifiers(type) != 0)
      pos_diagnostic(strict_ansi_mode ? strict_ansi_discretionary_severity : es_remark,
                     ec_type_qualifier_on_void_return_type, position);
    return true;
  }
  if (is_incomplete_type(type)) {
    pos_ty_error(ec_incomplete_class_return_type, position, type);
    return false;
  }
  return true;
}

void scan_function_body(a_routine *routine, a_func_info_block *func_info, unsigned) {
  a_struct_stmt_stack_state saved_statements;
  new_struct_stmt_stack(&saved_statements);
  push_stop_token_stack();
  a_type *type = skip_typerefs(routine->type);
  if (type->kind == tk_routine)
    check_function_return_type(type->return_type, &routine->decl_position, 0, routine);
  bool args_may_stay_unused = take_lint_pragma(prk_ARGSUSED);

  push_scope(sck_function, new_scope_number, nullptr, routine);
  a_scope *scope = top_scope().il_scope;
  enter_tags_of_prototype(func_info);
  if (func_info->param_id_list != nullptr)
    enter_knr_parameters(routine, func_info);
  else
    enter_prototype_parameters(routine, func_info);
  if (args_may_stay_unused)
    for (a_variable *p = scope->parameters; p != nullptr; p = p->next)
      p->marked_as_unused = true;

  routine->body_range.start = pos_curr_token;
  a_statement *body = compound_statement_full(bf_function_body | bf_user_body, nullptr);
  scope->block = body;
  routine->body_range.end = end_pos_curr_token;
  wrapup_control_flow_processing(scope);
  pop_scope();
  pop_stop_token_stack();
  restore_struct_stmt_stack(&saved_statements);
  if (curr_token == tok_rbrace) get_token();
}

namespace {

// A body whose declaration failed is read for its own errors; nothing leads to this routine.
a_routine *make_stand_in_routine(a_decl_parse_state *state) {
  a_routine *routine = alloc_routine();
  routine->type = state->declared_type != nullptr ? state->declared_type : error_type();
  routine->storage_class = sc_static;
  routine->is_compiler_generated = true;
  routine->decl_position = state->declarator_pos;
  return routine;
}

}  // namespace

void function_definition(a_symbol_locator *locator, a_decl_parse_state *state,
                         a_func_info_block *func_info, a_decl_pos_block *) {
  a_symbol *symbol = state->symbol;
  a_routine *routine = nullptr;
  if (symbol != nullptr && symbol->kind == syk_routine) routine = symbol->variant.routine;
  if (routine == nullptr || routine->defined) routine = make_stand_in_routine(state);
  // typedef int F(void);  F f { }
  if (!func_info->is_function_declarator && !state->has_error)
    pos_error(ec_function_type_must_come_from_declarator, &locator->position);
  if (depth_innermost_function_scope >= 0) {
    pos_error(ec_bad_scope_for_definition, &locator->position);
    state->has_error = true;
  }
  if (func_info->param_id_list != nullptr) scan_knr_parameter_declarations(func_info, routine);
  routine->is_main = func_info->is_main;
  scan_function_body(routine, func_info, 0);
}

void func_def_one_time_init() {}
