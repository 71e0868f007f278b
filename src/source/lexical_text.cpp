// Spelling tokens back as text, for messages and for the texts that the IL keeps.
#include <cstring>

#include "il/il_alloc.h"
#include "il/il_expr.h"
#include "semantics/const_ints.h"
#include "semantics/float_pt.h"
#include "source/lexical_internal.h"

namespace {

a_text_buffer *token_string;

void add_text(const char *text) {
  f_add_string_to_text_buffer(token_string, text);
}

// A string or character value in quotes.
void add_quoted(const char *text, std::size_t length) {
  add_char_to_text_buffer(token_string, '"');
  for (std::size_t i = 0; i < length; ++i) {
    unsigned char c = static_cast<unsigned char>(text[i]);
    char escape[8];
    if (c == '"' || c == '\\') {
      add_char_to_text_buffer(token_string, '\\');
      add_char_to_text_buffer(token_string, static_cast<char>(c));
    } else if (c >= ' ' && c < 127) {
      add_char_to_text_buffer(token_string, static_cast<char>(c));
    } else {
      std::snprintf(escape, sizeof escape, "\\%03o", c);
      add_text(escape);
    }
  }
  add_char_to_text_buffer(token_string, '"');
}

void add_constant(const a_constant *constant) {
  switch (constant->kind) {
    case ck_integer:
      add_text(str_for_integer_constant(constant));
      break;
    case ck_float:
      add_text(fp_to_string(fk_double, &constant->float_value));
      break;
    case ck_string:
      add_quoted(constant->string_text, constant->string_length - 1);
      break;
    default:
      add_text("<constant>");
      break;
  }
}

void add_ud_literal(const a_cached_ud_literal *literal) {
  if (literal->spelling != nullptr)
    add_text(literal->spelling->string_text);
  else
    add_constant(&literal->constant);
  add_text(literal->suffix.header->name);
}

void add_separator() {
  if (token_string->size_used != 0 && token_string->buffer[token_string->size_used - 1] != ' ')
    add_char_to_text_buffer(token_string, ' ');
}

void add_token(const a_cached_token *token) {
  add_separator();
  switch (token->data_kind) {
    case ctd_locator:
      add_text(token->data.locator->header->name);
      break;
    case ctd_constant:
      add_constant(token->data.constant);
      break;
    case ctd_ud_literal:
      add_ud_literal(token->data.ud_literal);
      break;
    case ctd_pp_token:
      add_to_text_buffer(
          token_string, token->data.text.start,
          static_cast<std::size_t>(token->data.text.end + 1 - token->data.text.start));
      break;
    case ctd_asm_string:
      add_text(token->data.asm_string);
      break;
    case ctd_none:
      if (token->kind != tok_end_of_source && token->kind != tok_newline)
        add_text(token_names[token->kind]);
      break;
    case ctd_pragmas:
    case ctd_stop:
      break;
  }
}

const char *copy_to_il(const char *text, std::size_t length) {
  char *copy = static_cast<char *>(alloc_il(length + 1));
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  return copy;
}

}  // namespace

void init_token_string() {
  if (token_string == nullptr) token_string = alloc_text_buffer(256);
  reset_text_buffer(token_string);
}

void add_token_cache_segment_to_string(const a_token_cache *cache, std::uint32_t first,
                                       std::uint32_t last) {
  for (const a_cached_token *token = cache->head; token != nullptr; token = token->next)
    if (token->sequence_number >= first && (last == 0 || token->sequence_number <= last))
      add_token(token);
}

void add_token_cache_to_string(const a_token_cache *cache) {
  add_token_cache_segment_to_string(cache, 0, 0);
}

void add_curr_token_to_string() {
  if (start_of_curr_token != nullptr && len_of_curr_token != 0) {
    add_separator();
    add_to_text_buffer(token_string, start_of_curr_token, len_of_curr_token);
    return;
  }
  a_token_cache one;
  clear_token_cache(&one, false);
  a_pending_pragma *saved = curr_token_pragmas;
  curr_token_pragmas = nullptr;
  cache_curr_token(&one);
  curr_token_pragmas = saved;
  add_token_cache_to_string(&one);
  discard_token_cache(&one);
}

const char *make_copy_of_token_string() {
  return copy_to_il(token_string->buffer, token_string->size_used);
}

const char *il_string_for_curr_token() {
  init_token_string();
  add_curr_token_to_string();
  return make_copy_of_token_string();
}
