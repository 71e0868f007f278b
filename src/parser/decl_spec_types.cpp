// Type keywords of several words: which may stand together, and the type that they make.
//
// "unsigned long int" is a base (int), a length (long) and a sign (unsigned), in any order. What a
// base can be combined with stands in the table base_rules; the kind of an integer is the cell of
// integer_kinds for its length and sign. A keyword that repeats or contradicts an earlier one is
// reported where it stands and dropped, so that the type stays usable.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/decl_spec_internal.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

struct a_base_rule {
  bool sign_ok;
  bool short_ok;
  bool long_ok;
  bool long_long_ok;
  bool complex_ok;
};

constexpr a_base_rule base_rules[num_base_kinds] = {
    {true, true, true, true, false},      // none: int is meant
    {false, false, false, false, false},  // void
    {true, false, false, false, false},   // char
    {false, false, false, false, false},  // wchar_t
    {false, false, false, false, false},  // char16_t
    {false, false, false, false, false},  // char32_t
    {false, false, false, false, false},  // bool
    {true, true, true, true, false},      // int
    {false, false, false, false, true},   // float; "long float" is judged apart
    {false, false, true, false, true},    // double
    {false, false, false, false, false},  // named; a modified typedef is judged apart
    {false, false, false, false, false},  // class
    {false, false, false, false, false},  // enum
    {false, false, false, false, false},  // typename
    {false, false, false, false, false},  // auto
    {true, true, true, true, true},       // unknown: no type is made
    {true, true, true, true, true},       // error: silent
};

constexpr an_integer_kind integer_kinds[num_length_kinds][num_sign_kinds] = {
    {ik_int, ik_int, ik_unsigned_int},
    {ik_short, ik_short, ik_unsigned_short},
    {ik_long, ik_long, ik_unsigned_long},
    {ik_long_long, ik_long_long, ik_unsigned_long_long},
};

bool report_type_not_allowed(a_specifier_scan &scan) {
  if ((scan.flags & dsf_type_ok) != 0) return false;
  pos_error(ec_type_specifier_not_allowed, &pos_curr_token);
  return true;
}

void note_type_position(a_specifier_scan &scan, const a_source_position *position) {
  if (!type_seen(scan)) scan.type_pos = *position;
}

void report_bad_combination(a_specifier_scan &scan, const a_source_position *position) {
  if (scan.base != base_error) pos_error(ec_bad_combination_of_type_specifiers, position);
  scan.state->error_in_specifiers = true;
  // Behind a class a semicolon is missing: what is declared has not its type.
  if (scan.base == base_class || scan.base == base_enum) scan.base = base_error;
}

}  // namespace

void add_base_keyword(a_specifier_scan &scan, a_base_kind base) {
  if (!report_type_not_allowed(scan)) {
    if (scan.base == base_none) {
      note_type_position(scan, &pos_curr_token);
      scan.base = base;
    } else {
      report_bad_combination(scan, &pos_curr_token);
    }
  }
  get_token();
}

void add_whole_type(a_specifier_scan &scan, a_base_kind base, a_type *type,
                    const a_source_position *position) {
  if ((scan.flags & dsf_type_ok) == 0) {
    pos_error(ec_type_specifier_not_allowed, position);
    return;
  }
  if (scan.base != base_none) {
    report_bad_combination(scan, position);
    return;
  }
  note_type_position(scan, position);
  scan.base = is_error_type(type) ? base_error : base;
  scan.named_type = type;
}

void add_sign_keyword(a_specifier_scan &scan, a_sign_kind sign) {
  if (!report_type_not_allowed(scan)) {
    note_type_position(scan, &pos_curr_token);
    if (scan.sign == sign_none) {
      scan.sign = sign;
    } else if (scan.sign == sign) {
      bool tolerated = in_any_cfront_mode() || (gnu_mode && !clang_mode && gnu_version < 30300);
      pos_diagnostic(tolerated ? es_warning : es_error, ec_dupl_decl_specifier, &pos_curr_token);
    } else {
      report_bad_combination(scan, &pos_curr_token);
    }
  }
  get_token();
}

void add_long_keyword(a_specifier_scan &scan) {
  if (!report_type_not_allowed(scan)) {
    note_type_position(scan, &pos_curr_token);
    if (scan.length == length_none) {
      scan.length = length_long;
    } else if (scan.length == length_long) {
      scan.length = length_long_long;
      if (strict_ansi_mode && !long_long_is_standard)
        pos_diagnostic(strict_ansi_discretionary_severity, ec_nonstd_long_long, &pos_curr_token);
    } else {
      report_bad_combination(scan, &pos_curr_token);
    }
  }
  get_token();
}

void add_short_keyword(a_specifier_scan &scan) {
  if (!report_type_not_allowed(scan)) {
    note_type_position(scan, &pos_curr_token);
    if (scan.length == length_none) {
      scan.length = length_short;
    } else if (scan.length == length_short) {
      pos_diagnostic(in_any_cfront_mode() ? es_warning : es_error, ec_dupl_decl_specifier,
                     &pos_curr_token);
    } else {
      report_bad_combination(scan, &pos_curr_token);
    }
  }
  get_token();
}

