// Characters of literals: escapes, universal and multibyte characters to code units, the search for
// the closing quote, and character literals.
#include <cstring>

#include "driver/host_envir.h"
#include "il/il_expr.h"
#include "semantics/const_ints.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/literals_internal.h"

// ---- Prefixes ----------------------------------------------------------------------------------

int scan_encoding_prefix(const char *text) {
  const char *p = text;
  int prefix = ep_none;
  if (*p == 'L') {
    prefix = ep_L;
    ++p;
  } else if (*p == 'U' && uliterals_enabled) {
    prefix = ep_U;
    ++p;
  } else if (*p == 'u' && uliterals_enabled) {
    prefix = p[1] == '8' ? ep_u8 : ep_u;
    p += prefix == ep_u8 ? 2 : 1;
  }
  if (*p == 'R' && raw_string_literals_enabled) {
    prefix |= ep_raw;
    ++p;
  }
  if (*p == '"') return prefix;
  if (*p != '\'' || (prefix & ep_raw) != 0) return -1;
  if (prefix == ep_u8 && !utf8_char_literals_enabled) return -1;
  return prefix;
}

int length_of_encoding_prefix(int prefix) {
  int kind = prefix & ep_kind_mask;
  return (kind == ep_none ? 0 : kind == ep_u8 ? 2 : 1) + ((prefix & ep_raw) != 0 ? 1 : 0);
}

int string_kind_of_prefix(int prefix) {
  switch (prefix & ep_kind_mask) {
    case ep_u:
      return 2;
    case ep_U:
      return 3;
    case ep_L:
      return 1;
    default:
      return 0;
  }
}

int unit_size_of_prefix(int prefix) {
  return character_size[string_kind_of_prefix(prefix)];
}

std::uint64_t unit_mask_of_prefix(int prefix) {
  a_host_large_integer mask;
  make_integer_value_mask(&mask, unit_size_of_prefix(prefix) * targ_char_bit);
  return mask;
}

bool prefix_is_utf16(int prefix) {
  return is_wide_prefix(prefix) && unit_size_of_prefix(prefix) == 2;
}

// ---- Single characters -------------------------------------------------------------------------

void init_char_conversion(a_char_conversion_state *state, const char *source, bool is_raw,
                          int prefix) {
  *state = {};
  state->source = source;
  state->utf16_output = prefix_is_utf16(prefix);
  state->bytes_are_text = (prefix & ep_kind_mask) == ep_u8;
  if (!is_raw || curr_text_modif != nullptr) return;
  state->next_modif = orig_line_modif_list;
  while (state->next_modif != nullptr && state->next_modif->loc < source)
    state->next_modif = state->next_modif->next;
}

