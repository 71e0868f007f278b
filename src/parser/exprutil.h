// Operands: the value of an expression while it is scanned, and the operations on it - categories,
// conversions, folding, constants.
//
// An operand is a plain record on the stack of the scanning routine, copied by value. Only at the
// end of an expression, or where an operator does not fold, does it become a node of the IL. Every
// check reports at the operand's position and turns the operand into an error operand; an error
// operand silences all checks that follow.
#ifndef PARSER_EXPRUTIL_H
#define PARSER_EXPRUTIL_H

#include <cstdint>

#include "DIAG/error.h"
#include "UTIL/basics.h"
#include "il/il_expr.h"
#include "il/src_seq.h"
#include "semantics/symbol_tbl.h"

enum an_operand_kind : std::uint8_t {
  ok_error,
  ok_expression,
  ok_constant,
  ok_indefinite_function,  // an overload set that is not resolved
  ok_sym_for_member,       // a member named without object
  ok_braced_list,
  ok_undefined_symbol,  // a name without declaration, pending a "("
  ok_type,              // "(type-name)" as the operand of sizeof and its kin
};

enum a_value_category : std::uint8_t { vc_none, vc_lhsref, vc_glvalue, vc_prvalue, vc_function };

// A reference to a symbol that counts when the expression is complete: what was done with it is
// known only then. From a free list; queued in the order of the source.
struct a_ref_entry {
  a_ref_entry *next_in_expr;
  a_symbol *symbol;
  a_source_position position;
  unsigned kinds;         // a_reference_kind; 0: named only
  bool is_error;          // nothing more is recorded of it
  bool value_is_dropped;  // by (void)x
  a_ref_entry *object;    // of a member: the reference to the object of which it is a part, or null
};

struct an_operand {
  a_type *type;  // of a glvalue the object's type with its qualifiers
  an_operand_kind kind;
  a_value_category value_category;
  bool is_plain_id : 1;  // a name, not parenthesized or cast
  bool parenthesized : 1;
  bool string_literal : 1;
  bool not_integral_constant : 1;  // it can no longer be an integral constant expression
  bool not_constant : 1;           // nor any other constant
  bool is_compound_literal : 1;
  a_source_position start_pos;
  a_source_position end_pos;
  a_ref_entry *ref_entry;  // of the object named, while the operand is that object or part of it
  a_symbol *symbol;        // ok_undefined_symbol; a named object or function
  union {
    an_expr_node *expr;   // ok_expression
    a_constant constant;  // ok_constant
  };
};

// What an expression is for.
enum an_expression_kind : std::uint8_t {
  ek_preprocessing = 0,
  ek_integral_constant = 1,
  ek_template_arg = 2,
  ek_constant = 3,
  ek_normal = 4,
  ek_unevaluated = 5,
};

// The context of the expression being scanned; on the stack of the scanning routine.
struct an_expr_stack_entry {
  an_expr_stack_entry *enclosing;
  a_ref_entry *saved_ref_entries;
  a_ref_entry *saved_last_ref_entry;
  an_expression_kind expr_kind;
  bool value_needed : 1;  // the value is used: clear in dead branches
  bool evaluated : 1;     // references count as real uses
  bool must_be_constant : 1;
  bool in_prototype : 1;
  bool suppress_errors : 1;  // errors are not issued, they only set error_suppressed
  bool error_suppressed : 1;
  bool statement_expr_tail : 1;
  int scope_depth_at_push;
};

// ---- State -------------------------------------------------------------------------------------

extern an_expr_stack_entry *expr_stack;  // the innermost context; null outside expressions
extern int expr_depth;                   // of nested scans, for the limit
extern int generic_depth;                // of nested generic selections, for the limit

// ---- Contexts ----------------------------------------------------------------------------------

void push_expr_stack(an_expression_kind kind, an_expr_stack_entry *entry);
// Records the references of the expression.
void pop_expr_stack();
inline bool in_constant_expression() {
  return expr_stack != nullptr && expr_stack->expr_kind < ek_normal;
}

// ---- Messages that honour suppressed errors ----------------------------------------------------

bool expr_error_should_be_issued();
bool expr_diagnostic_should_be_issued(an_error_severity severity, an_error_code code,
                                      const a_source_position *position);
void expr_pos_error(an_error_code code, const a_source_position *position);
void expr_pos_warning(an_error_code code, const a_source_position *position);
void expr_pos_diagnostic(an_error_severity severity, an_error_code code,
                         const a_source_position *position);
void expr_pos_ty2_diagnostic(an_error_severity severity, an_error_code code,
                             const a_source_position *position, a_type *type1, a_type *type2);
