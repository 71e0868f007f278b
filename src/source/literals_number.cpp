// Numbers: where they end, what form they have, and the value and type of integers and floats.
#include <cstring>

#include "il/il_expr.h"
#include "semantics/const_ints.h"
#include "semantics/float_pt.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/literals_internal.h"

namespace {

bool number_contains_digit_separator;

bool is_decimal_digit(char c) {
  return c >= '0' && c <= '9';
}

int digit_value(char c) {
  if (is_decimal_digit(c)) return c - '0';
  char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 99;
}

// What was found out about a number while its end was searched.
struct a_number_scan {
  const char *start;
  const char *p;  // behind what was taken
  int radix;
  bool is_float;
  bool is_imaginary_integer;
  const char *suffix;  // where the suffix starts
  an_error_code error;
  const char *error_loc;
};

void note_error(a_number_scan *scan, an_error_code code, const char *loc) {
  if (scan->error != ec_no_error) return;
  scan->error = code;
  scan->error_loc = loc;
}

// A ' between digits. False: it is none, the number ends.
bool take_digit_separator(a_number_scan *scan, int radix) {
  if (!in_cplusplus() || *scan->p != '\'' || digit_value(scan->p[1]) >= radix) return false;
  if (!digit_separators_enabled) {
    if (literals_are_judged()) warn_at(ec_digit_separators_not_enabled, scan->p);
    return false;
  }
  number_contains_digit_separator = true;
  ++scan->p;
  return true;
}

// A run of digits with separators; how many digits.
int scan_digits(a_number_scan *scan, int radix) {
  int count = 0;
  if (*scan->p == '\'' && digit_separators_enabled && in_cplusplus() && scan->p != scan->start) {
    note_error(scan, ec_bad_digit_separator_pos, scan->p);
    ++scan->p;
  }
  while (digit_value(*scan->p) < radix || (count > 0 && take_digit_separator(scan, radix))) {
    if (digit_value(*scan->p) < radix) ++count, ++scan->p;
  }
  if (*scan->p == '\'' && count > 0 && digit_separators_enabled && in_cplusplus()) {
    note_error(scan, ec_bad_digit_separator_pos, scan->p);
    ++scan->p;
  }
  return count;
}

// e+12, p-3. Without digits the text is taken, with an error.
void scan_exponent(a_number_scan *scan) {
  const char *start = scan->p++;
  scan->is_float = true;
  if (*scan->p == '+' || *scan->p == '-') ++scan->p;
  bool starts_with_separator = *scan->p == '\'' && digit_separators_enabled && in_cplusplus();
  if (is_decimal_digit(*scan->p) || starts_with_separator) {
    scan_digits(scan, 10);
  } else if (in_pcc_mode()) {
    if (literals_are_judged()) warn_at(ec_bad_float_constant, start);
  } else {
    note_error(scan, ec_bad_float_constant, start);
  }
}

// 0x digits . digits p exponent
void scan_hexadecimal(a_number_scan *scan) {
  scan->radix = 16;
  scan->p += 2;
  int digits = scan_digits(scan, 16);
  if (*scan->p == '.') {
    scan->is_float = true;
    ++scan->p;
    digits += scan_digits(scan, 16);
  }
  if (digits == 0) note_error(scan, ec_bad_hex_digit, scan->p);
  if ((*scan->p == 'p' || *scan->p == 'P') && (scan->is_float || digits > 0))
    scan_exponent(scan);
  else if (scan->is_float)
    note_error(scan, ec_bad_float_constant, scan->p);
}

void scan_binary(a_number_scan *scan) {
  scan->radix = 2;
  scan->p += 2;
  if (scan_digits(scan, 2) == 0) note_error(scan, ec_bad_binary_digit, scan->p);
  if (is_decimal_digit(*scan->p)) {
    note_error(scan, ec_bad_binary_digit, scan->p);
    scan_digits(scan, 10);
  }
}

// Decimal and octal: which one is told by the first digit, and that no point or exponent follows.
void scan_decimal(a_number_scan *scan) {
  bool leading_zero = *scan->p == '0';
  scan_digits(scan, 10);
  const char *end_of_integer = scan->p;
  if (*scan->p == '.') {
    scan->is_float = true;
    ++scan->p;
    scan_digits(scan, 10);
  }
  if (*scan->p == 'e' || *scan->p == 'E') scan_exponent(scan);
  if (scan->is_float || !leading_zero) return;
  scan->radix = 8;
  if (in_pcc_mode()) return;  // 8 and 9 pass as digits
  for (const char *p = scan->start; p < end_of_integer; ++p)
    if (*p == '8' || *p == '9') note_error(scan, ec_bad_octal_digit, p);
}

bool takes_imaginary_letter(char c) {
  return gnu_mode && !user_defined_literals_enabled &&
         (c == 'i' || c == 'j' || c == 'I' || c == 'J');
}

// f F l L, with float80 w W, with float128 q Q; i or j before or behind.
void scan_float_suffix(a_number_scan *scan) {
  bool imaginary_seen = false, kind_seen = false;
  for (;; ++scan->p) {
    char c = *scan->p;
    bool is_kind = c == 'f' || c == 'F' || c == 'l' || c == 'L';
    if (!imaginary_seen && gnu_mode && (c == 'i' || c == 'j' || c == 'I' || c == 'J'))
      imaginary_seen = true;
    else if (!kind_seen && is_kind)
      kind_seen = true;
    else
      return;
  }
}

// u once, l up to twice, in either order.
void scan_integer_suffix(a_number_scan *scan) {
  bool unsigned_seen = false;
  int longs = 0;
  const char *first_long = nullptr;
  for (;; ++scan->p) {
    char c = *scan->p;
    if (!unsigned_seen && (c == 'u' || c == 'U')) {
      unsigned_seen = true;
    } else if ((c == 'l' || c == 'L') &&
               (longs == 0 || (longs == 1 && first_long + 1 == scan->p))) {
      if (longs++ == 0) first_long = scan->p;
    } else {
      break;
    }
  }
  if (longs == 2 && strict_ansi_mode && !long_long_is_standard && literals_are_judged())
    report_at(strict_ansi_discretionary_severity, ec_nonstd_long_long, first_long);
  if (takes_imaginary_letter(*scan->p)) {
    scan->is_imaginary_integer = true;
    ++scan->p;
  }
}

// Does the number go on over all that a preprocessing number may hold?
bool takes_rest_of_pp_number() {
  if (in_pcc_mode()) return false;
  return gnu_mode || strict_ansi_mode || user_defined_literals_enabled ||
         (fetch_pp_tokens &&
          (curr_text_modif != nullptr || in_preprocessing_directive || !generate_pp_output));
}

// The exponent signs belong to a preprocessing number, so that 0xe+1 is one token.
const char *end_of_pp_number(const char *p) {
  for (;;) {
    int length = 1;
    if ((*p == '+' || *p == '-') &&
        (p[-1] == 'e' || p[-1] == 'E' ||
         ((p[-1] == 'p' || p[-1] == 'P') && hex_floating_point_constants_allowed))) {
    } else if (is_id_char[static_cast<int>(*p)] || *p == '.') {
    } else if (*p == '\'' && digit_separators_enabled && in_cplusplus() &&
               is_id_char[static_cast<int>(p[1])]) {
    } else if (*p < 0 && f_is_identifier_char(p, false, &length)) {
    } else if (*p != '\\' || (length = length_of_universal_character(p)) == 0) {
      return p;
    }
    p += length;
  }
}

void scan_form_of_number(a_number_scan *scan) {
  const char *p = scan->start;
  number_contains_digit_separator = false;
  if (p[0] == '0' && (p[1] == 'x' || p[1] == 'X'))
    scan_hexadecimal(scan);
  else if (p[0] == '0' && (p[1] == 'b' || p[1] == 'B') && binary_literals_allowed)
    scan_binary(scan);
  else
    scan_decimal(scan);
  scan->suffix = scan->p;
  if (scan->is_float)
    scan_float_suffix(scan);
  else
    scan_integer_suffix(scan);
}

void convert_number(const a_number_scan *scan, an_error_code *err, const char **err_loc) {
  if (check_misra_c_2004 && scan->radix == 8 && !scan->is_float && scan->suffix - scan->start > 1)
    pos_diagnostic(misra_required_severity, ec_misra_c_2004_7_1, &pos_curr_token);
  if (!scan->is_float) {
    conv_integer_literal(scan->radix, err, err_loc);
    return;
  }
  if (scan->radix == 16 && !hex_floating_point_constants_allowed) {
    if (strict_ansi_error_severity >= es_discretionary_error) {
      *err = ec_hex_fp_constant;
      *err_loc = scan->start;
      return;
    }
    warn_at(ec_hex_fp_constant, scan->start);
  }
  conv_float_literal(scan->radix == 16, err, err_loc);
}

void take_number_error(an_error_code err, const char *err_loc) {
  error_at(err, err_loc);
  set_error_constant(&const_for_curr_token);
}

}  // namespace

