// The pragmas of the tool chain: how their arguments are read and to what they apply.
//
//     #pragma DATA_SECTION(x, "name")       C: names the symbol, anywhere in its scope
//     #pragma DATA_SECTION("name")          C++: the declaration follows
//
// In C the symbol may be declared behind the pragma: it is looked up at the end of the scope.
#include "target/qx_pragma.h"

#include <cstdio>
#include <cstring>

#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "il/il_walk.h"
#include "options/cmd_line.h"
#include "parser/expr.h"
#include "semantics/const_ints.h"
#include "semantics/layout.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_arch.h"
#include "target/qx_pragma_internal.h"

namespace {

// Of the pragma being read; they do not nest.
bool paren_was_opened;
bool symbol_was_named;  // the C form
bool tokens_are_done;

void report(an_error_severity severity, an_error_code code, const a_pending_pragma *pending,
            a_symbol *symbol) {
  pos_stsy_diagnostic(severity, code, &pending->name_position, name_of_pragma(pending), symbol);
}
void report(an_error_severity severity, an_error_code code, const a_pending_pragma *pending) {
  pos_st_diagnostic(severity, code, &pending->name_position, name_of_pragma(pending));
}

}  // namespace

// ---- Arguments ---------------------------------------------------------------------------------

bool next_pragma_argument() {
  if (!symbol_was_named) {
    // The first argument stands where the symbol would.
    symbol_was_named = true;
    return true;
  }
  if (loop_token(tok_comma)) return true;
  pos_error(ec_exp_comma, &pos_curr_token);
  return false;
}

bool more_pragma_arguments() {
  if (!symbol_was_named)
    return curr_token != tok_rparen && curr_token != tok_semicolon &&
           curr_token != tok_end_of_source;
  return curr_token == tok_comma;
}

bool scan_icon(std::uint64_t *value) {
  a_source_position position = pos_curr_token;
  a_constant constant;
  clear_constant(&constant, ck_error);
  scan_integral_constant_expression(&constant);
  *value = 0;
  if (constant.kind == ck_error) return false;
  if (constant.kind != ck_integer) {
    pos_error(ec_exp_int_constant, &position);
    return false;
  }
  bool negative = false;
  *value = unsigned_value_of_integer_constant(&constant, &negative);
  if (negative) pos_error(ec_integer_too_large, &position);
  return !negative;
}

bool scan_string_argument(const char **text) {
  if (curr_token != tok_string_literal || const_for_curr_token.string_char_kind != chk_char) {
    pos_error(ec_bad_pragma_format, &pos_curr_token);
    return false;
  }
  const a_constant &literal = const_for_curr_token;
  bool is_good = literal.kind == ck_string;  // its mistakes are reported
  if (is_good) *text = alloc_il_text(literal.string_text, literal.string_length - 1);
  get_token();
  return is_good;
}

bool finish_pragma_tokens() {
  bool good = true;
  if (paren_was_opened && !loop_token(tok_rparen)) {
    pos_error(ec_exp_rparen, &pos_curr_token);
    good = false;
  }
  loop_token(tok_semicolon);
  if (good && curr_token != tok_end_of_source)
    pos_warning(ec_extra_text_in_pp_directive, &pos_curr_token);
  wrapup_rescan_of_pragma_tokens(!good);
  tokens_are_done = true;
  return good;
}

const char *text_of_number(std::uint64_t value) {
  char text[24];
  int length = std::snprintf(text, sizeof text, "%llu", static_cast<unsigned long long>(value));
  return alloc_il_text(text, static_cast<std::size_t>(length));
}

// ---- What a pragma applies to ------------------------------------------------------------------

