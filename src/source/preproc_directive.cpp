// Directives. They are read from the text of their line, without the tokenizer: the name of the
// directive and of a macro are plain identifiers, and most directives hold no more. Only what is
// handed on as tokens (pragmas) goes through it.

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/src_seq.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack_internal.h"
#include "source/macro_internal.h"
#include "source/pp_output.h"
#include "source/preproc_internal.h"
#include "target/pragma.h"

bool some_error_in_curr_directive;
bool actual_include_was_suppressed;
bool pass_pp_directive_to_output;
a_source_position pos_of_directive;
a_source_position pos_of_directive_name;

void report_misra(an_error_code code, const a_source_position *pos) {
  if (check_misra_c_2004) pos_diagnostic(misra_required_severity, code, pos);
}

// ---- Pieces of a directive ---------------------------------------------------------------------

static bool is_word(const char *text, std::size_t length, const char *word) {
  return std::strlen(word) == length && std::memcmp(text, word, length) == 0;
}

static a_directive_kind directive_kind_of(const char *name, std::size_t length) {
  switch (*name) {
    case 'd':
      return is_word(name, length, "define") ? drk_define : drk_unknown;
    case 'e':
      if (is_word(name, length, "endif")) return drk_endif;
      if (is_word(name, length, "else")) return drk_else;
      if (is_word(name, length, "elif")) return drk_elif;
      return is_word(name, length, "error") ? drk_error : drk_unknown;
    case 'i':
      if (is_word(name, length, "include")) return drk_include;
      if (is_word(name, length, "ifdef")) return drk_ifdef;
      if (is_word(name, length, "ifndef")) return drk_ifndef;
      if (is_word(name, length, "if")) return drk_if;
      return is_word(name, length, "include_next") ? drk_include_next : drk_unknown;
    case 'l':
      return is_word(name, length, "line") ? drk_line : drk_unknown;
    case 'p':
      return is_word(name, length, "pragma") ? drk_pragma : drk_unknown;
    case 'u':
      return is_word(name, length, "undef") ? drk_undef : drk_unknown;
    case 'w':
      return is_word(name, length, "warning") || is_word(name, length, "warn") ? drk_warning
                                                                               : drk_unknown;
    default:
      return drk_unknown;
  }
}

a_directive_kind scan_directive_name() {
  some_error_in_curr_directive = false;
  do_not_put_curr_line_in_pp_output = true;
  skip_white_space();
  const char *name = curr_char_loc;
  source_position_at(name, &pos_of_directive_name);
  if (*name == '\0') return drk_empty;
  if (*name >= '0' && *name <= '9') return drk_digit_sequence;
  a_pp_text_kind kind;
  const char *end = end_of_pp_token(name, &kind, nullptr);
  if (kind != ptk_identifier) return drk_unknown;
  curr_char_loc = end;
  return directive_kind_of(name, static_cast<std::size_t>(end - name));
}

static bool is_line_end(const char *p) {
  return p[0] == '\0' && (p[1] == tm_end_of_line || p[1] == tm_end_of_buffer);
}

// A raw string in a skipped group may run over lines too. False when no delimiter is at the quote.
static bool pass_raw_string_in_line(const char *quote) {
  static a_macro_text_buffer text;
  const char *paren = quote + 1;
  while (paren - quote <= 16 && is_raw_string_delimiter_char[static_cast<int>(*paren)])
    ++paren;
  if (*paren != '(') return false;
  text.length = 0;
  append_raw_string_text(&text, quote, true);
  return true;
}

void drop_rest_of_line() {
  // A comment that begins here may run over lines.
  if (curr_text_modif == nullptr || inserted_text_depth == 0) {
    if (curr_text_modif != nullptr) {
      while (curr_text_modif != nullptr)
        curr_char_loc = leave_text_modif();
    }
    const char *p = curr_char_loc;
    std::size_t length = static_cast<std::size_t>(end_of_curr_source_line - p);
    bool may_run_on = p > end_of_curr_source_line || std::memchr(p, '/', length) != nullptr ||
                      (raw_string_literals_enabled && std::memchr(p, '"', length) != nullptr);
    if (!may_run_on) {
      curr_char_loc = end_of_curr_source_line;
      return;
    }
  }
  for (;;) {
    skip_white_space();
    if (*curr_char_loc == '\0') {
      if (is_line_end(curr_char_loc)) return;
      if (curr_char_loc[1] == tm_end_of_modif) return;
      curr_char_loc += 2;
      continue;
    }
    a_pp_text_kind kind;
    const char *start = curr_char_loc;
    bool raw_string;
    curr_char_loc = end_of_pp_token(start, &kind, &raw_string);
    if (raw_string && currently_in_pp_if_skip && pass_raw_string_in_line(curr_char_loc)) continue;
    if (kind == ptk_punctuator && (*start == '"' || *start == '\''))  // not closed on this line
      while (!is_line_end(curr_char_loc))
        ++curr_char_loc;
  }
}

