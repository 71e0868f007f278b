// Token caches: what is stored comes back as it was, as often as wanted, wherever the replay
// stands.
#include <algorithm>
#include <cstring>

#include "il/src_seq.h"
#include "lexical_fixture.h"
#include "source/lexical_internal.h"
#include "target/pragma.h"

namespace {

class Caches : public a_lexical_test {
 protected:
  void SetUp() override { start("--c++14 --g++"); }

  // The text up to its end in a cache; behind it the current token is "tail".
  void store(const std::string &text, a_token_cache *cache, bool reusable) {
    open("{ " + text + " } tail");
    clear_token_cache(cache, false);
    ASSERT_TRUE(cache_token_stream_until_matching_token(cache, 0)) << text;
    remove_token_from_cache(cache, cache->head);
    remove_token_from_cache(cache, cache->tail);
    cache->reusable = reusable;
    if (reusable) adjust_token_handles(cache);
    terminate_token_cache(cache);
    get_token();
  }
  static kinds stored_kinds(const a_token_cache &cache) {
    kinds result;
    for (const a_cached_token *token = cache.head; token != nullptr; token = token->next)
      result.push_back(token->kind);
    return result;
  }
  // The kinds up to the end of source, which is passed too.
  static kinds replayed() {
    kinds result;
    for (; curr_token != tok_end_of_source; get_token())
      result.push_back(curr_token);
    get_token();
    return result;
  }
  static std::string name() {
    return curr_token == tok_identifier ? locator_for_curr_id.header->name
                                        : token_names[curr_token];
  }
  static std::uint32_t number_of(const a_token_cache &cache, int index) {
    const a_cached_token *token = cache.head;
    for (; index > 0; --index)
      token = token->next;
    return token->sequence_number;
  }
};

}  // namespace

TEST_F(Caches, PartsAreCopiedMovedSplitAndRemoved) {
  a_token_cache cache, out;
  store("a = b + 3 ;", &cache, false);
  clear_token_cache(&out, true);
  copy_tokens_from_cache(&cache, number_of(cache, 1), number_of(cache, 3), false, &out);
  EXPECT_EQ(stored_kinds(out), (kinds{tok_assign, tok_identifier, tok_plus}));
  for (const a_cached_token *token = out.head; token != nullptr; token = token->next)
    EXPECT_EQ(token->handle, token);  // of a reusable cache
  discard_token_cache(&out);
  EXPECT_TRUE(token_cache_is_empty(&out));

  clear_token_cache(&out, false);
  split_token_cache(&cache, &out, number_of(cache, 2), number_of(cache, 4));
  EXPECT_EQ(stored_kinds(out), (kinds{tok_identifier, tok_plus, tok_int_constant}));
  EXPECT_EQ(stored_kinds(cache),
            (kinds{tok_identifier, tok_assign, tok_semicolon, tok_end_of_source}));
  remove_token_from_cache(&cache, cache.head->next);
  remove_token_from_cache(&cache, cache.tail);
  EXPECT_EQ(stored_kinds(cache), (kinds{tok_identifier, tok_semicolon}));
  EXPECT_EQ(cache.tail->kind, tok_semicolon);
  move_cached_tokens(&out, &cache);
  EXPECT_TRUE(token_cache_is_empty(&out));
  EXPECT_EQ(stored_kinds(cache),
            (kinds{tok_identifier, tok_semicolon, tok_identifier, tok_plus, tok_int_constant}));
  move_cached_tokens(&out, &cache);  // nothing to move
  EXPECT_EQ(cache.tail->kind, tok_int_constant);
  discard_token_cache(&cache);
}