void report_at(an_error_severity severity, an_error_code code, const char *loc) {
  a_source_position pos;
  source_position_at(loc, &pos);
  pos_diagnostic(severity, code, &pos);
}

void not_supported_at(const char *loc, const char *subject) {
  a_source_position pos;
  source_position_at(loc, &pos);
  pos_st_error(ec_not_supported, &pos, subject);
}

// 12_km: converted without the suffix. A value that does not fit matters only to an operator that
// does not take the text.
static a_token_kind scan_ud_number(const a_number_scan *scan, const char *end) {
  end_of_curr_token = scan->suffix - 1;
  len_of_curr_token = static_cast<std::size_t>(scan->suffix - scan->start);
  an_error_code err;
  const char *err_loc;
  convert_number(scan, &err, &err_loc);
  end_of_curr_token = end - 1;
  len_of_curr_token = static_cast<std::size_t>(end - scan->start);
  if (err == ec_hex_fp_constant) return take_number_error(err, err_loc), tok_float_constant;
  return make_ud_number(scan->start, scan->suffix, end, scan->is_float, err);
}

a_token_kind scan_number(const char *start) {
  a_number_scan scan = {start, start, 10, false, false, start, ec_no_error, start};
  if (exp_digit_sequence) {
    while (is_decimal_digit(*scan.p))
      ++scan.p;
    set_curr_token_text(start, scan.p);
    return tok_digit_sequence;
  }
  scan_form_of_number(&scan);
  const char *end = scan.p;
  if (takes_rest_of_pp_number())
    end = end_of_pp_number(end);
  else if (in_pcc_mode() && fetch_pp_tokens)
    while (is_id_char[static_cast<int>(*end)])
      ++end;
  set_curr_token_text(start, end);
  if (fetch_pp_tokens) return tok_pp_number;

  a_token_kind kind = scan.is_float ? tok_float_constant : tok_int_constant;
  if (end != scan.p) {
    if (!user_defined_literals_enabled)
      note_error(&scan, ec_extra_chars_on_number, scan.p);
    else if (const char *suffix_end = end_of_ud_suffix(scan.suffix); suffix_end != end)
      note_error(&scan, ec_bad_user_defined_suffix, suffix_end);
    else if (scan.error == ec_no_error)
      return scan_ud_number(&scan, end);
  }
  an_error_code err = scan.error;
  const char *err_loc = scan.error_loc;
  if (err == ec_no_error && scan.is_imaginary_integer) {
    report_at(es_discretionary_error, ec_complex_integral_type, scan.p - 1);
    set_error_constant(&const_for_curr_token);
    return kind;
  }
  if (err == ec_no_error) convert_number(&scan, &err, &err_loc);
  if (err != ec_no_error) take_number_error(err, err_loc);
  return kind;
}

