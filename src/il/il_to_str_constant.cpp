// Text of constants.
#include <cstdio>
#include <cstring>

#include "driver/switches.h"
#include "il/il.h"
#include "il/il_to_str.h"
#include "il/il_to_str_internal.h"
#include "semantics/const_ints.h"
#include "semantics/float_pt.h"
#include "semantics/target.h"
#include "semantics/types.h"

using a_block = an_il_to_str_output_control_block;

// ---- Characters and strings --------------------------------------------------------------------

namespace {

const char *escape_of_char(unsigned long ch, const a_block *block) {
  switch (ch) {
    case '"':
      return "\\\"";
    case '\'':
      return "\\'";
    case '\\':
      return "\\\\";
    case '?':
      return block->c_source_output ? "\\?" : nullptr;
    case '\a':
      return block->suppress_qualifiers_and_suffixes ? nullptr : "\\a";
    case '\b':
      return "\\b";
    case '\f':
      return "\\f";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return block->keep_tabs ? nullptr : "\\t";
    case '\v':
      return "\\v";
    default:
      return nullptr;
  }
}

unsigned size_of_char_kind(a_string_char_kind kind) {
  switch (kind) {
    case chk_char16_t:
      return 2;
    case chk_char32_t:
      return 4;
    case chk_wchar_t:
      return static_cast<unsigned>(targ_sizeof_wchar_t);
    default:
      return 1;
  }
}

// The bytes of a wide literal stand in the order of the host.
unsigned long char_at(const char *text, unsigned size) {
  if (size == 1) return static_cast<unsigned char>(*text);
  if (size == 2) {
    std::uint16_t value;
    std::memcpy(&value, text, sizeof value);
    return value;
  }
  std::uint32_t value;
  std::memcpy(&value, text, sizeof value);
  return value;
}

void form_string(const a_constant *constant, a_block *block) {
  static const char *const prefixes[num_string_char_kinds] = {"\"", "L\"", "u\"", "U\""};
  put_text(prefixes[constant->string_char_kind], block);
  const unsigned size = size_of_char_kind(constant->string_char_kind);
  a_targ_size_t end = constant->string_length;
  if (end >= size && char_at(constant->string_text + end - size, size) == 0) end -= size;
  for (a_targ_size_t i = 0; i + size <= end; i += size)
    form_char(char_at(constant->string_text + i, size), block);
  put_text("\"", block);
}

}  // namespace

void form_char(unsigned long ch, an_il_to_str_output_control_block *block) {
  const char *escape = escape_of_char(ch, block);
  char text[24];
  if (escape != nullptr) {
    put_literal_text(escape, block);
    return;
  }
  if ((ch >= ' ' && ch <= '~') || (ch == '\t' && block->keep_tabs)) {
    text[0] = static_cast<char>(ch);
    text[1] = '\0';
  } else {
    std::snprintf(text, sizeof text, ch < 256 ? "\\%03lo" : "\\x%lx", ch);
  }
  put_literal_text(text, block);
}

// ---- Integers ----------------------------------------------------------------------------------

