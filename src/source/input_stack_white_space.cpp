// White space, comments, and the ends of text between two tokens. A comment over many lines and
// runs of blank lines are passed over in the image of the file; the line buffer sees only their
// last line.

#include <emmintrin.h>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "source/input_stack_internal.h"
#include "source/lexical.h"
#include "source/macro.h"
#include "source/macro_internal.h"
#include "source/preproc.h"
#include "target/pragma.h"

std::uint8_t kind_of_white_space_skipped;
static bool illegal_comment_was_reported;

void init_white_space() {
  illegal_comment_was_reported = false;
}

// ---- Comments ----------------------------------------------------------------------------------

// /*ARGSUSED*/, /*VARARGS2*/ and /*NOTREACHED*/ act as pragmas in front of the next token.
static void note_lint_comment(const char *comment) {
  if (in_preprocessing_directive || currently_in_pp_if_skip) return;
  const char *word = comment + 2;
  while (*word == ' ' || *word == '\t')
    ++word;
  if (*word != 'A' && *word != 'V' && *word != 'N') return;
  a_pragma_kind kind;
  std::size_t length;
  if (std::strncmp(word, "ARGSUSED", 8) == 0) {
    kind = prk_ARGSUSED;
    length = 8;
  } else if (std::strncmp(word, "VARARGS", 7) == 0) {
    kind = prk_VARARGS;
    length = 7;
  } else if (std::strncmp(word, "NOTREACHED", 10) == 0) {
    kind = prk_NOTREACHED;
    length = 10;
  } else {
    return;
  }
  unsigned count = 0;
  const char *p = word + length;
  if (kind == prk_VARARGS)
    for (; *p >= '0' && *p <= '9'; ++p)
      count = count * 10 + static_cast<unsigned>(*p - '0');
  if ((*p >= 'a' && *p <= 'z') || (*p >= 'A' && *p <= 'Z')) return;
  a_source_position pos;
  source_position_at(comment, &pos);
  add_curr_token_pseudo_pragma(kind, &pos);
  (void)count;
}

static void report_nested_comment(const char *p) {
  a_source_position pos;
  if (currently_in_pp_if_skip) return;
  source_position_at(p, &pos);
  if (check_misra_c_2004 &&
      misra_c_2004_generate_diagnostic(ec_misra_c_2004_2_3, misra_required_severity))
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_2_3, &pos);
  else
    pos_warning(ec_nested_comment, &pos);
}

// The first *, / or null byte at or behind p.
static inline const char *next_comment_char(const char *p) {
  const __m128i star = _mm_set1_epi8('*');
  const __m128i slash = _mm_set1_epi8('/');
  const __m128i null = _mm_setzero_si128();
  for (;; p += 16) {
    __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
    __m128i stops = _mm_or_si128(_mm_cmpeq_epi8(block, star), _mm_cmpeq_epi8(block, slash));
    stops = _mm_or_si128(stops, _mm_cmpeq_epi8(block, null));
    unsigned mask = static_cast<unsigned>(_mm_movemask_epi8(stops));
    if (mask != 0) return p + __builtin_ctz(mask);
  }
}

// Passes over the lines of the image that lie wholly inside a comment. Stops in front of the line
// that ends the comment, or that needs a closer look: one with another /* in it, or one that a
// splice joins to the next.
static void skip_comment_lines_in_image() {
  const __m128i newline = _mm_set1_epi8('\n');
  const __m128i slash = _mm_set1_epi8('/');
  const char *line = curr_file_pos;
  const char *p = line;
  while (p < curr_file_end) {
    __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i *>(p));
    unsigned mask = static_cast<unsigned>(_mm_movemask_epi8(
        _mm_or_si128(_mm_cmpeq_epi8(block, newline), _mm_cmpeq_epi8(block, slash))));
    bool stop = false;
    for (; mask != 0; mask &= mask - 1) {
      const char *q = p + __builtin_ctz(mask);
      if (q >= curr_file_end) {
        stop = true;
        break;
      }
      if (*q == '/') {
        if ((q != line && q[-1] == '*') || q[1] == '*') {
          stop = true;
          break;
        }
        continue;
      }
      const char *last = q;
      while (last != line && (is_blank_char(last[-1]) || last[-1] == '\r'))
        --last;
      if (last != line && (last[-1] == '\\' || (last[-1] == '/' && trigraphs_allowed))) {
        stop = true;
        break;
      }
      count_physical_line();
      line = q + 1;
    }
    if (stop) break;
    p += 16;
  }
  curr_file_pos = line;
}