namespace {

bool is_function(const a_symbol *symbol) {
  return symbol != nullptr && is_routine_symbol_kind(symbol->kind) &&
         symbol->variant.routine != nullptr;
}

bool is_function_definition(const a_symbol *symbol) {
  return is_function(symbol) && symbol->variant.routine->defined;
}

bool is_variable(const a_symbol *symbol) {
  return symbol != nullptr && is_variable_symbol_kind(symbol->kind) &&
         symbol->variant.variable != nullptr;
}

bool has_static_storage(const a_symbol *symbol) {
  if (!is_variable(symbol) || symbol->variant.variable->is_parameter) return false;
  a_storage_class storage = symbol->variant.variable->storage_class;
  return storage == sc_none || storage == sc_static;
}

bool check_function(const a_pending_pragma *pending, a_symbol *symbol, an_error_code code) {
  if (is_function(symbol)) return true;
  report(es_warning, code, pending, symbol);
  return false;
}

bool check_function_definition(const a_pending_pragma *pending, a_symbol *symbol) {
  if (is_function_definition(symbol)) return true;
  report(es_warning, ec_pragma_requires_func_def, pending, symbol);
  return false;
}

bool check_file_level_variable(const a_pending_pragma *pending, a_symbol *symbol) {
  if (has_static_storage(symbol)) return true;
  report(es_warning,
         in_cplusplus() ? ec_pragma_requires_static_storage : ec_pragma_requires_level_zero_def,
         pending, symbol);
  return false;
}

a_pragma_result result_of(bool good) {
  return good ? prs_good : prs_failed;
}

}  // namespace

void update_symbol_by_symtype(a_symbol *symbol, std::uint32_t modifier_bits,
                              const a_source_position *) {
  if (is_function(symbol))
    symbol->variant.routine->decl_modifiers |= modifier_bits;
  else if (is_variable(symbol))
    symbol->variant.variable->decl_modifiers |= modifier_bits;
  else
    unexpected_state("modifiers of a symbol that is no routine and no variable");
}

// ---- Handlers: sections and places -------------------------------------------------------------