void expr_pos_st_error(an_error_code code, const a_source_position *position, const char *text);
void expr_syntax_error(an_error_code code);

// ---- Making operands ---------------------------------------------------------------------------
// All reset the record; the positions are those of the current token.

void make_error_operand(an_operand *operand);
void make_constant_operand(const a_constant *constant, an_operand *operand);
void make_integer_constant_operand(std::int64_t value, an_integer_kind kind, an_operand *operand);
void make_string_constant_operand(const a_constant *string, an_operand *operand);
void make_expression_operand(an_expr_node *node, an_operand *operand);  // a prvalue
void make_glvalue_expression_operand(an_expr_node *node, an_operand *operand);
void make_lvalue_variable_operand(a_variable *variable, an_operand *operand);
void make_function_designator_operand(a_routine *routine, an_operand *operand);
void make_undefined_symbol_operand(a_symbol_locator *locator, an_operand *operand);
void conv_to_error_operand(an_operand *operand);  // keeps the positions
inline bool is_error_operand(const an_operand *operand) {
  return operand->kind == ok_error;
}
inline bool is_constant_operand(const an_operand *operand) {
  return operand->kind == ok_constant;
}
inline bool is_glvalue_operand(const an_operand *operand) {
  return operand->value_category == vc_glvalue;
}

// Positions and marks of saved, for an operand that replaces it.
void restore_operand_details(an_operand *operand, const an_operand *saved);

// ---- References --------------------------------------------------------------------------------

a_ref_entry *ref_entry(a_symbol *symbol, const a_source_position *position);
void change_ref_kinds(an_operand *operand, unsigned kinds);
void modifying_lvalue(an_operand *operand, bool also_read);
// The address of the object is taken: its variable must be in memory.
void take_address_of_lvalue(an_operand *operand);
void change_operand_refs_to_error(an_operand *operand);

// ---- Leaving operand form ----------------------------------------------------------------------

an_expr_node *make_node_from_operand(an_operand *operand);
// The constant that the operand is; else a message and an error constant. False after that.
bool extract_constant_from_operand(an_operand *operand, a_constant *constant);
// The bit-field that the operand names, or null.
a_field *bit_field_of_operand(const an_operand *operand);

// ---- Standard conversions ----------------------------------------------------------------------

enum a_transformation_flag : unsigned {
  dot_keep_function = 1,
  dot_keep_array = 2,
  dot_keep_lvalue = 4,
};
// What the value of an operand needs: array to pointer, function to pointer, lvalue to value.
void do_operand_transformations(an_operand *operand, unsigned keep = 0);
void conv_glvalue_to_prvalue(an_operand *operand);
void conv_array_operand_to_pointer_operand(an_operand *operand);
void conv_function_designator_to_ptr_to_function(an_operand *operand);
// The address of an lvalue node as a constant; false: it is not known at translation time.
bool fold_address_of_lvalue(an_expr_node *lvalue, a_type *pointer_type, a_constant *result);
void promote_operand(an_operand *operand);  // the integral promotions
a_type *promoted_type_of_operand(const an_operand *operand);

// ---- Checks; false after a message, with the operand in error ----------------------------------

bool check_integral_or_enum_operand(an_operand *operand);
bool check_arithmetic_or_enum_operand(an_operand *operand);
bool check_scalar_operand(an_operand *operand);
bool check_object_pointer_operand(an_operand *operand);
bool check_modifiable_lvalue_operand(an_operand *operand);
bool check_boolean_controlling_expr(an_operand *operand);
void error_in_operand(an_error_code code, an_operand *operand);

// ---- Conversions -------------------------------------------------------------------------------

// Changes the type of the value; the conversion is known to be possible.
void cast_operand(a_type *type, an_operand *operand, bool is_implicit);
// As by assignment, argument passing, initialization; the code is for a value that does not fit.
void prep_assignment_operand(an_operand *operand, a_type *type, an_error_code code);
// A cast as written, with all its checks.
void c_style_cast(an_operand *operand, a_type *type, const a_source_position *position);
void default_promote_argument(an_operand *operand);

// ---- Operations --------------------------------------------------------------------------------

// Folds or builds; the operands have their final types.
void do_binary_operation(an_expr_operator_kind op, an_operand *left, an_operand *right,
                         a_type *type, an_operand *result, const a_source_position *position,
                         a_type *underlying_left_type = nullptr);
void do_unary_operation(an_expr_operator_kind op, an_operand *operand, a_type *type,
                        an_operand *result, const a_source_position *position);
a_type *size_type();
a_type *ptrdiff_type();

void expr_one_time_init();
void expr_trans_unit_init();

#endif
