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

// One open structured statement.
struct a_struct_stmt_stack_entry {
  a_struct_stmt_kind kind;
  bool in_statement_expression : 1;  // inherited
  bool in_try_body : 1;              // inherited
  bool decl_stmt_open : 1;           // a declaration statement is collecting its entities
  bool has_statement : 1;            // a statement was seen in the block
  bool has_label_or_case : 1;
  bool case_error : 1;  // of a switch: some label was bad
  bool is_function_body : 1;
  bool condition_is_constant : 1;  // of if and the loops
  bool condition_is_true : 1;      // a constant condition that is not zero, or none at all
  bool in_else : 1;                // of an if: the else branch is being read
  a_statement *statement;
  an_attribute *attributes;          // for the next statement
  a_statement *last_statement;       // of the list that is being built; null: it is empty
  a_label *label;                    // where break goes; null: none yet
  a_label *continue_label;           // where continue goes; null: none yet
  a_type *switch_type;               // promoted type of the controlling expression
  a_reachability saved;              // at the entry
  a_reachability merged;             // or of the exits
  a_reachability continue_state;     // or of the jumps to continue_label
  a_switch_case_entry *last_case;    // in source order
  a_switch_case_entry *last_sorted;  // highest value so far
  an_object_lifetime *object_lifetime;
  int scope_depth;                            // of the block's scope; -1: none
  a_statement *decl_statement;                // that collects entities; null: none
  an_il_entity_list_entry *decl_entity_list;  // tail of its list
  a_source_position statement_pos;
  a_control_flow_descr *block_descr;  // null where jumps need no checks
};

// The stack of one function body, saved while another is read.
struct a_struct_stmt_stack_state {
  int base_stmt_stack;
  int depth_stmt_stack;
  a_reachability reachability;
  a_control_flow_descr *first_descr;
  a_control_flow_descr *last_descr;
  a_control_flow_descr *block_descr;
};

// ---- State: per function body ------------------------------------------------------------------

extern int depth_stmt_stack;  // the top; -1: no statement is open in this function
extern bool stmt_reachable;
extern bool end_reachable;
extern bool unreachable_reported;

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
// A statement that initializes a variable at this place; null outside functions.
a_statement *add_init_statement(a_dynamic_init *init, const a_source_position *position);
// The initialization of a variable matters to jumps over it.
void record_init_control_flow(a_variable *variable, const a_source_position *position);
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
