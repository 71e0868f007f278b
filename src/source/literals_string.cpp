// String literals: raw delimiters and lines joined, the text in the units of the target, and the
// concatenation of adjacent literals.
#include <cstring>

#include "il/il_alloc.h"
#include "il/il_expr.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/literals_internal.h"
#include "target/pragma.h"

std::uint32_t load_string_unit(const char *text, int size) {
  std::uint32_t unit = 0;
  for (int i = 0; i < size; ++i) {
    int place = targ_little_endian ? i : size - 1 - i;
    unit |= static_cast<std::uint32_t>(static_cast<unsigned char>(text[place]))
            << (i * targ_char_bit);
  }
  return unit;
}

namespace {

constexpr std::size_t max_raw_delimiter_length = 16;

// Of the string literal scanned last: its prefix, and whether the name directly behind it is a
// macro, not a suffix.
int string_prefix_of_curr_token = ep_none;
bool macro_follows_curr_string;

// Writes a code unit in the target's byte order.
void store_unit(char *text, std::uint32_t unit, int size) {
  for (int i = 0; i < size; ++i) {
    int place = targ_little_endian ? i : size - 1 - i;
    text[place] = static_cast<char>(unit >> (i * targ_char_bit));
  }
}

// The text of a literal in the IL, its terminator included.
void make_string_constant(a_constant *constant, const char *text, std::size_t bytes, int kind,
                          int unit_size) {
  char *copy = alloc_text_of_string_literal(bytes);
  std::memcpy(copy, text, bytes);
  set_error_constant(constant);
  constant->kind = ck_string;
  constant->string_text = copy;
  constant->string_length = bytes;
  constant->string_char_kind = static_cast<a_string_char_kind>(kind);
  constant->string_sequence_number = -1;
  constant->is_literal = true;
  constant->type = string_literal_type(static_cast<a_string_char_kind>(kind),
                                       bytes / static_cast<std::size_t>(unit_size));
}

// Only plain characters between start and end: their bytes are the text.
bool is_plain_text(const char *start, const char *end) {
  for (const char *p = start; p < end; ++p)
    if (*p == '\\' || *p <= 0) return false;
  return true;
}

a_text_buffer *unit_buffer() {
  static a_text_buffer *buffer;
  if (buffer == nullptr) buffer = alloc_text_buffer(1024);
  reset_text_buffer(buffer);
  return buffer;
}

}  // namespace

a_constant *make_spelling_constant(const char *text, std::size_t length) {
  char *copy = alloc_text_of_string_literal(length + 1);
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  a_constant *constant = fs_constant(ck_string);
  constant->string_text = copy;
  constant->string_length = length + 1;
  constant->string_char_kind = chk_char;
  constant->type = string_literal_type(chk_char, length + 1);
  return constant;
}

void conv_string_literal(const char *start, const char *end, int prefix, std::size_t,
                         an_error_code *err, const char **err_loc) {
  *err = ec_no_error;
  *err_loc = start;
  const char *source = start + length_of_encoding_prefix(prefix) + 1;
  bool is_raw = (prefix & ep_raw) != 0;
  if (is_raw) {  // R"xyz(text)xyz"
    std::size_t delimiter = static_cast<std::size_t>(std::strchr(source, '(') - source);
    source += delimiter + 1;
    end -= delimiter + 1;
  }
  const int kind = string_kind_of_prefix(prefix), size = unit_size_of_prefix(prefix);
  a_text_buffer *buffer = unit_buffer();
  if (!is_wide_prefix(prefix) && !is_raw && is_plain_text(source, end)) {
    add_to_text_buffer(buffer, source, static_cast<std::size_t>(end - source));
  } else {
    a_char_conversion_state state;
    init_char_conversion(&state, source, is_raw, prefix);
    const std::uint64_t mask = unit_mask_of_prefix(prefix);
    while (state.source < end || state.pending_count != 0 ||
           (state.next_modif != nullptr && state.next_modif->loc == end)) {
      std::uint32_t unit = is_wide_prefix(prefix)
                               ? conv_single_wide_char(&state, !is_raw, mask)
                               : conv_single_char(&state, !is_raw, mask, true, true);
      char bytes[4];
      store_unit(bytes, unit, size);
      add_to_text_buffer(buffer, bytes, static_cast<std::size_t>(size));
    }
  }
  const char terminator[4] = {};
  add_to_text_buffer(buffer, terminator, static_cast<std::size_t>(size));
  make_string_constant(&const_for_curr_token, buffer->buffer, buffer->size_used, kind, size);
}

