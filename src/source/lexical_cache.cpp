// Token caches: storing the current token, and giving stored tokens back as if they were scanned.
// A token keeps its number, so that a stream read twice is recorded once. A one-shot cache is used
// up by its replay; a reusable one stays and can be replayed any number of times.
#include <cstring>

#include "il/il_expr.h"
#include "source/lexical_internal.h"
#include "target/pragma.h"

a_cached_token *cached_token_rescan_list;
a_rescan_stack_entry *curr_rescan_stack_entry;

namespace {

// Free lists, in region 0 for the whole process.
a_cached_token *avail_cached_tokens;
a_token_cache *avail_token_caches;
a_rescan_stack_entry *avail_rescan_stack_entries;

a_cached_token *pp_token_in_use;  // used up, but its text is that of the current token

template <class T>
T *alloc_permanent() {
  return static_cast<T *>(alloc_in_region(permanent_region, sizeof(T)));
}

// Payloads of variable kind: a free list of records that hold either.
template <class T>
union a_pooled {
  a_pooled<T> *next;
  T value;
  a_pooled() {}
};
a_pooled<a_symbol_locator> *avail_locators;
a_pooled<a_constant> *avail_constants;
a_pooled<a_cached_ud_literal> *avail_ud_literals;

template <class T>
T *take_pooled(a_pooled<T> **avail) {
  a_pooled<T> *record = *avail;
  if (record == nullptr) return &alloc_permanent<a_pooled<T>>()->value;
  *avail = record->next;
  return &record->value;
}

template <class T>
void give_pooled(a_pooled<T> **avail, T *value) {
  a_pooled<T> *record = reinterpret_cast<a_pooled<T> *>(value);
  record->next = *avail;
  *avail = record;
}

a_cached_token *alloc_cached_token() {
  a_cached_token *token = avail_cached_tokens;
  if (token != nullptr)
    avail_cached_tokens = token->next;
  else
    token = alloc_permanent<a_cached_token>();
  token->next = nullptr;
  return token;
}

bool is_literal_token(a_token_kind kind) {
  return kind >= tok_float_constant && kind <= tok_string_literal;
}

a_cached_token_data data_kind_for_curr_token() {
  if (fetch_pp_tokens && start_of_curr_token != nullptr && curr_token != tok_end_of_source &&
      curr_token != tok_newline)
    return ctd_pp_token;
  if (curr_token == tok_identifier || token_classes[curr_token] == tcl_keyword)
    return curr_token_asm_string != nullptr ? ctd_asm_string : ctd_locator;
  if (is_literal_token(curr_token)) return ctd_constant;
  if (curr_token == tok_ud_literal) return ctd_ud_literal;
  return ctd_none;
}

a_constant *pooled_copy_of_constant(const a_constant *source) {
  a_constant *copy = take_pooled(&avail_constants);
  *copy = *source;
  return copy;
}

std::size_t size_of_text(const a_cached_token *token) {
  return static_cast<std::size_t>(token->data.text.end + 1 - token->data.text.start);
}

// A copy of the text with a byte 0 behind it.
void store_text(a_cached_token *token, const char *start, std::size_t length) {
  char *text = static_cast<char *>(alloc_general(length + 1));
  std::memcpy(text, start, length);
  text[length] = '\0';
  token->data.text = {text, text + length - 1};
}

void store_payload(a_cached_token *token) {
  switch (token->data_kind) {
    case ctd_locator:
      token->data.locator = take_pooled(&avail_locators);
      *token->data.locator = locator_for_curr_id;
      break;
    case ctd_constant:
      token->data.constant = pooled_copy_of_constant(&const_for_curr_token);
      break;
    case ctd_pp_token:
      store_text(token, start_of_curr_token, len_of_curr_token);
      break;
    case ctd_asm_string:
      token->data.asm_string = curr_token_asm_string;
      break;
    case ctd_ud_literal:
      token->data.ud_literal = take_pooled(&avail_ud_literals);
      *token->data.ud_literal = {const_for_curr_token, const_with_curr_tok_spelling,
                                 ud_lit_type_for_curr_token, locator_for_curr_id,
                                 ud_lit_error_for_curr_token};
      break;
    case ctd_none:
    case ctd_pragmas:
    case ctd_stop:
      break;
  }
}

// Makes the payload of a cached token the current one. The token keeps what it has.
void load_payload(const a_cached_token *token) {
  curr_token_asm_string = nullptr;
  switch (token->data_kind) {
    case ctd_locator:
      locator_for_curr_id = *token->data.locator;
      set_constant_of_keyword(token->kind);
      break;
    case ctd_constant:
      const_for_curr_token = *token->data.constant;
      break;
    case ctd_pp_token:
      start_of_curr_token = token->data.text.start;
      end_of_curr_token = token->data.text.end;
      len_of_curr_token = static_cast<std::size_t>(end_of_curr_token - start_of_curr_token) + 1;
      if (token->kind == tok_identifier) {
        locator_for_curr_id = cleared_locator;
        locator_for_curr_id.header = find_symbol_header(start_of_curr_token, len_of_curr_token);
        locator_for_curr_id.position = token->pos;
      }
      break;
    case ctd_asm_string:
      curr_token_asm_string = token->data.asm_string;
      break;
    case ctd_ud_literal: {
      const a_cached_ud_literal *literal = token->data.ud_literal;
      const_for_curr_token = literal->constant;
      const_with_curr_tok_spelling = literal->spelling;
      ud_lit_op_sym_for_curr_token = nullptr;
      ud_lit_type_for_curr_token = literal->type;
      ud_lit_error_for_curr_token = literal->error;
      locator_for_curr_id = literal->suffix;
      break;
    }
    case ctd_none:
    case ctd_pragmas:
    case ctd_stop:
      break;
  }
}

void make_current(const a_cached_token *token) {
  curr_token = token->kind;
  pos_curr_token = token->pos;
  end_pos_curr_token = token->end_pos;
  curr_token_sequence_number = token->sequence_number;
  last_token_sequence_number_of_token = token->last_sequence_number;
  curr_cached_token_handle = token->handle;
  start_of_curr_token = end_of_curr_token = nullptr;
  len_of_curr_token = 0;
  curr_token_is_inert_macro = curr_token_is_temporarily_inert = false;
  load_payload(token);
}

void append_pragmas(a_pending_pragma *pragmas) {
  a_pending_pragma **link = &curr_token_pragmas;
  while (*link != nullptr)
    link = &(*link)->next;
  *link = pragmas;
  pragmas->last_of_list = nullptr;
}

a_cached_token *copy_of_token(const a_cached_token *token) {
  a_cached_token *copy = alloc_cached_token();
  *copy = *token;
  copy->next = nullptr;
  switch (token->data_kind) {
    case ctd_locator:
      copy->data.locator = take_pooled(&avail_locators);
      *copy->data.locator = *token->data.locator;
      break;
    case ctd_constant:
      copy->data.constant = pooled_copy_of_constant(token->data.constant);
      break;
    case ctd_ud_literal:
      copy->data.ud_literal = take_pooled(&avail_ud_literals);
      *copy->data.ud_literal = *token->data.ud_literal;
      break;
    case ctd_pragmas:
      copy->data.pragmas = make_copy_of_pragma_list(token->data.pragmas);
      break;
    case ctd_pp_token:
      store_text(copy, token->data.text.start, size_of_text(token));
      break;
    case ctd_asm_string:
    case ctd_none:
    case ctd_stop:
      break;
  }
  return copy;
}

// A pp token cannot be parsed: runs of them are passed when the parser fetches.
bool is_unparsable(const a_cached_token *token) {
  return token->data_kind == ctd_pp_token && !fetch_pp_tokens && !in_preprocessing_directive;
}

}  // namespace

