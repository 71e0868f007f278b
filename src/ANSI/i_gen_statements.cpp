// Statements: structured control flow becomes labels and jumps; only a switch keeps its table.
#include <algorithm>
#include <string>

#include "ANSI/ansi_expr.h"
#include "ANSI/i_gen_be_internal.h"
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

// A range of more values than this is tested in front of the table.
constexpr std::uint64_t max_values_of_range = 256;

std::uint32_t label_counter;

void generate_statement(a_statement *statement);

// Operators and operands of an expression, counted no further than the limit.
unsigned node_count(const an_expr_node *expr, unsigned limit) {
  if (expr == nullptr) return 0;
  unsigned count = 1;
  if (expr->kind != enk_operation) return count;
  for (const an_expr_node *e = expr->operands; e != nullptr && count <= limit; e = e->next)
    count += node_count(e, limit - count);
  return count;
}

const char *keep_number(std::uint64_t number) {
  return type_pkg->keep_text(std::to_string(number));
}

bool is_loop(const a_statement *statement) {
  return statement->kind == stmk_while || statement->kind == stmk_for || statement->kind == stmk_do;
}

// Tells later stages where a loop begins and ends and how it was written.
void write_loop_pragma(const a_statement *statement, const char *keyword) {
  const char *name, *full_name;
  a_line_number first = 0, last = 0;
  bool at_end;
  conv_seq_to_file_and_line(statement->end_position.seq, &name, &full_name, &last, &at_end);
  conv_seq_to_file_and_line(statement->position.seq, &name, &full_name, &first, &at_end);
  std::string file = name != nullptr && *name != '\0' ? name : "unk";
  PRAGMA pragma;
  pragma.kind = fpk_SRC_LOOP;
  const char *first_text = keep_number(first);
  pragma.texts = {type_pkg->keep_text(file + ":" + first_text), first_text, keep_number(last),
                  keyword, ""};
  i_file->if_write_pragma(&pragma);
  if (statement->has_associated_pragma) write_pragmas_of(statement, ppl_on_statement);
}

void put_label_record(std::uint32_t label) {
  i_file->if_write_label(label);
}

void generate_if(a_statement *statement) {
  std::uint32_t else_label = new_label();
  branch_on_condition(else_label, statement->expr, false);
  generate_statement(statement->then_stmt);
  if (statement->else_stmt == nullptr) {
    put_label_record(else_label);
    return;
  }
  std::uint32_t end_label = new_label();
  branch(end_label);
  put_label_record(else_label);
  generate_statement(statement->else_stmt);
  put_label_record(end_label);
}

void generate_increment(an_expr_node *increment) {
  if (increment == nullptr) return;
  start_expression();
  generate_expression(increment);
}

// while and for. A small condition is written twice, as a guard and behind the body; a larger one
// once, behind the body, where the loop is entered.
// Begins a block when the scope has something to declare. What the outermost block of a function
// declares stands among the locals of the function.
bool open_block(a_scope *scope) {
  if (scope == nullptr || scope->kind == sck_function ||
      (scope->variables == nullptr && scope->local_variables == nullptr &&
       scope->pragmas == nullptr))
    return false;
  i_file->if_write_control(ifr_begin_block, &current_psn);
  write_scope_pragmas(scope);
  generate_block_symbols(scope);
  i_file->if_write_control(ifr_end_locals, &current_psn);
  return true;
}

void close_block(const a_source_position &end) {
  set_current_psn(end);
  i_file->if_write_control(ifr_end_block, &current_psn);
}

// while, and for behind its first clause.
void generate_loop(a_statement *statement, an_expr_node *increment, const char *keyword) {
  an_expr_node *condition = statement->expr;
  a_source_position position = statement->position;
  set_current_psn(position);
  unsigned limit = targ_size_speed_goal >= 3 ? 4 : 10;
  bool twice = node_count(condition, limit) <= limit;
  std::uint32_t top = new_label();
  std::uint32_t other = condition != nullptr ? new_label() : 0;
  write_loop_pragma(statement, keyword);
  if (condition != nullptr) {
    if (twice)
      branch_on_condition(other, condition, false);
    else
      branch(other);
  }
  put_label_record(top);
  generate_statement(statement->body);
  set_current_psn(position);
  generate_increment(increment);
  if (condition == nullptr) {
    branch(top);
    return;
  }
  if (!twice) put_label_record(other);
  branch_on_condition(top, condition, true);
  if (twice) put_label_record(other);
}

