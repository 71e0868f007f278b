// Labels and jumps: goto, break, continue, return, and what a function owes its caller at its end.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/expr.h"
#include "parser/statements_internal.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

a_label *make_label(a_symbol *symbol, int depth) {
  a_label *label = alloc_label();
  if (symbol != nullptr) {
    symbol->variant.label = label;
    set_source_corresp_with_scope_depth(label, symbol, depth);
  } else {
    label->is_compiler_generated = true;
  }
  add_to_labels_list(label);
  return label;
}

a_symbol *enter_label(a_symbol_locator *locator, int depth) {
  a_symbol *symbol = enter_symbol(syk_label, locator, depth, 0);
  make_label(symbol, depth);
  return symbol;
}

// The label of this name, made at its first mention.
a_symbol *label_for_locator(a_symbol_locator *locator) {
  a_symbol *symbol = find_label_symbol(locator->header);
  if (symbol == nullptr) symbol = enter_label(locator, depth_innermost_function_scope);
  return symbol;
}

void finish_jump(a_statement *statement) {
  statement->end_position = end_pos_curr_token;
  required_token(tok_semicolon, ec_exp_semicolon);
  remove_stop_token(tok_semicolon);
}

}  // namespace

// __label__ identifier-list ;
void scan_local_label_declarations() {
  add_stop_token(tok_semicolon);
  do {
    get_token();
    if (curr_token != tok_identifier) {
      error_position = pos_curr_token;
      syntax_error(ec_exp_identifier);
      break;
    }
    a_symbol_locator locator = locator_for_curr_id;
    a_symbol *previous = find_label_symbol(locator.header);
    if (previous != nullptr && previous->scope_number == top_scope().scope_number)
      pos_sy_error(ec_already_defined, &pos_curr_token, previous);
    else
      enter_label(&locator, depth_scope_stack)->is_declared_label = true;
    write_xref_line('D', find_label_symbol(locator.header), &pos_curr_token);
    get_token();
  } while (curr_token == tok_comma);
  required_token(tok_semicolon, ec_exp_semicolon);
  remove_stop_token(tok_semicolon);
}

// identifier :  with the colon behind the current token
void scan_label() {
  a_symbol_locator locator = locator_for_curr_id;
  a_source_position position = pos_curr_token;
  a_symbol *symbol = label_for_locator(&locator);
  get_token();
  required_token(tok_colon, ec_exp_colon);
  write_xref_line('D', symbol, &position);
  a_label *label = symbol->variant.label;
  if (symbol->defined) {
    pos_sy_error(ec_already_defined, &position, symbol);
  } else {
    symbol->defined = true;
    symbol->decl_position = label->decl_position = position;
    a_statement *statement = add_statement_at_stmt_pos(stmk_label, &position);
    statement->label = label;
    label->statement = statement;
    label->is_defined = true;
    record_label_place(symbol);
    top_stmt_entry().has_label_or_case = true;
  }
  set_reachable();
  if (curr_token == tok_attribute)
    attach_attributes(scan_attributes(al_decl_start), reinterpret_cast<char *>(label), iek_label);
}

// goto identifier ;
// goto * expression ;   (not supported)
void scan_goto_statement() {
  a_source_position position = pos_curr_token;
  warn_if_code_is_unreachable(ec_code_is_unreachable, &position);
  add_stop_token(tok_semicolon);
  get_token();
  if (curr_token == tok_star && gnu_mode) {
    pos_st_error(ec_not_supported, &position, "GCC-style assigned goto");
    get_token();
    scan_typed_expression(make_pointer_type(void_type()), ec_assigned_goto_requires_void_ptr);
    set_reachability(not_reachable);
    unreachable_reported = true;
    required_token(tok_semicolon, ec_exp_semicolon);
    remove_stop_token(tok_semicolon);
    return;
  }
  if (curr_token != tok_identifier) {
    pos_syntax_error(ec_exp_identifier, &pos_curr_token);
    flush_tokens_without_warning();
    if (curr_token == tok_semicolon) get_token();
    remove_stop_token(tok_semicolon);
    return;
  }
  a_symbol_locator locator = locator_for_curr_id;
  a_symbol *symbol = label_for_locator(&locator);
  symbol->referenced = true;
  write_xref_line('R', symbol, &pos_curr_token);
  a_label *label = symbol->variant.label;
  label->is_used = true;
  if (is_null_position(label->first_use_position)) label->first_use_position = pos_curr_token;
  record_jump(symbol, &position);
  a_statement *statement = add_statement_at_stmt_pos(stmk_goto, &position);
  statement->label = label;
  get_token();
  finish_jump(statement);
}

// ---- break and continue ------------------------------------------------------------------------

void add_jump_to_construct(int depth, bool is_continue, const a_source_position *position) {
  a_struct_stmt_stack_entry &entry = stmt_entry(depth);
  a_label **label = is_continue ? &entry.continue_label : &entry.break_label;
  if (*label == nullptr) {
    *label = make_label(nullptr, depth_innermost_function_scope);
    (*label)->is_continue_label = is_continue;
    (*label)->is_break_label = !is_continue;
  }
  (*label)->is_used = true;
  merge_reachability(is_continue ? &entry.at_continue : &entry.merged, curr_reachability());
  a_statement *statement = add_statement_at_stmt_pos(stmk_goto, position);
  statement->label = *label;
  statement->is_break = !is_continue;
  statement->is_continue = is_continue;
}