void add_complex_keyword(a_specifier_scan &scan, a_complex_kind complex) {
  if (!report_type_not_allowed(scan)) {
    note_type_position(scan, &pos_curr_token);
    if (scan.complex == cplx_none)
      scan.complex = complex;
    else if (scan.complex == complex)
      pos_error(ec_dupl_decl_specifier, &pos_curr_token);
    else
      report_bad_combination(scan, &pos_curr_token);
  }
  get_token();
}

void add_qualifier(a_specifier_scan &scan) {
  a_decl_parse_state *state = scan.state;
  unsigned bit = 0;
  switch (curr_token) {
    case tok_const:
      bit = tq_const;
      break;
    case tok_volatile:
      bit = tq_volatile;
      break;
    case tok_atomic:
      pos_st_error(ec_not_supported, &pos_curr_token, "_Atomic");
      state->error_in_specifiers = true;
      break;
    case tok_restrict_gnu:
      if (gnu_mode && report_gnu_extensions)
        pos_warning(ec_gnu_restrict_is_nonstandard, &pos_curr_token);
      bit = tq_restrict;
      break;
    case tok_restrict:
      bit = tq_restrict;
      break;
    default:
      break;  // the nullability words say nothing to the target
  }
  if ((bit & scan.qualifiers) != 0) {
    bool tolerated = !strict_ansi_mode || (!in_cplusplus() && std_version >= 199901);
    pos_diagnostic(tolerated ? es_warning : strict_ansi_discretionary_severity,
                   ec_dupl_type_qualifier, &pos_curr_token);
  }
  if (scan.qualifiers == 0) state->qualifier_pos = pos_curr_token;
  if (bit == tq_restrict && (scan.qualifiers & tq_restrict) == 0)
    state->restrict_pos = pos_curr_token;
  scan.qualifiers |= bit;
  get_token();
}

bool typedef_modification_is_allowed() {
  return in_pcc_mode() || gpp_mode || (gcc_mode && gnu_version < 30400);
}

