// Invocations of macros. The problem: the result must be scanned again together with the rest of
// the source, yet a macro must not be expanded again inside its own expansion. The method: the
// result is a text that the scanner enters at the place of the invocation and leaves at its end; a
// name is in its own expansion when the text that holds it, or one of the texts around that, came
// from the same macro.
//
//   #define f(x) x*g        f(2)(9):   text of f "2*g"; g is found at its end, its arguments are
//   read #define g(x) f(x)                  from the source behind, so that the text of f has been
//   left
//                                      and g's text "f(9)" stands in the source: f is expanded
//                                      again
//
// A name found in its own expansion is never expanded later either; the bytes 0,5 in front of it
// say so. The methods not taken are a set of hidden names for each token, which needs a record for
// each token, and a list of tokens as the result, which would have to be scanned by a second
// scanner.
//
// An object-like macro whose list is plain text costs no copy: its text is the one stored in the
// definition.

#include <algorithm>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "semantics/symbol_tbl.h"
#include "source/input_stack_internal.h"
#include "source/macro_internal.h"
#include "source/preproc.h"

int macro_depth;
int num_macro_invocations_in_process;
bool in_macro_arg_list;

static constexpr int max_macro_depth = 2000;  // of invocations inside arguments
// f(f(f(... scans its rest again at each level: the depth alone does not bound the work.
static constexpr std::size_t max_length_of_args = std::size_t{1} << 26;
static constexpr int max_pcc_recursion = 300;
static constexpr std::size_t max_pcc_result = std::size_t{1} << 22;

// ---- Recursion ---------------------------------------------------------------------------------

bool is_in_own_expansion(const a_symbol *macro_symbol) {
  if (macro_def_of(macro_symbol)->open_texts == 0) return false;
  for (const a_source_line_modif *m = curr_text_modif; m != nullptr; m = m->parent)
    if (m->macro_id == macro_symbol) return true;
  return false;
}

// f(a) f(a a) doubles its argument at each level of the recursion that old preprocessing allows.
static bool pcc_result_is_too_long(std::size_t length, const a_source_position *pos) {
  if (!pcc_preprocessing_mode || length <= max_pcc_result) return false;
  pos_error(ec_macro_recursion, pos);
  return true;
}

// Old preprocessing lets a macro expand in its own expansion, up to a limit.
static bool exceeds_pcc_recursion(const a_symbol *macro_symbol) {
  int count = 0;
  for (const a_source_line_modif *m = curr_text_modif; m != nullptr; m = m->parent)
    if (m->macro_id == macro_symbol) ++count;
  return count >= max_pcc_recursion;
}

// ---- Substitution ------------------------------------------------------------------------------

