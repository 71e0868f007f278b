// The life of a message: its record, the decision whether it is shown, what it brings about.
#include "DIAG/error.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <unordered_set>

#include "DIAG/error_internal.h"
#include "UTIL/basics.h"
#include "driver/host_envir.h"
#include "driver/switches.h"

a_diag_hooks diag_hooks;
a_source_position error_position;

bool display_error_context_on_catastrophe = true;
std::uint64_t total_errors;
std::uint64_t total_warnings;
std::uint64_t total_remarks;
std::uint64_t total_catastrophes;
const char *curr_cmd_line_or_predef_macro_def;
bool processing_predefined_macro;
bool use_cppcli_fill_ins;

namespace {

a_diagnostic *avail_diagnostics;
a_diag_arg *avail_diag_args;
bool diag_issued[num_error_codes];
bool processing_catastrophe;
bool processing_internal_error;
std::unordered_set<std::uint64_t> power_advice_given;  // sequence number and code

// A message given inside a template, remembered so that the other instances do not repeat it.
struct a_prototype_diagnostic {
  a_prototype_diagnostic *next;
  an_error_code code;
  an_error_severity severity;
  a_source_position position;
  std::int64_t scope_id;  // of the scope that gave it last; -1: none
  std::uint64_t count;
};
constexpr std::size_t num_prototype_buckets = 983;
a_prototype_diagnostic *prototype_diagnostics[num_prototype_buckets];

a_prototype_diagnostic **prototype_bucket(const a_diagnostic *d) {
  const std::uint64_t hash = (std::uint64_t{d->position.seq} + 1) *
                             (std::uint64_t{d->position.column} + 1) *
                             (static_cast<std::uint64_t>(d->severity) + 1) * d->code;
  return &prototype_diagnostics[hash % num_prototype_buckets];
}

a_prototype_diagnostic *find_prototype_diagnostic(const a_diagnostic *d) {
  for (a_prototype_diagnostic *p = *prototype_bucket(d); p != nullptr; p = p->next) {
    if (p->code == d->code && p->severity == d->severity && p->position.seq == d->position.seq &&
        p->position.column == d->position.column) {
      return p;
    }
  }
  return nullptr;
}

void record_prototype_diagnostic(const a_diagnostic *d) {
  auto *entry =
      static_cast<a_prototype_diagnostic *>(alloc_general(sizeof(a_prototype_diagnostic)));
  a_prototype_diagnostic **bucket = prototype_bucket(d);
  *entry = {*bucket, d->code, d->severity, d->position, -1, 0};
  *bucket = entry;
}

void free_diag_list(a_diag_list *list) {
  for (a_diagnostic *d = list->head; d != nullptr;) {
    a_diagnostic *next = d->next;
    free_diagnostic(d);
    d = next;
  }
  *list = {};
}

// ---- Decisions ---------------------------------------------------------------------------------

// Does an instance of a template repeat what another instance said before?
bool repeats_another_instance(const a_diagnostic *d) {
  if (diag_hooks.scope_stack_depth == nullptr || diag_hooks.scope_stack_depth() < 0) return false;
  std::int64_t scope_id = -1;
  const bool remember =
      diag_hooks.template_scope != nullptr && diag_hooks.template_scope(&scope_id);
  a_prototype_diagnostic *known = find_prototype_diagnostic(d);
  if (known == nullptr) {
    if (remember) record_prototype_diagnostic(d);
    return false;
  }
  if (known->scope_id != scope_id) {
    known->scope_id = scope_id;
    known->count = 0;
    return true;
  }
  return ++known->count <= static_cast<std::uint64_t>(error_limit);
}

bool is_to_be_shown(a_diagnostic *d) {
  if (!severity_is_shown(d)) return false;
  if (d->severity <= es_warning && code_is_once_only(d->code) && diag_issued[d->code]) return false;
  diag_issued[d->code] = true;
  if (repeats_another_instance(d)) return false;
  if (d->code >= 1530 && d->code <= 1533) {
    const std::uint64_t key = std::uint64_t{d->position.seq} << 16 | d->code;
    if (!power_advice_given.insert(key).second) return false;
  }
  return true;
}

}  // namespace