// A line of a comment ends at p: the next one is brought in. Null at the end of the file.
static const char *read_on_in_comment(const char *comment_start, const char *p) {
  if (delete_source_from_loc == nullptr && every_line_is_wanted() && !keep_comments_in_pp_output)
    delete_comment_from_output(comment_start, p, false);
  end_deletion_at(p);
  if (inserted_text_depth != 0) return nullptr;
  if (!every_line_is_wanted() && !check_misra_c_2004) skip_comment_lines_in_image();
  if (read_logical_source_line(false, false)) return nullptr;
  if (delete_source_from_loc != nullptr) delete_source_from_loc = curr_source_line;
  return curr_source_line;
}

const char *skip_block_comment(const char *p) {
  a_source_position start;
  source_position_at(p, &start);
  note_lint_comment(p);
  const char *comment_start = p;
  curr_char_loc = p;
  p += 2;
  for (;;) {
    p = next_comment_char(p);
    if (*p == '*') {
      if (p[1] != '/') {
        ++p;
        continue;
      }
      p += 2;
      break;
    }
    if (*p == '/') {
      if (p[1] == '*') {
        if (p[2] != '/') report_nested_comment(p);
        ++p;  // the * may begin the comment's end
      } else {
        ++p;
      }
      continue;
    }
    if (p[1] != tm_end_of_line && p[1] != tm_end_of_buffer && p[1] != tm_end_of_modif) {
      p += 2;  // a null byte of the source
      continue;
    }
    const char *next_line = read_on_in_comment(comment_start, p);
    if (next_line == nullptr) {
      pos_error(ec_comment_unclosed_at_eof, &start);
      return p;
    }
    p = comment_start = next_line;
  }
  if (delete_source_from_loc == nullptr && every_line_is_wanted() && !keep_comments_in_pp_output)
    delete_comment_from_output(comment_start, p, !pcc_preprocessing_mode);
  return p;
}

const char *skip_line_comment(const char *p) {
  const char *start = p;
  if (check_misra_c_2004) {
    a_source_position pos;
    source_position_at(p, &pos);
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_2_2, &pos);
  }
  if (curr_text_modif == nullptr) {
    p = end_of_curr_source_line;
  } else {
    while (p[0] != '\0' || (p[1] != tm_end_of_line && p[1] != tm_end_of_buffer))
      ++p;
  }
  splice_warning_is_deferred = false;
  if (delete_source_from_loc == nullptr && every_line_is_wanted() && !keep_comments_in_pp_output)
    delete_comment_from_output(start, p, false);
  return p;
}

// In C89 a // is two divisions.
static void report_end_of_line_comment(const char *p) {
  if (illegal_comment_was_reported || !strict_ansi_mode || currently_in_pp_if_skip) return;
  illegal_comment_was_reported = true;
  a_source_position pos;
  source_position_at(p, &pos);
  pos_warning(ec_illegal_end_of_line_comment, &pos);
}

// ---- White space -------------------------------------------------------------------------------

static void report_carriage_return(const char *p) {
  if (currently_in_pp_if_skip) return;
  a_source_position pos;
  source_position_at(p, &pos);
  pos_diagnostic(strict_ansi_mode
                     ? static_cast<an_error_severity>(strict_ansi_discretionary_severity)
                     : es_remark,
                 ec_stray_carriage_return, &pos);
}

