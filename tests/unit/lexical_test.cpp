// Tokens of texts put into the input: kinds, literals, and the replay of caches.
#include "source/lexical.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "il/il_expr.h"
#include "lexical_fixture.h"
#include "semantics/const_ints.h"
#include "semantics/float_pt.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack.h"
#include "source/literals.h"

namespace {

class Lexical : public a_lexical_test {
 protected:
  void SetUp() override {
    static bool is_started = false;
    if (is_started) return;
    is_started = true;
    start_front_end([] {
      std_version = 201112;
      long_long_promotion_allowed = true;
      hex_floating_point_constants_allowed = universal_character_names_allowed = true;
    });
  }
};
}  // namespace

TEST_F(Lexical, PunctuatorsTakeTheLongestMatch) {
  EXPECT_EQ(kinds_of("a+++b"), (kinds{tok_identifier, tok_plus_plus, tok_plus, tok_identifier}));
  EXPECT_EQ(kinds_of("<<=>>=->..."),
            (kinds{tok_shift_left_assign, tok_shift_right_assign, tok_arrow, tok_ellipsis}));
  EXPECT_EQ(kinds_of("x.y ..z"), (kinds{tok_identifier, tok_period, tok_identifier, tok_period,
                                        tok_period, tok_identifier}));
  EXPECT_EQ(kinds_of("a->*b .* ::"), (kinds{tok_identifier, tok_arrow, tok_star, tok_identifier,
                                            tok_period, tok_star, tok_colon, tok_colon}));
}

TEST_F(Lexical, KeywordsOfTheDialect) {
  EXPECT_EQ(kinds_of("int __inline__ restrict class _Generic __const"),
            (kinds{tok_int, tok_inline, tok_identifier, tok_identifier, tok_generic, tok_const}));
  suppress_keyword_recognition = true;
  EXPECT_EQ(kinds_of("int"), (kinds{tok_identifier}));
  suppress_keyword_recognition = false;
}

TEST_F(Lexical, IntegersTakeTheFirstTypeThatHoldsThem) {
  struct a_case {
    const char *text;
    a_host_large_integer value;
    an_integer_kind kind;
  };
  const a_case cases[] = {
      {"0", 0, ik_int},
      {"2147483647", 2147483647, ik_int},
      {"2147483648", 2147483648u, ik_long_long},
      {"0xFFFFFFFF", 0xFFFFFFFFu, ik_unsigned_int},
      {"0x100000000", 0x100000000u, ik_long_long},
      {"037777777777", 0xFFFFFFFFu, ik_unsigned_int},
      {"4294967295u", 0xFFFFFFFFu, ik_unsigned_int},
      {"1L", 1, ik_long},
      {"1uLL", 1, ik_unsigned_long_long},
      {"0x8000000000000000", std::uint64_t{1} << 63, ik_unsigned_long_long},
  };
  for (const a_case &each : cases) {
    open(each.text);
    ASSERT_EQ(curr_token, tok_int_constant) << each.text;
    EXPECT_EQ(const_for_curr_token.integer_value, each.value) << each.text;
    EXPECT_EQ(const_for_curr_token.type->int_kind, each.kind) << each.text;
  }
}

TEST_F(Lexical, NumbersEndWhereTheyShould) {
  EXPECT_EQ(kinds_of("1.2 1.e3f 0x1p-3 .5"), (kinds{tok_float_constant, tok_float_constant,
                                                    tok_float_constant, tok_float_constant}));
  fetch_pp_tokens = true;
  EXPECT_EQ(kinds_of("0xe+1 1.2.3.x 1e+ L'a' L\"b\" '"),
            (kinds{tok_pp_number, tok_pp_number, tok_pp_number, tok_char_constant,
                   tok_string_literal, tok_error}));
  fetch_pp_tokens = false;
}

