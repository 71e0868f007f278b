// Text of types and constants.
#include "il/il_to_str.h"

#include "il_fixture.h"

namespace {

class text_forms : public an_il_fixture {
 protected:
  void SetUp() override {
    an_il_fixture::SetUp();
    clear_il_to_str_output_control_block(&block_);
    block_.output_text = [](const char *text, an_il_to_str_output_control_block *block) {
      *static_cast<std::string *>(block->data) += text;
    };
    block_.data = &out_;
  }
  std::string type(a_type *t) {
    out_.clear();
    form_type(t, &block_);
    return out_;
  }
  std::string declared(a_type *t, const char *name) {
    out_.clear();
    form_type_first_part(t, false, true, tq_none, 0, &block_);
    out_ += name;
    form_type_second_part(t, false, true, &block_);
    return out_;
  }
  std::string constant(const a_constant &c, bool needs_parens = false) {
    out_.clear();
    form_constant(&c, needs_parens, &block_);
    return out_;
  }
  static a_constant integer(std::int64_t value, an_integer_kind kind) {
    a_constant c;
    clear_constant(&c, ck_integer);
    c.type = integer_type(kind);
    c.integer_value = static_cast<a_host_large_integer>(value);
    return c;
  }
  static a_type *named_typedef(const char *name, a_type *t) {
    a_type *result = alloc_type(tk_typeref);
    result->name = name;
    result->referenced_type = t;
    return result;
  }
  static a_type *function(a_type *result, a_type *param) {
    return make_routine_type_full(result, param);
  }

