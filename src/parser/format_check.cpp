// Checks formats against the values of their calls. A format is walked over once; the conversions
// take the values in order or, in a format with "%1$d", by number. What a conversion may have
// (flags, width, length) stands in one table of rows for each family.
//
// Integers that differ in their sign only are taken, as a format has no way to write most of them
// otherwise. Types of the same size under different names (int and long) work on this target and
// are a remark; all else is a warning, since a call that is never reached does no harm.
#include "parser/format_check.h"

#include <cstring>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/exprutil.h"
#include "semantics/const_ints.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/literals.h"

namespace {

constexpr std::uint32_t archetype_printf = 1;
constexpr std::uint32_t archetype_scanf = 2;
constexpr int max_position = 99;  // of a value, in "%99$d"

// ---- The conversions ---------------------------------------------------------------------------

enum a_length_modifier : std::uint8_t {
  length_none,
  length_hh,
  length_h,
  length_l,
  length_ll,
  length_big_l,
  length_j,
  length_z,
  length_t
};

enum a_value_kind : std::uint8_t {
  value_none,
  value_signed,
  value_unsigned,
  value_floating,
  value_character,
  value_text,
  value_pointer,
  value_count  // the number of characters so far is stored
};

constexpr unsigned bit(a_length_modifier length) {
  return 1U << length;
}
constexpr unsigned plain = bit(length_none);
constexpr unsigned wide_too = plain | bit(length_l);
constexpr unsigned any_float = wide_too | bit(length_big_l);
constexpr unsigned any_integer = (1U << (length_t + 1)) - 1;
constexpr unsigned any_count = any_integer & ~bit(length_big_l);

struct a_conversion_row {
  const char *letters;
  const char *options;  // the flags; "w" a width, "p" a precision
  unsigned lengths;
  a_value_kind value;
};

constexpr a_conversion_row printf_rows[] = {
    {"di", "-0+ 'Iwp", any_integer, value_signed},
    {"u", "-0'Iwp", any_integer, value_unsigned},
    {"oxX", "-0#wp", any_integer, value_unsigned},
    {"fFgG", "-0+ #'Iwp", any_float, value_floating},
    {"eEaA", "-0+ #Iwp", any_float, value_floating},
    {"c", "-w", wide_too, value_character},
    {"C", "-w", plain, value_character},
    {"s", "-wp", wide_too, value_text},
    {"S", "-wp", plain, value_text},
    {"p", "-w", plain, value_pointer},
    {"n", "", any_count, value_count},
    {"m", "-wp", plain, value_none},
};

constexpr a_conversion_row scanf_rows[] = {
    {"di", "*'Iw", any_integer, value_signed},
    {"uoxX", "*'Iw", any_integer, value_unsigned},
    {"aAeEfFgG", "*'Iw", any_float, value_floating},
    {"cs[", "*mw", wide_too, value_text},
    {"CS", "*mw", plain, value_text},
    {"p", "*w", plain, value_pointer},
    {"n", "", any_count, value_count},
};

// One conversion as it is written.
struct a_conversion {
  std::size_t start;  // of the "%" in the format
  int position;       // of "%2$d"; 0: none is written
  char options[16];   // the flags, "w" and "p" that it has, each once
  bool suppressed;    // "*" of scanf: nothing is stored
  bool allocates;     // "m" of scanf: a pointer to the text is stored
  a_length_modifier length;
  char letter;
  const a_conversion_row *row;
};

// One format and the values of the call.
struct a_format_check {
  const char *text;  // the units of the literal
  std::size_t length;
  int unit_size;
  std::size_t at;  // in units
  const a_source_position *position;
  bool is_scanf;
  bool has_values;           // else they come in a va_list
  an_expr_node *next_value;  // in a format without numbers
  an_expr_node *values[max_position];
  int value_count;
  bool value_used[max_position];
  bool has_numbers;
  bool has_no_numbers;
  bool failed;  // the rest cannot be compared
};

// ---- The text of a format ----------------------------------------------------------------------

// The character at the place; 0 at the end, and what no format has a use for is DEL.
char current(const a_format_check *check) {
  if (check->at >= check->length) return '\0';
  std::uint32_t unit = load_string_unit(
      check->text + check->at * static_cast<std::size_t>(check->unit_size), check->unit_size);
  return unit < 0x7f ? static_cast<char>(unit) : '\x7f';
}

bool skip(a_format_check *check, char wanted) {
  if (current(check) != wanted) return false;
  ++check->at;
  return true;
}

bool is_among(char c, const char *letters) {
  return c != '\0' && std::strchr(letters, c) != nullptr;
}

bool is_digit(char c) {
  return c >= '0' && c <= '9';
}

// What is written of a conversion, for messages.
struct a_conversion_text {
  char text[32];
};
a_conversion_text text_of_conversion(a_format_check *check, std::size_t start) {
  a_conversion_text result = {};
  std::size_t count = 0, end = check->at;
  for (check->at = start; check->at < end && count + 1 < sizeof result.text; ++check->at) {
    char c = current(check);
    result.text[count++] = c >= ' ' && c < '\x7f' ? c : '?';
  }
  check->at = end;
  return result;
}

void report_in_format(a_format_check *check, an_error_severity severity, an_error_code code,
                      const a_conversion *conversion) {
  if (!expr_diagnostic_should_be_issued(severity, code, check->position)) return;
  pos_st_diagnostic(severity, code, check->position,
                    text_of_conversion(check, conversion->start).text);
}

void report_bad_conversion(a_format_check *check, const a_conversion *conversion) {
  report_in_format(check, es_warning, ec_bad_printf_format_string, conversion);
  check->failed = true;
}

// ---- Types -------------------------------------------------------------------------------------

// The type that an integer conversion prints or, in_memory, stores.
a_type *integer_of_conversion(const a_conversion *conversion, bool is_unsigned, bool in_memory) {
  an_integer_kind kind = ik_int;
  switch (conversion->length) {
    case length_none:
      break;
    case length_hh:
      if (in_memory) kind = ik_signed_char;
      break;
    case length_h:
      if (in_memory) kind = ik_short;
      break;
    case length_l:
      kind = ik_long;
      break;
    case length_ll:
    case length_big_l:
      kind = ik_long_long;
      break;
    case length_j:
      kind = targ_intmax_kind;
      break;
    case length_z:
      kind = targ_size_t_int_kind;
      break;
    case length_t:
      kind = targ_ptrdiff_t_int_kind;
      break;
  }
  a_type *type = integer_type(kind);
  if (is_signed_integral_type(type) == is_unsigned) type = other_signedness_integer_type(type);
  return type;
}

a_type *float_of_conversion(const a_conversion *conversion, bool in_memory) {
  if (conversion->length == length_big_l) return float_type(fk_long_double);
  return float_type(in_memory && conversion->length == length_none ? fk_float : fk_double);
}

bool is_wide(const a_conversion *conversion) {
  return conversion->length == length_l || conversion->letter == 'C' || conversion->letter == 'S';
}

a_type *character_of_conversion(const a_conversion *conversion) {
  return is_wide(conversion) ? integer_type(targ_wchar_t_int_kind) : integer_type(ik_char);
}

// What printf wants for a conversion.
a_type *printed_type(const a_conversion *conversion) {
  switch (conversion->row->value) {
    case value_signed:
    case value_unsigned:
      return integer_of_conversion(conversion, conversion->row->value == value_unsigned, false);
    case value_floating:
      return float_of_conversion(conversion, false);
    case value_character:
      return is_wide(conversion) ? type_after_integral_promotion(integer_type(targ_wint_t_int_kind))
                                 : integer_type(ik_int);
    case value_text:
      return make_pointer_type(character_of_conversion(conversion));
    case value_count:
      return make_pointer_type(integer_of_conversion(conversion, false, true));
    default:
      return make_pointer_type(void_type());
  }
}

// What scanf wants: a pointer to what it stores.
a_type *stored_type(const a_conversion *conversion) {
  a_type *type;
  switch (conversion->row->value) {
    case value_signed:
    case value_unsigned:
    case value_count:
      type = integer_of_conversion(conversion, conversion->row->value == value_unsigned, true);
      break;
    case value_floating:
      type = float_of_conversion(conversion, true);
      break;
    case value_text:
      type = character_of_conversion(conversion);
      if (conversion->allocates) type = make_pointer_type(type);
      break;
    default:
      type = make_pointer_type(void_type());
      break;
  }
  return make_pointer_type(type);
}

enum a_fit : std::uint8_t { fits, fits_by_size, fits_not };

a_fit integer_fit(a_type *given, a_type *wanted) {
  if (integral_types_the_same_except_for_signedness(given, wanted)) return fits;
  return interchangeable_types(given, wanted) ||
                 interchangeable_types(given, other_signedness_integer_type(wanted))
             ? fits_by_size
             : fits_not;
}

a_fit fit_of_types(a_type *given, a_type *wanted) {
  given = skip_typerefs(given);
  wanted = skip_typerefs(wanted);
  if (f_types_are_compatible(given, wanted, tcf_ignore_qualifiers)) return fits;
  if (given->kind != wanted->kind) return fits_not;
  if (given->kind == tk_integer) return integer_fit(given, wanted);
  if (given->kind != tk_pointer)
    return interchangeable_types(given, wanted) ? fits_by_size : fits_not;
  a_type *target = type_pointed_to(wanted);
  return is_void_type(target) ? fits : fit_of_types(type_pointed_to(given), target);
}

bool is_null_pointer(const an_expr_node *value) {
  return value->kind == enk_constant && is_pointer_type(value->type) &&
         is_null_pointer_constant(value->constant);
}

// is_written: the value is a pointer through which the call stores.
void check_value(a_format_check *check, const a_conversion *conversion, an_expr_node *value,
                 a_type *wanted, bool is_written) {
  if (is_error_type(value->type) || is_null_pointer(value)) return;
  a_fit fit = fit_of_types(value->type, wanted);
  if (fit != fits_not && is_written && is_const_type(type_pointed_to(value->type))) fit = fits_not;
  if (fit == fits) return;
  an_error_severity severity = fit == fits_by_size ? es_remark : es_warning;
  if (!expr_diagnostic_should_be_issued(severity, ec_printf_arg_mismatch, &value->position)) return;
  pos_stty2_diagnostic(severity, ec_printf_arg_mismatch, &value->position,
                       text_of_conversion(check, conversion->start).text, value->type, wanted);
}

// ---- The values --------------------------------------------------------------------------------

// The value that comes next or has the number; null: there is none, or they are not known.
an_expr_node *take_value(a_format_check *check, const a_conversion *conversion, int position) {
  (position != 0 ? check->has_numbers : check->has_no_numbers) = true;
  if (check->has_numbers && check->has_no_numbers) {
    report_bad_conversion(check, conversion);
    return nullptr;
  }
  if (!check->has_values) return nullptr;
  an_expr_node *value = nullptr;
  if (position == 0) {
    value = check->next_value;
    if (value != nullptr) check->next_value = value->next;
  } else if (position <= check->value_count) {
    value = check->values[position - 1];
    check->value_used[position - 1] = true;
  }
  if (value == nullptr) {
    report_in_format(check, es_warning, ec_too_few_printf_args, conversion);
    check->failed = true;
  }
  return value;
}

// The first value that no conversion takes; null: all are taken.
an_expr_node *excess_value(const a_format_check *check) {
  if (!check->has_values) return nullptr;
  if (!check->has_numbers) return check->next_value;
  for (int i = 0; i < check->value_count; ++i)
    if (!check->value_used[i]) return check->values[i];
  return nullptr;
}

// ---- Scanning a conversion ---------------------------------------------------------------------

void add_option(a_conversion *conversion, char option) {
  std::size_t count = std::strlen(conversion->options);
  if (!is_among(option, conversion->options) && count + 1 < sizeof conversion->options)
    conversion->options[count] = option;
}

// Digits; more than any format can mean stay one too many.
int scan_number(a_format_check *check) {
  int number = 0;
  for (; is_digit(current(check)); ++check->at)
    if (number <= max_position) number = number * 10 + (current(check) - '0');
  return number;
}

// "2$". *position is 0 when there is none, and then nothing is passed. False after a message.
bool scan_position(a_format_check *check, const a_conversion *conversion, int *position) {
  *position = 0;
  if (!is_digit(current(check))) return true;
  std::size_t start = check->at;
  int number = scan_number(check);
  if (!skip(check, '$')) {
    check->at = start;
    return true;
  }
  if (number == 0) {
    report_in_format(check, es_warning, ec_positional_format_specifier_zero, conversion);
    check->failed = true;
    return false;
  }
  if (number > max_position || !check_printf_scanf_positional_args) {
    report_bad_conversion(check, conversion);
    return false;
  }
  *position = number;
  return true;
}

// "*" or "*2$" of a width or a precision, behind the "*": the value is an int.
bool scan_computed_number(a_format_check *check, const a_conversion *conversion) {
  int position;
  if (!scan_position(check, conversion, &position)) return false;
  an_expr_node *value = take_value(check, conversion, position);
  if (value != nullptr) check_value(check, conversion, value, integer_type(ik_int), false);
  return !check->failed;
}

bool scan_width_and_precision(a_format_check *check, a_conversion *conversion) {
  if (skip(check, '*')) {
    add_option(conversion, 'w');
    if (!scan_computed_number(check, conversion)) return false;
  } else if (is_digit(current(check))) {
    add_option(conversion, 'w');
    scan_number(check);
  }
  if (!skip(check, '.')) return true;
  add_option(conversion, 'p');
  if (skip(check, '*')) return scan_computed_number(check, conversion);
  scan_number(check);
  return true;
}

a_length_modifier scan_length(a_format_check *check) {
  if (skip(check, 'h')) return skip(check, 'h') ? length_hh : length_h;
  if (skip(check, 'l')) return skip(check, 'l') ? length_ll : length_l;
  if (skip(check, 'q')) return length_ll;
  if (skip(check, 'L')) return length_big_l;
  if (skip(check, 'j')) return length_j;
  if (skip(check, 'z')) return length_z;
  return skip(check, 't') ? length_t : length_none;
}

// "[^]abc]", behind the "[".
bool skip_scan_set(a_format_check *check) {
  skip(check, '^');
  skip(check, ']');
  while (current(check) != '\0')
    if (current(check) == ']')
      return skip(check, ']');
    else
      ++check->at;
  return false;
}

const a_conversion_row *row_of_letter(const a_format_check *check, char letter) {
  if (check->is_scanf) {
    for (const a_conversion_row &row : scanf_rows)
      if (is_among(letter, row.letters)) return &row;
  } else {
    for (const a_conversion_row &row : printf_rows)
      if (is_among(letter, row.letters)) return &row;
  }
  return nullptr;
}

// The flags of printf, or what scanf has in their place.
bool scan_options(a_format_check *check, a_conversion *conversion) {
  if (!check->is_scanf) {
    for (; is_among(current(check), "-+ #0'I"); ++check->at)
      add_option(conversion, current(check));
    return scan_width_and_precision(check, conversion);
  }
  for (; is_among(current(check), "*'I"); ++check->at) {
    add_option(conversion, current(check));
    if (current(check) == '*') conversion->suppressed = true;
  }
  if (is_digit(current(check))) {
    add_option(conversion, 'w');
    if (scan_number(check) == 0) return false;
  }
  if (skip(check, 'm')) {
    add_option(conversion, 'm');
    conversion->allocates = true;
  }
  return true;
}

// The letter, and whether all that stands in front of it may.
bool scan_letter(a_format_check *check, a_conversion *conversion) {
  conversion->letter = current(check);
  if (conversion->letter == '\0') return false;
  ++check->at;
  const a_conversion_row *row = conversion->row = row_of_letter(check, conversion->letter);
  if (row == nullptr || (row->lengths & bit(conversion->length)) == 0) return false;
  for (const char *option = conversion->options; *option != '\0'; ++option)
    if (!is_among(*option, row->options)) return false;
  return conversion->letter != '[' || skip_scan_set(check);
}

// A conversion behind its "%", and the value that it takes.
void check_conversion(a_format_check *check) {
  a_conversion conversion = {};
  conversion.start = check->at - 1;
  if (skip(check, '%')) return;
  if (!scan_position(check, &conversion, &conversion.position)) return;
  bool well_formed = scan_options(check, &conversion);
  if (check->failed) return;
  conversion.length = scan_length(check);
  if (!scan_letter(check, &conversion) || !well_formed ||
      (conversion.suppressed && conversion.position != 0)) {
    report_bad_conversion(check, &conversion);
    return;
  }
  if (conversion.suppressed || conversion.row->value == value_none) return;
  an_expr_node *value = take_value(check, &conversion, conversion.position);
  if (value == nullptr) return;
  if (check->is_scanf)
    check_value(check, &conversion, value, stored_type(&conversion), true);
  else
    check_value(check, &conversion, value, printed_type(&conversion),
                conversion.row->value == value_count);
}

// ---- The library -------------------------------------------------------------------------------

// The library that the program is linked with may know fewer conversions: without floating ones,
// or with a few bare ones only.
void check_library_support(a_format_check *check) {
  for (check->at = 0; current(check) != '\0';) {
    if (current(check) != '%') {
      ++check->at;
      continue;
    }
    a_conversion conversion = {};
    conversion.start = check->at++;
    while (current(check) != '\0' && !is_among(current(check), "diouxXaAeEfFgGcspn%["))
      ++check->at;
    char letter = current(check);
    if (letter == '\0') return;
    bool has_modifier = check->at != conversion.start + 1;
    ++check->at;
    if (letter == '[') skip_scan_set(check);
    if (printf_support == 0 ? is_among(letter, "aAeEfFgG") : !is_among(letter, "doxcs%"))
      report_in_format(check, es_discretionary_error, ec_printf_support_disallowed_conversion,
                       &conversion);
    else if (printf_support == 1 && has_modifier)
      report_in_format(check, es_discretionary_error, ec_printf_support_disallowed_modifier,
                       &conversion);
  }
}

// ---- Formats of a call -------------------------------------------------------------------------

// What the formats of one call (several behind "?:") say of its values.
struct a_format_call {
  const a_gnu_routine_supplement *supplement;
  an_expr_node *first_value;  // null: there is none
  an_expr_node *excess;       // that no format so far has taken; null: none
  bool every_format_has_excess;
};

void check_format_text(a_format_call *call, const a_constant *string, std::int64_t offset,
                       const a_source_position *position) {
  a_format_check check = {};
  check.unit_size = character_size[string->string_char_kind];
  if (offset < 0 || offset % check.unit_size != 0 ||
      static_cast<a_targ_size_t>(offset) > string->string_length)
    return;
  check.text = string->string_text + offset;
  check.length = (string->string_length - static_cast<a_targ_size_t>(offset)) /
                 static_cast<a_targ_size_t>(check.unit_size);
  check.position = position;
  check.is_scanf = call->supplement->format_kind == archetype_scanf;
  check.has_values = call->supplement->format_first_arg != 0;
  check.next_value = call->first_value;
  for (an_expr_node *value = call->first_value;
       value != nullptr && check.value_count < max_position; value = value->next)
    check.values[check.value_count++] = value;
  while (current(&check) != '\0' && !check.failed)
    if (skip(&check, '%'))
      check_conversion(&check);
    else
      ++check.at;
  an_expr_node *excess = check.failed ? nullptr : excess_value(&check);
  if (excess == nullptr) call->every_format_has_excess = false;
  call->excess = excess;
  if (!check.is_scanf && printf_support != 2) check_library_support(&check);
}

const an_expr_node *argument_of_number(const an_expr_node *arguments, std::uint32_t number) {
  for (; arguments != nullptr && number > 1; --number)
    arguments = arguments->next;
  return arguments;
}

// The text that a constant array begins with, or that a pointer to a literal points into.
const a_constant *text_of_address(const a_constant *address, std::int64_t *offset) {
  if (address->kind == ck_string) return address;
  if (address->kind != ck_address) return nullptr;
  *offset = address->address_offset;
  const a_constant *text = nullptr;
  if (address->address_kind == abk_constant)
    text = address->address_constant;
  else if (address->address_kind == abk_variable &&
           is_const_type(address->address_variable->type) &&
           address->address_variable->init_kind == init_constant)
    text = address->address_variable->initializer.constant;
  return text != nullptr && text->kind == ck_string ? text : nullptr;
}

// The same for any expression; null: not known.
const a_constant *text_of_format(const an_expr_node *format, std::int64_t *offset) {
  *offset = 0;
  if (format->kind == enk_constant) return text_of_address(format->constant, offset);
  if (format->kind != enk_variable || !is_array_type(format->variable->type) ||
      !is_const_type(format->variable->type) || format->variable->init_kind != init_constant)
    return nullptr;
  const a_constant *text = format->variable->initializer.constant;
  return text->kind == ck_string ? text : nullptr;
}

// Both sides of "?:", the argument that a call hands on (attribute format_arg), or a text.
void check_format_expression(a_format_call *call, const an_expr_node *format) {
  const a_source_position *position = &format->position;
  for (;;) {
    if (format->kind == enk_operation &&
        (format->op == eok_cast || format->op == eok_array_to_pointer)) {
      format = format->operands;
    } else if (format->kind == enk_operation && format->op == eok_conditional) {
      const an_expr_node *middle = format->operands->next;
      check_format_expression(call, middle);
      format = middle->next;
      position = &format->position;
    } else if (format->kind == enk_operation && format->op == eok_call &&
               format->operands->kind == enk_routine &&
               format->operands->routine->gnu_supplement != nullptr &&
               format->operands->routine->gnu_supplement->format_arg_index != 0) {
      format = argument_of_number(format->operands->next,
                                  format->operands->routine->gnu_supplement->format_arg_index);
      if (format == nullptr) break;
    } else {
      break;
    }
  }
  std::int64_t offset = 0;
  const a_constant *text = format != nullptr ? text_of_format(format, &offset) : nullptr;
  if (text != nullptr)
    check_format_text(call, text, offset, position);
  else
    call->every_format_has_excess = false;
}

}  // namespace

void check_format_of_call(const a_routine *routine, an_expr_node *arguments) {
  const a_gnu_routine_supplement *supplement = routine->gnu_supplement;
  if (supplement == nullptr ||
      (supplement->format_kind != archetype_printf && supplement->format_kind != archetype_scanf))
    return;
  const an_expr_node *format = argument_of_number(arguments, supplement->format_string_index);
  if (format == nullptr || !is_pointer_type(format->type)) return;
  a_format_call call = {};
  call.supplement = supplement;
  call.every_format_has_excess = true;
  if (supplement->format_first_arg != 0)
    call.first_value =
        const_cast<an_expr_node *>(argument_of_number(arguments, supplement->format_first_arg));
  check_format_expression(&call, format);
  if (call.every_format_has_excess && call.excess != nullptr)
    expr_pos_warning(ec_too_many_printf_args, &call.excess->position);
}
