// The arguments of a function-like macro. An argument is collected as text, its tokens as they are
// written with one blank for any white space between them. A name that may not be expanded at this
// place, since its own expansion is being read, is marked inert here and now; the mark stays with
// the text. While collecting it is noted whether the argument holds any name of a macro; without
// one its expanded form is the same text.

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack_internal.h"
#include "source/literals.h"
#include "source/macro_internal.h"
#include "source/preproc.h"

std::size_t length_of_args_in_process;

namespace {

a_macro_arg *avail_macro_args;

a_macro_arg *alloc_macro_arg() {
  a_macro_arg *arg = avail_macro_args;
  if (arg != nullptr) {
    avail_macro_args = arg->next;
  } else {
    arg = static_cast<a_macro_arg *>(alloc_general(sizeof(a_macro_arg)));
    *arg = {};
  }
  arg->next = nullptr;
  arg->raw.length = arg->expanded.length = 0;
  arg->expanded_is_raw = true;
  arg->is_empty_variadic = false;
  return arg;
}

// ---- Appending tokens --------------------------------------------------------------------------

// Where the last token appended ended, to see whether the next one touches it.
struct a_token_trail {
  const char *end;
  std::uint32_t text_changes;
};

bool is_mark_in_front(const char *p) {
  return *p == '\0';
}

void append_token(a_macro_text_buffer *buffer, a_token_trail *trail, const char *start,
                  const char *end, bool inert) {
  std::size_t length = static_cast<std::size_t>(end - start);
  char *out = grow_macro_text(buffer, length + 6);
  char *first = out;
  if (buffer->length != 0) {
    if (kind_of_white_space_skipped != 0 &&
        (!pcc_preprocessing_mode || kind_of_white_space_skipped != wsk_comment)) {
      *out++ = ' ';
    } else if ((trail->end != start || trail->text_changes != num_text_changes) &&
               !is_mark_in_front(start)) {
      *out++ = '\0';
      *out++ = tm_separator;
    }
  }
  if (inert) {
    *out++ = '\0';
    *out++ = tm_inert;
  }
  std::memcpy(out, start, length);
  buffer->length += static_cast<std::size_t>(out + length - first);
  trail->end = end;
  trail->text_changes = num_text_changes;
}

void end_text(a_macro_text_buffer *buffer) {
  char *out = grow_macro_text(buffer, 2);
  out[0] = '\0';
  out[1] = tm_end_of_modif;
}

// R"x( at curr_char_loc, end behind the prefix: the literal may run over lines; each line end in it
// becomes a newline character of the text.
void append_raw_string(a_macro_text_buffer *buffer, a_token_trail *trail, const char *quote) {
  append_token(buffer, trail, curr_char_loc, quote + 1, false);
  append_raw_string_text(buffer, quote, !in_preprocessing_directive);
  trail->end = curr_char_loc;
}

// ---- Expanding an argument ---------------------------------------------------------------------

// The name [start, end) in the argument's own text or in what it expands to.
void expand_or_append_name(a_macro_arg *arg, a_token_trail *trail, const char *start,
                           const char *end) {
  std::uint8_t white_space = kind_of_white_space_skipped;
  a_symbol *macro_symbol =
      find_macro_symbol(header_of_identifier(start, static_cast<std::size_t>(end - start)));
  bool inert = false;
  curr_char_loc = end;
  if (macro_symbol != nullptr) {
    bool at_start = arg->expanded.length == 0;
    if (expand_macro_at(macro_symbol, start, &inert)) {
      // White space in front of the invocation stands in front of its first token.
      kind_of_white_space_skipped = at_start ? 0 : white_space;
      return;
    }
  }
  kind_of_white_space_skipped = white_space;
  append_token(&arg->expanded, trail, start, end, inert);
  curr_char_loc = end;
  kind_of_white_space_skipped = 0;
}

void expand_text_of_arg(a_macro_arg *arg) {
  a_token_trail trail = {};
  kind_of_white_space_skipped = 0;
  for (;;) {
    skip_white_space();
    const char *start = curr_char_loc;
    bool inert = false;
    if (*start == '\0') {
      if (start[1] != tm_inert && start[1] != tm_temporarily_inert) return;
      inert = true;
      start += 2;
    }
    a_pp_text_kind kind;
    bool raw_string;
    const char *end = end_of_pp_token(start, &kind, &raw_string);
    if (raw_string) {
      curr_char_loc = start;
      append_raw_string(&arg->expanded, &trail, end);
      kind_of_white_space_skipped = 0;
    } else if (kind == ptk_identifier && !inert) {
      expand_or_append_name(arg, &trail, start, end);
    } else {
      append_token(&arg->expanded, &trail, start, end, inert);
      curr_char_loc = end;
      kind_of_white_space_skipped = 0;
    }
  }
}

// The argument's text is scanned as a text inside the one in which the token that ended it stands,
// so that the expansions being read there are seen.
void expand_arg(a_macro_arg *arg, const a_source_position *pos) {
  const char *saved_loc = curr_char_loc;
  a_source_line_modif *saved_modif = curr_text_modif;
  const char *saved_delete = delete_source_from_loc;
  char *saved_mark = macro_text_mark();
  bool saved_in_list = in_macro_arg_list;
  a_source_line_modif text = {};
  text.parent = saved_modif;
  text.flags = slm_stop_at_end;
  text.text_start = arg->raw.text;
  text.fixed_position = *pos;
  delete_source_from_loc = nullptr;
  in_macro_arg_list = false;
  enter_text_modif(&text);
  length_of_args_in_process += arg->raw.length;
  expand_text_of_arg(arg);
  end_text(&arg->expanded);
  length_of_args_in_process -= arg->raw.length;
  free_modif_children(&text);
  curr_text_modif = saved_modif;
  curr_char_loc = saved_loc;
  delete_source_from_loc = saved_delete;
  in_macro_arg_list = saved_in_list;
  release_macro_text_from(saved_mark);
  pos_of_macro_invocation =
      saved_modif != nullptr ? saved_modif->fixed_position : null_source_position;
}

// ---- Collecting --------------------------------------------------------------------------------

struct a_list_state {
  a_symbol *macro_symbol;
  const a_macro_def *def;
  a_source_position pos;  // of the invocation
};

enum a_arg_end : std::uint8_t { ae_comma, ae_rparen, ae_end_of_text };

void append_name(a_macro_arg *arg, a_token_trail *trail, const char *start, const char *end,
                 bool inert) {
  if (!inert) {
    a_symbol *macro_symbol =
        find_macro_symbol(header_of_identifier(start, static_cast<std::size_t>(end - start)));
    if (macro_symbol != nullptr) {
      if (!pcc_preprocessing_mode && is_in_own_expansion(macro_symbol))
        inert = true;
      else
        arg->expanded_is_raw = false;
    }
  }
  append_token(&arg->raw, trail, start, end, inert);
}

// A # at the start of a line inside the list is a directive.
bool obey_directive_in_list() {
  if (curr_text_modif != nullptr || first_token_on_line_seen || in_preprocessing_directive)
    return false;
  if (check_misra_c_2004) {
    a_source_position pos;
    source_position_at(curr_char_loc, &pos);
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_19_9, &pos);
  }
  bool saved_in_list = in_macro_arg_list;
  const char *saved_delete = delete_source_from_loc;
  in_macro_arg_list = false;
  delete_source_from_loc = nullptr;
  ++curr_char_loc;
  pp_directive();
  in_macro_arg_list = saved_in_list;
  if (saved_delete != nullptr) delete_source_from_loc = curr_char_loc;
  return true;
}