bool severity_is_shown(const a_diagnostic *d) {
  if (d->severity == es_note) return true;  // its parent was shown, or it has none
  if (d->severity < error_threshold || d->severity == es_none) return false;
  if (d->position.seq != 0 && diag_hooks.in_system_header != nullptr &&
      diag_hooks.in_system_header(d->position.seq)) {
    return d->severity >= es_error;
  }
  return curr_cmd_line_or_predef_macro_def == nullptr || d->severity >= es_discretionary_error;
}

namespace {

// ---- Instantiation context ---------------------------------------------------------------------

struct a_context {
  an_instantiation_context_kind kind;
  a_symbol *symbol;
  const a_source_position *position;
};

bool next_context(int *depth, a_context *context) {
  for (; *depth >= 1; --*depth) {
    context->kind =
        diag_hooks.instantiation_context_of(*depth, &context->symbol, &context->position);
    if (context->kind != ick_none) {
      --*depth;
      return true;
    }
  }
  return false;
}

an_error_code context_text(an_instantiation_context_kind kind, bool alone) {
  switch (kind) {
    case ick_member_instantiation:
      return alone ? ect_688 : ect_529;
    case ick_implicit_generation:
      return alone ? ect_687 : ect_457;
    case ick_implicit_definition:
      return alone ? ect_690 : ect_464;
    case ick_template_argument_list:
      return alone ? ect_689 : ect_530;
    default:
      return alone ? ect_686 : ect_456;
  }
}

a_diagnostic *add_context_line(a_diagnostic *d, an_error_code code) {
  a_diagnostic *line = alloc_diagnostic(dk_context, es_none, code, nullptr);
  line->parent = d;
  append_to_diag_list(&d->context_lines, line);
  return line;
}

// Says of which template, for whom, the text in question is an instance.
void add_instantiation_context(a_diagnostic *d) {
  if (diag_hooks.instantiation_context_of == nullptr || diag_hooks.scope_stack_depth == nullptr) {
    return;
  }
  const int top = diag_hooks.scope_stack_depth();
  a_context context{};
  int count = 0;
  for (int depth = top; next_context(&depth, &context);)
    ++count;
  if (count == 0) return;
  if (count > 1) add_context_line(d, ect_455);
  const int kept_at_each_end = context_limit / 2;
  const bool has_gap = context_limit > 0 && count > context_limit + 1;
  int index = 0;
  for (int depth = top; next_context(&depth, &context); ++index) {
    if (has_gap && index >= kept_at_each_end && index < count - kept_at_each_end) {
      if (index == kept_at_each_end) {
        add_number_argument(add_context_line(d, ect_1226), count - 2 * kept_at_each_end);
      }
      continue;
    }
    a_diagnostic *line = add_context_line(d, context_text(context.kind, count == 1));
    add_symbol_argument(line, context.symbol);
    add_position_argument(line, context.position);
  }
}

// Ends the compilation when the message or the number of errors asks for it.
void act_on_counts(const a_diagnostic *d) {
  auto finish_listing = [] {
    if (diag_hooks.finish_raw_listing != nullptr) diag_hooks.finish_raw_listing();
  };
  if (d->severity >= es_catastrophe) {
    finish_listing();
    term_compilation(d->severity);
  }
  if (total_errors + total_catastrophes < static_cast<std::uint64_t>(error_limit)) return;
  std::fprintf(f_error, "%s\n", text_by_number(ect_1782));
  std::FILE *listing = diag_hooks.raw_listing != nullptr ? diag_hooks.raw_listing() : nullptr;
  if (listing != nullptr) std::fputs("C \"\" 0 0 error limit reached\n", listing);
  finish_listing();
  term_compilation(es_catastrophe);
}

}  // namespace

// ---- Records -----------------------------------------------------------------------------------

