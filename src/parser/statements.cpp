// Blocks and statements: the stack of open ones, the list of statements that grows, and the
// dispatch on the first token.
//
// A statement belongs to the innermost open entry of the stack: it is appended to a block, or it is
// the body of an if or a loop. A body that turns out to be several statements, since labels are
// statements of their own ("if (x) l: y();"), becomes a block.
#include "parser/statements.h"

#include <cstring>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_spec.h"
#include "parser/decls.h"
#include "parser/depth_guard.h"
#include "parser/disambig.h"
#include "parser/expr.h"
#include "parser/extasm.h"
#include "parser/statements_internal.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"
#include "target/pragma.h"

int depth_stmt_stack = -1;
bool stmt_reachable;
bool end_reachable;
bool unreachable_reported;

namespace {

constexpr int chunk_size = 30;
// Deeper nesting than any program written by hand or by a generator has.
constexpr int max_statement_depth = 20000;

a_struct_stmt_stack_entry **stmt_chunks;
int size_stmt_stack;
int base_stmt_stack;  // of the current function
int statement_depth;

void grow_struct_stmt_stack() {
  const auto chunks = static_cast<std::size_t>(size_stmt_stack / chunk_size);
  stmt_chunks = static_cast<a_struct_stmt_stack_entry **>(realloc_buffer(
      stmt_chunks, chunks * sizeof *stmt_chunks, (chunks + 1) * sizeof *stmt_chunks));
  stmt_chunks[chunks] = static_cast<a_struct_stmt_stack_entry *>(
      alloc_general(chunk_size * sizeof(a_struct_stmt_stack_entry)));
  size_stmt_stack += chunk_size;
}

}  // namespace

a_struct_stmt_stack_entry &stmt_entry(int depth) {
  const int index = base_stmt_stack + depth;
  return stmt_chunks[index / chunk_size][index % chunk_size];
}

a_struct_stmt_stack_entry &push_struct_stmt_entry(a_struct_stmt_kind kind, a_statement *statement) {
  bool in_statement_expression = false, in_try_body = false;
  if (depth_stmt_stack >= 0) {
    in_statement_expression = top_stmt_entry().in_statement_expression;
    in_try_body = top_stmt_entry().in_try_body;
  }
  ++depth_stmt_stack;
  while (base_stmt_stack + depth_stmt_stack >= size_stmt_stack)
    grow_struct_stmt_stack();
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  std::memset(static_cast<void *>(&entry), 0, sizeof entry);
  entry.kind = kind;
  entry.in_statement_expression = in_statement_expression;
  entry.in_try_body = in_try_body;
  entry.statement = statement;
  entry.statement_pos = pos_curr_token;
  entry.saved = curr_reachability();
  entry.descr_at_entry = innermost_descr;
  return entry;
}

void pop_struct_stmt_entry() {
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  innermost_descr = entry.descr_at_entry;
  bool has_label_or_case = entry.has_label_or_case;
  --depth_stmt_stack;
  if (depth_stmt_stack >= 0 && has_label_or_case) top_stmt_entry().has_label_or_case = true;
}

// while (({ if (n) break; n--; })) ...  A jump in a controlling expression belongs to what is
// around the loop.
int nearest_stmt_entry(a_struct_stmt_kind first, a_struct_stmt_kind last) {
  for (int depth = depth_stmt_stack; depth >= 0; --depth) {
    const a_struct_stmt_stack_entry &entry = stmt_entry(depth);
    if (entry.kind >= first && entry.kind <= last && entry.in_body) return depth;
  }
  return -1;
}

bool in_switch_statement() {
  return nearest_stmt_entry(ssk_switch, ssk_switch) >= 0;
}

bool inside_statement_expression() {
  return depth_stmt_stack >= 0 && top_stmt_entry().in_statement_expression;
}

void new_struct_stmt_stack(a_struct_stmt_stack_state *saved) {
  saved->base_stmt_stack = base_stmt_stack;
  saved->depth_stmt_stack = depth_stmt_stack;
  saved->reachability = curr_reachability();
  save_control_flow(saved);
  base_stmt_stack += depth_stmt_stack + 1;
  depth_stmt_stack = -1;
}

void restore_struct_stmt_stack(const a_struct_stmt_stack_state *saved) {
  check_invariant(depth_stmt_stack == -1);
  base_stmt_stack = saved->base_stmt_stack;
  depth_stmt_stack = saved->depth_stmt_stack;
  set_reachability(saved->reachability);
  restore_control_flow(saved);
}

// ---- The list of statements --------------------------------------------------------------------