void update_initial_get_token_tests() {
  any_initial_get_token_tests_needed = cached_token_rescan_list != nullptr ||
                                       curr_rescan_stack_entry != nullptr ||
                                       curr_token_pragmas != nullptr;
}

static void free_rare_payload(a_cached_token *token) {
  switch (token->data_kind) {
    case ctd_ud_literal:
      give_pooled(&avail_ud_literals, token->data.ud_literal);
      break;
    case ctd_pragmas:
      free_pending_pragmas(token->data.pragmas);
      break;
    case ctd_pp_token:
      free_general(const_cast<char *>(token->data.text.start), size_of_text(token) + 1);
      break;
    default:
      break;
  }
}

void free_cached_token(a_cached_token *token) {
  if (token->data_kind == ctd_locator)
    give_pooled(&avail_locators, token->data.locator);
  else if (token->data_kind == ctd_constant)
    give_pooled(&avail_constants, token->data.constant);
  else if (token->data_kind != ctd_none)
    free_rare_payload(token);
  token->next = avail_cached_tokens;
  avail_cached_tokens = token;
}

namespace {

// Takes the next token that the caches hold, without consuming it; entries that are exhausted
// leave the stack. Null: the text is next.
a_cached_token *next_cached_token() {
  for (;;) {
    if (cached_token_rescan_list != nullptr) return cached_token_rescan_list;
    a_rescan_stack_entry *entry = curr_rescan_stack_entry;
    if (entry == nullptr) return nullptr;
    if (entry->current != nullptr) return entry->current;
    curr_rescan_stack_entry = entry->next;
    cached_token_rescan_list = entry->saved_list;
    entry->next = avail_rescan_stack_entries;
    avail_rescan_stack_entries = entry;
  }
}

void consume_cached_token(a_cached_token *token) {
  if (token == cached_token_rescan_list) {
    cached_token_rescan_list = token->next;
    if (token->data_kind == ctd_pp_token) {  // start_of_curr_token points into its text
      if (pp_token_in_use != nullptr) free_cached_token(pp_token_in_use);
      pp_token_in_use = token;
    } else {
      free_cached_token(token);
    }
  } else {
    curr_rescan_stack_entry->current = token->next;
  }
}

}  // namespace