namespace {

constexpr char replacement_character = '?';

void add_pending(a_char_conversion_state *state, std::uint32_t unit) {
  state->pending[state->pending_count++] = unit;
}

// The first unit of the pending ones.
std::uint32_t take_pending(a_char_conversion_state *state) {
  std::uint32_t unit = state->pending[state->pending_next++];
  if (state->pending_next == state->pending_count) state->pending_next = state->pending_count = 0;
  return unit;
}

std::uint32_t give_utf8(a_char_conversion_state *state, std::uint32_t value) {
  char bytes[4];
  int count = unicode_to_utf8(value, bytes);
  for (int i = 0; i < count; ++i)
    add_pending(state, static_cast<unsigned char>(bytes[i]));
  return take_pending(state);
}

std::uint32_t give_utf16(a_char_conversion_state *state, std::uint32_t value) {
  std::uint16_t units[2];
  int count = ucn_to_utf16(value, units);
  for (int i = 0; i < count; ++i)
    add_pending(state, units[i]);
  return take_pending(state);
}

// In a raw string the text of the file counts, not what trigraphs and splices made of it.
std::uint32_t give_original_text(a_char_conversion_state *state) {
  const an_orig_line_modif *modif = state->next_modif;
  state->next_modif = modif->next;
  switch (modif->kind) {
    case olm_trigraph:
      ++state->source;
      add_pending(state, '?');
      add_pending(state, '?');
      add_pending(state, modif->value);
      break;
    case olm_trigraph_splice:
      add_pending(state, '?');
      add_pending(state, '?');
      add_pending(state, '/');
      add_pending(state, '\n');
      break;
    case olm_line_splice:
      add_pending(state, '\\');
      add_pending(state, '\n');
      break;
    case olm_newline:
      state->source += 2;
      add_pending(state, '\n');
      break;
    case olm_null_char:
      state->source += 2;
      add_pending(state, 0);
      break;
  }
  return take_pending(state);
}

int hex_digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// \x: any number of digits. What does not fit is told by the mask of the caller.
std::uint64_t hexadecimal_escape(a_char_conversion_state *state, const char *start) {
  std::uint64_t value = 0;
  bool too_large = false;
  if (hex_digit(*state->source) < 0) {
    bool lenient = in_pcc_mode() || SVR4_C_mode;
    report_at(lenient ? es_warning : es_error, ec_bad_hex_digit, start);
    return 'x';
  }
  for (int digit; (digit = hex_digit(*state->source)) >= 0; ++state->source) {
    too_large |= value >> 60 != 0;
    value = value << 4 | static_cast<std::uint64_t>(digit);
  }
  return too_large ? UINT64_MAX : value;
}

std::uint64_t octal_escape(a_char_conversion_state *state) {
  std::uint64_t value = 0;
  for (int i = 0; i < 3 && *state->source >= '0' && *state->source <= '7'; ++i, ++state->source)
    value = value * 8 + static_cast<std::uint64_t>(*state->source - '0');
  return value;
}

// The value of \n and its like; -1: no simple escape.
int simple_escape(char c) {
  switch (c) {
    case '"':
    case '\'':
    case '?':
    case '\\':
      return c;
    case 'a':
      return in_pcc_mode() ? -1 : 7;
    case 'b':
      return 8;
    case 'f':
      return 12;
    case 'n':
      return 10;
    case 'r':
      return 13;
    case 't':
      return 9;
    case 'v':
      return 11;
    case 'e':
    case 'E':
      return gnu_mode ? 27 : -1;
    default:
      return -1;
  }
}

void report_unknown_escape(const char *start) {
  if (check_misra_c_2004)
    report_at(misra_required_severity, ec_misra_c_2004_4_1, start);
  else
    warn_at(ec_unrecognized_char_escape, start);
}

// One character that is no escape, of one or several bytes.
std::uint32_t plain_character(a_char_conversion_state *state, bool *is_multibyte) {
  unsigned char c = static_cast<unsigned char>(*state->source);
  *is_multibyte = false;
  if (c < 0x80 || !multibyte_chars_in_source_enabled) {
    ++state->source;
    return c;
  }
  std::uint32_t value;
  bool invalid = false;
  const char *start = state->source;
  state->source += mbc_to_wide_char(start, &value, &invalid, false);
  if (invalid) {
    report_at(es_discretionary_error, ec_bad_multibyte_char, start);
    return replacement_character;
  }
  *is_multibyte = true;
  return value;
}

// Cuts a value to the code unit, with a word about it.
std::uint32_t masked(std::uint64_t value, std::uint64_t mask, bool is_number, const char *start) {
  if (value > mask) {
    bool strict = strict_ansi_mode && !in_cplusplus() && is_number;
    report_at(strict ? strict_ansi_error_severity : es_warning, ec_bad_character_value, start);
  }
  return static_cast<std::uint32_t>(value & mask);
}

std::uint32_t escape_sequence(a_char_conversion_state *state, std::uint64_t mask,
                              bool to_narrow_text, bool utf8_output) {
  const char *start = state->source++;
  char c = *state->source;
  if (c >= '0' && c <= '7') return masked(octal_escape(state), mask, true, start);
  if (c == 'x') {
    ++state->source;
    return masked(hexadecimal_escape(state, start), mask, true, start);
  }
  if ((c == 'u' || c == 'U') && universal_character_names_allowed) {
    state->source = start;
    std::uint32_t value = scan_universal_character(&state->source, false, false, true);
    if (value > 0x10FFFF) return replacement_character;
    if (utf8_output) return give_utf8(state, value);
    if (state->utf16_output) return give_utf16(state, value);
    if (to_narrow_text && value >= 256 && !gnu_mode) warn_at(ec_character_not_latin_1, start);
    return masked(value, mask, false, start);
  }
  int value = simple_escape(c);
  if (value >= 0) {
    ++state->source;
    return static_cast<std::uint32_t>(value);
  }
  report_unknown_escape(start);
  bool is_multibyte;
  std::uint32_t character = plain_character(state, &is_multibyte);
  if (is_multibyte && utf8_output) return give_utf8(state, character);
  return masked(character, mask, false, start);
}

}  // namespace