namespace {

void append_statement(a_statement *block, a_statement **last, a_statement *statement) {
  statement->parent = block;
  if (*last == nullptr)
    block->first_statement = statement;
  else
    (*last)->next = statement;
  *last = statement;
}

// Where the body of an if, loop or switch hangs.
a_statement **slot_of_entry(a_struct_stmt_stack_entry &entry) {
  a_statement *statement = entry.statement;
  if (entry.kind == ssk_if) return entry.in_else ? &statement->else_stmt : &statement->then_stmt;
  return &statement->body;
}

void wrap_body_into_block(a_struct_stmt_stack_entry &entry) {
  a_statement **slot = slot_of_entry(entry);
  a_statement *block = alloc_statement(stmk_block);
  a_statement *first = *slot;
  block->position = first != nullptr ? first->position : entry.statement_pos;
  block->parent = entry.statement;
  block->is_generated = true;
  block->block_supplement->is_generated = true;
  *slot = block;
  entry.wrapper = block;
  entry.last_statement = nullptr;
  if (first != nullptr) append_statement(block, &entry.last_statement, first);
}

}  // namespace

void add_statement_to_list(a_statement *statement) {
  check_invariant(depth_stmt_stack >= 0);
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  if (entry.kind == ssk_block) {
    append_statement(entry.statement, &entry.last_statement, statement);
    return;
  }
  a_statement **slot = slot_of_entry(entry);
  if (entry.wrapper == nullptr && *slot == nullptr) {
    statement->parent = entry.statement;
    *slot = statement;
    return;
  }
  if (entry.wrapper == nullptr) wrap_body_into_block(entry);
  append_statement(entry.wrapper, &entry.last_statement, statement);
}

// The pragmas in front of a statement bind to it; those in front of a declaration wait for its
// symbol, and labels pass them on.
static void bind_pragmas_to_statement(a_statement *statement) {
  switch (statement->kind) {
    case stmk_decl:
    case stmk_init:
    case stmk_label:
    case stmk_case:
    case stmk_set_vla_size:
    case stmk_vla_decl:
      return;
    default:
      if (any_curr_construct_pragmas()) process_curr_construct_pragmas(nullptr, statement);
  }
}

a_statement *add_statement_at_stmt_pos(std::uint8_t kind, const a_source_position *position) {
  a_statement *statement = alloc_statement(static_cast<a_statement_kind>(kind));
  statement->position = *position;
  add_statement_to_list(statement);
  bind_pragmas_to_statement(statement);
  if (kind == stmk_goto || kind == stmk_return) {
    set_reachability(not_reachable);
  } else if (kind == stmk_label) {
    set_reachable();
  }
  return statement;
}

void set_reachable() {
  stmt_reachable = end_reachable = true;
  unreachable_reported = false;
}

void warn_if_code_is_unreachable(an_error_code code, const a_source_position *position) {
  if (stmt_reachable || unreachable_reported) return;
  pos_warning(code, position);
  unreachable_reported = true;
}

// ---- Declarations as statements ----------------------------------------------------------------

void record_entity_in_decl_stmt_if_needed(char *entity, std::uint8_t entry_kind,
                                          const a_source_position *position) {
  if (depth_stmt_stack < 0 || entity == nullptr || !inside_function_scope()) return;
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  if (entry.decl_statement == nullptr) {
    entry.decl_statement = add_statement_at_stmt_pos(stmk_decl, position);
    entry.last_decl_entity = nullptr;
  }
  an_il_entity_list_entry *item = alloc_il_entity_list_entry();
  item->entity = entity;
  item->kind = static_cast<an_il_entry_kind>(entry_kind);
  if (entry.last_decl_entity == nullptr)
    entry.decl_statement->entities = item;
  else
    entry.last_decl_entity->next = item;
  entry.last_decl_entity = item;
}

a_statement *add_init_statement(a_dynamic_init *init, const a_source_position *position) {
  if (depth_stmt_stack < 0 || !inside_function_scope()) return nullptr;
  a_statement *statement = add_statement_at_stmt_pos(stmk_init, position);
  statement->init = init;
  return statement;
}

void set_vla_size_statement(a_vla_dimension *dimension, const a_source_position *position) {
  if (depth_stmt_stack < 0) return;
  add_control_flow_descr(cfk_vla_dimension, nullptr, position);
  a_statement *statement = add_statement_at_stmt_pos(stmk_set_vla_size, position);
  statement->vla_dimension = dimension;
}

