// Tokens that only C++ has, and those that C++ reads in another way: words, operators, digraphs,
// closing angle brackets, and literals with suffixes.
#include <cstring>
#include <string>
#include <utility>

#include "lexical_fixture.h"
#include "source/literals.h"

namespace {

class CPlusPlus : public a_lexical_test {
 protected:
  void SetUp() override { start("--c++14 --g++ --rtti"); }

  std::string suffix_of(const std::string &text) {
    open(text);
    return curr_token == tok_ud_literal ? locator_for_curr_id.header->name : "";
  }
};

}  // namespace

TEST_F(CPlusPlus, Words) {
  const std::pair<const char *, a_token_kind> words[] = {
      {"catch", tok_catch},
      {"class", tok_class},
      {"const_cast", tok_const_cast},
      {"delete", tok_delete},
      {"dynamic_cast", tok_dynamic_cast},
      {"explicit", tok_explicit},
      {"false", tok_false},
      {"friend", tok_friend},
      {"mutable", tok_mutable},
      {"namespace", tok_namespace},
      {"new", tok_new},
      {"operator", tok_operator},
      {"private", tok_private},
      {"protected", tok_protected},
      {"public", tok_public},
      {"reinterpret_cast", tok_reinterpret_cast},
      {"static_cast", tok_static_cast},
      {"template", tok_template},
      {"this", tok_this},
      {"throw", tok_throw},
      {"true", tok_true},
      {"try", tok_try},
      {"typeid", tok_typeid},
      {"typename", tok_typename},
      {"using", tok_using},
      {"virtual", tok_virtual},
      {"wchar_t", tok_wchar_t},
      {"bool", tok_bool},
      {"char16_t", tok_char16_t},
      {"char32_t", tok_char32_t},
      {"alignas", tok_alignas},
      {"alignof", tok_alignof},
      {"constexpr", tok_constexpr},
      {"decltype", tok_decltype},
      {"__decltype", tok_decltype},
      {"noexcept", tok_noexcept},
      {"nullptr", tok_nullptr},
      {"static_assert", tok_static_assert},
      {"thread_local", tok_thread_local},
      {"and", tok_and_and},
      {"and_eq", tok_and_assign},
      {"bitand", tok_ampersand},
      {"bitor", tok_or},
      {"compl", tok_compl},
      {"not", tok_not},
      {"not_eq", tok_ne},
      {"or", tok_or_or},
      {"or_eq", tok_or_assign},
      {"xor", tok_excl_or},
      {"xor_eq", tok_excl_or_assign},
      {"__null", tok_null},
      {"__final", tok_final},
      {"__bases", tok_bases},
      {"__direct_bases", tok_direct_bases},
      {"__underlying_type", tok_underlying_type},
      {"__offsetof", tok_intaddr},
      {"__offsetof__", tok_intaddr},
      {"__has_nothrow_assign", tok_has_nothrow_assign},
      {"__has_nothrow_constructor", tok_has_nothrow_constructor},
      {"__has_nothrow_copy", tok_has_nothrow_copy},
      {"__has_nothrow_move_assign", tok_has_nothrow_move_assign},
      {"__has_trivial_assign", tok_has_trivial_assign},
      {"__has_trivial_constructor", tok_has_trivial_constructor},
      {"__has_trivial_copy", tok_has_trivial_copy},
      {"__has_trivial_destructor", tok_has_trivial_destructor},
      {"__has_trivial_move_assign", tok_has_trivial_move_assign},
      {"__has_trivial_move_constructor", tok_has_trivial_move_constructor},
      {"__has_virtual_destructor", tok_has_virtual_destructor},
      {"__is_abstract", tok_is_abstract},
      {"__is_base_of", tok_is_base_of},
      {"__is_class", tok_is_class},
      {"__is_constructible", tok_is_constructible},
      {"__is_convertible_to", tok_is_convertible_to},
      {"__is_destructible", tok_is_destructible},
      {"__is_empty", tok_is_empty},
      {"__is_enum", tok_is_enum},
      {"__is_final", tok_is_final},
      {"__is_literal_type", tok_is_literal_type},
      {"__is_nothrow_assignable", tok_is_nothrow_assignable},
      {"__is_nothrow_constructible", tok_is_nothrow_constructible},
      {"__is_nothrow_destructible", tok_is_nothrow_destructible},
      {"__is_pod", tok_is_pod},
      {"__is_polymorphic", tok_is_polymorphic},
      {"__is_standard_layout", tok_is_standard_layout},
      {"__is_trivial", tok_is_trivial},
      {"__is_trivially_assignable", tok_is_trivially_assignable},
      {"__is_trivially_constructible", tok_is_trivially_constructible},
      {"__is_trivially_copyable", tok_is_trivially_copyable},
      {"__is_trivially_destructible", tok_is_trivially_destructible},
      {"__is_union", tok_is_union},
      {"override", tok_identifier},
      {"final", tok_identifier},
      {"export", tok_identifier},
  };
  for (const auto &[word, token] : words) {
    open(word);
    EXPECT_EQ(curr_token, token) << word;
  }
  start("--no_c++11 --anachronisms");
  EXPECT_EQ(kinds_of("overload"), (kinds{tok_overload}));
  start("--c++14 --clang");
  EXPECT_EQ(kinds_of("__char16_t __char32_t __is_literal _Static_assert"),
            (kinds{tok_char16_t, tok_char32_t, tok_is_literal_type, tok_static_assert}));
}

