// Allocation, sharing, walking, marking, copying and verifying of IL that is built by hand.
#include "il/il.h"

#include <cstdio>
#include <cstring>
#include <map>
#include <set>
#include <vector>

#include "il/il_check.h"
#include "il_fixture.h"

namespace {

class il : public an_il_fixture {};

a_constant integer(std::int64_t value) {
  a_constant constant;
  clear_constant(&constant, ck_integer);
  constant.type = integer_type(ik_int);
  constant.integer_value = static_cast<a_host_large_integer>(value);
  return constant;
}

a_constant string(const char *text) {
  a_constant constant;
  clear_constant(&constant, ck_string);
  constant.string_text = text;
  constant.string_length = std::strlen(text) + 1;
  constant.type = string_literal_type(chk_char, constant.string_length);
  return constant;
}

a_constant address_of(a_variable *variable) {
  a_constant constant;
  clear_constant(&constant, ck_address);
  constant.address_kind = abk_variable;
  constant.address_variable = variable;
  constant.type = make_pointer_type(variable->type);
  return constant;
}

// ---- Allocation --------------------------------------------------------------------------------

TEST_F(il, entries_know_their_region) {
  a_type *type = alloc_type(tk_struct);
  EXPECT_TRUE(in_file_scope_region(type));
  EXPECT_TRUE(type->is_incomplete);
  EXPECT_EQ(type->lowered_number, -1);
  EXPECT_EQ(type->class_supplement->vtbl_index, -3);

  a_routine *f = declare_function("f");
  begin_body(f);
  EXPECT_FALSE(in_file_scope_region(alloc_expr_node(enk_error)));
  EXPECT_FALSE(in_file_scope_region(alloc_variable(sc_auto)));
  EXPECT_TRUE(in_file_scope_region(alloc_variable(sc_static)));
  EXPECT_TRUE(in_file_scope_region(alloc_type(tk_pointer)));
  EXPECT_TRUE(in_file_scope_region(local_constant()));
  set_il_lowering_flag(true);
  EXPECT_TRUE(il_marks(alloc_statement(stmk_null)).il_lowered);
  set_il_lowering_flag(false);
  EXPECT_FALSE(il_marks(alloc_statement(stmk_null)).il_lowered);
  end_body();
}

TEST_F(il, heads_stand_in_front_of_eleven_kinds) {
  int with_head = 0;
  for (int kind = 1; kind < iek_last; ++kind) {
    char entry;
    if (source_corresp_for_il_entry(&entry, static_cast<an_il_entry_kind>(kind)) != nullptr)
      ++with_head;
  }
  EXPECT_EQ(with_head, 11);
  EXPECT_EQ(sizeof_il_entry[iek_string_text], 1u);
  EXPECT_EQ(sizeof_il_entry[iek_last], 9999u);
}

TEST_F(il, set_type_kind_clears_what_another_kind_left) {
  a_type *type = alloc_type(tk_pointer);
  type->pointed_to = int_type();
  type->name = "t";
  set_type_kind(type, tk_array);
  EXPECT_EQ(type->element_type, nullptr);
  EXPECT_STREQ(type->name, "t");
  set_type_kind(type, tk_routine);
  EXPECT_EQ(type->routine_supplement->calling_convention, calling_convention_unset);
}

TEST_F(il, a_local_static_finds_its_scope_until_the_body_goes) {
  a_routine *f = declare_function("f");
  a_scope *scope = begin_body(f);
  a_variable *local_static = declare("s", sc_static, int_type());
  a_variable *local = declare("x", sc_auto, int_type());
  EXPECT_EQ(local->parent_scope, scope);
  EXPECT_EQ(local_static->parent_scope, nullptr);
  EXPECT_TRUE(local_static->has_local_scope_ref);
  EXPECT_EQ(local_static->enclosing_routine, f);
  EXPECT_EQ(get_parent_scope_of(local_static), scope);
  end_body();

  clear_function_body(scope);
  EXPECT_EQ(get_parent_scope_of(local_static), nullptr);
  EXPECT_EQ(scope_for_routine(f), nullptr);
  ASSERT_NE(il_header.orphaned_scope_lists, nullptr);
  EXPECT_EQ(il_header.orphaned_scope_lists->variables, local_static);
  EXPECT_EQ(il_header.orphaned_scope_lists->routine, f);
}

TEST_F(il, orphans_are_listed_once_and_named_types_not) {
  a_type *pointer = alloc_type(tk_pointer);
  a_type *record = alloc_type(tk_struct);
  f_possibly_add_orphaned_file_scope_il_entry(pointer, iek_type, curr_translation_unit);
  f_possibly_add_orphaned_file_scope_il_entry(pointer, iek_type, curr_translation_unit);
  f_possibly_add_orphaned_file_scope_il_entry(record, iek_type, curr_translation_unit);
  int count = 0;
  for (void *entry = orphaned_file_scope_il_entries[iek_type].first; entry != nullptr;
       entry = next_orphan_of(entry)) {
    count += entry == pointer;
    EXPECT_NE(entry, record);
  }
  EXPECT_EQ(count, 1);
}

// ---- Constants ---------------------------------------------------------------------------------

TEST_F(il, equal_constants_are_one) {
  const a_constant five = integer(5), six = integer(6);
  a_constant *shared = alloc_shareable_constant(&five);
  EXPECT_EQ(alloc_shareable_constant(&five), shared);
  EXPECT_NE(alloc_shareable_constant(&six), shared);

  a_constant unsigned_five = five;
  unsigned_five.type = integer_type(ik_unsigned_int);
  EXPECT_NE(alloc_shareable_constant(&unsigned_five), shared);
  a_constant cast_five = five;
  cast_five.came_from_cast = true;
  EXPECT_NE(alloc_shareable_constant(&cast_five), shared);
  EXPECT_EQ(alloc_shareable_constant(&five), shared);

  empty_shareable_constants_table();
  EXPECT_NE(alloc_shareable_constant(&five), shared);
}

TEST_F(il, strings_are_shared_by_switch) {
  const a_constant abc = string("abc"), abd = string("abd");
  a_constant *shared = alloc_shareable_constant(&abc);
  EXPECT_EQ(alloc_shareable_constant(&abc), shared);
  EXPECT_NE(alloc_shareable_constant(&abd), shared);
  string_literals_shared = false;
  EXPECT_NE(alloc_shareable_constant(&abc), alloc_shareable_constant(&abc));
}

TEST_F(il, constants_on_locals_belong_to_their_function) {
  a_routine *f = declare_function("f");
  begin_body(f);
  a_variable *x = declare("x", sc_auto, int_type());
  const a_constant address = address_of(x), five = integer(5);
  a_constant *local = alloc_shareable_constant(&address);
  EXPECT_FALSE(in_file_scope_region(local));
  EXPECT_EQ(alloc_shareable_constant(&address), local);
  EXPECT_TRUE(in_file_scope_region(alloc_shareable_constant(&five)));
  end_body();
}

TEST_F(il, scratch_constants_are_free_or_in_the_il_never_both) {
  a_constant *scratch = local_constant();
  a_constant *block = scratch;
  *scratch = integer(7);
  a_constant *moved = move_local_constant_to_il(&scratch);
  EXPECT_EQ(scratch, nullptr);
  EXPECT_EQ(moved, block);
  EXPECT_NE(local_constant(), moved);

  a_constant *released = local_constant();
  block = released;
  release_local_constant(&released);
  EXPECT_EQ(released, nullptr);
  EXPECT_EQ(local_constant(), block);

  // One that refers to a local is copied into the body, and its block is free again.
  a_routine *f = declare_function("f");
  begin_body(f);
  a_variable *x = declare("x", sc_auto, int_type());
  a_constant *address = local_constant();
  block = address;
  *address = address_of(x);
  EXPECT_FALSE(in_file_scope_region(move_local_constant_to_il(&address)));
  EXPECT_EQ(local_constant(), block);
  end_body();
}

TEST_F(il, comparison_of_constants_goes_by_value) {
  const a_constant a = string("x"), b = string("x");
  EXPECT_TRUE(compare_constants(&a, &b, ccf_none));
  a_constant first = integer(1), second = integer(1);
  first.came_from_cast = true;
  EXPECT_TRUE(compare_constants(&first, &second, ccf_none));
  EXPECT_FALSE(compare_constants(&first, &second, ccf_exact));
}

// ---- Walking -----------------------------------------------------------------------------------

std::multiset<an_il_entry_kind> visited;
void count_visit(char *, an_il_entry_kind kind) {
  visited.insert(kind);
}
std::vector<std::string> texts;
void note_text(char *text, an_il_entry_kind kind, std::size_t) {
  if (kind == iek_id_name_text) texts.push_back(text);
}
char *drop_strings(char *entry, an_il_entry_kind kind) {
  return kind == iek_constant && reinterpret_cast<a_constant *>(entry)->kind == ck_string ? nullptr
                                                                                          : entry;
}
void walk_again(char *entry, an_il_entry_kind kind) {
  visited.insert(kind);
  if (kind == iek_variable)
    walk_il_subtree(count_visit, nullptr, nullptr, nullptr, nullptr, false, entry, kind);
}

class walking : public an_il_fixture {
 protected:
  // int a = 5; int b = 5; int f(void) { return a + 1; }
  void SetUp() override {
    an_il_fixture::SetUp();
    visited.clear();
    texts.clear();
    const a_constant five = integer(5);
    for (const char *name : {"a", "b"}) {
      a_variable *variable = declare(name, sc_none, int_type());
      variable->init_kind = init_constant;
      variable->initializer.constant = alloc_shareable_constant(&five);
      if (*name == 'a') a_ = variable;
    }
    f_ = declare_function("f");
    a_scope *scope = begin_body(f_);
    add_return(scope, binary(eok_add, var_rvalue_expr(a_), number(1)));
    end_body();
  }
  void walk() { walk_file_scope_il(count_visit, note_text, nullptr, nullptr, nullptr, false); }

