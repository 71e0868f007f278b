// Conditional groups: #if and its kin, the stack of open groups, and the skipping of groups whose
// condition is false. A skipped group is looked through in the image of the file, line start by
// line start; only a line that may be a directive is brought into the line buffer.

#include <emmintrin.h>

#include <string_view>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack_internal.h"
#include "source/macro_internal.h"
#include "source/pp_output.h"
#include "source/preproc_internal.h"

int pp_if_stack_depth = -1;
int base_pp_if_stack_depth = -1;
a_pp_if_stack_entry *pp_if_stack;

static int size_of_pp_if_stack;

// ---- The stack ---------------------------------------------------------------------------------

void push_pp_if(const a_source_position *pos) {
  if (++pp_if_stack_depth >= size_of_pp_if_stack) {
    std::size_t old_size = static_cast<std::size_t>(size_of_pp_if_stack);
    size_of_pp_if_stack = size_of_pp_if_stack * 2 + 30;
    pp_if_stack = static_cast<a_pp_if_stack_entry *>(realloc_buffer(
        pp_if_stack, old_size * sizeof(a_pp_if_stack_entry),
        static_cast<std::size_t>(size_of_pp_if_stack) * sizeof(a_pp_if_stack_entry)));
  }
  pp_if_stack[pp_if_stack_depth] = {*pos, false};
}

void verify_that_all_pp_ifs_were_closed() {
  for (; pp_if_stack_depth > base_pp_if_stack_depth; --pp_if_stack_depth)
    pos_error(ec_missing_endif, &pp_if_stack[pp_if_stack_depth].position);
}

static bool at_outermost_group_of_file() {
  return pp_if_stack_depth == base_pp_if_stack_depth + 1;
}

// Is a group of this file open?
static bool check_open_group() {
  if (pp_if_stack_depth > base_pp_if_stack_depth) return true;
  pos_error(ec_missing_pp_if, &pos_of_directive_name);
  some_error_in_curr_directive = true;
  return false;
}

// ---- Conditions --------------------------------------------------------------------------------

static void note_guard(a_symbol_header *header, bool is_ifndef) {
  set_ifg_state(ifg_in_guard);
  curr_ise->header_guard_seen = true;
  an_include_file_history *history = curr_ise->include_history;
  if (history == nullptr) return;
  history->macro = header;
  history->macro_name = header->name;
  history->skip_if_defined = is_ifndef;
  history->skip_if_undefined = !is_ifndef;
}

// The guard state moves on at a conditional directive; a group other than a guard ends the hope.
static void note_group_start(a_symbol_header *guard, bool is_ifndef) {
  an_ifg_state state = get_ifg_state();
  if (state == ifg_at_start && guard != nullptr)
    note_guard(guard, is_ifndef);
  else if (state < ifg_not_guarded)
    set_ifg_state(ifg_not_guarded);
}

// Does "defined(NAME)" or "!defined(NAME)", and no more, stand at p?
static a_symbol_header *guard_of_if(const char *p, bool *is_ifndef) {
  auto skip_blanks = [&] {
    while (is_blank_char(*p))
      ++p;
  };
  skip_blanks();
  *is_ifndef = *p == '!';
  if (*is_ifndef) ++p;
  skip_blanks();
  if (std::strncmp(p, "defined", 7) != 0) return nullptr;
  p += 7;
  skip_blanks();
  bool in_parens = *p == '(';
  if (in_parens) ++p;
  skip_blanks();
  a_pp_text_kind kind;
  const char *end = end_of_pp_token(p, &kind, nullptr);
  if (kind != ptk_identifier) return nullptr;
  const char *name = p;
  p = end;
  skip_blanks();
  if (in_parens && *p++ != ')') return nullptr;
  skip_blanks();
  if (p[0] != '\0' || p[1] != tm_end_of_line) return nullptr;
  return header_of_identifier(name, static_cast<std::size_t>(end - name));
}

// The truth of the expression of #if or #elif; the directive is read to its end.
static bool evaluate_condition() {
  bool value;
  if (!scan_pp_if_expression(&value)) {
    some_error_in_curr_directive = true;
    drop_rest_of_line();
    return false;
  }
  check_end_of_directive(strict_extra_text);
  return value;
}

void pp_if_directive() {
  bool is_ifndef = false;
  a_symbol_header *guard = nullptr;
  if (get_ifg_state() == ifg_at_start && curr_text_modif == nullptr)
    guard = guard_of_if(curr_char_loc, &is_ifndef);
  note_group_start(guard, is_ifndef);
  push_pp_if(&pos_of_directive);
  if (!evaluate_condition()) skip_group(true);
}