namespace {

const a_constant *enumerator_of_value(const a_type *type, a_host_large_integer value) {
  for (const a_constant *e = type->enum_supplement->first_enumerator; e != nullptr;
       e = e->next_in_list) {
    if (e->kind == ck_integer && e->integer_value == value) return e;
  }
  return nullptr;
}

void form_integer_suffix(const a_type *type, a_block *block) {
  if (block->no_integer_suffix || block->suppress_qualifiers_and_suffixes) return;
  if (int_kind_is_signed[type->int_kind] == 0 && type->int_kind >= ik_unsigned_int)
    put_literal_text("U", block);
  switch (type->int_kind) {
    case ik_long:
    case ik_unsigned_long:
      put_literal_text("L", block);
      break;
    case ik_long_long:
    case ik_unsigned_long_long:
      put_literal_text("LL", block);
      break;
    default:
      break;
  }
}

bool integer_needs_cast(const a_type *type, bool no_cast, const a_block *block) {
  if (no_cast) return false;
  if (type->kind != tk_integer) return true;
  if (type->is_enum || type->is_bool) return true;
  return type->int_kind < ik_int && !block->no_cast_on_small_ints;
}

// The least value of a signed kind has no positive counterpart: it is written as a sum.
bool is_least_value(const a_constant *constant, const a_type *type) {
  return type->kind == tk_integer && int_kind_is_signed[type->int_kind] != 0 &&
         type->int_kind >= ik_int &&
         constant->integer_value == min_integer_value_of_kind[type->int_kind];
}

void form_least_value(const a_constant *constant, const a_type *type, a_block *block) {
  const auto value = static_cast<std::int64_t>(constant->integer_value);
  put_text("(", block);
  put_literal_text(str_for_integer_value(static_cast<a_host_large_integer>(value + 1), true),
                   block);
  form_integer_suffix(type, block);
  put_literal_text("-1", block);
  put_text(")", block);
}

bool integer_is_negative(const a_constant *constant) {
  return int_constant_is_signed(constant) && static_cast<std::int64_t>(constant->integer_value) < 0;
}

void form_pointer_value(const a_constant *constant, const a_type *type, a_block *block) {
  const a_type *pointee = type_pointed_to(type);
  put_text(is_character_type(pointee) ? "(char *)" : "(void *)", block);
  put_unsigned(constant->integer_value, block);
}

}  // namespace

void form_integer_constant(const a_constant *constant, bool no_cast, bool needs_parens,
                           an_il_to_str_output_control_block *block) {
  a_type *type = skip_typerefs(constant->type);
  if (type->kind != tk_integer) {
    if (constant->integer_value == 0) {
      put_literal_text("0", block);
      return;
    }
    if (type->kind == tk_pointer) {
      form_pointer_value(constant, type, block);
      return;
    }
  } else if (type->is_enum) {
    const a_constant *enumerator = enumerator_of_value(type, constant->integer_value);
    if (enumerator != nullptr) {
      form_name(enumerator, iek_constant, block);
      return;
    }
  } else if (type->is_bool && in_cplusplus()) {
    put_text(constant->integer_value != 0 ? "true" : "false", block);
    return;
  }
  if (integer_needs_cast(type, no_cast, block)) {
    put_text("(", block);
    form_type(type, block);
    put_text(")", block);
  }
  if (block->c_source_output && is_least_value(constant, type)) {
    form_least_value(constant, type, block);
    return;
  }
  const bool parens = needs_parens && type->kind == tk_integer && integer_is_negative(constant);
  if (parens) put_text("(", block);
  put_literal_text(block->c_source_output ? str_for_integer_constant(constant)
                                          : decimal_str_for_integer_constant(constant),
                   block);
  if (type->kind == tk_integer && !type->is_enum) form_integer_suffix(type, block);
  if (parens) put_text(")", block);
}

// ---- Floating values ---------------------------------------------------------------------------

namespace {

a_float_kind float_kind_of(const a_constant *constant) {
  const a_type *type = skip_typerefs(constant->type);
  return type->kind >= tk_float && type->kind <= tk_complex ? type->float_kind : fk_double;
}

const char *float_suffix(a_float_kind kind, const a_block *block) {
  if (block->suppress_qualifiers_and_suffixes) return "";
  return kind == fk_float ? "F" : kind == fk_long_double ? "L" : "";
}

// NaN and infinity are written as quotients.
void form_float_value(const simul_fval *value, a_float_kind kind, a_block *block) {
  char text[64];
  const char *suffix = float_suffix(kind, block);
  if (fp_is_nan(value) || fp_is_infinity(value)) {
    const char *numerator = fp_is_nan(value) ? "0.0" : fp_is_negative(kind, value) ? "-1.0" : "1.0";
    std::snprintf(text, sizeof text, "(%s%s/0.0%s)", numerator, suffix, suffix);
    put_literal_text(text, block);
    return;
  }
  put_literal_text(fp_to_string(kind, value), block);
  put_literal_text(suffix, block);
}

void form_complex(const a_constant *constant, a_block *block) {
  const a_float_kind kind = float_kind_of(constant);
  simul_fval imag = constant->complex_value->imag_part;
  const bool negative = fp_is_negative(kind, &imag);
  if (negative) imag.sign = 0;
  form_float_value(&constant->complex_value->real_part, kind, block);
  put_text(negative ? " - " : " + ", block);
  form_float_value(&imag, kind, block);
  put_text("*__I__", block);
}

}  // namespace