  a_variable *a_;
  a_routine *f_;
};

TEST_F(walking, every_walk_meets_each_entry_once) {
  walk();
  const std::multiset<an_il_entry_kind> first = visited;
  EXPECT_EQ(first.count(iek_variable), 2u);
  EXPECT_EQ(first.count(iek_routine), 1u);
  EXPECT_EQ(first.count(iek_constant), 1u);  // shared
  EXPECT_EQ(first.count(iek_expr_node), 0u);
  const std::vector<std::string> names = {"a", "b", "f"};
  EXPECT_EQ(texts, names);

  // An entry that was made in between is met, too.
  declare("c", sc_none, int_type());
  visited.clear();
  walk();
  EXPECT_EQ(visited.count(iek_variable), 3u);
  EXPECT_EQ(visited.size(), first.size() + 1);
}

TEST_F(walking, a_body_is_walked_alone) {
  walk_routine_scope_il(f_->region_number, count_visit, nullptr, nullptr, nullptr, nullptr, false);
  EXPECT_EQ(visited.count(iek_expr_node), 3u);
  EXPECT_EQ(visited.count(iek_statement), 2u);
  EXPECT_EQ(visited.count(iek_scope), 1u);
  EXPECT_EQ(visited.count(iek_variable), 0u);
  EXPECT_EQ(visited.count(iek_type), 0u);
}

TEST_F(walking, a_type_that_only_a_body_uses_becomes_an_orphan) {
  a_routine *g = declare_function("g");
  a_scope *scope = begin_body(g);
  a_type *pointer = make_pointer_type(make_pointer_type(int_type()));
  an_expr_node *node = error_node();
  node->type = pointer;
  add_return(scope, node);
  end_body();
  const auto is_listed = [&] {
    int count = 0;
    for (void *entry = orphaned_file_scope_il_entries[iek_type].first; entry != nullptr;
         entry = next_orphan_of(entry))
      count += entry == pointer;
    return count;
  };
  for (int i = 0; i < 2; ++i) {
    walk_routine_scope_il(g->region_number, count_visit, nullptr, nullptr, nullptr, nullptr, false);
    EXPECT_EQ(is_listed(), 1);
  }
}

TEST_F(walking, a_hook_may_walk) {
  walk_file_scope_il(walk_again, nullptr, nullptr, nullptr, nullptr, false);
  EXPECT_EQ(visited.count(iek_variable), 2u);
  EXPECT_EQ(visited.count(iek_routine), 1u);
}

TEST_F(walking, remapping_to_null_cuts_the_field) {
  const a_constant text = string("s");
  a_->initializer.constant = alloc_shareable_constant(&text);
  walk_file_scope_il(count_visit, nullptr, drop_strings, nullptr, nullptr, false);
  EXPECT_EQ(a_->initializer.constant, nullptr);
  EXPECT_EQ(visited.count(iek_constant), 1u);
}

TEST_F(walking, long_lists_do_not_deepen_the_stack) {
  for (int i = 0; i < 200000; ++i) {
    a_variable *variable = alloc_variable(sc_none);
    variable->type = int_type();
    add_to_variables_list(variable, 0);
  }
  walk();
  EXPECT_EQ(visited.count(iek_variable), 200002u);
}

// ---- What is needed ----------------------------------------------------------------------------

class needed_marks : public an_il_fixture {
 protected:
  // static int a, b; static int g(void) { return a; } int f(void) { return g(); } with b unused;
  // static int h(void) { return b; } is not reached.
  void SetUp() override {
    an_il_fixture::SetUp();
    a_ = declare("a", sc_static, int_type());
    b_ = declare("b", sc_static, int_type());
    g_ = returning("g", [&] { return var_rvalue_expr(a_); });
    f_ = returning(
        "f", [&] { return make_operator_node(eok_call, int_type(), function_addr_expr(g_)); });
    h_ = returning("h", [&] { return var_rvalue_expr(b_); });
  }
  template <class F>
  a_routine *returning(const char *name, F value) {
    a_routine *routine = declare_function(name);
    add_return(begin_body(routine), value());
    end_body();
    return routine;
  }