// ---- The scanner's path ------------------------------------------------------------------------

namespace {

const an_orig_line_modif *first_modif_from(const char *loc) {
  if (curr_text_modif != nullptr) return nullptr;
  const an_orig_line_modif *modif = orig_line_modif_list;
  while (modif != nullptr && modif->loc < loc)
    modif = modif->next;
  return modif;
}

// R"xyz( : curr_char_loc behind the quote goes behind the parenthesis. False: no parenthesis, the
// literal is an ordinary one.
bool scan_raw_delimiter(a_raw_delimiter *delimiter) {
  const char *p = curr_char_loc, *reported = nullptr;
  delimiter->text = p;
  delimiter->trigraphs = 0;
  std::size_t original_length = 0;
  const an_orig_line_modif *modif = first_modif_from(p);
  for (; *p != '('; ++p, ++original_length) {
    bool is_spliced = false, is_trigraph = false;
    for (; modif != nullptr && modif->loc == p; modif = modif->next) {
      is_spliced |= modif->kind == olm_line_splice || modif->kind == olm_trigraph_splice;
      is_trigraph |= modif->kind == olm_trigraph;
    }
    if (is_trigraph) {
      original_length += 2;
      ++delimiter->trigraphs;
    }
    if (*p == '\0' || original_length >= max_raw_delimiter_length) {
      error_at(ec_missing_raw_string_delim_lparen, delimiter->text);
      return false;
    }
    bool is_valid = is_trigraph || is_raw_string_delimiter_char[static_cast<int>(*p)];
    if ((!is_valid || is_spliced) && reported == nullptr) {
      reported = p;
      report_at(currently_in_pp_if_skip ? es_remark : es_error, ec_bad_raw_string_delim_char, p);
    }
  }
  delimiter->length = static_cast<std::size_t>(p - delimiter->text);
  curr_char_loc = p + 1;
  return true;
}

// Raw strings, and in old GNU modes all strings, go on over the end of the line.
bool may_continue_on_next_line(bool is_raw) {
  if (curr_text_modif != nullptr || curr_cmd_line_or_predef_macro_def != nullptr) return false;
  return (is_raw || (gnu_mode && gnu_version < 30300)) && curr_char_loc[0] == '\0' &&
         curr_char_loc[1] == tm_end_of_line;
}

// Puts \n over the mark of the line's end and appends the next line. False: the file ends.
bool continue_on_next_line() {
  char *mark = curr_source_line + (curr_char_loc - curr_source_line);
  add_orig_line_modif(mark, olm_newline, seq_number_last_read + 1);
  mark[0] = '\\';
  mark[1] = 'n';
  curr_char_loc = mark + 2;
  return !read_logical_source_line(false, true);
}

// Preprocessed output shows a literal as the file has it.
void mark_modifications_inside(const char *start, const char *end) {
  if (curr_text_modif != nullptr) return;
  for (an_orig_line_modif *modif = orig_line_modif_list; modif != nullptr; modif = modif->next)
    if (modif->loc >= start && modif->loc < end) modif->in_skipped_text = true;
}

}  // namespace

a_token_kind scan_string(const char *start, int prefix) {
  curr_char_loc = start + length_of_encoding_prefix(prefix) + 1;
  a_raw_delimiter delimiter;
  if ((prefix & ep_raw) != 0 && !scan_raw_delimiter(&delimiter)) prefix &= ~ep_raw;
  bool is_raw = (prefix & ep_raw) != 0;
  std::size_t length = 0;
  bool ended_early;
  while ((ended_early =
              accum_quoted_string(&length, false, prefix, '"', is_raw ? &delimiter : nullptr)) &&
         may_continue_on_next_line(is_raw)) {
    if (!continue_on_next_line()) break;
  }
  const char *end = ended_early ? curr_char_loc : curr_char_loc + 1;
  if (ended_early && fetch_pp_tokens && !is_raw) {  // a lone quote takes the rest of the line
    set_curr_token_text(start, end);
    err_code_for_error_token = ec_unclosed_string;
    return tok_error;
  }
  const char *suffix = end;
  if (!ended_early) end = end_of_suffix_behind_quote(end);
  set_curr_token_text(start, end);
  string_prefix_of_curr_token = prefix;
  macro_follows_curr_string = ud_literal_is_string = false;
  if (ended_early) {
    error_at(is_raw ? ec_missing_raw_string_delimiter : ec_unclosed_string, start);
    expect_syntax_error_after(1);
    if (fetch_pp_tokens) return tok_string_literal;
    set_error_constant(&const_for_curr_token);
    return tok_string_literal;
  }
  if (orig_line_modif_list != nullptr) mark_modifications_inside(start, end);
  if (fetch_pp_tokens) return tok_string_literal;
  an_error_code err;
  const char *err_loc;
  conv_string_literal(start, suffix - 1, prefix, length, &err, &err_loc);
  if (err != ec_no_error) {
    error_at(err, err_loc);
    set_error_constant(&const_for_curr_token);
  }
  if (end == suffix) {
    macro_follows_curr_string = user_defined_literals_enabled && end_of_ud_suffix(end) != end;
    return tok_string_literal;
  }
  string_prefix_of_curr_token |= ep_ud;
  make_ud_literal(suffix, end);
  ud_literal_is_string = true;
  return tok_string_literal;  // get_token knows what it is, once it is joined with others
}