TEST_F(Caches, EveryKindOfTokenComesBackAsItWas) {
  a_token_cache cache;
  store("x 42 2.5 'c' \"str\" 7_km \"s\"_s true int ::", &cache, true);
  for (int round = 0; round < 2; ++round) {
    rescan_reusable_cache(&cache);
    EXPECT_EQ(name(), "x");
    EXPECT_EQ(pos_curr_token.seq, cache.head->pos.seq);
    EXPECT_EQ(get_token(), tok_int_constant);
    EXPECT_EQ(const_for_curr_token.integer_value, 42u);
    EXPECT_EQ(get_token(), tok_float_constant);
    EXPECT_EQ(get_token(), tok_char_constant);
    EXPECT_EQ(const_for_curr_token.integer_value, 'c');
    EXPECT_EQ(get_token(), tok_string_literal);
    EXPECT_STREQ(const_for_curr_token.string_text, "str");
    EXPECT_EQ(get_token(), tok_ud_literal);
    EXPECT_EQ(const_for_curr_token.integer_value, 7u);
    EXPECT_STREQ(locator_for_curr_id.header->name, "_km");
    EXPECT_STREQ(const_with_curr_tok_spelling->string_text, "7");
    EXPECT_EQ(get_token(), tok_ud_literal);
    EXPECT_STREQ(const_for_curr_token.string_text, "s");
    EXPECT_EQ(const_with_curr_tok_spelling, nullptr);
    EXPECT_EQ(get_token(), tok_true);
    EXPECT_EQ(const_for_curr_token.integer_value, 1u);
    EXPECT_EQ(get_token(), tok_int);
    EXPECT_EQ(get_token(), tok_colon_colon);
    EXPECT_EQ(get_token(), tok_end_of_source);
    get_token();
    EXPECT_EQ(name(), "tail");
  }
}

TEST_F(Caches, AReplayInsideAReplayLeavesTheOuterOneWhereItWas) {
  a_token_cache outer, inner, once;
  store("a b c", &outer, true);
  store("1 2", &inner, true);
  store("x y", &once, false);
  rescan_reusable_cache(&outer);
  EXPECT_EQ(name(), "a");
  get_token();
  rescan_reusable_cache(&inner);
  get_token();
  rescan_reusable_cache(&inner);  // the same cache within itself
  EXPECT_EQ(replayed(), (kinds{tok_int_constant, tok_int_constant}));
  EXPECT_EQ(const_for_curr_token.integer_value, 2u);  // of the first replay
  EXPECT_EQ(replayed(), (kinds{tok_int_constant}));
  EXPECT_EQ(name(), "b");
  rescan_cached_tokens(&once);
  EXPECT_EQ(name(), "x");
  EXPECT_TRUE(token_cache_is_empty(&once));
  EXPECT_EQ(replayed(), (kinds{tok_identifier, tok_identifier}));
  EXPECT_EQ(name(), "b");
  EXPECT_EQ(replayed(), (kinds{tok_identifier, tok_identifier}));
  EXPECT_EQ(name(), "tail");
}

TEST_F(Caches, LookAheadAtTheEndOfACache) {
  a_token_cache cache;
  store("a", &cache, true);
  rescan_reusable_cache(&cache);
  EXPECT_EQ(next_token(), tok_end_of_source);
  EXPECT_EQ(name(), "a");
  unget_token();
  EXPECT_EQ(next_token(), tok_identifier);
  get_token();
  EXPECT_EQ(name(), "a");
  EXPECT_EQ(get_token(), tok_end_of_source);
  EXPECT_EQ(next_token(), tok_identifier);
  EXPECT_EQ(curr_token, tok_end_of_source);
  get_token();
  EXPECT_EQ(name(), "tail");

  // Without an end mark the text follows directly.
  open("u v w");
  clear_token_cache(&cache, false);
  cache_curr_token(&cache);
  get_token();
  rescan_cached_tokens(&cache);
  EXPECT_EQ(name(), "u");
  a_token_kind second;
  EXPECT_EQ(next_two_tokens(tok_identifier, &second), tok_identifier);
  EXPECT_EQ(second, tok_identifier);
  EXPECT_EQ(name(), "u");
  get_token();
  EXPECT_EQ(name(), "v");
  get_token();
  EXPECT_EQ(name(), "w");
}

TEST_F(Caches, TheReplayGoesBackToAToken) {
  a_token_cache cache;
  store("a b c", &cache, true);
  rescan_reusable_cache(&cache);
  get_token();
  a_cached_token *b = curr_cached_token_handle;
  EXPECT_EQ(b, cache.head->next);
  get_token();
  for (int i = 0; i < 2; ++i) {
    next_token();  // what it put aside is not given twice
    unget_token();
    update_reusable_cache_rescan_location(b);
    get_token();
    EXPECT_EQ(name(), "b");
    get_token();
    EXPECT_EQ(name(), "c");
  }
  EXPECT_EQ(get_token(), tok_end_of_source);
  get_token();
  EXPECT_EQ(name(), "tail");
}

