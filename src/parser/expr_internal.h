// What the rooms of the expression parser share.
#ifndef PARSER_EXPR_INTERNAL_H
#define PARSER_EXPR_INTERNAL_H

#include "parser/expr.h"
#include "parser/exprutil.h"
#include "source/lexical.h"

// Levels of operators, as the grammar nests them; higher binds tighter.
enum an_operator_level : std::uint8_t {
  level_any = 0,
  level_comma = 1,
  level_assignment = 2,
  level_conditional = 3,
  level_or_or = 4,
  level_and_and = 5,
  level_or = 6,
  level_excl_or = 7,
  level_and = 8,
  level_min_max = 9,
  level_equality = 10,
  level_relational = 11,
  level_shift = 12,
  level_additive = 13,
  level_multiplicative = 14,
  level_cast = 16,
  level_unary = 17,
  level_postfix = 18,
};

inline constexpr int max_expr_depth = 20000;

// Scans an operand and the operators of at least the level that follow it.
void scan_expr_at_level(an_operand *result, int level);
// The rest of an expression behind an operand that was scanned already.
void scan_operators(an_operand *operand, int level);

// Operands (expr_primary.cpp).
void scan_primary(an_operand *result);
// "(" is the current token: a cast, a compound literal, a statement expression, or parentheses.
void scan_parenthesis(an_operand *result);
// The same as the operand of sizeof: "(type)" with no "{" behind it gives an ok_type operand.
void scan_parenthesis_for_size(an_operand *result);

// Prefix operators (expr_unary.cpp); the current token is the operator.
void scan_prefix_incr_decr(an_operand *result);
void scan_address_of(an_operand *result);
void scan_indirection(an_operand *result);
void scan_unary_arith(an_operand *result);
void scan_sizeof(an_operand *result);
void scan_alignof(an_operand *result);
void scan_real_imag(an_operand *result);
void make_indirection(an_operand *pointer, an_operand *result, const a_source_position *position);
void make_address_of(an_operand *operand, an_operand *result, const a_source_position *position);

// Binary operators (expr_binary.cpp, expr_assign.cpp): the left operand is scanned, the current
// token is the operator.
void scan_binary_operator(an_operand *left, an_operand *result, int level);
void scan_conditional(an_operand *left, an_operand *result);
// For a value that is needed twice: the operand becomes a read of a temporary variable, *setup the
// assignment to it. Inside functions only.
void copy_to_temporary(an_operand *operand, an_expr_node **setup);
void scan_assignment(an_operand *left, an_operand *result);
void scan_comma(an_operand *left, an_operand *result);
// The operand is computed for its effects: a warning when it has none, a read when it is volatile.
void discard_operand_value(an_operand *operand);
// left + right where one is a pointer; for subscripts too.
void add_to_pointer(an_operand *pointer, an_operand *index, bool index_is_first, an_operand *result,
                    const a_source_position *position);
void scan_postfix_incr_decr(an_operand *left, an_operand *result);

// Postfix operators (expr_postfix.cpp, expr_call.cpp).
void scan_subscript(an_operand *left, an_operand *result);
void scan_field_selection(an_operand *left, an_operand *result);
// The member's name is the current token; a pointer was made a value already.
void scan_member_name(an_operand *object, bool by_pointer, an_operand *result);
void scan_function_call(an_operand *left, an_operand *result);

// Builtin forms (expr_builtin.cpp).
void scan_offsetof(an_operand *result);
void scan_types_compatible(an_operand *result);
void scan_generic_selection(an_operand *result);
void scan_va_keyword(an_operand *result);
void scan_intaddr(an_operand *result);
void scan_builtin_addressof(an_operand *result);
// A call of a builtin that the parser takes itself; false: it is an ordinary call. The current
// token is the "(".
bool scan_builtin_call(a_routine *routine, an_operand *function, an_operand *result);
// Atomic builtins for any size (expr_atomic.cpp): the arguments up to the ")"; the result is a call
// of the form for the size of what the first argument points to.
bool is_generic_atomic_builtin(const a_routine *routine);
void scan_generic_atomic(const a_routine *routine, const a_source_position *position,
                         an_operand *result);
// Selects a field of an object or, by pointer, of what it points to.
void make_field_selection(an_operand *object, a_field *field, bool by_pointer, an_operand *result);

// The type of "(type)", the current token behind "("; goes behind ")".
a_type *scan_parenthesized_type_rest();
// A type or an unevaluated expression in parentheses, or a unary expression. *operand is filled
// when null is returned.
a_type *scan_type_or_unevaluated_operand(an_operand *operand);

#endif
