// A readable text of the intermediate language for tests and debugging. It holds no addresses and
// depends on nothing but the IL, so that two runs over the same source give the same text.
#ifndef IL_IL_DUMP_H
#define IL_IL_DUMP_H

#include "driver/mem_manage.h"
#include "il/il_alloc.h"

void dump_il(a_text_buffer *out);  // the file scope and all bodies
void dump_scope(const a_scope *scope, int indent, a_text_buffer *out);
void dump_statement(const a_statement *statement, int indent, a_text_buffer *out);
void dump_expr(const an_expr_node *expr, a_text_buffer *out);  // in one line, as (op operands)
void dump_constant(const a_constant *constant, a_text_buffer *out);
void dump_type(a_type *type, a_text_buffer *out);
void dump_dynamic_init(const a_dynamic_init *init, a_text_buffer *out);

#endif
