// What the rooms of lowering share: the function that is lowered, the statements that expressions
// put in front of their own, and small makers of nodes.
//
// Rewriting is done in place: whoever points to a node keeps pointing to what it became. A node
// that becomes an operand of its own replacement is moved to a new place first (moved_node).
#ifndef LOWER_LOWER_INTERNAL_H
#define LOWER_LOWER_INTERNAL_H

#include "lower/lower_il.h"

// Statements that run in front of the one whose expression is lowered, in order.
struct a_statement_run {
  a_statement *first;
  a_statement *last;
};

extern a_scope *lowered_scope;        // the outermost of the function; null at file scope
extern a_routine *lowered_routine;    // null at file scope
extern a_statement_run *current_run;  // null: there is no place for statements

// ---- Nodes (lower_c_node.cpp) ------------------------------------------------------------------

// The contents of the node in a node of its own; the old one is to be overwritten.
an_expr_node *moved_node(const an_expr_node *node);
// Overwrites the node; it stays where it is in its list, and keeps its position if the new one has
// none.
void replace_node(an_expr_node *node, const an_expr_node *replacement);
// (first, second), with the value, and the place, of the second.
an_expr_node *comma_node(an_expr_node *first, an_expr_node *second);
an_expr_node *binary_node(an_expr_operator_kind op, a_type *type, an_expr_node *left,
                          an_expr_node *right);
an_expr_node *conditional_node(a_type *type, an_expr_node *condition, an_expr_node *then_value,
                               an_expr_node *else_value);
an_expr_node *assignment_node(an_expr_node *lvalue, an_expr_node *value);
an_expr_node *int_node(std::int64_t value);
an_expr_node *not_node(an_expr_node *operand);
an_expr_node *zero_node(a_type *type);  // of a scalar
// The value compared with zero, as int; what is 0 or 1 already stays.
an_expr_node *boolean_value(an_expr_node *value);
bool is_zero_or_one(const an_expr_node *value);

bool has_side_effects(const an_expr_node *expr);
// A second use of an expression, evaluated where the first is. The expression becomes free of side
// effects; what has to come in front of both is put into *setup, behind what is there.
an_expr_node *reusable_value(an_expr_node *value, an_expr_node **setup);
an_expr_node *reusable_lvalue(an_expr_node *lvalue, an_expr_node **setup);
// (setup, expr), or expr.
an_expr_node *with_setup(an_expr_node *setup, an_expr_node *expr);

// ---- Expressions (lower_c_expr.cpp) ------------------------------------------------------------

void lower_expr(an_expr_node *expr, bool is_discarded);
// Lowers in a run of its own and gives the run.
a_statement_run lower_expr_in_own_run(an_expr_node *expr, bool is_discarded);
void append_to_run(a_statement_run *run, a_statement *statement);
// Behind `place` in the current run; null: in front of all. Gives the statement.
a_statement *insert_in_run(a_statement *place, a_statement *statement);
// Turns an lvalue of a form that the generator cannot write into an indirection.
void lower_place(an_expr_node *lvalue);

// ---- Places (lower_c_place.cpp) ----------------------------------------------------------------

void lower_rvalue_selection(an_expr_node *selection);
void lower_address_operation(an_expr_node *address);

// ---- Initializations (lower_c_init.cpp) --------------------------------------------------------

// Stores the value of init into the variable: appends to *expr what has to be computed. *constant
// is what is to be stored before; null: nothing.
void split_dynamic_init(a_dynamic_init *init, a_variable *variable, a_constant **constant,
                        an_expr_node **expr);
void lower_temp_init(an_expr_node *expr);
void lower_stmk_init(a_statement *statement);
void lower_variables_of_scope(a_scope *scope);
// A static variable that holds a constant of an aggregate.
a_variable *assoc_var_for_constant(a_constant *constant, a_type *type);
void forget_vars_of_constants();

// ---- Builtins, variable arguments --------------------------------------------------------------

void lower_va_operation(an_expr_node *expr);
an_expr_node *intrinsic_call(int number, const char *name, a_type *type, an_expr_node *arguments);

#endif
