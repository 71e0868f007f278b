// The records of a message while it is being made, and what the rooms of the module share.
#ifndef DIAG_ERROR_INTERNAL_H
#define DIAG_ERROR_INTERNAL_H

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "il/src_seq.h"

enum a_diagnostic_kind : std::uint8_t {
  dk_main,
  dk_supplement,  // written below the main text
  dk_context,     // a line of instantiation context
  dk_sub_diagnostic,
};

enum a_diag_arg_kind : std::uint8_t { dak_number, dak_position, dak_string, dak_symbol, dak_type };

struct a_diag_arg {
  a_diag_arg *next;
  a_diag_arg_kind kind;
  bool text_is_owned;  // the string is general memory of the argument
  union {
    std::int64_t number;
    const char *text;
    a_symbol *symbol;
    a_type *type;
    a_source_position position;
  };
};

// Kept on a free list of general memory, so that a message can be made before the regions exist and
// after memory ran out of them.
struct a_diagnostic {
  a_diagnostic *next;    // in the parent's list
  a_diagnostic *parent;  // null for a main message
  a_diag_list supplements;
  a_diag_list context_lines;
  a_diag_list sub_diagnostics;
  a_diag_list more_info;
  a_diag_arg *arguments;
  a_diag_arg *last_argument;
  a_source_position position;
  const char *file;  // from here to at_end_of_source: found when the message is written
  std::uint32_t line;
  bool at_end_of_source;
  a_diagnostic_kind kind;
  an_error_code code;
  an_error_severity severity;
};

a_diagnostic *alloc_diagnostic(a_diagnostic_kind kind, an_error_severity severity,
                               an_error_code code, const a_source_position *pos);
void free_diagnostic(a_diagnostic *d);
void append_to_diag_list(a_diag_list *list, a_diagnostic *d);

// error_families.cpp: forgets what was reported once.
void forget_what_was_reported_once();

// error_overrides.cpp: the severity that holds for a code at a position.
an_error_severity effective_severity(an_error_code code, an_error_severity severity,
                                     const a_source_position *pos);
bool code_is_once_only(an_error_code code);
void reset_overrides();

// Do the threshold and the place let a message of this severity through?
bool severity_is_shown(const a_diagnostic *d);

// error_format.cpp
void expand_message(const a_diagnostic *d, a_text_buffer *out);
void write_diagnostic(a_diagnostic *d);

inline const char *text_by_number(int number) {
  return error_text(number);
}

#endif