bool get_cached_token() {
  if (curr_token_pragmas != nullptr && !in_preprocessing_directive && !fetch_pp_tokens)
    process_curr_token_pragmas();
  bool pp_tokens_passed = false;
  for (;;) {
    a_cached_token *token = next_cached_token();
    if (token == nullptr) break;
    bool from_list = token == cached_token_rescan_list;
    if (token->data_kind == ctd_pragmas) {
      append_pragmas(from_list ? token->data.pragmas
                               : make_copy_of_pragma_list(token->data.pragmas));
      if (from_list) token->data.pragmas = nullptr;
      consume_cached_token(token);
      continue;
    }
    if (token->data_kind == ctd_stop) {
      consume_cached_token(token);
      break;
    }
    if (is_unparsable(token)) {
      pp_tokens_passed = true;
      consume_cached_token(token);
      continue;
    }
    make_current(token);
    consume_cached_token(token);
    update_initial_get_token_tests();
    if (pp_tokens_passed) pos_error(ec_end_of_flush, &pos_curr_token);
    return true;
  }
  update_initial_get_token_tests();
  return false;
}

// ---- Caches ------------------------------------------------------------------------------------

void clear_token_cache(a_token_cache *cache, bool reusable) {
  *cache = {0, nullptr, nullptr, reusable};
}

a_token_cache *alloc_token_cache() {
  a_token_cache *cache = avail_token_caches;
  if (cache != nullptr)
    avail_token_caches = reinterpret_cast<a_token_cache *>(cache->head);
  else
    cache = alloc_permanent<a_token_cache>();
  clear_token_cache(cache, false);
  return cache;
}

void free_token_cache(a_token_cache *cache) {
  discard_token_cache(cache);
  cache->head = reinterpret_cast<a_cached_token *>(avail_token_caches);
  avail_token_caches = cache;
}

void discard_token_cache(a_token_cache *cache) {
  for (a_cached_token *token = cache->head, *next; token != nullptr; token = next) {
    next = token->next;
    free_cached_token(token);
  }
  cache->head = cache->tail = nullptr;
}

void append_cached_token(a_token_cache *cache, a_cached_token *token) {
  token->next = nullptr;
  if (cache->reusable) token->handle = token;
  if (cache->head == nullptr)
    cache->head = token;
  else
    cache->tail->next = token;
  cache->tail = token;
}

a_cached_token *build_cached_token(a_token_kind kind, std::uint32_t sequence_number,
                                   const a_source_position *pos) {
  a_cached_token *token = alloc_cached_token();
  token->handle = nullptr;
  token->pos = token->end_pos = *pos;
  token->sequence_number = token->last_sequence_number = sequence_number;
  token->kind = kind;
  token->data_kind = ctd_none;
  return token;
}

void cache_curr_token(a_token_cache *cache) {
  if (curr_token_pragmas != nullptr && !in_preprocessing_directive && !fetch_pp_tokens) {
    a_cached_token *entry =
        build_cached_token(curr_token, curr_token_sequence_number, &pos_curr_token);
    entry->data_kind = ctd_pragmas;
    entry->data.pragmas =
        cache->reusable ? make_copy_of_pragma_list(curr_token_pragmas) : curr_token_pragmas;
    curr_token_pragmas = nullptr;
    append_cached_token(cache, entry);
    update_initial_get_token_tests();
  }
  a_cached_token *token =
      build_cached_token(curr_token, curr_token_sequence_number, &pos_curr_token);
  token->end_pos = end_pos_curr_token;
  token->last_sequence_number = last_token_sequence_number_of_token;
  token->handle = curr_cached_token_handle;
  token->data_kind = data_kind_for_curr_token();
  store_payload(token);
  append_cached_token(cache, token);
}