TEST_F(Caches, ShiftSplitsInsideAReplayAndStaysWholeInTheCache) {
  a_token_cache cache;
  store("A<B<int>> c", &cache, true);
  for (int round = 0; round < 2; ++round) {
    rescan_reusable_cache(&cache);
    for (int i = 0; i < 5; ++i)
      get_token();
    ASSERT_EQ(curr_token, tok_shift_right);
    std::uint32_t number = curr_token_sequence_number;
    begin_caching_fetched_tokens(true);
    split_right_shift_token();
    EXPECT_EQ(curr_token, tok_gt);
    EXPECT_EQ(next_token(), tok_gt);
    EXPECT_EQ(get_token(), tok_gt);
    EXPECT_EQ(curr_token_sequence_number, number + 1);
    get_token();
    EXPECT_EQ(name(), "c");
    EXPECT_EQ(stored_kinds(*end_caching_fetched_tokens()), (kinds{tok_gt, tok_gt, tok_identifier}));
    get_token();
    get_token();
    EXPECT_EQ(name(), "tail");
  }
}

TEST_F(Caches, PragmasStayInFrontOfTheirToken) {
  open("{ x /*NOTREACHED*/ y \"a\" /*NOTREACHED*/ \"b\" } tail");
  a_token_cache cache, copy;
  clear_token_cache(&cache, true);
  ASSERT_TRUE(cache_token_stream_until_matching_token(&cache, 0));
  terminate_token_cache(&cache);
  get_token();
  clear_token_cache(&copy, false);
  copy_tokens_from_cache(&cache, 0, 0, true, &copy);
  for (int round = 0; round < 3; ++round) {
    if (round < 2)
      rescan_reusable_cache(&cache);
    else
      rescan_cached_tokens(&copy);
    get_token();
    EXPECT_EQ(name(), "x");
    EXPECT_EQ(curr_token_pragmas, nullptr);
    EXPECT_EQ(next_token(), tok_identifier);  // looks past them
    get_token();
    EXPECT_EQ(name(), "y");
    ASSERT_NE(curr_token_pragmas, nullptr);
    EXPECT_EQ(curr_token_pragmas->description->kind, prk_NOTREACHED);
    next_token();  // takes them along and back
    EXPECT_EQ(name(), "y");
    ASSERT_NE(curr_token_pragmas, nullptr);
    EXPECT_EQ(curr_token_pragmas->next, nullptr);
    get_token();
    EXPECT_STREQ(const_for_curr_token.string_text, "ab");
    replayed();
    EXPECT_EQ(name(), "tail");
  }
}

TEST_F(Caches, TokensAreUsedAgain) {
  std::vector<const void *> used[2];
  a_token_cache cache;
  store("a 1 \"s\" 1_k + b", &cache, false);  // fills the free lists
  discard_token_cache(&cache);
  for (auto &tokens : used) {
    store("a 1 \"s\" 1_k + b", &cache, false);
    for (const a_cached_token *token = cache.head; token != nullptr; token = token->next)
      tokens.push_back(token);
    rescan_cached_tokens(&cache);
    replayed();
    std::sort(tokens.begin(), tokens.end());
  }
  EXPECT_EQ(used[0], used[1]);
}

TEST_F(Caches, PreprocessingTokensKeepTheirText) {
  fetch_pp_tokens = true;
  open("if 0x1p+3x \"s\"_z <= name");
  a_token_cache cache, copy;
  clear_token_cache(&cache, false);
  for (; curr_token != tok_end_of_source; get_token())
    cache_curr_token(&cache);
  clear_token_cache(&copy, false);
  copy_tokens_from_cache(&cache, 0, 0, false, &copy);
  discard_token_cache(&cache);
  init_token_string();
  add_token_cache_to_string(&copy);
  EXPECT_STREQ(make_copy_of_token_string(), "if 0x1p+3x \"s\"_z <= name");
  rescan_cached_tokens(&copy);
  std::string texts;
  for (; curr_token != tok_end_of_source; get_token())
    texts += std::string(start_of_curr_token, len_of_curr_token) + '|';
  EXPECT_EQ(texts, "if|0x1p+3x|\"s\"_z|<=|name|");
  fetch_pp_tokens = false;
}