void pp_ifdef_directive(bool is_ifndef) {
  a_source_position pos;
  a_symbol_header *header = scan_directive_identifier(&pos);
  bool holds = false;
  note_group_start(header, is_ifndef);
  if (header == nullptr) {
    bool is_number = *curr_char_loc >= '0' && *curr_char_loc <= '9';
    pos_diagnostic(is_number && !strict_ansi_mode ? es_warning : es_error, ec_exp_identifier, &pos);
    some_error_in_curr_directive = true;
    drop_rest_of_line();
  } else {
    if (variadic_macros_allowed && std::strcmp(header->name, "__VA_ARGS__") == 0)
      pos_error(ec_VA_ARGS_not_allowed, &pos);
    a_symbol *macro_symbol = find_defined_macro(header);
    if (macro_symbol != nullptr) note_macro_reference(macro_symbol, &pos);
    holds = (macro_symbol != nullptr) != is_ifndef;
    check_end_of_directive(relaxed_extra_text);
  }
  push_pp_if(&pos_of_directive);
  if (!holds) skip_group(true);
}

// ---- The ends of a group that was taken --------------------------------------------------------

static void part_ends_guard() {
  if (at_outermost_group_of_file() && get_ifg_state() != ifg_pragma_once)
    set_ifg_state(ifg_not_guarded);
}

void pp_elif_directive() {
  if (!check_open_group()) {
    drop_rest_of_line();
    return;
  }
  if (pp_if_stack[pp_if_stack_depth].else_seen)
    pos_error(ec_pp_else_already_appeared, &pos_of_directive_name);
  part_ends_guard();
  drop_rest_of_line();
  skip_group(false);
}

static void note_else() {
  a_pp_if_stack_entry *group = &pp_if_stack[pp_if_stack_depth];
  if (group->else_seen)
    pos_diagnostic(in_pcc_mode() ? es_warning : es_discretionary_error, ec_pp_else_already_appeared,
                   &pos_of_directive_name);
  group->else_seen = true;
}

void pp_else_directive() {
  if (!check_open_group()) {
    drop_rest_of_line();
    return;
  }
  note_else();
  part_ends_guard();
  check_end_of_directive(relaxed_extra_text);
  skip_group(false);
}

void pp_endif_directive() {
  if (!check_open_group()) {
    drop_rest_of_line();
    return;
  }
  if (at_outermost_group_of_file()) {
    an_ifg_state state = get_ifg_state();
    if (state == ifg_in_guard)
      set_ifg_state(ifg_behind_endif);
    else if (state != ifg_pragma_once)
      set_ifg_state(ifg_not_guarded);
  }
  --pp_if_stack_depth;
  check_end_of_directive(relaxed_extra_text);
}

// ---- Passing over lines ------------------------------------------------------------------------

// What is known of a line that is passed over, up to one place of it: the literal that is open
// there and the word or number that runs. Each byte is looked at once.
struct a_line_scan {
  const char *line;  // its start
  const char *seen;
  char quote;        // of the open literal; 0: none
  const char *word;  // where the running word starts; null: none
  bool word_is_number;
};

static void begin_line_scan(a_line_scan *scan, const char *line) {
  *scan = {line, line, '\0', nullptr, false};
}

static void scan_line_up_to(a_line_scan *scan, const char *p) {
  const char *q = scan->seen;
  for (; q < p; ++q) {
    if (scan->quote != '\0') {
      if (*q == '\\')
        ++q;
      else if (*q == scan->quote)
        scan->quote = '\0';
    } else if (is_id_char[static_cast<int>(*q)]) {
      if (scan->word == nullptr) {
        scan->word = q;
        scan->word_is_number = *q >= '0' && *q <= '9';
      }
    } else if (scan->word != nullptr && scan->word_is_number &&
               (*q == '.' ||
                (*q == '\'' && digit_separators_enabled && is_id_char[static_cast<int>(q[1])]))) {
      continue;
    } else {
      scan->word = nullptr;
      if (*q == '"' || *q == '\'') scan->quote = *q;
    }
  }
  scan->seen = q;
}

static bool is_inside_literal(a_line_scan *scan, const char *p) {
  scan_line_up_to(scan, p);
  return scan->quote != '\0';
}

