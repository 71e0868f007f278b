// Default arguments of C++: collected as tokens where they stand, scanned when the class is
// complete.
#ifndef PARSER_DEF_ARG_H
#define PARSER_DEF_ARG_H

#include "il/il_fwd.h"

// A default argument whose tokens wait for the end of the class.
struct a_def_arg_expr_fixup {
  a_def_arg_expr_fixup *next;
  a_token_cache *cache;
  a_param_type *param_type;
  a_symbol *routine_or_template;
};

// Collects the tokens of one default argument, the current token being behind "=". C has none of
// them: a "=" behind a parameter is reported and its tokens are passed over.
void prescan_default_function_arg_expr(a_param_type *param_type, a_def_arg_expr_fixup **fixups,
                                       bool in_template, bool no_segment, a_symbol *owner);

void def_arg_one_time_init();
void def_arg_init();

#endif