namespace {

a_pragma_result qx_section(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  const char *name;
  if (!next_pragma_argument() || !scan_string_argument(&name) || !finish_pragma_tokens())
    return prs_failed;
  if (pending->description->kind == prk_CODE_SECTION) {
    if (!check_function(pending, symbol, ec_pragma_requires_func_def)) return prs_failed;
    set_routine_section_specification(symbol->variant.routine, sec_attribute_or_pragma, name,
                                      &pending->name_position);
  } else {
    if (!check_file_level_variable(pending, symbol)) return prs_failed;
    set_variable_section_specification(symbol->variant.variable, sec_attribute_or_pragma, name,
                                       &pending->name_position);
  }
  return prs_good;
}

a_pragma_result qx_data_align(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  std::uint64_t value;
  if (!next_pragma_argument() || !scan_icon(&value) || !finish_pragma_tokens()) return prs_failed;
  if (!check_file_level_variable(pending, symbol)) return prs_failed;
  if (value == 0 || (value & (value - 1)) != 0) {
    report(es_error, ec_pragma_icon_not_pow2, pending);
    return prs_failed;
  }
  if (value > INT64_MAX || !check_pack_alignment_value(static_cast<std::int64_t>(value))) {
    report(es_error, ec_pragma_alignment_too_large, pending);
    return prs_failed;
  }
  a_variable *variable = symbol->variant.variable;
  if ((variable->decl_modifiers & dm_data_mem_bank) != 0) {
    report(es_error, ec_bad_membank_align_use, pending, symbol);
    return prs_failed;
  }
  auto alignment = static_cast<a_targ_alignment>(value);
  if (variable->explicit_alignment < alignment && top_level_alignment(variable) < alignment)
    variable->explicit_alignment = alignment;
  update_symbol_by_symtype(symbol, dm_data_align, &pending->name_position);
  return prs_good;
}

a_pragma_result qx_location(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  std::uint64_t address;
  if (pending->description->kind == prk_location && !loop_token(tok_assign)) return prs_bad_format;
  if (!next_pragma_argument() || !scan_icon(&address) || !finish_pragma_tokens()) return prs_failed;
  return result_of(pragma_location_backend(pending, symbol, address, false));
}

a_pragma_result qx_noinit_persistent(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  if (!finish_pragma_tokens()) return prs_failed;
  return result_of(pragma_noinit_persistent_backend(pending, symbol, false));
}

a_pragma_result qx_symbol_definition(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  if (!finish_pragma_tokens()) return prs_failed;
  return result_of(pragma_for_sym_def_backend(pending, symbol, false));
}

a_pragma_result qx_weak(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  if (!finish_pragma_tokens()) return prs_failed;
  bool good = is_function(symbol) ||
              (is_variable(symbol) && symbol->variant.variable->storage_class <= sc_static);
  if (!good) {
    report(es_warning, ec_pragma_requires_level_zero, pending, symbol);
    return prs_failed;
  }
  create_il_entry_for_pragma(pending, symbol, nullptr);
  return prs_good;
}

// ---- Handlers: functions -----------------------------------------------------------------------

a_pragma_result qx_function_definition_mark(a_pending_pragma *pending, a_symbol *symbol,
                                            a_statement *) {
  if (!finish_pragma_tokens() || !check_function_definition(pending, symbol)) return prs_failed;
  create_il_entry_for_pragma(pending, symbol, nullptr);
  if (pending->description->kind == prk_FUNC_EXT_CALLED)
    mark_as_needed(symbol->variant.routine, iek_routine);
  return prs_good;
}

a_pragma_result qx_function_mark(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  if (!finish_pragma_tokens() || !check_function(pending, symbol, ec_pragma_requires_func))
    return prs_failed;
  create_il_entry_for_pragma(pending, symbol, nullptr);
  return prs_good;
}

// INTERRUPT ( f [, type] )   the type a string or an identifier
a_pragma_result qx_interrupt(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  const char *type = nullptr;
  if (more_pragma_arguments()) {
    if (!next_pragma_argument()) return prs_failed;
    if (curr_token == tok_identifier) {
      type = locator_for_curr_id.header->name;
      get_token();
    } else if (!scan_string_argument(&type)) {
      return prs_failed;
    }
  }
  if (!finish_pragma_tokens()) return prs_failed;
  return result_of(pragma_interrupt_backend(pending, symbol, type, false));
}

// An interrupt function takes nothing and returns nothing.
bool check_interrupt_type(const a_pending_pragma *pending, a_symbol *symbol,
                          an_error_severity no_function_severity) {
  if (!is_function(symbol)) {
    pos_sy_diagnostic(no_function_severity, ec_pragma_interrupt_requires_void,
                      &pending->name_position, symbol);
    return false;
  }
  const a_type *type = skip_typerefs(symbol->variant.routine->type);
  if (!is_void_type(type->return_type)) {
    pos_sy_error(ec_pragma_interrupt_requires_void, &pending->name_position, symbol);
    return false;
  }
  if (type->routine_supplement->param_types != nullptr) {
    pos_st_error(ec_pragma_interrupt_has_params, &pending->name_position, symbol->header->name);
    return false;
  }
  return true;
}

a_pragma_result qx_nmi_interrupt(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  if (!finish_pragma_tokens() || !check_interrupt_type(pending, symbol, es_warning))
    return prs_failed;
  update_symbol_by_symtype(symbol, dm_nmi_interrupt, &pending->name_position);
  create_il_entry_for_pragma(pending, symbol, nullptr);
  return prs_good;
}

const char *external_name_of(const a_symbol *symbol) {
  const a_routine *routine = symbol->variant.routine;
  return routine->asm_name != nullptr ? routine->asm_name : symbol->header->name;
}

// The name of a routine at the current token, as the object file has it; null after a message.
const char *scan_routine_name(const a_pending_pragma *pending) {
  if (curr_token != tok_identifier) {
    pos_error(ec_exp_identifier, &pos_curr_token);
    return nullptr;
  }
  a_source_position position = pos_curr_token;
  a_symbol_locator locator = locator_for_curr_id;
  a_symbol *symbol = normal_id_lookup(&locator, 0);
  get_token();
  if (symbol != nullptr && is_function(symbol)) return external_name_of(symbol);
  if (symbol != nullptr && !in_cplusplus() && is_variable(symbol) &&
      !symbol->variant.variable->is_file_scope)
    pos_stsy_error(ec_improper_pragma_use, &position, name_of_pragma(pending), symbol);
  else
    pos_st_error(ec_pragma_symbol_x_invalid, &position, locator.header->name);
  return nullptr;
}

constexpr int max_names = 64;

// name { , name }   into names; -1 after a message.
int scan_routine_names(const a_pending_pragma *pending, const char **names) {
  int count = 0;
  do {
    if (count == max_names) {
      pos_error(ec_bad_pragma_format, &pos_curr_token);
      return -1;
    }
    names[count] = scan_routine_name(pending);
    if (names[count++] == nullptr) return -1;
  } while (loop_token(tok_comma));
  return count;
}

// CALLS ( f , g { , h } )   what the function may call indirectly
a_pragma_result qx_calls(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  const char *names[max_names];
  if (!next_pragma_argument()) return prs_failed;
  int count = scan_routine_names(pending, names);
  if (count < 0 || !finish_pragma_tokens()) return prs_failed;
  if (!check_function(pending, symbol, ec_pragma_requires_level_zero)) return prs_failed;
  create_pragma_calls(pending, symbol, names, count);
  return prs_good;
}

// vector = f , g   in front of a function
a_pragma_result qx_vector(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  const char *names[max_names];
  if (!loop_token(tok_assign)) return prs_bad_format;
  int count = 0;
  do {
    if (curr_token == tok_int_constant) {
      pos_error(ec_arm_vec_requires_symbol_not_int, &pos_curr_token);
      return prs_failed;
    }
    if (curr_token != tok_identifier || count == max_names) return prs_bad_format;
    a_symbol_locator locator = locator_for_curr_id;
    const a_symbol *named = normal_id_lookup(&locator, 0);
    if (named == nullptr) {
      pos_st_error(ec_arm_vec_equals_missing_symbol, &pos_curr_token, locator.header->name);
      return prs_failed;
    }
    names[count++] = is_function(named) ? external_name_of(named) : locator.header->name;
    get_token();
  } while (loop_token(tok_comma));
  if (!finish_pragma_tokens() || !check_function_definition(pending, symbol)) return prs_failed;
  a_pragma *pragma = create_il_entry_for_pragma(pending, symbol, nullptr);
  for (int i = 0; i < count; ++i)
    add_pragma_text(pragma, names[i]);
  return prs_good;
}

a_pragma_result qx_trampoline(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  if (!next_pragma_argument()) return prs_failed;
  const char *name = scan_routine_name(pending);
  if (name == nullptr || !finish_pragma_tokens()) return prs_failed;
  if (!check_function(pending, symbol, ec_pragma_requires_level_zero)) return prs_failed;
  if (!is_eabi) {
    std::size_t size = std::strlen(name) + 2;
    char *text = static_cast<char *>(alloc_il(size));
    std::snprintf(text, size, "%c%s", '_', name);
    name = text;
  }
  add_pragma_text(create_il_entry_for_pragma(pending, symbol, nullptr), name);
  return prs_good;
}

// SWI_ALIAS ( f , number )   calls of f are software interrupts
a_pragma_result qx_swi_alias(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  std::uint64_t number;
  if (!next_pragma_argument() || !scan_icon(&number) || !finish_pragma_tokens()) return prs_failed;
  if (!is_function(symbol) || symbol->variant.routine->defined) {
    report(es_warning, ec_pragma_requires_level_zero_dec, pending, symbol);
    return prs_failed;
  }
  if (arm_arch_types.is_v7m() && !is_void_type(return_type_of(symbol->variant.routine->type)))
    pos_remark(ec_v7M3_SVC_call_has_retval, &pending->name_position);
  add_pragma_text(create_il_entry_for_pragma(pending, symbol, nullptr), text_of_number(number));
  return prs_good;
}

a_pragma_result qx_code_state(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  std::uint64_t value;
  if (!next_pragma_argument() || !scan_icon(&value) || !finish_pragma_tokens()) return prs_failed;
  if (!check_function_definition(pending, symbol)) return prs_failed;
  return result_of(pragma_code_state_backend(pending, symbol, value, false));
}

// FUNCTION_OPTIONS ( f , "options" )   Without a base set there is no place for them.
a_pragma_result qx_function_options(a_pending_pragma *pending, a_symbol *symbol, a_statement *) {
  const char *text;
  if (!next_pragma_argument() || !scan_string_argument(&text) || !finish_pragma_tokens())
    return prs_failed;
  if (!check_function_definition(pending, symbol) || icode_optlist.empty()) return prs_failed;
  std::string refused;
  const a_routine *routine = symbol->variant.routine;
  switch (add_function_options(routine->name, &routine->decl_position, text, &refused)) {
    case ov_accepted:
      return prs_good;
    case ov_not_an_option:
      pos_st_error(ec_invalid_compiler_override_option, &pending->name_position, refused.c_str());
      return prs_failed;
    case ov_not_for_functions:
      pos_st_error(ec_option_not_overridable, &pending->name_position, refused.c_str());
      return prs_failed;
  }
  return prs_failed;
}

// NQC_VREG ( "text" , number )    NQV_REG ( "text" , "text" )
a_pragma_result qx_virtual_register(a_pending_pragma *pending, a_symbol *, a_statement *) {
  const char *first, *second;
  if (!next_pragma_argument() || !scan_string_argument(&first) || !next_pragma_argument())
    return prs_failed;
  if (pending->description->kind == prk_NQC_VREG) {
    std::uint64_t value;
    if (!scan_icon(&value)) return prs_failed;
    second = text_of_number(value);
  } else if (!scan_string_argument(&second)) {
    return prs_failed;
  }
  if (!finish_pragma_tokens()) return prs_failed;
  std::size_t size = std::strlen(first) + std::strlen(second) + 2;
  char *text = static_cast<char *>(alloc_il(size));
  std::snprintf(text, size, "%s %s", first, second);
  add_pragma_text(create_il_entry_for_pragma(pending, nullptr, nullptr), text);
  return prs_good;
}

}  // namespace

