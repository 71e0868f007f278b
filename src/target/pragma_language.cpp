// The pragmas of the language and of other compilers: pack, STDC, GCC, once, messages, macros,
// redefine_extname, and those of lint comments.
#include <cstdio>
#include <cstring>

#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/expr.h"
#include "semantics/const_ints.h"
#include "semantics/layout.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/input_stack.h"
#include "source/macro.h"
#include "source/preproc.h"
#include "target/pragma_internal.h"

void check_end_of_pragma() {
  if (!at_end_of_pragma()) pos_warning(ec_extra_text_in_pp_directive, &pos_curr_token);
}

// ---- #pragma pack ------------------------------------------------------------------------------

namespace {

struct a_pack_stack_entry {
  a_pack_stack_entry *next;
  const a_symbol_header *identifier;  // null: none was given
  std::uint32_t value;
};
a_pack_stack_entry *pack_stack;
a_pack_stack_entry *avail_pack_stack_entries;

enum a_pack_action : std::uint8_t { pa_set, pa_push, pa_pop, pa_show };

struct a_pack_scan {
  a_pack_action action;
  const a_symbol_header *identifier;
  bool value_given;
  std::uint32_t value;
  bool failed;
};

void push_pack_state(const a_symbol_header *identifier) {
  a_pack_stack_entry *entry = avail_pack_stack_entries;
  if (entry != nullptr)
    avail_pack_stack_entries = entry->next;
  else
    entry = static_cast<a_pack_stack_entry *>(
        alloc_in_region(permanent_region, sizeof(a_pack_stack_entry)));
  *entry = {pack_stack, identifier, curr_max_member_alignment};
  pack_stack = entry;
}

void pop_one_pack_state() {
  a_pack_stack_entry *entry = pack_stack;
  curr_max_member_alignment = entry->value;
  pack_stack = entry->next;
  entry->next = avail_pack_stack_entries;
  avail_pack_stack_entries = entry;
}

void pop_pack_state(const a_pack_scan &scan, const a_source_position *position) {
  if (pack_stack == nullptr) {
    pos_diagnostic(gnu_mode ? es_warning : es_error, ec_empty_pack_alignment_stack, position);
    return;
  }
  if (scan.identifier != nullptr) {
    const a_pack_stack_entry *entry = pack_stack;
    while (entry != nullptr && entry->identifier != scan.identifier)
      entry = entry->next;
    if (entry == nullptr) {
      pos_st_warning(ec_not_found_on_pack_alignment_stack, position, scan.identifier->name);
      if (!gnu_mode) return;
    } else {
      while (pack_stack != entry)
        pop_one_pack_state();
    }
  }
  pop_one_pack_state();
}

void show_pack_state(const a_source_position *position) {
  char text[16] = "not set";
  if (curr_max_member_alignment != 0)
    std::snprintf(text, sizeof text, "%u", curr_max_member_alignment);
  pos_st_warning(ec_value_of_pragma_pack_show, position, text);
}

// A power of two that the target allows; GNU: 0 too.
void scan_pack_value(a_pack_scan &scan) {
  bool large = false;
  std::int64_t value = value_of_integer_constant(&const_for_curr_token, &large);
  scan.value_given = true;
  if (!large && check_pack_alignment_value(value))
    scan.value = static_cast<std::uint32_t>(value);
  else if (value != 0 || !gnu_mode)
    pos_error(ec_bad_pack_alignment, &pos_curr_token);
  get_token();
}

bool action_of_word(const char *word, a_pack_action *action) {
  static const char *const words[] = {"push", "pop", "show"};
  for (int i = 0; i < 3; ++i)
    if (std::strcmp(word, words[i]) == 0) {
      *action = static_cast<a_pack_action>(pa_push + i);
      return true;
    }
  return false;
}

// [push | pop | show] [, identifier] [, n]     or  [n]
void scan_pack_arguments(a_pack_scan &scan) {
  if (curr_token == tok_identifier &&
      action_of_word(locator_for_curr_id.header->name, &scan.action)) {
    get_token();
    while (scan.action != pa_show && loop_token(tok_comma)) {
      if (curr_token == tok_identifier && scan.identifier == nullptr && !scan.value_given) {
        scan.identifier = locator_for_curr_id.header;
        get_token();
      } else if (curr_token == tok_int_constant && !scan.value_given) {
        scan_pack_value(scan);
      } else {
        scan.failed = true;
        return;
      }
    }
  } else if (curr_token == tok_int_constant) {
    scan_pack_value(scan);
  } else if (curr_token != tok_rparen && !at_end_of_pragma()) {
    scan.failed = true;
  }
}

void note_local_effect(const a_source_position *position) {
  if (depth_innermost_function_scope < 0) return;
  a_routine *routine = innermost_function();
  if (routine != nullptr && routine->symbol != nullptr)
    pos_sy_remark(ec_local_pragma_pack, position, routine->symbol);
}

void apply_pack(const a_pack_scan &scan, const a_source_position *position) {
  switch (scan.action) {
    case pa_show:
      show_pack_state(position);
      return;
    case pa_push:
      push_pack_state(scan.identifier);
      break;
    case pa_pop:
      pop_pack_state(scan, position);
      break;
    case pa_set:
      if (!scan.value_given) curr_max_member_alignment = 0;
      break;
  }
  if (scan.value_given) curr_max_member_alignment = scan.value;
  note_local_effect(position);
}

}  // namespace

