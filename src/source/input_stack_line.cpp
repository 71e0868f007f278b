// Logical source lines. A line is copied from the file's image in blocks of sixteen bytes; the copy
// stops only at a newline, a ? that may begin a trigraph, and a null byte, so that a plain line is
// one short loop. What is behind a line's text is decided at its newline, looking back: carriage
// returns and a backslash.
//
// Comments over many lines and other text without effect are passed over in the image, without ever
// being brought into the line buffer, unless something wants to see each line.

#include <emmintrin.h>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "source/input_stack_internal.h"
#include "source/lexical.h"
#include "source/pp_output.h"
#include "source/preproc.h"

char *curr_source_line;
char *end_of_curr_source_line;
const char *curr_char_loc;
std::uint32_t curr_seq_number;
std::uint32_t seq_number_last_read;
bool curr_line_is_skipped;
bool curr_line_is_whole;
bool end_of_all_input;
bool source_columns_need_computation;
an_orig_line_modif *orig_line_modif_list;
an_orig_line_modif *end_orig_line_modif_list;
bool splice_warning_is_deferred;

const char *curr_file_pos;
const char *curr_file_end;

static constexpr std::size_t largest_line_space = std::size_t{1} << 30;
static std::size_t line_space;  // size of the reserved space
static an_orig_line_modif *avail_orig_line_modifs;
static a_source_position deferred_splice_position;
static const char *ignored_trigraph;  // the first in this line; null: none
static bool ignored_trigraph_was_reported;

// ---- Setting up --------------------------------------------------------------------------------

void init_line_buffer() {
  if (curr_source_line == nullptr) {
    line_space = largest_line_space;
    char *space = reserve_text_space(&line_space);
    *space = ' ';
    curr_source_line = space + 1;
  }
  end_of_curr_source_line = curr_source_line;
  curr_source_line[0] = '\0';
  curr_source_line[1] = tm_end_of_buffer;
  curr_char_loc = curr_source_line;
  orig_line_modif_list = end_orig_line_modif_list = nullptr;
  splice_warning_is_deferred = ignored_trigraph_was_reported = false;
  ignored_trigraph = nullptr;
  curr_seq_number = seq_number_last_read = 0;
  end_of_all_input = false;
}

void ensure_min_curr_source_line_length(std::size_t size) {
  if (size + 64 > line_space) catastrophe(ec_requested_size_too_large);
}

void add_orig_line_modif(const char *loc, an_orig_line_modif_kind kind, std::uint32_t value) {
  an_orig_line_modif *modif = avail_orig_line_modifs;
  if (modif != nullptr)
    avail_orig_line_modifs = modif->next;
  else
    modif = static_cast<an_orig_line_modif *>(alloc_in_region(0, sizeof(an_orig_line_modif)));
  *modif = {nullptr, loc, kind, currently_in_pp_if_skip, value};
  if (orig_line_modif_list == nullptr)
    orig_line_modif_list = modif;
  else
    end_orig_line_modif_list->next = modif;
  end_orig_line_modif_list = modif;
  source_columns_need_computation = true;
}

static void free_orig_line_modifs() {
  invalidate_column_cache();
  if (orig_line_modif_list == nullptr) return;
  end_orig_line_modif_list->next = avail_orig_line_modifs;
  avail_orig_line_modifs = orig_line_modif_list;
  orig_line_modif_list = end_orig_line_modif_list = nullptr;
}

void count_physical_line() {
  ++seq_number_last_read;
  ++curr_ise->line_number;
  ++curr_ise->lines_read;
}

bool every_line_is_wanted() {
  return generate_pp_output || f_raw_listing != nullptr;
}

// ---- Copying -----------------------------------------------------------------------------------

// Copies bytes from from to *to up to a newline, a question mark or a null byte, where it stops;
// any byte of a multibyte character sets *non_ascii. Writes up to fifteen bytes too many.
static inline const char *copy_plain_text(const char *from, char **to, bool *non_ascii) {
  const __m128i newline = _mm_set1_epi8('\n');
  const __m128i question = _mm_set1_epi8('?');
  const __m128i null = _mm_setzero_si128();
  char *out = *to;
  unsigned high = 0;
  for (;;) {
    __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(from));
    _mm_storeu_si128(reinterpret_cast<__m128i *>(out), block);
    __m128i stops = _mm_or_si128(_mm_cmpeq_epi8(block, newline), _mm_cmpeq_epi8(block, question));
    stops = _mm_or_si128(stops, _mm_cmpeq_epi8(block, null));
    unsigned mask = static_cast<unsigned>(_mm_movemask_epi8(stops));
    unsigned top_bits = static_cast<unsigned>(_mm_movemask_epi8(block));
    if (mask != 0) {
      unsigned length = static_cast<unsigned>(__builtin_ctz(mask));
      high |= top_bits & ((1u << length) - 1);
      if (high != 0) *non_ascii = true;
      *to = out + length;
      return from + length;
    }
    high |= top_bits;
    from += 16;
    out += 16;
  }
}

