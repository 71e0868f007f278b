// A file scope of C without tokens, in which tests build the IL by hand.
#ifndef TESTS_UNIT_IL_FIXTURE_H
#define TESTS_UNIT_IL_FIXTURE_H

#include <gtest/gtest.h>

#include <string>

#include "driver/host_envir.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il.h"
#include "il/il_dump.h"
#include "il/il_walk.h"
#include "semantics/const_ints.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"

class an_il_fixture : public ::testing::Test {
 protected:
  void SetUp() override {
    reset_switches();
    C_dialect = dialect_standard_c;
    suppress_il_lowering = true;  // bodies stay as the tests make them
    mem_manage_early_init();
    mem_manage_one_time_init();
    mem_manage_init();
    mem_manage_trans_unit_init();
    is_primary_translation_unit = true;
    unit_ = {};
    curr_translation_unit = &unit_;
    symbol_tbl_early_init();
    symbol_tbl_one_time_init();
    symbol_tbl_init();
    symbol_tbl_trans_unit_init();
    scope_stk_init();
    il_one_time_init();
    il_init();
    compute_il_prefix_size();
    il_trans_unit_init();
    il_walk_init();
    src_seq_init();
    src_seq_trans_unit_init();
    target_early_init();
    types_early_init();
    types_trans_unit_init();
    const_ints_init();
    in_front_end = true;
    il_header.source_language = sl_c;
    push_file_scope(false);
  }
  void TearDown() override {
    in_front_end = false;
    free_all_memory_regions();
  }

  static a_type *int_type() { return integer_type(ik_int); }

  static a_variable *declare(const char *name, a_storage_class storage_class, a_type *type) {
    a_variable *variable = alloc_variable(storage_class);
    variable->name = name;
    variable->type = type;
    add_to_variables_list(variable, depth_scope_stack);
    return variable;
  }

  static a_routine *declare_function(const char *name) {
    a_routine *routine = alloc_routine();
    routine->name = name;
    routine->type = make_routine_type_full(int_type());
    add_to_routines_list(routine, 0);
    return routine;
  }

  // Opens the body of a function; end_body leaves it.
  static a_scope *begin_body(a_routine *routine) {
    push_scope(sck_function, new_scope_number, nullptr, routine);
    a_scope *scope = scope_for_routine(routine);
    scope->block = alloc_statement(stmk_block);
    routine->defined = true;
    return scope;
  }
  static void end_body() { abandon_scope(); }

  // Appends to the body.
  static a_statement *add_statement(a_scope *scope, a_statement *statement) {
    a_statement **link = &scope->block->first_statement;
    while (*link != nullptr)
      link = &(*link)->next;
    *link = statement;
    statement->parent = scope->block;
    return statement;
  }
  static a_statement *add_return(a_scope *scope, an_expr_node *expr) {
    a_statement *statement = alloc_statement(stmk_return);
    statement->expr = expr;
    return add_statement(scope, statement);
  }

  static an_expr_node *number(std::int64_t value) {
    return node_for_integer_constant(value, ik_int);
  }
  static an_expr_node *binary(an_expr_operator_kind op, an_expr_node *a, an_expr_node *b) {
    a->next = b;
    return make_operator_node(op, int_type(), a);
  }

  static std::string dumped_il() {
    a_text_buffer *out = alloc_text_buffer(1024);
    dump_il(out);
    return text_of_buffer(out);
  }
  static std::string dumped(const an_expr_node *expr) {
    a_text_buffer *out = alloc_text_buffer(256);
    dump_expr(expr, out);
    return text_of_buffer(out);
  }

  a_translation_unit unit_;
};

#endif
