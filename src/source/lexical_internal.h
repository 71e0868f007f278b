// What the rooms of the tokenizer share: records of caches and stacks, and the scanners of single
// tokens. Not for other modules.
#ifndef SOURCE_LEXICAL_INTERNAL_H
#define SOURCE_LEXICAL_INTERNAL_H

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il_expr.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack.h"
#include "source/lexical.h"
#include "source/literals.h"

// ---- Cached tokens -----------------------------------------------------------------------------

enum a_cached_token_data : std::uint8_t {
  ctd_none,        // a punctuator
  ctd_locator,     // an identifier or keyword
  ctd_constant,    // a literal
  ctd_pragmas,     // no token: pragmas of the token behind
  ctd_pp_token,    // any token fetched as a preprocessing token: its text
  ctd_asm_string,  // text of inline assembly
  ctd_stop,        // no token: the replay ends here, the text goes on
  ctd_ud_literal,  // a user-defined literal
};

// The operator is looked up again on each replay.
struct a_cached_ud_literal {
  a_constant constant;
  a_constant *spelling;
  a_type *type;
  a_symbol_locator suffix;
  an_error_code error;
};

struct a_cached_token {
  a_cached_token *next;
  a_cached_token *handle;  // itself in a reusable cache, otherwise the handle when it was cached
  a_source_position pos;
  a_source_position end_pos;
  std::uint32_t sequence_number;
  std::uint32_t last_sequence_number;
  a_token_kind kind;
  a_cached_token_data data_kind;
  union {
    a_symbol_locator *locator;  // pooled
    a_constant *constant;       // pooled
    a_pending_pragma *pragmas;
    const char *asm_string;
    struct {
      const char *start;
      const char *end;  // its last character
    } text;
    a_cached_ud_literal *ud_literal;  // pooled
  } data;
};

extern a_cached_token *cached_token_rescan_list;  // replayed first, and used up

// A reusable cache under rescan.
struct a_rescan_stack_entry {
  a_rescan_stack_entry *next;
  a_cached_token *saved_list;  // cached_token_rescan_list when this was pushed
  a_cached_token *current;     // the next token; null: exhausted
  int variadic_rescans;        // pack expansions that go over it again
};
extern a_rescan_stack_entry *curr_rescan_stack_entry;

struct a_lexical_state_stack_entry {
  a_lexical_state_stack_entry *next;
  a_token_cache fetched_tokens;
  a_source_position saved_error_position;
  int caching_count;                          // begin_caching_fetched_tokens that are open
  std::uint32_t last_cached_sequence_number;  // tokens up to here are in fetched_tokens
  bool saved_caching_tokens;
};

// The next token from the caches; false: the text is next.
bool get_cached_token();
// Records the current token in the cache of the lexical state.
void record_fetched_token();
void free_cached_token(a_cached_token *token);
void prepend_to_rescan_list(a_token_cache *cache);  // cache is empty behind it
void init_token_caches();

// ---- Scanners of single tokens, curr_char_loc at the first character ---------------------------

// Sets start, end and length, positions, and curr_char_loc behind the token.
inline void set_curr_token_text(const char *start, const char *end) {
  start_of_curr_token = start;
  end_of_curr_token = end - 1;
  len_of_curr_token = static_cast<std::size_t>(end - start);
  curr_char_loc = end;
  source_position_at(start, &pos_curr_token);
  if (curr_text_modif != nullptr)
    end_pos_curr_token = pos_curr_token;
  else
    source_position_at(end - 1, &end_pos_curr_token);
}

// What the scanners give back in place of a token: the text changed, the scan starts over.
inline constexpr a_token_kind tok_rescan = tok_last;

a_token_kind scan_identifier(const char *start, bool inert, bool temporarily_inert);
a_token_kind set_constant_of_keyword(a_token_kind kind);  // true and false are constants
a_token_kind bad_token(an_error_code code);
// An error was reported for what stands here; behind so many more tokens of the text the parser may
// find something missing that is no mistake of its own.
void expect_syntax_error_after(int tokens);
extern a_token_kind token_before;  // the token in front of the one being scanned
void init_character_tables();

#endif