TEST_F(Caches, StreamsStopOutsideOfGroups) {
  open("f(a, b)[1, 2]{ , } + g, h");
  a_stop_token_count stops[tok_last] = {};
  stops[tok_comma] = 1;
  a_token_cache cache;
  clear_token_cache(&cache, false);
  cache_token_stream(&cache, stops);
  EXPECT_EQ(curr_token, tok_comma);
  EXPECT_EQ(next_token(), tok_identifier);
  EXPECT_EQ(stored_kinds(cache).size(), 16u);
  discard_token_cache(&cache);

  // The commas of a cast's type are inside a group, those of a comparison are not.
  open("static_cast<A, B>(x) < y, z");
  cache_token_stream_full(&cache, stops, csf_template_aware);
  EXPECT_EQ(curr_token, tok_comma);
  get_token();
  EXPECT_EQ(name(), "z");
  discard_token_cache(&cache);
  open("static_cast<A, B>(x)");
  cache_token_stream(&cache, stops);
  get_token();
  EXPECT_EQ(name(), "B");
  discard_token_cache(&cache);

  open("( a ; b ) c");
  EXPECT_FALSE(cache_token_stream_until_matching_token(&cache, csf_stop_at_semicolon));
  EXPECT_EQ(curr_token, tok_semicolon);
  discard_token_cache(&cache);
  open("( a } b");
  EXPECT_FALSE(cache_token_stream_until_matching_token(&cache, 0));
  EXPECT_EQ(curr_token, tok_rbrace);
  discard_token_cache(&cache);
}

TEST_F(Caches, BodiesOfFunctions) {
  struct a_case {
    const char *text;
    bool is_constructor, is_body, is_error;
    std::size_t tokens;  // in the cache, with its end
  };
  const a_case cases[] = {
      {"{ { } ; } tail", false, true, false, 6},
      {"; tail", false, false, false, 0},
      {": a(1), b{2} { x; } tail", true, true, false, 15},
      {": a{1}, b{2}..., c(3) { } tail", true, true, false, 19},
      {": a(1) { } tail", true, true, false, 8},
      {"try { } catch (int) { } catch (...) { } tail", false, true, false, 16},
      {"try : a(1) { } catch (...) { } tail", true, true, false, 15},
      {"= default; tail", false, true, false, 4},
      {"= delete; tail", false, true, false, 4},
      {"= 0; tail", false, false, false, 0},
      {"{ x;", false, true, true, 4},
      {"try { } catch x tail", false, true, true, 5},
  };
  for (const a_case &each : cases) {
    open(each.text);
    a_token_cache cache;
    clear_token_cache(&cache, true);
    bool error = false;
    std::uint32_t first = 0, last = 0;
    a_source_position body_start, body_end;
    EXPECT_EQ(cache_function_body(&cache, each.is_constructor, &error, &first, &last, &body_start,
                                  &body_end),
              each.is_body)
        << each.text;
    EXPECT_EQ(error, each.is_error) << each.text;
    EXPECT_EQ(stored_kinds(cache).size(), each.tokens) << each.text;
    if (each.is_body) {
      EXPECT_EQ(cache.tail->kind, tok_end_of_source) << each.text;
      EXPECT_LT(first, last) << each.text;
      if (!each.is_error) {
        get_token();
        EXPECT_EQ(name(), "tail") << each.text;
      }
    }
    discard_token_cache(&cache);
  }
}

TEST_F(Caches, RecordingNestsAndNeitherLosesNorDoublesTokens) {
  open("a b c d e f");
  begin_caching_fetched_tokens(true);
  get_token();
  begin_caching_fetched_tokens(true);
  next_token();
  get_token();
  end_caching_fetched_tokens();
  get_token();
  unget_token();
  get_token();
  EXPECT_EQ(stored_kinds(*end_caching_fetched_tokens()).size(), 4u);
  get_token();  // not recorded any more
  EXPECT_EQ(name(), "e");
  EXPECT_FALSE(caching_tokens);
}

