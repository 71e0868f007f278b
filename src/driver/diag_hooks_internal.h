// What the rooms behind diag_hooks give to it.
#ifndef DRIVER_DIAG_HOOKS_INTERNAL_H
#define DRIVER_DIAG_HOOKS_INTERNAL_H

#include "DIAG/error.h"

void form_type_for_message(a_type *type, a_text_buffer *out);
// kind "name", or with its type: variable "int x".
void form_symbol_for_message(a_symbol *symbol, const a_symbol_form *form, a_text_buffer *out);
an_instantiation_context_kind instantiation_context_of(int depth, a_symbol **symbol,
                                                       const a_source_position **position);
bool template_scope_of_messages(std::int64_t *scope_id);
// The line as it stands in the file.
bool get_physical_source_line(const a_source_position *pos, a_text_buffer *out);

#endif
