// What the rooms of the statement parser share: the stack of open statements, the list that is
// being built, reachability as one value, and the points that jumps may not pass.
#ifndef PARSER_STATEMENTS_INTERNAL_H
#define PARSER_STATEMENTS_INTERNAL_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "il/il_fwd.h"
#include "il/il_kinds.h"
#include "il/src_seq.h"
#include "parser/statements.h"

// One case label of an open switch, in a tree by value that keeps itself balanced by priorities.
struct a_case_node {
  a_case_node *left;
  a_case_node *right;  // and link of the free list
  a_switch_case_entry *entry;
  std::uint32_t priority;
};

// One open structured statement.
struct a_struct_stmt_stack_entry {
  a_struct_stmt_kind kind;
  bool in_statement_expression : 1;  // inherited
  bool is_statement_expression : 1;  // the block of one
  bool in_try_body : 1;              // inherited
  bool has_statement : 1;            // of a block: a statement was seen
  bool has_label_or_case : 1;        // control may get inside by a jump
  bool case_error : 1;               // of a switch: some label was bad
  bool is_function_body : 1;
  bool condition_is_true : 1;   // constant and not zero, or no condition at all
  bool condition_is_false : 1;  // constant and zero
  bool in_else : 1;             // of an if: the else branch is being read
  bool in_body : 1;             // the dependent statement is being read
  a_statement *statement;
  a_statement *wrapper;         // block that holds the dependent statements; null: at most one came
  a_statement *last_statement;  // of the list that is being built; null: it is empty
  a_label *break_label;         // null: no break was met
  a_label *continue_label;      // null: no continue was met
  a_type *switch_type;          // promoted type of the controlling expression
  a_type *switch_orig_type;     // before the promotion
  a_reachability saved;         // at the entry
  a_reachability merged;        // or of the exits
  a_reachability at_continue;   // or of the jumps to continue_label
  a_switch_case_entry *highest_case;
  a_case_node *case_tree;
  a_statement *decl_statement;                // that collects entities; null: none
  an_il_entity_list_entry *last_decl_entity;  // of its list
  a_source_position statement_pos;
  a_control_flow_descr *descr_at_entry;
  a_type *result_type;  // of a statement expression: of its last statement; null: void
};

// ---- The stack ---------------------------------------------------------------------------------

// The entry at a depth of the current function; entries never move.
a_struct_stmt_stack_entry &stmt_entry(int depth);
inline a_struct_stmt_stack_entry &top_stmt_entry() {
  return stmt_entry(depth_stmt_stack);
}

a_struct_stmt_stack_entry &push_struct_stmt_entry(a_struct_stmt_kind kind, a_statement *statement);
// Leaves the entry; reachability behind the construct is the caller's to set.
void pop_struct_stmt_entry();
// The innermost open entry of a range of kinds; -1: none.
int nearest_stmt_entry(a_struct_stmt_kind first, a_struct_stmt_kind last);

// ---- Reachability ------------------------------------------------------------------------------

inline a_reachability curr_reachability() {
  return {stmt_reachable, end_reachable, unreachable_reported};
}
inline void set_reachability(const a_reachability &state) {
  stmt_reachable = state.stmt_reachable;
  end_reachable = state.end_reachable;
  unreachable_reported = state.unreachable_reported;
}
// Either way leads on.
inline void merge_reachability(a_reachability *into, const a_reachability &from) {
  into->stmt_reachable |= from.stmt_reachable;
  into->end_reachable |= from.end_reachable;
  into->unreachable_reported |= from.unreachable_reported;
}
inline constexpr a_reachability not_reachable = {false, false, false};
void set_reachable();  // control gets here by a jump

// ---- Points that jumps may not pass ------------------------------------------------------------

enum a_control_flow_kind : std::uint8_t {
  cfk_statement_expression,
  cfk_try_block,
  cfk_handler,
  cfk_initialization,  // of a variable
  cfk_vla_dimension,
};
// A jump is good if the place it goes to lies inside no point that the jump does not lie inside,
// too. The points form a tree; the innermost one stands for all around it.
struct a_control_flow_descr {
  a_control_flow_descr *parent;
  a_control_flow_descr *next;  // all of the function, or free ones
  int depth;                   // 1 without a parent
  a_control_flow_kind kind;
  a_source_position position;
  a_variable *variable;  // cfk_initialization
};
extern a_control_flow_descr *innermost_descr;  // null: at the level of the function
void add_control_flow_descr(a_control_flow_kind kind, a_variable *variable,
                            const a_source_position *position);
// A goto to this label stands here; checked at the end of the function.
void record_jump(a_symbol *label_symbol, const a_source_position *position);
// The label stands here.
void record_label_place(a_symbol *label_symbol);
// Reports what a jump from one place to another passes.
void check_jump(const a_control_flow_descr *from, const a_control_flow_descr *to,
                const a_source_position *position);
void start_of_function_control_flow();
void save_control_flow(a_struct_stmt_stack_state *saved);
void restore_control_flow(const a_struct_stmt_stack_state *saved);

// ---- Statements by kind ------------------------------------------------------------------------

void scan_block_statement();
void scan_if_statement();
void scan_while_statement();
void scan_do_statement();
void scan_for_statement();
void scan_switch_statement();
void scan_case_label();
void scan_default_label();
void scan_label();
void scan_goto_statement();
void scan_break_statement();
void scan_continue_statement();
void scan_return_statement();
void add_return_at_end_of_main(const a_source_position *position);
void scan_local_label_declarations();

// ( expression )  as a truth value; *is_true and *is_false tell of a constant.
// False after a message: what stands there up to the statement was passed over.
bool scan_left_paren_of_condition();
void scan_right_paren_of_condition();
an_expr_node *scan_condition(bool *is_true, bool *is_false);
// The body of a statement. In C99 it is a block of its own, braces or not.
void scan_dependent_statement();
// A label that break or continue goes to, and the jump to it.
void add_jump_to_construct(int depth, bool is_continue, const a_source_position *position);
// Puts such a label at this place; reachability is left alone.
void place_label(a_label *label, const a_source_position *position);

#endif
