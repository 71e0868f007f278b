// How a message looks: the catalogue's text with its arguments, the header in front of it, the
// lines it is broken into, and the source line with the caret.
#include <cctype>
#include <cinttypes>
#include <cstring>

#include "DIAG/error_internal.h"
#include "driver/host_envir.h"
#include "driver/switches.h"

namespace {

constexpr std::size_t line_width = 79;

a_text_buffer *message_buffer;
a_text_buffer *output_buffer;
a_text_buffer *source_line_buffer;

a_text_buffer *ready_buffer(a_text_buffer **buffer, std::size_t size) {
  if (*buffer == nullptr) *buffer = alloc_text_buffer(size);
  reset_text_buffer(*buffer);
  return *buffer;
}

void add_number(a_text_buffer *out, std::int64_t number) {
  char digits[24];
  std::snprintf(digits, sizeof digits, "%" PRId64, number);
  f_add_string_to_text_buffer(out, digits);
}

// ---- Arguments ---------------------------------------------------------------------------------

struct a_file_place {
  const char *file = "";
  std::uint32_t line = 0;
  bool at_end = false;
};

a_file_place place_of(const a_source_position &pos) {
  a_file_place place;
  if (pos.seq != 0 && diag_hooks.file_and_line != nullptr) {
    diag_hooks.file_and_line(pos.seq, &place.file, &place.line, &place.at_end);
  }
  return place;
}

// "at line 3", "at line 3 of "x.h"", "in "x.h"", as seen from the file of the message.
void form_position(const a_diagnostic *d, const a_source_position &pos, a_text_buffer *out) {
  const a_file_place place = place_of(pos);
  if (place.at_end) {
    f_add_string_to_text_buffer(out, text_by_number(ect_1763));
    return;
  }
  const char *own_file = d->file != nullptr ? d->file : "";
  const bool other_file = *place.file != '\0' && std::strcmp(place.file, "-") != 0 &&
                          std::strcmp(place.file, own_file) != 0;
  if (place.line != 0) {
    f_add_string_to_text_buffer(out, text_by_number(ect_1732));
    add_number(out, place.line);
    if (other_file) f_add_string_to_text_buffer(out, text_by_number(ect_1733));
  } else if (other_file) {
    f_add_string_to_text_buffer(out, text_by_number(ect_2515));
  }
  if (other_file) {
    add_char_to_text_buffer(out, '"');
    f_add_string_to_text_buffer(out, format_file_name(place.file));
    add_char_to_text_buffer(out, '"');
  }
}

void form_declared(const a_diagnostic *d, a_symbol *symbol, a_text_buffer *out) {
  const a_source_position *pos =
      diag_hooks.position_of_symbol != nullptr ? diag_hooks.position_of_symbol(symbol) : nullptr;
  if (pos == nullptr || pos->seq == 0) {
    f_add_string_to_text_buffer(out, text_by_number(ect_2682));
    return;
  }
  if (place_of(*pos).at_end) {
    add_char_to_text_buffer(out, ' ');
    f_add_string_to_text_buffer(out, text_by_number(ect_1763));
    return;
  }
  f_add_string_to_text_buffer(out, text_by_number(ect_1762));
  form_position(d, *pos, out);
  add_char_to_text_buffer(out, ')');
}

struct a_directive {
  char kind;
  int index = 1;                  // among the arguments of its kind
  bool options[26] = {};          // by letter, in lower case
  bool translation_unit = false;  // T, which differs from t
  bool has(char letter) const { return options[letter - 'a']; }
};

void form_symbol(const a_diagnostic *d, const a_directive &directive, a_symbol *symbol,
                 a_text_buffer *out) {
  a_symbol_form form{};
  form.omit_kind = directive.has('o') || directive.has('a');
  form.with_parameters = directive.has('p');
  form.with_type = directive.has('t');
  form.full_signature = directive.has('f') || directive.has('t');
  form.with_declaration = directive.has('d');
  form.with_template_args = directive.has('a');
  form.with_translation_unit = directive.translation_unit;
  form.depth = -1;
  if (diag_hooks.form_symbol_name == nullptr || symbol == nullptr) {
    f_add_string_to_text_buffer(out, "<symbol>");
  } else {
    diag_hooks.form_symbol_name(symbol, &form, out);
  }
  if (form.with_declaration && symbol != nullptr) form_declared(d, symbol, out);
}

void form_argument(const a_diagnostic *d, const a_directive &directive, a_text_buffer *out) {
  const a_diag_arg_kind kind = directive.kind == 's'   ? dak_string
                               : directive.kind == 'p' ? dak_position
                               : directive.kind == 'n' ? dak_symbol
                               : directive.kind == 't' ? dak_type
                                                       : dak_number;
  const a_diag_arg *arg = d->arguments;
  for (int left = directive.index; arg != nullptr; arg = arg->next) {
    if (arg->kind == kind && --left == 0) break;
  }
  if (arg == nullptr) {
    f_add_string_to_text_buffer(out, "<?>");  // the report gave fewer arguments than the text has
    return;
  }
  switch (kind) {
    case dak_number:
      add_number(out, arg->number);
      break;
    case dak_position:
      form_position(d, arg->position, out);
      break;
    case dak_string:
      if (directive.has('q')) add_char_to_text_buffer(out, '"');
      f_add_string_to_text_buffer(out, arg->text != nullptr ? arg->text : "");
      if (directive.has('q')) add_char_to_text_buffer(out, '"');
      break;
    case dak_symbol:
      form_symbol(d, directive, arg->symbol, out);
      break;
    case dak_type:
      add_char_to_text_buffer(out, '"');
      if (diag_hooks.form_type == nullptr || arg->type == nullptr) {
        f_add_string_to_text_buffer(out, "<type>");
      } else {
        diag_hooks.form_type(arg->type, out);
      }
      add_char_to_text_buffer(out, '"');
      break;
  }
}

// The two spellings of the words in %[word].
constexpr struct {
  const char *word;
  const char *other;
} fill_ins[] = {
    {"managed", "C++/CX"},
    {"C++/CLI", "C++/CX mapping"},
    {"default", "cli mapping"},
    {"cli::array", "Platform::Array"},
    {"C++/CLI array", "C++/CX array"},
    {"System", "Platform"},
    {"gcnew", "ref new"},
};

// Behind "%[": gives the text behind the word.
const char *form_fill_in(const char *p, a_text_buffer *out) {
  const char *end = std::strchr(p, ']');
  if (end == nullptr) return p;
  const auto length = static_cast<std::size_t>(end - p);
  for (const auto &fill_in : fill_ins) {
    if (std::strlen(fill_in.word) == length && std::strncmp(fill_in.word, p, length) == 0) {
      f_add_string_to_text_buffer(out, use_cppcli_fill_ins ? fill_in.word : fill_in.other);
    }
  }
  return end + 1;
}

// Behind '%': reads "s", "sq2", "{nd}" and the like.
const char *read_directive(const char *p, a_directive *directive) {
  const bool braces = *p == '{';
  if (braces) ++p;
  directive->kind = *p++;
  for (; std::isalnum(static_cast<unsigned char>(*p)); ++p) {
    if (*p >= '0' && *p <= '9') {
      directive->index = *p - '0';
    } else if (*p == 'T') {
      directive->translation_unit = true;
    } else {
      directive->options[std::tolower(static_cast<unsigned char>(*p)) - 'a'] = true;
    }
  }
  if (braces && *p == '}') ++p;
  return p;
}

// ---- The header --------------------------------------------------------------------------------

struct a_severity_label {
  int lower, capital;  // numbers of texts
  char listing_letter;
};

a_severity_label label_of(an_error_severity severity) {
  switch (severity) {
    case es_note:
      return {ect_3045, ect_3046, 'N'};
    case es_remark:
    case es_power_remark:
      return {ect_1768, ect_1769, 'R'};
    case es_warning:
      return {ect_1770, ect_1771, 'W'};
    case es_advice:
      return {ect_2624, ect_2625, 'A'};
    case es_command_line_warning:
      return {ect_3017, ect_3018, 'W'};
    case es_catastrophe:
      return {ect_1774, ect_1775, 'F'};
    case es_command_line_error:
      return {ect_1776, ect_1777, 'F'};
    case es_internal_error:
      return {ect_1778, ect_1779, 'F'};
    default:
      return {ect_1772, ect_1773, 'E'};
  }
}

void count_diagnostic(an_error_severity severity) {
  switch (severity) {
    case es_remark:
    case es_power_remark:
    case es_advice:
      ++total_remarks;
      break;
    case es_warning:
    case es_command_line_warning:
      ++total_warnings;
      break;
    case es_discretionary_error:
    case es_error:
      ++total_errors;
      break;
    case es_catastrophe:
    case es_command_line_error:
    case es_internal_error:
      ++total_catastrophes;
      break;
    default:
      break;
  }
}

bool get_source_line(const a_diagnostic *d) {
  ready_buffer(&source_line_buffer, 256);
  return d->position.seq != 0 && !d->at_end_of_source && diag_hooks.source_line != nullptr &&
         diag_hooks.source_line(&d->position, source_line_buffer);
}

void form_header(const a_diagnostic *d, a_text_buffer *out, bool source_line_known) {
  auto add = [out](const char *text) { f_add_string_to_text_buffer(out, text); };
  if (processing_predefined_macro) {
    add(text_by_number(ect_2735));
    add(": ");
  }
  if (d->position.seq != 0) {
    if (d->at_end_of_source) {
      add(text_by_number(ect_1764));
    } else {
      const bool named = std::strcmp(d->file, "-") != 0;
      if (named) {
        add_char_to_text_buffer(out, '"');
        add(format_file_name(d->file));
        add_char_to_text_buffer(out, '"');
      }
      if (d->line != 0) {
        if (named) add(", ");
        add(text_by_number(named ? ect_1766 : ect_1765));
        add_char_to_text_buffer(out, ' ');
        add_number(out, d->line);
      }
      if (!source_line_known && d->position.column != 0) {
        add(" (");
        add(text_by_number(ect_1767));
        add_char_to_text_buffer(out, ' ');
        add_number(out, d->position.column);
        add_char_to_text_buffer(out, ')');
      }
    }
    add(": ");
  }
  const a_severity_label label = label_of(d->severity);
  add(text_by_number(d->position.seq != 0 ? label.lower : label.capital));
  if (display_error_number && d->code != ec_no_error) {
    add(" #");
    add_number(out, d->code);
    if (d->severity <= es_discretionary_error) add(text_by_number(ect_1780));
  }
  add(": ");
}

// ---- Layout ------------------------------------------------------------------------------------

void add_blanks(a_text_buffer *out, std::size_t count) {
  for (; count != 0; --count)
    add_char_to_text_buffer(out, ' ');
}

// How many bytes take one column: those of a character; what is none goes byte by byte.
std::size_t bytes_of_column(const char *p, bool multibyte) {
  bool invalid;
  const int length = f_mbc_length(p, &invalid, multibyte);
  return invalid ? 1 : static_cast<std::size_t>(length);
}

// Where the character behind the first `columns` ones begins, or length if there are no more.
std::size_t place_of_column(const char *text, std::size_t length, std::size_t columns) {
  std::size_t place = 0;
  for (; columns != 0 && place < length; --columns) {
    place += bytes_of_column(text + place, true);
  }
  return place < length ? place : length;
}

// Puts the text, which a null ends, to the output in lines of at most 79 columns, broken at blanks.
void lay_out(const char *text, std::size_t length, std::size_t first_indent,
             std::size_t other_indent, a_text_buffer *out) {
  const bool wrap = !brief_diagnostics && !do_not_wrap_diagnostics;
  std::size_t indent = first_indent;
  for (;;) {
    add_blanks(out, indent);
    if (!wrap) break;
    const std::size_t width = place_of_column(text, length, line_width - indent);
    if (width == length) break;
    std::size_t cut = text[width] == ' ' ? width : width - 1;
    while (cut > 0 && text[cut] != ' ')
      --cut;
    const std::size_t dropped = cut > 0 ? 1 : 0;
    if (cut == 0) cut = width;
    add_to_text_buffer(out, text, cut);
    add_char_to_text_buffer(out, '\n');
    text += cut + dropped;
    length -= cut + dropped;
    indent = other_indent;
  }
  add_to_text_buffer(out, text, length);
  add_char_to_text_buffer(out, '\n');
}

void write_to_raw_listing(const a_diagnostic *d, const char *text) {
  std::FILE *listing = diag_hooks.raw_listing != nullptr ? diag_hooks.raw_listing() : nullptr;
  if (listing == nullptr || d->kind == dk_sub_diagnostic || d->severity == es_note) return;
  const bool is_part = d->kind != dk_main && d->parent != nullptr;
  const char letter = label_of((is_part ? d->parent : d)->severity).listing_letter;
  std::fputc(is_part ? std::tolower(letter) : letter, listing);
  if (d->position.seq == 0) {
    std::fputs(" \"\" 0 0 ", listing);
  } else {
    std::fputs(" \"", listing);
    write_file_name(d->file, listing, true, false);
    std::fprintf(listing, "\" %lu %d ", static_cast<unsigned long>(d->line), d->position.column);
  }
  if (d->severity == es_internal_error) std::fputs("(internal error) ", listing);
  std::fputs(text, listing);
  std::fputc('\n', listing);
}

// The physical line, and below it a caret under the place.
void write_source_line(const a_diagnostic *d, a_text_buffer *out) {
  for (std::size_t i = 0; i < source_line_buffer->size_used; ++i) {
    const char c = source_line_buffer->buffer[i];
    add_char_to_text_buffer(out, c == '\r' || c == '\0' ? ' ' : c);
  }
  add_char_to_text_buffer(out, '\n');
  const char *p = text_of_buffer(source_line_buffer);
  const char *end = p + source_line_buffer->size_used;
  for (int column = 1; column < d->position.column; ++column) {
    if (p >= end) {
      add_char_to_text_buffer(out, ' ');
      continue;
    }
    add_char_to_text_buffer(out, *p == '\t' ? '\t' : ' ');
    p += bytes_of_column(p, multibyte_chars_in_source_enabled);
  }
  f_add_string_to_text_buffer(out, "^\n");
}

void write_record(a_diagnostic *d, a_text_buffer *out);

void write_list(const a_diag_list &list, a_text_buffer *out) {
  for (a_diagnostic *d = list.head; d != nullptr; d = d->next) {
    if (d->kind == dk_main && !severity_is_shown(d)) continue;  // a note that the user changed
    write_record(d, out);
  }
}

// A part without a place of its own tells positions as seen from its message.
void find_file_and_line(a_diagnostic *d) {
  d->file = d->parent != nullptr ? d->parent->file : "";
  if (d->position.seq == 0 || diag_hooks.file_and_line == nullptr) return;
  diag_hooks.file_and_line(d->position.seq, &d->file, &d->line, &d->at_end_of_source);
}

void write_record(a_diagnostic *d, a_text_buffer *out) {
  find_file_and_line(d);
  a_text_buffer *text = ready_buffer(&message_buffer, 1024);
  bool source_line_known = true;
  if (d->kind == dk_main) {
    if (!brief_diagnostics) source_line_known = get_source_line(d);
    form_header(d, text, source_line_known);
    count_diagnostic(d->severity);
  }
  const std::size_t header_length = text->size_used;
  expand_message(d, text);
  text_of_buffer(text);
  const bool first_of_contexts =
      d->kind == dk_context && d->parent != nullptr && d->parent->context_lines.head == d;
  const std::size_t indent = d->kind == dk_main             ? 0
                             : d->kind == dk_sub_diagnostic ? 1
                             : first_of_contexts            ? 10
                                                            : 12;
  lay_out(text->buffer, text->size_used, indent, indent + 10, out);
  write_to_raw_listing(d, text->buffer + header_length);

  write_list(d->supplements, out);
  if (d->kind == dk_main && !brief_diagnostics && d->position.seq != 0 && get_source_line(d)) {
    write_source_line(d, out);
  }
  write_list(d->sub_diagnostics, out);
  write_list(d->more_info, out);
  write_list(d->context_lines, out);
}

}  // namespace

void expand_message(const a_diagnostic *d, a_text_buffer *out) {
  for (const char *p = error_text(d->code); *p != '\0';) {
    if (*p != '%' || p[1] == '\0') {
      add_char_to_text_buffer(out, *p++);
      continue;
    }
    ++p;
    if (*p == '%') {
      add_char_to_text_buffer(out, *p++);
    } else if (*p == '[') {
      p = form_fill_in(p + 1, out);
    } else {
      a_directive directive{};
      p = read_directive(p, &directive);
      form_argument(d, directive, out);
    }
  }
}

void write_diagnostic(a_diagnostic *d) {
  a_text_buffer *out = ready_buffer(&output_buffer, 1024);
  write_record(d, out);
  if (!brief_diagnostics) add_char_to_text_buffer(out, '\n');
  std::fwrite(out->buffer, 1, out->size_used, f_error);
  std::fflush(f_error);
}

void format_message_text(an_error_code code, const char *const *strings, int string_count,
                         a_text_buffer *out) {
  a_diagnostic *d = alloc_diagnostic(dk_main, es_none, code, nullptr);
  for (int i = 0; i < string_count; ++i)
    add_string_argument(d, strings[i]);
  expand_message(d, out);
  free_diagnostic(d);
}
