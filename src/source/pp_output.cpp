// Preprocessed text. A line that nothing replaced is written as it stands; for any other line the
// tree of its replacements is walked, in the order of the text. Where two texts meet, a blank is
// written when the characters on both sides could join to another token.

#include "source/pp_output.h"

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/src_seq.h"
#include "source/input_stack_internal.h"
#include "source/lexical.h"

std::FILE *f_pp_output;
std::FILE *f_raw_listing;
bool do_not_put_curr_line_in_pp_output = true;
bool no_token_separators_in_this_line_of_pp_output;
std::uint32_t next_seq_in_pp_output = 1;
static std::uint32_t seq_of_line_put;     // the logical line that was written last
static std::uint32_t seq_of_line_listed;  // in the raw listing

namespace {

constexpr std::uint32_t max_gap_of_newlines = 5;

char last_char;  // written on this output line; 0: none
char char_before_last;
bool separator_is_owed;
const an_orig_line_modif *next_orig_modif;

// ---- Token separators --------------------------------------------------------------------------

// 2: goes on in an identifier or number; 1: joins with nothing; 3: operators.
int pp_lexical_category(char c) {
  unsigned char u = static_cast<unsigned char>(c);
  if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
      c == '.' || u >= 128 || (c == '$' && allow_dollar_in_id_chars))
    return 2;
  switch (c) {
    case '\t':
    case '\n':
    case '\v':
    case '\f':
    case ' ':
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
      return 1;
    case ':':
      return in_cplusplus() || alternative_tokens_allowed ? 3 : 1;
    default:
      return 3;
  }
}

bool chars_would_join(char next) {
  int category = pp_lexical_category(last_char);
  if (category != 1 && category == pp_lexical_category(next)) return true;
  if (next == '\'' && category == 2 && digit_separators_enabled) return true;
  bool is_quote = next == '"' || next == '\'';
  switch (last_char) {
    case '+':
    case '-':
      // "1e+" and "0xp-" go on as numbers
      return (char_before_last == 'e' || char_before_last == 'E' || char_before_last == 'p' ||
              char_before_last == 'P') &&
             pp_lexical_category(next) == 2;
    case 'e':
    case 'E':
    case 'p':
    case 'P':
      return next == '+' || next == '-';
    case 'L':
    case 'u':
    case 'U':
    case 'R':
    case '8':
      return is_quote;
    case '"':
    case '\'':
      return user_defined_literals_enabled && pp_lexical_category(next) == 2;
    default:
      return next == '.' && category == 2;
  }
}

void put_char(char c) {
  if (separator_is_owed) {
    separator_is_owed = false;
    if (!no_token_separators_in_this_line_of_pp_output && last_char != '\0' &&
        chars_would_join(c)) {
      putc_unlocked(' ', f_pp_output);
      last_char = ' ';
    }
  }
  putc_unlocked(c, f_pp_output);
  char_before_last = last_char;
  last_char = c;
}

// ---- Walking over the text ---------------------------------------------------------------------

// The source at p differed from the text, and is to be shown as it was. Gives the place behind.
const char *put_original(const char *p) {
  const an_orig_line_modif *m = next_orig_modif;
  while (m != nullptr && m->loc < p)
    m = m->next;
  for (; m != nullptr && m->loc == p; m = m->next) {
    if (!m->in_skipped_text) continue;
    switch (m->kind) {
      case olm_trigraph:
        put_char('?');
        put_char('?');
        put_char(static_cast<char>(m->value));
        p += 1;
        break;
      case olm_line_splice:
      case olm_trigraph_splice:
        if (m->kind == olm_trigraph_splice) {
          put_char('?');
          put_char('?');
        }
        put_char(m->kind == olm_trigraph_splice ? '/' : '\\');
        putc_unlocked('\n', f_pp_output);
        ++next_seq_in_pp_output;
        break;
      case olm_newline:
        putc_unlocked('\n', f_pp_output);
        ++next_seq_in_pp_output;
        p += 2;
        break;
      case olm_null_char:
        putc_unlocked('\0', f_pp_output);
        p += 2;
        break;
    }
    next_orig_modif = m->next;
    return p;
  }
  next_orig_modif = m;
  return nullptr;
}

// At a marker in text: gives the place behind it, null at the end of the text.
const char *put_marker(const char *p) {
  switch (p[1]) {
    case tm_end_of_line:
    case tm_end_of_buffer:
    case tm_end_of_modif:
      return nullptr;
    case tm_separator:
      separator_is_owed = true;
      return p + 2;
    case tm_null_char:
      put_char('\0');
      return p + 2;
    case tm_magic_comma:
      return p + 3;
    default:
      return p + 2;
  }
}

