// Macros whose text is computed at each use: __LINE__ and its kin, the questions __has_..., the
// operator defined, and _Pragma.

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/src_seq.h"
#include "semantics/symbol_tbl.h"
#include "semantics/sys_predef.h"
#include "source/input_stack_internal.h"
#include "source/lexical_internal.h"
#include "source/macro_internal.h"
#include "source/preproc.h"
#include "source/preproc_internal.h"
#include "target/pragma.h"

// Part of the attribute table's face.
bool gnu_attribute_is_supported(const char *name);
const char *cpp_attribute_version(const char *scope, const char *name);

namespace {

a_text_buffer *magic_text;
a_text_buffer *pragma_text;
unsigned long counter_value;

const char *text_of(const char *text, std::size_t *length) {
  *length = std::strlen(text);
  return text;
}

const char *truth(bool value, std::size_t *length) {
  return text_of(value ? "1" : "0", length);
}

const char *quoted_name(const char *name, std::size_t *length) {
  reset_text_buffer(magic_text);
  if (exp_header_name) {
    f_add_string_to_text_buffer(magic_text, "\"");
    f_add_string_to_text_buffer(magic_text, name);
    f_add_string_to_text_buffer(magic_text, "\"");
  } else {
    add_char_to_text_buffer(magic_text, '"');
    write_file_name_to_text_buffer(name, magic_text, true, true);
    add_char_to_text_buffer(magic_text, '"');
  }
  *length = magic_text->size_used;
  return magic_text->buffer;
}

const char *line_text(std::size_t *length) {
  const char *name;
  const char *full_name;
  std::uint32_t line;
  bool at_end;
  conv_seq_to_file_and_line(curr_seq_number, &name, &full_name, &line, &at_end);
  static char text[24];
  *length = static_cast<std::size_t>(
      std::snprintf(text, sizeof text, "%lu", static_cast<unsigned long>(line)));
  return text;
}

const char *file_text(const a_source_position *pos, std::size_t *length) {
  const char *name;
  const char *full_name;
  std::uint32_t line;
  bool at_end;
  conv_seq_to_file_and_line(pos->seq != 0 ? pos->seq : curr_seq_number, &name, &full_name, &line,
                            &at_end);
  return quoted_name(name, length);
}

const char *base_file_text(std::size_t *length) {
  return quoted_name(primary_source_file_name != nullptr ? primary_source_file_name : "", length);
}

const char *timestamp_text(std::size_t *length) {
  const char *time =
      curr_ise != nullptr ? get_file_modification_time_string(curr_ise->full_name, true) : nullptr;
  if (time == nullptr) return text_of("\"<unknown>\"", length);
  reset_text_buffer(magic_text);
  add_char_to_text_buffer(magic_text, '"');
  f_add_string_to_text_buffer(magic_text, time);
  add_char_to_text_buffer(magic_text, '"');
  *length = magic_text->size_used;
  return magic_text->buffer;
}

const char *counter_text(std::size_t *length) {
  static char text[24];
  *length = static_cast<std::size_t>(std::snprintf(text, sizeof text, "%lu", counter_value++));
  return text;
}

const char *include_level_text(std::size_t *length) {
  static char text[24];
  *length = static_cast<std::size_t>(std::snprintf(text, sizeof text, "%d", depth_input_stack));
  return text;
}

const char *stdc_text(std::size_t *length) {
  bool zero = (stdc_zero_in_nonstrict_mode && !strict_ansi_mode) ||
              (stdc_zero_in_system_headers && curr_ise != nullptr && curr_ise->is_system);
  return truth(!zero, length);
}

// ---- Operators with an argument ----------------------------------------------------------------

void report_here(an_error_code code) {
  a_source_position pos;
  source_position_at(curr_char_loc, &pos);
  pos_error(code, &pos);
}

bool skip_char(char c, an_error_code code) {
  skip_white_space();
  if (*curr_char_loc == c) {
    ++curr_char_loc;
    return true;
  }
  report_here(code);
  return false;
}

void pass_inert_mark() {
  if (curr_char_loc[0] == '\0' &&
      (curr_char_loc[1] == tm_inert || curr_char_loc[1] == tm_temporarily_inert))
    curr_char_loc += 2;
}

// defined name, defined ( name )
const char *defined_text(std::size_t *length) {
  if (!in_pp_if_expression) return nullptr;
  skip_white_space();
  bool in_parens = *curr_char_loc == '(';
  if (in_parens) {
    ++curr_char_loc;
    skip_white_space();
  }
  pass_inert_mark();
  a_source_position pos;
  a_symbol_header *header = scan_directive_identifier(&pos);
  if (header == nullptr) {
    if (check_misra_c_2004) {
      source_position_at(curr_char_loc, &pos);
      report_misra(ec_misra_c_2004_19_14, &pos);
    } else {
      report_here(ec_exp_identifier);
    }
    some_error_in_curr_directive = true;
    return truth(false, length);
  }
  if (variadic_macros_allowed && std::strcmp(header->name, "__VA_ARGS__") == 0) {
    pos_error(ec_VA_ARGS_not_allowed, &pos);
    some_error_in_curr_directive = true;
    return truth(false, length);
  }
  a_symbol *macro_symbol = find_defined_macro(header);
  if (macro_symbol != nullptr) note_macro_reference(macro_symbol, &pos);
  if (in_parens && !skip_char(')', ec_exp_rparen)) some_error_in_curr_directive = true;
  return truth(macro_symbol != nullptr, length);
}

bool feature_is_on(const char *name, std::size_t length) {
  struct a_feature_row {
    const char *name;
    std::size_t length;
    bool (*condition)();
  };
  static const a_feature_row rows[] = {
#define FEATURE(name, condition) {#name, sizeof #name - 1, []() -> bool { return condition; }},
#include "source/macro_features.def"
  };
  for (const a_feature_row &row : rows)
    if (row.length == length && std::memcmp(row.name, name, length) == 0) return row.condition();
  return false;
}

bool answer_question(a_magic_macro magic, const char *name, std::size_t length) {
  if (magic == mm_has_feature || magic == mm_has_extension) return feature_is_on(name, length);
  if (magic == mm_has_builtin) return is_builtin_function_name(name, length);
  return gnu_attribute_is_supported(copy_string_to_region(0, name, length));
}

// An argument of the form [scope ::] name, whose words take parts of the text, without the double
// underscores around them.
struct an_attribute_question {
  const char *scope;  // null: none
  std::size_t scope_length;
  const char *name;
  std::size_t name_length;
};

void drop_underscores(const char **name, std::size_t *length) {
  if (*length < 5 || *length > 63 || std::strncmp(*name, "__", 2) != 0 ||
      std::strncmp(*name + *length - 2, "__", 2) != 0)
    return;
  *name += 2;
  *length -= 4;
}

// Reads the question from the text of an argument. False: it has another form.
bool scan_attribute_question(const char *text, std::size_t length, an_attribute_question *out) {
  const char *end = text + length;
  auto skip = [&] {
    while (text != end && (*text == ' ' || *text == '\0'))
      text += *text == '\0' ? 2 : 1;
  };
  auto word = [&](const char **start, std::size_t *size) {
    skip();
    *start = text;
    while (text != end && *text != ' ' && *text != ':' && *text != '\0')
      ++text;
    *size = static_cast<std::size_t>(text - *start);
    bool valid = is_valid_identifier(*start, *size, nullptr, nullptr);
    drop_underscores(start, size);
    skip();
    return valid;
  };
  *out = {};
  if (!word(&out->name, &out->name_length)) return false;
  if (text == end) return true;
  if (end - text < 2 || std::memcmp(text, "::", 2) != 0) return false;
  text += 2;
  out->scope = out->name;
  out->scope_length = out->name_length;
  return word(&out->name, &out->name_length) && text == end;
}

// __has_cpp_attribute([scope ::] name)
const char *attribute_question_text(const char *text, std::size_t text_length,
                                    const a_source_position *pos, std::size_t *length) {
  an_attribute_question question;
  if (scan_attribute_question(text, text_length, &question))
    return text_of(
        cpp_attribute_version(question.scope == nullptr
                                  ? nullptr
                                  : copy_string_to_region(0, question.scope, question.scope_length),
                              copy_string_to_region(0, question.name, question.name_length)),
        length);
  pos_diagnostic(es_discretionary_error, ec_feature_test_macro_req_id, pos);
  return truth(false, length);
}

// __has_feature(name): the argument is expanded like that of any macro.
const char *question_text(a_symbol *macro_symbol, const a_macro_def *def,
                          const a_source_position *pos, std::size_t *length) {
  if (!left_paren_is_next()) return nullptr;
  bool failed;
  a_macro_arg *args = scan_macro_args(macro_symbol, def, pos, &failed);
  const char *text = nullptr;
  if (!failed) {
    bool raw = args->expanded_is_raw || (clang_mode && clang_version < 30300);
    const char *name = raw ? args->raw.text : args->expanded.text;
    std::size_t name_length = raw ? args->raw.length : args->expanded.length;
    if (name_length > 2 && name[0] == '\0') {
      name += 2;
      name_length -= 2;
    }
    if (def->magic == mm_has_cpp_attribute) {
      text = attribute_question_text(name, name_length, pos, length);
    } else if (!is_valid_identifier(name, name_length, nullptr, nullptr)) {
      pos_diagnostic(es_discretionary_error, ec_feature_test_macro_req_id, pos);
    } else {
      drop_underscores(&name, &name_length);
      text = truth(answer_question(def->magic, name, name_length), length);
    }
  }
  free_macro_args(args);
  return text != nullptr ? text : truth(false, length);
}

// What stands in place of the operand goes with the operator.
void skip_to_rparen_in_text() {
  for (;;) {
    skip_white_space();
    a_pp_text_kind kind;
    bool at_rparen = *curr_char_loc == ')';
    const char *end = end_of_pp_token(curr_char_loc, &kind, nullptr);
    if (kind == ptk_end || *curr_char_loc == ';') return;
    curr_char_loc = end;
    if (at_rparen) return;
  }
}

// __has_include("name"), __has_include_next(<name>)
const char *has_include_text(a_magic_macro magic, const a_source_position *pos,
                             std::size_t *length) {
  if (in_cplusplus() && strict_ansi_mode && std_version > 201700 && !in_pp_if_expression) {
    pos_diagnostic(static_cast<an_error_severity>(strict_ansi_discretionary_severity),
                   ec_has_include_not_in_if, pos);
    return nullptr;
  }
  bool is_next = magic == mm_has_include_next;
  if (is_next && processing_primary_source_file()) {
    pos_warning(ec_has_include_next_in_primary_source_file, pos);
    is_next = false;
  }
  const char *saved_delete = delete_source_from_loc;
  delete_source_from_loc = nullptr;
  bool found = false;
  if (skip_char('(', ec_exp_lparen)) {
    a_header_name name;
    if (!get_header_name(&name)) {
      report_here(ec_exp_file_name);
      some_error_in_curr_directive = true;
      skip_to_rparen_in_text();
    } else {
      if (is_next && is_absolute_file_name(name.text))
        pos_warning(ec_absolute_file_name_in_has_include_next, pos);
      found = header_can_be_found(name.text, name.is_angle, is_next);
      if (!skip_char(')', ec_exp_rparen)) some_error_in_curr_directive = true;
    }
  } else {
    some_error_in_curr_directive = true;
  }
  delete_source_from_loc = saved_delete;
  return truth(found, length);
}

// ---- _Pragma -----------------------------------------------------------------------------------

// The text of the string literal at start, without quotes and escapes, with the end of a text
// behind it; *behind is the end of the literal. Null when none stands there.
char *pragma_string_at(const char *start, const char **behind) {
  a_pp_text_kind kind;
  const char *end = end_of_pp_token(start, &kind, nullptr);
  *behind = end;
  if (kind != ptk_literal || end[-1] != '"') return nullptr;
  while (*start != '"')
    ++start;
  char *text = alloc_macro_text(static_cast<std::size_t>(end - start) + 4);
  char *out = text;
  for (const char *p = start + 1; p != end - 1; ++p) {
    if (*p == '\\' && (p[1] == '\\' || p[1] == '"')) ++p;
    *out++ = *p;
  }
  std::memcpy(out, "\0\2\0\1", 4);
  return text;
}

// The operand is a macro, as far as it stands on this line behind its parenthesis.
bool pragma_operand_is_macro() {
  const char *p = curr_char_loc;
  while (*p == ' ' || *p == '\t')
    ++p;
  if (*p++ != '(') return false;
  while (*p == ' ' || *p == '\t')
    ++p;
  a_pp_text_kind kind;
  const char *end = end_of_pp_token(p, &kind, nullptr);
  return kind == ptk_identifier &&
         find_macro_symbol(header_of_identifier(p, static_cast<std::size_t>(end - p))) != nullptr;
}

// Carries the pragma out. True: it is there for whoever reads the preprocessed text.
bool process_pragma_text(const char *text, const a_source_position *pos) {
  bool saved_expand = expand_macros;
  bool saved_fetch = fetch_pp_tokens;
  bool saved_directive = in_preprocessing_directive;
  expand_macros = false;
  fetch_pp_tokens = true;
  in_preprocessing_directive = true;
  a_saved_text_place place;
  push_lexical_state_stack();
  begin_inserted_text(text, pos, &place);
  a_source_position name_position = *pos;
  a_pragma_kind_description *description = look_up_pragma_id(&name_position);
  bool passed_on = generate_pp_output && pragma_is_passed_on(description);
  if (description != nullptr && pragma_must_be_directive(description))
    pos_error(ec_invalid_pragma_operator, pos);
  else if (!(do_preprocessing_only && generate_pp_output) ||
           pragma_acts_in_preprocessing(description))
    record_pragma(description, pos, &name_position, false);
  end_inserted_text(&place);
  pop_lexical_state_stack();
  expand_macros = saved_expand;
  fetch_pp_tokens = saved_fetch;
  in_preprocessing_directive = saved_directive;
  return passed_on;
}

// Obeys the pragma of the literal at start, and writes the operator anew for the preprocessed text.
// False: no literal stands there.
bool obey_pragma_literal(const char *start, const char **behind, const a_source_position *pos) {
  char *text = pragma_string_at(start, behind);
  if (text == nullptr) return false;
  f_add_string_to_text_buffer(pragma_text, "_Pragma(");
  add_to_text_buffer(pragma_text, start, static_cast<std::size_t>(*behind - start));
  add_char_to_text_buffer(pragma_text, ')');
  if (!process_pragma_text(text, pos)) reset_text_buffer(pragma_text);
  release_macro_text_from(text);
  return true;
}

// _Pragma ( macro ): the operand is expanded like the argument of a macro.
void pragma_operator_of_macro(a_symbol *macro_symbol, const a_macro_def *def,
                              const a_source_position *pos) {
  bool failed;
  a_macro_arg *args = scan_macro_args(macro_symbol, def, pos, &failed);
  if (!failed) {
    const char *start = args->expanded_is_raw ? args->raw.text : args->expanded.text;
    while (*start == ' ' || (*start == '\0' && start[1] == tm_separator))
      start += *start == ' ' ? 1 : 2;
    const char *behind;
    if (!obey_pragma_literal(start, &behind, pos)) pos_error(ec_exp_string_literal, pos);
  }
  free_macro_args(args);
}

// _Pragma ( string ): nothing of it is scanned again. In the preprocessed text it stays, so that to
// compile that text is to compile the source.
const char *pragma_operator_text(a_symbol *macro_symbol, const a_macro_def *def,
                                 const a_source_position *pos, std::size_t *length) {
  // Inside the arguments of a macro the operator waits until the result is scanned.
  if (macro_depth > 1 || in_macro_arg_list) return nullptr;
  reset_text_buffer(pragma_text);
  if (pragma_operand_is_macro()) {
    pragma_operator_of_macro(macro_symbol, def, pos);
  } else if (skip_char('(', ec_exp_lparen)) {
    skip_white_space();
    const char *behind;
    if (!obey_pragma_literal(curr_char_loc, &behind, pos)) {
      report_here(ec_exp_string_literal);
      skip_to_rparen_in_text();
    } else {
      curr_char_loc = behind;
      if (!skip_char(')', ec_exp_rparen)) expect_syntax_error_after(0);
    }
  } else {
    expect_syntax_error_after(0);
  }
  if (!caching_tokens) process_immediate_pragmas();
  *length = pragma_text->size_used;
  return pragma_text->buffer;
}

}  // namespace

const char *magic_macro_text(a_symbol *macro_symbol, const a_macro_def *def,
                             const a_source_position *pos, std::size_t *length) {
  switch (def->magic) {
    case mm_line:
      return line_text(length);
    case mm_file:
      return file_text(pos, length);
    case mm_base_file:
      return base_file_text(length);
    case mm_stdc:
      return stdc_text(length);
    case mm_counter:
      return counter_text(length);
    case mm_include_level:
      return include_level_text(length);
    case mm_timestamp:
      return timestamp_text(length);
    case mm_defined:
      return defined_text(length);
    case mm_pragma_operator:
      return pragma_operator_text(macro_symbol, def, pos, length);
    case mm_has_feature:
    case mm_has_extension:
    case mm_has_attribute:
    case mm_has_builtin:
    case mm_has_cpp_attribute:
      return question_text(macro_symbol, def, pos, length);
    case mm_has_include:
    case mm_has_include_next:
      return has_include_text(def->magic, pos, length);
    case mm_none:
      break;
  }
  return nullptr;
}

void init_magic_macros() {
  if (magic_text == nullptr) {
    magic_text = alloc_text_buffer(256);
    pragma_text = alloc_text_buffer(64);
  }
  counter_value = 0;
}