// The character that ??c stands for; 0 when it is no trigraph.
static char trigraph_replacement(char c) {
  switch (c) {
    case '=':
      return '#';
    case '(':
      return '[';
    case '/':
      return '\\';
    case ')':
      return ']';
    case '\'':
      return '^';
    case '<':
      return '{';
    case '!':
      return '|';
    case '>':
      return '}';
    case '-':
      return '~';
    default:
      return 0;
  }
}

// At a ? of the image: stores what it stands for and goes behind it.
static const char *copy_question_mark(const char *p, char **out) {
  char replacement = p[1] == '?' ? trigraph_replacement(p[2]) : 0;
  if (replacement == 0 || in_pcc_mode()) {
    *(*out)++ = '?';
    return p + 1;
  }
  if (!trigraphs_allowed) {
    if (ignored_trigraph == nullptr && !ignored_trigraph_was_reported) ignored_trigraph = *out;
    *(*out)++ = '?';
    return p + 1;
  }
  add_orig_line_modif(*out, olm_trigraph, static_cast<unsigned char>(p[2]));
  *(*out)++ = replacement;
  if (check_misra_c_2004) {
    a_source_position pos;
    conv_line_loc_to_source_pos(*out - 1, &pos);
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_4_2, &pos);
  }
  return p + 3;
}

static bool is_line_blank(char c) {
  return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}

// Called with *out behind the text of a physical line that started at line_start. A line splice:
// the backslash goes away, *out is where the next line goes, and true is returned.
static bool is_line_spliced(char *line_start, char **out) {
  char *end = *out;
  if (end != line_start && end[-1] == '\r') {
    while (end != line_start && end[-1] == '\r')
      --end;
    *out = end;
  }
  char *last = end;
  while (last != line_start && is_line_blank(last[-1]))
    --last;
  if (last == line_start || last[-1] != '\\') return false;
  char *backslash = last - 1;
  if (last != end) {
    a_source_position pos;
    end_of_curr_source_line = end;
    conv_line_loc_to_source_pos(backslash, &pos);
    if (!gnu_mode) {
      splice_warning_is_deferred = !currently_in_pp_if_skip;
      deferred_splice_position = pos;
      return false;
    }
    if (!currently_in_pp_if_skip) pos_warning(ec_white_space_inside_splice, &pos);
  }
  an_orig_line_modif *trigraph = end_orig_line_modif_list;
  if (trigraph != nullptr && trigraph->loc == backslash && trigraph->kind == olm_trigraph) {
    trigraph->kind = olm_trigraph_splice;
    trigraph->value = seq_number_last_read + 1;
  } else {
    add_orig_line_modif(backslash, olm_line_splice, seq_number_last_read + 1);
  }
  *out = backslash;
  return true;
}

static void store_line_end(char *out) {
  out[0] = '\0';
  out[1] = tm_end_of_line;
  out[2] = '\0';
  out[3] = tm_end_of_buffer;
  end_of_curr_source_line = out;
}

static void report_incomplete_last_line(char *out) {
  a_source_position pos;
  conv_line_loc_to_source_pos(out, &pos);
  pos_diagnostic(
      strict_ansi_mode ? static_cast<an_error_severity>(strict_ansi_error_severity) : es_warning,
      ec_last_line_incomplete, &pos);
}

// The splice leads to a line that does not exist: its place is told from that of the physical line.
static void report_backslash_at_end(const char *line_start, const char *backslash) {
  a_source_position pos = make_source_position(
      seq_number_last_read, static_cast<std::uint32_t>(backslash - line_start) + 1);
  pos_diagnostic(gnu_mode ? es_warning : es_error, ec_last_line_backslash, &pos);
}

