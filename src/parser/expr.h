// The expression parser: turns tokens into typed nodes. One routine scans an operand and then loops
// over the operators that bind tightly enough; each operator has a routine of its own. Checks,
// conversions and folding happen on the way.
#ifndef PARSER_EXPR_H
#define PARSER_EXPR_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "il/il_fwd.h"

struct an_operand;
struct an_expr_stack_entry;

bool is_expr_start_token();

// ---- Full expressions --------------------------------------------------------------------------

// expression, as a statement. is_result, if given: the expression is the last of a statement
// expression when it becomes true, and its value is kept.
an_expr_node *scan_void_expression(bool *is_result, a_dynamic_init **init);
// The condition of if, while, do, for: a scalar, not converted.
an_expr_node *scan_boolean_controlling_expression();
// The selector of a switch: integral, promoted. *orig_type: its type before.
an_expr_node *scan_integer_expression(a_type **orig_type);
// The value of a return statement, converted to the type.
an_expr_node *scan_return_expression(a_type *type, a_dynamic_init **init);
// An expression converted to the type as by assignment; code tells of one that cannot be.
an_expr_node *scan_typed_expression(a_type *type, an_error_code code);
// The value of  return e;  in a function that returns void: computed and dropped.
an_expr_node *scan_unwanted_return_expression();

// ---- Constant expressions; the constant is an error constant after a message -------------------

void scan_integral_constant_expression(a_constant *constant);
void scan_bool_constant_expression(a_constant *constant);
void scan_constant_dimension_expression(a_constant *constant);
enum a_dimension_flag : int {
  ndf_value_is_forgotten = 1,  // of a parameter: an expression with an effect is refused
};
// An array bound: a constant, or *node is set to a bound that is computed.
void scan_nonconstant_dimension_expression(int flags, an_expr_node **node, a_constant *constant);
// Converted to the promoted type of the selector; null after an error.
a_constant *scan_case_label_constant(a_type *type, a_type *promoted_type);
// An argument of an attribute: a constant, or an error constant.
void scan_expr_for_attribute(a_constant *constant);

// ---- Initializers ------------------------------------------------------------------------------

// An initializer's expression is scanned before it is known what it initializes: the context stays
// open from begin to finish.
void begin_initializer_expression(an_expr_stack_entry *entry, bool constant_required);
void scan_initializer_operand(an_operand *operand);
// Converts the operand to the type. With *node null the value is the constant. False after an
// error.
bool finish_initializer_expression(an_expr_stack_entry *entry, an_operand *operand, a_type *type,
                                   bool constant_required, a_constant *constant,
                                   an_expr_node **node);
// Nothing takes the operand.
void abandon_initializer_expression();

// ---- Parts -------------------------------------------------------------------------------------

// typeof: the current token is the "(".
a_type *scan_typeof();

#endif