// ---- Integers ----------------------------------------------------------------------------------

namespace {

struct an_integer_suffix {
  const char *start;
  bool is_unsigned;
  int longs;
  an_error_code error;
};

an_integer_suffix read_integer_suffix(const char *start, const char *end) {
  an_integer_suffix suffix = {end, false, 0, ec_no_error};
  while (suffix.start > start) {
    char c = suffix.start[-1];
    if (c == 'u' || c == 'U')
      suffix.is_unsigned = true;
    else if (c == 'l' || c == 'L')
      ++suffix.longs;
    else
      break;
    --suffix.start;
  }
  if (suffix.longs == 2 && strict_ansi_mode) {
    const char *first = suffix.start;
    if (*first == 'u' || *first == 'U') ++first;
    if (first[0] != first[1]) suffix.error = ec_bad_suffix;
  }
  return suffix;
}

a_host_large_integer accumulate_digits(const char *start, const char *end, int radix,
                                       bool *overflow) {
  a_host_large_integer value = 0;
  bool lost;
  *overflow = false;
  for (const char *p = radix == 16 || radix == 2 ? start + 2 : start; p < end; ++p) {
    if (*p == '\'') continue;
    if (radix == 10) {
      multiply_integer_values(&value, 10, false, &lost);
      *overflow |= lost;
    } else {
      shift_left_integer_value(&value, radix == 16 ? 4 : radix == 8 ? 3 : 1, &lost);
      *overflow |= lost;
    }
    add_integer_values(&value, static_cast<a_host_large_integer>(digit_value(*p)), false, &lost);
    *overflow |= lost;
  }
  return value;
}

bool fits(a_host_large_integer value, an_integer_kind kind) {
  return value <= max_integer_value_of_kind[kind];
}

void make_integer(a_host_large_integer value, an_integer_kind kind) {
  set_unsigned_integer_constant(&const_for_curr_token, value, kind);
}

// In #if every value has the greatest integer type.
an_error_code make_pp_integer(a_host_large_integer value, bool is_unsigned, bool is_decimal,
                              bool overflow) {
  if (overflow) return ec_integer_too_large;
  bool needs_unsigned = !fits(value, targ_intmax_kind);
  if (needs_unsigned && is_decimal && !is_unsigned && !gnu_mode) return ec_integer_too_large;
  make_integer(value, is_unsigned || needs_unsigned ? targ_uintmax_kind : targ_intmax_kind);
  return ec_no_error;
}

// K&R C: the type is the first that holds the bits, and always signed.
void make_pcc_integer(a_host_large_integer value, bool is_decimal, int longs, bool overflow,
                      const char *loc) {
  an_integer_kind kind = ik_long_long;
  bool too_large = overflow;
  if (overflow)
    ;  // what is left of the value says nothing: the greatest type
  else if (longs == 0 && fits(value, is_decimal ? ik_int : ik_unsigned_int))
    kind = ik_int;
  else if (fits(value, ik_unsigned_long))
    kind = ik_long;
  else if (!fits(value, ik_unsigned_long_long))
    too_large = true;
  if (too_large) warn_at(ec_integer_too_large, loc);
  truncate_integer_value(&value, precision_of_integer_kind(kind), true);
  make_integer(value, kind);
}

// The list of types of the standards: int, unsigned, long, unsigned long, long long and its
// unsigned, from the first that the suffix allows; a decimal without u takes no unsigned type
// where long long follows.
an_error_code make_standard_integer(a_host_large_integer value, bool is_unsigned, bool is_decimal,
                                    int longs, const char *loc) {
  bool decimal_signed = is_decimal && !is_unsigned;
  if (longs == 0) {
    if (!is_unsigned && fits(value, ik_int)) return make_integer(value, ik_int), ec_no_error;
    if (!decimal_signed && fits(value, ik_unsigned_int))
      return make_integer(value, ik_unsigned_int), ec_no_error;
  }
  if (longs < 2) {
    if (!is_unsigned && fits(value, ik_long)) return make_integer(value, ik_long), ec_no_error;
    bool skips_unsigned = decimal_signed && long_long_promotion_allowed;
    if (!skips_unsigned && fits(value, ik_unsigned_long))
      return make_integer(value, ik_unsigned_long), ec_no_error;
    if (strict_ansi_mode && !long_long_is_standard) return ec_integer_too_large;
  }
  if (!is_unsigned && fits(value, ik_long_long))
    return make_integer(value, ik_long_long), ec_no_error;
  bool c99 = !in_cplusplus() && std_version >= 199901;
  if (decimal_signed && c99) {
    warn_at(ec_c99_constant_in_unsigned_long_long_range, loc);
    return make_integer(value, ik_unsigned_long_long), ec_no_error;
  }
  return make_integer(value, ik_unsigned_long_long), ec_no_error;
}

}  // namespace