// Copies physical lines, joined by splices, to out; at least one stands in the file.
static void copy_logical_line(char *out) {
  char *line_start = out;
  const char *p = curr_file_pos;
  bool non_ascii = false;
  for (;;) {
    p = copy_plain_text(p, &out, &non_ascii);
    if (*p == '?') {
      p = copy_question_mark(p, &out);
      continue;
    }
    if (*p == '\0') {
      ++p;
      add_orig_line_modif(out, olm_null_char, 0);
      *out++ = '\0';
      *out++ = tm_null_char;
      continue;
    }
    if (p == curr_file_end) {  // the newline that only the image has
      curr_file_pos = p;
      if (non_ascii) source_columns_need_computation = true;
      bool spliced = is_line_spliced(line_start, &out);
      store_line_end(out);
      if (spliced)
        report_backslash_at_end(line_start, out);
      else
        report_incomplete_last_line(out);
      return;
    }
    ++p;
    if (!is_line_spliced(line_start, &out)) break;
    curr_file_pos = p;
    if (p == curr_file_end) {
      store_line_end(out);
      report_backslash_at_end(line_start, out);
      return;
    }
    line_start = out;
    count_physical_line();
  }
  curr_file_pos = p;
  if (non_ascii) source_columns_need_computation = true;
  store_line_end(out);
}

// ---- Reading -----------------------------------------------------------------------------------

static void finish_previous_line() {
  if (splice_warning_is_deferred) {
    splice_warning_is_deferred = false;
    pos_warning(ec_not_a_line_splice, &deferred_splice_position);
  }
  if (generate_pp_output) gen_pp_output_for_curr_line();
  if (f_raw_listing != nullptr) gen_raw_listing_for_curr_line();
  no_token_separators_in_this_line_of_pp_output = no_token_separators_in_pp_output;
}

static void report_ignored_trigraph() {
  a_source_position pos;
  conv_line_loc_to_source_pos(ignored_trigraph, &pos);
  ignored_trigraph = nullptr;
  if (currently_in_pp_if_skip) return;
  ignored_trigraph_was_reported = true;
  pos_warning(ec_trigraph_ignored, &pos);
}

// Puts the end of all input into the line buffer.
static void store_end_of_all_input() {
  end_of_all_input = true;
  curr_source_line[0] = '\0';
  curr_source_line[1] = tm_end_of_buffer;
  end_of_curr_source_line = curr_source_line;
  curr_char_loc = curr_source_line;
}

// At the end of a file: goes on in its includers. False: no text is left.
static bool find_file_with_text() {
  while (curr_file_pos == curr_file_end) {
    if (curr_ise == nullptr || curr_ise->do_not_pop) return false;
    pop_input_stack();
    if (curr_ise == nullptr) return false;
  }
  return true;
}

static bool append_physical_line() {
  if (curr_file_pos == curr_file_end) return true;
  char *out = const_cast<char *>(curr_char_loc);
  ensure_min_curr_source_line_length(static_cast<std::size_t>(out - curr_source_line) +
                                     static_cast<std::size_t>(curr_file_end - curr_file_pos) * 2);
  count_physical_line();
  curr_line_is_whole = false;
  copy_logical_line(out);
  curr_line_is_whole = true;
  ignored_trigraph = nullptr;  // the text of a string
  return false;
}

bool read_logical_source_line(bool pop_at_end, bool continuation) {
  if (continuation) return append_physical_line();
  pos_of_macro_invocation = null_source_position;
  finish_previous_line();
  if (curr_file_pos == curr_file_end) [[unlikely]] {
    if (!pop_at_end) return true;
    if (!find_file_with_text()) {
      clear_source_line_modifs();
      free_orig_line_modifs();
      source_columns_need_computation = false;
      store_end_of_all_input();
      curr_seq_number = seq_number_last_read + 1;  // what is missing is told "at end of source"
      do_not_put_curr_line_in_pp_output = true;
      return true;
    }
  }
  std::size_t rest = static_cast<std::size_t>(curr_file_end - curr_file_pos);
  if (rest > line_space / 4) ensure_min_curr_source_line_length(rest * 2);
  free_orig_line_modifs();
  clear_source_line_modifs();
  source_columns_need_computation = false;
  count_physical_line();
  curr_seq_number = seq_number_last_read;
  curr_char_loc = curr_source_line;
  curr_line_is_whole = false;
  copy_logical_line(curr_source_line);
  curr_line_is_whole = true;
  first_token_on_line_seen = false;
  curr_line_is_skipped = currently_in_pp_if_skip;
  do_not_put_curr_line_in_pp_output =
      currently_in_pp_if_skip || (in_preprocessing_directive && !pass_pp_directive_to_output);
  if (ignored_trigraph != nullptr) report_ignored_trigraph();
  return false;
}