bool at_end_of_directive() {
  skip_white_space();
  return *curr_char_loc == '\0' && curr_char_loc[1] != tm_inert &&
         curr_char_loc[1] != tm_temporarily_inert;
}

void check_end_of_directive(a_strictness strictness) {
  if (at_end_of_directive()) return;
  if (!some_error_in_curr_directive) {
    an_error_severity severity = es_discretionary_error;
    if (strictness == relaxed_extra_text) {
      severity = pcc_preprocessing_mode ? es_none
                 : strict_ansi_mode
                     ? static_cast<an_error_severity>(strict_ansi_discretionary_severity)
                     : es_warning;
    }
    a_source_position pos;
    source_position_at(curr_char_loc, &pos);
    if (severity != es_none) pos_diagnostic(severity, ec_extra_text_in_pp_directive, &pos);
  }
  drop_rest_of_line();
}

a_symbol_header *scan_directive_identifier(a_source_position *pos) {
  skip_white_space();
  source_position_at(curr_char_loc, pos);
  a_pp_text_kind kind;
  const char *start = curr_char_loc;
  const char *end = end_of_pp_token(start, &kind, nullptr);
  if (kind != ptk_identifier) return nullptr;
  a_symbol_header *header = header_of_identifier(start, static_cast<std::size_t>(end - start));
  if (is_operator_word(header)) return nullptr;
  curr_char_loc = end;
  return header;
}

void begin_directive_tokens(a_directive_token_scan *scan) {
  scan->saved_error_position = error_position;
  scan->saved_fetch_pp_tokens = fetch_pp_tokens;
  scan->saved_expand_macros = expand_macros;
  scan->saved_do_string_literal_concatenation = do_string_literal_concatenation;
  push_lexical_state_stack();
  add_stop_token(tok_newline);
  fetch_pp_tokens = true;
  expand_macros = false;
  do_string_literal_concatenation = false;
}

void end_directive_tokens(a_directive_token_scan *scan) {
  remove_stop_token(tok_newline);
  pop_lexical_state_stack();
  error_position = scan->saved_error_position;
  fetch_pp_tokens = scan->saved_fetch_pp_tokens;
  expand_macros = scan->saved_expand_macros;
  do_string_literal_concatenation = scan->saved_do_string_literal_concatenation;
}

// ---- Small directives --------------------------------------------------------------------------

// #undef name
static void undef_directive() {
  report_misra(ec_misra_c_2004_19_6, &pos_of_directive);
  if (depth_scope_stack > 0) report_misra(ec_misra_c_2004_19_5, &pos_of_directive);
  a_source_position pos;
  a_symbol_header *header = scan_directive_identifier(&pos);
  if (header == nullptr) {
    pos_error(ec_exp_identifier, &pos);
    some_error_in_curr_directive = true;
    drop_rest_of_line();
    return;
  }
  a_symbol *macro_symbol = find_macro_symbol(header);
  if (variadic_macros_allowed && std::strcmp(header->name, "__VA_ARGS__") == 0) {
    pos_error(ec_VA_ARGS_not_allowed, &pos);
  } else if (macro_symbol != nullptr) {
    // Without the operator defined no condition could be read.
    bool may_go = gnu_mode && macro_def_of(macro_symbol)->magic != mm_defined;
    if ((macro_def_of(macro_symbol)->flags & mf_predefined) != 0 && !may_go) {
      if (!check_misra_c_2004)
        pos_sy_diagnostic(es_discretionary_error, ec_cannot_undef_predef_macro, &pos, macro_symbol);
    } else {
      note_macro_undefinition(macro_symbol, &pos);
      note_macro_reference(macro_symbol, &pos);
      undefine_macro(macro_symbol);
    }
  }
  check_end_of_directive(relaxed_extra_text);
}

// The rest of the line as a string, for #error and #warning.
static const char *text_of_rest_of_line() {
  skip_white_space();
  const char *start = curr_char_loc;
  const char *end = start;
  while (!is_line_end(end))
    ++end;
  while (end != start && is_blank_char(end[-1]))
    --end;
  return copy_string_to_region(0, start, static_cast<std::size_t>(end - start));
}

static void error_directive() {
  const char *text = text_of_rest_of_line();
  pos_st_catastrophe(ec_error_directive, &pos_of_directive, text);
}

static void warning_directive() {
  const char *text = text_of_rest_of_line();
  pos_st_warning(ec_warning_directive, &pos_of_directive, text);
  drop_rest_of_line();
}

static void unknown_directive() {
  if (check_misra_c_2004)
    report_misra(ec_misra_c_2004_19_16, &pos_of_directive_name);
  else
    pos_diagnostic(es_discretionary_error, ec_bad_pp_directive_keyword, &pos_of_directive_name);
  some_error_in_curr_directive = true;
  drop_rest_of_line();
}