static bool is_spliced_newline(const char *line, const char *newline) {
  const char *last = newline;
  while (last != line && (last[-1] == '\r' || (gnu_mode && is_blank_char(last[-1]))))
    --last;
  if (last == line) return false;
  if (last[-1] == '\\') return true;
  return trigraphs_allowed && last - line >= 3 && std::memcmp(last - 3, "?\?/", 3) == 0;
}

// Behind the line splices at p, which stay uncounted.
static const char *behind_splices(const char *p) {
  for (;;) {
    const char *q = p;
    if (*q == '\\')
      ++q;
    else if (trigraphs_allowed && std::memcmp(q, "?\?/", 3) == 0)
      q += 3;
    else
      return p;
    while (*q == '\r' || (gnu_mode && is_blank_char(*q)))
      ++q;
    if (*q != '\n' || q >= curr_file_end) return p;
    p = q + 1;
  }
}

static void count_lines_between(const char *start, const char *end) {
  for (const char *p = start; p < end; ++p)
    if (*p == '\n') count_physical_line();
}

// Behind the comment whose /* is passed, counting its lines.
static const char *pass_comment(const char *p) {
  for (; p < curr_file_end; ++p) {
    if (*p == '\n') {
      count_physical_line();
    } else if (*p == '*') {
      const char *q = behind_splices(p + 1);
      if (*q != '/') continue;
      count_lines_between(p, q);
      return q + 1;
    }
  }
  return curr_file_end;
}

// Behind the raw string whose opening quote stands at quote, counting its lines; null when the word
// in front is no prefix of one or no delimiter follows.
static const char *pass_raw_string(const a_line_scan *scan, const char *quote) {
  if (scan->word == nullptr) return nullptr;
  std::string_view prefix(scan->word, static_cast<std::size_t>(quote - scan->word));
  if (prefix != "R" && prefix != "LR" && prefix != "uR" && prefix != "UR" && prefix != "u8R")
    return nullptr;
  const char *paren = quote + 1;
  while (paren - quote <= 16 && is_raw_string_delimiter_char[static_cast<int>(*paren)])
    ++paren;
  if (*paren != '(') return nullptr;
  std::size_t length = static_cast<std::size_t>(paren - quote - 1);
  const char *p = paren + 1;
  for (; p < curr_file_end; ++p) {
    if (*p != ')' || std::memcmp(p + 1, quote + 1, length) != 0 || p[length + 1] != '"') continue;
    p += length + 2;
    break;
  }
  count_lines_between(quote, p);
  return p;
}

// The next newline, slash or stop at or behind p.
static inline const char *next_stop(const char *p, char stop) {
  const __m128i newline = _mm_set1_epi8('\n');
  const __m128i slash = _mm_set1_epi8('/');
  const __m128i other = _mm_set1_epi8(stop);
  for (;; p += 16) {
    __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
    __m128i found = _mm_or_si128(_mm_cmpeq_epi8(block, newline), _mm_cmpeq_epi8(block, slash));
    unsigned mask =
        static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(found, _mm_cmpeq_epi8(block, other))));
    if (mask != 0) return p + __builtin_ctz(mask);
  }
}

// Behind the end-of-line comment at p, with its line.
static const char *pass_line_comment(const char *line, const char *p) {
  for (; *p != '\n' || (p < curr_file_end && is_spliced_newline(line, p)); ++p)
    if (*p == '\n') count_physical_line();
  count_physical_line();
  return p >= curr_file_end ? curr_file_end : p + 1;
}

// Behind the logical line that starts at line, with the comments and raw strings in it.
static const char *pass_logical_line(const char *line) {
  a_line_scan scan;
  begin_line_scan(&scan, line);
  const char stop = raw_string_literals_enabled ? '"' : '\n';
  const char *p = line;
  for (;;) {
    p = next_stop(p, stop);
    if (p >= curr_file_end) {
      count_physical_line();
      return curr_file_end;
    }
    const char *behind = nullptr;  // of a comment or raw string
    if (*p == '\n') {
      count_physical_line();
      ++p;
      if (!is_spliced_newline(scan.line, p - 1) || p == curr_file_end) return p;
      continue;
    }
    if (*p == '"') {
      if (p != line && p[-1] == 'R' && !is_inside_literal(&scan, p))
        behind = pass_raw_string(&scan, p);
    } else {
      const char *second = behind_splices(p + 1);
      bool may_be_comment = *second == '*' || (*second == '/' && end_of_line_comments_allowed);
      if (may_be_comment && !is_inside_literal(&scan, p)) {
        count_lines_between(p, second);
        if (*second == '/') return pass_line_comment(scan.line, second + 1);
        behind = pass_comment(second + 1);
      }
    }
    if (behind == nullptr) {
      ++p;
      continue;
    }
    p = behind;
    begin_line_scan(&scan, p);
    if (p == curr_file_end) {
      if (p[-1] != '\n') count_physical_line();
      return p;
    }
  }
}

