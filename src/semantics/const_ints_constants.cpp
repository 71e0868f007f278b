// Integer constants of the IL: their value as the type reads it, comparisons, and the ranges of the
// integer kinds.
#include "il/il_expr.h"
#include "semantics/const_ints.h"
#include "semantics/float_pt.h"
#include "semantics/target.h"
#include "semantics/types.h"

a_host_large_integer min_integer_value_of_kind[num_integer_kinds];
a_host_large_integer max_integer_value_of_kind[num_integer_kinds];

void const_ints_init() {
  for (int i = 0; i < num_integer_kinds; ++i) {
    an_integer_kind kind = static_cast<an_integer_kind>(i);
    int precision = precision_of_integer_kind(kind);
    bool is_signed = int_kind_is_signed[kind] != 0;
    make_integer_value_mask(&max_integer_value_of_kind[i], precision - (is_signed ? 1 : 0));
    min_integer_value_of_kind[i] = is_signed ? -max_integer_value_of_kind[i] - 1 : 0;
  }
}

// Pointers and what else holds an integer without being one are unsigned.
bool int_constant_is_signed(const a_constant *c) {
  const a_type *type = skip_typerefs(c->type);
  return type->kind == tk_integer && int_kind_is_signed[type->int_kind] != 0;
}

std::int64_t value_of_integer_constant(const a_constant *c, bool *large_unsigned) {
  std::int64_t value = static_cast<std::int64_t>(c->integer_value);
  *large_unsigned = value < 0 && !int_constant_is_signed(c);
  return value;
}

a_host_large_integer unsigned_value_of_integer_constant(const a_constant *c, bool *negative) {
  *negative = static_cast<std::int64_t>(c->integer_value) < 0 && int_constant_is_signed(c);
  return c->integer_value;
}

int cmp_integer_constants(const a_constant *a, const a_constant *b) {
  return cmp_integer_values(a->integer_value, int_constant_is_signed(a), b->integer_value,
                            int_constant_is_signed(b));
}

int cmplit_integer_constant(const a_constant *c, std::int64_t literal) {
  return cmp_integer_values(c->integer_value, int_constant_is_signed(c),
                            static_cast<a_host_large_integer>(literal), true);
}

int cmpulit_integer_constant(const a_constant *c, a_host_large_integer literal) {
  return cmp_integer_values(c->integer_value, int_constant_is_signed(c), literal, false);
}

bool le_max_integer_value_of_kind(a_host_large_integer value, bool is_signed,
                                  an_integer_kind kind) {
  return cmp_integer_values(value, is_signed, max_integer_value_of_kind[kind],
                            int_kind_is_signed[kind] != 0) <= 0;
}

bool value_in_range_for_integer_kind(a_host_large_integer value, bool is_signed,
                                     an_integer_kind kind) {
  return le_max_integer_value_of_kind(value, is_signed, kind) &&
         cmp_integer_values(value, is_signed, min_integer_value_of_kind[kind],
                            int_kind_is_signed[kind] != 0) >= 0;
}

bool in_range_for_integer_kind(const a_constant *c, const a_constant *c2, an_integer_kind kind) {
  if (!value_in_range_for_integer_kind(c->integer_value, int_constant_is_signed(c), kind))
    return false;
  return c2 == nullptr ||
         value_in_range_for_integer_kind(c2->integer_value, int_constant_is_signed(c2), kind);
}

bool is_max_value_for_integer_kind(const a_constant *c, an_integer_kind kind) {
  return cmp_integer_values(c->integer_value, int_constant_is_signed(c),
                            max_integer_value_of_kind[kind], int_kind_is_signed[kind] != 0) == 0;
}

int bits_required_to_represent_integer_constant(const a_constant *c) {
  bool negative;
  a_host_large_integer value = unsigned_value_of_integer_constant(c, &negative);
  if (negative) value = ~value;
  int bits = value == 0 ? 0 : 64 - __builtin_clzll(value);
  return negative ? bits + 1 : bits == 0 ? 1 : bits;
}

const char *str_for_integer_constant(const a_constant *c) {
  return str_for_integer_value(c->integer_value, int_constant_is_signed(c));
}

const char *decimal_str_for_integer_constant(const a_constant *c) {
  return str_for_integer_constant(c);
}

void make_saturated_integer_for_float(a_float_kind, const simul_fval *v,
                                      a_host_large_integer *value, const a_constant *constant) {
  const a_type *type = skip_typerefs(constant->type);
  *value = f_lt(v, &pos_zero) ? min_integer_value_of_kind[type->int_kind]
                              : max_integer_value_of_kind[type->int_kind];
}