// Up to the comma or parenthesis that ends the argument, which is passed; takes_commas: of the last
// parameter of a variadic macro. The white space of a directive counts as white space.
a_arg_end collect_arg(a_macro_arg *arg, bool takes_commas) {
  a_token_trail trail = {};
  int depth = 0;
  kind_of_white_space_skipped = 0;
  for (;;) {
    comma_is_from_argument = false;
    skip_white_space();
    const char *start = curr_char_loc;
    bool inert = false;
    if (*start == '\0') {
      if (start[1] != tm_inert && start[1] != tm_temporarily_inert) return ae_end_of_text;
      inert = true;
      start += 2;
    } else if (*start == '(') {
      ++depth;
    } else if (*start == ')') {
      if (depth == 0) {
        ++curr_char_loc;
        return ae_rparen;
      }
      --depth;
    } else if (*start == ',' && depth == 0 && !takes_commas && !comma_is_from_argument) {
      ++curr_char_loc;
      return ae_comma;
    } else if (*start == '#' && obey_directive_in_list()) {
      kind_of_white_space_skipped |= wsk_blanks;
      continue;
    }
    first_token_on_line_seen = true;
    a_pp_text_kind kind;
    bool raw_string;
    const char *end = end_of_pp_token(start, &kind, &raw_string);
    if (raw_string) {
      curr_char_loc = start;
      append_raw_string(&arg->raw, &trail, end);
      kind_of_white_space_skipped = 0;
      continue;
    }
    if (kind == ptk_identifier)
      append_name(arg, &trail, start, end, inert);
    else
      append_token(&arg->raw, &trail, start, end, inert);
    curr_char_loc = end;
    kind_of_white_space_skipped = 0;
  }
}