void generate_do(a_statement *statement) {
  std::uint32_t top = new_label();
  write_loop_pragma(statement, "do");
  put_label_record(top);
  generate_statement(statement->body);
  if (statement->expr != nullptr)
    branch_on_condition(top, statement->expr, true);
  else
    branch(top);
}

void generate_returned_value(an_expr_node *value, a_constant *constant) {
  if (value != nullptr)
    generate_expression(value);
  else
    generate_constant(constant, constant->type, false);
}

void generate_return(a_statement *statement) {
  a_type *type = f_skip_typerefs(current_routine->type);
  SYMTAB *symbol = symbol_of_routine(current_routine);
  an_expr_node *value = statement->expr;
  a_constant *constant = nullptr;
  if (value == nullptr && statement->return_init != nullptr) {
    a_dynamic_init *init = statement->return_init;
    if (init->kind == dik_expression)
      value = init->expr;
    else if (init->kind == dik_constant)
      constant = init->constant;
    else
      unexpected_state("a return with another form of value");
  }
  if (value != nullptr && is_void_type(value->type)) {  // return f(); in a void function
    start_expression();
    generate_expression(value);
    value = nullptr;
  }
  TYPE *value_type = value != nullptr      ? tp_type(value->type)
                     : constant != nullptr ? tp_type(constant->type)
                                           : nullptr;
  SYMTAB *kept = value_type != nullptr ? variable_of_exit_hook() : nullptr;
  if (kept != nullptr) {
    start_expression();
    put(is_class_struct_union_type(type->return_type) ? op_STASG : op_ASG, kept->type);
    put_name(kept, kept->type);
    generate_returned_value(value, constant);
  }
  generate_exit_hook();
  start_expression();
  if (value_type == nullptr) {
    put(op_URETURN, basic_void());
    put_name(symbol, tp_type(type));
    return;
  }
  put(op_RETURN, value_type);
  put_name(symbol, tp_type(type));
  if (kept != nullptr)
    put_name(kept, kept->type);
  else
    generate_returned_value(value, constant);
}

std::uint64_t values_of(const a_switch_case_entry *entry) {
  if (entry->range_end_value == nullptr) return 1;
  return entry->range_end_value->integer_value - entry->case_value->integer_value + 1;
}

bool is_tested_in_front(const a_switch_case_entry *entry) {
  std::uint64_t values = values_of(entry);
  return values > max_values_of_range || values == 0;
}

// low <= x && x <= high as x - low <= high - low on the unsigned type of the same width.
void branch_to_range(const a_switch_case_entry *entry, an_expr_node *selector) {
  a_type *type = f_skip_typerefs(selector->type);
  TYPE *is_unsigned = type_pkg->basic_types[type->size == 8 ? TYPE::ULLONG : TYPE::UINT];
  std::uint64_t low = entry->case_value->integer_value;
  std::uint64_t span = entry->range_end_value->integer_value - low;
  start_expression();
  put(op_CBRANCH, basic_void());
  put(op_EXCLAIM, basic_int());
  put(op_ULE, basic_int());
  put(op_MINUS, is_unsigned);
  put(op_SCONV, is_unsigned);
  generate_expression(selector);
  if (type->size != 8) low &= 0xFFFFFFFF;
  put_lcon(is_unsigned, low);
  put_lcon(is_unsigned, span);
  put_label(entry->label_number);
}

void put_case(std::uint64_t value, TYPE *type, std::uint32_t label) {
  put(op_CASE, basic_int());
  put_lcon(type, value);
  put_label(label);
}

void put_cases(const a_switch_supplement *supplement, std::uint64_t count, TYPE *type) {
  for (std::uint64_t i = 1; i < count; i++)
    put(op_COMMA, basic_void());
  for (const a_switch_case_entry *e = supplement->first_case; e != nullptr; e = e->next) {
    if (e->is_default || is_tested_in_front(e)) continue;
    std::uint64_t first = e->case_value->integer_value;
    for (std::uint64_t i = 0; i < values_of(e); i++)
      put_case(first + i, type, e->label_number);
  }
}

