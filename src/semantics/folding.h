// Constant folding: casts, unary and binary operations, address arithmetic, comparisons and builtin
// calls on constants, with the arithmetic of the target.
//
// A fold takes its operands and gives a constant. *not_constant says that the expression is no
// constant and stays a tree; *not_computed that its value depends on a template and is decided
// later. What is found wrong is reported at the position, unless `error` is given: then the code
// goes there (a silent context). constant_kind: the language wants a constant expression here;
// value_needed: the value is used (it is not in a dead branch).
#ifndef SEMANTICS_FOLDING_H
#define SEMANTICS_FOLDING_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/il_kinds.h"
#include "il/src_seq.h"

// ---- Operations --------------------------------------------------------------------------------

void unary_operation(an_expr_operator_kind op, const a_constant *operand, a_type *result_type,
                     a_constant *result, bool constant_kind, bool value_needed, bool *not_constant,
                     bool *not_computed, an_error_code *error, const a_source_position *position);
// underlying_left_type: type of the left operand of a shift before promotion, where known.
void binary_operation(an_expr_operator_kind op, const a_constant *left, const a_constant *right,
                      a_type *result_type, a_constant *result, bool constant_kind,
                      bool value_needed, bool *not_constant, bool *not_computed,
                      an_error_code *error, const a_source_position *position,
                      a_type *underlying_left_type = nullptr);

// ---- Conversions -------------------------------------------------------------------------------

struct a_type_change_options {
  bool is_explicit;          // a cast was written
  bool derived_to_base;      // pointers to classes: to a base class
  bool reinterpret;          // only the bits are looked at anew
  bool warn_int_to_pointer;  // 154 for a nonzero integer
  bool check;                // 69, 70: changed values are reported
};
// Converts *c to type in place. Reports as told above; a failing conversion leaves an error
// constant, or *not_constant.
void type_change_constant_full(a_constant *c, a_type *type, const a_type_change_options *options,
                               bool constant_kind, bool value_needed, bool *not_constant,
                               bool *not_computed, an_error_code *error,
                               const a_source_position *position);
// The usual form: an implicit conversion that must succeed, with value checks if `check`.
void type_change_constant(a_constant *c, a_type *type, bool check, bool *not_constant,
                          const a_source_position *position);
// Converts in place, in silence; false: it cannot be done at translation time.
bool implicit_cast(a_constant *c, a_type *type);

// The steps below, without reports: *code and *severity take what is to be said (0: nothing).
// Stores a word as a ck_integer of constant->type, truncated (or saturated) to its precision.
void trunc_and_set_integer(const a_host_large_integer *value, a_constant *constant, bool check,
                           bool saturate, an_error_code *code, int *severity);
void conv_integer_to_integer(const a_constant *from, a_constant *to, bool check,
                             an_error_code *code, int *severity);
void conv_float_to_integer(const a_constant *from, a_constant *to, an_error_code *code,
                           int *severity, bool *error, bool lenient);

// ---- Making constants --------------------------------------------------------------------------

// Each clears *c first. set_error_constant stands in il/il.h.
void set_integer_constant(a_constant *c, std::int64_t value, an_integer_kind kind);
void set_unsigned_integer_constant(a_constant *c, a_host_large_integer value, an_integer_kind kind);
void set_integer_constant_of_type(a_constant *c, std::int64_t value, a_type *type);
void set_float_constant(a_constant *c, const struct simul_fval *value, a_type *type);
// The zero value of a scalar type (a null pointer, 0, 0.0).
void make_zero_constant(a_constant *c, a_type *type);
void set_variable_address_constant(a_constant *c, a_variable *variable, a_type *pointer_type);
void set_routine_address_constant(a_constant *c, a_routine *routine, a_type *pointer_type);
void set_constant_address_constant(a_constant *c, a_constant *target, a_type *pointer_type);
void set_label_address_constant(a_constant *c, a_label *label, a_type *pointer_type);

// ---- Predicates --------------------------------------------------------------------------------

bool is_null_pointer_value(const a_constant *c);     // a pointer or nullptr_t of value 0
bool is_null_pointer_constant(const a_constant *c);  // as the language in force defines it
bool is_or_might_be_null_pointer_constant(const a_constant *c);  // or depends on a template
bool is_zero_constant(const a_constant *c);
bool is_false_constant(const a_constant *c);
bool constant_bool_value_known_at_compile_time(const a_constant *c);
bool variable_has_non_null_address(const a_variable *variable);
bool routine_has_non_null_address(const a_routine *routine);
bool constant_is_pointer_to_string_literal(const a_constant *c, a_constant **string);
bool expr_is_pointer_to_string_literal(const an_expr_node *expr, a_constant **string);

// ---- Addresses ---------------------------------------------------------------------------------

// The selection of a field (its byte offset is added) from the address of a class object. False:
// not an address.
bool fold_field_selection(const a_constant *object_address, a_field *field, a_type *pointer_type,
                          a_constant *result);
// The character that an address in a string literal points to. False: not such an address.
bool fold_element_of_string_literal(const a_constant *address, a_type *type, a_constant *result);
void do_pdiff(const a_constant *left, const a_constant *right, a_constant *result,
              bool *not_constant, an_error_code *code, int *severity);

// ---- Builtin functions -------------------------------------------------------------------------

// *always: the call is folded even outside constant expressions (it never stays a call).
bool is_foldable_gnu_builtin_function(const a_routine *routine, bool *always);
// args: the argument list of the call. False: it stays a call. *error takes a code to report.
bool fold_gnu_builtin_function_call_if_possible(const a_routine *routine, an_expr_node *args,
                                                an_expr_node *call, a_constant *result,
                                                an_error_code *error);

// ---- Phases ------------------------------------------------------------------------------------

void folding_one_time_init();
void folding_init();
void folding_trans_unit_init();

#endif
