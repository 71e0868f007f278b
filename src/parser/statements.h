// Statements: reads blocks and statements into a_statement records, with the flow analysis that the
// language asks for on the way: reachability, jumps against scopes, break, continue and case
// labels against the constructs around them.
//
// Each open structured statement has an entry on a stack that belongs to the function; nested
// bodies (statement expressions excepted, which belong to their function) have a stack of their
// own. Statements lie in the function's region.
#ifndef PARSER_STATEMENTS_H
#define PARSER_STATEMENTS_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

struct a_control_flow_descr;
struct a_label_jump;

enum a_struct_stmt_kind : std::uint8_t {
  ssk_block,
  ssk_if,
  ssk_switch,
  ssk_while,
  ssk_do,
  ssk_for,
  ssk_range_for,
  ssk_try,
};

// Whether control gets to a place.
struct a_reachability {
  bool stmt_reachable;        // the statement that comes next can be reached
  bool end_reachable;         // the same, with calls that do not return taken into account
  bool unreachable_reported;  // this stretch was warned of, or is known on purpose
};

// The stack of one function body, saved while another is read.
struct a_struct_stmt_stack_state {
  int base_stmt_stack;
  int depth_stmt_stack;
  a_reachability reachability;
  a_control_flow_descr *innermost_descr;
  a_control_flow_descr *first_descr;
  a_label_jump *first_jump;
};

// ---- State: per function body ------------------------------------------------------------------

extern int depth_stmt_stack;  // the top; -1: no statement is open in this function
extern bool stmt_reachable;
extern bool end_reachable;
extern bool unreachable_reported;

// Is every piece of text between that position and the current statement, where control can get,
// run at most once before it, in the order of the text? Not inside a loop or a statement expression
// that began behind the position, and not behind a label, to which a later goto may come back.
bool runs_straight_on_from(const a_source_position &position);

// ---- Bodies ------------------------------------------------------------------------------------

enum a_block_flag : unsigned {
  bf_function_body = 1,
  bf_user_body = 2,  // written by the user, not made by the compiler
  bf_function_try_body = 4,
  bf_statement_expression = 8,
};
// compound-statement:
//     { block-item-list }
// The current token is the { (reported if not); the token behind } is current afterwards. For a
// function body the scope of the function is open. For a statement expression, *result_type gets
// the type of the last statement (void without a value); may be null otherwise.
a_statement *compound_statement_full(unsigned flags, a_type **result_type);

// Starts a body inside another one (deferred bodies, local functions): its own stack, reachability
// and descriptors.
void new_struct_stmt_stack(a_struct_stmt_stack_state *saved);
void restore_struct_stmt_stack(const a_struct_stmt_stack_state *saved);

// Reads one statement, with the labels before it. is_dependent: it is the body of another one.
void scan_statement(bool is_dependent, bool extension_seen);

// ---- For expressions and declarations ----------------------------------------------------------

// A statement expression: at its {, in an open expression. Gives the block, which is linked to no
// list; *result_type is the type of its value.
a_statement *scan_statement_expression_block(a_type **result_type);

// Appends a statement at the current place and updates reachability by its kind.
a_statement *add_statement_at_stmt_pos(std::uint8_t kind, const a_source_position *position);
void add_statement_to_list(a_statement *statement);

// The warning for the first statement of a stretch that control does not reach.
void warn_if_code_is_unreachable(an_error_code code, const a_source_position *position);

bool in_switch_statement();
bool inside_statement_expression();

// In the list of the open declaration statement, if there is one.
void record_entity_in_decl_stmt_if_needed(char *entity, std::uint8_t entry_kind,
                                          const a_source_position *position);
// A statement that initializes a variable at this place; null outside functions. Declares too that
// jumps may not pass over it where the language says so.
a_statement *add_init_statement(a_dynamic_init *init, const a_source_position *position);
// The initialization of a variable matters to jumps over it.
void record_init_control_flow(a_variable *variable, const a_source_position *position);
// A dimension of a variably modified type is computed here.
void set_vla_size_statement(a_vla_dimension *dimension, const a_source_position *position);

// Ends the checks of jumps of a function.
void wrapup_control_flow_processing(a_scope *function_scope);

// A return without a value, or the end of the body: reports what is missing.
void check_implicit_return(bool at_end_of_function, bool is_user_body,
                           const a_source_position *position);

void statements_one_time_init();
void statements_init();
void statements_trans_unit_init();

#endif