void finish_arg(a_macro_arg *arg, const a_list_state *list, const a_macro_param *param,
                bool is_variadic_param, bool is_first) {
  end_text(&arg->raw);
  bool empty = arg->raw.length == 0;
  if (empty && is_variadic_param && !is_first) arg->is_empty_variadic = true;
  if (empty && strict_ansi_mode && !is_variadic_param && param != nullptr &&
      (in_cplusplus() ? std_version < 201103 : std_version < 199901)) {
    a_source_position pos;
    source_position_at(curr_char_loc - 1, &pos);
    pos_warning(ec_empty_macro_argument, &pos);
  }
  if (param != nullptr && param->used_expanded && !arg->expanded_is_raw && !pcc_preprocessing_mode)
    expand_arg(arg, &list->pos);
  else
    arg->expanded_is_raw = true;
}

an_error_severity severity_of_wrong_count() {
  return SVR4_C_mode || pcc_preprocessing_mode ? es_warning : es_discretionary_error;
}

// At the comma or parenthesis just passed.
void report_wrong_count(const a_list_state *list, an_error_code code) {
  a_source_position pos;
  source_position_at(curr_char_loc - 1, &pos);
  pos_sy_diagnostic(severity_of_wrong_count(), code, &pos, list->macro_symbol);
}

// Arguments beyond the parameters are read and dropped.
a_arg_end drop_extra_args(const a_list_state *list) {
  report_wrong_count(list, ec_too_many_macro_args);
  a_macro_arg *dropped = alloc_macro_arg();
  a_arg_end end;
  do {
    dropped->raw.length = 0;
    end = collect_arg(dropped, false);
  } while (end == ae_comma);
  free_macro_args(dropped);
  return end;
}

void report_missing_args(const a_list_state *list, std::uint32_t given) {
  bool only_variadic = (list->def->flags & mf_variadic) != 0 && given + 1 == list->def->num_params;
  if (only_variadic && extended_variadic_macros_allowed) return;
  if (check_misra_c_2004 &&
      misra_c_2004_generate_diagnostic(ec_misra_c_2004_19_8, misra_required_severity)) {
    a_source_position pos;
    source_position_at(curr_char_loc - 1, &pos);
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_19_8, &pos);
  } else {
    report_wrong_count(list, ec_too_few_macro_args);
  }
}

// The arguments behind the (; the end of the last one goes out.
a_macro_arg *collect_all_args(const a_list_state *list, a_arg_end *end_out) {
  const a_macro_def *def = list->def;
  a_macro_arg *head = nullptr;
  a_macro_arg **link = &head;
  const a_macro_param *param = def->params;
  std::uint32_t count = 0;
  a_arg_end end = ae_comma;
  while (end == ae_comma && (count < def->num_params || count == 0)) {
    a_macro_arg *arg = alloc_macro_arg();
    bool variadic = (def->flags & mf_variadic) != 0 && count + 1 == def->num_params;
    end = collect_arg(arg, variadic);
    if (end != ae_end_of_text) finish_arg(arg, list, param, variadic, count == 0);
    *link = arg;
    link = &arg->next;
    ++count;
    if (param != nullptr) param = param->next;
  }
  if (def->num_params == 0 && end == ae_rparen && head->raw.length != 0) {
    report_wrong_count(list, ec_too_many_macro_args);
  }
  if (end == ae_comma) end = drop_extra_args(list);
  if (end == ae_rparen && count < def->num_params) report_missing_args(list, count);
  for (; count < def->num_params; ++count) {
    a_macro_arg *arg = alloc_macro_arg();
    end_text(&arg->raw);
    arg->is_empty_variadic = (def->flags & mf_variadic) != 0 && count + 1 == def->num_params;
    *link = arg;
    link = &arg->next;
  }
  *end_out = end;
  return head;
}

}  // namespace

void free_macro_args(a_macro_arg *args) {
  while (args != nullptr) {
    a_macro_arg *next = args->next;
    args->next = avail_macro_args;
    avail_macro_args = args;
    args = next;
  }
}

a_macro_arg *scan_macro_args(a_symbol *macro_symbol, const a_macro_def *def,
                             const a_source_position *pos, bool *failed) {
  a_list_state list = {macro_symbol, def, *pos};
  bool saved_in_list = in_macro_arg_list;
  bool saved_newline = treat_newline_as_token;
  in_macro_arg_list = true;
  treat_newline_as_token = false;
  skip_white_space();
  check_invariant(*curr_char_loc == '(');
  ++curr_char_loc;
  first_token_on_line_seen = true;
  a_arg_end end;
  a_macro_arg *args = collect_all_args(&list, &end);
  in_macro_arg_list = saved_in_list;
  treat_newline_as_token = saved_newline;
  *failed = end != ae_rparen;
  if (*failed) {
    a_source_position end_pos;
    source_position_at(curr_char_loc, &end_pos);
    pos_syntax_error(ec_exp_rparen, &end_pos);
    pos_error(ec_improperly_terminated_macro_call, pos);
  }
  return args;
}