// The body comes first, its labels with it; the table stands behind.
void generate_switch(a_statement *statement) {
  a_switch_supplement *supplement = statement->switch_supplement;
  std::uint32_t test_label = new_label(), end_label = new_label();
  a_source_position position = statement->position;
  branch(test_label);
  generate_statement(statement->body);
  branch(end_label);
  set_current_psn(position);
  put_label_record(test_label);
  std::uint64_t count = 0;
  for (a_switch_case_entry *e = supplement->first_case; e != nullptr; e = e->next) {
    if (e->is_default) continue;
    if (is_tested_in_front(e))
      branch_to_range(e, statement->expr);
    else
      count += values_of(e);
  }
  TYPE *type = tp_type(f_skip_typerefs(statement->expr->type));
  start_expression();
  NODE node(op_SWITCH, type);
  node.number = static_cast<std::uint32_t>(count);
  put(node);
  generate_expression(statement->expr);
  if (count != 0) put_cases(supplement, count, type);
  put(op_DEFAULT, basic_void());
  const a_switch_case_entry *default_case = supplement->default_case;
  put_label(default_case != nullptr ? default_case->label_number : end_label);
  put_label_record(end_label);
}

void generate_block(a_statement *statement) {
  a_block_supplement *supplement = statement->block_supplement;
  bool opened = open_block(supplement != nullptr ? supplement->scope : nullptr);
  generate_statements(statement->first_statement);
  if (opened) close_block(supplement->end_position);
}

// The scope of a declaration in the first clause is a block around the loop.
void generate_for(a_statement *statement) {
  bool opened = open_block(statement->for_supplement->scope);
  generate_statements(statement->for_supplement->init_statement);
  generate_loop(statement, statement->for_supplement->increment_expr, "for");
  if (opened) close_block(statement->end_position);
}

void generate_statement(a_statement *statement) {
  if (statement == nullptr || statement->kind == stmk_null) return;
  if (statement->has_associated_pragma && !is_loop(statement))
    write_pragmas_of(statement, ppl_on_statement);
  set_current_psn(statement->position);
  switch (statement->kind) {
    case stmk_expr:
      start_expression();
      generate_expression(statement->expr);
      break;
    case stmk_if:
      generate_if(statement);
      break;
    case stmk_while:
      generate_loop(statement, nullptr, "while");
      break;
    case stmk_for:
      generate_for(statement);
      break;
    case stmk_do:
      generate_do(statement);
      break;
    case stmk_goto:
      branch(number_of_label(statement->label));
      break;
    case stmk_label:
      put_label_record(number_of_label(statement->label));
      break;
    case stmk_return:
      generate_return(statement);
      break;
    case stmk_block:
      generate_block(statement);
      break;
    case stmk_switch:
      generate_switch(statement);
      break;
    case stmk_case:
      statement->switch_case_entry->label_number = new_label();
      put_label_record(statement->switch_case_entry->label_number);
      generate_statement(statement->body);
      break;
    case stmk_init:
      generate_dynamic_init(statement->init);
      break;
    case stmk_asm:
      error_position = statement->position;
      note_inline_assembly();
      i_file->if_write_assembly(statement->asm_entry->asm_text->string_text, &current_psn);
      break;
    case stmk_decl:
      break;  // its entities stand in the block's lists
    default:
      unexpected_state(statement_kind_names[statement->kind]);
  }
}

}  // namespace

void generate_statements(a_statement *first) {
  for (a_statement *statement = first; statement != nullptr; statement = statement->next)
    generate_statement(statement);
}

void restart_labels() {
  label_counter = 0;
}

std::uint32_t new_label() {
  return ++label_counter;
}

std::uint32_t number_of_label(a_label *label) {
  if (label->lowered_number < 0) label->lowered_number = static_cast<std::int32_t>(new_label());
  return static_cast<std::uint32_t>(label->lowered_number);
}

void branch(std::uint32_t label) {
  start_expression();
  put(op_BRANCH, basic_void());
  put_label(label);
}

void branch_on_condition(std::uint32_t label, an_expr_node *condition, bool invert) {
  start_expression();
  put(op_CBRANCH, basic_void());
  if (invert) put(op_EXCLAIM, basic_int());
  generate_expression(condition);
  put_label(label);
}
