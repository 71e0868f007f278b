// #define. The replacement list is scanned once, over the text of the line, into chunks: runs of
// literal text and uses of parameters. White space between tokens is kept as one blank. A separator
// (0,4) stands beside a parameter where its argument could run together with a neighbour:
//
//   #define neg(x) -x       text "-" 0,4; expanded 1
//   #define cat(a,b) a##b   raw 1; paste; raw 2
//
// Two tokens that stood side by side in the list need no separator, since they will be read as the
// same two tokens again.

#include <algorithm>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack_internal.h"
#include "source/literals.h"
#include "source/macro_internal.h"
#include "source/preproc.h"
#include "source/preproc_internal.h"

namespace {

// The definition being read.
struct a_definition {
  a_symbol_header *header;
  a_source_position pos;
  std::uint8_t flags;
  std::uint32_t num_params;
  a_macro_param *params;
  a_macro_param *last_param;
  std::uint32_t spacing;  // of the operators in the list
};

a_macro_text_buffer chunks;  // its chunk string
a_macro_text_buffer raw_string_text;
std::size_t open_text_chunk;  // offset of the text chunk being filled
bool text_chunk_is_open;

// ---- Writing chunks ----------------------------------------------------------------------------

void put_chunk(a_chunk_kind kind, std::uint32_t number) {
  char *head = grow_macro_text(&chunks, chunk_head_size);
  head[0] = static_cast<char>(kind);
  head[1] = static_cast<char>(number & 0xFF);
  head[2] = static_cast<char>(number >> 8 & 0xFF);
  head[3] = static_cast<char>(number >> 16 & 0xFF);
  chunks.length += chunk_head_size;
  text_chunk_is_open = false;
}

void put_text(const char *text, std::size_t length) {
  if (!text_chunk_is_open) {
    open_text_chunk = chunks.length;
    put_chunk(chk_text, 0);
    text_chunk_is_open = true;
  }
  std::memcpy(grow_macro_text(&chunks, length), text, length);
  chunks.length += length;
  std::size_t total = chunks.length - open_text_chunk - chunk_head_size;
  if (total >= std::size_t{1} << 24) catastrophe(ec_requested_size_too_large);
  unsigned char *head = reinterpret_cast<unsigned char *>(chunks.text + open_text_chunk);
  head[1] = static_cast<unsigned char>(total & 0xFF);
  head[2] = static_cast<unsigned char>(total >> 8 & 0xFF);
  head[3] = static_cast<unsigned char>(total >> 16);
}

void put_separator() {
  static const char separator[] = {'\0', tm_separator};
  put_text(separator, 2);
}

// ---- Parameters --------------------------------------------------------------------------------

// The parameters of a long list by the hash of their names: places of an open table, kept for the
// next such definition.
struct a_param_place {
  const a_macro_param *param;  // null: free
  std::uint32_t index;
};
constexpr std::uint32_t least_hashed_params = 16;
a_param_place *param_places;
std::size_t num_param_places;  // a power of two, at least twice the number of parameters

// The place of a name, or the free one where it would stand.
a_param_place *place_of_param(const char *name, std::size_t length) {
  std::uint64_t hash = 14695981039346656037u;
  for (std::size_t i = 0; i < length; ++i)
    hash = (hash ^ static_cast<unsigned char>(name[i])) * 1099511628211u;
  for (std::size_t i = (hash * 0x9E3779B97F4A7C15u) >> 32;; ++i) {
    a_param_place *place = &param_places[i & (num_param_places - 1)];
    const a_macro_param *p = place->param;
    if (p == nullptr || (p->length == length && std::memcmp(p->name, name, length) == 0))
      return place;
  }
}

// Called for each parameter that is added; the first one of a name counts.
void enter_param_place(const a_definition *d) {
  if (d->num_params < least_hashed_params) return;
  if (d->num_params == least_hashed_params || 2 * d->num_params > num_param_places) {
    if (2 * d->num_params > num_param_places) {
      std::size_t old_size = num_param_places * sizeof(a_param_place);
      num_param_places = std::max(4 * std::size_t{least_hashed_params}, 2 * num_param_places);
      param_places = static_cast<a_param_place *>(
          realloc_buffer(param_places, old_size, num_param_places * sizeof(a_param_place)));
    }
    std::memset(param_places, 0, num_param_places * sizeof(a_param_place));
    std::uint32_t index = 0;
    for (const a_macro_param *p = d->params; p != nullptr; p = p->next) {
      ++index;
      a_param_place *place = place_of_param(p->name, p->length);
      if (place->param == nullptr) *place = {p, index};
    }
    return;
  }
  a_param_place *place = place_of_param(d->last_param->name, d->last_param->length);
  if (place->param == nullptr) *place = {d->last_param, d->num_params};
}

// A universal character name and the character itself spell one parameter.
const char *spelling_of_param(const char *name, std::size_t *length) {
  if (std::memchr(name, '\\', *length) == nullptr) return name;
  return make_canonical_identifier(name, *length, length);
}

std::uint32_t index_of_param(const a_definition *d, const char *name, std::size_t length) {
  name = spelling_of_param(name, &length);
  if (d->num_params >= least_hashed_params) {
    const a_param_place *place = place_of_param(name, length);
    return place->param != nullptr ? place->index : 0;
  }
  std::uint32_t index = 0;
  for (const a_macro_param *p = d->params; p != nullptr; p = p->next) {
    ++index;
    if (p->length == length && std::memcmp(p->name, name, length) == 0) return index;
  }
  return 0;
}

void add_param(a_definition *d, const char *name, std::size_t length) {
  name = spelling_of_param(name, &length);
  a_macro_param *param = static_cast<a_macro_param *>(alloc_in_region(0, sizeof(a_macro_param)));
  *param = {nullptr, copy_string_to_region(0, name, length), static_cast<std::uint32_t>(length),
            false, false};
  if (d->params == nullptr)
    d->params = param;
  else
    d->last_param->next = param;
  d->last_param = param;
  ++d->num_params;
  enter_param_place(d);
}

bool is_va_args(const char *name, std::size_t length) {
  return length == 11 && std::memcmp(name, "__VA_ARGS__", 11) == 0;
}

void report_at(const char *loc, an_error_code code) {
  a_source_position pos;
  source_position_at(loc, &pos);
  pos_error(code, &pos);
  some_error_in_curr_directive = true;
}

// param-list: identifiers separated by commas, the last one perhaps "..." or "name ...", and )
bool scan_params(a_definition *d) {
  ++curr_char_loc;
  skip_white_space();
  if (*curr_char_loc == ')') {
    ++curr_char_loc;
    return true;
  }
  for (;;) {
    skip_white_space();
    const char *name = curr_char_loc;
    a_pp_text_kind kind;
    const char *end = end_of_pp_token(name, &kind, nullptr);
    std::size_t length = static_cast<std::size_t>(end - name);
    if (kind == ptk_identifier && !is_operator_word(header_of_identifier(name, length))) {
      if (is_va_args(name, length) && variadic_macros_allowed)
        report_at(name, ec_VA_ARGS_not_allowed);
      else if (index_of_param(d, name, length) != 0)
        report_at(name, ec_duplicate_macro_param_name);
      add_param(d, name, length);
      curr_char_loc = end;
      skip_white_space();
      if (extended_variadic_macros_allowed && std::strncmp(curr_char_loc, "...", 3) == 0) {
        curr_char_loc += 3;
        d->flags |= mf_variadic;
        skip_white_space();
      }
    } else if (end - name == 3 && *name == '.' && variadic_macros_allowed) {
      add_param(d, "__VA_ARGS__", 11);
      curr_char_loc = end;
      d->flags |= mf_variadic;
      skip_white_space();
    } else {
      report_at(name, ec_exp_identifier);
      return false;
    }
    if (*curr_char_loc == ')') {
      ++curr_char_loc;
      return true;
    }
    if (*curr_char_loc != ',' || (d->flags & mf_variadic) != 0) {
      report_at(curr_char_loc, ec_exp_rparen);
      return false;
    }
    ++curr_char_loc;
  }
}

// ---- The replacement list ----------------------------------------------------------------------

// What stands to the left of the next token in the list.
enum a_left_neighbour : std::uint8_t { ln_nothing, ln_text, ln_param, ln_paste };

struct a_list_scan {
  const a_definition *definition;
  a_left_neighbour left;
  std::size_t last_param_chunk;  // offset, when left is ln_param
  bool after_blank;
  unsigned num_operators;  // of # and ##
  std::uint32_t spacing;   // a sum of where white space stands around them
};

// Characters that join with nothing.
bool never_joins(char c) {
  switch (c) {
    case '(':
    case ')':
    case ',':
    case ';':
    case '?':
    case '[':
    case ']':
    case '{':
    case '}':
    case '~':
    case ' ':
      return true;
    default:
      return false;
  }
}

// What goes between the left neighbour and a parameter, or a text that starts with c. In old
// preprocessing two tokens with only a comment between them join.
void put_gap(a_list_scan *scan, bool before_param, char c) {
  if (scan->left == ln_nothing || scan->left == ln_paste) return;
  if (scan->after_blank) {
    put_text(" ", 1);
  } else if (pcc_preprocessing_mode) {
    return;
  } else if (scan->left == ln_param) {
    if (before_param || !never_joins(c)) put_separator();
  } else if (before_param && !never_joins(chunks.text[chunks.length - 1])) {
    put_separator();
  }
}

void put_param(a_list_scan *scan, a_chunk_kind kind, std::uint32_t index) {
  put_gap(scan, true, '\0');
  if (scan->left == ln_paste && kind == chk_expanded) kind = chk_raw;
  scan->last_param_chunk = chunks.length;
  put_chunk(kind, index);
  scan->left = ln_param;
}

// A literal of old preprocessing: parameters inside it are replaced.
void put_literal_with_params(a_list_scan *scan, const char *start, const char *end) {
  put_gap(scan, false, *start);
  const char *run = start;
  for (const char *p = start; p != end;) {
    if (!starts_identifier(p)) {
      ++p;
      continue;
    }
    const char *name = p;
    while (p != end && (starts_identifier(p) || (*p >= '0' && *p <= '9')))
      ++p;
    std::uint32_t index =
        index_of_param(scan->definition, name, static_cast<std::size_t>(p - name));
    if (index == 0) continue;
    if (name != run) put_text(run, static_cast<std::size_t>(name - run));
    put_chunk(chk_raw, index);
    run = p;
  }
  put_text(run, static_cast<std::size_t>(end - run));
  scan->left = ln_text;
}

// # or #@ in front of a parameter.
bool scan_stringize(a_list_scan *scan, const char *end) {
  bool charize = *end == '@';
  const char *operator_loc = curr_char_loc;
  curr_char_loc = charize ? end + 1 : end;
  bool blank_in_front = scan->after_blank;
  skip_white_space();
  a_pp_text_kind kind;
  const char *name = curr_char_loc;
  const char *name_end = end_of_pp_token(name, &kind, nullptr);
  std::uint32_t index =
      kind == ptk_identifier
          ? index_of_param(scan->definition, name, static_cast<std::size_t>(name_end - name))
          : 0;
  if (index == 0) {
    report_at(kind == ptk_end ? operator_loc : name, ec_exp_macro_param);
    return false;
  }
  scan->after_blank = blank_in_front;
  put_param(scan, charize ? chk_charize : chk_stringize, index);
  curr_char_loc = name_end;
  return true;
}

// ##: the parameter in front of it, if one stands there, is used raw.
bool scan_paste(a_list_scan *scan, const char *end) {
  if (scan->left == ln_nothing) {
    report_at(curr_char_loc, ec_paste_cannot_be_first);
    return false;
  }
  if (scan->left == ln_param && chunks.text[scan->last_param_chunk] == chk_expanded)
    chunks.text[scan->last_param_chunk] = chk_raw;
  put_chunk(chk_paste, 0);
  scan->left = ln_paste;
  curr_char_loc = end;
  return true;
}

void check_misra_operator(a_list_scan *scan) {
  if (!check_misra_c_2004) return;
  a_source_position pos;
  source_position_at(curr_char_loc, &pos);
  pos_diagnostic(misra_advisory_severity, ec_misra_c_2004_19_13, &pos);
  if (++scan->num_operators > 1)
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_19_12, &pos);
}