namespace {

// unsigned T x;   turns the typedef's type back into the words that would have made it.
// Gives false where the combination has no meaning.
bool apply_typedef_modification(a_specifier_scan &scan) {
  if (!typedef_modification_is_allowed()) return false;
  a_type *type = skip_typerefs(scan.named_type);
  a_sign_kind own_sign = sign_none;
  a_length_kind own_length = length_none;
  if (type->kind == tk_float) {
    if (type->float_kind != fk_float && type->float_kind != fk_double) return false;
    scan.base = type->float_kind == fk_float ? base_float : base_double;
    return scan.sign == sign_none;
  }
  if (type->kind != tk_integer || type->is_enum || type->is_bool || type->is_wchar_t ||
      type->is_char16_t || type->is_char32_t)
    return false;
  switch (type->int_kind) {
    case ik_char:
    case ik_signed_char:
    case ik_unsigned_char:
      if (scan.length != length_none) return false;
      scan.base = base_char;
      if (scan.sign == sign_none && type->int_kind == ik_unsigned_char) scan.sign = sign_unsigned;
      if (scan.sign == sign_none && type->int_kind == ik_signed_char) scan.sign = sign_signed;
      return true;
    case ik_short:
      own_length = length_short;
      break;
    case ik_int:
      break;
    case ik_unsigned_int:
      own_sign = sign_unsigned;
      break;
    case ik_long:
      own_length = length_long;
      break;
    case ik_unsigned_long:
      own_length = length_long;
      own_sign = sign_unsigned;
      break;
    case ik_long_long:
      own_length = length_long_long;
      break;
    default:
      return false;
  }
  if (own_sign != sign_none && scan.sign != sign_none) return false;
  if (own_length == length_long && scan.length == length_long && gcc_mode)
    own_length = length_long_long;
  else if (own_length != length_none && scan.length != length_none)
    return false;
  scan.base = base_int;
  if (own_sign != sign_none) scan.sign = own_sign;
  if (own_length != length_none) scan.length = own_length;
  return true;
}

// float, double, long double; long float.
a_type *floating_type_of(a_specifier_scan &scan) {
  a_float_kind kind = scan.base == base_float ? fk_float : fk_double;
  if (scan.length == length_long) kind = scan.base == base_float ? fk_double : fk_long_double;
  if (scan.base == base_float && scan.length == length_long && !in_pcc_mode()) {
    if (gnu_mode)
      pos_diagnostic(es_discretionary_error, ec_bad_combination_of_type_specifiers, &scan.type_pos);
    else if (strict_ansi_mode)
      pos_diagnostic(strict_ansi_error_severity, ec_bad_combination_of_type_specifiers,
                     &scan.type_pos);
    else
      pos_warning(ec_nonstandard_long_float, &scan.type_pos);
  }
  switch (scan.complex) {
    case cplx_complex:
      return complex_type(kind);
    case cplx_imaginary:
      return imaginary_type(kind);
    default:
      return float_type(kind);
  }
}

a_type *integral_type_of(const a_specifier_scan &scan) {
  an_integer_kind kind = integer_kinds[scan.length][scan.sign];
  return scan.sign == sign_signed ? signed_integer_type(kind) : integer_type(kind);
}

a_type *char_type_of(const a_specifier_scan &scan) {
  switch (scan.sign) {
    case sign_signed:
      return integer_type(ik_signed_char);
    case sign_unsigned:
      return integer_type(ik_unsigned_char);
    default:
      return integer_type(plain_char_int_kind);
  }
}

// _Complex needs float or double beside it.
bool check_complex_base(a_specifier_scan &scan) {
  if (scan.complex == cplx_none || scan.base == base_error) return true;
  if (base_rules[scan.base].complex_ok) return true;
  if (scan.base == base_none && scan.sign == sign_none && gcc_mode) {
    scan.base = base_double;
    return true;
  }
  if (scan.base == base_none)
    pos_error(ec_missing_floating_point_type, &scan.type_pos);
  else
    pos_st_error(ec_only_applies_to_float_types, &scan.type_pos,
                 scan.complex == cplx_complex ? "_Complex" : "_Imaginary");
  scan.base = base_error;
  return false;
}

bool length_fits(const a_specifier_scan &scan) {
  const a_base_rule &rule = base_rules[scan.base];
  switch (scan.length) {
    case length_none:
      return true;
    case length_short:
      return rule.short_ok;
    case length_long:
      return rule.long_ok || scan.base == base_float;
    default:
      return rule.long_long_ok;
  }
}

// The words that the base does not take are reported once and forgotten.
void check_sign_and_length(a_specifier_scan &scan) {
  if (scan.base == base_named && (scan.sign != sign_none || scan.length != length_none)) {
    if (apply_typedef_modification(scan)) {
      scan.state->typedef_used_with_modifier = true;
      if (gnu_mode && report_gnu_extensions)
        pos_warning(ec_typedef_modification_is_nonstandard, &scan.type_pos);
      return;
    }
  }
  bool sign_fits = scan.sign == sign_none || base_rules[scan.base].sign_ok;
  if (sign_fits && length_fits(scan)) return;
  report_bad_combination(scan, &scan.type_pos);
  scan.sign = sign_none;
  scan.length = length_none;
  // No object has the type void, so the next message would be about that.
  if (scan.base == base_void) scan.base = base_error;
}

a_type *type_by_base(a_specifier_scan &scan) {
  switch (scan.base) {
    case base_none:
    case base_int:
      return integral_type_of(scan);
    case base_void:
      return void_type();
    case base_char:
      return char_type_of(scan);
    case base_wchar_t:
      return wchar_t_type();
    case base_char16_t:
      return char16_t_type();
    case base_char32_t:
      return char32_t_type();
    case base_bool:
      return bool_type();
    case base_float:
    case base_double:
      return floating_type_of(scan);
    case base_unknown:
      return unknown_type();
    case base_error:
    case num_base_kinds:
      return error_type();
    default:
      return scan.named_type;
  }
}

// const T   where T is const already, or a function type.
a_type *qualify_specified_type(a_specifier_scan &scan, a_type *type) {
  a_decl_parse_state *state = scan.state;
  unsigned qualifiers = scan.qualifiers;
  if (qualifiers == 0 || is_error_type(type)) return type;
  if (is_function_type(type)) {
    pos_warning(ec_cv_qualified_function_type, &state->qualifier_pos);
    return type;
  }
  unsigned present = get_type_qualifiers(type) & qualifiers;
  if (present != 0) {
    bool strict = strict_ansi_mode && (in_cplusplus() || std_version < 199901);
    pos_diagnostic(strict ? strict_ansi_error_severity : es_remark, ec_dupl_type_qualifier,
                   &state->qualifier_pos);
  }
  if ((qualifiers & tq_restrict) != 0 &&
      !restrict_qualifier_is_allowed(type, &state->restrict_pos)) {
    state->error_in_specifiers = true;
    qualifiers &= ~unsigned{tq_restrict};
  }
  return qualifiers != 0 ? f_make_qualified_type(type, qualifiers) : type;
}

}  // namespace

void finish_specified_type(a_specifier_scan &scan) {
  a_decl_parse_state *state = scan.state;
  state->qualifiers = scan.qualifiers;
  if ((scan.flags & dsf_type_ok) == 0 && (scan.flags & dsf_qualifiers_only) != 0) {
    state->type = void_type();
    return;
  }
  state->type_specified = type_seen(scan) && scan.base != base_unknown;
  check_complex_base(scan);
  check_sign_and_length(scan);
  state->only_void = scan.base == base_void && scan.qualifiers == 0 && !scan.storage_class_seen;
  a_type *type = type_by_base(scan);
  if (scan.base == base_error) state->has_error = true;
  state->can_be_declaration_without_declarator =
      (scan.base == base_class || scan.base == base_enum) && curr_token == tok_semicolon;
  state->type = qualify_specified_type(scan, type);
}