namespace {

// The result being written.
struct a_substitution {
  const a_macro_def *def;
  a_symbol *macro_symbol;
  a_macro_arg **args;  // by index, from 0
  char *start;
  char *out;
  char *operand_start;  // of what stands to the left of the next chunk
  char *unmarked_to;    // in front of this no name of the operand is marked any more; null: none
  bool pasting;         // the last chunk was ##
  a_concatenation_record *concatenations;
  a_concatenation_record *last_concatenation;
};

std::size_t expanded_length(const a_macro_arg *arg) {
  return arg->expanded_is_raw ? arg->raw.length : arg->expanded.length;
}
const char *expanded_text(const a_macro_arg *arg) {
  return arg->expanded_is_raw ? arg->raw.text : arg->expanded.text;
}

// No less than the length of the result.
std::size_t bound_of_result(const a_macro_def *def, a_macro_arg *const *args) {
  std::size_t bound = 8;
  for (const unsigned char *chunk = def->body; *chunk != chk_end;) {
    std::uint32_t number = chunk_number(chunk);
    switch (*chunk) {
      case chk_text:
        bound += number + 2;
        chunk += number;
        break;
      case chk_raw:
        bound += args[number - 1]->raw.length + 2;
        break;
      case chk_stringize:
      case chk_charize:
        bound += 2 * args[number - 1]->raw.length + 2;
        break;
      case chk_expanded:
        bound += expanded_length(args[number - 1]);
        break;
      default:
        break;
    }
    chunk += chunk_head_size;
  }
  return bound;
}

bool ends_in_identifier_char(const char *start, const char *end) {
  return end != start && (starts_identifier(end - 1) || (end[-1] >= '0' && end[-1] <= '9'));
}

// The identifier that ends the left operand of ## loses its inert mark: the token made may be
// expanded.
void unmark_last_name(char *start, char *end) {
  char *p = end;
  while (ends_in_identifier_char(start, p))
    --p;
  if (p != end && p - start >= 2 && p[-2] == '\0' && p[-1] == tm_inert) p[-1] = tm_separator;
}

void put(a_substitution *s, const char *text, std::size_t length) {
  s->operand_start = s->out;
  if (length != 0) std::memcpy(s->out, text, length);
  s->out += length;
}

// The operands of ## meet at place; the text from there on is written and not ended yet.
void note_concatenation(a_substitution *s, char *place) {
  s->out[0] = '\0';
  s->out[1] = tm_end_of_modif;
  a_pp_text_kind kind;
  const char *end = *place == '\0' ? place : end_of_pp_token(place, &kind, nullptr);
  add_concatenation_record(&s->concatenations, &s->last_concatenation, place, end, s->macro_symbol);
}

// The start of the last token of [start, end), which ends with 0,3.
const char *last_token_of(const char *start, const char *end) {
  const char *last = start;
  while (start < end) {
    if (*start == '\0') {
      start += 2;
    } else if (is_blank_char(*start)) {
      ++start;
    } else {
      a_pp_text_kind kind;
      last = start;
      start = end_of_pp_token(start, &kind, nullptr);
    }
  }
  return last;
}

// What is longer is no piece of a number; it would be looked through at each of its pastes.
constexpr std::ptrdiff_t longest_left_operand = 4096;

// The length of the first token of a right operand, when more tokens touch it that the token made
// by the paste would take in:  0x ## E+4  is 0xE, +, 4. Otherwise 0.
std::size_t length_to_keep_apart(const a_substitution *s, const char *text, std::size_t length) {
  a_pp_text_kind kind;
  const char *end = end_of_pp_token(text, &kind, nullptr);
  std::size_t first = static_cast<std::size_t>(end - text);
  if (first >= length || *end == '\0' || *end == ' ' || *end == '(' || *end == ',') return 0;
  if (s->out - s->operand_start > longest_left_operand) return 0;
  std::memcpy(s->out, text, length);
  s->out[length] = '\0';
  s->out[length + 1] = tm_end_of_modif;
  const char *joined = end_of_pp_token(last_token_of(s->operand_start, s->out), &kind, nullptr);
  return joined > s->out + first ? first : 0;
}

// A raw argument, or text behind ##: joins it to what stands to the left.
void put_pasted(a_substitution *s, const char *text, std::size_t length) {
  if (length == 0) return;
  bool joins = s->pasting && s->out != s->operand_start;
  if (joins) {
    unmark_last_name(std::max(s->operand_start, s->unmarked_to), s->out);
    s->unmarked_to = s->out;
    if (length > 2 && text[0] == '\0' && text[1] == tm_inert) {
      text += 2;
      length -= 2;
    }
  }
  char *left = s->operand_start;
  char *place = s->out;
  if (joins) {
    std::size_t first = length_to_keep_apart(s, text, length);
    if (first != 0) {
      put(s, text, first);
      *s->out++ = '\0';
      *s->out++ = tm_separator;
      text += first;
      length -= first;
    }
  }
  put(s, text, length);
  if (joins && check_concatenations) note_concatenation(s, place);
  if (joins) s->operand_start = left;
}

// , ## rest: without arguments for the rest the comma goes, otherwise nothing is joined.
bool put_gnu_comma_operand(a_substitution *s, const a_macro_arg *rest) {
  if (!extended_variadic_macros_allowed || (s->def->flags & mf_variadic) == 0) return false;
  char *end = s->out;
  while (end != s->operand_start && (end[-1] == ' ' || end[-1] == '\t'))
    --end;
  if (end == s->operand_start || end[-1] != ',') return false;
  if (rest->raw.length == 0)
    s->out = end - 1;
  else
    put(s, rest->raw.text, rest->raw.length);
  return true;
}

void put_raw(a_substitution *s, std::uint32_t number, bool after_text) {
  const a_macro_arg *arg = s->args[number - 1];
  bool is_rest = number == s->def->num_params;
  if (s->pasting && after_text && is_rest && put_gnu_comma_operand(s, arg)) return;
  if (s->pasting) {
    put_pasted(s, arg->raw.text, arg->raw.length);
  } else {
    put(s, arg->raw.text, arg->raw.length);
  }
}

// Behind the raw string with the quote at p; null: the quote opens no raw string. Inside it nothing
// is an escape.
const char *end_of_raw_string(const char *text, const char *p, const char *end) {
  if (!raw_string_literals_enabled || p == text || p[-1] != 'R') return nullptr;
  const char *start = p - 1;
  while (start != text && p - start < 3 && starts_identifier(start - 1))
    --start;
  a_pp_text_kind kind;
  bool is_raw;
  end_of_pp_token(start, &kind, &is_raw);
  if (!is_raw) return nullptr;
  const char *paren = p + 1;
  while (paren != end && *paren != '(')
    ++paren;
  const std::size_t length = static_cast<std::size_t>(paren - p - 1);
  for (const char *q = paren; q + length + 1 < end; ++q)
    if (*q == ')' && std::memcmp(q + 1, p + 1, length) == 0 && q[length + 1] == '"')
      return q + length + 2;
  return end;
}

// # parameter. Inside literals the quote and the backslash are escaped:  "a\n"  to  "\"a\\n\"".
void put_stringized(a_substitution *s, const a_macro_arg *arg, char quote) {
  char *out = s->out;
  s->operand_start = out;
  *out++ = quote;
  char in_literal = '\0';
  const char *end = arg->raw.text + arg->raw.length;
  for (const char *p = arg->raw.text; p != end; ++p) {
    char c = *p;
    if (c == '\0') {
      ++p;
      if (*p == tm_null_char && in_literal != '\0') {
        std::memcpy(out, "\\000", 4);
        out += 4;
      }
      continue;
    }
    if (c == '\n') {  // a line end inside a raw string
      *out++ = '\\';
      *out++ = 'n';
      continue;
    }
    if (in_literal == '\0') {
      if (const char *raw_end = c == '"' ? end_of_raw_string(arg->raw.text, p, end) : nullptr) {
        for (; p != raw_end; ++p) {
          if (*p == '\\' || *p == quote) *out++ = '\\';
          if (*p == '\n') *out++ = '\\';
          *out++ = *p == '\n' ? 'n' : *p;
        }
        --p;
        continue;
      }
      if (c == '"' || c == '\'') {
        a_pp_text_kind kind;
        end_of_pp_token(p, &kind, nullptr);
        if (kind == ptk_literal) in_literal = c;
      }
      if (c == quote) *out++ = '\\';
      *out++ = c;
    } else {
      if (c == '\\' || c == quote) *out++ = '\\';
      *out++ = c;
      if (c == '\\' && p + 1 != end && p[1] != '\0') {
        ++p;
        if (*p == '\\' || *p == quote) *out++ = '\\';
        *out++ = *p;
      } else if (c == in_literal) {
        in_literal = '\0';
      }
    }
  }
  *out++ = quote;
  s->out = out;
}

void put_all_chunks(a_substitution *s) {
  bool after_text = false;
  for (const unsigned char *chunk = s->def->body; *chunk != chk_end;) {
    std::uint32_t number = chunk_number(chunk);
    bool is_text = false;
    switch (*chunk) {
      case chk_text: {
        const char *text = reinterpret_cast<const char *>(chunk) + chunk_head_size;
        if (s->pasting)
          put_pasted(s, text, number);
        else
          put(s, text, number);
        chunk += number;
        is_text = true;
        break;
      }
      case chk_paste:
        s->pasting = true;
        chunk += chunk_head_size;
        continue;
      case chk_raw:
        put_raw(s, number, after_text);
        break;
      case chk_stringize:
        put_stringized(s, s->args[number - 1], '"');
        break;
      case chk_charize:
        put_stringized(s, s->args[number - 1], '\'');
        break;
      default: {
        const a_macro_arg *arg = s->args[number - 1];
        put(s, expanded_text(arg), expanded_length(arg));
        break;
      }
    }
    s->pasting = false;
    after_text = is_text;
    chunk += chunk_head_size;
  }
}

}  // namespace