void put_text(const char *p, const a_source_line_modif *children, bool is_line);

void put_modif(const a_source_line_modif *m) {
  if (m->text_start == m->text_end) {
    separator_is_owed = true;
    return;
  }
  separator_is_owed = (m->flags & slm_blank) == 0 && last_char != ' ';
  put_text(m->text_start, m->first_child, false);
  separator_is_owed = true;
}

// The end of the characters from p on that stand for themselves: the next marker, child or, in the
// line, record of the original text.
const char *end_of_plain_text(const char *p, const a_source_line_modif *children, bool is_line) {
  const char *limit = children != nullptr ? children->loc : nullptr;
  if (is_line && next_orig_modif != nullptr && next_orig_modif->loc > p &&
      (limit == nullptr || next_orig_modif->loc < limit))
    limit = next_orig_modif->loc;
  if (limit == nullptr || limit < p) return p + std::strlen(p);
  const void *marker = std::memchr(p, '\0', static_cast<std::size_t>(limit - p));
  return marker != nullptr ? static_cast<const char *>(marker) : limit;
}

// At least one character; only the first can join with what is written already.
void put_plain(const char *p, const char *end) {
  put_char(*p++);
  const auto length = static_cast<std::size_t>(end - p);
  if (length == 0) return;
  fwrite_unlocked(p, 1, length, f_pp_output);
  char_before_last = length > 1 ? end[-2] : last_char;
  last_char = end[-1];
}

// A text from p to its end, with the children in their places.
void put_text(const char *p, const a_source_line_modif *children, bool is_line) {
  for (;;) {
    if (children != nullptr && p == children->loc) {
      put_modif(children);
      p = children->resume_loc;
      children = children->next;
      continue;
    }
    if (is_line && next_orig_modif != nullptr && next_orig_modif->loc <= p) {
      const char *behind = put_original(p);
      if (behind != nullptr) {
        p = behind;
        continue;
      }
    }
    if (*p != '\0') {
      const char *end = end_of_plain_text(p, children, is_line);
      put_plain(p, end);
      p = end;
      continue;
    }
    p = put_marker(p);
    if (p == nullptr) return;
  }
}

bool has_line_start_modif() {
  return source_line_modif_list != nullptr && source_line_modif_list->loc == curr_source_line &&
         source_line_modif_list->macro_id != nullptr;
}

bool needs_walk() {
  if (source_line_modif_list != nullptr) return true;
  for (const an_orig_line_modif *m = orig_line_modif_list; m != nullptr; m = m->next)
    if (m->in_skipped_text || m->kind == olm_null_char) return true;
  return false;
}

// Brings the output file to the line that is to be written.
void synchronize_line() {
  if (curr_seq_number == next_seq_in_pp_output) return;
  bool gap_is_small = curr_seq_number > next_seq_in_pp_output &&
                      curr_seq_number - next_seq_in_pp_output <= max_gap_of_newlines;
  if (!gap_is_small) {
    gen_pp_line_info(false);
    return;
  }
  for (; next_seq_in_pp_output < curr_seq_number; ++next_seq_in_pp_output)
    if (gen_line_info_in_pp_output) putc_unlocked('\n', f_pp_output);
}

}  // namespace

void gen_pp_output_for_curr_line() {
  if (f_pp_output == nullptr || curr_seq_number == 0) return;
  if (curr_seq_number == seq_of_line_put) return;
  if (do_not_put_curr_line_in_pp_output && !has_line_start_modif()) return;
  synchronize_line();
  seq_of_line_put = curr_seq_number;
  if (!needs_walk()) {
    std::fwrite(curr_source_line, 1,
                static_cast<std::size_t>(end_of_curr_source_line - curr_source_line), f_pp_output);
  } else {
    last_char = char_before_last = '\0';
    separator_is_owed = false;
    next_orig_modif = orig_line_modif_list;
    put_text(curr_source_line, source_line_modif_list, true);
  }
  putc_unlocked('\n', f_pp_output);
  ++next_seq_in_pp_output;
}

void gen_pp_line_info(bool at_next_line) {
  if (f_pp_output == nullptr || curr_ise == nullptr) return;
  const char *name = curr_ise->name;
  std::uint32_t line = curr_ise->line_number + 1;
  if (at_next_line) {
    next_seq_in_pp_output = seq_number_last_read + 1;
  } else {
    const char *full_name;
    bool at_end;
    conv_seq_to_file_and_line(curr_seq_number, &name, &full_name, &line, &at_end);
    next_seq_in_pp_output = curr_seq_number;
  }
  if (!gen_line_info_in_pp_output) return;
  std::fprintf(f_pp_output, "%s %lu \"", gnu_mode || pcc_preprocessing_mode ? "#" : "#line",
               static_cast<unsigned long>(line));
  write_file_name(name, f_pp_output, !pcc_preprocessing_mode, false);
  std::fputs("\"\n", f_pp_output);
}

