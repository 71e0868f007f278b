// The verifier of the intermediate language: after parsing, after lowering, before emission.
//
// It checks what every phase relies on: parents and owners, that no file-scope entry points into
// the region of a function, that lists end at their tails, that types are set, kinds are in range,
// and, when asked, that no node is left that lowering should have removed.
#ifndef IL_IL_CHECK_H
#define IL_IL_CHECK_H

#include <cstdio>

#include "il/il_alloc.h"

enum an_il_check_phase { icp_after_parsing, icp_after_lowering, icp_before_emission };

// The number of faults; each is written to `out` (null: not), the first 50 of them.
int check_il(an_il_check_phase phase, std::FILE *out);
// One function body.
int check_function_il(a_routine *routine, an_il_check_phase phase, std::FILE *out);
// The calls between the phases: they stop with an internal error when there is a fault. A release
// build checks nothing here.
void check_il_or_stop(an_il_check_phase phase);
void check_function_il_or_stop(a_routine *routine, an_il_check_phase phase);

#endif