a_token_kind scan_prefixed_literal(const char *start, int prefix) {
  const char *quote = start + length_of_encoding_prefix(prefix);
  return *quote == '\'' ? scan_character(start, prefix) : scan_string(start, prefix);
}

// "name" or <name> in an include directive.
a_token_kind scan_header_name(const char *start) {
  char closing = *start == '<' ? '>' : '"';
  curr_char_loc = start + 1;
  std::size_t length = 0;
  bool ended_early = accum_quoted_string(&length, true, ep_none, closing, nullptr);
  if (ended_early && closing == '>') {  // no name: an operator
    set_curr_token_text(start, start + 1);
    return tok_lt;
  }
  set_curr_token_text(start, ended_early ? curr_char_loc : curr_char_loc + 1);
  if (!ended_early) return tok_header_name;
  err_code_for_error_token = ec_unclosed_string;
  error_at(ec_unclosed_string, start);
  return tok_error;
}

// ---- Concatenation -----------------------------------------------------------------------------

namespace {

bool is_error_constant_value(const a_constant *constant) {
  return constant->kind == ck_error;
}

// The prefix of the whole, from that so far and that of one more literal.
int combined_prefix(int prefix, int next, const a_source_position *pos, bool *bad_mix) {
  int kind = prefix & ep_kind_mask, other = next & ep_kind_mask;
  if (kind == other) return kind;
  if (kind == ep_none && other == ep_u8) return other;
  if (other == ep_none && kind == ep_u8) return kind;
  int wide = kind >= ep_u ? kind : other;
  bool u8_with_wide = kind == ep_u8 || other == ep_u8;
  bool two_wide = kind >= ep_u && other >= ep_u;
  if (u8_with_wide || two_wide) {
    if (!*bad_mix) pos_error(ec_mixed_string_concatenation, pos);
    *bad_mix = true;
  } else if (!mixed_string_concat_enabled && !*bad_mix) {
    pos_diagnostic(es_discretionary_error, ec_mixed_string_concatenation, pos);
  }
  return two_wide ? kind : wide;
}

// Appends a literal without its terminator, in units of the whole.
void append_literal(a_text_buffer *buffer, const a_constant *literal, int unit_size) {
  const char *text = literal->string_text;
  std::size_t bytes = literal->string_length;
  const int from_size = character_size[literal->string_char_kind];
  const std::size_t count = bytes / static_cast<std::size_t>(from_size) - 1;
  if (from_size == unit_size) {
    add_to_text_buffer(buffer, text, count * static_cast<std::size_t>(unit_size));
    return;
  }
  for (std::size_t i = 0; i < count; ++i) {
    char unit[4];
    store_unit(unit, load_string_unit(text + i * static_cast<std::size_t>(from_size), from_size),
               unit_size);
    add_to_text_buffer(buffer, unit, static_cast<std::size_t>(unit_size));
  }
}

// The suffix of literals that are joined: any of them may have it, all that do have the same.
struct a_joined_suffix {
  a_symbol_locator locator;  // no header: none so far
  bool mismatch_reported;
  bool macro_follows;  // directly behind the last literal
};

// Of the literal in the current token.
void join_suffix(a_joined_suffix *suffix) {
  suffix->macro_follows = macro_follows_curr_string;
  if ((string_prefix_of_curr_token & ep_ud) == 0) return;
  if (suffix->locator.header == nullptr) {
    suffix->locator = locator_for_curr_id;
  } else if (suffix->locator.header != locator_for_curr_id.header && !suffix->mismatch_reported) {
    suffix->mismatch_reported = true;
    pos_st_error(ec_ud_string_suffix_mismatch, &locator_for_curr_id.position,
                 suffix->locator.header->name);
  }
}

// One constant of all literals of the cache; pragmas in it stay.
void concat_string_literals(const a_token_cache *cache, int prefix, bool is_error) {
  const int kind = string_kind_of_prefix(prefix), size = character_size[kind];
  a_text_buffer *buffer = unit_buffer();
  for (const a_cached_token *token = cache->head; token != nullptr; token = token->next) {
    if (token->data_kind != ctd_constant) continue;
    if (is_error_constant_value(token->data.constant))
      is_error = true;
    else
      append_literal(buffer, token->data.constant, size);
  }
  if (is_error) {
    set_error_constant(&const_for_curr_token);
    return;
  }
  const char terminator[4] = {};
  add_to_text_buffer(buffer, terminator, static_cast<std::size_t>(size));
  make_string_constant(&const_for_curr_token, buffer->buffer, buffer->size_used, kind, size);
}

// Takes the pragmas that stood between the literals out of the cache, behind those in *pragmas.
void collect_pragmas(a_token_cache *cache, a_pending_pragma **pragmas) {
  while (*pragmas != nullptr)
    pragmas = &(*pragmas)->next;
  for (a_cached_token *token = cache->head; token != nullptr; token = token->next) {
    if (token->data_kind != ctd_pragmas) continue;
    *pragmas = token->data.pragmas;
    token->data.pragmas = nullptr;
    while (*pragmas != nullptr)
      pragmas = &(*pragmas)->next;
  }
}

}  // namespace