// pack ( [n] )    pack ( push | pop | show [, identifier] [, n] )
void pack_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  a_source_position position = pending->name_position;
  begin_rescan_of_pragma_tokens(pending);
  bool has_paren = curr_token == tok_lparen;
  if (has_paren)
    get_token();
  else
    pos_diagnostic(gnu_mode ? es_warning : es_error, ec_exp_lparen, &pos_curr_token);
  a_pack_scan scan = {};
  bool usable = has_paren || gnu_mode;
  if (usable) scan_pack_arguments(scan);
  if (scan.failed) {
    pos_diagnostic(gnu_mode ? es_warning : es_error, ec_bad_pragma_format, &pos_curr_token);
    usable = false;
  } else if (has_paren && curr_token == tok_rparen) {
    get_token();
    check_end_of_pragma();
  } else if (has_paren) {
    bool ignored = gnu_mode && scan.value_given;
    pos_diagnostic(gnu_mode ? es_warning : es_error,
                   ignored ? ec_exp_rparen_and_pragma_ignored : ec_exp_rparen, &pos_curr_token);
    usable = !ignored && gnu_mode;
  }
  wrapup_rescan_of_pragma_tokens(!usable);
  if (usable) apply_pack(scan, &position);
}

void clear_pack_stack() {
  pack_stack = nullptr;
  avail_pack_stack_entries = nullptr;
}

// ---- #pragma STDC ------------------------------------------------------------------------------

namespace {

bool curr_word_is(const char *word) {
  return curr_token == tok_identifier && std::strcmp(locator_for_curr_id.header->name, word) == 0;
}

a_stdc_pragma_subject stdc_subject_here() {
  if (curr_word_is("FP_CONTRACT")) return stdc_fp_contract;
  if (curr_word_is("FENV_ACCESS")) return stdc_fenv_access;
  if (curr_word_is("CX_LIMITED_RANGE")) return stdc_cx_limited_range;
  return stdc_subject_none;
}

a_stdc_pragma_state stdc_state_here() {
  if (curr_word_is("OFF")) return stdc_off;
  if (curr_word_is("ON")) return stdc_on;
  return curr_word_is("DEFAULT") ? stdc_unset : stdc_none;
}

void report_stdc(an_error_code code) {
  pos_diagnostic(static_cast<an_error_severity>(strict_ansi_error_severity), code, &pos_curr_token);
}

}  // namespace

// STDC FP_CONTRACT | FENV_ACCESS | CX_LIMITED_RANGE  ON | OFF | DEFAULT
// C11 6.10.6
void obey_stdc_pragma(a_pending_pragma *pending) {
  begin_rescan_of_pragma_tokens(pending);
  a_stdc_pragma_subject subject = stdc_subject_here();
  a_stdc_pragma_state state = stdc_none;
  if (subject == stdc_subject_none) {
    report_stdc(ec_unrecognized_stdc_pragma);
  } else {
    get_token();
    state = stdc_state_here();
    if (state == stdc_none) {
      report_stdc(ec_bad_stdc_pragma_arg);
    } else {
      get_token();
      check_end_of_pragma();
    }
  }
  wrapup_rescan_of_pragma_tokens(state == stdc_none);
  if (state == stdc_none) return;
  (subject == stdc_fp_contract   ? curr_fp_contract_state
   : subject == stdc_fenv_access ? curr_fenv_access_state
                                 : curr_cx_limited_range_state) = state;
  a_pragma *pragma = make_il_pragma(pending, iek_none, nullptr, true);
  pragma->selector = subject;
  pragma->selector_value = state;
}

void stdc_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  pos_diagnostic(static_cast<an_error_severity>(strict_ansi_error_severity),
                 ec_stdc_pragma_not_allowed_here, &pending->name_position);
}