// ---- Other listings ----------------------------------------------------------------------------

void gen_dependency_line(const char *file_name) {
  if (f_pp_output == nullptr) return;
  const char *object = object_file_name;
  if (object == nullptr)
    object = derived_name(
        primary_source_file_name != nullptr ? primary_source_file_name : file_name, ".o");
  std::fprintf(f_pp_output, "%s:", makefile_format_file_name(object));
  std::fprintf(f_pp_output, " %s\n", makefile_format_file_name(file_name));
}

void gen_included_file_line(const char *file_name, int depth) {
  if (f_pp_output == nullptr) return;
  std::fprintf(f_pp_output, "%*s%s\n", depth - 1, "", format_file_name(file_name));
}

// The expanded form, a line that starts with X, only for lines in which a macro was expanded,
// and no directives.
static void gen_expanded_raw_listing_output_for_curr_line() {
  if (do_not_put_curr_line_in_pp_output && !has_line_start_modif()) return;
  const a_source_line_modif *m = source_line_modif_list;
  while (m != nullptr && m->macro_id == nullptr)
    m = m->next;
  if (m == nullptr) return;
  std::FILE *saved = f_pp_output;
  f_pp_output = f_raw_listing;
  putc_unlocked('X', f_raw_listing);
  last_char = char_before_last = '\0';
  separator_is_owed = false;
  next_orig_modif = nullptr;
  put_text(curr_source_line, source_line_modif_list, true);
  putc_unlocked('\n', f_raw_listing);
  f_pp_output = saved;
}

// Source text up to end. A null byte is a record of its own.
static void list_source_text(const char *p, const char *end) {
  if (p < end) fwrite_unlocked(p, 1, static_cast<std::size_t>(end - p), f_raw_listing);
}

// The physical lines of the logical line as they were read, each with a letter for its state. False
// if they were listed before.
static bool list_curr_line() {
  if (curr_seq_number == 0 || end_of_all_input || seq_of_line_listed == curr_seq_number)
    return false;
  seq_of_line_listed = curr_seq_number;
  const char letter = curr_line_is_skipped ? 'S' : 'N';
  putc_unlocked(letter, f_raw_listing);
  const char *p = curr_source_line;
  for (const an_orig_line_modif *m = orig_line_modif_list; m != nullptr; m = m->next) {
    list_source_text(p, m->loc);
    p = m->loc;
    switch (m->kind) {
      case olm_trigraph:
        std::fprintf(f_raw_listing, "?\?%c", static_cast<char>(m->value));
        ++p;
        break;
      case olm_line_splice:
        std::fprintf(f_raw_listing, "\\\n%c", letter);
        break;
      case olm_trigraph_splice:
        std::fprintf(f_raw_listing, "?\?/\n%c", letter);
        break;
      case olm_newline:
        std::fprintf(f_raw_listing, "\n%c", letter);
        p += 2;
        break;
      case olm_null_char:
        putc_unlocked('\0', f_raw_listing);
        p += 2;
        break;
    }
  }
  list_source_text(p, end_of_curr_source_line);
  putc_unlocked('\n', f_raw_listing);
  return true;
}

// The line, and where macros were expanded the one that came of it.
void gen_raw_listing_for_curr_line() {
  if (f_raw_listing != nullptr && list_curr_line()) gen_expanded_raw_listing_output_for_curr_line();
}

void gen_rlisting_line_info(char flag) {
  if (f_raw_listing == nullptr || curr_ise == nullptr) return;
  std::fprintf(f_raw_listing, "L %lu \"", static_cast<unsigned long>(curr_ise->line_number + 1));
  write_file_name(curr_ise->name, f_raw_listing, true, false);
  putc_unlocked('"', f_raw_listing);
  if (depth_input_stack != 0) std::fprintf(f_raw_listing, " %c", flag);
  putc_unlocked('\n', f_raw_listing);
}

void finish_raw_listing_file() {
  if (f_raw_listing == nullptr) return;
  // A compilation that ends in the middle of a line lists it too: a message tells of it.
  if (curr_ise != nullptr && curr_line_is_whole) list_curr_line();
  std::fflush(f_raw_listing);
  int errno_value;
  bool failed = close_output_file(f_raw_listing, &errno_value);
  f_raw_listing = nullptr;
  if (failed) file_write_error(ect_1788, errno_value);
}

void pp_output_trans_unit_init() {
  do_not_put_curr_line_in_pp_output = true;
  next_seq_in_pp_output = 1;
  seq_of_line_put = seq_of_line_listed = 0;
}