static void report_null_char(const char *p) {
  if (currently_in_pp_if_skip) return;
  a_source_position pos;
  source_position_at(p, &pos);
  if (null_chars_allowed_in_source)
    pos_warning(ec_null_char_ignored, &pos);
  else
    pos_diagnostic(es_discretionary_error, ec_invalid_char, &pos);
}

// The text of the line ends at curr_char_loc. False: no more text.
static bool go_on_in_next_line() {
  if (inserted_text_depth != 0 || end_of_all_input) return false;
  bool deleting = delete_source_from_loc != nullptr;
  end_deletion_at(curr_char_loc - 2 >= curr_source_line ? curr_char_loc - 2 : curr_char_loc);
  if (!every_line_is_wanted()) {
    while (*curr_file_pos == '\n' && curr_file_pos != curr_file_end) {
      count_physical_line();
      ++curr_file_pos;
    }
  }
  bool at_end = read_logical_source_line(true, false);
  if (deleting) delete_source_from_loc = curr_source_line;
  return !at_end;
}

// At a null byte; false: the skipping stops here.
static bool skip_marker() {
  switch (curr_char_loc[1]) {
    case tm_end_of_buffer:
      return go_on_in_next_line();
    case tm_end_of_line:
      if (treat_newline_as_token || in_preprocessing_directive) return false;
      kind_of_white_space_skipped |= wsk_blanks;
      curr_char_loc += 2;
      return true;
    case tm_end_of_modif:
      if ((curr_text_modif->flags & slm_stop_at_end) != 0) return false;
      curr_char_loc = leave_text_modif();
      return true;
    case tm_inert:
    case tm_temporarily_inert:
      return false;
    case tm_null_char:
      report_null_char(curr_char_loc);
      kind_of_white_space_skipped |= wsk_blanks;
      curr_char_loc += 2;
      return true;
    case tm_end_of_invocation:
      pos_of_macro_invocation = null_source_position;
      curr_char_loc += 2;
      return true;
    case tm_comma_from_argument:
      comma_is_from_argument = true;
      curr_char_loc += 2;
      return true;
    case tm_raw_or_expanded:
      choose_raw_or_expanded_arg();
      return true;
    default:
      curr_char_loc += 2;
      return true;
  }
}

// At a /; false: it starts no comment. Macro text holds no comments: what looks like one there was
// made by ##.
static bool skip_comment() {
  const char *p = curr_char_loc;
  if (curr_text_modif != nullptr && (curr_text_modif->flags & slm_file_text) == 0) return false;
  if (p[1] == '*') {
    curr_char_loc = skip_block_comment(p);
  } else if (p[1] == '/') {
    if (!end_of_line_comments_allowed) {
      if (p[2] != '*') report_end_of_line_comment(p);
      return false;
    }
    curr_char_loc = skip_line_comment(p);
  } else {
    return false;
  }
  kind_of_white_space_skipped |= wsk_comment;
  return true;
}

void skip_white_space() {
  for (;;) {
    switch (*curr_char_loc) {
      case ' ':
      case '\t':
      case '\v':
      case '\f':
        kind_of_white_space_skipped |= wsk_blanks;
        ++curr_char_loc;
        break;
      case '\r':
        report_carriage_return(curr_char_loc);
        kind_of_white_space_skipped |= wsk_blanks;
        ++curr_char_loc;
        break;
      case '\n':  // only in text of the program's own
        kind_of_white_space_skipped |= wsk_blanks;
        ++curr_char_loc;
        break;
      case '\0':
        if (!skip_marker()) return;
        break;
      case '/':
        if (!skip_comment()) return;
        break;
      default:
        return;
    }
  }
}

// ---- Looking ahead for a left parenthesis ------------------------------------------------------

