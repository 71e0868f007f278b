// Integers of the target in one 64-bit word: arithmetic with explicit overflow, ranges of the
// integer kinds, decimal text. A signed value is kept sign-extended to 64 bits, an unsigned one
// zero-extended. Operations take the left operand by pointer and change it in place.
#ifndef SEMANTICS_CONST_INTS_H
#define SEMANTICS_CONST_INTS_H

#include <cstddef>

#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/il_kinds.h"

// Ranges, by integer kind; built by const_ints_init from the precisions of the target.
inline constexpr int num_integer_kinds = 11;
inline constexpr int no_integer_kind = 11;  // "no such kind"
extern a_host_large_integer min_integer_value_of_kind[num_integer_kinds];
extern a_host_large_integer max_integer_value_of_kind[num_integer_kinds];

// Once for each compilation, behind the target's options; int_kind_is_signed must be settled.
void const_ints_init();

// Arithmetic on words. *overflow is set to whether the result is wrong, never left alone.
void add_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                        bool *overflow);
void subtract_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                             bool *overflow);
// a is unsigned and b signed; the result is unsigned.
void add_mixed_signed_integer_values(a_host_large_integer *a, a_host_large_integer b,
                                     bool *overflow);
void subtract_mixed_signed_integer_values(a_host_large_integer *a, a_host_large_integer b,
                                          bool *overflow);
void multiply_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                             bool *overflow);
// Division by zero is the caller's to refuse; the minimum value by -1 overflows.
void divide_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                           bool *overflow);
void remainder_integer_values(a_host_large_integer *a, a_host_large_integer b, bool is_signed,
                              bool *overflow);
void negate_integer_value(a_host_large_integer *a, bool *overflow);
// Counts of 64 and more give 0 (or all sign bits), never a host shift.
void shift_left_integer_value(a_host_large_integer *a, int count, bool *overflow);
void shift_right_integer_value(a_host_large_integer *a, int count, bool is_signed, bool arithmetic);
void make_integer_value_mask(a_host_large_integer *mask, int bits);  // 0 bits: 0
// Keeps the low bits and, for a signed value, extends the sign from them.
void truncate_integer_value(a_host_large_integer *a, int precision, bool is_signed);
int cmp_integer_values(a_host_large_integer a, bool a_signed, a_host_large_integer b,
                       bool b_signed);  // -1, 0, 1

// Constants of kind ck_integer.
bool int_constant_is_signed(const a_constant *c);
std::int64_t value_of_integer_constant(const a_constant *c, bool *large_unsigned);
a_host_large_integer unsigned_value_of_integer_constant(const a_constant *c, bool *negative);
int cmp_integer_constants(const a_constant *a, const a_constant *b);
int cmplit_integer_constant(const a_constant *c, std::int64_t literal);
int cmpulit_integer_constant(const a_constant *c, a_host_large_integer literal);
// True when the values from c to c2 (null: c alone) fit the kind.
bool in_range_for_integer_kind(const a_constant *c, const a_constant *c2, an_integer_kind kind);
bool le_max_integer_value_of_kind(a_host_large_integer value, bool is_signed, an_integer_kind kind);
bool value_in_range_for_integer_kind(a_host_large_integer value, bool is_signed,
                                     an_integer_kind kind);
bool is_max_value_for_integer_kind(const a_constant *c, an_integer_kind kind);
// Bits of value; a negative value needs its sign bit too.
int bits_required_to_represent_integer_constant(const a_constant *c);

// Decimal text. The first three use a static buffer that the next call overwrites.
const char *str_for_integer_value(a_host_large_integer value, bool is_signed);
const char *str_for_integer_constant(const a_constant *c);
const char *decimal_str_for_integer_constant(const a_constant *c);
inline constexpr std::size_t integer_text_size = 24;
char *f_unsigned_to_string_buf(a_host_large_integer value, char buffer[integer_text_size]);

#endif
