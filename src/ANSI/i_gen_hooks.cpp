// Calls at the entry and the exit of functions, for profilers and tracers: --entry_hook,
// --exit_hook.
//
// The entry hook is called in front of the first statement; the exit hook behind the evaluation of
// what is returned, which a local variable keeps meanwhile. NO_HOOKS leaves a function out, and so
// does being a hook.
#include <cstring>

#include "ANSI/i_gen_be_internal.h"
#include "driver/switches.h"
#include "semantics/types.h"

namespace {

struct a_hook_symbol {
  const char *name;  // that the symbol was made for
  SYMTAB *symbol;
};
a_hook_symbol hook_symbols[2];
SYMTAB *kept_value;  // of the routine in hand; null when it returns nothing

bool is_hooked(const a_routine *routine) {
  const SYMTAB *symbol = symbol_of_routine(const_cast<a_routine *>(routine));
  return !is_hook(routine) && !has_pragma(symbol, fpk_NO_HOOKS) &&
         !has_pragma(symbol, fpk_HOOK_FUNCTION);
}

SYMTAB *symbol_of_hook(a_hook_symbol *hook, const char *name) {
  if (hook->symbol == nullptr || std::strcmp(hook->name, name) != 0)
    *hook = {name, symbol_of_foreign_routine(name, type_pkg->void_type)};
  if (!has_pragma(hook->symbol, fpk_HOOK_FUNCTION)) add_pragma(hook->symbol, fpk_HOOK_FUNCTION);
  enter_if_new(hook->symbol);
  return hook->symbol;
}

// hook(); hook("name"); or hook(address);
void generate_hook_call(a_hook_symbol *hook, const char *name, int parameter) {
  SYMTAB *callee = symbol_of_hook(hook, name);
  SYMTAB *routine = symbol_of_routine(current_routine);
  start_expression();
  if (parameter == hkp_none) {
    put(op_UCALL, basic_void());
    put_name(callee, callee->type);
    return;
  }
  put(op_CALL, basic_void());
  put_name(callee, callee->type);
  if (parameter == hkp_address) {
    put(op_UAND, type_pkg->mk_ptr(routine->type));
    put_name(routine, routine->type);
    return;
  }
  NODE text(op_SCON, type_pkg->mk_ptr(type_pkg->basic_types[TYPE::SCHAR]));
  text.text = current_routine->name;
  text.length = static_cast<std::uint32_t>(std::strlen(current_routine->name) + 1);
  put(text);
}

}  // namespace

bool is_hook(const a_routine *routine) {
  auto is = [&](const char *hook) {
    return hook != nullptr && routine->name != nullptr && std::strcmp(hook, routine->name) == 0;
  };
  return is(entry_hook_name) || is(exit_hook_name);
}

void generate_entry_hook() {
  if (entry_hook_name != nullptr && is_hooked(current_routine))
    generate_hook_call(&hook_symbols[0], entry_hook_name, entry_hook_parameter);
}

void generate_exit_hook() {
  if (exit_hook_name != nullptr && is_hooked(current_routine))
    generate_hook_call(&hook_symbols[1], exit_hook_name, exit_hook_parameter);
}

void generate_exit_hook_variable() {
  kept_value = nullptr;
  if (exit_hook_name == nullptr || !is_hooked(current_routine)) return;
  a_type *type = f_skip_typerefs(current_routine->type)->return_type;
  if (is_void_type(type)) return;
  kept_value = new_symbol(sym_name_of_temporary(), type, isc_auto);
  kept_value->psn = make_psn(current_routine->decl_position);
  i_file->if_enter_local(kept_value);
  i_file->if_write_symbol(kept_value);
}

SYMTAB *variable_of_exit_hook() {
  return kept_value;
}

void reset_hooks() {
  hook_symbols[0] = hook_symbols[1] = {};
  kept_value = nullptr;
}
