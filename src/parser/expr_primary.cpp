// Primary expressions: names, literals, and what begins with a parenthesis.
#include <cstring>
#include <string_view>

#include "driver/switches.h"
#include "il/il.h"
#include "parser/decl_inits.h"
#include "parser/decl_spec.h"
#include "parser/declarator.h"
#include "parser/decls.h"
#include "parser/disambig.h"
#include "parser/expr_internal.h"
#include "parser/statements.h"
#include "semantics/folding.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/sys_predef.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_util.h"

namespace {

// The variables behind __func__ and its kin: one for each function, made when it is first named.
a_routine *routine_of_name_variable;
a_variable *name_variable;

a_variable *make_function_name_variable(a_routine *routine) {
  if (routine_of_name_variable == routine) return name_variable;
  const char *name = routine->name;
  std::size_t length = 0;
  while (name[length] != '\0')
    length++;
  a_constant *string = fs_constant(ck_string);
  string->string_length = length + 1;
  string->string_text = name;
  string->string_char_kind = chk_char;
  string->type = make_array_type(integer_type(ik_char), length + 1);
  a_variable *variable = alloc_variable(sc_static);
  variable->name = "__func__";
  variable->type = f_make_qualified_type(string->type, tq_const);
  variable->init_kind = init_constant;
  variable->initializer.constant = string;
  variable->is_function_name_variable = true;
  variable->is_local_to_routine = true;
  variable->enclosing_routine = routine;
  variable->defined = true;
  add_to_variables_list(variable, depth_innermost_function_scope);
  routine_of_name_variable = routine;
  name_variable = variable;
  return variable;
}

void scan_function_name(an_operand *result) {
  a_routine *routine = innermost_function();
  if (routine == nullptr) {
    a_constant empty;
    clear_constant(&empty, ck_string);
    empty.string_length = 1;
    empty.string_text = "";
    empty.string_char_kind = chk_char;
    empty.type = make_array_type(integer_type(ik_char), 1);
    if (gnu_mode) {
      make_string_constant_operand(&empty, result);
    } else {
      expr_pos_st_error(ec_id_can_only_appear_in_function, &pos_curr_token,
                        token_names[curr_token]);
      make_error_operand(result);
    }
  } else {
    make_lvalue_variable_operand(make_function_name_variable(routine), result);
    result->not_integral_constant = true;
  }
  get_token();
}

// A name that is not declared: a function when it is called, in C; a builtin; or a mistake.
a_symbol *symbol_of_undeclared_name(a_symbol_locator *locator) {
  const char *name = locator->header->name;
  if (name[0] == '_') {
    a_symbol *builtin = load_matching_builtin_function(locator->header);
    if (builtin != nullptr) return locator->symbol = builtin;
    std::string_view text = name;
    bool is_reserved = text.starts_with("__builtin_") || text.starts_with("__atomic_") ||
                       text.starts_with("__sync_");
    if (builtin_functions_enabled && is_reserved && next_token() == tok_lparen) {
      expr_pos_st_error(ec_gcc_builtin_not_supported, &locator->position, name);
      return enter_undefined_symbol(locator);
    }
  }
  bool strict_error = std_version >= 199901 && strict_ansi_mode;
  if (!in_cplusplus() && !strict_error && next_token() == tok_lparen) {
    a_source_position position = locator->position;
    if (expr_diagnostic_should_be_issued(es_remark, ec_implicit_func_decl, &position) &&
        TRG_func_check_ok(name, &position))
      pos_st_diagnostic(std_version >= 199901 ? es_warning : es_remark, ec_implicit_func_decl,
                        &position, name);
    return declare_implicit_function(locator);
  }
  return reference_to_invalid_name(locator);
}

void make_enumerator_operand(a_symbol *symbol, an_operand *result) {
  a_constant constant = *symbol->variant.constant;
  constant.symbol = nullptr;
  constant.name = nullptr;
  constant.next_in_list = nullptr;
  constant.attributes = nullptr;
  constant.decl_position = null_source_position;
  make_constant_operand(&constant, result);
  result->ref_entry = ref_entry(symbol, &pos_curr_token);
  result->ref_entry->kinds = ref_other;
}

void make_variable_operand(a_symbol *symbol, an_operand *result) {
  a_variable *variable = symbol->variant.variable;
  if (variable == nullptr) {
    // A parameter in the bound of another one's array: its value is not known, and is forgotten.
    make_expression_operand(node_for_integer_constant(1, ik_int), result);
    result->not_constant = result->not_integral_constant = true;
    return;
  }
  if (is_error_type(variable->type)) {
    make_error_operand(result);
  } else {
    make_lvalue_variable_operand(variable, result);
  }
  a_ref_entry *entry = ref_entry(symbol, &pos_curr_token);
  result->symbol = symbol;
  result->ref_entry = entry;
  result->is_plain_id = true;
  if (result->kind == ok_error) entry->kinds = ref_read;
}

// while (int *p = q)   A declaration where C has an expression: up to behind the declared name.
void skip_declaration_in_expression() {
  while (is_type_start(dst_type_id_only)) {
    bool is_tag = curr_token == tok_struct || curr_token == tok_union || curr_token == tok_enum;
    get_token();
    if (is_tag && curr_token == tok_identifier) get_token();
    if (is_tag && curr_token == tok_lbrace) {
      flush_until_matching_token();
      if (curr_token == tok_rbrace) get_token();
    }
  }
  while (curr_token == tok_star)
    get_token();
  if (curr_token == tok_identifier) get_token();
}

// identifier
// C11 6.5.1
void scan_identifier(an_operand *result) {
  a_symbol_locator locator = locator_for_curr_id;
  a_symbol *symbol = normal_id_lookup(&locator, 0);
  if (symbol == nullptr) symbol = symbol_of_undeclared_name(&locator);
  if (symbol == nullptr || symbol->is_error_symbol) {
    make_error_operand(result);
    get_token();
    return;
  }
  switch (symbol->kind) {
    case syk_constant:
      make_enumerator_operand(symbol, result);
      break;
    case syk_variable:
    case syk_parameter:
    case syk_extern_variable:
      make_variable_operand(symbol, result);
      break;
    case syk_routine:
    case syk_extern_routine:
      make_function_designator_operand(symbol->variant.routine, result);
      result->symbol = symbol;
      result->ref_entry = ref_entry(symbol, &pos_curr_token);
      result->is_plain_id = true;
      break;
    case syk_undefined:
      make_error_operand(result);
      break;
    case syk_type:
      expr_pos_error(ec_type_identifier_not_allowed, &pos_curr_token);
      make_error_operand(result);
      skip_declaration_in_expression();
      return;
    default:
      expr_pos_st_error(ec_not_supported, &pos_curr_token,
                        "a name of this kind in an expression is");
      make_error_operand(result);
      break;
  }
  get_token();
}

void scan_constant_literal(an_operand *result) {
  bool is_float = curr_token == tok_float_constant;
  make_constant_operand(&const_for_curr_token, result);
  get_token();
  if (is_float) result->not_integral_constant = true;
}

void scan_string_literal(an_operand *result) {
  make_string_constant_operand(&const_for_curr_token, result);
  result->not_integral_constant = true;
  get_token();
}

void scan_ud_literal(an_operand *result) {
  if (const_for_curr_token.kind != ck_error || ud_lit_error_for_curr_token != ec_no_error)
    expr_pos_st_error(ec_not_supported, &pos_curr_token, "a user-defined literal is");
  make_error_operand(result);
  get_token();
}

void scan_special_float(an_operand *result) {
  expr_pos_st_error(ec_not_supported, &pos_curr_token, token_names[curr_token]);
  make_error_operand(result);
  get_token();
}

// ({ ... })
void scan_statement_expression(an_operand *result, const a_source_position *start) {
  bool must_be_constant = in_constant_expression() && expr_stack->value_needed;
  if (innermost_function_scope == nullptr || must_be_constant) {
    expr_pos_error(innermost_function_scope == nullptr ? ec_statement_expression_in_function_only
                                                       : ec_expr_not_constant,
                   start);
    flush_until_matching_token();
    get_token();
    make_error_operand(result);
  } else {
    if (report_gnu_extensions) expr_pos_warning(ec_statement_expression_is_gnu_extension, start);
    an_expr_stack_entry *saved = expr_stack;
    expr_stack = nullptr;
    a_type *type = nullptr;
    std::uint64_t errors_before = total_errors;
    a_statement *block = scan_statement_expression_block(&type);
    expr_stack = saved;
    // A value that was lost in a mistake inside is no second one.
    bool lost = total_errors != errors_before &&
                (type == nullptr || is_void_type(type) || is_error_type(type));
    an_expr_node *node = alloc_expr_node(enk_statement_expr);
    node->statement = block;
    node->type = type != nullptr ? make_unqualified_type(type) : void_type();
    node->position = *start;
    make_expression_operand(node, result);
    result->not_constant = result->not_integral_constant = true;
    if (lost) conv_to_error_operand(result);
  }
  result->start_pos = *start;
  required_token(tok_rparen, ec_exp_rparen);
}

// (type){ ... }
void scan_compound_literal(an_operand *result, a_type *type, const a_source_position *start) {
  if (report_gnu_extensions && std_version < 199901)
    expr_pos_warning(ec_compound_literal_is_nonstandard, start);
  if (is_incomplete_type(type) && !is_array_type(type)) {
    if (expr_error_should_be_issued()) pos_ty_error(ec_incomplete_type_not_allowed, start, type);
    type = error_type();
  }
  a_decl_parse_state state;
  clear_decl_parse_state(&state);
  bool in_function = depth_innermost_function_scope >= 0;
  state.type = state.declared_type = type;
  state.static_storage = !in_function;
  state.constant_required = !in_function;
  a_memory_region_number saved_region = 0;
  if (!in_function) switch_to_file_scope_region(&saved_region);
  scan_compound_literal_initializer(&state);
  if (!in_function) switch_back_to_original_region(saved_region);
  if (state.initializer_in_error || is_error_type(state.type)) {
    make_error_operand(result);
    result->start_pos = *start;
    return;
  }
  a_variable *variable = alloc_variable(in_function ? sc_auto : sc_static);
  variable->type = state.type;
  variable->decl_position = *start;
  variable->is_temporary = true;
  variable->defined = true;
  an_expr_node *node;
  if (!in_function) {
    variable->init_kind = init_constant;
    variable->initializer.constant = state.constant_value;
    add_to_variables_list(variable, 0);
    node = var_lvalue_expr(variable);
  } else {
    variable->address_taken = true;
    variable->is_local_to_routine = true;
    add_to_variables_list(variable, depth_scope_stack);
    a_dynamic_init *init = state.dynamic_init;
    if (init == nullptr) {
      init = alloc_dynamic_init(dik_constant);
      init->constant = state.constant_value;
    }
    init->variable = variable;
    init->type = state.type;
    init->is_compound_literal = true;
    init->position = *start;
    node = alloc_expr_node(enk_temp_init);
    node->init = init;
    node->init_type = state.type;
    node->type = state.type;
    node->is_compound_literal = true;
  }
  make_glvalue_expression_operand(node, result);
  result->is_compound_literal = true;
  result->start_pos = *start;
  result->not_integral_constant = true;
}

// (type) cast-expression
void scan_cast(an_operand *result, a_type *type, const a_source_position *start) {
  scan_expr_at_level(result, level_cast);
  if (get_type_qualifiers(type) != 0 && is_scalar_type(type) && strict_ansi_mode)
    expr_pos_warning(ec_cast_to_qualified_type, start);
  c_style_cast(result, make_unqualified_type(type), start);
  result->start_pos = *start;
}

void make_type_operand(a_type *type, an_operand *result) {
  make_error_operand(result);
  result->kind = ok_type;
  result->type = type;
}

}  // namespace