// One token of the list, at curr_char_loc. False after an error.
bool scan_list_token(a_list_scan *scan) {
  const a_definition *d = scan->definition;
  bool is_function_like = (d->flags & mf_object_like) == 0;
  const char *start = curr_char_loc;
  a_pp_text_kind kind;
  bool raw_string;
  const char *end = end_of_pp_token(start, &kind, &raw_string);
  std::size_t length = static_cast<std::size_t>(end - start);
  bool is_sharp = *start == '#' || (length >= 2 && *start == '%' && start[1] == ':');
  if (kind == ptk_punctuator && is_sharp) {
    bool is_paste = *start == '#' ? length == 2 : length == 4;
    if (is_paste || (is_function_like && !pcc_preprocessing_mode)) check_misra_operator(scan);
    if (is_paste) return scan_paste(scan, end);
    if (is_function_like && !pcc_preprocessing_mode) return scan_stringize(scan, end);
  }
  if (kind == ptk_identifier) {
    std::uint32_t index = d->num_params != 0 ? index_of_param(d, start, length) : 0;
    if (index != 0) {
      put_param(scan, chk_expanded, index);
      curr_char_loc = end;
      return true;
    }
    if (is_va_args(start, length) && variadic_macros_allowed)
      report_at(start, ec_VA_ARGS_not_allowed);
  }
  if (raw_string) {
    put_gap(scan, false, *start);
    put_text(start, length + 1);
    raw_string_text.length = 0;
    append_raw_string_text(&raw_string_text, end, curr_cmd_line_or_predef_macro_def == nullptr);
    put_text(raw_string_text.text, raw_string_text.length);
    scan->left = ln_text;
    return true;
  }
  curr_char_loc = end;
  if (kind == ptk_literal && pcc_preprocessing_mode && d->num_params != 0) {
    put_literal_with_params(scan, start, end);
    return true;
  }
  put_gap(scan, false, *start);
  put_text(start, length);
  scan->left = ln_text;
  return true;
}