  an_il_to_str_output_control_block block_;
  std::string out_;
};

TEST_F(text_forms, declarators_nest) {
  a_type *callback = make_pointer_type(function(int_type(), integer_type(ik_char)));
  a_type *x = make_pointer_type(make_array_type(callback, 3));
  EXPECT_EQ(declared(x, "x"), "int (*(*x)[3])(char)");
  EXPECT_EQ(type(x), "int (*(*)[3])(char)");
  a_type *grid = make_array_type(make_array_type(int_type(), 4), 2);
  EXPECT_EQ(declared(grid, "g"), "int g[2][4]");
  EXPECT_EQ(declared(make_pointer_type(grid), "p"), "int (*p)[2][4]");
  EXPECT_EQ(declared(make_array_type(make_pointer_type(int_type()), 4), "a"), "int *a[4]");
  EXPECT_EQ(declared(make_incomplete_array_type(int_type()), "a"), "int a[]");
  EXPECT_EQ(declared(function(callback, void_type()), "f"), "int (*f(void))(char)");
  EXPECT_EQ(type(function(int_type(), make_pointer_type(int_type()))), "int (int *)");
}

TEST_F(text_forms, qualifiers_stand_where_they_belong) {
  a_type *const_char = make_qualified_type(integer_type(ik_char), tq_const);
  a_type *pointer = make_qualified_type(make_pointer_type(const_char), tq_const);
  EXPECT_EQ(type(pointer), "const char *const");
  EXPECT_EQ(declared(pointer, "p"), "const char *const p");
  EXPECT_EQ(type(make_qualified_type(int_type(), tq_cv)), "const volatile int");
  a_type *restricted = make_qualified_type(make_pointer_type(int_type()), tq_restrict);
  gnu_mode = false;
  EXPECT_EQ(type(restricted), "int *restrict");
  gnu_mode = true;
  EXPECT_EQ(type(restricted), "int *__restrict__");
  block_.c_source_output = true;
  EXPECT_EQ(type(restricted), "int *");
  block_.suppress_qualifiers_and_suffixes = true;
  EXPECT_EQ(type(pointer), "char *");
}

TEST_F(text_forms, typedefs_are_shown_unless_told_otherwise) {
  a_type *t = named_typedef("T", make_pointer_type(int_type()));
  EXPECT_EQ(type(t), "T");
  EXPECT_EQ(declared(make_qualified_type(t, tq_const), "x"), "const T x");
  EXPECT_EQ(declared(make_pointer_type(t), "x"), "T *x");
  block_.no_typedef_names = true;
  EXPECT_EQ(type(t), "int *");
  EXPECT_EQ(type(make_qualified_type(t, tq_const)), "int *const");
}

TEST_F(text_forms, tags_and_words) {
  a_type *record = alloc_type(tk_struct);
  EXPECT_EQ(type(record), "struct <unnamed>");
  record->name = "point";
  EXPECT_EQ(type(make_pointer_type(record)), "struct point *");
  a_type *e = alloc_type(tk_integer);
  e->is_enum = true;
  e->name = "color";
  EXPECT_EQ(type(e), "enum color");
  il_header.source_language = sl_cplusplus;
  EXPECT_EQ(type(record), "point");
  il_header.source_language = sl_c;
  EXPECT_EQ(type(bool_type()), "_Bool");
  EXPECT_EQ(type(integer_type(ik_unsigned_long_long)), "unsigned long long");
  EXPECT_EQ(type(complex_type(fk_double)), "double _Complex");
  EXPECT_EQ(type(error_type()), "<error-type>");
  EXPECT_EQ(type(nullptr), "<something>");
  EXPECT_STREQ(int_kind_name(ik_last), "**BAD-INT-KIND**");
  EXPECT_STREQ(float_kind_name(fk_last), "**BAD-FLOAT-KIND**");
}

TEST_F(text_forms, parameter_lists) {
  a_type *unprototyped = make_routine_type(int_type());
  unprototyped->routine_supplement->prototyped = false;
  EXPECT_EQ(type(unprototyped), "int ()");
  a_type *variadic = function(int_type(), integer_type(ik_char));
  variadic->routine_supplement->has_ellipsis = true;
  EXPECT_EQ(type(variadic), "int (char, ...)");
}

TEST_F(text_forms, integers) {
  EXPECT_EQ(constant(integer(42, ik_int)), "42");
  EXPECT_EQ(constant(integer(-1, ik_int), true), "(-1)");
  EXPECT_EQ(constant(integer(7, ik_unsigned_long)), "7UL");
  EXPECT_EQ(constant(integer(3, ik_unsigned_char)), "(unsigned char)3");
  block_.no_cast_on_small_ints = true;
  EXPECT_EQ(constant(integer(3, ik_unsigned_char)), "3");
  block_.no_integer_suffix = true;
  EXPECT_EQ(constant(integer(7, ik_unsigned_long)), "7");
  block_.c_source_output = true;
  EXPECT_EQ(constant(integer(INT64_MIN, ik_long_long)), "(-9223372036854775807-1)");
}

TEST_F(text_forms, enumerators_go_by_name) {
  a_type *e = alloc_type(tk_integer);
  e->is_enum = true;
  e->name = "color";
  a_constant *red = fs_constant(ck_integer);
  red->type = e;
  red->name = "red";
  red->is_enumerator = true;
  e->enum_supplement->first_enumerator = red;
  a_constant value = integer(0, ik_int);
  value.type = e;
  EXPECT_EQ(constant(value), "red");
  value.integer_value = 9;
  EXPECT_EQ(constant(value), "(enum color)9");
}

TEST_F(text_forms, strings_and_addresses) {
  a_constant text;
  clear_constant(&text, ck_string);
  text.string_text = "a\n\"\\\1";
  text.string_length = 6;
  text.type = string_literal_type(chk_char, 6);
  EXPECT_EQ(constant(text), "\"a\\n\\\"\\\\\\001\"");
  a_variable *x = declare("x", sc_none, int_type());
  a_constant address;
  clear_constant(&address, ck_address);
  address.address_kind = abk_variable;
  address.address_variable = x;
  address.address_offset = 8;
  address.type = make_pointer_type(int_type());
  EXPECT_EQ(constant(address), "&x + 8");
  address.address_offset = -4;
  EXPECT_EQ(constant(address), "&x - 4");
}

TEST_F(text_forms, template_arguments) {
  il_header.source_language = sl_cplusplus;
  a_template_arg *args = alloc_template_arg(tak_type);
  args->payload.type = int_type();
  args->next = alloc_template_arg(tak_type);
  args->next->payload.type = integer_type(ik_char);
  form_template_args(args, &block_);
  EXPECT_EQ(out_, "<int, char>");
  out_.clear();
  block_.c_source_output = true;
  form_template_args(args, &block_);
  EXPECT_EQ(out_, "< int, char >");
}

}  // namespace
