// The one savable state of the parser: everything that a scan in the middle of another one
// (deferred bodies, instances, default arguments, dry runs) sets aside and finds again.
#ifndef PARSER_PARSER_STATE_H
#define PARSER_PARSER_STATE_H

#include "il/il_fwd.h"
#include "il/src_seq.h"
#include "parser/statements.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "source/lexical.h"

struct an_expr_stack_entry;
extern an_expr_stack_entry *expr_stack;

// Sets the state aside at its creation, so that the nested scan starts as a top-level one does, and
// puts it back at its end. The nested scan must have left every scope and statement it opened, and
// used up the tokens it put in.
class a_parser_state_guard {
 public:
  a_parser_state_guard()
      : lexical_state_(save_lexical_state()),
        locator_(locator_for_curr_id),
        expr_stack_(expr_stack),
        object_lifetime_(curr_object_lifetime),
        pack_expansions_(pack_expansion_stack),
        scope_depth_(depth_scope_stack),
        deferred_access_scope_(curr_deferred_access_scope),
        region_(curr_il_region_number),
        name_linkage_(default_routine_name_linkage) {
    new_struct_stmt_stack(&statements_);
    expr_stack = nullptr;
    pack_expansion_stack = nullptr;
    curr_deferred_access_scope = -1;
    push_stop_token_stack();
  }
  ~a_parser_state_guard() {
    check_invariant(depth_scope_stack == scope_depth_);
    check_invariant(expr_stack == nullptr);
    check_invariant(pack_expansion_stack == nullptr);
    pop_stop_token_stack();
    restore_struct_stmt_stack(&statements_);
    default_routine_name_linkage = name_linkage_;
    switch_il_region(region_);
    curr_deferred_access_scope = deferred_access_scope_;
    pack_expansion_stack = pack_expansions_;
    curr_object_lifetime = object_lifetime_;
    expr_stack = expr_stack_;
    restore_lexical_state(lexical_state_);
    locator_for_curr_id = locator_;
  }
  a_parser_state_guard(const a_parser_state_guard &) = delete;
  a_parser_state_guard &operator=(const a_parser_state_guard &) = delete;

 private:
  a_saved_lexical_state *lexical_state_;
  a_symbol_locator locator_;
  an_expr_stack_entry *expr_stack_;
  an_object_lifetime *object_lifetime_;
  a_pack_expansion_stack_entry *pack_expansions_;
  int scope_depth_;
  int deferred_access_scope_;
  a_memory_region_number region_;
  a_name_linkage_kind name_linkage_;
  a_struct_stmt_stack_state statements_;
};

#endif