namespace {

void close_decl_statement() {
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  entry.decl_statement = nullptr;
  entry.last_decl_entity = nullptr;
}

// True if the attributes before a statement were used up (none are known for statements of C).
void report_attributes_of_statement(an_attribute *attributes) {
  if (attributes != nullptr) pos_warning(ec_invalid_attribute_location, &attributes->position);
}

void scan_declaration_statement() {
  declaration(false);
  close_decl_statement();
}

// In C the form is settled by the first token. A declaration behind a statement is C99.
void check_declaration_place(const a_source_position *position) {
  if (in_cplusplus()) return;
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  if (!entry.has_statement || entry.kind != ssk_block) return;
  if (!allow_decl_after_stmt)
    pos_diagnostic(strict_ansi_error_severity, ec_declaration_after_statements, position);
  else if (std_version < 199901)
    pos_remark(ec_declaration_after_statements, position);
}

// A call of a function that does not return, seen through casts to void.
bool is_call_of_noreturn_function(an_expr_node *node) {
  while (node != nullptr && node->kind == enk_operation && node->op == eok_cast)
    node = node->operands;
  if (node == nullptr || node->kind != enk_operation || node->op != eok_call) return false;
  an_expr_node *callee = node->operands;
  while (callee != nullptr && callee->kind == enk_operation &&
         (callee->op == eok_address_of || callee->op == eok_indirect || callee->op == eok_cast))
    callee = callee->operands;
  if (callee == nullptr) return false;
  if (callee->kind == enk_routine && callee->routine != nullptr) {
    if (callee->routine->is_noreturn) return true;
    a_type *type = f_skip_typerefs(callee->routine->type);
    return type->kind == tk_routine && type->routine_supplement->is_noreturn;
  }
  if (callee->type == nullptr) return false;
  a_type *type = f_skip_typerefs(callee->type);
  if (type->kind == tk_pointer) type = f_skip_typerefs(type->pointed_to);
  return type->kind == tk_routine && type->routine_supplement->is_noreturn;
}

void scan_expression_statement() {
  a_source_position position = pos_curr_token;
  warn_if_code_is_unreachable(ec_code_is_unreachable, &position);
  a_struct_stmt_stack_entry &entry = top_stmt_entry();
  bool may_be_result = entry.kind == ssk_block && entry.is_statement_expression;
  bool is_result = false;
  a_dynamic_init *init = nullptr;
  add_stop_token(tok_semicolon);
  an_expr_node *node = scan_void_expression(may_be_result ? &is_result : nullptr, &init);
  a_statement *statement =
      add_statement_at_stmt_pos(is_result ? stmk_stmt_expr_result : stmk_expr, &position);
  statement->expr = node;
  if (is_result) {
    statement->init = init;
    top_stmt_entry().result_type = node != nullptr ? node->type : nullptr;
  }
  if (is_call_of_noreturn_function(node)) {
    end_reachable = false;
    unreachable_reported = true;
  }
  statement->end_position = end_pos_curr_token;
  // What follows a mistake in the expression is no second one.
  if (node != nullptr && node->kind == enk_error && curr_token != tok_semicolon)
    flush_tokens_without_warning();
  if (node == nullptr || node->kind != enk_error || curr_token == tok_semicolon)
    required_token(tok_semicolon, ec_exp_semicolon);
  remove_stop_token(tok_semicolon);
}

void scan_null_statement() {
  a_statement *statement = add_statement_at_stmt_pos(stmk_null, &pos_curr_token);
  statement->end_position = end_pos_curr_token;
  get_token();
}

void scan_asm_statement() {
  a_source_position position = pos_curr_token;
  warn_if_code_is_unreachable(ec_code_is_unreachable, &position);
  an_asm_entry *asm_entry = asm_declaration(true, true, nullptr);
  if (asm_entry == nullptr) return;
  a_statement *statement = add_statement_at_stmt_pos(stmk_asm, &position);
  statement->asm_entry = asm_entry;
}

bool is_label_here() {
  return curr_token == tok_identifier && next_token() == tok_colon;
}

bool starts_declaration() {
  if (in_cplusplus()) return is_decl_not_expr(dam_statement);
  return is_decl_start(dst_statement);
}

void scan_declaration_or_expression(bool is_dependent, bool after_label) {
  if (!starts_declaration()) {
    scan_expression_statement();
    return;
  }
  if (is_dependent) {
    pos_error(ec_dependent_stmt_is_declaration, &pos_curr_token);
  } else if (after_label && !in_cplusplus()) {
    an_error_severity severity = es_warning;
    if (strict_ansi_mode) severity = strict_ansi_discretionary_severity;
    if (std_version < 199901 && !gnu_mode) severity = es_error;
    pos_diagnostic(severity, ec_labeled_declaration, &pos_curr_token);
  } else {
    check_declaration_place(&pos_curr_token);
  }
  scan_declaration_statement();
}

// l: }  and  case 1: }
void scan_end_of_block_after_label() {
  pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning, ec_exp_statement,
                 &pos_curr_token);
  add_statement_at_stmt_pos(stmk_null, &pos_curr_token)->is_generated = true;
}

