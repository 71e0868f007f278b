// The pass over C bodies, on trees made by hand.
#include "lower/lower_il.h"

#include <pthread.h>

#include <functional>
#include <vector>

#include "il_fixture.h"
#include "lower/lower_internal.h"

namespace {

class lowering : public an_il_fixture {
 protected:
  void SetUp() override {
    an_il_fixture::SetUp();
    il_lower_init();
    g_ = declare_function("g");
    f_ = declare_function("f");
    x_ = declare("x", sc_none, int_type());
    scope_ = begin_body(f_);
  }

  void lower() {
    suppress_il_lowering = false;
    lower_function_scope(f_, scope_);
    end_body();
  }
  // The front end gives itself a stack that takes what a program nests.
  static void on_large_stack(std::function<void()> action) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, std::size_t{512} << 20), 0);
    auto run = [](void *data) -> void * {
      (*static_cast<std::function<void()> *>(data))();
      return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &action), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
  }
  std::string body() {
    a_text_buffer *out = alloc_text_buffer(256);
    dump_statement(scope_->block, 0, out);
    return text_of_buffer(out);
  }
  an_expr_node *call() { return make_operator_node(eok_call, int_type(), function_addr_expr(g_)); }
  // ({ x = value; x; })
  an_expr_node *statement_expr(an_expr_node *value) {
    a_statement *block = alloc_statement(stmk_block);
    block->first_statement = make_expr_statement(binary(eok_assign, var_lvalue_expr(x_), value));
    a_statement *result = alloc_statement(stmk_stmt_expr_result);
    result->expr = var_rvalue_expr(x_);
    block->first_statement->next = result;
    an_expr_node *node = alloc_expr_node(enk_statement_expr);
    node->statement = block;
    node->type = int_type();
    return node;
  }
  a_statement *add(a_statement_kind kind, an_expr_node *expr) {
    a_statement *statement = alloc_statement(kind);
    statement->expr = expr;
    return add_statement(scope_, statement);
  }

  a_routine *g_, *f_;
  a_variable *x_;
  a_scope *scope_;
};

TEST_F(lowering, operands_in_front_of_a_statement_expression_are_saved) {
  an_expr_node *left = binary(eok_add, call(), number(1));
  add_return(scope_, binary(eok_add, left, statement_expr(number(7))));
  lower();
  a_statement *block = scope_->block->first_statement;
  ASSERT_EQ(block->kind, stmk_block);
  a_statement *saved = block->first_statement;  // t = g() + 1
  ASSERT_EQ(saved->kind, stmk_expr);
  EXPECT_EQ(saved->expr->operands->next->op, eok_add);
  ASSERT_EQ(saved->next->kind, stmk_block);
  a_statement *back = saved->next->next;
  ASSERT_EQ(back->kind, stmk_return);
  EXPECT_EQ(back->expr->operands->kind, enk_variable);
  EXPECT_EQ(back->expr->operands->variable, saved->expr->operands->variable);
}

TEST_F(lowering, right_operands_stay_conditional) {
  an_expr_node *plain = binary(eok_land, call(), call());
  an_expr_node *moved = binary(eok_land, call(), statement_expr(call()));
  add(stmk_expr, plain);
  add_return(scope_, moved);
  lower();
  EXPECT_EQ(plain->op, eok_land);
  a_statement *block = scope_->block->first_statement->next;
  ASSERT_EQ(block->kind, stmk_block);
  a_statement *test = block->first_statement->next;
  ASSERT_EQ(test->kind, stmk_if);
  EXPECT_EQ(test->then_stmt->first_statement->kind, stmk_block);
  EXPECT_EQ(test->else_stmt, nullptr);
}

TEST_F(lowering, a_loop_evaluates_its_condition_inside) {
  a_statement *loop = add(stmk_while, statement_expr(call()));
  loop->body = alloc_statement(stmk_null);
  lower();
  ASSERT_EQ(loop->kind, stmk_block);
  a_statement *inner = loop->first_statement;
  ASSERT_EQ(inner->kind, stmk_while);
  EXPECT_EQ(inner->expr->kind, enk_constant);
  a_statement *leave = inner->body->first_statement->next;
  ASSERT_EQ(leave->kind, stmk_if);
  ASSERT_EQ(leave->then_stmt->kind, stmk_goto);
  ASSERT_EQ(inner->next->kind, stmk_label);
  EXPECT_EQ(inner->next->label, leave->then_stmt->label);
}

TEST_F(lowering, computed_lvalues_become_indirections) {
  // (x, y) = 1 as an lvalue, and *(c ? &x : &y)
  a_variable *y = declare("y", sc_auto, int_type());
  an_expr_node *comma = make_comma_node(call(), var_lvalue_expr(y));
  an_expr_node *assignment = binary(eok_assign, comma, number(1));
  add(stmk_expr, assignment);
  an_expr_node *condition = call();
  condition->next = var_lvalue_expr(x_);
  condition->next->next = var_lvalue_expr(y);
  an_expr_node *selected = make_lvalue_operator_node(eok_lvalue_conditional, int_type(), condition);
  an_expr_node *second = binary(eok_add_assign, selected, number(2));
  add(stmk_expr, second);
  lower();
  for (an_expr_node *e : {assignment, second})
    EXPECT_EQ(e->operands->op, eok_indirect);
  EXPECT_EQ(assignment->operands->operands->op, eok_comma);
  EXPECT_EQ(second->operands->operands->op, eok_conditional);
}

