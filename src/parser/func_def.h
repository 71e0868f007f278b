// Function definitions: from the declarator to the end of the body.
#ifndef PARSER_FUNC_DEF_H
#define PARSER_FUNC_DEF_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

enum a_body_flag : unsigned {
  bdf_nested = 1,  // another body is open or its class is deferred
  bdf_instantiation = 2,
  bdf_enter_params = 4,  // the parameters are still to be entered
  bdf_member_context = 8,
};

// function-definition:
//     declaration-specifiers declarator [declaration-list] compound-statement
// The declarator is read and declared (state->symbol is the routine); the current token is the
// first of the declaration list, or the {. The token behind } is current afterwards. positions may
// be null.
void function_definition(a_symbol_locator *locator, a_decl_parse_state *state,
                         a_func_info_block *func_info, a_decl_pos_block *positions);

// The body alone, at its {: opens the function's scope and region, enters the parameters, reads the
// block, and finishes the routine.
void scan_function_body(a_routine *routine, a_func_info_block *func_info, unsigned flags);

// Reports a return type that a definition cannot have; true: it is good.
bool check_function_return_type(a_type *type, const a_source_position *position, unsigned flags,
                                a_routine *routine);

void func_def_one_time_init();

#endif