// ---- Putting the result in place ---------------------------------------------------------------

// The invocation from delete_from (in the current text) to curr_char_loc becomes [start, end),
// which ends with 0,3.
// is_scanned: the scan goes on in the text; otherwise it only shows in the preprocessed text.
static a_source_line_modif *replace_invocation(const char *delete_from, const char *start,
                                               const char *end, a_symbol *macro_symbol,
                                               const a_source_position *pos,
                                               bool is_scanned = true) {
  if (start == end && !every_line_is_wanted()) return nullptr;  // nothing is left: the scan goes on
  a_source_line_modif *modif =
      add_source_line_modif(curr_text_modif, delete_from, curr_char_loc, start, end);
  modif->macro_id = macro_symbol;
  modif->fixed_position = *pos;
  if (start != end && is_scanned) enter_text_modif(modif);
  return modif;
}

static void expand_function_like(a_symbol *macro_symbol, const char *name,
                                 const a_source_position *pos) {
  const a_macro_def *def = macro_def_of(macro_symbol);
  const char *saved_delete = delete_source_from_loc;
  delete_source_from_loc = name;
  ++macro_depth;
  bool failed;
  a_macro_arg *args = scan_macro_args(macro_symbol, def, pos, &failed);
  --macro_depth;
  const char *delete_from = delete_source_from_loc;
  delete_source_from_loc = saved_delete;
  if (failed) {
    static const char no_text[] = {'\0', tm_end_of_modif};
    if (every_line_is_wanted() && delete_from != curr_char_loc)
      add_source_line_modif(curr_text_modif, delete_from, curr_char_loc, no_text, no_text);
    free_macro_args(args);
    return;
  }
  constexpr std::uint32_t num_direct_args = 50;
  a_macro_arg *direct_args[num_direct_args];
  a_macro_arg **arg_table = direct_args;
  std::size_t table_size = def->num_params * sizeof(a_macro_arg *);
  if (def->num_params > num_direct_args)
    arg_table = static_cast<a_macro_arg **>(alloc_general(table_size));
  std::uint32_t i = 0;
  for (a_macro_arg *a = args; a != nullptr && i < def->num_params; a = a->next)
    arg_table[i++] = a;
  a_substitution s = {};
  s.def = def;
  s.macro_symbol = macro_symbol;
  s.args = arg_table;
  std::size_t bound = bound_of_result(def, arg_table);
  s.start = s.out = s.operand_start = alloc_macro_text(bound);
  if (!pcc_result_is_too_long(bound, pos)) put_all_chunks(&s);
  s.out[0] = '\0';
  s.out[1] = tm_end_of_modif;
  release_macro_text_from(s.out + 2);
  a_source_line_modif *modif = replace_invocation(delete_from, s.start, s.out, macro_symbol, pos);
  if (modif != nullptr) modif->concatenations = s.concatenations;
  if (arg_table != direct_args) free_general(arg_table, table_size);
  free_macro_args(args);
}