// a/**/b in the C of System V: an empty comment between two tokens that the second one touches is
// ##.
bool scan_svr4_paste(a_list_scan *scan) {
  const char *p = curr_char_loc;
  while (is_blank_char(*p))
    ++p;
  if (std::strncmp(p, "/**/", 4) != 0 || is_blank_char(p[4]) || p[4] == '\0' || p[4] == '/' ||
      scan->left == ln_nothing || scan->left == ln_paste)
    return false;
  a_source_position pos;
  source_position_at(p, &pos);
  pos_warning(ec_svr4_token_pasting_comment, &pos);
  return scan_paste(scan, p + 4);
}

// White space beside # and ## leaves no trace in the chunks, but two definitions that differ in it
// are not the same.
void note_spacing(a_list_scan *scan) {
  bool at_operator = *curr_char_loc == '#' || *curr_char_loc == '%';
  if (scan->left == ln_nothing || (!at_operator && scan->left != ln_paste)) return;
  scan->spacing = scan->spacing * 31 + (scan->after_blank ? 2 : 1);
}

// The list up to the end of the line, into chunks.
bool scan_replacement_list(a_definition *d) {
  chunks.length = 0;
  text_chunk_is_open = false;
  a_list_scan scan = {d, ln_nothing, 0, false, 0, 0};
  for (;;) {
    if (SVR4_C_mode && scan_svr4_paste(&scan)) continue;
    kind_of_white_space_skipped = 0;
    skip_white_space();
    scan.after_blank = pcc_preprocessing_mode ? (kind_of_white_space_skipped & wsk_blanks) != 0
                                              : kind_of_white_space_skipped != 0;
    if (*curr_char_loc == '\0') break;
    note_spacing(&scan);
    if (!scan_list_token(&scan)) return false;
  }
  d->spacing = scan.spacing;
  if (scan.left == ln_paste) {
    report_at(curr_char_loc, ec_paste_cannot_be_last);
    return false;
  }
  *grow_macro_text(&chunks, 2) = '\0';
  chunks.text[++chunks.length] = tm_end_of_modif;  // so that a body of one text ends like a text
  return true;
}