  a_variable *a_, *b_;
  a_routine *f_, *g_, *h_;
};

TEST_F(needed_marks, spread_through_bodies) {
  mark_as_needed(f_, iek_routine);
  EXPECT_TRUE(f_->needed && g_->needed && a_->needed);
  EXPECT_TRUE(g_->definition_needed);
  EXPECT_FALSE(h_->needed || b_->needed);

  a_scope *file_scope = il_header.primary_scope;
  mark_to_keep_in_il(file_scope, iek_scope);
  eliminate_bodies_of_unneeded_functions(file_scope);
  eliminate_unneeded_il_entries(file_scope);
  EXPECT_EQ(file_scope->variables, a_);
  EXPECT_EQ(a_->next, nullptr);
  EXPECT_EQ(file_scope->routines, g_);
  EXPECT_EQ(g_->next, f_);
  EXPECT_EQ(f_->next, nullptr);
  EXPECT_EQ(scope_for_routine(h_), nullptr);
  EXPECT_NE(scope_for_routine(g_), nullptr);
  EXPECT_EQ(check_il(icp_before_emission, stderr), 0);
  // The list is open still: what comes next is appended to what stayed.
  a_variable *c = declare("c", sc_none, int_type());
  EXPECT_EQ(a_->next, c);
}

TEST_F(needed_marks, an_initializer_that_comes_later_counts) {
  mark_as_needed(a_, iek_variable);
  const a_constant address = address_of(b_);
  a_->init_kind = init_constant;
  a_->initializer.constant = alloc_shareable_constant(&address);
  mark_as_needed(a_, iek_variable);
  EXPECT_TRUE(b_->needed);
}

TEST_F(needed_marks, a_body_that_comes_later_is_walked_by_the_next_call) {
  a_routine *late = declare_function("late");
  mark_as_needed(late, iek_routine);
  EXPECT_FALSE(b_->needed);
  add_return(begin_body(late), var_rvalue_expr(b_));
  end_body();
  set_routine_definition_needed(late);
  EXPECT_TRUE(b_->needed);
}

TEST_F(needed_marks, long_chains_of_calls_do_not_deepen_the_stack) {
  a_routine *previous = h_;
  for (int i = 0; i < 20000; ++i) {
    a_routine *callee = previous;
    previous = returning(
        "r", [&] { return make_operator_node(eok_call, int_type(), function_addr_expr(callee)); });
  }
  mark_as_needed(previous, iek_routine);
  EXPECT_TRUE(b_->needed);
}

TEST_F(needed_marks, gnu_extern_inline_bodies_are_never_needed) {
  g_->gnu_inline = true;
  g_->declared_storage_class = sc_extern;
  mark_as_needed(f_, iek_routine);
  EXPECT_TRUE(g_->needed);
  EXPECT_FALSE(g_->definition_needed || a_->needed);
}

// ---- Nodes, copies, statements -----------------------------------------------------------------

TEST_F(il, nodes_simplify_addresses) {
  a_variable *x = declare("x", sc_none, int_type());
  an_expr_node *lvalue = var_lvalue_expr(x);
  an_expr_node *address = add_address_of_to_node(lvalue);
  EXPECT_TRUE(x->address_taken);
  EXPECT_EQ(add_indirection_to_node(address), lvalue);
  EXPECT_EQ(dumped(binary(eok_add, var_rvalue_expr(x), number(-2))),
            "(add int (variable x) (constant -2))");
  EXPECT_EQ(binary(eok_lt, number(1), number(2))->op_kind_info, tk_integer);
  EXPECT_EQ(add_cast_if_necessary(lvalue, int_type()), lvalue);
}

TEST_F(il, only_four_operators_are_casts_of_the_source) {
  std::vector<int> casts;
  for (int op = 0; op < eok_last; ++op) {
    an_expr_node *node =
        make_operator_node(static_cast<an_expr_operator_kind>(op), int_type(), number(1));
    if (is_cast_operation_node(node)) casts.push_back(op);
  }
  const std::vector<int> expected = {5, 9, 13, 17};
  EXPECT_EQ(casts, expected);
}

TEST_F(il, a_copy_shares_entities_only) {
  a_variable *x = declare("x", sc_none, int_type());
  a_dynamic_init *init = make_expression_dynamic_init(number(3));
  an_expr_node *temporary = alloc_expr_node(enk_temp_init);
  temporary->type = int_type();
  temporary->init = init;
  an_expr_node *sum = binary(eok_add, var_rvalue_expr(x), temporary);
  an_expr_node *copy = copy_expr_tree(sum, ctf_none);
  EXPECT_EQ(dumped(copy), dumped(sum));
  EXPECT_NE(copy->operands, sum->operands);
  EXPECT_EQ(copy->operands->variable, x);
  EXPECT_NE(copy->operands->next->init, init);
  EXPECT_NE(copy->operands->next->init->expr, init->expr);
  EXPECT_EQ(copy_expr_tree(sum, ctf_share_temporaries)->operands->next->init, init);
  EXPECT_EQ(copy_node(sum)->operands, sum->operands);
}

TEST_F(il, a_copied_aggregate_ends_at_its_own_last_element) {
  a_constant *aggregate = fs_constant(ck_aggregate);
  aggregate->type = int_type();
  for (int i = 1; i <= 3; ++i) {
    const a_constant value = integer(i);
    a_constant *element = alloc_unshared_constant(&value);
    if (aggregate->last_element == nullptr)
      aggregate->first_element = element;
    else
      aggregate->last_element->next_in_list = element;
    aggregate->last_element = element;
  }
  a_constant *copy = copy_constant_tree(aggregate);
  EXPECT_NE(copy->first_element, aggregate->first_element);
  EXPECT_EQ(copy->last_element->integer_value, 3u);
  EXPECT_EQ(copy->first_element->next_in_list->next_in_list, copy->last_element);
}

TEST_F(il, a_statement_becomes_a_block_around_itself) {
  a_routine *f = declare_function("f");
  a_scope *scope = begin_body(f);
  a_statement *loop = alloc_statement(stmk_while);
  loop->expr = number(1);
  loop->body = alloc_statement(stmk_null);
  loop->body->parent = loop;
  add_statement(scope, loop);
  change_statement_into_block(loop);
  ASSERT_EQ(loop->kind, stmk_block);
  a_statement *child = loop->first_statement;
  EXPECT_EQ(child->kind, stmk_while);
  EXPECT_EQ(child->parent, loop);
  EXPECT_EQ(child->body->parent, child);
  EXPECT_EQ(scope->block->first_statement, loop);
  turn_statement_into_noop(child);
  EXPECT_EQ(child->first_statement, nullptr);
  end_body();
}

// ---- Traversal ---------------------------------------------------------------------------------

TEST_F(il, traversal_goes_in_order_skips_and_stops) {
  a_routine *f = declare_function("f");
  a_scope *scope = begin_body(f);
  a_statement *loop = alloc_statement(stmk_for);
  loop->expr = number(2);
  loop->for_supplement->init_statement = make_expr_statement(number(1));
  loop->for_supplement->increment_expr = number(4);
  loop->body = make_expr_statement(binary(eok_add, number(3), number(3)));
  add_statement(scope, loop);
  end_body();

  an_expr_or_stmt_traversal_block block;
  static std::string seen;
  const auto run = [&] {
    seen.clear();
    block.stop = false;
    traverse_statement(scope->block, &block);
    return seen;
  };
  clear_expr_or_stmt_traversal_block(&block);
  block.constant_pre = [](a_constant *c, an_expr_or_stmt_traversal_block *) {
    seen += static_cast<char>('0' + c->integer_value);
  };
  EXPECT_EQ(run(), "12334");
  block.expr_pre = [](an_expr_node *node, an_expr_or_stmt_traversal_block *b) {
    if (is_operation_node(node, eok_add)) b->skip_children = true;
  };
  EXPECT_EQ(run(), "124");
  block.expr_pre = [](an_expr_node *node, an_expr_or_stmt_traversal_block *b) {
    if (is_operation_node(node, eok_add)) b->stop = true;
  };
  EXPECT_EQ(run(), "12");
}

// ---- The verifier ------------------------------------------------------------------------------

TEST_F(walking, the_verifier_finds_faults) {
  EXPECT_EQ(check_il(icp_after_parsing, stderr), 0);

  // A pointer out of the file scope into a body.
  a_variable *b = a_->next;
  a_->initializer.constant = nullptr;
  a_->init_kind = init_dynamic;
  a_scope *scope = scope_for_routine(f_);
  const a_memory_region_number saved = curr_il_region_number;
  switch_il_region(f_->region_number);
  a_->initializer.dynamic = make_expression_dynamic_init(number(1));
  switch_il_region(saved);
  EXPECT_GE(check_il(icp_after_parsing, nullptr), 1);
  a_->init_kind = init_none;
  EXPECT_EQ(check_il(icp_after_parsing, stderr), 0);

  // A member that says it belongs elsewhere, an operand too few, a node without a type.
  b->parent_scope = scope;
  EXPECT_GE(check_il(icp_after_parsing, nullptr), 1);
  b->parent_scope = il_header.primary_scope;
  an_expr_node *sum = scope->block->first_statement->expr;
  an_expr_node *second = sum->operands->next;
  sum->operands->next = nullptr;
  EXPECT_EQ(check_il(icp_after_parsing, nullptr), 1);
  sum->operands->next = second;
  second->type = nullptr;
  EXPECT_EQ(check_function_il(f_, icp_after_parsing, nullptr), 1);
  second->type = int_type();

  // A node that only the front end knows.
  set_expr_node_kind(second, enk_init_list);
  EXPECT_EQ(check_il(icp_after_parsing, stderr), 0);
  EXPECT_EQ(check_il(icp_before_emission, nullptr), 1);
}

TEST_F(walking, the_dump_is_readable) {
  a_->needed = true;
  EXPECT_EQ(dumped_il(),
            "variable int a = 5\n"
            "variable int b = 5 (not needed)\n"
            "routine int f(void) (not needed)\n"
            "  block\n"
            "    return (add int (variable a) (constant 1))\n");
}

}  // namespace