TEST_F(Lexical, CharacterConstants) {
  struct a_case {
    const char *text;
    std::int64_t value;
  };
  const a_case cases[] = {{"'a'", 'a'},     {"'\\n'", 10},        {"'\\x41'", 0x41},
                          {"'\\101'", 'A'}, {"'\\0'", 0},         {"'ab'", 'a' << 8 | 'b'},
                          {"'\\''", '\''},  {"L'\\u00e9'", 0xE9}, {"'\\377'", 255},
                          {"'\\e'", 27},    {"L'\xC3\xA9'", 0xE9}};
  for (const a_case &each : cases) {
    open(each.text);
    ASSERT_EQ(curr_token, tok_char_constant) << each.text;
    ASSERT_EQ(const_for_curr_token.kind, ck_integer) << each.text;
    EXPECT_EQ(static_cast<std::int64_t>(const_for_curr_token.integer_value), each.value)
        << each.text;
  }
}

TEST_F(Lexical, StringsAndTheirConcatenation) {
  EXPECT_EQ(string_of("\"ab\\n\""), std::string("ab\n\0", 4));
  EXPECT_EQ(string_of("\"a\" \"b\" \"\\x41\" \"1\";"), std::string("abA1\0", 5));
  EXPECT_EQ(curr_token, tok_string_literal);
  get_token();
  EXPECT_EQ(curr_token, tok_semicolon);
  EXPECT_EQ(string_of("\"\\u00e9\xC3\xA9\""), std::string("\xC3\xA9\xC3\xA9\0", 5));
  EXPECT_EQ(string_of("L\"a\\x4142\""), std::string("\0a\x41\x42\0\0", 6));  // big endian
  mixed_string_concat_enabled = true;
  EXPECT_EQ(string_of("\"a\" L\"b\""), std::string("\0a\0b\0\0", 6));
  mixed_string_concat_enabled = false;
}

TEST_F(Lexical, BytesWithoutMultibyteSources) {
  start("--c11 --no_multibyte_chars");
  EXPECT_EQ(string_of("\"\xE9\\u00e9\""), std::string("\xE9\xC3\xA9\0", 4));
  EXPECT_EQ(string_of("u8\"\xE9\""), std::string("\xC3\xA9\0", 3));
  EXPECT_EQ(string_of("u\"\xE9\"").size(), 4u);
  open("'\xE9'");
  EXPECT_EQ(const_for_curr_token.integer_value, 0xE9u);
}

TEST_F(Lexical, RawStrings) {
  raw_string_literals_enabled = true;
  EXPECT_EQ(string_of("R\"x(a\\n)\" )x\""), std::string("a\\n)\" \0", 7));
  raw_string_literals_enabled = false;
}

TEST_F(Lexical, LookAheadChangesNothing) {
  open("a b c");
  a_symbol_header *header = nullptr;
  std::uint32_t number = 0, again = 0;
  EXPECT_EQ(next_token_full(&number, &header), tok_identifier);
  EXPECT_STREQ(header->name, "b");
  EXPECT_EQ(next_token_full(&again, &header), tok_identifier);
  EXPECT_EQ(number, again);
  EXPECT_STREQ(locator_for_curr_id.header->name, "a");
  a_token_kind second;
  EXPECT_EQ(next_two_tokens(tok_identifier, &second), tok_identifier);
  EXPECT_EQ(second, tok_identifier);
  EXPECT_STREQ(locator_for_curr_id.header->name, "a");
  unget_token();
  EXPECT_STREQ(locator_for_curr_id.header->name, "a");
  get_token();
  EXPECT_STREQ(locator_for_curr_id.header->name, "a");
  get_token();
  EXPECT_STREQ(locator_for_curr_id.header->name, "b");
}

TEST_F(Lexical, ReusableCacheIsReplayedAsOftenAsWanted) {
  open("{ x = 12; } tail");
  a_token_cache cache;
  clear_token_cache(&cache, true);
  ASSERT_TRUE(cache_token_stream_until_matching_token(&cache, 0));
  terminate_token_cache(&cache);
  get_token();
  for (int round = 0; round < 3; ++round) {
    rescan_reusable_cache(&cache);
    kinds seen;
    for (; curr_token != tok_end_of_source; get_token()) {
      seen.push_back(curr_token);
      EXPECT_NE(curr_cached_token_handle, nullptr);
    }
    EXPECT_EQ(seen, (kinds{tok_lbrace, tok_identifier, tok_assign, tok_int_constant, tok_semicolon,
                           tok_rbrace}));
    get_token();
    ASSERT_EQ(curr_token, tok_identifier);
    EXPECT_STREQ(locator_for_curr_id.header->name, "tail");
  }
}

