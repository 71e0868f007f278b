// The C99 forms that the generator does not know: complex arithmetic and variable-length arrays.
#ifndef LOWER_LOWER_C99_H
#define LOWER_LOWER_C99_H

#include "il/il_fwd.h"

// Reports a complex, imaginary, atomic or variable-length construct, which has no lowered form yet,
// at the expression; true: it is one.
bool report_unlowered_c99_expr(const an_expr_node *expr);
bool report_unlowered_c99_type(a_type *type, const struct a_source_position *position);

#endif