// ---- #pragma GCC -------------------------------------------------------------------------------

namespace {

// The options of #pragma GCC target in force, and those saved by push_options.
struct a_gcc_options_entry {
  a_gcc_options_entry *next;
  an_attribute *target;  // null: none
};
a_gcc_options_entry *gcc_pragma_options_stack;

void push_gcc_options(an_attribute *target) {
  auto *entry = static_cast<a_gcc_options_entry *>(
      alloc_in_region(permanent_region, sizeof(a_gcc_options_entry)));
  *entry = {gcc_pragma_options_stack, target};
  gcc_pragma_options_stack = entry;
}

// GCC system_header
void gcc_system_header(a_pending_pragma *pending) {
  pending->gcc_subject = gps_system_header;
  if (curr_ise == nullptr || !curr_ise->is_include) {
    pos_warning(ec_pragma_gcc_system_header_in_primary_file, &pending->name_position);
    return;
  }
  curr_ise->is_system = true;
  if (curr_ise->source_file != nullptr) curr_ise->source_file->is_system_header = true;
}

bool scan_target_string(an_attribute *attribute, an_attribute_arg ***link) {
  if (curr_token != tok_string_literal) {
    pos_error(ec_exp_string_literal, &pos_curr_token);
    return false;
  }
  if (const_for_curr_token.string_char_kind != chk_char) {
    pos_error(ec_target_string_must_be_narrow, &pos_curr_token);
    return false;
  }
  an_attribute_arg *arg = alloc_attribute_arg();
  arg->kind = aak_constant;
  arg->position = pos_curr_token;
  arg->constant = alloc_unshared_constant(&const_for_curr_token);
  **link = arg;
  *link = &arg->next;
  attribute->end_position = end_pos_curr_token;
  get_token();
  return true;
}

// GCC target [(] "text" { , "text" } [)]
void gcc_target(a_pending_pragma *pending) {
  if (inside_function_scope()) {
    pos_error(ec_pragma_inside_function, &pending->name_position);
    return;
  }
  pending->gcc_subject = gps_target;
  an_attribute *attribute = alloc_attribute();
  attribute->kind = atk_target;
  attribute->syntax = asx_gnu;
  attribute->name = "target";
  attribute->position = pending->name_position;
  an_attribute_arg **link = &attribute->args;
  bool in_parens = loop_token(tok_lparen);
  do {
    if (!scan_target_string(attribute, &link)) return;
  } while (loop_token(tok_comma));
  bool closed = loop_token(tok_rparen);
  if (closed != in_parens) {
    pos_error(ec_target_unmatched_parens, &pos_curr_token);
    return;
  }
  if (gcc_pragma_options_stack == nullptr) push_gcc_options(nullptr);
  gcc_pragma_options_stack->target = attribute;
  pos_st_warning(ec_not_supported, &pending->name_position, "#pragma GCC target is");
}

void gcc_push_options(a_pending_pragma *pending) {
  pending->gcc_subject = gps_target;
  push_gcc_options(gcc_pragma_options_stack != nullptr ? gcc_pragma_options_stack->target
                                                       : nullptr);
}

void gcc_pop_options(a_pending_pragma *pending) {
  pending->gcc_subject = gps_target;
  if (gcc_pragma_options_stack == nullptr)
    pos_warning(ec_gcc_pragma_nothing_to_pop, &pending->name_position);
  else
    gcc_pragma_options_stack = gcc_pragma_options_stack->next;
}

void gcc_reset_options(a_pending_pragma *pending) {
  pending->gcc_subject = gps_target;
  gcc_pragma_options_stack = nullptr;
}

struct a_gcc_pragma_word {
  const char *word;
  int first_version;
  void (*obey)(a_pending_pragma *pending);
};
const a_gcc_pragma_word gcc_pragma_words[] = {
    {"system_header", 0, gcc_system_header},     {"target", 0, gcc_target},
    {"push_options", 40400, gcc_push_options},   {"pop_options", 40400, gcc_pop_options},
    {"reset_options", 40400, gcc_reset_options},
};

}  // namespace

void gcc_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  begin_rescan_of_pragma_tokens(pending);
  const a_gcc_pragma_word *found = nullptr;
  for (const a_gcc_pragma_word &row : gcc_pragma_words)
    if (curr_word_is(row.word) && gnu_version >= row.first_version) found = &row;
  std::uint64_t errors_before = total_errors;
  if (found == nullptr) {
    pos_warning(ec_unrecognized_gcc_pragma, &pos_curr_token);
  } else {
    get_token();
    found->obey(pending);
    if (total_errors == errors_before) check_end_of_pragma();
  }
  wrapup_rescan_of_pragma_tokens(found == nullptr);
  if (caching_tokens || depth_scope_stack < 0) return;
  make_il_pragma(pending, iek_none, nullptr, false)->selector = pending->gcc_subject;
}