static bool expand_magic(a_symbol *macro_symbol, const a_macro_def *def, const char *name,
                         const a_source_position *pos) {
  const char *saved_delete = delete_source_from_loc;
  delete_source_from_loc = name;
  ++macro_depth;
  std::size_t length;
  const char *text = magic_macro_text(macro_symbol, def, pos, &length);
  --macro_depth;
  const char *delete_from = delete_source_from_loc;
  delete_source_from_loc = saved_delete;
  if (text == nullptr) return false;
  char *copy = alloc_macro_text(length + 2);
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  copy[length + 1] = tm_end_of_modif;
  replace_invocation(delete_from, copy, copy + length, macro_symbol, pos,
                     def->magic != mm_pragma_operator);
  return true;
}

// Behind the first report nothing more is expanded in the invocation that stands in the source.
static bool may_be_expanded_here(a_symbol *macro_symbol, const char *name, bool *inert) {
  static bool recursion_was_reported;
  if (curr_text_modif == nullptr && num_macro_invocations_in_process == 0)
    recursion_was_reported = false;
  bool too_deep;
  if (pcc_preprocessing_mode) {
    too_deep = exceeds_pcc_recursion(macro_symbol);
  } else {
    *inert = curr_text_modif != nullptr && is_in_own_expansion(macro_symbol);
    if (*inert) return false;
    too_deep = num_macro_invocations_in_process >= max_macro_depth ||
               length_of_args_in_process > max_length_of_args;
  }
  if (!too_deep && !recursion_was_reported) return true;
  if (!recursion_was_reported) {
    a_source_position pos;
    source_position_at(name, &pos);
    pos_error(ec_macro_recursion, &pos);
  }
  recursion_was_reported = *inert = true;
  return false;
}

