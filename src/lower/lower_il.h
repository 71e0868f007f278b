// Lowering: rewrites the IL of a unit in place into the level that the generator knows.
//
// C needs only the pass over bodies and initializers told here; it runs over each body at the end
// of its function and over the file scope's variables at the end of the unit. Behind it no
// expression holds statements, every operand that must be a place is one, _Bool is only assigned
// values that are 0 or 1, calls of builtins are plain code or intrinsics, and constants hold no
// designator that goes back.
//
// New nodes lie in the region of the function, new temporaries in its outermost scope.
#ifndef LOWER_LOWER_IL_H
#define LOWER_LOWER_IL_H

#include <cstdint>

#include "il/il.h"

// ---- State: of the pass that runs --------------------------------------------------------------

extern bool il_lowering_underway;  // a scope is being lowered
extern bool lowering_file_scope;   // it is the file scope of the unit
// Bodies wait for the end of the unit; they are finished by their function definition numbers.
extern bool function_body_processing_delayed_on_some_func_in_primary_il;

// ---- Questions ---------------------------------------------------------------------------------

bool il_lowering_needed();       // C++ without errors: the lowering of classes and calls runs
bool cpp_il_lowering_occured();  // it has run
bool c99_il_lowering_needed();   // complex and variable-length work may come; in lower_c99
bool should_delay_lowering_on_function(const a_routine *routine);  // until the unit is parsed

// ---- Scopes ------------------------------------------------------------------------------------

// The initial values of the file scope's variables; at the end of the unit.
void lower_file_scope();
// The body of a routine, in its own region; at most once.
void lower_function_scope(a_routine *routine, a_scope *scope);
// Routines that were put off until the unit has its id; none in C.
void lower_functions_waiting_for_module_id();

// Entities whose scope went with the body that it belonged to get the file scope as their parent.
void clear_parent_information(a_scope *file_scope);

// ---- Statements --------------------------------------------------------------------------------

void lower_statement(a_statement *statement);
void lower_statement_list(a_statement *first);
// An expression outside of statements has nowhere to put them; it must hold none.
void lower_full_expr(an_expr_node *expr);

// ---- Constants ---------------------------------------------------------------------------------

void lower_constant(a_constant *constant);
// Puts the elements of an aggregate that was written with designators, and of those inside, in the
// order of the type. The last value of a place counts.
void normalize_designated_aggregate(a_constant *constant, a_type *type);

// ---- Builtins ----------------------------------------------------------------------------------

// A call of a builtin function whose operands are lowered becomes what stands for it.
void lower_builtins(an_expr_node *call);

// ---- Helpers -----------------------------------------------------------------------------------

// A variable of the function that is lowered, in its outermost scope.
a_variable *make_local_temporary(a_type *type);
// (t = expr): the assignment; *temporary is t.
an_expr_node *assign_expr_to_temp(an_expr_node *expr, a_variable **temporary);
an_expr_node *make_var_assignment_expr(a_variable *variable, an_expr_node *expr);
an_expr_node *zero_cast_to_void();
// A call of a runtime routine by its external name; the routine is declared if it is not yet. The
// arguments are linked.
an_expr_node *make_prototyped_runtime_call(const char *name, a_type *routine_type,
                                           an_expr_node *arguments);

// ---- Phases ------------------------------------------------------------------------------------

void il_lower_init();
void il_lower_trans_unit_init();

#endif
