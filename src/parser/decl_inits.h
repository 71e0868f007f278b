// Initializers: what stands behind "=" in a declaration, and what a definition without one means.
// Plain and braced initializers become a constant (the value of the variable in the file) or a
// dynamic initialization (code that runs where the declaration stands). Aggregates are walked with
// designators; elements not given are zero and are not stored.
#ifndef PARSER_DECL_INITS_H
#define PARSER_DECL_INITS_H

#include <cstdint>

#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

struct an_init_component;
struct an_arg_match_summary;

// The context of the walk over one aggregate.
struct an_init_state {
  a_type *aggregate_root_type;  // the class in which a field designator is looked for
  an_arg_match_summary *match_summary;
  bool quiet : 1;         // report nothing, set quiet_error
  bool no_constants : 1;  // check only
  bool quiet_error : 1;
  bool range_has_dynamic_part : 1;  // some element is no constant
  bool has_designators : 1;
  bool in_recovery : 1;  // an element failed: walk on in silence
  bool designator_allowed : 1;
  bool from_list_init : 1;
  bool no_brace_elision : 1;
  bool error_seen : 1;
  bool repeat_needs_copy : 1;
  bool has_reference_member : 1;
  bool not_all_members_given : 1;
  bool holds_element_constant : 1;
};

// Reads the initializer of state->symbol; the current token is "=" (or "{" or "(" in C++). Attaches
// it to the variable, completes an array of unknown bound, and leaves the result in the state.
void initializer(a_decl_parse_state *state, const a_source_position *position, bool has_paren_form,
                 bool *had_error, a_decl_pos_block *positions);

// A definition without initializer.
void def_initializer(a_symbol *symbol, const a_source_position *position,
                     a_decl_parse_state *state);
void check_for_missing_initializer_full(a_symbol *symbol, a_type *type, bool in_new,
                                        bool *quiet_error, const a_source_position *position);

// A default member initializer.
void field_initializer(a_decl_parse_state *state);

// Reads the braced list of "(T){...}", the current token being "{", and converts it for state->type
// (an array of unknown bound is completed there). The result is in state->constant_value or
// state->dynamic_init; static_storage and constant_required are the caller's.
void scan_compound_literal_initializer(a_decl_parse_state *state);

// Is the string literal of component good for the character array *type? Completes an array of
// unknown bound. too_long: more characters than the array takes.
bool check_string_constant_initializer_full(a_type **type, a_constant *string, bool *too_long);

void update_array_var_type_from_initializer_constant(a_variable *variable);

// Would the braced list fit *type? Builds nothing.
bool prep_aggr_initializer(an_init_component *component, a_type **type, an_init_state *state,
                           an_arg_match_summary *summary);

void add_constant_to_aggregate(a_constant *element, a_constant *aggregate);

a_field *curr_initializer_field();

void decl_inits_one_time_init();
void decl_inits_trans_unit_init();

#endif