// May a line that starts with p be a directive? A comment in front of the # is left to a closer
// look.
static bool may_start_directive(const char *p) {
  while (is_blank_char(*p) || *p == '\r')
    ++p;
  switch (*p) {
    case '#':
      return true;
    case '%':
      return p[1] == ':' && alternative_tokens_allowed;
    case '?':
      return p[1] == '?' && p[2] == '=' && trigraphs_allowed;
    case '/':
      return p[1] == '*' || p[1] == '\\';
    case '\\':
      return true;  // a splice may stand in front of it
    case '\0':
      return true;
    default:
      return false;
  }
}

// Brings the next line that is a directive into the buffer, curr_char_loc behind its #. False at
// the end of the file.
static bool find_next_directive() {
  for (;;) {
    if (f_raw_listing == nullptr && inserted_text_depth == 0) {
      while (curr_file_pos != curr_file_end && !may_start_directive(curr_file_pos))
        curr_file_pos = pass_logical_line(curr_file_pos);
    }
    if (inserted_text_depth != 0 || read_logical_source_line(false, false)) return false;
    skip_white_space();
    const char *p = curr_char_loc;
    if (curr_text_modif == nullptr && *p == '#' && p[1] != '#') {
      ++curr_char_loc;
      source_position_at(p, &pos_of_directive);
      return true;
    }
    if (curr_text_modif == nullptr && *p == '%' && p[1] == ':' && alternative_tokens_allowed) {
      curr_char_loc += 2;
      source_position_at(p, &pos_of_directive);
      return true;
    }
    drop_rest_of_line();
  }
}

// ---- Skipping ----------------------------------------------------------------------------------

static void skip_unknown_directive() {
  if (check_misra_c_2004) {
    report_misra(ec_misra_c_2004_19_16, &pos_of_directive_name);
  } else if (strict_ansi_mode) {
    pos_warning(ec_bad_pp_directive_keyword, &pos_of_directive_name);
  }
}

static bool skipped_elif_is_true() {
  currently_in_pp_if_skip = false;
  bool value = evaluate_condition();
  currently_in_pp_if_skip = true;
  return value;
}

// Groups nested in a skipped one only count: the skipping stays in this loop, however deep they
// are.
void skip_group(bool stop_at_else) {
  bool saved_skip = currently_in_pp_if_skip;
  int group_depth = pp_if_stack_depth;
  currently_in_pp_if_skip = true;
  for (bool done = false; !done;) {
    if (!find_next_directive()) {
      some_error_in_curr_directive = true;
      break;
    }
    bool in_own_group = pp_if_stack_depth == group_depth;
    switch (scan_directive_name()) {
      case drk_if:
      case drk_ifdef:
      case drk_ifndef:
        push_pp_if(&pos_of_directive);
        break;
      case drk_elif:
        if (pp_if_stack[pp_if_stack_depth].else_seen)
          pos_error(ec_pp_else_already_appeared, &pos_of_directive_name);
        else if (in_own_group && stop_at_else)
          done = skipped_elif_is_true();
        if (in_own_group) part_ends_guard();
        break;
      case drk_else:
        note_else();
        if (in_own_group) part_ends_guard();
        done = in_own_group && stop_at_else;
        if (done) check_end_of_directive(relaxed_extra_text);
        break;
      case drk_endif:
        if (in_own_group) {
          pp_endif_directive();
          done = true;
        } else {
          --pp_if_stack_depth;
        }
        break;
      case drk_unknown:
        skip_unknown_directive();
        break;
      default:
        break;
    }
    if (!done) drop_rest_of_line();
  }
  currently_in_pp_if_skip = saved_skip;
}

// ---- Life cycle --------------------------------------------------------------------------------

void preproc_one_time_init() {}

void preproc_trans_unit_init() {
  fetch_pp_tokens = false;
  expand_macros = true;
  do_string_literal_concatenation = true;
  pp_if_stack_depth = base_pp_if_stack_depth = -1;
  currently_in_pp_if_skip = false;
  some_error_in_curr_directive = actual_include_was_suppressed = false;
  pass_pp_directive_to_output = false;
  pp_output_trans_unit_init();
}

void preproc_init() {
  forget_include_searches();
}