void copy_tokens_from_cache(const a_token_cache *cache, std::uint32_t first, std::uint32_t last,
                            bool copy_pragmas, a_token_cache *out) {
  for (a_cached_token *token = cache->head; token != nullptr; token = token->next) {
    if (token->sequence_number < first) continue;
    if (last != 0 && token->sequence_number > last) break;
    if (token->data_kind == ctd_pragmas && !copy_pragmas) continue;
    append_cached_token(out, copy_of_token(token));
  }
}

namespace {

// The link before token, or null when token is the head.
a_cached_token *predecessor_of(const a_token_cache *cache, const a_cached_token *token) {
  a_cached_token *before = nullptr;
  for (a_cached_token *each = cache->head; each != token; each = each->next)
    before = each;
  return before;
}

}  // namespace

void remove_token_from_cache(a_token_cache *cache, a_cached_token *token) {
  a_cached_token *before = predecessor_of(cache, token);
  if (before == nullptr)
    cache->head = token->next;
  else
    before->next = token->next;
  if (cache->tail == token) cache->tail = before;
  free_cached_token(token);
}

void split_token_cache(a_token_cache *cache, a_token_cache *out, std::uint32_t first,
                       std::uint32_t last) {
  a_cached_token *kept_head = nullptr, *kept_tail = nullptr;
  for (a_cached_token *token = cache->head, *next; token != nullptr; token = next) {
    next = token->next;
    if (token->sequence_number >= first && (last == 0 || token->sequence_number <= last)) {
      append_cached_token(out, token);
      continue;
    }
    token->next = nullptr;
    if (kept_head == nullptr)
      kept_head = token;
    else
      kept_tail->next = token;
    kept_tail = token;
  }
  cache->head = kept_head;
  cache->tail = kept_tail;
}

void move_cached_tokens(a_token_cache *from, a_token_cache *to) {
  if (from->head == nullptr) return;
  if (to->head == nullptr)
    to->head = from->head;
  else
    to->tail->next = from->head;
  to->tail = from->tail;
  from->head = from->tail = nullptr;
  if (to->reusable) adjust_token_handles(to);
}

void terminate_token_cache(a_token_cache *cache) {
  std::uint32_t number =
      cache->tail != nullptr ? cache->tail->last_sequence_number : curr_token_sequence_number;
  append_cached_token(cache, build_cached_token(tok_end_of_source, number, &pos_curr_token));
}

void adjust_token_handles(a_token_cache *cache) {
  for (a_cached_token *token = cache->head; token != nullptr; token = token->next)
    token->handle = token;
}

// ---- Replay ------------------------------------------------------------------------------------

void prepend_to_rescan_list(a_token_cache *cache) {
  if (cache->head == nullptr) return;
  cache->tail->next = cached_token_rescan_list;
  cached_token_rescan_list = cache->head;
  cache->head = cache->tail = nullptr;
  any_initial_get_token_tests_needed = true;
}

void rescan_cached_tokens(a_token_cache *cache) {
  f_rescan_cached_tokens(cache, false);
}

void f_rescan_cached_tokens(a_token_cache *cache, bool discard_current) {
  if (!discard_current) cache_curr_token(cache);
  if (cache->head == nullptr) return;
  prepend_to_rescan_list(cache);
  get_token();
}

void rescan_reusable_cache(a_token_cache *cache) {
  a_token_cache current;
  clear_token_cache(&current, false);
  cache_curr_token(&current);
  prepend_to_rescan_list(&current);
  a_rescan_stack_entry *entry = avail_rescan_stack_entries;
  if (entry != nullptr)
    avail_rescan_stack_entries = entry->next;
  else
    entry = alloc_permanent<a_rescan_stack_entry>();
  *entry = {curr_rescan_stack_entry, cached_token_rescan_list, cache->head, 0};
  curr_rescan_stack_entry = entry;
  cached_token_rescan_list = nullptr;
  any_initial_get_token_tests_needed = true;
  get_token();
}

void rescan_copy_of_cache(const a_token_cache *cache) {
  a_token_cache copy;
  clear_token_cache(&copy, false);
  copy_tokens_from_cache(cache, 0, 0, true, &copy);
  rescan_cached_tokens(&copy);
}

void update_reusable_cache_rescan_location(a_cached_token *handle) {
  check_invariant(curr_rescan_stack_entry != nullptr);
  curr_rescan_stack_entry->current = handle;
  while (cached_token_rescan_list != nullptr) {  // what a look-ahead took from there
    a_cached_token *token = cached_token_rescan_list;
    cached_token_rescan_list = token->next;
    free_cached_token(token);
  }
}

