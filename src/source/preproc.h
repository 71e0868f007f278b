// The directives of the preprocessor, obeyed from inside the scanner; conditional groups, and the
// search for included files.
#ifndef SOURCE_PREPROC_H
#define SOURCE_PREPROC_H

#include <cstddef>
#include <cstdint>

#include "il/il_fwd.h"
#include "source/input_stack.h"

// Obeys the directive whose # was just scanned: curr_char_loc is behind the #. On return it stands
// at the end of the directive's line or at the start of an included file's text.
void pp_directive();

// State inside a directive.
extern bool some_error_in_curr_directive;
extern bool actual_include_was_suppressed;
extern bool pass_pp_directive_to_output;

// ---- Conditional groups ------------------------------------------------------------------------

extern int pp_if_stack_depth;               // -1: none is open
extern int base_pp_if_stack_depth;          // the depth where the current file began
void verify_that_all_pp_ifs_were_closed();  // reports those of the current file that are open

// Scans the expression of #if or #elif up to the end of the line. *value is 0 after an error, and
// false is returned.
bool scan_pp_if_expression(bool *value);

// ---- Header names and the include search -------------------------------------------------------

// The header name at curr_char_loc, after white space: "name", <name>, or macros that give one.
struct a_header_name {
  const char *text;  // ends with a null; good until the next call
  std::size_t length;
  bool is_angle;
};
bool get_header_name(a_header_name *name);
const char *check_for_include_alias();  // always null: there are no aliases

bool header_can_be_found(const char *name, bool is_angle, bool is_next);

// What is known of a file that was included.
struct an_include_file_history {
  const char *name;
  const char *macro_name;      // of its guard
  a_symbol_header *macro;      // the same
  std::uint64_t unique_id[2];  // device and inode
  bool guard_complete;         // the whole file lies in a guard
  bool once;                   // #pragma once
  bool skip_if_undefined;      // the guard is #ifdef
  bool skip_if_defined;        // the guard is #ifndef
};
an_include_file_history *find_include_history(const char *name, bool create, bool is_system);
// Need the file not be read again?
bool suppress_subsequent_include_of_file(const an_include_file_history *history);
void mark_curr_file_as_once();  // #pragma once in the current file

// ---- Preprocessing alone -----------------------------------------------------------------------

// Fetches all tokens and drops them; the preprocessed text is written on the way.
void cpp_driver();
// Reads the files of which only the macros count; before the first line of the source.
void process_macro_preincludes();

void preproc_one_time_init();
void preproc_trans_unit_init();
void preproc_init();

#endif