void place_label(a_label *label, const a_source_position *position) {
  a_reachability state = curr_reachability();
  a_statement *statement = add_statement_at_stmt_pos(stmk_label, position);
  statement->label = label;
  statement->is_generated = true;
  label->statement = statement;
  label->is_defined = true;
  set_reachability(state);
}

void scan_break_statement() {
  a_source_position position = pos_curr_token;
  warn_if_code_is_unreachable(ec_code_is_unreachable, &position);
  int depth = nearest_stmt_entry(ssk_switch, ssk_range_for);
  if (depth < 0)
    pos_error(ec_break_must_be_in_loop_or_switch, &position);
  else
    add_jump_to_construct(depth, false, &position);
  add_stop_token(tok_semicolon);
  get_token();
  required_token(tok_semicolon, ec_exp_semicolon);
  remove_stop_token(tok_semicolon);
}

void scan_continue_statement() {
  a_source_position position = pos_curr_token;
  warn_if_code_is_unreachable(ec_code_is_unreachable, &position);
  int depth = nearest_stmt_entry(ssk_while, ssk_range_for);
  if (depth < 0)
    pos_error(ec_continue_must_be_in_loop, &position);
  else
    add_jump_to_construct(depth, true, &position);
  add_stop_token(tok_semicolon);
  get_token();
  required_token(tok_semicolon, ec_exp_semicolon);
  remove_stop_token(tok_semicolon);
}

// ---- return ------------------------------------------------------------------------------------

namespace {

a_type *return_type_of(a_routine *routine) {
  a_type *type = skip_typerefs(routine->type);
  return type->kind == tk_routine ? type->return_type : error_type();
}

// return e;  in a function that returns void. The value is computed and dropped.
an_expr_node *scan_value_in_void_function(const a_source_position *position) {
  an_expr_node *node = scan_unwanted_return_expression();
  bool is_void = node == nullptr || is_void_type(node->type) || is_error_type(node->type);
  if (!gcc_mode || strict_ansi_mode)
    pos_error(ec_value_returned_in_void_function, position);
  else if (!is_void)
    pos_warning(ec_value_returned_in_void_function, position);
  return node;
}

int severity_of_missing_value(bool at_end, bool is_user_body) {
  if (!at_end) {
    if (in_cplusplus()) return strict_ansi_mode ? strict_ansi_discretionary_severity : es_warning;
    if (std_version >= 199901) return gcc_mode ? es_warning : es_error;
  }
  if (in_cplusplus()) return es_warning;
  return is_user_body ? es_warning : es_remark;
}

int severity_of_missing_value_in_main(bool at_end) {
  if (!at_end) {
    if (!in_cplusplus() && std_version < 199901) return es_warning;
    return strict_ansi_mode ? strict_ansi_discretionary_severity : es_warning;
  }
  return in_cplusplus() || std_version >= 199901 ? es_none : es_remark;
}

bool is_main_that_returns_a_status(const a_routine *routine, a_type *type) {
  return routine->is_main && skip_typerefs(type)->kind == tk_integer;
}

}  // namespace

void check_implicit_return(bool at_end_of_function, bool is_user_body,
                           const a_source_position *position) {
  a_routine *routine = innermost_function();
  if (routine == nullptr || routine->special_kind == sfk_constructor ||
      routine->special_kind == sfk_destructor)
    return;
  a_type *type = return_type_of(routine);
  if (is_void_type(type) || is_error_type(type) || skip_typerefs(type)->kind == tk_template_param)
    return;
  if (is_incomplete_type(type)) return;  // told where the function begins
  if (at_end_of_function) routine->missing_return_possible = end_reachable;
  an_error_severity severity;
  if (is_main_that_returns_a_status(routine, type))
    severity = severity_of_missing_value_in_main(at_end_of_function);
  else
    severity = severity_of_missing_value(at_end_of_function, is_user_body);
  if (at_end_of_function && !end_reachable && severity < es_advice) return;
  if (severity == es_none) return;
  pos_sy_diagnostic(severity,
                    at_end_of_function ? ec_implicit_return_from_non_void_function
                                       : ec_no_value_returned_in_non_void_function,
                    position, routine->symbol);
}

// The end of main is  return 0;
void add_return_at_end_of_main(const a_source_position *position) {
  a_routine *routine = innermost_function();
  if (routine == nullptr || !end_reachable) return;
  a_type *type = return_type_of(routine);
  if (!is_main_that_returns_a_status(routine, type)) return;
  a_statement *statement = add_statement_at_stmt_pos(stmk_return, position);
  statement->expr = node_for_integer_constant(0, ik_int);
  statement->end_position = *position;
}

// return [expression] ;
// C11 6.8.6.4
void scan_return_statement() {
  a_source_position position = pos_curr_token;
  warn_if_code_is_unreachable(ec_code_is_unreachable, &position);
  a_routine *routine = innermost_function();
  check_invariant(routine != nullptr);
  a_type *type = return_type_of(routine);
  add_stop_token(tok_semicolon);
  get_token();
  an_expr_node *value = nullptr;
  a_dynamic_init *init = nullptr;
  if (curr_token == tok_semicolon) {
    check_implicit_return(false, true, &position);
  } else if (is_void_type(type)) {
    an_expr_node *node = scan_value_in_void_function(&position);
    if (node != nullptr) add_statement_at_stmt_pos(stmk_expr, &position)->expr = node;
  } else {
    value = scan_return_expression(type, &init);
  }
  a_statement *statement = add_statement_at_stmt_pos(stmk_return, &position);
  statement->expr = value;
  statement->return_init = init;
  finish_jump(statement);
}
