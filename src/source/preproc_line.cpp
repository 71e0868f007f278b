// #line, and the form "# 33 "file" flags" that preprocessed text holds.

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/src_seq.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack_internal.h"
#include "source/macro_internal.h"
#include "source/pp_output.h"
#include "source/preproc_internal.h"

namespace {

struct a_line_directive {
  std::uint32_t line;
  const char *name;  // null: the file keeps its name
  bool enters_file;
  bool is_system;
};

// Goes to the next token, through macros.
void find_token() {
  for (;;) {
    skip_white_space();
    const char *p = curr_char_loc;
    if (!starts_identifier(p)) return;
    a_pp_text_kind kind;
    const char *end = end_of_pp_token(p, &kind, nullptr);
    a_symbol *macro_symbol =
        find_macro_symbol(header_of_identifier(p, static_cast<std::size_t>(end - p)));
    bool inert;
    curr_char_loc = end;
    if (macro_symbol == nullptr || !expand_macro_at(macro_symbol, p, &inert)) {
      curr_char_loc = p;
      return;
    }
  }
}

void report_here(an_error_code code) {
  a_source_position pos;
  source_position_at(curr_char_loc, &pos);
  pos_error(code, &pos);
  some_error_in_curr_directive = true;
}

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// digit-sequence, with the separators of C++14. False when it is missing or has no valid value.
bool scan_line_number(bool is_digit_form, std::uint32_t *line) {
  find_token();
  if (!is_digit(*curr_char_loc)) {
    report_here(ec_exp_line_number);
    return false;
  }
  std::uint64_t value = 0;
  const char *p = curr_char_loc;
  for (; is_digit(*p); ++p) {
    if (value <= UINT32_MAX) value = value * 10 + static_cast<unsigned>(*p - '0');
    if (p[1] == '\'' && is_digit(p[2]) && digit_separators_enabled && in_cplusplus()) ++p;
  }
  bool ends_well = !starts_identifier(p) && *p != '.';
  if (value == 0 && is_digit_form) value = 1;
  bool valid = ends_well && value != 0 && value <= UINT32_MAX;
  if (!valid) report_here(ends_well ? ec_bad_line_number : ec_exp_line_number);
  curr_char_loc = p;
  *line = static_cast<std::uint32_t>(value);
  return valid;
}

// "name", with escapes.
bool scan_file_name(const char **name) {
  if (*curr_char_loc != '"') {
    report_here(ec_exp_file_name);
    return false;
  }
  a_pp_text_kind kind;
  const char *start = curr_char_loc;
  const char *end = end_of_pp_token(start, &kind, nullptr);
  if (kind != ptk_literal) {
    report_here(ec_exp_file_name);
    return false;
  }
  char *text = copy_string_to_region(0, start + 1, static_cast<std::size_t>(end - start - 2));
  char *out = text;
  for (const char *p = text; *p != '\0'; ++p) {
    if (*p == '\\' && !pcc_preprocessing_mode && (p[1] == '\\' || p[1] == '"')) ++p;
    *out++ = *p;
  }
  *out = '\0';
  *name = text;
  curr_char_loc = end;
  return true;
}

// Flags: 1 a file is entered, 2 it is returned to, 3 it is a system header.
void scan_flags(a_line_directive *d) {
  for (;;) {
    skip_white_space();
    const char *p = curr_char_loc;
    if (*p < '0' || *p > '9') return;
    while (*p >= '0' && *p <= '9')
      ++p;
    if (p - curr_char_loc == 1) {
      if (*curr_char_loc == '1') d->enters_file = true;
      if (*curr_char_loc == '3') d->is_system = true;
    }
    curr_char_loc = p;
  }
}

// The text that follows belongs to another file and line.
void change_file_and_line(const a_line_directive *d, bool is_digit_form) {
  const char *name = d->name != nullptr ? d->name : curr_ise->name;
  std::uint32_t next_seq = seq_number_last_read + 1;
  bool renamed = d->name != nullptr && std::strcmp(d->name, curr_ise->name) != 0;
  if (is_digit_form && d->enters_file) {
    a_source_file *parent = curr_ise->source_file;
    push_cloned_input_stack_entry();
    record_start_of_source_file(parent, next_seq, d->line, name, nullptr, curr_ise->full_name,
                                &curr_ise->source_file, true, false, false, false, 0, d->is_system,
                                0);
  } else {
    if (is_digit_form && renamed) {
      while (curr_ise->is_clone && std::strcmp(name, curr_ise->name) != 0)
        pop_cloned_input_stack_entry();
      renamed = std::strcmp(name, curr_ise->name) != 0;
    }
    if (!renamed && curr_ise->source_file != curr_ise->primary_source_file) {
      record_resumption_of_source_file(curr_ise->source_file, next_seq, d->line);
    } else {
      if (curr_ise->source_file != curr_ise->primary_source_file)
        record_end_of_source_file(curr_ise->source_file, seq_number_last_read);
      record_start_of_source_file(curr_ise->primary_source_file, next_seq, d->line, name, nullptr,
                                  curr_ise->full_name, &curr_ise->source_file, curr_ise->is_include,
                                  false, false, false, 0, d->is_system, 0);
    }
  }
  curr_ise->name = name;
  curr_ise->line_number = d->line - 1;
  curr_ise->is_system = d->is_system;
}

}  // namespace

// #line number
// #line number "name"
// # number "name" flags
void pp_line_directive(bool is_digit_form) {
  a_line_directive d = {};
  d.is_system = curr_ise->is_system;
  bool valid = scan_line_number(is_digit_form, &d.line);
  if (valid) {
    find_token();
    if (*curr_char_loc != '\0') {
      valid = scan_file_name(&d.name);
      if (valid && is_digit_form) {
        d.is_system = false;
        scan_flags(&d);
      }
    }
  }
  if (!valid) {
    drop_rest_of_line();
    return;
  }
  check_end_of_directive(strict_extra_text);
  change_file_and_line(&d, is_digit_form);
  if (generate_pp_output) gen_pp_line_info(true);
  if (f_raw_listing != nullptr) gen_rlisting_line_info(' ');
}
