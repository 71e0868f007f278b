// What the rooms of pragma share: the handlers that the table names.
#ifndef TARGET_PRAGMA_INTERNAL_H
#define TARGET_PRAGMA_INTERNAL_H

#include "target/pragma.h"

#define HANDLER(name) \
  void name(a_pending_pragma *pending, a_symbol *symbol, a_statement *statement);
HANDLER(record_arg_pragma)
HANDLER(instantiation_pragma)
HANDLER(pack_pragma)
HANDLER(once_pragma)
HANDLER(hdrstop_or_no_pch_pragma)
HANDLER(define_type_info_pragma)
HANDLER(stdc_pragma)
HANDLER(redefine_extname_pragma_handler)
HANDLER(gcc_pragma)
HANDLER(diag_severity_pragma)
HANDLER(diag_push_pragma_handler)
HANDLER(diag_pop_pragma_handler)
HANDLER(push_macro_pragma)
HANDLER(pop_macro_pragma)
HANDLER(pragma_misra_action)
HANDLER(pragma_pwa_action)
HANDLER(process_pwa_port_config)
HANDLER(process_set_section_pragma)
HANDLER(always_inline_pragma)
#undef HANDLER

// Takes pragmas of STDC out of the list in front of the current token, and obeys them.
void obey_stdc_pragma(a_pending_pragma *pending);
// An entry in the list of a scope, without pfl_in_il.
a_pragma *make_il_pragma(a_pending_pragma *pending, an_il_entry_kind entity_kind, void *entity,
                         bool at_current_scope);
// Nothing may follow on the line: warning 14.
void check_end_of_pragma();
inline bool at_end_of_pragma() {
  return curr_token == tok_end_of_source || curr_token == tok_newline;
}

void clear_pack_stack();
void clear_block_sections();
void clear_gcc_pragma_options();

#endif