// A token that starts no statement: else, catch, ) and their like. Always moves on.
void scan_stray_token() {
  std::uint32_t before = curr_token_sequence_number;
  error_position = pos_curr_token;
  add_stop_token(tok_semicolon);
  syntax_error(ec_exp_statement);
  remove_stop_token(tok_semicolon);
  if (curr_token == tok_semicolon) {
    get_token();
  } else if (curr_token_sequence_number == before && curr_token != tok_rbrace &&
             curr_token != tok_end_of_source) {
    get_token();
  }
}

enum a_label_result { lr_no_label, lr_label };

// Labels in front of a statement: name, case, default.
a_label_result scan_one_label() {
  switch (curr_token) {
    case tok_case:
      scan_case_label();
      return lr_label;
    case tok_default:
      scan_default_label();
      return lr_label;
    case tok_identifier:
      if (!is_label_here()) return lr_no_label;
      scan_label();
      return lr_label;
    default:
      return lr_no_label;
  }
}

void scan_statement_by_token(bool is_dependent, bool after_label) {
  switch (curr_token) {
    case tok_lbrace:
      scan_block_statement();
      break;
    case tok_rbrace:
      if (after_label)
        scan_end_of_block_after_label();
      else
        pos_error(ec_exp_statement, &pos_curr_token);
      break;
    case tok_semicolon:
      scan_null_statement();
      break;
    case tok_if:
      scan_if_statement();
      break;
    case tok_switch:
      scan_switch_statement();
      break;
    case tok_while:
      scan_while_statement();
      break;
    case tok_do:
      scan_do_statement();
      break;
    case tok_for:
      scan_for_statement();
      break;
    case tok_goto:
      scan_goto_statement();
      break;
    case tok_break:
      scan_break_statement();
      break;
    case tok_continue:
      scan_continue_statement();
      break;
    case tok_return:
      scan_return_statement();
      break;
    case tok_asm:
    case tok_asm_gnu:
      scan_asm_statement();
      break;
    case tok_try:
      pos_st_error(ec_not_supported, &pos_curr_token, "try block");
      scan_stray_token();
      break;
    case tok_else:
    case tok_catch:
    case tok_rparen:
    case tok_rbracket:
    case tok_end_of_source:
      scan_stray_token();
      break;
    default:
      scan_declaration_or_expression(is_dependent, after_label);
      break;
  }
}

bool is_attribute_start() {
  return std_attributes_enabled && curr_token == tok_lbracket && next_token() == tok_lbracket;
}

}  // namespace

// statement:
//     labeled-statement | compound-statement | expression-statement | selection-statement
//     | iteration-statement | jump-statement | asm-statement
// C11 6.8
void scan_statement(bool is_dependent, bool extension_seen) {
  a_depth_guard guard(statement_depth, max_statement_depth);
  bool after_label = false;
  if (is_attribute_start()) report_attributes_of_statement(scan_attributes(al_decl_start));
  if (!extension_seen && curr_token == tok_extension) get_token();
  while (scan_one_label() == lr_label) {
    after_label = true;
    if (curr_token == tok_attribute) report_attributes_of_statement(scan_attributes(al_decl_start));
  }
  if (after_label && curr_token == tok_extension) get_token();
  bool has_pragmas = curr_token_pragmas != nullptr;
  if (has_pragmas) select_curr_construct_pragmas(true);
  scan_statement_by_token(is_dependent, after_label);
  if (has_pragmas && any_curr_construct_pragmas()) cannot_bind_to_curr_construct();
}

// ---- Blocks ------------------------------------------------------------------------------------