a_qx_handler qx_handler_of(a_pragma_kind kind) {
  switch (kind) {
    case prk_DATA_SECTION:
    case prk_CODE_SECTION:
      return qx_section;
    case prk_DATA_ALIGN:
      return qx_data_align;
    case prk_location:
    case prk_LOCATION:
      return qx_location;
    case prk_NOINIT:
    case prk_PERSISTENT:
      return qx_noinit_persistent;
    case prk_RETAIN:
    case prk_CLINK:
      return qx_symbol_definition;
    case prk_WEAK:
      return qx_weak;
    case prk_DUAL_STATE:
    case prk_TASK:
    case prk_FUNC_EXT_CALLED:
    case prk_FUNC_EXCEPTIONS_NOUNWIND:
    case prk_NO_HOOKS:
      return qx_function_definition_mark;
    case prk_FUNC_NEVER_RETURNS:
    case prk_FUNC_CANNOT_INLINE:
    case prk_FUNC_ALWAYS_INLINE:
    case prk_FUNC_NO_GLOBAL_ASG:
    case prk_FUNC_NO_IND_ASG:
    case prk_FUNC_IS_PURE:
    case prk_HOOK_FUNCTION:
      return qx_function_mark;
    case prk_INTERRUPT:
      return qx_interrupt;
    case prk_NMI_INTERRUPT:
      return qx_nmi_interrupt;
    case prk_CALLS:
      return qx_calls;
    case prk_vector:
      return qx_vector;
    case prk_TRAMPOLINE:
      return qx_trampoline;
    case prk_SWI_ALIAS:
      return qx_swi_alias;
    case prk_CODE_STATE:
      return qx_code_state;
    case prk_FUNCTION_OPTIONS:
      return qx_function_options;
    case prk_NQC_VREG:
    case prk_NQV_REG:
      return qx_virtual_register;
    case prk_UNROLL:
      return qx_unroll;
    case prk_MUST_ITERATE:
      return qx_must_iterate;
    case prk_PROB_ITERATE:
      return qx_prob_iterate;
    case prk_NO_ALIAS_CLONE:
    case prk_LOOP_NO_ALIAS:
    case prk_PARALLEL_LOOP:
    case prk_MMA_LOOP:
    case prk_COALESCE_LOOP:
    case prk_NO_COALESCE_LOOP:
      return qx_loop_mark;
    case prk_forceinline:
    case prk_FORCEINLINE:
    case prk_FORCEINLINE_RECURSIVE:
    case prk_noinline:
    case prk_NOINLINE:
      return qx_inline_request;
    default:
      return nullptr;
  }
}