a_type *scan_parenthesized_type_rest() {
  add_stop_token(tok_rparen);
  a_type *type = scan_type_for_cast();
  required_token(tok_rparen, ec_exp_rparen);
  remove_stop_token(tok_rparen);
  return type;
}

static void scan_parenthesized(an_operand *result, bool is_size_operand) {
  a_source_position start = pos_curr_token;
  get_token();
  if (curr_token == tok_lbrace && gnu_mode) {
    scan_statement_expression(result, &start);
    return;
  }
  if (is_type_start(dst_type_id_only)) {
    a_type *type = scan_parenthesized_type_rest();
    if (curr_token == tok_lbrace && compound_literals_allowed)
      scan_compound_literal(result, type, &start);
    else if (is_size_operand)
      make_type_operand(type, result);
    else
      scan_cast(result, type, &start);
    return;
  }
  add_stop_token(tok_rparen);
  scan_expr_at_level(result, level_any);
  result->start_pos = start;
  result->end_pos = end_pos_curr_token;
  required_token(tok_rparen, ec_exp_rparen);
  remove_stop_token(tok_rparen);
  result->parenthesized = true;
  result->is_plain_id = false;
  if (result->kind == ok_expression) result->expr->is_parenthesized = true;
}

void scan_parenthesis(an_operand *result) {
  scan_parenthesized(result, false);
}