void conv_integer_literal(int radix, an_error_code *err, const char **err_loc) {
  const char *start = start_of_curr_token, *end = end_of_curr_token + 1;
  an_integer_suffix suffix = read_integer_suffix(start, end);
  *err = suffix.error;
  *err_loc = suffix.error != ec_no_error ? suffix.start : start;
  if (*err != ec_no_error) return;
  bool overflow;
  bool is_decimal = radix == 10;
  a_host_large_integer value = accumulate_digits(start, suffix.start, radix, &overflow);
  bool greatest_type_in_pp_if = (!in_cplusplus() && std_version >= 199901) || gnu_mode;
  if (in_pp_if_expression && greatest_type_in_pp_if) {
    *err = make_pp_integer(value, suffix.is_unsigned, is_decimal, overflow);
  } else if (in_pcc_mode() && !suffix.is_unsigned && suffix.longs < 2) {
    make_pcc_integer(value, is_decimal, suffix.longs, overflow, start);
  } else if (overflow) {
    *err = ec_integer_too_large;
  } else {
    *err = make_standard_integer(value, suffix.is_unsigned, is_decimal, suffix.longs, start);
  }
  if (*err != ec_no_error) return;
  const_for_curr_token.is_octal_or_hex = !is_decimal;
  const_for_curr_token.is_null_pointer_constant = len_of_curr_token == 1 && *start == '0';
  const_for_curr_token.has_unsigned_suffix = suffix.is_unsigned;
  const_for_curr_token.is_literal = true;
}