TEST_F(lowering, bool_takes_only_zero_and_one) {
  a_variable *b = declare("b", sc_auto, bool_type());
  an_expr_node *step = make_operator_node(eok_post_incr, bool_type(), var_lvalue_expr(b));
  an_expr_node *compound = binary(eok_add_assign, var_lvalue_expr(b), call());
  compound->type = bool_type();
  an_expr_node *cast = add_cast(call(), bool_type());
  for (an_expr_node *e : {step, compound})
    add(stmk_expr, e);
  add_return(scope_, cast);
  lower();
  EXPECT_EQ(step->op, eok_assign);
  EXPECT_EQ(step->operands->next->operands->constant->integer_value, 1u);
  EXPECT_EQ(compound->op, eok_assign);
  EXPECT_EQ(compound->operands->next->operands->op, eok_ne);
  EXPECT_EQ(cast->operands->op, eok_ne);
}

TEST_F(lowering, long_expressions_take_linear_time) {
  an_expr_node *sum = statement_expr(number(1));
  for (int i = 0; i < 20000; i++)
    sum = binary(eok_add, sum, i % 2 != 0 ? number(1) : call());
  for (int i = 0; i < 2000; i++)
    sum = binary(eok_add, call(), sum);
  add_return(scope_, sum);
  on_large_stack([this] { lower(); });
  int temporaries = 0;
  for (a_variable *v = scope_->local_variables; v != nullptr; v = v->next)
    temporaries++;
  EXPECT_EQ(temporaries, 2001);
}

// ---- Designators -------------------------------------------------------------------------------

class designators : public an_il_fixture {
 protected:
  static a_constant *integer(std::int64_t value) {
    return node_for_integer_constant(value, ik_int)->constant;
  }
  static a_constant *copy_of(std::int64_t value) { return alloc_unshared_constant(integer(value)); }
  static a_constant *at(std::uint64_t index) {
    a_constant *designator = alloc_constant(ck_designator);
    designator->designator_index = copy_of(static_cast<std::int64_t>(index));
    return designator;
  }
  static a_constant *run(std::int64_t value, std::uint64_t count) {
    a_constant *repeat = alloc_constant(ck_repeat);
    repeat->repeat_element = copy_of(value);
    repeat->repeat_count = count;
    return repeat;
  }
  static a_constant *list(std::vector<a_constant *> elements, a_type *type, bool braces) {
    a_constant *aggregate = alloc_constant(ck_aggregate);
    aggregate->type = type;
    aggregate->is_explicit_braces = braces;
    for (a_constant *e : elements) {
      if (e->kind == ck_designator) aggregate->has_designators = true;
      (aggregate->first_element == nullptr ? aggregate->first_element
                                           : aggregate->last_element->next_in_list) = e;
      aggregate->last_element = e;
    }
    return aggregate;
  }
  static std::string text(const a_constant *c) {
    std::string out;
    switch (c->kind) {
      case ck_aggregate:
        out = "{";
        for (const a_constant *e = c->first_element; e != nullptr; e = e->next_in_list)
          out += (e == c->first_element ? "" : " ") + text(e);
        return out + "}";
      case ck_repeat:
        return text(c->repeat_element) + "*" + std::to_string(c->repeat_count);
      case ck_designator:
        return "@";
      default:
        return std::to_string(c->integer_value);
    }
  }
  static std::string normalized(a_constant *constant) {
    normalize_designated_aggregate(constant, constant->type);
    return text(constant);
  }
};

TEST_F(designators, the_last_value_of_a_place_counts) {
  a_type *array = make_array_type(int_type(), 20);
  EXPECT_EQ(normalized(list({at(4), copy_of(1), copy_of(2), at(1), copy_of(3), at(4), copy_of(7)},
                            array, true)),
            "{0 3 0*2 7 2}");
  EXPECT_EQ(
      normalized(list({at(2), run(1, 10), at(5), copy_of(9), at(0), copy_of(8)}, array, true)),
      "{8 0 1*3 9 1*6}");
  EXPECT_EQ(normalized(list({copy_of(5), at(0), run(6, 3)}, array, true)), "{6*3}");
}

TEST_F(designators, a_path_changes_a_part) {
  a_type *row = make_array_type(int_type(), 3), *array = make_array_type(row, 4);
  auto part = [&](std::uint64_t index, std::int64_t value) {
    return list({at(index), copy_of(value)}, row, false);
  };
  a_constant *whole = list({copy_of(1), copy_of(2)}, row, true);
  EXPECT_EQ(normalized(list({at(1), whole, at(1), part(2, 3), at(1), part(0, 4)}, array, true)),
            "{{} {4 2 3}}");
  // A list in braces replaces all, a part of a range only its own row.
  a_constant *again = list({copy_of(9)}, row, true);
  EXPECT_EQ(normalized(list({at(1), part(2, 3), at(1), again}, array, true)), "{{} {9}}");
  a_constant *rows = alloc_constant(ck_repeat);
  rows->repeat_element = list({copy_of(1)}, row, true);
  rows->repeat_count = 4;
  EXPECT_EQ(normalized(list({rows, at(2), part(1, 5)}, array, true)), "{{1}*2 {1 5} {1}}");
}

TEST_F(designators, sparse_arrays_cost_their_values) {
  a_type *array = make_array_type(int_type(), 1u << 30);
  std::vector<a_constant *> elements;
  for (std::uint64_t i = 0; i < 20000; i++) {
    elements.push_back(at((20000 - i) * 50000));
    elements.push_back(copy_of(1));
  }
  a_constant *constant = list(elements, array, true);
  normalize_designated_aggregate(constant, array);
  std::size_t count = 0;
  for (a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list)
    count++;
  EXPECT_EQ(count, 40000u);
}

}  // namespace