// ---- The two roads -----------------------------------------------------------------------------

namespace {

void start_pragma(a_pending_pragma *pending) {
  begin_rescan_of_pragma_tokens(pending);
  paren_was_opened = symbol_was_named = tokens_are_done = false;
}

void end_pragma(const a_pending_pragma *pending, a_pragma_result result) {
  if (!tokens_are_done) wrapup_rescan_of_pragma_tokens(result != prs_good);
  if (result == prs_bad_format) report(es_warning, ec_pragma_processing_error, pending);
}

// The symbol behind "(" of the C form; a result other than prs_good when there is none.
a_pragma_result scan_symbol(const a_pending_pragma *pending, a_symbol **symbol) {
  if (curr_token != tok_identifier) return prs_bad_format;
  a_symbol_locator locator = locator_for_curr_id;
  *symbol = normal_id_lookup(&locator, 0);
  get_token();
  symbol_was_named = true;
  if (*symbol != nullptr) return prs_good;
  a_pragma_kind kind = pending->description->kind;
  bool is_data = kind == prk_DATA_SECTION || kind == prk_DATA_ALIGN;
  pos_st_warning(is_data ? ec_pragma_requires_file_level : ec_pragma_bad_symbol,
                 &pending->name_position, locator.header->name);
  return prs_failed;
}

bool names_a_symbol(a_pragma_kind kind) {
  return kind != prk_IDENT && kind != prk_NQC_VREG && kind != prk_NQV_REG;
}

}  // namespace