// ---- Floats ------------------------------------------------------------------------------------

namespace {

struct a_float_suffix {
  const char *start;
  a_float_kind kind;
  bool is_imaginary;
};

// Behind the exponent of a hexadecimal literal no letter is a digit.
a_float_suffix read_float_suffix(const char *start, const char *end) {
  a_float_suffix suffix = {end, fk_double, false};
  bool kind_seen = false;
  while (suffix.start > start) {
    char c = suffix.start[-1];
    if (!suffix.is_imaginary && (c == 'i' || c == 'I' || c == 'j' || c == 'J')) {
      suffix.is_imaginary = true;
    } else if (!kind_seen && (c == 'f' || c == 'F' || c == 'l' || c == 'L')) {
      kind_seen = true;
      suffix.kind = c == 'f' || c == 'F' ? fk_float : fk_long_double;
    } else {
      break;
    }
    --suffix.start;
  }
  return suffix;
}

}  // namespace

void conv_float_literal(bool is_hex, an_error_code *err, const char **err_loc) {
  const char *start = start_of_curr_token;
  a_float_suffix suffix = read_float_suffix(start, end_of_curr_token + 1);
  static a_text_buffer *buffer;
  if (buffer == nullptr) buffer = alloc_text_buffer(64);
  reset_text_buffer(buffer);
  for (const char *p = start; p < suffix.start; ++p)
    if (*p != '\'') add_char_to_text_buffer(buffer, *p);
  const char *text = text_of_buffer(buffer);
  *err = ec_no_error;
  *err_loc = start;
  simul_fval value;
  bool out_of_range, inexact = false;
  if (is_hex)
    fp_hex_string_to_float(suffix.kind, text, &value, &out_of_range, &inexact);
  else
    fp_string_to_float(suffix.kind, text, &value, &out_of_range);
  if (out_of_range) {
    *err = ec_bad_float_value;
    return;
  }
  if (suffix.is_imaginary) {  // complex values are not there yet
    not_supported_at(start, "a complex constant is");
    set_error_constant(&const_for_curr_token);
    return;
  }
  set_float_constant(&const_for_curr_token, &value, float_type(suffix.kind));
  const_for_curr_token.is_literal = true;
  if (inexact) warn_at(ec_inexact_fp_conversion, start);
}