std::uint32_t conv_single_char(a_char_conversion_state *state, bool process_escapes,
                               std::uint64_t mask, bool to_narrow_text, bool utf8_output) {
  if (state->pending_count != 0) return take_pending(state);
  if (state->next_modif != nullptr && state->next_modif->loc == state->source)
    return give_original_text(state);
  const char *start = state->source;
  if (*start == '\0') {
    state->source += 2;
    return 0;
  }
  if (*start == '\\' && process_escapes)
    return escape_sequence(state, mask, to_narrow_text, utf8_output);
  bool is_multibyte;
  std::uint32_t value = plain_character(state, &is_multibyte);
  if (value >= 0x80 && utf8_output && (is_multibyte || state->bytes_are_text))
    return give_utf8(state, value);
  return masked(value, mask, false, start);
}

std::uint32_t conv_single_wide_char(a_char_conversion_state *state, bool process_escapes,
                                    std::uint64_t mask) {
  bool is_text = state->pending_count == 0 &&
                 (state->next_modif == nullptr || state->next_modif->loc != state->source) &&
                 *state->source < 0;
  if (!is_text || !multibyte_chars_in_source_enabled)
    return conv_single_char(state, process_escapes, mask, false, false);
  const char *start = state->source;
  bool is_multibyte;
  std::uint32_t value = plain_character(state, &is_multibyte);
  if (value > mask && state->utf16_output) return give_utf16(state, value);
  return masked(value, mask, false, start);
}

// ---- The closing quote -------------------------------------------------------------------------

namespace {

struct a_quote_scan {
  const char *p;
  const an_orig_line_modif *modif;  // first record not passed, in a raw literal
  std::size_t units;
};

// Do ) and the delimiter stand here, followed by the quote, as the file has them? No splice may
// stand inside, and trigraphs only where the first delimiter has them.
bool raw_delimiter_ends_here(const a_quote_scan *scan, const a_raw_delimiter *raw, char quote) {
  const char *p = scan->p;
  if (*p != ')' || std::strncmp(p + 1, raw->text, raw->length) != 0 || p[raw->length + 1] != quote)
    return false;
  const an_orig_line_modif *modif = scan->modif;
  for (int i = 0; i < raw->trigraphs; ++i, modif = modif->next)
    if (modif == nullptr || modif->kind != olm_trigraph || modif->loc > p + raw->length)
      return false;
  return modif == nullptr || modif->loc > p + raw->length + 1;
}

void take_raw_modification(a_quote_scan *scan) {
  switch (scan->modif->kind) {
    case olm_trigraph:
      scan->units += 3;
      ++scan->p;
      break;
    case olm_line_splice:
    case olm_trigraph_splice:
      scan->units += scan->modif->kind == olm_line_splice ? 2 : 4;
      break;
    case olm_newline:
    case olm_null_char:
      ++scan->units;
      scan->p += 2;
      break;
  }
  scan->modif = scan->modif->next;
}

// \ and what belongs to it. The units of \u are an upper bound.
void take_escape(a_quote_scan *scan, int prefix) {
  const char *start = scan->p++;
  char c = *scan->p;
  if (c == '\0') return;  // the line ends: the caller sees it
  ++scan->p;
  std::size_t units = 1;
  if ((c == 'u' || c == 'U') && universal_character_names_allowed) {
    if (!is_wide_prefix(prefix))
      units = 4;
    else if (c == 'U' && prefix_is_utf16(prefix))
      units = 2;
  } else if (c == 'x') {
    while (hex_digit(*scan->p) >= 0)
      ++scan->p;
  } else if (c >= '0' && c <= '7') {
    for (int i = 1; i < 3 && *scan->p >= '0' && *scan->p <= '7'; ++i)
      ++scan->p;
    if (check_misra_c_2004 && !(c == '0' && scan->p == start + 2) && literals_are_judged())
      report_at(misra_required_severity, ec_misra_c_2004_7_1, start);
  }
  if (check_misra_c_2004 && (c == 'u' || c == 'U' || c == 'x') && literals_are_judged())
    report_at(misra_required_severity, ec_misra_c_2004_4_1, start);
  scan->units += units;
}

void report_null_character(const char *loc, bool is_header_name) {
  if (!literals_are_judged()) return;
  if (null_chars_allowed_in_source)
    warn_at(is_header_name ? ec_null_char_in_header_name : ec_null_char_in_string, loc);
  else
    report_at(es_discretionary_error, ec_invalid_char, loc);
}

void take_multibyte_character(a_quote_scan *scan, int prefix) {
  if (!multibyte_chars_in_source_enabled) {
    ++scan->p;
    scan->units += (prefix & ep_kind_mask) == ep_u8 ? 2 : 1;
    return;
  }
  bool invalid = false;
  int length = f_mbc_length(scan->p, &invalid, true);
  scan->p += length;
  scan->units += invalid                                  ? 1
                 : !is_wide_prefix(prefix)                ? static_cast<std::size_t>(length)
                 : length == 4 && prefix_is_utf16(prefix) ? 2
                                                          : 1;
}

}  // namespace

