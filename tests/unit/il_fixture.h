// A file scope of C without tokens, in which tests build the IL by hand.
#ifndef TESTS_UNIT_IL_FIXTURE_H
#define TESTS_UNIT_IL_FIXTURE_H

#include <gtest/gtest.h>

#include <string>

#include "front_end_start.h"
#include "il/il.h"
#include "il/il_dump.h"
#include "il/il_walk.h"
#include "semantics/const_ints.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"

class an_il_fixture : public ::testing::Test {
 protected:
  void SetUp() override {
    start_front_end([] {
      gnu_mode = gcc_mode = false;
      suppress_il_lowering = true;  // bodies stay as the tests make them
    });
    forget_predeclared_entities();
  }
  void TearDown() override { end_front_end(); }

  // So that the file scope holds what a test puts there, and can be counted.
  static void forget_predeclared_entities() {
    a_scope *scope = il_header.primary_scope;
    a_scope_pointers_block *tails = scope_stack[depth_scope_stack].pointers;
    scope->types = tails->types_tail = nullptr;
    scope->routines = tails->routines_tail = nullptr;
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
};

#endif