void increment_variadic_rescans_for_reusable_cache() {
  if (curr_rescan_stack_entry != nullptr) ++curr_rescan_stack_entry->variadic_rescans;
}

void decrement_variadic_rescans_for_reusable_cache() {
  if (curr_rescan_stack_entry != nullptr) --curr_rescan_stack_entry->variadic_rescans;
}

void unget_token() {
  a_token_cache twice;
  clear_token_cache(&twice, false);
  cache_curr_token(&twice);
  cache_curr_token(&twice);
  prepend_to_rescan_list(&twice);
  get_token();
}

// ---- Look-ahead --------------------------------------------------------------------------------

namespace {

bool stands_at_end_of_directive() {
  return in_preprocessing_directive && curr_token == tok_newline;
}

// The token that the caches would give next, if they tell.
const a_cached_token *peek_cached_token() {
  if (!any_initial_get_token_tests_needed) return nullptr;
  const a_cached_token *token = cached_token_rescan_list;
  if (token == nullptr && curr_rescan_stack_entry != nullptr)
    token = curr_rescan_stack_entry->current;
  while (token != nullptr && token->data_kind == ctd_pragmas)
    token = token->next;
  if (token == nullptr || token->data_kind == ctd_stop || token->kind == tok_end_of_source ||
      is_unparsable(token))
    return nullptr;
  return token;
}

a_symbol_header *header_of_cached_token(const a_cached_token *token) {
  return token->data_kind == ctd_locator && token->kind == tok_identifier
             ? token->data.locator->header
             : nullptr;
}

}  // namespace

a_token_kind next_token_full(std::uint32_t *sequence_number, a_symbol_header **header) {
  if (stands_at_end_of_directive()) {
    if (header != nullptr) *header = nullptr;
    return tok_newline;
  }
  if (const a_cached_token *token = peek_cached_token()) {
    if (sequence_number != nullptr) *sequence_number = token->sequence_number;
    if (header != nullptr) *header = header_of_cached_token(token);
    return token->kind;
  }
  a_source_position saved_error_position = error_position;
  a_token_cache both;
  clear_token_cache(&both, false);
  cache_curr_token(&both);
  a_token_kind kind = get_token();
  if (sequence_number != nullptr) *sequence_number = curr_token_sequence_number;
  if (header != nullptr) *header = kind == tok_identifier ? locator_for_curr_id.header : nullptr;
  f_rescan_cached_tokens(&both, false);
  error_position = saved_error_position;
  return kind;
}

a_token_kind next_two_tokens(a_token_kind kind, a_token_kind *second) {
  *second = tok_error;
  if (stands_at_end_of_directive()) return tok_newline;
  a_token_kind first = next_token();
  if (first != kind) return first;
  a_source_position saved_error_position = error_position;
  a_token_cache tokens;
  clear_token_cache(&tokens, false);
  cache_curr_token(&tokens);
  get_token();
  cache_curr_token(&tokens);
  *second = get_token();
  f_rescan_cached_tokens(&tokens, false);
  error_position = saved_error_position;
  return first;
}

// >> closes two template lists: the current token becomes its first >, the second is the next
// token, numbered by the odd number left free behind the first.
void split_right_shift_token() {
  check_invariant(curr_token == tok_shift_right);
  a_source_position second_pos = pos_curr_token;
  ++second_pos.column;
  a_cached_token *second = build_cached_token(tok_gt, curr_token_sequence_number + 1, &second_pos);
  a_token_cache rest;
  clear_token_cache(&rest, false);
  append_cached_token(&rest, second);
  prepend_to_rescan_list(&rest);
  curr_token = tok_gt;
  end_pos_curr_token = pos_curr_token;
  last_token_sequence_number_of_token = curr_token_sequence_number;
  a_cached_token *recorded = curr_lexical_state_stack_entry->fetched_tokens.tail;
  if (caching_tokens && recorded != nullptr &&
      recorded->sequence_number == curr_token_sequence_number &&
      recorded->kind == tok_shift_right) {
    recorded->kind = tok_gt;
    recorded->end_pos = recorded->pos;
    recorded->last_sequence_number = recorded->sequence_number;
    curr_lexical_state_stack_entry->last_cached_sequence_number = recorded->sequence_number;
  }
}

void init_token_caches() {
  pp_token_in_use = nullptr;
  cached_token_rescan_list = nullptr;
  curr_rescan_stack_entry = nullptr;
  curr_token_pragmas = nullptr;
  any_initial_get_token_tests_needed = false;
}