bool accum_quoted_string(std::size_t *length, bool is_header_name, int prefix, char quote,
                         const a_raw_delimiter *raw) {
  a_quote_scan scan = {curr_char_loc, nullptr, *length};
  if (raw != nullptr && curr_text_modif == nullptr) {
    scan.modif = orig_line_modif_list;
    while (scan.modif != nullptr && scan.modif->loc < scan.p)
      scan.modif = scan.modif->next;
  }
  bool ended_early = false;
  for (;;) {
    char c = *scan.p;
    if (scan.modif != nullptr && scan.modif->loc == scan.p) {
      take_raw_modification(&scan);
    } else if (raw != nullptr && c == ')' && raw_delimiter_ends_here(&scan, raw, quote)) {
      scan.p += raw->length + 1;
      break;
    } else if (c == quote && raw == nullptr) {
      break;
    } else if (c == '\0') {
      if (scan.p[1] != tm_null_char) {
        ended_early = true;
        break;
      }
      report_null_character(scan.p, is_header_name);
      ++scan.units;
      scan.p += 2;
    } else if (c == '\\' && raw == nullptr && !is_header_name) {
      take_escape(&scan, prefix);
    } else if (c < 0) {
      take_multibyte_character(&scan, prefix);
    } else {
      ++scan.units;
      ++scan.p;
    }
  }
  *length = scan.units;
  curr_char_loc = scan.p;
  return ended_early;
}

// ---- Character literals ------------------------------------------------------------------------

namespace {

// The type of a character literal, and whether its units are signed.
an_integer_kind kind_of_char_literal(int prefix, std::size_t count, bool *units_are_signed) {
  switch (prefix & ep_kind_mask) {
    case ep_L:
      *units_are_signed = int_kind_is_signed[targ_wchar_t_int_kind];
      return targ_wchar_t_int_kind;
    case ep_u:
      *units_are_signed = false;
      return targ_char16_t_int_kind;
    case ep_U:
      *units_are_signed = false;
      return targ_char32_t_int_kind;
    default:
      *units_are_signed = targ_has_signed_chars;
      return (in_cplusplus() && count < 2) || prefix == ep_u8 ? ik_char : ik_int;
  }
}

a_type *type_of_char_literal(int prefix, an_integer_kind kind) {
  switch (prefix & ep_kind_mask) {
    case ep_L:
      return eff_wchar_t_type();
    case ep_u:
      return eff_char16_t_type();
    case ep_U:
      return eff_char32_t_type();
    default:
      return integer_type(kind);
  }
}

// The code units put together, the first one highest or lowest as the target wants it.
a_host_large_integer accumulate_units(int prefix, const char *source, const char *end,
                                      bool units_are_signed, std::size_t *units_seen) {
  a_char_conversion_state state;
  init_char_conversion(&state, source, false, prefix);
  const int width = unit_size_of_prefix(prefix) * targ_char_bit;
  const std::uint64_t mask = unit_mask_of_prefix(prefix);
  a_host_large_integer value = 0;
  std::size_t index = 0;
  for (; state.source < end || state.pending_count != 0; ++index) {
    a_host_large_integer unit = is_wide_prefix(prefix)
                                    ? conv_single_wide_char(&state, true, mask)
                                    : conv_single_char(&state, true, mask, true, true);
    bool lost;
    if (targ_char_constant_first_char_most_significant) {
      if (index == 0) truncate_integer_value(&unit, width, units_are_signed);
      shift_left_integer_value(&value, index == 0 ? 0 : width, &lost);
      value |= unit;
    } else {
      a_host_large_integer low_mask;
      int place = width * static_cast<int>(index < 64 ? index : 64);
      make_integer_value_mask(&low_mask, place);
      truncate_integer_value(&unit, width, units_are_signed);
      shift_left_integer_value(&unit, place, &lost);
      value = (value & low_mask) | unit;
    }
  }
  *units_seen = index;
  return value;
}

// More units than the type takes: an error, or for a plain literal in GNU mode a masked value.
an_error_code check_unit_count(int prefix, std::size_t count) {
  int kind = prefix & ep_kind_mask;
  bool too_many = (kind == ep_U && count > 1) || (kind == ep_L && count > 1 && !in_cplusplus()) ||
                  (kind == ep_u8 && count > 1);
  if (kind == ep_none) too_many = !gnu_mode && count > static_cast<std::size_t>(targ_sizeof_int);
  if (!too_many) return ec_no_error;
  return kind == ep_u8 ? ec_utf8_char_lit_too_long : ec_too_many_characters;
}

void warn_of_several_units(int prefix, std::size_t count, const char *loc) {
  if ((prefix & ep_kind_mask) != ep_none)
    warn_at(ec_too_many_characters, loc);
  else if (count > static_cast<std::size_t>(targ_sizeof_int))
    warn_at(ec_leading_character_ignored_in_char_literal, loc);
  else
    warn_at(ec_multi_char_literal, loc);
}

}  // namespace

