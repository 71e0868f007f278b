// The order of the file: comment, option sets, pragmas, asm statements, routines, initial values,
// and the closing sections.
#include "ANSI/i_gen_be.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "ANSI/ansi_expr.h"
#include "ANSI/i_gen_be_internal.h"
#include "DIAG/error.h"
#include "driver/cfe.h"
#include "driver/host_envir.h"
#include "driver/switches.h"
#include "il/il.h"
#include "options/cmd_line.h"
#include "semantics/target.h"
#include "semantics/types.h"

I_FILE *i_file = nullptr;
TYPE_PKG *type_pkg = nullptr;
PSN current_psn;
a_routine *current_routine = nullptr;
std::vector<a_variable *> promoted_statics;

namespace {

const char *trans_unit_name = nullptr;
constexpr std::size_t max_comment = 511;

void write_command_line() {
  std::string text = ";\t";
  for (int i = 0; i < sys_argc; i++) {
    if (text.size() + std::strlen(sys_argv[i]) + 1 > max_comment) break;
    text += sys_argv[i];
    text += ' ';
  }
  i_file->if_write_comment(text.c_str());
}

void write_file_level_override() {
  an_opt_override *override = get_opt_override(nullptr, nullptr);
  if (override == nullptr) return;
  PRAGMA pragma;
  pragma.kind = fpk_OPT_OVERRIDE;
  pragma.texts = {override->opt_options != nullptr ? override->opt_options : "",
                  override->cg_options != nullptr ? override->cg_options : ""};
  i_file->if_write_pragma(&pragma);
}

// An alias for a routine of the same name shares that routine's symbol.
void enter_routines(a_scope *scope) {
  for (a_routine *r = scope->routines; r != nullptr; r = r->next)
    if (r->needed) enter_if_new(symbol_of_routine(r));
}

void enter_variables(a_scope *scope) {
  for (a_variable *v = scope->variables; v != nullptr; v = v->next)
    if (v->needed && !v->is_local_to_routine) enter_if_new(symbol_of_variable(v));
}

void write_asm_entries(a_scope *scope) {
  for (an_asm_entry *e = scope->asm_entries; e != nullptr; e = e->next) {
    set_current_psn(e->position);
    i_file->if_write_assembly(e->asm_text->string_text, &current_psn);
  }
}

bool has_body_to_write(const a_routine *routine) {
  return routine->needed && routine->defined && routine->function_def_number != 0 &&
         !routine->body_dropped && !(routine->gnu_inline && routine->storage_class == sc_extern);
}

// Inline routines come first, so that a later stage knows them when it meets their calls.
void generate_routines(a_scope *scope) {
  for (bool is_inline : {true, false})
    for (a_routine *r = scope->routines; r != nullptr; r = r->next)
      if (r->is_inline == is_inline && has_body_to_write(r)) generate_routine(r);
}

void generate_initial_value(a_variable *variable) {
  if (variable->init_kind != init_constant || variable->initializer.constant == nullptr) return;
  if (!variable->needed) return;
  SYMTAB *symbol = symbol_of_variable(variable);
  enter_if_new(symbol);
  i_file->if_write_init(symbol);
  generate_constant(variable->initializer.constant, variable->type, true);
  put(op_ENDINIT, basic_void());
}

void generate_initial_values(a_scope *scope) {
  for (a_variable *v = scope->variables; v != nullptr; v = v->next)
    if (!v->is_local_to_routine) generate_initial_value(v);
  // A value may name a static that is promoted by that; the newest stand at the end.
  for (std::size_t i = promoted_statics.size(); i-- > 0;)
    generate_initial_value(promoted_statics[i]);
}

void translate_types(a_scope *scope) {
  for (a_type *type = scope->types; type != nullptr; type = type->next) {
    if (!type->needed && !keep_unneeded_types) continue;
    if (type->kind == tk_typeref && type->name == nullptr) continue;
    if (type->kind == tk_integer && type->is_enum && type->is_incomplete) continue;
    if (is_error_type(type)) continue;
    tp_type(type);
  }
}

void write_unit() {
  a_scope *scope = il_header.primary_scope;
  write_command_line();
  for (const OPTION_SET &set : icode_optlist)
    i_file->if_enter_option_set(set);
  write_file_level_override();
  write_scope_pragmas(scope);
  collect_pragmas(scope);
  enter_routines(scope);
  enter_variables(scope);
  write_asm_entries(scope);
  generate_routines(scope);
  generate_initial_values(scope);
  translate_types(scope);
}

}  // namespace

void i_set_trans_unit_name(const char *name) {
  trans_unit_name = name;
}

void back_end() {
  error_position = null_source_position;
  if (i_file_name == nullptr) i_file_name = derived_name(primary_source_file_name, ".if");
  std::FILE *stream =
      open_output_file_with_error_handling(i_file_name, true, false, 0, ec_il_output);
  note_begun_output(i_file_name);
  in_front_end = false;
  TYPE_PKG::abi = is_eabi;
  TYPE_PKG::wchar_t_size_in_bits = static_cast<std::uint32_t>(targ_sizeof_wchar_t) * 8;
  I_FILE file;
  TYPE_PKG package;
  i_file = &file;
  type_pkg = &package;
  promoted_statics.clear();
  reset_type_cache();
  reset_symbols();
  reset_hooks();
  reset_checks();
  current_psn = PSN();
  set_current_psn(make_source_position(1, 1));
  if (trans_unit_name == nullptr) trans_unit_name = primary_source_file_name;
  file.if_create(stream, &package, trans_unit_name);
  std::uint64_t errors = total_errors;
  write_unit();
  bool abandon = total_errors != errors;
  if (file.if_close(keep_unneeded_types, abandon) && !abandon)
    str_catastrophe(ec_file_write_error, "generated IL output");
  if (abandon) unlink_begun_outputs();
  i_file = nullptr;
  type_pkg = nullptr;
}
