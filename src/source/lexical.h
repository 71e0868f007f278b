// The tokenizer: gives the parser one token at a time. A token is not an object but a set of global
// variables that get_token overwrites: curr_token and its companions below.
//
// Tokens come, in this order, from the list of cached tokens to rescan, from the stack of reusable
// caches under rescan, and from the text at curr_char_loc in the line buffer (input_stack.h).
// Directives are obeyed and macros expanded on the way. Look-ahead and repeated parsing rest on
// token caches; cached tokens, cache heads and stack entries come from free lists of region 0.
#ifndef SOURCE_LEXICAL_H
#define SOURCE_LEXICAL_H

#include <cstddef>
#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"

struct a_source_position;
struct a_cached_token;
struct a_lexical_state_stack_entry;
struct a_concatenation_record;
struct a_text_buffer;

enum a_token_kind : std::uint16_t {
#define TOKEN(number, name, spelling, class) tok_##name = number,
#include "source/token_kinds.def"
  tok_last
};
static_assert(tok_last == 258);

enum a_token_class : std::uint8_t {
  tcl_special,     // identifiers, literals, states of the scanner
  tcl_punctuator,  // operators and separators
  tcl_opener,      // [ ( {
  tcl_closer,      // ] ) }
  tcl_keyword,
};

// Spelling or description of each kind, as messages print it; and its class.
extern const char *const token_names[tok_last];
extern const a_token_class token_classes[tok_last];

// ---- The current token -------------------------------------------------------------------------

extern a_token_kind curr_token;
extern a_source_position pos_curr_token;      // of its first character
extern a_source_position end_pos_curr_token;  // of its last; in a macro expansion both are the
                                              // position of the invocation
extern const char *start_of_curr_token;       // text, for a token taken from text
extern const char *end_of_curr_token;         // its last character
extern std::size_t len_of_curr_token;
extern std::uint32_t curr_token_sequence_number;
extern std::uint32_t last_token_sequence_number_of_token;  // of the last piece of a joined token
extern std::uint32_t last_token_sequence_number_used;      // grows by 2 for each token from text
extern a_symbol_locator locator_for_curr_id;               // of an identifier; of the suffix
extern a_constant const_for_curr_token;                    // of a literal
extern a_constant *const_with_curr_tok_spelling;   // user-defined number: its text without suffix
extern a_symbol *ud_lit_op_sym_for_curr_token;     // user-defined literal: the operator, once the
                                                   // parser has looked it up
extern a_type *ud_lit_type_for_curr_token;         // user-defined literal: the type of the literal
extern an_error_code ud_lit_error_for_curr_token;  // user-defined number that does not fit its
                                                   // type: an error unless its text is taken
extern const char *curr_token_asm_string;          // text of an inline-assembly string
extern a_cached_token *curr_cached_token_handle;   // identity of the cached token; null: from text
extern a_pending_pragma *curr_token_pragmas;       // pragmas in front of this token, in order
extern an_error_code err_code_for_error_token;     // why curr_token is tok_error
extern bool any_initial_get_token_tests_needed;    // cached tokens, rescan or pragmas are waiting
extern bool curr_token_is_inert_macro;             // an identifier that is never expanded again
extern bool curr_token_is_temporarily_inert;       // not expanded now; a rescan may
extern a_source_position pos_of_macro_invocation;  // of the expansion being read; null: none
extern bool comma_is_from_argument;    // the next comma came from an argument, it does not separate
extern bool first_token_on_line_seen;  // a token was already taken from the current line

// ---- Modes of the scanner, set by others -------------------------------------------------------

extern bool fetch_pp_tokens;  // preprocessing tokens only: no conversion, no keywords
extern bool expand_macros;
extern bool in_preprocessing_directive;  // a line end is a token
extern bool treat_newline_as_token;
extern bool suppress_keyword_recognition;
extern bool in_pp_if_expression;  // inside #if: an identifier is 0
extern bool scanning_macro_name;  // the name of a macro is wanted: no keyword, no expansion
extern bool exp_header_name;      // " or < starts a header name
extern bool exp_system_header_name;
extern bool exp_digit_sequence;  // a line number: digits only, no suffix
extern bool currently_in_pp_if_skip;
extern bool recognize_keywords_in_pragma;
extern bool do_string_literal_concatenation;  // adjacent string literals join
extern bool next_token_is_top_level_decl_start;
extern bool caching_tokens;  // every token fetched is also put in the cache of the lexical state

// ---- Advancing ---------------------------------------------------------------------------------

// Advances to the next token and returns curr_token.
a_token_kind get_token();

// In C++ splits :: in two where : separates; *second_owed starts false and is kept by the caller.
a_token_kind get_token_with_colon_separation(bool *second_owed);

// Turns the current >> into > and puts a second > in front of the stream.
void split_right_shift_token();

