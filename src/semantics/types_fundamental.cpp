// The fundamental types and the types of string literals: one record of each per translation unit,
// made at the first request.
#include "driver/switches.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

constexpr std::uint64_t num_cached_string_lengths = 81;

// All types of the current unit; null: not made yet.
struct a_type_table {
  a_type *error, *void_type, *unknown;
  a_type *integers[ik_last];
  a_type *signed_integers[ik_last];
  a_type *floats[fk_last], *complexes[fk_last], *imaginaries[fk_last];
  a_type *boolean, *wchar, *char16, *char32;
  a_type *nullptr_types[2];  // standard, managed
  a_type *wildcard;
  a_type *strings[num_string_char_kinds][num_cached_string_lengths];
};
a_type_table table;

// A fundamental type belongs to no scope.
a_type *new_fundamental_type(a_type_kind kind) {
  a_type *type = alloc_type(kind);
  type->is_builtin_type = true;
  f_possibly_add_orphaned_file_scope_il_entry(type, iek_type, nullptr);
  return type;
}

a_type *fundamental_type(a_type **slot, a_type_kind kind) {
  if (*slot == nullptr) {
    *slot = new_fundamental_type(kind);
    set_type_size(*slot);
  }
  return *slot;
}

a_type *new_integer_type(an_integer_kind kind) {
  a_type *type = new_fundamental_type(tk_integer);
  type->int_kind = kind;
  type->is_small_enum = false;
  set_type_size(type);
  return type;
}

a_type *float_family_type(a_type **slots, a_type_kind kind, a_float_kind float_kind) {
  check_invariant(float_kind < fk_last);
  a_type *&slot = slots[float_kind];
  if (slot == nullptr) {
    slot = new_fundamental_type(kind);
    slot->float_kind = float_kind;
    set_type_size(slot);
  }
  return slot;
}

}  // namespace

a_type *error_type() {
  return fundamental_type(&table.error, tk_error);
}

a_type *void_type() {
  return fundamental_type(&table.void_type, tk_void);
}

a_type *unknown_type() {
  return fundamental_type(&table.unknown, tk_unknown);
}

a_type *integer_type(an_integer_kind kind) {
  check_invariant(kind < ik_last);
  a_type *&slot = table.integers[kind];
  if (slot == nullptr) slot = new_integer_type(kind);
  return slot;
}

a_type *other_signedness_integer_type(const a_type *type) {
  an_integer_kind kind = skip_typerefs(type)->int_kind;
  if (is_signed_integral_type(type))
    return integer_type(static_cast<an_integer_kind>(unsigned_int_kind_of[kind]));
  for (int other = ik_signed_char; other < ik_last; ++other)
    if (other != kind && unsigned_int_kind_of[other] == kind &&
        int_kind_is_signed[other] != int_kind_is_signed[kind])
      return integer_type(static_cast<an_integer_kind>(other));
  return integer_type(kind);
}

a_type *signed_integer_type(an_integer_kind kind) {
  check_invariant(kind < ik_last);
  a_type *&slot = table.signed_integers[kind];
  if (slot == nullptr) {
    slot = new_integer_type(kind);
    slot->explicit_signed = true;
  }
  return slot;
}

a_type *float_type(a_float_kind kind) {
  return float_family_type(table.floats, tk_float, kind);
}

a_type *complex_type(a_float_kind kind) {
  return float_family_type(table.complexes, tk_complex, kind);
}

a_type *imaginary_type(a_float_kind kind) {
  return float_family_type(table.imaginaries, tk_imaginary, kind);
}

a_type *bool_type() {
  if (table.boolean == nullptr) {
    table.boolean = new_integer_type(in_cplusplus() ? targ_bool_int_kind : targ_c_bool_int_kind);
    table.boolean->is_bool = true;
    table.boolean->precision = 1;
  }
  return table.boolean;
}

a_type *wchar_t_type() {
  if (table.wchar == nullptr) {
    table.wchar = new_integer_type(targ_wchar_t_int_kind);
    table.wchar->is_wchar_t = true;
  }
  return table.wchar;
}

a_type *char16_t_type() {
  if (table.char16 == nullptr) {
    table.char16 = new_integer_type(targ_char16_t_int_kind);
    table.char16->is_char16_t = true;
  }
  return table.char16;
}

a_type *char32_t_type() {
  if (table.char32 == nullptr) {
    table.char32 = new_integer_type(targ_char32_t_int_kind);
    table.char32->is_char32_t = true;
  }
  return table.char32;
}

a_type *eff_wchar_t_type() {
  bool is_keyword = in_cplusplus() && wchar_t_is_keyword;
  return is_keyword ? wchar_t_type() : integer_type(targ_wchar_t_int_kind);
}

a_type *eff_char16_t_type() {
  bool is_keyword = in_cplusplus() && char16_t_and_char32_t_are_keywords;
  return is_keyword ? char16_t_type() : integer_type(targ_char16_t_int_kind);
}

a_type *eff_char32_t_type() {
  bool is_keyword = in_cplusplus() && char16_t_and_char32_t_are_keywords;
  return is_keyword ? char32_t_type() : integer_type(targ_char32_t_int_kind);
}

a_type *standard_nullptr_type() {
  return fundamental_type(&table.nullptr_types[0], tk_nullptr);
}

a_type *managed_nullptr_type() {
  a_type *type = fundamental_type(&table.nullptr_types[1], tk_nullptr);
  type->is_managed = true;
  return type;
}

a_type *qx_wildcard_type() {
  if (table.wildcard == nullptr) {
    table.wildcard = new_fundamental_type(tk_class);
    table.wildcard->name = "__QX_wildcard";
    table.wildcard->class_flags.is_predeclared = true;
  }
  return table.wildcard;
}

bool is_qx_wildcard_type(const a_type *type) {
  return table.wildcard != nullptr && skip_typerefs(type) == table.wildcard;
}

// ---- String literals ---------------------------------------------------------------------------

a_type *string_literal_element_type(a_string_char_kind char_kind) {
  a_type *element = nullptr;
  switch (char_kind) {
    case chk_char:
      element = integer_type(plain_char_int_kind);
      break;
    case chk_wchar_t:
      element = eff_wchar_t_type();
      break;
    case chk_char16_t:
      element = eff_char16_t_type();
      break;
    case chk_char32_t:
      element = eff_char32_t_type();
      break;
  }
  bool is_const = in_cplusplus() && string_literals_are_const;
  return is_const ? f_make_qualified_type(element, tq_const) : element;
}

namespace {

a_type *new_string_literal_type(a_string_char_kind char_kind, std::uint64_t length) {
  a_type *type = new_fundamental_type(tk_array);
  type->element_type = string_literal_element_type(char_kind);
  type->number_of_elements = length;
  type->zero_bound = length == 0;
  set_array_type_size(type, true);
  return type;
}

}  // namespace

a_type *string_literal_type(a_string_char_kind char_kind, std::uint64_t length) {
  if (length >= num_cached_string_lengths) return new_string_literal_type(char_kind, length);
  a_type *&slot = table.strings[char_kind][length];
  if (slot == nullptr) slot = new_string_literal_type(char_kind, length);
  return slot;
}

// ---- Phases ------------------------------------------------------------------------------------

void types_early_init() {
  enum_type_is_integral = false;
  table = {};
}

void types_trans_unit_init() {
  table = {};
}