TEST_F(CPlusPlus, WordsThatTheGrammarAsksFor) {
  open("override final final");
  EXPECT_FALSE(check_context_sensitive_keyword(tok_final, "final"));
  EXPECT_TRUE(curr_token_is_identifier_string("override"));
  EXPECT_TRUE(check_context_sensitive_keyword(tok_override, "override"));
  EXPECT_EQ(curr_token, tok_override);
  EXPECT_TRUE(is_keyword_token(curr_token));
  get_token();
  EXPECT_TRUE(check_context_sensitive_keyword(tok_final, "final"));
  get_token();
  EXPECT_EQ(curr_token, tok_identifier);
}

TEST_F(CPlusPlus, AWordSwitchedOffIsReportedOnce) {
  start("--c++14 --no_namespaces");
  EXPECT_EQ(kinds_of("namespace namespace using"),
            (kinds{tok_identifier, tok_identifier, tok_identifier}));
  EXPECT_EQ(find_symbol_header("using", 5)->active_symbols, nullptr);
}

TEST_F(CPlusPlus, WordsThatCountInDirectives) {
  in_preprocessing_directive = true;
  open("new delete and if true");
  for (a_token_kind kind : {tok_new, tok_delete, tok_and_and, tok_identifier, tok_identifier}) {
    EXPECT_EQ(curr_token, kind);
    get_token();
  }
  EXPECT_EQ(curr_token, tok_newline);
  in_preprocessing_directive = false;
  get_token();
  in_preprocessing_directive = in_pp_if_expression = true;
  open("true");
  EXPECT_EQ(curr_token, tok_true);
  EXPECT_EQ(const_for_curr_token.integer_value, 1u);
  in_pp_if_expression = in_preprocessing_directive = false;
}