TEST_F(Caches, ANestedScanLeavesTheOuterStateAlone) {
  a_token_cache cache, body;
  store("1 2 3", &body, true);
  store("a b", &cache, true);
  rescan_reusable_cache(&cache);
  suppress_keyword_recognition = true;
  a_saved_lexical_state *saved = save_lexical_state();
  EXPECT_FALSE(suppress_keyword_recognition);
  rescan_reusable_cache(&body);
  EXPECT_EQ(replayed().size(), 3u);
  restore_lexical_state(saved);
  EXPECT_TRUE(suppress_keyword_recognition);
  suppress_keyword_recognition = false;
  EXPECT_EQ(name(), "a");
  get_token();
  EXPECT_EQ(name(), "b");
  replayed();
  EXPECT_EQ(name(), "tail");
}

TEST_F(Caches, InsertedTextStandsAtTheCurrentPlace) {
  open("a z");
  a_source_position pos = {7, 3, 0};
  insert_string_into_token_stream("m + \"n\" \"o\"", &pos);
  EXPECT_EQ(name(), "a");
  get_token();
  EXPECT_EQ(name(), "m");
  EXPECT_EQ(pos_curr_token.seq, 7u);
  EXPECT_EQ(pos_curr_token.column, 3u);
  EXPECT_EQ(get_token(), tok_plus);
  EXPECT_EQ(get_token(), tok_string_literal);
  EXPECT_STREQ(const_for_curr_token.string_text, "no");
  get_token();
  EXPECT_EQ(name(), "z");
}

TEST_F(Caches, ColonsSeparateWhereTheyAreAskedTo) {
  open("a::b:c");
  bool owed = false;
  EXPECT_EQ(get_token_with_colon_separation(&owed), tok_colon);
  EXPECT_TRUE(owed);
  std::uint32_t number = curr_token_sequence_number;
  EXPECT_EQ(get_token_with_colon_separation(&owed), tok_colon);
  EXPECT_EQ(curr_token_sequence_number, number + 1);
  EXPECT_EQ(get_token_with_colon_separation(&owed), tok_identifier);
  EXPECT_EQ(get_token_with_colon_separation(&owed), tok_colon);
  EXPECT_EQ(get_token_with_colon_separation(&owed), tok_identifier);
  EXPECT_EQ(name(), "c");
}

TEST_F(Caches, FlushingGoesOverGroups) {
  struct a_case {
    const char *text;
    a_token_kind stop;
    const char *next;  // behind the stop
  };
  const a_case cases[] = {
      {"a (;) [;] {;} ; x", tok_semicolon, "x"},
      {"template <;> a ; x", tok_semicolon, "x"},
      {"a < b ; x", tok_semicolon, "x"},
      {"( , ( , ) ) , x", tok_comma, "x"},
      {"a } x", tok_rbrace, "x"},
      {"template <A<B>> ; x", tok_semicolon, "x"},
  };
  for (const a_case &each : cases) {
    open(each.text);
    push_stop_token_stack();
    add_stop_token(each.stop);
    flush_tokens_without_warning();
    EXPECT_EQ(curr_token, each.stop) << each.text;
    get_token();
    EXPECT_EQ(name(), each.next) << each.text;
    pop_stop_token_stack();
  }
  open("f(a, g(b, c), d) e");
  get_token();
  flush_until_matching_token();
  EXPECT_EQ(curr_token, tok_rparen);
  get_token();
  EXPECT_EQ(name(), "e");
  open("a, (b) ) ; c");
  flush_to_closing_paren();
  EXPECT_EQ(curr_token, tok_rparen);
  get_token();
  EXPECT_EQ(curr_token, tok_semicolon);
  open("a, b ) c");
  push_stop_token_stack();
  add_stop_token(tok_comma);
  add_stop_token(tok_rparen);
  flush_to_end_of_arg_list();
  EXPECT_EQ(curr_token, tok_rparen);
  pop_stop_token_stack();
}