a_diagnostic *alloc_diagnostic(a_diagnostic_kind kind, an_error_severity severity,
                               an_error_code code, const a_source_position *pos) {
  a_diagnostic *d = avail_diagnostics;
  if (d != nullptr) {
    avail_diagnostics = d->next;
  } else {
    d = static_cast<a_diagnostic *>(alloc_general(sizeof(a_diagnostic)));
  }
  *d = {};
  d->kind = kind;
  d->severity = severity;
  d->code = code;
  d->file = "";
  if (pos != nullptr) d->position = *pos;
  return d;
}

void free_diagnostic(a_diagnostic *d) {
  for (a_diag_arg *arg = d->arguments; arg != nullptr;) {
    a_diag_arg *next = arg->next;
    if (arg->text_is_owned) {
      free_general(const_cast<char *>(arg->text), std::strlen(arg->text) + 1);
    }
    arg->next = avail_diag_args;
    avail_diag_args = arg;
    arg = next;
  }
  free_diag_list(&d->supplements);
  free_diag_list(&d->context_lines);
  free_diag_list(&d->sub_diagnostics);
  free_diag_list(&d->more_info);
  d->next = avail_diagnostics;
  avail_diagnostics = d;
}

void append_to_diag_list(a_diag_list *list, a_diagnostic *d) {
  if (list->tail != nullptr) {
    list->tail->next = d;
  } else {
    list->head = d;
  }
  list->tail = d;
}

static a_diag_arg *add_argument(a_diagnostic *d, a_diag_arg_kind kind) {
  a_diag_arg *arg = avail_diag_args;
  if (arg != nullptr) {
    avail_diag_args = arg->next;
  } else {
    arg = static_cast<a_diag_arg *>(alloc_general(sizeof(a_diag_arg)));
  }
  arg->next = nullptr;
  arg->kind = kind;
  arg->text_is_owned = false;
  (d->last_argument != nullptr ? d->last_argument->next : d->arguments) = arg;
  d->last_argument = arg;
  return arg;
}

void add_number_argument(a_diagnostic *d, std::int64_t number) {
  add_argument(d, dak_number)->number = number;
}

void add_string_argument(a_diagnostic *d, const char *text) {
  add_argument(d, dak_string)->text = text;
}

void add_position_argument(a_diagnostic *d, const a_source_position *pos) {
  add_argument(d, dak_position)->position = pos != nullptr ? *pos : a_source_position{};
}

void add_type_argument(a_diagnostic *d, a_type *type) {
  add_argument(d, dak_type)->type = type;
}

void add_symbol_argument(a_diagnostic *d, a_symbol *symbol) {
  add_argument(d, dak_symbol)->symbol = symbol;
}

// ---- Supplements and notes ---------------------------------------------------------------------

a_diagnostic *add_diag_info(a_diagnostic *d, an_error_code code) {
  a_diagnostic *info = alloc_diagnostic(dk_supplement, es_none, code, nullptr);
  info->parent = d;
  append_to_diag_list(&d->supplements, info);
  return info;
}

void str_add_diag_info(a_diagnostic *d, an_error_code code, const char *text) {
  add_string_argument(add_diag_info(d, code), text);
}

void copy_str_add_diag_info(a_diagnostic *d, an_error_code code, const char *text) {
  const std::size_t size = std::strlen(text) + 1;
  a_diag_arg *arg = add_argument(add_diag_info(d, code), dak_string);
  arg->text = static_cast<const char *>(std::memcpy(alloc_general(size), text, size));
  arg->text_is_owned = true;
}

void ty_add_diag_info(a_diagnostic *d, an_error_code code, a_type *type) {
  add_type_argument(add_diag_info(d, code), type);
}

void sym_add_diag_info(a_diagnostic *d, an_error_code code, a_symbol *symbol) {
  add_symbol_argument(add_diag_info(d, code), symbol);
}

void add_diag_info_with_pos_insert(a_diagnostic *d, an_error_code code,
                                   const a_source_position *pos) {
  add_position_argument(add_diag_info(d, code), pos);
}

void add_more_info_list(a_diagnostic *d, a_diag_list *list) {
  for (a_diagnostic *note = list->head; note != nullptr;) {
    a_diagnostic *next = note->next;
    note->next = nullptr;
    note->parent = d;
    append_to_diag_list(&d->more_info, note);
    note = next;
  }
  *list = {};
}