// name ( symbol [, arguments] ) [;]
void process_c_pragma(a_pending_pragma *pending) {
  start_pragma(pending);
  a_pragma_kind kind = pending->description->kind;
  a_qx_handler handler = qx_handler_of(kind);
  a_symbol *symbol = nullptr;
  a_pragma_result result = prs_bad_format;
  if (handler != nullptr && loop_token(tok_lparen)) {
    paren_was_opened = true;
    result = names_a_symbol(kind) ? scan_symbol(pending, &symbol) : prs_good;
    if (result == prs_good) result = handler(pending, symbol, nullptr);
  }
  end_pragma(pending, result);
}

// name [(] [arguments] [)] [;]
void process_cpp_pragma(a_pending_pragma *pending, a_symbol *symbol, a_statement *statement) {
  start_pragma(pending);
  a_qx_handler handler = qx_handler_of(pending->description->kind);
  paren_was_opened = loop_token(tok_lparen);
  a_pragma_result result =
      handler == nullptr ? prs_bad_format : handler(pending, symbol, statement);
  end_pragma(pending, result);
}

void issue_simple_pragma(a_pragma_kind kind, const char *text) {
  a_pending_pragma *pending = make_pending_pragma_for_attribute(kind, &null_source_position);
  add_pragma_text(create_il_entry_for_pragma(pending, nullptr, nullptr),
                  alloc_il_text(text, std::strlen(text)));
}

// ---- Backends ----------------------------------------------------------------------------------

a_pending_pragma *make_pending_pragma_for_attribute(a_pragma_kind kind,
                                                    const a_source_position *position) {
  static a_pending_pragma pending;
  static a_pragma_kind_description descriptions[prk_last];
  a_pragma_kind_description *description = pragma_description_for_pragma_kind[kind];
  if (description == nullptr) {
    description = &descriptions[kind];
    *description = {nullptr, kind, pmo_construct, nullptr, 0, es_error};
  }
  std::memset(static_cast<void *>(&pending), 0, sizeof pending);
  pending.description = description;
  pending.name_position = pending.directive_position = *position;
  return &pending;
}

namespace {

const char *upper_case_copy(const char *text) {
  char *copy = alloc_il_text(text, std::strlen(text));
  for (char *p = copy; *p != '\0'; ++p)
    if (*p >= 'a' && *p <= 'z') *p = static_cast<char>(*p - 'a' + 'A');
  return copy;
}

bool is_interrupt_type(const char *type) {
  static const char *const types[] = {"FIQ", "IRQ", "PABT", "DABT", "SWI", "UDEF", "RESET"};
  if (arm_arch_types.is_v7m()) return std::strcmp(type, "SWI") == 0;
  for (const char *known : types)
    if (std::strcmp(type, known) == 0) return true;
  return false;
}

}  // namespace

bool pragma_interrupt_backend(a_pending_pragma *pending, a_symbol *symbol, const char *type, bool) {
  if (!is_function(symbol)) {
    pos_sy_warning(ec_pragma_interrupt_requires_void, &pending->name_position, symbol);
    return false;
  }
  if (type != nullptr) type = upper_case_copy(type);
  // A software interrupt takes and gives values, but not on the M family.
  bool is_call = type != nullptr && std::strcmp(type, "SWI") == 0 && !arm_arch_types.is_v7m();
  if (!is_call && !check_interrupt_type(pending, symbol, es_warning)) return false;
  if (type != nullptr && !is_interrupt_type(type)) {
    pos_st_error(ec_pragma_bad_interrupt_type, &pending->name_position, type);
    return false;
  }
  update_symbol_by_symtype(symbol, dm_interrupt, &pending->name_position);
  a_pragma *pragma = create_il_entry_for_pragma(pending, symbol, nullptr);
  if (type != nullptr) add_pragma_text(pragma, type);
  return true;
}

