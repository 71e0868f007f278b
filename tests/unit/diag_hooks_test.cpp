// Symbols in messages, and the instances of templates that open scopes stand for: entities and
// scope entries made by hand.
#include <gtest/gtest.h>

#include <string>

#include "DIAG/error.h"
#include "front_end_start.h"
#include "il/il.h"
#include "il/il_template.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"

namespace {

class symbols_in_messages : public ::testing::Test {
 protected:
  void SetUp() override {
    start_front_end([] {
      C_dialect = dialect_cplusplus;
      distinct_template_signatures = true;
    });
  }
  void TearDown() override { end_front_end(); }

  static a_symbol *symbol(a_symbol_kind kind, const std::string &name, void *entity) {
    a_symbol_locator locator = cleared_locator;
    find_symbol(name.data(), name.size(), &locator);
    a_symbol *result = enter_symbol(kind, &locator, 0, 0);
    result->variant.pointer = entity;
    return result;
  }
  template <class ENTITY>
  static a_symbol *declare(a_symbol_kind kind, const char *name, ENTITY *entity) {
    a_symbol *result = symbol(kind, name, entity);
    entity->name = result->header->name;
    entity->symbol = result;
    return result;
  }
  static a_routine *function(const char *name) {
    a_routine *routine = alloc_routine();
    routine->type = make_routine_type_full(integer_type(ik_int), integer_type(ik_char));
    declare(syk_routine, name, routine);
    return routine;
  }
  static a_template_arg *int_argument() {
    a_template_arg *arg = alloc_template_arg(tak_type);
    arg->payload.type = integer_type(ik_int);
    return arg;
  }
  // template <class T>
  static a_template *template_of_t() {
    a_template *result = alloc_template();
    result->declaration = alloc_template_decl();
    result->declaration->params = alloc_template_parameter();
    result->declaration->params->name = "T";
    return result;
  }
  static void make_instance(a_routine *routine) {
    routine->is_template_instance = true;
    routine->template_info = template_of_t();
    routine->template_args = int_argument();
  }
  static a_type *class_instance(const char *name) {
    a_type *type = alloc_type(tk_class);
    type->class_flags.is_template_instance = true;
    type->class_supplement->assoc_template = template_of_t();
    type->class_supplement->template_args = int_argument();
    declare(syk_class, name, type);
    return type;
  }