// ---- Entering the definition -------------------------------------------------------------------

void note_param_uses(const a_definition *d) {
  if (d->num_params == 0) return;
  const unsigned char *chunk = reinterpret_cast<const unsigned char *>(chunks.text);
  a_macro_param *param = d->params;
  std::uint32_t at = 1;  // the number of param
  while (*chunk != chk_end) {
    std::uint32_t number = chunk_number(chunk);
    if (*chunk == chk_text) {
      chunk += number;
    } else if (*chunk != chk_paste) {
      // Mostly they stand in the list in the order in which they are declared.
      if (number < at) {
        param = d->params;
        at = 1;
      }
      for (; at < number; ++at)
        param = param->next;
      if (*chunk == chk_expanded)
        param->used_expanded = true;
      else
        param->used_raw = true;
    }
    chunk += chunk_head_size;
  }
}

bool equals_definition(const a_definition *d, const a_macro_def *old) {
  constexpr unsigned form = mf_object_like | mf_variadic;
  if ((d->flags & form) != (old->flags & form) || d->num_params != old->num_params ||
      old->body == nullptr || old->body_length != chunks.length || old->spacing != d->spacing ||
      std::memcmp(old->body, chunks.text, chunks.length) != 0)
    return false;
  const a_macro_param *b = old->params;
  for (const a_macro_param *a = d->params; a != nullptr; a = a->next, b = b->next)
    if (a->length != b->length || std::memcmp(a->name, b->name, a->length) != 0) return false;
  return true;
}

