// Reading tokens aside: streams of tokens into caches, function bodies stored for a later parse,
// recording of all that is fetched, text and pragmas put into the stream, and the state that nested
// scans save.
#include <cstring>

#include "semantics/symbol_ref.h"
#include "source/lexical_internal.h"
#include "target/pragma.h"

a_lexical_state_stack_entry *curr_lexical_state_stack_entry;

namespace {

a_lexical_state_stack_entry *avail_lexical_state_stack_entries;

// Sets caching_tokens for the time of a scan, so that pragmas wait.
class a_caching_scope {
 public:
  a_caching_scope() : saved_(caching_tokens) { caching_tokens = true; }
  ~a_caching_scope() { caching_tokens = saved_; }
  a_caching_scope(const a_caching_scope &) = delete;
  a_caching_scope &operator=(const a_caching_scope &) = delete;

 private:
  bool saved_;
};

// Without a cache the tokens go where fetched tokens are recorded.
void cache_if_wanted(a_token_cache *cache) {
  if (cache != nullptr) cache_curr_token(cache);
}

bool is_stream_end(a_token_kind kind) {
  return kind == tok_end_of_source || (kind == tok_newline && in_preprocessing_directive);
}

bool is_named_cast_or_template(a_token_kind kind) {
  return kind == tok_template || kind == tok_const_cast || kind == tok_static_cast ||
         kind == tok_dynamic_cast || kind == tok_reinterpret_cast;
}

}  // namespace

// ---- Lexical state -----------------------------------------------------------------------------

void push_lexical_state_stack() {
  a_lexical_state_stack_entry *entry = avail_lexical_state_stack_entries;
  if (entry != nullptr)
    avail_lexical_state_stack_entries = entry->next;
  else
    entry = static_cast<a_lexical_state_stack_entry *>(
        alloc_in_region(permanent_region, sizeof(a_lexical_state_stack_entry)));
  entry->next = curr_lexical_state_stack_entry;
  clear_token_cache(&entry->fetched_tokens, false);
  entry->saved_error_position = error_position;
  entry->caching_count = 0;
  entry->last_cached_sequence_number = 0;
  entry->saved_caching_tokens = caching_tokens;
  curr_lexical_state_stack_entry = entry;
  push_stop_token_stack();
  caching_tokens = false;
}

void pop_lexical_state_stack() {
  a_lexical_state_stack_entry *entry = curr_lexical_state_stack_entry;
  discard_token_cache(&entry->fetched_tokens);
  caching_tokens = entry->saved_caching_tokens;
  error_position = entry->saved_error_position;
  curr_lexical_state_stack_entry = entry->next;
  entry->next = avail_lexical_state_stack_entries;
  avail_lexical_state_stack_entries = entry;
  pop_stop_token_stack();
}

struct a_saved_lexical_state {
  a_saved_lexical_state *next;  // in the free list
  a_cached_token *rescan_list;
  a_rescan_stack_entry *rescan_stack_entry;
  a_lexical_state_stack_entry *lexical_state;
  a_pending_pragma *pragmas;
  a_token_cache current;  // the current token, to be given again
  a_source_position error_position;
  bool caching_tokens, fetch_pp_tokens, expand_macros, in_preprocessing_directive;
  bool treat_newline_as_token, suppress_keyword_recognition, in_pp_if_expression;
  bool do_string_literal_concatenation;
};

namespace {
a_saved_lexical_state *avail_saved_lexical_states;
}

