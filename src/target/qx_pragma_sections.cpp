// Sections of routines and variables, and the pragmas that act on a whole file.
#include <cstring>

#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "il/il_walk.h"
#include "target/arm_util.h"
#include "target/misra.h"
#include "target/pragma_internal.h"
#include "target/qx_pragma_internal.h"

namespace {

// The sections of SET_CODE_SECTION and SET_DATA_SECTION; a null name: none.
a_section_specification block_code_section, block_data_section;

a_section_specification *new_section(a_section_origin kind, const char *name,
                                     const a_source_position *position) {
  auto *section = static_cast<a_section_specification *>(alloc_il(sizeof(a_section_specification)));
  *section = {name, *position, kind};
  return section;
}

// A section of a block gives way to one of the entity itself; of two others the first stays.
void set_section(a_section_specification **slot, a_symbol *symbol, a_section_origin kind,
                 const char *name, const a_source_position *position) {
  const a_section_specification *old = *slot;
  if (old == nullptr || (old->kind == sec_pragma_block && kind == sec_attribute_or_pragma)) {
    *slot = new_section(kind, alloc_il_text(name, std::strlen(name)), position);
    return;
  }
  if (kind == sec_pragma_block || std::strcmp(old->name, name) == 0) return;
  a_diagnostic *d =
      pos_sy_start_diagnostic(es_warning, ec_section_pragma_conflict, position, symbol);
  add_string_argument(d, old->name);
  add_string_argument(d, name);
  end_diagnostic(d);
}

}  // namespace

void set_routine_section_specification(a_routine *routine, a_section_origin kind, const char *name,
                                       const a_source_position *position) {
  set_section(&routine->section_specification, routine->symbol, kind, name, position);
}

void set_variable_section_specification(a_variable *variable, a_section_origin kind,
                                        const char *name, const a_source_position *position) {
  set_section(&variable->section_specification, variable->symbol, kind, name, position);
}

void apply_routine_block_section_specification(a_routine *routine) {
  if (block_code_section.name != nullptr)
    set_routine_section_specification(routine, sec_pragma_block, block_code_section.name,
                                      &block_code_section.position);
}

void apply_variable_block_section_specification(a_variable *variable) {
  if (block_data_section.name != nullptr && variable->storage_class <= sc_static)
    set_variable_section_specification(variable, sec_pragma_block, block_data_section.name,
                                       &block_data_section.position);
}

// SET_DATA_SECTION ( ["name"] )
void process_set_section_pragma(a_pending_pragma *pending, a_symbol *, a_statement *) {
  a_section_specification &section =
      pending->description->kind == prk_SET_CODE_SECTION ? block_code_section : block_data_section;
  const char *p = pending->text;
  while (*p == ' ')
    ++p;
  if (*p != '(') {
    pos_error(ec_bad_pragma_format, &pending->name_position);
    return;
  }
  do
    ++p;
  while (*p == ' ');
  if (*p == ')') {
    section = {};
    return;
  }
  const char *end = *p == '"' ? std::strchr(p + 1, '"') : nullptr;
  const char *behind = end;
  if (behind != nullptr) do
      ++behind;
    while (*behind == ' ');
  if (behind == nullptr || *behind != ')') {
    pos_error(ec_bad_pragma_format, &pending->name_position);
    return;
  }
  section.name = alloc_il_text(p + 1, static_cast<std::size_t>(end - p - 1));
  section.position = pending->name_position;
  section.kind = sec_pragma_block;
}

void always_inline_pragma(a_pending_pragma *, a_symbol *, a_statement *) {
  always_inline_funcs = true;
}

// CHECK_MISRA ( "rules" ), RESET_MISRA ( "rules" ): what follows is checked so. Without the option
// of the command line they do nothing.
void pragma_misra_action(a_pending_pragma *pending, a_symbol *, a_statement *) {
  if (!check_misra_c_2004) return;
  begin_rescan_of_pragma_tokens(pending);
  bool has_paren = loop_token(tok_lparen);
  const char *rules = nullptr;
  bool good = scan_string_argument(&rules);
  if (good && has_paren && !loop_token(tok_rparen)) {
    pos_error(ec_exp_rparen, &pos_curr_token);
    good = false;
  }
  wrapup_rescan_of_pragma_tokens(!good);
  if (!good) return;
  bool error;
  process_check_misra(rules, &pending->directive_position, &error, false,
                      pending->description->kind == prk_RESET_MISRA);
  if (error) pos_error(ec_bad_pragma_format, &pending->name_position);
}

// Power advice is not given, so that its pragmas do nothing.
void pragma_pwa_action(a_pending_pragma *, a_symbol *, a_statement *) {}
void process_pwa_port_config(a_pending_pragma *, a_symbol *, a_statement *) {}

void clear_block_sections() {
  block_code_section = block_data_section = {};
  always_inline_funcs = false;
}