TEST_F(CPlusPlus, Operators) {
  EXPECT_EQ(kinds_of("a::b.*c->*d...e"),
            (kinds{tok_identifier, tok_colon_colon, tok_identifier, tok_dot_star, tok_identifier,
                   tok_arrow_star, tok_identifier, tok_ellipsis, tok_identifier}));
  EXPECT_EQ(kinds_of("a:::b <? >? ->"), (kinds{tok_identifier, tok_colon_colon, tok_colon,
                                               tok_identifier, tok_min_op, tok_max_op, tok_arrow}));
  EXPECT_EQ(kinds_of("<: :> <% %> x<:::>"),
            (kinds{tok_lbracket, tok_rbracket, tok_lbrace, tok_rbrace, tok_identifier, tok_lbracket,
                   tok_colon_colon, tok_gt}));
  start("--c++14 --strict --no_alternative_tokens");
  EXPECT_EQ(kinds_of("<: :> <? %>"), (kinds{tok_lt, tok_colon, tok_colon, tok_gt, tok_lt,
                                            tok_quest_mark, tok_remainder, tok_gt}));
}

// A<::B> : a list since C++11, an array before. <::: and <::> are arrays everywhere.
TEST_F(CPlusPlus, LessBeforeAQualifiedName) {
  const kinds split = {tok_lt, tok_colon_colon, tok_identifier};
  const kinds array = {tok_lbracket, tok_colon, tok_identifier};
  const std::pair<const char *, bool> dialects[] = {
      {"--c++03 --strict", false},
      {"--c++03 --g++", false},
      {"--c++11 --strict", true},
      {"--c++11 --g++ --gnu_version=40700", false},
      {"--c++11 --g++ --gnu_version=40800", true},
      {"--c++11 --clang --gnu_version=40200", true},
  };
  for (const auto &[options, splits] : dialects) {
    start(options);
    EXPECT_EQ(kinds_of("<::B"), splits ? split : array) << options;
    EXPECT_EQ(kinds_of("<:::"), (kinds{tok_lbracket, tok_colon_colon})) << options;
    EXPECT_EQ(kinds_of("<::>"), (kinds{tok_lbracket, tok_rbracket})) << options;
  }
}

TEST_F(CPlusPlus, SuffixesOfNumbers) {
  open("12_km");
  EXPECT_EQ(curr_token, tok_ud_literal);
  EXPECT_EQ(const_for_curr_token.integer_value, 12u);
  EXPECT_EQ(ud_lit_type_for_curr_token, const_for_curr_token.type);
  EXPECT_STREQ(const_with_curr_tok_spelling->string_text, "12");
  EXPECT_EQ(len_of_curr_token, 5u);
  EXPECT_EQ(suffix_of("0x1F_"), "_");
  EXPECT_EQ(const_for_curr_token.integer_value, 0x1Fu);
  EXPECT_EQ(suffix_of("0b11_b"), "_b");
  EXPECT_EQ(const_for_curr_token.integer_value, 3u);
  EXPECT_EQ(suffix_of("1'000_x"), "_x");
  EXPECT_STREQ(const_with_curr_tok_spelling->string_text, "1'000");
  EXPECT_EQ(suffix_of("12ulx"), "ulx");  // the longest name, not the rest of it
  EXPECT_EQ(suffix_of("1.5e-3_s"), "_s");
  EXPECT_EQ(const_for_curr_token.kind, ck_float);
  EXPECT_STREQ(const_with_curr_tok_spelling->string_text, "1.5e-3");
  EXPECT_EQ(suffix_of(".5f_"), "f_");
  EXPECT_EQ(suffix_of("1_\\u00e9"), "_\xC3\xA9");
  EXPECT_EQ(suffix_of("1_\xC3\xA9"), "_\xC3\xA9");
  EXPECT_EQ(suffix_of("12ull"), "");

  // What is too large is an error only for an operator that does not take the text.
  open("99999999999999999999_x");
  EXPECT_EQ(curr_token, tok_ud_literal);
  EXPECT_EQ(const_for_curr_token.kind, ck_error);
  EXPECT_EQ(ud_lit_error_for_curr_token, ec_integer_too_large);
  EXPECT_EQ(ud_lit_type_for_curr_token->int_kind, ik_unsigned_long_long);
  open("1e99999_x");
  EXPECT_EQ(ud_lit_error_for_curr_token, ec_bad_float_value);
}