// Behind the newline that a splice removes, or p itself.
static const char *behind_splices(const char *p) {
  for (;;) {
    const char *q = p;
    if (*q == '\\')
      ++q;
    else if (trigraphs_allowed && q[0] == '?' && q[1] == '?' && q[2] == '/')
      q += 3;
    else
      return p;
    while (*q == '\r' || (gnu_mode && is_blank_char(*q)))
      ++q;
    if (*q != '\n' || q >= curr_file_end) return p;
    p = q + 1;
  }
}

// Behind the block comment whose inside starts at p in the image; null when it does not end.
static const char *behind_comment_in_image(const char *p) {
  while (p < curr_file_end) {
    const char *star =
        static_cast<const char *>(std::memchr(p, '*', static_cast<std::size_t>(curr_file_end - p)));
    if (star == nullptr) return nullptr;
    const char *q = behind_splices(star + 1);
    if (*q == '/') return q + 1;
    p = star + 1;
  }
  return nullptr;
}

// The first significant character of the lines of the file that are still to be read is (. A # at
// the start of a line is a directive, and ends the search.
static bool left_paren_is_next_in_file() {
  const char *p = curr_file_pos;
  while (p < curr_file_end) {
    p = behind_splices(p);
    if (is_blank_char(*p) || *p == '\r' || *p == '\n') {
      ++p;
    } else if (*p == '/') {
      const char *q = behind_splices(p + 1);
      if (*q == '*') {
        p = behind_comment_in_image(q + 1);
        if (p == nullptr) return false;
      } else if (*q == '/' && end_of_line_comments_allowed) {
        for (p = q; p < curr_file_end && *p != '\n'; ++p)
          while (behind_splices(p) != p)
            p = behind_splices(p);
      } else {
        return false;
      }
    } else {
      return *p == '(';
    }
  }
  return false;
}

// Behind the comment at p in a text, or null when it starts none or ends on a later line; *open
// tells the latter.
static const char *behind_comment_in_text(const char *p, bool *open) {
  *open = false;
  if (p[1] == '/' && end_of_line_comments_allowed) {
    while (p[0] != '\0' || (p[1] != tm_end_of_line && p[1] != tm_end_of_buffer))
      ++p;
    return p;
  }
  if (p[1] != '*') return nullptr;
  for (p += 2;; ++p) {
    if (p[0] == '*' && p[1] == '/') return p + 2;
    if (p[0] == '\0' && (p[1] == tm_end_of_line || p[1] == tm_end_of_buffer)) {
      *open = true;
      return nullptr;
    }
  }
}

bool left_paren_is_next() {
  const char *p = curr_char_loc;
  const a_source_line_modif *text = curr_text_modif;
  for (;;) {
    if (is_blank_char(*p) || *p == '\r') {
      ++p;
    } else if (*p == '/' && (text == nullptr || (text->flags & slm_file_text) != 0)) {
      bool open;
      p = behind_comment_in_text(p, &open);
      if (p == nullptr) {
        if (!open || in_preprocessing_directive) return false;
        const char *q = behind_comment_in_image(curr_file_pos);
        if (q == nullptr) return false;
        const char *saved = curr_file_pos;
        curr_file_pos = q;
        bool found = left_paren_is_next_in_file();
        curr_file_pos = saved;
        return found;
      }
    } else if (*p != '\0') {
      return *p == '(';
    } else if (p[1] == tm_end_of_modif) {
      if ((text->flags & slm_stop_at_end) != 0) return false;
      p = text->resume_loc;
      text = text->parent;
    } else if (p[1] == tm_end_of_line) {
      if (treat_newline_as_token || in_preprocessing_directive) return false;
      p += 2;
    } else if (p[1] == tm_end_of_buffer) {
      return inserted_text_depth == 0 && !end_of_all_input && left_paren_is_next_in_file();
    } else if (p[1] == tm_inert || p[1] == tm_temporarily_inert) {
      return false;
    } else {
      p += 2;
    }
  }
}