a_saved_lexical_state *save_lexical_state() {
  a_saved_lexical_state *saved = avail_saved_lexical_states;
  if (saved != nullptr)
    avail_saved_lexical_states = saved->next;
  else
    saved = static_cast<a_saved_lexical_state *>(
        alloc_in_region(permanent_region, sizeof(a_saved_lexical_state)));
  clear_token_cache(&saved->current, false);
  saved->pragmas = curr_token_pragmas;
  curr_token_pragmas = nullptr;
  cache_curr_token(&saved->current);
  saved->rescan_list = cached_token_rescan_list;
  saved->rescan_stack_entry = curr_rescan_stack_entry;
  saved->lexical_state = curr_lexical_state_stack_entry;
  saved->error_position = error_position;
  saved->caching_tokens = caching_tokens;
  saved->fetch_pp_tokens = fetch_pp_tokens;
  saved->expand_macros = expand_macros;
  saved->in_preprocessing_directive = in_preprocessing_directive;
  saved->treat_newline_as_token = treat_newline_as_token;
  saved->suppress_keyword_recognition = suppress_keyword_recognition;
  saved->in_pp_if_expression = in_pp_if_expression;
  saved->do_string_literal_concatenation = do_string_literal_concatenation;
  cached_token_rescan_list = nullptr;
  curr_rescan_stack_entry = nullptr;
  push_lexical_state_stack();
  fetch_pp_tokens = in_preprocessing_directive = treat_newline_as_token = false;
  suppress_keyword_recognition = in_pp_if_expression = false;
  expand_macros = do_string_literal_concatenation = true;
  update_initial_get_token_tests();
  return saved;
}

void restore_lexical_state(a_saved_lexical_state *saved) {
  check_invariant(cached_token_rescan_list == nullptr);
  check_invariant(curr_lexical_state_stack_entry->next == saved->lexical_state);
  pop_lexical_state_stack();
  cached_token_rescan_list = saved->rescan_list;
  curr_rescan_stack_entry = saved->rescan_stack_entry;
  caching_tokens = false;
  fetch_pp_tokens = saved->fetch_pp_tokens;
  in_preprocessing_directive = saved->in_preprocessing_directive;
  prepend_to_rescan_list(&saved->current);
  get_token();
  caching_tokens = saved->caching_tokens;
  expand_macros = saved->expand_macros;
  treat_newline_as_token = saved->treat_newline_as_token;
  suppress_keyword_recognition = saved->suppress_keyword_recognition;
  in_pp_if_expression = saved->in_pp_if_expression;
  do_string_literal_concatenation = saved->do_string_literal_concatenation;
  error_position = saved->error_position;
  curr_token_pragmas = saved->pragmas;
  update_initial_get_token_tests();
  saved->next = avail_saved_lexical_states;
  avail_saved_lexical_states = saved;
}

// ---- Recording what is fetched -----------------------------------------------------------------

void record_fetched_token() {
  a_lexical_state_stack_entry *entry = curr_lexical_state_stack_entry;
  if (entry->caching_count == 0) return;  // a stream is read, but nobody records
  if (last_token_sequence_number_of_token <= entry->last_cached_sequence_number) return;
  cache_curr_token(&entry->fetched_tokens);
  entry->last_cached_sequence_number = last_token_sequence_number_of_token;
}

void begin_caching_fetched_tokens(bool include_current) {
  a_lexical_state_stack_entry *entry = curr_lexical_state_stack_entry;
  if (entry->caching_count++ == 0) {
    discard_token_cache(&entry->fetched_tokens);
    entry->last_cached_sequence_number = 0;
    caching_tokens = true;
    if (include_current)
      record_fetched_token();
    else
      entry->last_cached_sequence_number = last_token_sequence_number_of_token;
  }
}

a_token_cache *end_caching_fetched_tokens() {
  a_lexical_state_stack_entry *entry = curr_lexical_state_stack_entry;
  check_invariant(entry->caching_count > 0);
  if (--entry->caching_count == 0) caching_tokens = false;
  return &entry->fetched_tokens;
}

a_token_kind get_token_to_be_cached() {
  a_caching_scope caching;
  return get_token();
}

// ---- Streams -----------------------------------------------------------------------------------

void cache_token_stream(a_token_cache *cache, const a_stop_token_count stops[tok_last]) {
  cache_token_stream_full(cache, stops, 0);
}

void cache_token_stream_coalesce_identifiers(a_token_cache *cache,
                                             const a_stop_token_count stops[tok_last]) {
  cache_token_stream_full(cache, stops, csf_template_aware);
}

