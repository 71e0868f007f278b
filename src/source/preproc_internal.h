// What the rooms of preproc, and the input stack below it, share.
#ifndef SOURCE_PREPROC_INTERNAL_H
#define SOURCE_PREPROC_INTERNAL_H

#include "source/input_stack.h"
#include "source/lexical.h"
#include "source/preproc.h"

struct a_pragma_kind_description;  // of target/pragma

// ---- Pushing a file ----------------------------------------------------------------------------

struct an_include_request {
  bool use_search_path;
  bool is_include;
  bool is_system_name;  // <name>
  bool is_preinclude;
  bool do_not_pop;
  bool is_next;
  bool may_fail;
};
void push_input_stack(a_file_image *image, const char *name, const char *full_name,
                      a_directory_name_entry *search_dir, an_include_file_history *history,
                      const an_include_request *request);

// ---- Directives --------------------------------------------------------------------------------

enum a_directive_kind : std::uint8_t {
  drk_if,
  drk_ifdef,
  drk_ifndef,
  drk_elif,
  drk_else,
  drk_endif,
  drk_include,
  drk_define,
  drk_undef,
  drk_line,
  drk_error,
  drk_pragma,
  drk_empty,           // a lone #
  drk_digit_sequence,  // # 33 "file"
  drk_include_next,
  drk_warning,
  drk_unknown,
};

// Where the current directive's # and name stand.
extern a_source_position pos_of_directive;
extern a_source_position pos_of_directive_name;

// Reads the name of the directive, curr_char_loc behind the #; leaves it behind the name (in front
// of a digit sequence).
a_directive_kind scan_directive_name();

// The rest of the line without effect: curr_char_loc goes to its end.
void drop_rest_of_line();
bool at_end_of_directive();  // after white space
enum a_strictness : std::uint8_t { strict_extra_text, relaxed_extra_text };
// Reports text behind the end of a directive, and drops it.
void check_end_of_directive(a_strictness strictness);

// For directives that read tokens: the scanner's modes are saved, the stop token is the line end.
struct a_directive_token_scan {
  a_source_position saved_error_position;
  bool saved_fetch_pp_tokens;
  bool saved_expand_macros;
  bool saved_do_string_literal_concatenation;
};
void begin_directive_tokens(a_directive_token_scan *scan);
void end_directive_tokens(a_directive_token_scan *scan);

// An identifier at curr_char_loc: its header; null when none stands there.
a_symbol_header *scan_directive_identifier(a_source_position *pos);

void forget_include_searches();  // what was found lies in memory of the run before
void report_misra(an_error_code code, const a_source_position *pos);  // when the rules are on

// ---- Conditionals, in preproc_conditional.cpp and preproc_skip.cpp -----------------------------

struct a_pp_if_stack_entry {
  a_source_position position;
  bool else_seen;
};
extern a_pp_if_stack_entry *pp_if_stack;
void push_pp_if(const a_source_position *pos);
void pp_if_directive();
void pp_ifdef_directive(bool is_ifndef);
void pp_elif_directive();
void pp_else_directive();
void pp_endif_directive();
// Skips the group behind a directive line, up to the directive that ends it, which is read to its
// end. stop_at_else: a part behind #elif or #else may be taken.
void skip_group(bool stop_at_else);

// ---- Others ------------------------------------------------------------------------------------

void pp_include_directive(bool is_next);
void pp_line_directive(bool is_digit_form);
void pp_pragma_directive();
// Of a pragma whose name was just read (null: unknown): is it carried out although only
// preprocessing is asked for, and does it stay in the preprocessed text?
bool pragma_acts_in_preprocessing(const a_pragma_kind_description *description);
bool pragma_is_passed_on(const a_pragma_kind_description *description);

#endif
