// Storage classes, function specifiers, and the keywords of the target.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/decl_spec_internal.h"
#include "parser/disambig.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

bool at_file_scope() {
  a_scope_kind kind = scope_stack[decl_scope_level].kind;
  return kind == sck_file || kind == sck_namespace || kind == sck_namespace_extension;
}

// _Thread_local stands on objects of static storage only.
void check_thread_local_entity(a_decl_parse_state *state) {
  a_symbol *symbol = state->symbol;
  if (symbol == nullptr || state->has_error) return;
  if (symbol->kind == syk_variable || symbol->kind == syk_static_data_member) {
    a_variable *variable = symbol->variant.variable;
    if (state->static_storage || variable->storage_class == sc_extern ||
        variable->storage_class == sc_static || state->is_file_scope_declaration) {
      variable->is_thread_local = true;
      return;
    }
  }
  pos_error(ec_thread_local_not_allowed, &state->thread_local_pos);
}

void apply_noreturn(a_decl_parse_state *state) {
  a_symbol *symbol = state->symbol;
  if (symbol == nullptr || state->has_error) return;
  if (symbol->kind == syk_routine || symbol->kind == syk_member_function) {
    symbol->variant.routine->is_noreturn = true;
    return;
  }
  pos_error(ec_bad_c11_noreturn, &state->noreturn_pos);
}

a_decl_storage_class storage_class_of_token() {
  switch (curr_token) {
    case tok_extern:
      return dsc_extern;
    case tok_static:
      return dsc_static;
    case tok_auto:
      return dsc_auto;
    case tok_typedef:
      return dsc_typedef;
    default:
      return dsc_register;
  }
}

void report_storage_class_not_allowed(a_decl_storage_class storage_class) {
  pos_error(storage_class == dsc_typedef ? ec_typedef_not_allowed : ec_storage_class_not_allowed,
            &pos_curr_token);
}

// Does the context take this class? Reports when it does not.
bool check_storage_class_context(a_specifier_scan &scan, a_decl_storage_class storage_class) {
  std::uint32_t flags = scan.flags;
  if ((flags & dsf_secondary) != 0) {
    pos_warning(ec_secondary_specifier_ignored, &pos_curr_token);
    return false;
  }
  if (scan.storage_class_seen) {
    pos_error(ec_mult_storage_classes, &pos_curr_token);
    return false;
  }
  if ((flags & dsf_parameter) != 0) {
    if (storage_class == dsc_register || (storage_class == dsc_auto && in_cplusplus())) return true;
    if (storage_class == dsc_typedef && (flags & dsf_typedef_param_ok) != 0) return true;
    pos_error(storage_class == dsc_typedef ? ec_typedef_not_allowed : ec_bad_param_storage_class,
              &pos_curr_token);
    return false;
  }
  if ((flags & dsf_storage_class_ok) == 0) {
    report_storage_class_not_allowed(storage_class);
    return false;
  }
  if ((flags & dsf_local_extern_only) != 0 && storage_class != dsc_extern &&
      storage_class != dsc_static) {
    report_storage_class_not_allowed(storage_class);
    return false;
  }
  if ((flags & dsf_condition) != 0 && !gpp_mode && storage_class != dsc_typedef) {
    report_storage_class_not_allowed(storage_class);
    return false;
  }
  if ((flags & dsf_for_init) != 0 && !in_cplusplus() && storage_class != dsc_auto &&
      storage_class != dsc_register) {
    pos_error(ec_invalid_storage_class_in_for_init, &pos_curr_token);
    return false;
  }
  return true;
}

// At file scope "register" and "auto" say nothing that an object there can have.
bool check_file_scope_storage_class(a_specifier_scan &scan, a_decl_storage_class storage_class) {
  if (!at_file_scope() || (scan.flags & (dsf_parameter | dsf_member)) != 0) return true;
  if (storage_class == dsc_register) {
    scan.state->register_at_file_scope = true;
    scan.state->storage_class_pos = pos_curr_token;
    if (!gcc_mode && !in_cplusplus()) pos_error(ec_bad_file_scope_storage_class, &pos_curr_token);
    return false;
  }
  if (storage_class == dsc_auto) {
    if (gcc_mode)
      pos_warning(ec_auto_ignored, &pos_curr_token);
    else
      pos_error(ec_bad_file_scope_storage_class, &pos_curr_token);
    return false;
  }
  return true;
}

}  // namespace