void scan_parenthesis_for_size(an_operand *result) {
  scan_parenthesized(result, true);
}

// __extension__ cast-expression: what it marks needs no report.
static void scan_extension(an_operand *result) {
  a_source_position start = pos_curr_token;
  get_token();
  bool saved = report_gnu_extensions;
  report_gnu_extensions = false;
  scan_expr_at_level(result, level_cast);
  report_gnu_extensions = saved;
  result->start_pos = start;
}

void scan_primary(an_operand *result) {
  switch (curr_token) {
    case tok_identifier:
      scan_identifier(result);
      return;
    case tok_int_constant:
    case tok_char_constant:
    case tok_float_constant:
      scan_constant_literal(result);
      return;
    case tok_string_literal:
      scan_string_literal(result);
      return;
    case tok_ud_literal:
      scan_ud_literal(result);
      return;
    case tok_lparen:
      scan_parenthesis(result);
      return;
    case tok_plus_plus:
    case tok_minus_minus:
      scan_prefix_incr_decr(result);
      return;
    case tok_ampersand:
      scan_address_of(result);
      return;
    case tok_star:
      scan_indirection(result);
      return;
    case tok_plus:
    case tok_minus:
    case tok_compl:
    case tok_not:
      scan_unary_arith(result);
      return;
    case tok_sizeof:
      scan_sizeof(result);
      return;
    case tok_alignof:
    case tok_alignof_gnu:
      scan_alignof(result);
      return;
    case tok_func:
    case tok_function_name:
    case tok_pretty_function:
    case tok_funcdname:
      scan_function_name(result);
      return;
    case tok_builtin_offsetof:
      scan_offsetof(result);
      return;
    case tok_builtin_types_compatible_p:
      scan_types_compatible(result);
      return;
    case tok_generic:
      scan_generic_selection(result);
      return;
    case tok_va_argref:
    case tok_va_argcsu:
    case tok_va_parmadr:
      scan_va_keyword(result);
      return;
    case tok_intaddr:
      scan_intaddr(result);
      return;
    case tok_builtin_addressof:
      scan_builtin_addressof(result);
      return;
    case tok_real:
    case tok_imag:
      scan_real_imag(result);
      return;
    case tok_extension:
      scan_extension(result);
      return;
    case tok_error:  // reported when it was read
      make_error_operand(result);
      get_token();
      return;
    case tok_nan:
    case tok_infinity:
    case tok_i:
    case tok_qx_generic:
    case tok_builtin_complex:
    case tok_segment_begin:
    case tok_segment_end:
    case tok_segment_size:
      scan_special_float(result);
      return;
    case tok_and_and:
      if (gnu_mode) {
        expr_pos_st_error(ec_not_supported, &pos_curr_token, "GCC && operator");
        get_token();
        if (curr_token == tok_identifier) get_token();
        make_error_operand(result);
        return;
      }
      break;
    default:
      break;
  }
  if (is_type_start(dst_type_id_only)) {
    expr_pos_error(ec_type_identifier_not_allowed, &pos_curr_token);
    skip_declaration_in_expression();
  } else {
    expr_syntax_error(ec_exp_primary_expr);
  }
  make_error_operand(result);
}