namespace {

// block-item:
//     declaration | statement
// C11 6.8.2
void scan_block_item() {
  bool extension_seen = false;
  while (curr_token == tok_extension) {
    extension_seen = true;
    get_token();
  }
  top_stmt_entry().result_type = nullptr;
  bool is_label = is_label_here();
  if (!is_label && curr_token != tok_semicolon && curr_token != tok_asm &&
      curr_token != tok_asm_gnu && starts_declaration()) {
    check_declaration_place(&pos_curr_token);
    scan_declaration_statement();
    return;
  }
  int depth = depth_stmt_stack;
  scan_statement(false, extension_seen);
  check_invariant(depth == depth_stmt_stack);
  top_stmt_entry().has_statement = true;
}

// exit(1);  /*NOTREACHED*/  }
void obey_notreached_comment() {
  if (!take_lint_pragma(prk_NOTREACHED)) return;
  set_reachability(not_reachable);
  unreachable_reported = true;
}

void scan_block_items() {
  obey_notreached_comment();
  while (curr_token != tok_rbrace && curr_token != tok_end_of_source) {
    std::uint32_t before = curr_token_sequence_number;
    a_token_kind token_before = curr_token;
    scan_block_item();
    // Whatever the error was: a token that nobody takes must not stop the parse.
    if (curr_token_sequence_number == before && curr_token == token_before &&
        curr_token != tok_rbrace && curr_token != tok_end_of_source)
      get_token();
    obey_notreached_comment();
  }
}

bool local_labels_start_here() {
  return gnu_mode && curr_token == tok_identifier && curr_token_is_identifier_string("__label__");
}

void finish_block(a_statement *block, a_scope *scope) {
  block->end_position = pos_curr_token;
  block->block_supplement->end_position = pos_curr_token;
  block->block_supplement->scope = scope;
  if (scope != nullptr) scope->block = block;
}

}  // namespace

a_statement *compound_statement_full(unsigned flags, a_type **result_type) {
  a_depth_guard guard(statement_depth, max_statement_depth);
  const bool is_function_body = (flags & bf_function_body) != 0;
  const bool is_statement_expression = (flags & bf_statement_expression) != 0;
  if (is_function_body) {
    check_invariant(depth_stmt_stack == -1);
    start_of_function_control_flow();
    set_reachable();
  }
  a_statement *block = alloc_statement(stmk_block);
  block->position = pos_curr_token;
  block->block_supplement->is_function_body = is_function_body;
  block->block_supplement->is_statement_expr = is_statement_expression;
  if (!is_function_body && !is_statement_expression) {
    add_statement_to_list(block);
    bind_pragmas_to_statement(block);
  }
  if (!is_function_body) push_block_scope(nullptr);
  a_struct_stmt_stack_entry &entry = push_struct_stmt_entry(ssk_block, block);
  entry.is_function_body = is_function_body;
  entry.is_statement_expression = is_statement_expression;
  if (is_statement_expression) {
    entry.in_statement_expression = true;
    add_control_flow_descr(cfk_statement_expression, nullptr, &block->position);
  }
  add_stop_token(tok_rbrace);
  required_token(tok_lbrace, ec_exp_lbrace);
  if (curr_token_pragmas != nullptr && !in_cplusplus()) check_for_stdc_pragmas();
  while (local_labels_start_here())
    scan_local_label_declarations();
  scan_block_items();
  // Pragmas in front of the closing brace belong to this block.
  if (curr_token_pragmas != nullptr) process_curr_token_pragmas();
  remove_stop_token(tok_rbrace);
  if (is_function_body && stmt_reachable) {
    check_implicit_return(true, (flags & bf_user_body) != 0, &pos_curr_token);
    add_return_at_end_of_main(&pos_curr_token);
  }
  if (result_type != nullptr)
    *result_type = entry.result_type != nullptr ? entry.result_type : void_type();
  block->ends_unreachable = !end_reachable;
  finish_block(block, top_scope().il_scope);
  pop_struct_stmt_entry();
  if (!is_function_body) pop_block_scope(false);
  if (is_function_body) {
    // The token behind } belongs to no function: it is fetched when the scopes are closed.
    required_token_no_advance(tok_rbrace, ec_exp_rbrace);
  } else {
    required_token(tok_rbrace, ec_exp_rbrace);
  }
  return block;
}

a_statement *scan_statement_expression_block(a_type **result_type) {
  a_reachability before = curr_reachability();
  a_statement *block = compound_statement_full(bf_statement_expression, result_type);
  // Control comes back into the expression; only a body that never ends keeps it.
  if (!stmt_reachable) unreachable_reported = true;
  if (!before.stmt_reachable) set_reachability(before);
  return block;
}

void scan_block_statement() {
  compound_statement_full(0, nullptr);
}

// ---- Life cycle --------------------------------------------------------------------------------

void statements_one_time_init() {}

void statements_init() {
  stmt_chunks = nullptr;
  size_stmt_stack = base_stmt_stack = 0;
  statement_depth = 0;
}

void statements_trans_unit_init() {
  depth_stmt_stack = -1;
  base_stmt_stack = 0;
  statement_depth = 0;
  set_reachability(not_reachable);
  start_of_function_control_flow();
}