void cache_token_stream_full(a_token_cache *cache, const a_stop_token_count stops[tok_last],
                             unsigned flags) {
  a_caching_scope caching;
  a_token_kind before = tok_error;
  while (stops[curr_token] == 0 && !is_stream_end(curr_token)) {
    bool template_aware = (flags & csf_template_aware) != 0 && in_cplusplus();
    if (template_aware && curr_token == tok_identifier && f_is_generalized_identifier_start())
      coalesce_and_lookup_generalized_identifier(0);
    bool opens_template_list =
        template_aware && curr_token == tok_lt && is_named_cast_or_template(before);
    before = curr_token;
    if (token_classes[curr_token] == tcl_opener || opens_template_list) {
      if (curr_token == tok_lbracket && std_attributes_enabled && next_token() == tok_lbracket) {
        if (!cache_std_attribute(cache)) return;
      } else if (!cache_token_stream_until_matching_token(cache, flags)) {
        return;
      }
    } else {
      cache_if_wanted(cache);
    }
    get_token();
  }
}

namespace {

a_token_kind closer_of(a_token_kind opener) {
  switch (opener) {
    case tok_lbracket:
      return tok_rbracket;
    case tok_lparen:
      return tok_rparen;
    case tok_lbrace:
      return tok_rbrace;
    default:
      return tok_gt;
  }
}

// How many brackets of each kind are open; a closer without an opener does not count below 0.
struct a_bracket_count {
  int brackets = 0, parens = 0, braces = 0;

  void count(a_token_kind kind) {
    switch (kind) {
      case tok_lbracket:
        ++brackets;
        break;
      case tok_rbracket:
        if (brackets > 0) --brackets;
        break;
      case tok_lparen:
        ++parens;
        break;
      case tok_rparen:
        if (parens > 0) --parens;
        break;
      case tok_lbrace:
        ++braces;
        break;
      case tok_rbrace:
        if (braces > 0) --braces;
        break;
      default:
        break;
    }
  }
  bool none_open() const { return brackets == 0 && parens == 0 && braces == 0; }
};

}  // namespace

bool cache_token_stream_until_matching_token(a_token_cache *cache, unsigned flags) {
  a_token_kind closer = closer_of(curr_token);
  a_bracket_count open;
  a_caching_scope caching;
  cache_if_wanted(cache);
  for (get_token();; get_token()) {
    if (is_stream_end(curr_token)) return false;
    bool at_outer_level = open.none_open();
    if (at_outer_level) {
      if (closer == tok_gt && curr_token == tok_shift_right && right_shift_can_be_angle_brackets)
        split_right_shift_token();
      if (curr_token == closer) {
        cache_if_wanted(cache);
        return true;
      }
      if (curr_token == tok_rbrace) return false;
      if ((flags & csf_stop_at_semicolon) != 0 && curr_token == tok_semicolon) return false;
    }
    open.count(curr_token);
    cache_if_wanted(cache);
  }
}

// [[ ... ]]: the second bracket opens a group of its own.
bool cache_std_attribute(a_token_cache *cache) {
  return cache_token_stream_until_matching_token(cache, 0);
}

// ---- Function bodies ---------------------------------------------------------------------------

namespace {

// { ... } with everything inside, the closing brace in the cache and current.
bool cache_block(a_token_cache *cache) {
  push_lexical_state_stack();
  bool closed = cache_token_stream_until_matching_token(cache, 0);
  pop_lexical_state_stack();
  return closed;
}

// : a(1), b{2} up to the { of the body. True: the group just cached was the body itself.
bool cache_constructor_initializers(a_token_cache *cache, bool *error) {
  a_stop_token_count stops[tok_last] = {};
  stops[tok_lbrace] = stops[tok_rbrace] = stops[tok_semicolon] = 1;
  for (;;) {
    while (stops[curr_token] == 0 && !is_stream_end(curr_token)) {
      if (token_classes[curr_token] == tcl_opener) {
        if (!cache_token_stream_until_matching_token(cache, 0)) break;
      } else {
        cache_curr_token(cache);
      }
      get_token();
    }
    if (curr_token != tok_lbrace || !list_init_enabled) return false;
    if (!cache_block(cache)) {
      *error = true;
      return true;
    }
    a_token_kind following = next_token();
    if (following != tok_comma && following != tok_ellipsis && following != tok_lbrace) return true;
    get_token();
    if (curr_token == tok_lbrace) return false;
  }
}

// catch ( ... ) { ... }, any number.
void cache_handlers(a_token_cache *cache, bool *error) {
  while (!*error && next_token() == tok_catch) {
    get_token();
    cache_curr_token(cache);
    get_token();
    if (curr_token == tok_lparen) {
      cache_token_stream_until_matching_token(cache, 0);
      get_token();
    }
    *error = curr_token != tok_lbrace || !cache_block(cache);
  }
}

// = default; = delete;
void cache_defaulted_definition(a_token_cache *cache, bool *error) {
  cache_curr_token(cache);
  get_token();
  cache_curr_token(cache);
  get_token();
  if (curr_token == tok_semicolon)
    cache_curr_token(cache);
  else
    *error = true;
}

bool deleted_or_defaulted_definition_next() {
  a_token_kind following = next_token();
  return (deleted_functions_enabled && following == tok_delete) ||
         (defaulted_special_members_enabled && following == tok_default);
}

}  // namespace