// Look-ahead without consuming. Out-parameters may be null.
a_token_kind next_token_full(std::uint32_t *sequence_number, a_symbol_header **header);
inline a_token_kind next_token() {
  return next_token_full(nullptr, nullptr);
}
// The kind of the next token; if that is kind, the one behind it goes to *second, else *second is
// tok_error.
a_token_kind next_two_tokens(a_token_kind kind, a_token_kind *second);

void unget_token();  // the next get_token gives the current token again

// Requires a token and goes behind it. On another token reports code as a syntax error, which skips
// to where the enclosing constructs can go on. True when the token was there or the skipping found
// it.
bool required_token(a_token_kind kind, an_error_code code);
bool required_token_no_advance(a_token_kind kind, an_error_code code);
// For "while (loop_token(tok_comma))": goes behind the token if it is there.
bool loop_token(a_token_kind kind);

bool is_keyword_token(a_token_kind kind);
bool curr_token_is_identifier_string(const char *text);
// If the current token is the identifier text, turns it into kind.
bool check_context_sensitive_keyword(a_token_kind kind, const char *text);

// ---- Recovery ----------------------------------------------------------------------------------

using a_stop_token_count = std::uint16_t;

// Counts of the tokens at which enclosing constructs can go on after a syntax error.
struct a_stop_token_stack_entry {
  a_stop_token_stack_entry *next;
  a_stop_token_count stop_tokens[tok_last];
};
extern a_stop_token_stack_entry *curr_stop_token_stack_entry;
void push_stop_token_stack();
void pop_stop_token_stack();

inline void add_stop_token(a_token_kind kind) {
  ++curr_stop_token_stack_entry->stop_tokens[kind];
}
inline void remove_stop_token(a_token_kind kind) {
  --curr_stop_token_stack_entry->stop_tokens[kind];
}

// Skips to a token of the innermost stop set (bracketed groups as a whole), the warning 12 telling
// where a long skip ended.
void flush_tokens();
void flush_tokens_without_warning();
void flush_tokens_with_stop_tokens_and_warning_flag(const a_stop_token_count stops[tok_last],
                                                    bool no_warning);
// From an opening bracket to its closing one, which becomes the current token; limited: gives up a
// few lines further down.
void flush_until_matching_token();
void flush_until_matching_token_full(bool limited);
void flush_to_closing_paren();
void flush_to_end_of_arg_list();

// ---- Token caches ------------------------------------------------------------------------------

// To be called when the pragmas or caches in front of the stream have changed.
void update_initial_get_token_tests();

struct a_token_cache {
  std::uint64_t first;  // a word kept for the caller
  a_cached_token *head;
  a_cached_token *tail;
  bool reusable;  // tokens stay in the cache when they are replayed
};

void clear_token_cache(a_token_cache *cache, bool reusable);
a_token_cache *alloc_token_cache();  // one-shot, empty
void free_token_cache(a_token_cache *cache);
void discard_token_cache(a_token_cache *cache);  // gives its tokens back; the cache is empty
inline bool token_cache_is_empty(const a_token_cache *cache) {
  return cache->head == nullptr;
}

void cache_curr_token(a_token_cache *cache);  // appends the current token, its pragmas before it
a_cached_token *build_cached_token(a_token_kind kind, std::uint32_t sequence_number,
                                   const a_source_position *pos);
void append_cached_token(a_token_cache *cache, a_cached_token *token);
// Appends copies of the tokens numbered first to last to *out (last 0: to the end). Pragmas go with
// copy_pragmas only.
void copy_tokens_from_cache(const a_token_cache *cache, std::uint32_t first, std::uint32_t last,
                            bool copy_pragmas, a_token_cache *out);
void remove_token_from_cache(a_token_cache *cache, a_cached_token *token);
// Moves the tokens numbered first to last from cache to *out.
void split_token_cache(a_token_cache *cache, a_token_cache *out, std::uint32_t first,
                       std::uint32_t last);
void move_cached_tokens(a_token_cache *from, a_token_cache *to);  // appends all, from is empty
void terminate_token_cache(a_token_cache *cache);                 // appends an end of source
void adjust_token_handles(a_token_cache *cache);  // after a one-shot cache became reusable

// Stop sets by token, as in a_stop_token_stack_entry. The stream is read up to a stop token outside
// any bracketed group; that token is the current one and not in the cache.
enum a_cache_stream_flag : unsigned {
  csf_template_aware = 1,     // names are coalesced, < behind template and the casts is a bracket
  csf_stop_at_semicolon = 2,  // a ; ends a bracketed group
};
void cache_token_stream(a_token_cache *cache, const a_stop_token_count stops[tok_last]);
void cache_token_stream_full(a_token_cache *cache, const a_stop_token_count stops[tok_last],
                             unsigned flags);
void cache_token_stream_coalesce_identifiers(a_token_cache *cache,
                                             const a_stop_token_count stops[tok_last]);