TEST_F(Lexical, ShiftSplitsIntoTwoNumberedTokens) {
  open("a >> b");
  begin_caching_fetched_tokens(true);
  get_token();
  std::uint32_t number = curr_token_sequence_number;
  split_right_shift_token();
  EXPECT_EQ(curr_token, tok_gt);
  EXPECT_EQ(curr_token_sequence_number, number);
  get_token();
  EXPECT_EQ(curr_token, tok_gt);
  EXPECT_EQ(curr_token_sequence_number, number + 1);
  get_token();
  a_token_cache copy;
  clear_token_cache(&copy, false);
  copy_tokens_from_cache(end_caching_fetched_tokens(), 0, 0, true, &copy);
  f_rescan_cached_tokens(&copy, true);
  kinds seen;
  for (; curr_token != tok_end_of_source; get_token())
    seen.push_back(curr_token);
  EXPECT_EQ(seen, (kinds{tok_identifier, tok_gt, tok_gt, tok_identifier}));
}

TEST_F(Lexical, RecordingSurvivesLookAhead) {
  open("a b c d");
  begin_caching_fetched_tokens(true);
  next_token();
  get_token();
  unget_token();
  get_token();
  get_token();
  a_token_cache copy;
  clear_token_cache(&copy, false);
  copy_tokens_from_cache(end_caching_fetched_tokens(), 0, 0, true, &copy);
  int count = 0;
  for (f_rescan_cached_tokens(&copy, true); count < 3; get_token()) {
    EXPECT_STREQ(locator_for_curr_id.header->name, count == 0 ? "a" : count == 1 ? "b" : "c");
    ++count;
  }
  EXPECT_STREQ(locator_for_curr_id.header->name, "d");
}

TEST_F(Lexical, FunctionBodyIsStoredUpToItsBrace) {
  open("{ if (a) { b(); } } int");
  a_token_cache cache;
  clear_token_cache(&cache, true);
  bool error;
  std::uint32_t first, last;
  a_source_position start, end;
  ASSERT_TRUE(cache_function_body(&cache, false, &error, &first, &last, &start, &end));
  EXPECT_FALSE(error);
  EXPECT_EQ(curr_token, tok_rbrace);
  get_token();
  EXPECT_EQ(curr_token, tok_int);
  EXPECT_LT(first, last);
}

TEST_F(Lexical, FlushStopsAtTheInnermostStopTokens) {
  open("a ( ; ) [ ; ] b ; c");
  push_stop_token_stack();
  add_stop_token(tok_semicolon);
  flush_tokens_without_warning();
  EXPECT_EQ(curr_token, tok_semicolon);
  get_token();
  EXPECT_STREQ(locator_for_curr_id.header->name, "c");
  pop_stop_token_stack();
}

TEST_F(Lexical, NamesOfHeadersAndLineNumbers) {
  exp_header_name = exp_system_header_name = true;
  EXPECT_EQ(kinds_of("<a//b.h> \"c\\d.h\" <x"),
            (kinds{tok_header_name, tok_header_name, tok_lt, tok_identifier}));
  exp_header_name = exp_system_header_name = false;
  exp_digit_sequence = true;
  EXPECT_EQ(kinds_of("08u"), (kinds{tok_digit_sequence, tok_identifier}));
  exp_digit_sequence = false;
}

namespace {
class OtherToolChain : public a_lexical_test {
 protected:
  void SetUp() override {
    start_front_end([] { pwa_standalone_iar = true; });
  }
};
}  // namespace

TEST_F(OtherToolChain, Words) {
  EXPECT_EQ(
      kinds_of("__data16 __data20 __memory_of __segment_begin __segment_end __segment_size @"),
      (kinds{tok_data16, tok_data20, tok_memory_of, tok_segment_begin, tok_segment_end,
             tok_segment_size, tok_at_sign}));
}