TEST_F(CPlusPlus, SuffixesOfCharacters) {
  EXPECT_EQ(suffix_of("'a'_c"), "_c");
  EXPECT_EQ(const_for_curr_token.integer_value, 'a');
  EXPECT_EQ(const_with_curr_tok_spelling, nullptr);
  EXPECT_EQ(suffix_of("u'a'_c"), "_c");
  EXPECT_EQ(suffix_of("U'a'_c"), "_c");
  EXPECT_EQ(suffix_of("L'a'_c"), "_c");
  EXPECT_EQ(kinds_of("'a' _c"), (kinds{tok_char_constant, tok_identifier}));
  start("--c++11 --no_user_defined_literals");
  EXPECT_EQ(kinds_of("'a'_c \"s\"_c"),
            (kinds{tok_char_constant, tok_identifier, tok_string_literal, tok_identifier}));
}

TEST_F(CPlusPlus, SuffixesOfStringsThatJoin) {
  for (const char *text : {"\"ab\"_s;", "\"a\" \"b\"_s;", "\"a\"_s \"b\";", "\"a\"_s \"b\"_s;",
                           "R\"(a)\" R\"-(b)-\"_s;", "u8\"a\" \"b\"_s;"}) {
    EXPECT_EQ(suffix_of(text), "_s") << text;
    EXPECT_STREQ(const_for_curr_token.string_text, "ab") << text;
    EXPECT_EQ(get_token(), tok_semicolon) << text;
  }
  EXPECT_EQ(suffix_of("u\"a\"_s \"b\""), "_s");
  EXPECT_EQ(const_for_curr_token.string_char_kind, chk_char16_t);
  EXPECT_EQ(const_for_curr_token.string_length, 6u);
  EXPECT_EQ(suffix_of("LR\"(x)\"_s"), "_s");
  EXPECT_EQ(kinds_of("\"a\"_s 1_k 'b'_c \"b\""),
            (kinds{tok_ud_literal, tok_ud_literal, tok_ud_literal, tok_string_literal}));
}

TEST_F(CPlusPlus, Prefixes) {
  EXPECT_EQ(kinds_of("u8'a'"), (kinds{tok_identifier, tok_char_constant}));
  EXPECT_EQ(kinds_of("R'a' uR \"a\""),
            (kinds{tok_identifier, tok_char_constant, tok_identifier, tok_string_literal}));
  struct a_case {
    const char *text;
    int kind, length;
  };
  const a_case cases[] = {
      {"\"\\u00e9\"", chk_char, 3},          {"u8\"\\u00e9\"", chk_char, 3},
      {"u\"\\u00e9\"", chk_char16_t, 4},     {"U\"\\u00e9\"", chk_char32_t, 8},
      {"L\"\\u00e9\"", chk_wchar_t, 4},      {"u\"\\U0001F600\"", chk_char16_t, 6},
      {"U\"\\U0001F600\"", chk_char32_t, 8}, {"u8R\"(\\u)\"", chk_char, 3},
      {"uR\"(\xC3\xA9)\"", chk_char16_t, 4}};
  for (const a_case &each : cases) {
    open(each.text);
    ASSERT_EQ(curr_token, tok_string_literal) << each.text;
    EXPECT_EQ(const_for_curr_token.string_char_kind, each.kind) << each.text;
    EXPECT_EQ(const_for_curr_token.string_length, static_cast<std::size_t>(each.length))
        << each.text;
  }
  start("--c++17 --g++");
  open("u8'a'");
  EXPECT_EQ(curr_token, tok_char_constant);
  EXPECT_EQ(const_for_curr_token.type->int_kind, ik_char);
  start("--c++03 --strict");
  EXPECT_EQ(kinds_of("u\"a\" R\"a\" u8\"a\" L\"a\""),
            (kinds{tok_identifier, tok_string_literal, tok_identifier, tok_string_literal,
                   tok_identifier, tok_string_literal}));
}