// Is all of [start, end) one character, by itself or as \U and its digits?
static bool is_one_character(const char *start, const char *end) {
  if (*start == '\\') return start[1] == 'U' && end - start == 10;
  bool invalid = false;
  return *start < 0 && f_mbc_length(start, &invalid, true) == end - start;
}

void conv_char_literal(std::size_t, an_error_code *err, const char **err_loc) {
  const char *start = start_of_curr_token;
  int prefix = scan_encoding_prefix(start);
  const char *source = start + length_of_encoding_prefix(prefix) + 1;
  bool units_are_signed;
  std::size_t count;
  const std::uint64_t errors = total_errors;
  kind_of_char_literal(prefix, 1, &units_are_signed);
  a_host_large_integer value =
      accumulate_units(prefix, source, end_of_curr_token, units_are_signed, &count);
  *err_loc = start;
  if (total_errors != errors) count = 1;  // what stands for a bad character is not judged again
  if (prefix == ep_u && count == 2 && prefix_is_utf16(prefix) &&
      is_one_character(source, end_of_curr_token)) {
    *err = ec_no_char16_t_representation;
    *err_loc = start + 1;
    return;
  }
  *err = check_unit_count(prefix, count);
  if (*err != ec_no_error) return;
  if (count > 1) warn_of_several_units(prefix, count, start);
  an_integer_kind kind = kind_of_char_literal(prefix, count, &units_are_signed);
  bool is_signed = kind == ik_char ? targ_has_signed_chars : int_kind_is_signed[kind];
  truncate_integer_value(&value, precision_of_integer_kind(kind), is_signed);
  set_unsigned_integer_constant(&const_for_curr_token, value, kind);
  const_for_curr_token.type = type_of_char_literal(prefix, kind);
  const_for_curr_token.is_literal = true;
  const_for_curr_token.is_char_literal = true;
}

a_token_kind scan_character(const char *start, int prefix) {
  curr_char_loc = start + length_of_encoding_prefix(prefix) + 1;
  std::size_t count = 0;
  bool ended_early = accum_quoted_string(&count, false, prefix, '\'', nullptr);
  const char *end = ended_early ? curr_char_loc : curr_char_loc + 1;
  if (ended_early && fetch_pp_tokens) {
    // A lone quote, as in text that is only copied, takes the rest of the line.
    set_curr_token_text(start, end);
    err_code_for_error_token = ec_unclosed_string;
    return tok_error;
  }
  const char *suffix = end;
  if (!ended_early) end = end_of_suffix_behind_quote(end);
  set_curr_token_text(start, end);
  if (fetch_pp_tokens) return tok_char_constant;
  end_of_curr_token = suffix - 1;
  an_error_code err = ec_no_error;
  const char *err_loc = start;
  if (ended_early) {
    err = ec_unclosed_string;
    expect_syntax_error_after(1);
  } else if (count == 0) {
    err = ec_zero_length_string;
  } else {
    conv_char_literal(count, &err, &err_loc);
  }
  if (err != ec_no_error) {
    error_at(err, err_loc);
    set_error_constant(&const_for_curr_token);
  }
  end_of_curr_token = end - 1;
  if (end == suffix) return tok_char_constant;
  if (err == ec_no_error && prefix == ep_none &&
      const_for_curr_token.type != integer_type(ik_char)) {
    error_at(ec_multichar_ud_lit, start);
    set_error_constant(&const_for_curr_token);
  }
  return make_ud_literal(suffix, end);
}