// ---- Addresses ---------------------------------------------------------------------------------

namespace {

void form_offset(std::int64_t offset, a_block *block) {
  if (offset == 0) return;
  put_text(offset < 0 ? " - " : " + ", block);
  put_unsigned(offset < 0 ? 0 - static_cast<std::uint64_t>(offset) : offset, block);
}

}  // namespace

void form_lvalue_address_constant(const a_constant *constant,
                                  an_il_to_str_output_control_block *block) {
  switch (constant->address_kind) {
    case abk_routine:
      put_text("&", block);
      form_name(constant->address_routine, iek_routine, block);
      break;
    case abk_variable:
      put_text("&", block);
      form_name(constant->address_variable, iek_variable, block);
      break;
    case abk_constant:
    case abk_temporary_constant:
      if (constant->address_constant->kind != ck_string) put_text("&", block);
      form_constant(constant->address_constant, true, block);
      break;
    case abk_typeinfo:
      put_text("&", block);
      form_typeid_reference(constant->address_type, block);
      break;
    case abk_label:
      put_text("&&", block);
      form_name(constant->address_label, iek_label, block);
      break;
    default:
      put_text("{ ... }", block);
      break;
  }
  form_offset(constant->address_offset, block);
}

void form_typeid_reference(a_type *type, an_il_to_str_output_control_block *block) {
  put_text("typeid(", block);
  form_type(type, block);
  put_text(")", block);
}

void form_uuidof_reference(a_type *type, an_il_to_str_output_control_block *block) {
  put_text("__uuidof(", block);
  form_type(type, block);
  put_text(")", block);
}

void form_unknown_function_constant(const a_constant *constant,
                                    an_il_to_str_output_control_block *block) {
  if (constant->param_type != nullptr)
    form_type(constant->param_type, block);
  else
    put_text("<null-type>", block);
}

void form_pm_constant(const a_constant *constant, an_il_to_str_output_control_block *block) {
  if (constant->pm_is_null) {
    put_literal_text("0", block);
    return;
  }
  put_text("&", block);
  if (constant->pm_is_function)
    form_name(constant->pm_routine, iek_routine, block);
  else
    form_name(constant->pm_field, iek_field, block);
}

// ---- Compound constants ------------------------------------------------------------------------

