// The intermediate language as one face: its records, and the helpers that everybody uses: nodes
// for operators, constants and variables, statements, copies. The fundamental types are in the face
// of the type module.
#ifndef IL_IL_H
#define IL_IL_H

#include "il/il_alloc.h"
#include "il/il_entity.h"
#include "il/il_expr.h"
#include "il/il_stmt.h"
#include "il/il_template.h"

// ---- State: per translation unit ---------------------------------------------------------------

// a_stdc_pragma_state
extern std::uint8_t curr_fp_contract_state;
extern std::uint8_t curr_fenv_access_state;
extern std::uint8_t curr_cx_limited_range_state;

// ---- Nodes -------------------------------------------------------------------------------------

an_expr_node *error_node();
// The operands are linked already; op_kind_info comes from the first one.
an_expr_node *make_operator_node(an_expr_operator_kind op, a_type *type,
                                 an_expr_node *first_operand);
an_expr_node *make_lvalue_operator_node(an_expr_operator_kind op, a_type *type,
                                        an_expr_node *first_operand);
an_expr_node *make_comma_node(an_expr_node *first, an_expr_node *second);
an_expr_node *alloc_node_for_constant(const a_constant *constant);  // shares the constant
an_expr_node *node_for_il_constant(a_constant *constant);           // takes it as it is
an_expr_node *node_for_integer_constant(std::int64_t value, an_integer_kind kind);
an_expr_node *var_lvalue_expr(a_variable *variable);
an_expr_node *var_rvalue_expr(a_variable *variable);
an_expr_node *function_addr_expr(a_routine *routine);
an_expr_node *function_lvalue_expr(a_routine *routine);
// The value of an lvalue; arrays and functions become pointers.
an_expr_node *rvalue_expr_for_lvalue(an_expr_node *node);
an_expr_node *add_address_of_to_node(an_expr_node *lvalue);
an_expr_node *add_indirection_to_node(an_expr_node *pointer);
an_expr_node *field_lvalue_selection_expr(an_expr_node *object, a_field *field);
an_expr_node *add_cast(an_expr_node *node, a_type *type);
an_expr_node *add_cast_if_necessary(an_expr_node *node, a_type *type);
// The operand kind for op_kind_info: tk_integer, tk_float, tk_pointer and so on.
std::uint8_t compute_op_kind_info(const a_type *type);
void set_node_operator(an_expr_node *node, an_expr_operator_kind op, a_type *type, bool is_lvalue,
                       an_expr_node *first_operand);
bool is_cast_operation_node(const an_expr_node *node);
bool is_operation_node(const an_expr_node *node, an_expr_operator_kind op);
void set_error_constant(a_constant *constant);
// An initialization for a lowered or parsed construct.
a_dynamic_init *make_expression_dynamic_init(an_expr_node *expr);

// ---- Statements --------------------------------------------------------------------------------

// The statement moves into a new child; the old one becomes a block around it.
void change_statement_into_block(a_statement *statement);
void turn_statement_into_noop(a_statement *statement);
a_statement *make_expr_statement(an_expr_node *expr);

// ---- Copies ------------------------------------------------------------------------------------

enum a_copy_tree_flag : std::uint8_t {
  ctf_none = 0,
  ctf_keep_rescan_info = 1,
  ctf_share_temporaries = 2,  // temporaries and reusable values stay the ones of the original
  ctf_into_file_scope = 4
};
an_expr_node *copy_node(const an_expr_node *node);  // its operands stay shared
an_expr_node *copy_expr_tree(const an_expr_node *expr, int flags);
an_expr_node *copy_expr_list(const an_expr_node *list, int flags);
a_statement *copy_statement(const a_statement *statement);
void copy_constant(const a_constant *from, a_constant *to);  // all but the list link
a_constant *copy_constant_tree(const a_constant *constant);
a_dynamic_init *copy_dynamic_init(const a_dynamic_init *init, int flags);

// ---- Namespaces, routines ----------------------------------------------------------------------

a_namespace *f_skip_namespace_aliases(a_namespace *name_space);
inline bool is_cplusplus_il() {
  return il_header.source_language == sl_cplusplus;
}

// ---- Phases ------------------------------------------------------------------------------------

void il_one_time_init();
void il_init();
void il_trans_unit_init();
void il_reset();

#endif