bool cache_function_body(a_token_cache *cache, bool is_constructor, bool *error,
                         std::uint32_t *first_sequence_number, std::uint32_t *last_sequence_number,
                         a_source_position *start, a_source_position *end) {
  *error = false;
  bool has_initializers = is_constructor && curr_token == tok_colon;
  bool is_definition_by_word = curr_token == tok_assign && deleted_or_defaulted_definition_next();
  if (curr_token != tok_lbrace && curr_token != tok_try && !has_initializers &&
      !is_definition_by_word)
    return false;
  a_caching_scope caching;
  *first_sequence_number = curr_token_sequence_number;
  *start = pos_curr_token;
  if (is_definition_by_word) {
    cache_defaulted_definition(cache, error);
  } else {
    bool is_try_block = curr_token == tok_try;
    if (is_try_block) {
      cache_curr_token(cache);
      get_token();
    }
    bool body_is_cached = false;
    if (is_constructor && curr_token == tok_colon)
      body_is_cached = cache_constructor_initializers(cache, error);
    if (!body_is_cached) *error = curr_token != tok_lbrace || !cache_block(cache);
    if (is_try_block) cache_handlers(cache, error);
  }
  *end = end_pos_curr_token;
  *last_sequence_number = cache->tail->last_sequence_number;
  terminate_token_cache(cache);
  return true;
}

// ---- Text and pragmas put into the stream ------------------------------------------------------

void insert_string_into_token_stream(const char *text, const a_source_position *pos) {
  a_source_position position = pos != nullptr ? *pos : pos_curr_token;
  std::size_t length = std::strlen(text);
  a_text_buffer *buffer = alloc_text_buffer(1024);
  add_to_text_buffer(buffer, text, length);
  const char ending[] = {0, tm_end_of_line, 0, tm_end_of_buffer};
  add_to_text_buffer(buffer, ending, sizeof ending);

  a_token_cache tokens;
  clear_token_cache(&tokens, false);
  cache_curr_token(&tokens);
  a_cached_token *saved_list = cached_token_rescan_list;
  a_rescan_stack_entry *saved_stack = curr_rescan_stack_entry;
  cached_token_rescan_list = nullptr;
  curr_rescan_stack_entry = nullptr;
  update_initial_get_token_tests();
  bool saved_caching = caching_tokens;
  caching_tokens = false;
  a_saved_text_place place;
  begin_inserted_text(buffer->buffer, &position, &place);
  while (get_token() != tok_end_of_source)
    cache_curr_token(&tokens);
  end_inserted_text(&place);
  cached_token_rescan_list = saved_list;
  curr_rescan_stack_entry = saved_stack;
  prepend_to_rescan_list(&tokens);
  get_token();
  caching_tokens = saved_caching;
}

void begin_rescan_of_pragma_tokens(a_pending_pragma *pragma) {
  push_lexical_state_stack();
  a_token_cache tokens;
  clear_token_cache(&tokens, false);
  copy_tokens_from_cache(&pragma->tokens, 0, 0, false, &tokens);
  append_cached_token(&tokens, build_cached_token(tok_end_of_source, curr_token_sequence_number,
                                                  &pragma->directive_position));
  rescan_cached_tokens(&tokens);
}

// Passes what the handler left, and brings back the token that was current before. After an error
// the rest is dropped in silence: the pragma as a whole was reported.
void wrapup_rescan_of_pragma_tokens(bool) {
  while (curr_token != tok_end_of_source)
    get_token();
  get_token();
  pop_lexical_state_stack();
}