void discard_more_info_list(a_diag_list *list) {
  free_diag_list(list);
}

// ---- The end of a message ----------------------------------------------------------------------

void end_diagnostic(a_diagnostic *d) {
  d->severity = effective_severity(d->code, d->severity, &d->position);
  if (is_to_be_shown(d)) {
    if (curr_cmd_line_or_predef_macro_def != nullptr && !processing_predefined_macro &&
        d->code != ec_bad_cmd_line_macro) {
      const char *definition = curr_cmd_line_or_predef_macro_def;
      curr_cmd_line_or_predef_macro_def = nullptr;
      str_command_line_error(ec_bad_cmd_line_macro, definition);
    }
    if (d->severity == es_catastrophe) {
      if (processing_catastrophe) {
        std::fprintf(f_error, "%s\n", text_by_number(ect_1784));
        term_compilation(es_catastrophe);
      }
      processing_catastrophe = true;
    }
    if (d->severity == es_internal_error) {
      if (processing_internal_error) {
        std::fprintf(f_error, "%s\n", text_by_number(ect_1783));
        exit_compilation(es_internal_error);
      }
      processing_internal_error = true;
    }
    const bool without_context =
        d->severity == es_note || d->severity == es_internal_error ||
        (d->severity == es_catastrophe && !display_error_context_on_catastrophe);
    if (!without_context) add_instantiation_context(d);
    write_diagnostic(d);
  }
  act_on_counts(d);
  free_diagnostic(d);
}

void end_command_line_error(a_diagnostic *d) {
  end_diagnostic(d);
  term_compilation(es_command_line_error);
}

void term_compilation(an_error_severity severity) {
  write_signoff();
  exit_compilation(severity);
}

void write_signoff() {
  if (asm_header_mode || total_errors + total_catastrophes == 0) return;
  auto number_of = [](std::uint64_t count, int one, int several) {
    std::fprintf(f_error, "%lu %s", static_cast<unsigned long>(count),
                 text_by_number(count == 1 ? one : several));
  };
  if (total_errors != 0) number_of(total_errors, ect_2011, ect_2012);
  if (total_errors != 0 && total_catastrophes != 0) {
    std::fprintf(f_error, " %s ", text_by_number(ect_2015));
  }
  if (total_catastrophes != 0) number_of(total_catastrophes, ect_2013, ect_2014);
  const char *name = primary_source_file_name;
  if (name == nullptr || *name == '\0' || std::strcmp(name, "-") == 0) {
    std::fprintf(f_error, " %s\n", text_by_number(ect_2017));
  } else {
    const char *quoted = format_file_name(name);
    a_text_buffer *buffer = alloc_text_buffer(256);
    format_message_text(ect_2016, &quoted, 1, buffer);
    std::fprintf(f_error, " %s\n", text_of_buffer(buffer));
  }
}

// ---- Phases ------------------------------------------------------------------------------------

// Reports a broken invariant as an internal error at the current place.
static void report_failed_invariant(const char *file, int line, const char *function,
                                    const char *text) {
  char message[512];
  std::snprintf(message, sizeof message, "%s, line %d, in %s: %s", file, line, function, text);
  internal_error(message);
}

static void clear_counts() {
  total_errors = total_warnings = total_remarks = total_catastrophes = 0;
  processing_catastrophe = processing_internal_error = false;
  forget_what_was_reported_once();
}

void error_early_init() {
  display_error_context_on_catastrophe = true;
  misra_required_severity = misra_advisory_severity = es_warning;
  curr_cmd_line_or_predef_macro_def = nullptr;
  processing_predefined_macro = false;
  use_cppcli_fill_ins = false;
  invariant_handler = report_failed_invariant;
  clear_counts();
  reset_overrides();
}

void error_one_time_init() {}

void error_init() {
  clear_counts();
  std::memset(diag_issued, 0, sizeof diag_issued);
  std::memset(prototype_diagnostics, 0, sizeof prototype_diagnostics);
  power_advice_given.clear();
}

void error_trans_unit_init() {}
