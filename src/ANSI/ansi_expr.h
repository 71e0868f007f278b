// Expressions, constants and local initializations as streams of nodes: the inner half of the
// code-tree generator.
#ifndef ANSI_ANSI_EXPR_H
#define ANSI_ANSI_EXPR_H

#include <cstdint>

#include "il/il_fwd.h"

// Writes an expression. wanted_type null: the expression's own type.
void generate_expression(an_expr_node *expr, a_type *wanted_type = nullptr);
// Writes the address of an lvalue.
void generate_address(an_expr_node *expr, a_type *pointer_type);
void generate_call(an_expr_node *expr);
// The routine that the callee of a call names directly, or null.
a_routine *direct_callee(const an_expr_node *callee);
// Writes the value nodes of a constant; in_initial_value when it is (part of) the initial value of
// a static variable of wanted_type.
void generate_constant(a_constant *constant, a_type *wanted_type, bool in_initial_value);
// Writes a declared variable's initialization as an assignment.
void generate_dynamic_init(a_dynamic_init *init);
// The type of a member in the file; a bit-field has that of its container.
a_type *bit_field_container_type(a_field *field, a_type *type);
// The node that names a member of a class.
void put_field(a_field *field, a_type *class_type);
// Bytes from one element to the next of a type; 1 for void and functions.
std::uint64_t step_size(a_type *type);
// Record 46 and a jump to a label when the condition is zero, or with invert when it is not.
void branch_on_condition(std::uint32_t label, an_expr_node *condition, bool invert);
void branch(std::uint32_t label);

#endif