// From an opening bracket through its closing one, which is cached and is the current token when
// true is returned; false: the stream ended first.
bool cache_token_stream_until_matching_token(a_token_cache *cache, unsigned flags);
bool cache_std_attribute(a_token_cache *cache);

// Stores the tokens of a function body for a later parse. False: no body stands here.
bool cache_function_body(a_token_cache *cache, bool is_constructor, bool *error,
                         std::uint32_t *first_sequence_number, std::uint32_t *last_sequence_number,
                         a_source_position *start, a_source_position *end);

// Recording of everything that is fetched; the calls nest.
void begin_caching_fetched_tokens(bool include_current);
a_token_cache *end_caching_fetched_tokens();  // the cache of the state; emptied by the caller
a_token_kind get_token_to_be_cached();

// Replay. The current token is kept behind the replayed ones unless discard_current; the first
// replayed token becomes the current one.
void rescan_cached_tokens(a_token_cache *cache);
void f_rescan_cached_tokens(a_token_cache *cache, bool discard_current);
void rescan_reusable_cache(a_token_cache *cache);
void rescan_copy_of_cache(const a_token_cache *cache);
// Puts the reusable cache under rescan back to the token with this handle.
void update_reusable_cache_rescan_location(a_cached_token *handle);
void increment_variadic_rescans_for_reusable_cache();
void decrement_variadic_rescans_for_reusable_cache();

// Puts text into the input as if it stood at the current place, all tokens at position pos (null:
// the position of the current token). The current token stays.
void insert_string_into_token_stream(const char *text, const a_source_position *pos);

// Rescan of the stored tokens of a pragma. wrapup drops what is left of them.
void begin_rescan_of_pragma_tokens(a_pending_pragma *pragma);
void wrapup_rescan_of_pragma_tokens(bool error);

// ---- Spelling back -----------------------------------------------------------------------------

void init_token_string();
void add_token_cache_to_string(const a_token_cache *cache);
void add_token_cache_segment_to_string(const a_token_cache *cache, std::uint32_t first,
                                       std::uint32_t last);
const char *make_copy_of_token_string();  // in the current region
const char *il_string_for_curr_token();   // text of the current token, in the current region
void add_curr_token_to_string();

// ---- Nested scans ------------------------------------------------------------------------------

// A lexical state of its own for tokens that are read aside: caching is off in it, and a fresh
// stop-token entry is in force.
extern a_lexical_state_stack_entry *curr_lexical_state_stack_entry;
void push_lexical_state_stack();
void pop_lexical_state_stack();

// The whole state of the tokenizer but its position in the text, for a scan of other tokens in the
// middle of a construct (deferred bodies, instances). The nested scan starts with nothing to
// rescan, no pragmas and no caching; it must have used up what it put in.
struct a_saved_lexical_state;
a_saved_lexical_state *save_lexical_state();
void restore_lexical_state(a_saved_lexical_state *saved);  // asserts that the nested scan is done

// ---- Characters and identifiers ----------------------------------------------------------------

// Tables by signed character, from -128.
extern const bool *is_id_char;                    // letters, digits, _, and $ where allowed
extern const bool *is_id_char_no_mbc;             // cannot be a byte of an identifier's character
extern const bool *char_ends_id;                  // surely ends an identifier
extern const bool *is_raw_string_delimiter_char;  // may stand in a raw string's delimiter

// At loc stands \u or \U: gives its value, loc behind it. Errors are reported only with report.
std::uint32_t scan_universal_character(const char **loc, bool in_identifier, bool at_start,
                                       bool report);
// Does an identifier's character of several bytes stand at text? Gives its length.
bool f_is_identifier_char(const char *text, bool at_start, int *length);
bool is_valid_ucn_for_identifier(std::uint32_t value, bool at_start);
bool is_nonstandard_character(char c);  // $, @, ` and what is not in the basic set

// Name under which an identifier spelled with universal or multibyte characters is found; the text
// stays valid until the next call.
const char *make_canonical_identifier(const char *start, std::size_t length,
                                      std::size_t *canonical_length);

// Enters a keyword of the unit; enter_all_keywords enters those of the dialect.
void enter_gnu_keyword(a_token_kind kind, const char *name);
void enter_all_keywords();

// ---- Pasted text -------------------------------------------------------------------------------

// A place where ## joined two texts that were not empty.
struct a_concatenation_record {
  a_concatenation_record *next;
  const char *place;
  const char *end;   // of the first token of the text behind the place
  a_symbol *symbol;  // the macro
};
extern a_concatenation_record *avail_concatenation_records;
void add_concatenation_record(a_concatenation_record **head, a_concatenation_record **tail,
                              const char *place, const char *end, a_symbol *symbol);

// ---- Life cycle --------------------------------------------------------------------------------

void lexical_early_init();
void lexical_one_time_init();
void lexical_init();
void lexical_trans_unit_init();
void lexical_trans_unit_wrapup();
void lexical_reset();

#endif