bool expand_macro_at(a_symbol *macro_symbol, const char *name, bool *inert) {
  *inert = false;
  if (!may_be_expanded_here(macro_symbol, name, inert)) return false;
  const a_macro_def *def = macro_def_of(macro_symbol);
  bool is_function_like = (def->flags & mf_object_like) == 0 && def->magic == mm_none;
  if (is_function_like && !left_paren_is_next()) return false;
  a_source_position pos;
  source_position_at(name, &pos);
  note_macro_reference(macro_symbol, &pos);
  bool expanded = true;
  ++num_macro_invocations_in_process;
  if (def->magic != mm_none) {
    expanded = expand_magic(macro_symbol, def, name, &pos);
  } else if (is_function_like) {
    expand_function_like(macro_symbol, name, &pos);
  } else if (def->text_length != 0 || def->body_length == 2) {
    const char *text = reinterpret_cast<const char *>(def->body);
    if (def->text_length != 0) text += chunk_head_size;
    replace_invocation(name, text, text + def->text_length, macro_symbol, &pos);
  } else {
    // An object-like list with ##: the texts on both sides join.
    a_substitution s = {};
    s.def = def;
    s.macro_symbol = macro_symbol;
    s.start = s.out = s.operand_start = alloc_macro_text(def->body_length + 8);
    put_all_chunks(&s);
    s.out[0] = '\0';
    s.out[1] = tm_end_of_modif;
    a_source_line_modif *modif = replace_invocation(name, s.start, s.out, macro_symbol, &pos);
    if (modif != nullptr) modif->concatenations = s.concatenations;
  }
  --num_macro_invocations_in_process;
  return expanded;
}

void macro_invocation(a_symbol *macro_symbol, bool *text_changed) {
  bool inert;
  *text_changed = expand_macro_at(macro_symbol, start_of_curr_token, &inert);
  if (inert) curr_token_is_inert_macro = true;
}

void choose_raw_or_expanded_arg() {
  curr_char_loc += 2;
}