  static std::string form(a_symbol *symbol, a_symbol_form form = {}) {
    a_text_buffer *out = alloc_text_buffer(64);
    diag_hooks.form_symbol_name(symbol, &form, out);
    return text_of_buffer(out);
  }
  static std::string signature(a_symbol *symbol) {
    a_symbol_form with_parameters{};
    with_parameters.full_signature = true;
    return form(symbol, with_parameters);
  }
  static std::string based(a_symbol *symbol) {
    a_symbol_form arguments{};
    arguments.omit_kind = arguments.with_template_args = true;
    return form(symbol, arguments);
  }
  static an_instantiation_context_kind context(int depth, a_symbol **symbol) {
    const a_source_position *position;
    return diag_hooks.instantiation_context_of(depth, symbol, &position);
  }
};

TEST_F(symbols_in_messages, a_word_tells_the_kind) {
  auto word = [](a_symbol_kind kind, void *entity) { return form(symbol(kind, "x", entity)); };
  a_variable *variable = alloc_variable(sc_auto);
  variable->name = "x";
  EXPECT_EQ(word(syk_variable, variable), "variable \"x\"");
  EXPECT_EQ(word(syk_parameter, variable), "parameter \"x\"");
  variable->is_handler_parameter = true;
  EXPECT_EQ(word(syk_parameter, variable), "handler parameter \"x\"");
  EXPECT_EQ(word(syk_static_data_member, variable), "member \"x\"");
  a_field *field = alloc_field();
  field->name = "x";
  EXPECT_EQ(word(syk_field, field), "member \"x\"");
  a_label *label = alloc_label();
  label->name = "x";
  EXPECT_EQ(word(syk_label, label), "label \"x\"");
  EXPECT_EQ(word(syk_class_template, nullptr), "class template \"x\"");
  EXPECT_EQ(word(syk_function_template, nullptr), "function template \"x\"");
  EXPECT_EQ(word(syk_variable_template, nullptr), "variable template \"x\"");
  a_symbol *parameter = symbol(syk_class_template, "x", nullptr);
  parameter->is_template_param_symbol = true;
  EXPECT_EQ(form(parameter), "template template parameter \"x\"");
  a_type *type = alloc_type(tk_class);
  type->name = "x";
  EXPECT_EQ(word(syk_class, type), "class \"x\"");
  C_dialect = dialect_standard_c;
  EXPECT_EQ(word(syk_class, type), "struct \"x\"");
  EXPECT_EQ(word(syk_field, field), "field \"x\"");
  EXPECT_EQ(word(syk_type, type), "type \"x\"");
  EXPECT_EQ(word(syk_enum, type), "enum \"x\"");
  EXPECT_EQ(word(syk_macro, nullptr), "macro \"x\"");
}

TEST_F(symbols_in_messages, functions_show_what_the_text_asks_for) {
  a_symbol *f = function("f")->symbol;
  EXPECT_EQ(form(f), "function \"f\"");
  EXPECT_EQ(signature(f), "function \"f(char)\"");
  a_symbol_form type{};
  type.with_type = type.full_signature = type.omit_kind = true;
  EXPECT_EQ(form(f, type), "\"int f(char)\"");
  EXPECT_EQ(based(f), "\"f\"");
}

TEST_F(symbols_in_messages, names_have_their_qualifiers) {
  a_namespace *space = alloc_namespace(false);
  declare(syk_namespace, "space", space);
  a_scope *scope = alloc_scope(sck_namespace, 1, nullptr);
  scope->assoc.name_space = space;
  a_routine *routine = function("f");
  routine->parent_scope = scope;
  EXPECT_EQ(signature(routine->symbol), "function \"space::f(char)\"");
  a_symbol *projection = symbol(syk_projection, "f", routine->symbol);
  EXPECT_EQ(form(projection), "function \"space::f\"");
}

TEST_F(symbols_in_messages, instances_show_their_arguments) {
  a_routine *routine = function("f");
  make_instance(routine);
  EXPECT_EQ(form(routine->symbol), "function \"f(char) [with T=int]\"");
  EXPECT_EQ(based(routine->symbol), "\"f(char) [with T=int]\" based on template argument <int>");
  distinct_template_signatures = false;
  routine->template_args->next = int_argument();
  EXPECT_EQ(based(routine->symbol), "\"f(char)\" based on template arguments <int, int>");
  EXPECT_EQ(form(class_instance("A")->symbol), "class \"A<int>\"");

  // An argument list that a pack takes.
  distinct_template_signatures = true;
  routine->template_info->declaration->params->is_pack = true;
  routine->template_args->is_pack_element = routine->template_args->next->is_pack_element = true;
  EXPECT_EQ(form(routine->symbol), "function \"f(char) [with T=<int, int>]\"");
}

TEST_F(symbols_in_messages, scopes_of_instances_are_told) {
  a_type *type = class_instance("A");
  a_routine *plain = function("plain"), *instance = function("instance");
  a_routine *member = function("member"), *generated = function("generated");
  make_instance(instance);
  member->is_template_instance = true;
  generated->is_compiler_generated = true;
  push_scope(sck_class, new_scope_number, type, nullptr);
  top_scope().scope_flags.is_class_instantiation = true;
  top_scope().needed_position = make_source_position(7, 3);
  for (a_routine *routine : {plain, instance, member, generated})
    push_scope(sck_function, new_scope_number, nullptr, routine);
  const struct {
    an_instantiation_context_kind kind;
    a_symbol *symbol;
  } rows[] = {{ick_instantiation, type->symbol},
              {ick_none, nullptr},
              {ick_instantiation, instance->symbol},
              {ick_member_instantiation, member->symbol},
              {ick_implicit_generation, generated->symbol}};
  ASSERT_EQ(diag_hooks.scope_stack_depth(), 5);
  a_symbol *symbol;
  for (int depth = 1; depth <= 5; ++depth) {
    EXPECT_EQ(context(depth, &symbol), rows[depth - 1].kind) << depth;
    if (rows[depth - 1].kind != ick_none) {
      EXPECT_EQ(symbol, rows[depth - 1].symbol);
    }
  }
  generated->is_defaulted = true;
  EXPECT_EQ(context(5, &symbol), ick_implicit_definition);
  instance->is_prototype_instantiation = true;
  EXPECT_EQ(context(3, &symbol), ick_none);
  const a_source_position *position;
  diag_hooks.instantiation_context_of(1, &symbol, &position);
  EXPECT_EQ(position->seq, 7u);
  for (int i = 0; i < 5; ++i)
    abandon_scope();
}

}  // namespace