// Reports a second definition as the old one asks. True: the new one takes its place.
bool check_redefinition(const a_definition *d, a_symbol *old_symbol, const a_macro_def *old) {
  bool from_cmd_line = curr_cmd_line_or_predef_macro_def != nullptr && !processing_predefined_macro;
  bool same = equals_definition(d, old);
  if (processing_predefined_macro) {
    if (!same) str_catastrophe(ec_bad_predef_macro_redef, d->header->name);
    return false;
  }
  if ((old->flags & mf_predefined) != 0) {
    if (same && from_cmd_line) return false;
    pos_sy_diagnostic(es_discretionary_error, ec_cannot_redef_predef_macro, &d->pos, old_symbol);
    return false;
  }
  if (from_cmd_line) return true;
  if (same) return false;
  an_error_severity severity =
      strict_ansi_mode ? static_cast<an_error_severity>(strict_ansi_error_severity) : es_warning;
  if (severity != es_none) pos_sy_diagnostic(severity, ec_bad_macro_redef, &d->pos, old_symbol);
  return true;
}

void store_definition(const a_definition *d, a_symbol *macro_symbol) {
  note_param_uses(d);
  a_macro_def *def = macro_def_of(macro_symbol);
  std::uint32_t kept = def->flags & 0xE0u;
  std::uint32_t open_texts = def->open_texts;
  std::size_t length = chunks.length;
  *def = {};
  def->open_texts = open_texts;
  def->flags = static_cast<std::uint8_t>(d->flags | kept);
  def->num_params = d->num_params;
  def->params = d->params;
  def->spacing = d->spacing;
  def->body_length = static_cast<std::uint32_t>(length);
  char *body = static_cast<char *>(alloc_in_region(0, length));
  std::memcpy(body, chunks.text, length);
  def->body = reinterpret_cast<unsigned char *>(body);
  if (length > 2 && def->body[0] == chk_text &&
      chunk_head_size + chunk_number(def->body) + 2 == length)
    def->text_length = chunk_number(def->body);
  note_macro_definition(macro_symbol, &d->pos);
  write_xref_line('D', macro_symbol, &d->pos);
}