void attach_target_pragma_attribute(an_attribute **attributes) {
  if (gcc_pragma_options_stack == nullptr || gcc_pragma_options_stack->target == nullptr) return;
  *f_last_attribute_link(attributes) = copy_of_attributes_list(gcc_pragma_options_stack->target);
}

void clear_gcc_pragma_options() {
  gcc_pragma_options_stack = nullptr;
}

// ---- Messages ----------------------------------------------------------------------------------

void diag_severity_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  an_error_severity severity = es_none;
  switch (pending->description->kind) {
    case prk_diag_suppress:
      break;
    case prk_diag_remark:
      severity = es_remark;
      break;
    case prk_diag_warning:
      severity = es_warning;
      break;
    case prk_diag_error:
      severity = es_discretionary_error;
      break;
    case prk_diag_once:
      severity = es_once;
      break;
    case prk_diag_default:
      severity = es_default;
      break;
    default:
      unexpected_state("no pragma of messages");
  }
  diag_pragma(pending, severity);
}

void diag_push_pragma_handler(a_pending_pragma *pending, a_symbol *, a_statement *) {
  diag_push_pragma(pending);
}
void diag_pop_pragma_handler(a_pending_pragma *pending, a_symbol *, a_statement *) {
  diag_pop_pragma(pending);
}

// ---- The preprocessor's ------------------------------------------------------------------------

void once_pragma(a_pending_pragma *, a_symbol *, a_statement *) {
  mark_curr_file_as_once();
}

// Precompiled headers are not made.
void hdrstop_or_no_pch_pragma(a_pending_pragma *, a_symbol *, a_statement *) {}

namespace {

// push_macro ( "name" ): the name, from the raw text; null after a warning.
a_symbol_header *header_of_macro_pragma(const a_pending_pragma *pending) {
  const char *p = pending->text;
  while (*p == ' ' || *p == '(')
    ++p;
  const char *start = *p == '"' ? p + 1 : nullptr;
  const char *end = start == nullptr ? nullptr : std::strchr(start, '"');
  a_symbol *symbol;
  a_symbol_locator locator = cleared_locator;
  if (end == nullptr ||
      !is_valid_identifier(start, static_cast<std::size_t>(end - start), &symbol, &locator)) {
    pos_warning(ec_bad_pragma_format, &pending->name_position);
    return nullptr;
  }
  return locator.header;
}

}  // namespace

void push_macro_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  if (a_symbol_header *header = header_of_macro_pragma(pending)) push_macro_definition(header);
}
void pop_macro_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  if (a_symbol_header *header = header_of_macro_pragma(pending)) pop_macro_definition(header);
}

// ---- Others ------------------------------------------------------------------------------------

void redefine_extname_pragma_handler(a_pending_pragma *pending, a_symbol *, a_statement *) {
  redefine_extname_pragma(pending);
}

// __printf_args, __scanf_args: the parameters of the routine are a format and its values.
void record_arg_pragma(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  if (symbol == nullptr || !is_routine_symbol_kind(symbol->kind)) {
    pos_diagnostic(pending->description->misplaced_severity, ec_pragma_must_precede_declaration,
                   &pending->name_position);
    return;
  }
  // The format is the last named parameter and the values follow it, or they come in a va_list
  // behind the format.
  a_routine *routine = symbol->variant.routine;
  const a_routine_type_supplement *type = skip_typerefs(routine->type)->routine_supplement;
  std::uint32_t count = 0;
  for (const a_param_type *p = type->param_types; p != nullptr; p = p->next)
    ++count;
  const std::uint32_t format_number = type->has_ellipsis || count == 0 ? count : count - 1;
  if (format_number == 0) return;
  a_gnu_routine_supplement *supplement = alloc_gnu_supplement_for_routine(routine);
  supplement->format_kind = pending->description->kind == prk_printf_args ? 1 : 2;
  supplement->format_string_index = format_number;
  supplement->format_first_arg = type->has_ellipsis ? count + 1 : 0;
}

void instantiation_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  pos_st_error(ec_not_supported, &pending->name_position, "this pragma is");
}
void define_type_info_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  pos_st_error(ec_not_supported, &pending->name_position, "this pragma is");
}