namespace {

void form_designator(const a_constant *constant, a_block *block) {
  if (constant->designator_is_field || constant->designator_is_name) {
    put_text(".", block);
    if (constant->designator_is_field)
      form_unqualified_name(constant->designator_field, iek_field, block);
    else
      put_text(constant->designator_name, block);
    put_text(" = ", block);
    return;
  }
  put_text("[", block);
  form_constant(constant->designator_index, false, block);
  put_text("] = ", block);
}

void form_aggregate(const a_constant *constant, a_block *block) {
  put_text("{", block);
  bool separate = false;
  for (const a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list) {
    if (separate) put_text(", ", block);
    form_constant(e, false, block);
    separate = e->kind != ck_designator;
  }
  put_text("}", block);
}

// ---- Template-dependent constants --------------------------------------------------------------

void form_template_param(const a_constant *constant, a_block *block) {
  if (constant->name != nullptr) {
    put_text(constant->name, block);
    return;
  }
  put_text("<parameter #", block);
  put_unsigned(constant->param_coordinate.position, block);
  put_text(">", block);
}

void form_operand_in_parens(const char *keyword, const a_constant *constant, a_block *block) {
  put_text(keyword, block);
  if (constant->param_operand_is_type && constant->param_type != nullptr)
    form_type(constant->param_type, block);
  else if (constant->param_operand_expr != nullptr && block->form_expr != nullptr)
    block->form_expr(constant->param_operand_expr, block);
  else
    put_text("<expr>", block);
  put_text(")", block);
}

void form_template_param_constant(const a_constant *constant, a_block *block) {
  switch (constant->template_kind) {
    case tpck_param:
      form_template_param(constant, block);
      break;
    case tpck_expr:
      if (constant->param_expr != nullptr && block->form_expr != nullptr)
        block->form_expr(constant->param_expr, block);
      else
        put_text("<expression>", block);
      break;
    case tpck_unknown_function:
    case tpck_destructor:
      form_unknown_function_constant(constant, block);
      break;
    case tpck_address:
      put_text("&", block);
      form_constant(constant->param_constant, true, block);
      break;
    case tpck_cast:
      put_text("reinterpret_cast<", block);
      form_type(constant->type, block);
      put_text(">(", block);
      form_constant(constant->param_constant, false, block);
      put_text(")", block);
      break;
    case tpck_sizeof:
    case tpck_datasizeof:
      form_operand_in_parens("sizeof(", constant, block);
      break;
    case tpck_alignof:
      form_operand_in_parens(in_cplusplus() ? "alignof(" : "__alignof__(", constant, block);
      break;
    case tpck_typeid:
      form_operand_in_parens("typeid(", constant, block);
      break;
    case tpck_noexcept:
      form_operand_in_parens("noexcept(", constant, block);
      break;
    case tpck_member:
    case tpck_template_ref:
      put_text("<expression>", block);
      break;
    default:
      put_text("**BAD-TEMPLATE-PARAM-CONSTANT-KIND**", block);
      break;
  }
}

}  // namespace

void form_constant(const a_constant *constant, bool needs_parens,
                   an_il_to_str_output_control_block *block) {
  switch (constant->kind) {
    case ck_error:
      put_text("<error-constant>", block);
      break;
    case ck_integer:
      if (constant->is_enumerator && constant->name != nullptr)
        form_name(constant, iek_constant, block);
      else
        form_integer_constant(constant, block->no_cast_on_small_ints, needs_parens, block);
      break;
    case ck_string:
      form_string(constant, block);
      break;
    case ck_float:
      form_float_value(&constant->float_value, float_kind_of(constant), block);
      break;
    case ck_imaginary:
      form_float_value(&constant->float_value, float_kind_of(constant), block);
      put_text("*__I__", block);
      break;
    case ck_complex:
      form_complex(constant, block);
      break;
    case ck_address:
      form_lvalue_address_constant(constant, block);
      break;
    case ck_ptr_to_member:
      form_pm_constant(constant, block);
      break;
    case ck_address_difference:
      form_constant(constant->difference_from, needs_parens, block);
      put_text(" - ", block);
      form_constant(constant->difference_subtract, needs_parens, block);
      break;
    case ck_dynamic_init:
      put_text("dynamic-init: ", block);
      put_text(dynamic_init_kind_names[constant->dynamic_init->kind], block);
      break;
    case ck_aggregate:
      form_aggregate(constant, block);
      break;
    case ck_repeat:
      put_unsigned(constant->repeat_count, block);
      put_text(" repetitions of ", block);
      form_constant(constant->repeat_element, needs_parens, block);
      break;
    case ck_template_param:
      form_template_param_constant(constant, block);
      break;
    case ck_designator:
      form_designator(constant, block);
      break;
    default:
      put_text("**BAD-CONSTANT-KIND**", block);
      break;
  }
}