bool pragma_location_backend(a_pending_pragma *pending, a_symbol *symbol, std::uint64_t address,
                             bool is_attribute) {
  if (!is_attribute && !check_file_level_variable(pending, symbol)) return false;
  if (is_attribute && !is_function(symbol) && !has_static_storage(symbol)) {
    report(es_warning, ec_requires_static_storage, pending, symbol);
    return false;
  }
  std::uint64_t bits =
      static_cast<std::uint64_t>(targ_sizeof_pointer) * static_cast<std::uint64_t>(targ_char_bit);
  if (bits < 64 && address >> bits != 0) {
    pos_st_warning(ec_pragma_location_value_too_large, &pending->name_position,
                   is_attribute ? "attribute" : "pragma");
    return false;
  }
  add_pragma_text(create_il_entry_for_pragma(pending, symbol, nullptr), text_of_number(address));
  return true;
}

bool pragma_noinit_persistent_backend(a_pending_pragma *pending, a_symbol *symbol, bool) {
  if (symbol == nullptr || is_routine_symbol_kind(symbol->kind)) {
    report(es_warning, ec_pragma_cannot_apply_to_func, pending);
    return false;
  }
  if (!has_static_storage(symbol)) {
    bool at_file_level = is_variable(symbol) && symbol->variant.variable->is_file_scope;
    report(
        es_warning,
        in_cplusplus() || !at_file_level ? ec_requires_static_storage : ec_requires_level_zero_def,
        pending, symbol);
    return false;
  }
  const char *text = pending->description->kind == prk_NOINIT ? "NOINIT" : "PERSISTENT";
  add_pragma_text(create_il_entry_for_pragma(pending, symbol, nullptr), text);
  return true;
}

bool pragma_for_sym_def_backend(a_pending_pragma *pending, a_symbol *symbol, bool is_attribute) {
  bool is_retain = pending->description->kind == prk_RETAIN;
  if (is_function(symbol)) {
    // An attribute stands in front of the body that it keeps.
    if (!is_attribute && !check_function_definition(pending, symbol)) return false;
    a_routine *routine = symbol->variant.routine;
    if (is_retain) {
      routine->is_retained = routine->never_removed = true;
      mark_as_needed(routine, iek_routine);
    }
  } else if (is_variable(symbol)) {
    if (!check_file_level_variable(pending, symbol)) return false;
    a_variable *variable = symbol->variant.variable;
    if (is_retain) {
      variable->never_removed = variable->referenced = true;
      symbol->referenced = true;
      mark_as_needed(variable, iek_variable);
    }
  } else {
    report(es_warning, ec_pragma_requires_func_or_obj_def, pending, symbol);
    return false;
  }
  create_il_entry_for_pragma(pending, symbol, nullptr);
  return true;
}

bool pragma_code_state_backend(a_pending_pragma *pending, a_symbol *symbol, std::uint64_t value,
                               bool is_attribute) {
  constexpr std::uint64_t thumb = 16, arm = 32;
  const char *what = is_attribute ? "target attribute" : "CODE_STATE pragma";
  if (arm_arch_types.is_v7m() && value != thumb) {
    pos_st2_diagnostic(es_warning, ec_invalid_M_arch_code_state, &pending->name_position,
                       is_attribute ? "thumb" : "16", what);
    return false;
  }
  if (value != thumb && value != arm) {
    pos_st_error(ec_invalid_code_state_specified, &pending->name_position, what);
    return false;
  }
  add_pragma_text(create_il_entry_for_pragma(pending, symbol, nullptr), text_of_number(value));
  return true;
}

void create_pragma_calls(a_pending_pragma *pending, a_symbol *symbol, const char *const *names,
                         int count) {
  a_pragma *pragma = create_il_entry_for_pragma(pending, symbol, nullptr);
  for (int i = 0; i < count; ++i)
    add_pragma_text(pragma, names[i]);
}