a_symbol *enter_definition(const a_definition *d) {
  a_symbol *macro_symbol = find_macro_symbol(d->header);
  if (macro_symbol != nullptr) {
    if (!check_redefinition(d, macro_symbol, macro_def_of(macro_symbol))) return macro_symbol;
    macro_symbol->decl_position = d->pos;
  } else {
    macro_symbol = new_macro_symbol(d->header, &d->pos);
  }
  store_definition(d, macro_symbol);
  return macro_symbol;
}

bool is_cmd_line_definition() {
  return curr_cmd_line_or_predef_macro_def != nullptr && !processing_predefined_macro;
}

// -Dname=list, -Dname(params)=list: the = is still there, or in GNU modes a blank stands for it.
void pass_equals(const char *name) {
  if (!gnu_mode) {
    if (*curr_char_loc != '=')
      str_command_line_error(ec_bad_cmd_line_macro, curr_cmd_line_or_predef_macro_def);
    ++curr_char_loc;
  } else if (*curr_char_loc != '\0' && !is_blank_char(*curr_char_loc)) {
    a_source_position pos;
    source_position_at(curr_char_loc, &pos);
    pos_st_warning(ec_equals_assumed_in_cmd_line_macro_def, &pos, name);
  }
}

// Between the name and the list of an object-like macro of a source.
void check_gap_behind_name(const char *name, const char *name_end) {
  char c = *name_end;
  if (c == '\0' || is_blank_char(c) || c == '\r' || c == '/') return;
  a_source_position pos;
  source_position_at(name_end, &pos);
  if (strict_ansi_mode && !in_cplusplus() && is_nonstandard_character(c)) {
    pos_error(ec_nonstd_character_at_start_of_macro_def, &pos);
    return;
  }
  bool strict = strict_ansi_mode && std_version >= 199901;
  pos_st_diagnostic(
      strict ? static_cast<an_error_severity>(strict_ansi_discretionary_severity) : es_warning,
      ec_white_space_required_after_macro_name, &pos, name);
}

}  // namespace

// #define name list
// #define name(params) list
a_symbol *proc_define() {
  skip_white_space();
  a_definition d = {};
  source_position_at(curr_char_loc, &d.pos);
  if (depth_scope_stack > 0) report_misra(ec_misra_c_2004_19_5, &d.pos);
  d.header = scan_directive_identifier(&d.pos);
  if (d.header == nullptr) {
    report_at(curr_char_loc, ec_exp_identifier);
    return nullptr;
  }
  if (is_va_args(d.header->name, d.header->length) && variadic_macros_allowed) {
    pos_error(ec_VA_ARGS_not_allowed, &d.pos);
    some_error_in_curr_directive = true;
    return nullptr;
  }
  if (processing_predefined_macro) d.flags |= mf_from_predef_file;
  const char *name_end = curr_char_loc;
  if (*name_end == '(') {
    if (check_misra_c_2004) pos_diagnostic(misra_advisory_severity, ec_misra_c_2004_19_7, &d.pos);
    if (!scan_params(&d)) return nullptr;
  } else {
    d.flags |= mf_object_like;
    if (!is_cmd_line_definition()) check_gap_behind_name(d.header->name, name_end);
  }
  if (is_cmd_line_definition()) pass_equals(d.header->name);
  if (!scan_replacement_list(&d)) return nullptr;
  return enter_definition(&d);
}
