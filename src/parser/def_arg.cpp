// Default arguments. C has none: the tokens behind "=" are passed over, so that one message is all.
#include "parser/def_arg.h"

#include "source/lexical.h"

void prescan_default_function_arg_expr(a_param_type *, a_def_arg_expr_fixup **, bool, bool,
                                       a_symbol *) {
  a_stop_token_count stops[tok_last] = {};
  stops[tok_comma] = 1;
  stops[tok_rparen] = 1;
  stops[tok_semicolon] = 1;
  flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
}

void def_arg_one_time_init() {}
void def_arg_init() {}
