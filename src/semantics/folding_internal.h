// What the rooms of the folder share: the state of one fold, and the operations by kind of operand.
#ifndef SEMANTICS_FOLDING_INTERNAL_H
#define SEMANTICS_FOLDING_INTERNAL_H

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "semantics/const_ints.h"
#include "semantics/float_pt.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"

// A folded result that is infinite, a NaN or zero by underflow is taken without a message.
inline constexpr bool IEEE_handling_on_float_operation_exceptions = true;

// One fold: what was asked and what it has found so far.
struct a_fold {
  bool constant_kind;
  bool value_needed;
  an_error_code *silent_error;  // null: faults are reported
  const a_source_position *position;

  bool not_constant;
  bool not_computed;
  an_error_code code;  // ec_no_error: nothing is wrong
  an_error_severity severity;

  void note(an_error_code found, an_error_severity how_bad) {
    code = found;
    severity = how_bad;
  }
  void note_overflow() {
    note(ec_integer_overflow, strict_ansi_mode ? strict_ansi_error_severity : es_warning);
  }
};

// Reports what the fold has found, by the rules for tolerant contexts, and settles the result.
void finish_fold(a_fold &fold, a_constant *result);

// Clears *result and gives it its type.
inline void begin_result(a_constant *result, a_type *type, a_constant_kind kind = ck_integer) {
  clear_constant(result, kind);
  result->type = type;
}
void copy_constant_with_type(const a_constant *from, a_constant *to, a_type *type);

inline bool is_integral_address(const a_constant *c) {
  return c->kind == ck_address && is_integral_or_enum_type(c->type);
}

// ---- folding_integer.cpp -----------------------------------------------------------------------

// Stores a word that an operation gave. In a signed type a value out of range is an overflow.
void set_folded_integer(a_fold &fold, a_host_large_integer value, bool overflow,
                        a_constant *result);
void fold_integer_unary(a_fold &fold, an_expr_operator_kind op, const a_constant *operand,
                        a_constant *result);
void fold_integer_binary(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                         const a_constant *right, a_type *underlying_left_type, a_constant *result);
// The result of a comparison of two values that compare as order (-1, 0, 1).
bool order_satisfies(an_expr_operator_kind op, int order);
void set_bool_result(a_constant *result, bool value);

// ---- folding_float.cpp -------------------------------------------------------------------------

void fold_float_unary(a_fold &fold, an_expr_operator_kind op, const a_constant *operand,
                      a_constant *result);
void fold_float_binary(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                       const a_constant *right, a_constant *result);
void change_float_constant(const a_constant *from, a_constant *to, bool *failed);
bool float_constant_is_zero(const a_constant *c);
a_float_kind float_kind_of(const a_type *type);
a_complex_value *new_complex_value();

// ---- folding_address.cpp -----------------------------------------------------------------------

void fold_pointer_arithmetic(a_fold &fold, bool subtract, const a_constant *pointer,
                             const a_constant *index, std::uint64_t element_size,
                             a_constant *result);
void fold_ptr_add(a_fold &fold, bool subtract, const a_constant *left, const a_constant *right,
                  a_constant *result);
void fold_pointer_comparison(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                             const a_constant *right, a_constant *result);
void fold_ptr_to_member_comparison(a_fold &fold, an_expr_operator_kind op, const a_constant *left,
                                   const a_constant *right, a_constant *result);

#endif
