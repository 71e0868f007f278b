// Headers, chains, scopes and their ends, without a tokenizer: names go in and out of scopes by
// hand, and lookups must see what the language says.
#include "semantics/symbol_tbl.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "front_end_start.h"
#include "il/il.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"

namespace {

class symbol_table : public ::testing::Test {
 protected:
  void SetUp() override { start_front_end(no_settings); }
  void TearDown() override { end_front_end(); }

  static a_symbol_locator locator_of(const std::string &name) {
    a_symbol_locator locator = cleared_locator;
    find_symbol(name.data(), name.size(), &locator);
    return locator;
  }
  static a_symbol *enter(a_symbol_kind kind, const std::string &name) {
    return enter_at(kind, name, depth_scope_stack);
  }
  static a_symbol *enter_at(a_symbol_kind kind, const std::string &name, int depth) {
    a_symbol_locator locator = locator_of(name);
    return enter_symbol(kind, &locator, depth, 0);
  }
  static a_symbol *look_up(const std::string &name, unsigned options = 0) {
    a_symbol_locator locator = locator_of(name);
    return normal_id_lookup(&locator, options);
  }
  // Ends a scope without looking at the entities, which these symbols do not have.
  static void leave() { abandon_scope(); }
};

TEST_F(symbol_table, a_spelling_has_one_header) {
  std::set<a_symbol_header *> headers;
  std::string name;
  for (int length = 0; length <= 40; ++length) {
    a_symbol_header *header = find_symbol_header(name.data(), name.size());
    EXPECT_TRUE(headers.insert(header).second);
    EXPECT_EQ(find_symbol_header(name.data(), name.size()), header);
    EXPECT_EQ(header->length, name.size());
    EXPECT_STREQ(header->name, name.c_str());
    name += static_cast<char>('a' + length % 7);
  }
}

TEST_F(symbol_table, names_stay_found_when_the_table_grows) {
  std::vector<a_symbol_header *> headers;
  std::set<std::uint32_t> hashes;
  auto name = [](int i) { return "a_common_beginning_" + std::to_string(i) + "_and_a_common_end"; };
  for (int i = 0; i < 40000; ++i) {
    std::string text = name(i);
    headers.push_back(find_symbol_header(text.data(), text.size()));
    hashes.insert(headers.back()->hash_value);
  }
  EXPECT_GT(::symbol_table.num_slots, 16384u);
  EXPECT_GT(hashes.size(), 39900u);
  for (int i = 0; i < 40000; ++i) {
    std::string text = name(i);
    ASSERT_EQ(find_symbol_header(text.data(), text.size()), headers[static_cast<std::size_t>(i)]);
  }
}

TEST_F(symbol_table, an_inner_name_hides_an_outer_one_until_its_block_ends) {
  a_symbol *outer = enter(syk_type, "x");
  push_block_scope(nullptr);
  EXPECT_EQ(look_up("x"), outer);
  a_symbol *inner = enter(syk_constant, "x");
  EXPECT_EQ(look_up("x"), inner);
  push_block_scope(nullptr);
  EXPECT_EQ(look_up("x"), inner);
  a_symbol_locator locator = locator_of("x");
  EXPECT_EQ(curr_scope_id_lookup(&locator, 0), nullptr);
  leave();
  leave();
  EXPECT_EQ(look_up("x"), outer);
}

TEST_F(symbol_table, a_name_entered_in_an_outer_scope_stays_behind_inner_ones) {
  push_block_scope(nullptr);
  a_symbol *inner = enter(syk_type, "f");
  push_block_scope(nullptr);
  a_symbol *global = enter_at(syk_routine, "f", 0);
  EXPECT_EQ(look_up("f"), inner);
  leave();
  leave();
  EXPECT_EQ(look_up("f"), global);
}

TEST_F(symbol_table, tags_labels_macros_and_ordinary_names_of_c_live_side_by_side) {
  a_symbol *tag = enter(syk_class, "s");
  a_symbol *ordinary = enter(syk_type, "s");
  a_symbol_locator locator = locator_of("s");
  a_symbol *macro = enter_macro_symbol(locator.header, &null_source_position);
  EXPECT_EQ(look_up("s"), ordinary);
  EXPECT_EQ(look_up("s", lookup_tag_only), tag);
  EXPECT_EQ(find_macro_symbol(locator.header), macro);
  remove_symbol(macro);
  EXPECT_EQ(find_macro_symbol(locator.header), nullptr);
  remove_symbol(ordinary);
  EXPECT_EQ(look_up("s"), nullptr);
  EXPECT_EQ(look_up("s", lookup_tag_only), tag);
}

TEST_F(symbol_table, in_cplusplus_the_non_tag_of_a_scope_wins_outside_elaborated_names) {
  C_dialect = dialect_cplusplus;
  symbol_tbl_one_time_init();
  a_symbol *variable = enter(syk_type, "x");
  a_symbol *tag = enter(syk_class, "x");
  EXPECT_EQ(look_up("x"), variable);
  EXPECT_EQ(look_up("x", lookup_tag_only), tag);
  push_block_scope(nullptr);
  a_symbol *inner_tag = enter(syk_class, "x");
  EXPECT_EQ(look_up("x"), inner_tag);
}

TEST_F(symbol_table, fields_are_found_through_their_struct_only) {
  a_type *type = alloc_type(tk_struct);
  a_symbol *tag = enter(syk_class, "s");
  set_type_of_symbol(tag, type);
  set_source_corresp(type, tag);
  std::vector<a_symbol *> fields;
  push_scope(sck_class, new_scope_number, type, nullptr);
  // Enough of them to make the list grow into a table, and the table grow.
  for (int i = 0; i < 500; ++i)
    fields.push_back(enter(syk_field, "f" + std::to_string(i)));
  leave();
  EXPECT_EQ(look_up("f0"), nullptr);
  for (int i = 0; i < 500; ++i) {
    a_symbol_locator locator = locator_of("f" + std::to_string(i));
    ASSERT_EQ(field_lookup(&locator, type), fields[static_cast<std::size_t>(i)]) << i;
  }
  a_symbol_locator locator = locator_of("f500");
  EXPECT_EQ(field_lookup(&locator, type), nullptr);
}

TEST_F(symbol_table, a_kept_block_comes_back_with_its_names_in_order) {
  a_scope_pointers_block block;
  push_block_scope(&block);
  a_symbol *a = enter(syk_type, "a");
  a_symbol *b = enter(syk_type, "b");
  pop_block_scope(true);
  EXPECT_EQ(look_up("a"), nullptr);
  push_block_reactivation_scope(nullptr, &block);
  EXPECT_EQ(look_up("a"), a);
  EXPECT_EQ(look_up("b"), b);
  EXPECT_EQ(block.first_symbol, a);
  EXPECT_EQ(a->next_in_scope, b);
  leave();
  EXPECT_EQ(look_up("a"), nullptr);
}

TEST_F(symbol_table, block_externs_are_kept_for_later_declarations_and_not_looked_up) {
  push_block_scope(nullptr);
  a_symbol_locator locator = locator_of("e");
  a_symbol *kept = enter_extern_symbol(syk_extern_variable, &locator);
  EXPECT_EQ(look_up("e"), nullptr);
  EXPECT_EQ(look_up("e", lookup_block_externs), kept);
  leave();
  EXPECT_EQ(find_external_symbol(locator.header), kept);
}

TEST_F(symbol_table, a_typedef_names_an_unnamed_tag) {
  a_symbol *tag = make_unnamed_tag_symbol(syk_class, &null_source_position);
  EXPECT_TRUE(is_unnamed_tag_symbol(tag));
  a_symbol_locator locator = locator_of("t");
  relink_unnamed_tag_symbol(tag, &locator);
  EXPECT_FALSE(is_unnamed_tag_symbol(tag));
  EXPECT_STREQ(tag->header->name, "t");
}

TEST_F(symbol_table, an_overload_set_holds_its_functions_in_order_of_declaration) {
  C_dialect = dialect_cplusplus;
  symbol_tbl_one_time_init();
  a_symbol *first = enter(syk_routine, "f");
  a_symbol_locator locator = locator_of("f");
  a_symbol *second = make_symbol(syk_routine, &locator);
  a_symbol *third = make_symbol(syk_routine, &locator);
  a_symbol *set = add_symbol_to_overload_list(first, third);
  EXPECT_EQ(add_symbol_to_overload_list(set, second), set);
  EXPECT_EQ(look_up("f"), set);
  EXPECT_EQ(set->variant.first_function, first);
  EXPECT_EQ(first->extra.next_overload, second);
  EXPECT_EQ(second->extra.next_overload, third);
  remove_symbol_from_overload_set(second, set);
  EXPECT_EQ(first->extra.next_overload, third);
}

// ---- The scope stack ---------------------------------------------------------------------------

TEST_F(symbol_table, blocks_get_an_il_scope_only_when_one_is_needed) {
  a_routine *routine = alloc_routine();
  push_scope(sck_function, new_scope_number, nullptr, routine);
  a_memory_region_number region = curr_il_region_number;
  EXPECT_EQ(region, routine->region_number);
  EXPECT_NE(region, file_scope_region_number);
  a_scope *function_scope = top_scope().il_scope;
  push_block_scope(nullptr);
  push_block_scope(nullptr);
  EXPECT_EQ(top_scope().il_scope, nullptr);
  a_scope *inner = ensure_il_scope_exists(&top_scope());
  EXPECT_EQ(inner->parent, scope_stack[depth_scope_stack - 1].il_scope);
  EXPECT_EQ(inner->parent->parent, function_scope);
  EXPECT_EQ(function_scope->nested_scopes, inner->parent);
  EXPECT_EQ(inner->stack_depth, depth_scope_stack);
  leave();
  EXPECT_EQ(inner->stack_depth, -1);
  leave();
  leave();
  EXPECT_EQ(curr_il_region_number, file_scope_region_number);
  EXPECT_EQ(depth_innermost_function_scope, -1);
  EXPECT_EQ(innermost_function_scope, nullptr);
  EXPECT_EQ(decl_scope_level, 0);
  EXPECT_TRUE(routine->defined);
}

TEST_F(symbol_table, open_entries_do_not_move_when_the_stack_grows) {
  a_scope_stack_entry *file_entry = &scope_stack[0];
  for (int i = 0; i < 1000; ++i)
    push_block_scope(nullptr);
  EXPECT_EQ(file_entry, &scope_stack[0]);
  EXPECT_EQ(depth_scope_stack, 1000);
  for (int i = 0; i < 1000; ++i)
    leave();
  EXPECT_EQ(depth_scope_stack, 0);
}

TEST_F(symbol_table, a_class_scope_leaves_the_function_region) {
  a_routine *routine = alloc_routine();
  push_scope(sck_function, new_scope_number, nullptr, routine);
  a_type *type = alloc_type(tk_struct);
  a_symbol *tag = enter(syk_class, "s");
  set_type_of_symbol(tag, type);
  set_source_corresp_with_scope_depth(type, tag, depth_scope_stack);
  EXPECT_TRUE(type->is_local_to_routine);
  push_scope(sck_class, new_scope_number, type, nullptr);
  EXPECT_EQ(curr_il_region_number, file_scope_region_number);
  EXPECT_EQ(top_scope().il_scope->assoc.type, type);
  leave();
  EXPECT_EQ(curr_il_region_number, routine->region_number);
  leave();
}

TEST_F(symbol_table, the_depth_of_a_symbol_is_that_of_its_open_scope) {
  a_symbol *global = enter(syk_type, "g");
  a_routine *routine = alloc_routine();
  push_scope(sck_function, new_scope_number, nullptr, routine);
  push_block_scope(nullptr);
  a_symbol *local = enter(syk_type, "l");
  push_block_scope(nullptr);
  bool in_function = true;
  EXPECT_EQ(scope_depth_of_symbol(global, &in_function), 0);
  EXPECT_FALSE(in_function);
  EXPECT_EQ(scope_depth_of_symbol(local, &in_function), 2);
  EXPECT_TRUE(in_function);
  leave();
  leave();
  EXPECT_EQ(scope_depth_of_symbol(local, nullptr), -1);
  leave();
}

TEST_F(symbol_table, labels_belong_to_the_function_and_local_ones_to_their_block) {
  a_routine *routine = alloc_routine();
  push_scope(sck_function, new_scope_number, nullptr, routine);
  push_block_scope(nullptr);
  a_symbol_locator locator = locator_of("l");
  a_symbol *label = enter_at(syk_label, "l", depth_innermost_function_scope);
  push_block_scope(nullptr);
  EXPECT_EQ(find_label_symbol(locator.header), label);
  a_symbol *local_label = enter(syk_label, "l");
  EXPECT_EQ(find_label_symbol(locator.header), local_label);
  leave();
  EXPECT_EQ(find_label_symbol(locator.header), label);
  leave();
  EXPECT_EQ(find_label_symbol(locator.header), label);
  EXPECT_EQ(look_up("l"), nullptr);
  leave();
  EXPECT_EQ(find_label_symbol(locator.header), nullptr);
}

TEST_F(symbol_table, a_file_scope_that_is_opened_again_is_the_same) {
  a_symbol *global = enter(syk_type, "g");
  a_scope *scope = scope_stack[0].il_scope;
  pop_scope();
  EXPECT_EQ(depth_scope_stack, -1);
  push_file_scope(true);
  EXPECT_EQ(scope_stack[0].il_scope, scope);
  EXPECT_EQ(look_up("g"), global);
  EXPECT_EQ(scope_depth_of_symbol(global, nullptr), 0);
}

TEST_F(symbol_table, a_path_changes_the_access_of_a_member) {
  EXPECT_EQ(compute_access(as_public, as_public), as_public);
  EXPECT_EQ(compute_access(as_protected, as_public), as_protected);
  EXPECT_EQ(compute_access(as_public, as_protected), as_protected);
  EXPECT_EQ(compute_access(as_public, as_private), as_private);
  EXPECT_EQ(compute_access(as_private, as_public), as_inaccessible);
  EXPECT_EQ(compute_access(as_public, as_inaccessible), as_inaccessible);
}

}  // namespace
