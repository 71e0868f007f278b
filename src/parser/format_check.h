// Formats of the printf and scanf families: the values of a call against the conversions of its
// format. Which functions take a format, and where, the attribute format and the pragmas
// __printf_args and __scanf_args say; a function without them is not looked at, whatever its name.
#ifndef PARSER_FORMAT_CHECK_H
#define PARSER_FORMAT_CHECK_H

#include "il/il_fwd.h"

// Reports what does not fit in a call of the routine. The arguments are all that the call has,
// converted and promoted. Nothing is said of a format that is not known here.
void check_format_of_call(const a_routine *routine, an_expr_node *arguments);

#endif