// "a" L"b"_s: the first token is current. One more token than the literals has to be read; it goes
// back to the stream.
a_token_kind concat_adjacent_string_literals(bool from_function_name) {
  push_lexical_state_stack();
  bool saved_concatenation = do_string_literal_concatenation;
  do_string_literal_concatenation = false;
  int prefix = from_function_name ? ep_none : string_prefix_of_curr_token & ep_kind_mask;
  a_joined_suffix suffix = {};
  if (!from_function_name) join_suffix(&suffix);
  a_source_position start = pos_curr_token, end = end_pos_curr_token;
  std::uint32_t first_number = curr_token_sequence_number;
  a_pending_pragma *pragmas = curr_token_pragmas;
  curr_token_pragmas = nullptr;
  update_initial_get_token_tests();
  curr_token = tok_string_literal;
  a_token_cache literals, following;
  clear_token_cache(&literals, false);
  clear_token_cache(&following, false);
  cache_curr_token(&literals);
  int count = 1;
  bool bad_mix = false;
  for (get_token();
       curr_token == tok_string_literal || (curr_token == tok_ud_literal && ud_literal_is_string);
       get_token()) {
    prefix = combined_prefix(prefix, string_prefix_of_curr_token, &pos_curr_token, &bad_mix);
    end = end_pos_curr_token;
    join_suffix(&suffix);
    curr_token = tok_string_literal;
    cache_curr_token(&literals);
    ++count;
  }
  if (suffix.macro_follows && curr_token == tok_identifier)
    pos_warning(ec_macro_not_udl_suffix, &pos_curr_token);
  cache_curr_token(&following);
  prepend_to_rescan_list(&following);
  do_string_literal_concatenation = saved_concatenation;
  if (count > 1)
    concat_string_literals(&literals, prefix, bad_mix);
  else
    const_for_curr_token = *literals.tail->data.constant;
  collect_pragmas(&literals, &pragmas);
  curr_token_pragmas = pragmas;
  discard_token_cache(&literals);
  curr_token = tok_string_literal;
  pos_curr_token = start;
  end_pos_curr_token = end;
  curr_token_sequence_number = last_token_sequence_number_of_token = first_number;
  pop_lexical_state_stack();
  if (suffix.locator.header == nullptr) return tok_string_literal;
  set_ud_literal(&suffix.locator);
  return curr_token = tok_ud_literal;
}

void widen_string_literal(a_constant *constant) {
  a_text_buffer *buffer = unit_buffer();
  const int size = character_size[1];
  append_literal(buffer, constant, size);
  const char terminator[4] = {};
  add_to_text_buffer(buffer, terminator, static_cast<std::size_t>(size));
  make_string_constant(constant, buffer->buffer, buffer->size_used, 1, size);
}