void scan_storage_class(a_specifier_scan &scan) {
  a_decl_parse_state *state = scan.state;
  a_decl_storage_class storage_class = storage_class_of_token();
  if (check_storage_class_context(scan, storage_class) &&
      check_file_scope_storage_class(scan, storage_class)) {
    if (storage_class == dsc_register && register_is_disallowed) {
      pos_error(ec_register_keyword_disallowed, &pos_curr_token);
    } else if (storage_class == dsc_register && register_is_deprecated) {
      pos_warning(ec_register_keyword_deprecated, &pos_curr_token);
    }
    if (type_seen(scan)) {
      state->has_storage_class_or_typedef_after_type = true;
      if (!in_pcc_mode()) {
        pos_diagnostic(strict_ansi_mode ? es_warning : es_remark, ec_storage_class_not_first,
                       &pos_curr_token);
      }
    }
    state->storage_class = storage_class;
    state->storage_class_pos = pos_curr_token;
  }
  scan.storage_class_seen = true;
  get_token();
}

void scan_thread_local(a_specifier_scan &scan) {
  a_decl_parse_state *state = scan.state;
  if ((scan.flags & dsf_storage_class_ok) == 0 || (scan.flags & dsf_parameter) != 0) {
    pos_error(ec_storage_class_not_allowed, &pos_curr_token);
  } else if (state->thread_local_seen) {
    pos_error(ec_dupl_decl_specifier, &pos_curr_token);
  } else {
    state->thread_local_seen = true;
    state->thread_local_pos = pos_curr_token;
    add_end_of_parse_action(check_thread_local_entity, state, true);
  }
  get_token();
}

// ---- Function specifiers -----------------------------------------------------------------------

void scan_inline(a_specifier_scan &scan) {
  a_decl_parse_state *state = scan.state;
  if ((scan.flags & dsf_parameter) != 0) {
    pos_error(ec_bad_param_specifier, &pos_curr_token);
  } else if ((scan.flags & dsf_inline_ok) == 0) {
    pos_diagnostic(gnu_mode ? es_warning : es_error, ec_inline_not_allowed, &pos_curr_token);
  } else if (state->inline_seen) {
    bool tolerated = !in_cplusplus() && std_version >= 199901;
    pos_diagnostic(tolerated ? es_warning : es_error, ec_dupl_decl_specifier, &pos_curr_token);
  } else {
    state->inline_seen = true;
    state->inline_pos = pos_curr_token;
  }
  get_token();
}

void scan_noreturn(a_specifier_scan &scan) {
  a_decl_parse_state *state = scan.state;
  if ((scan.flags & dsf_parameter) != 0) {
    pos_error(ec_bad_param_specifier, &pos_curr_token);
  } else if (state->noreturn_seen) {
    pos_warning(ec_dupl_decl_specifier, &pos_curr_token);
  } else {
    state->noreturn_seen = true;
    state->noreturn_pos = pos_curr_token;
    add_end_of_parse_action(apply_noreturn, state, true);
  }
  get_token();
}

// C++ function and member specifiers: each says where it may not stand; none has a meaning yet.
void scan_cplusplus_specifier(a_specifier_scan &scan) {
  pos_st_error(ec_not_supported, &pos_curr_token, "this C++ declaration specifier");
  scan.state->has_error = true;
  get_token();
}

// The keywords of the target: shared, trap, interrupt, ...
void scan_target_keyword(a_specifier_scan &scan) {
  std::uint32_t bit = 0;
  switch (curr_token) {
    case tok_shared:
      bit = dmod_shared;
      break;
    case tok_sharedpp:
      bit = dmod_sharedpp;
      break;
    case tok_trap:
      bit = dmod_trap;
      break;
    case tok_reentrant:
      bit = dmod_reentrant;
      break;
    case tok_cregister:
      bit = dmod_cregister;
      break;
    case tok_global:
      bit = dmod_global;
      break;
    default:
      bit = dmod_interrupt;
      break;
  }
  if ((scan.flags & dsf_parameter) != 0)
    pos_warning(ec_bad_param_storage_class, &pos_curr_token);
  else if ((scan.flags & dsf_storage_class_ok) == 0)
    pos_error(ec_storage_class_not_allowed, &pos_curr_token);
  else
    scan.state->decl_modifiers |= bit;
  get_token();
}

// __data16, __data20, __memory_of("text"): read and dropped with their operand.
void skip_memory_keyword() {
  bool has_operand = curr_token == tok_memory_of;
  get_token();
  if (has_operand && curr_token == tok_lparen) {
    flush_until_matching_token();
    get_token();
  }
}