// ---- Pragmas -----------------------------------------------------------------------------------

bool pragma_acts_in_preprocessing(const a_pragma_kind_description *description) {
  return description != nullptr &&
         (pragma_is_preprocessor_mode(description) || pragma_is_gcc_system_header(description));
}

// What has had its whole effect is not there for whoever reads the preprocessed text.
bool pragma_is_passed_on(const a_pragma_kind_description *description) {
  return description == nullptr ||
         !(pragma_is_push_or_pop_macro(description) || pragma_is_gcc_system_header(description) ||
           (curr_ise->is_include && pragma_is_once(description)));
}

// #pragma name ...: its tokens are read by the pragma's owner. With output of preprocessed text the
// line is passed on, unless preprocessing itself carries the pragma out.
void pp_pragma_directive() {
  bool output_only = generate_pp_output && do_preprocessing_only;
  a_directive_token_scan scan;
  begin_directive_tokens(&scan);
  skip_white_space();
  a_source_position name_position;
  source_position_at(curr_char_loc, &name_position);
  a_pragma_kind_description *description = look_up_pragma_id(&name_position);
  bool passed_on = generate_pp_output && pragma_is_passed_on(description);
  if (output_only && !pragma_acts_in_preprocessing(description))
    drop_rest_of_line();
  else
    record_pragma(description, &pos_of_directive, &name_position, false);
  if (passed_on) {
    do_not_put_curr_line_in_pp_output = false;
    pass_pp_directive_to_output = true;
  }
  drop_rest_of_line();
  pass_pp_directive_to_output = false;
  end_directive_tokens(&scan);
}

// ---- The directive line ------------------------------------------------------------------------

static bool is_conditional_or_include(a_directive_kind kind) {
  return kind <= drk_include || kind == drk_include_next;
}

static void obey_directive(a_directive_kind kind) {
  switch (kind) {
    case drk_if:
      pp_if_directive();
      break;
    case drk_ifdef:
      pp_ifdef_directive(false);
      break;
    case drk_ifndef:
      pp_ifdef_directive(true);
      break;
    case drk_elif:
      pp_elif_directive();
      break;
    case drk_else:
      pp_else_directive();
      break;
    case drk_endif:
      pp_endif_directive();
      break;
    case drk_include:
      pp_include_directive(false);
      break;
    case drk_include_next:
      pp_include_directive(true);
      break;
    case drk_define:
      if (proc_define() == nullptr || !at_end_of_directive()) drop_rest_of_line();
      break;
    case drk_undef:
      undef_directive();
      break;
    case drk_line:
      pp_line_directive(false);
      break;
    case drk_digit_sequence:
      pp_line_directive(true);
      break;
    case drk_error:
      error_directive();
      break;
    case drk_warning:
      warning_directive();
      break;
    case drk_pragma:
      pp_pragma_directive();
      break;
    case drk_empty:
      break;
    case drk_unknown:
      unknown_directive();
      break;
  }
}

void pp_directive() {
  bool saved_in_directive = in_preprocessing_directive;
  const char *saved_delete = delete_source_from_loc;
  in_preprocessing_directive = true;
  first_token_on_line_seen = true;
  actual_include_was_suppressed = false;
  delete_source_from_loc = nullptr;
  source_position_at(curr_char_loc - 1, &pos_of_directive);
  a_directive_kind kind = scan_directive_name();
  if (!is_conditional_or_include(kind) && get_ifg_state() < ifg_not_guarded)
    set_ifg_state(ifg_not_guarded);
  obey_directive(kind);
  in_preprocessing_directive = saved_in_directive;
  delete_source_from_loc = saved_delete;
  if (kind == drk_pragma && !caching_tokens) process_immediate_pragmas();
}

// ---- Preprocessing alone -----------------------------------------------------------------------

void cpp_driver() {
  expand_macros = generate_pp_output;
  fetch_pp_tokens = true;
  while (get_token() != tok_end_of_source) {
  }
  if (generate_pp_output) gen_pp_output_for_curr_line();
  if (f_raw_listing != nullptr) gen_raw_listing_for_curr_line();
}

void process_macro_preincludes() {
  if (preinclude_macros_file_list == nullptr) return;
  bool saved_output = generate_pp_output;
  bool saved_fetch = fetch_pp_tokens;
  generate_pp_output = false;
  fetch_pp_tokens = true;
  for (const a_preinclude_file *f = preinclude_macros_file_list; f != nullptr; f = f->next) {
    if (!open_file_and_push_input_stack(f->name, true, true, false, true, true, true, false, false,
                                        nullptr))
      continue;
    read_logical_source_line(true, false);
    while (get_token() != tok_end_of_source) {
    }
    pop_input_stack();
    end_of_all_input = false;
  }
  fetch_pp_tokens = saved_fetch;
  generate_pp_output = saved_output;
  if (generate_pp_output) gen_pp_line_info(true);
}
