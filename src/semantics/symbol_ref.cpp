// What a use of a name does to its symbol and its entity.
//
// Marks are kept twice on purpose: those of the symbol say what the source does (the remarks at the
// end of a scope read them), those of the entity what the program needs (the walk over the IL reads
// them). A use in an operand that is not evaluated counts for the first only.
#include "semantics/symbol_ref.h"

#include <cstdio>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/switches.h"
#include "il/il_entity.h"
#include "il/il_kinds.h"
#include "il/il_type.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "source/lexical.h"

namespace {

void record_variable_use(unsigned kind, a_symbol *symbol, bool needed) {
  a_variable *variable = symbol->variant.variable;
  if ((kind & (ref_read | ref_address | ref_call)) != 0) symbol->value_used = true;
  if ((kind & (ref_modify | ref_address)) != 0) symbol->value_set = true;
  if (variable == nullptr) return;
  if ((kind & ref_modify) != 0) variable->modified_after_init = true;
  if ((kind & ref_address) != 0) variable->address_taken = true;
  if (needed) variable->referenced = true;
}

void record_routine_use(unsigned kind, a_symbol *symbol, bool needed) {
  a_routine *routine = symbol->variant.routine;
  if (routine == nullptr) return;
  if ((kind & ref_call) != 0) routine->called = true;
  if ((kind & ref_address) != 0) routine->address_taken = true;
  if (needed) mark_routine_referenced(routine);
}

}  // namespace

// letter, name, file, line and column, with tabs between. What the tool itself declares has no
// place and is left out.
void write_xref_line(char letter, const a_symbol *symbol, const a_source_position *position) {
  if (f_xref_info == nullptr || symbol->header == nullptr || position == nullptr ||
      position->seq == 0)
    return;
  const char *name, *full_name;
  a_line_number line;
  bool at_end;
  conv_seq_to_file_and_line(position->seq, &name, &full_name, &line, &at_end);
  std::fprintf(f_xref_info, "%c\t%s\t%s\t%lu\t%u\n", letter, symbol->header->name, name,
               static_cast<unsigned long>(line), static_cast<unsigned>(position->column));
}

// One line for each thing that the use does.
static void write_xref_of_use(unsigned kind, const a_symbol *symbol,
                              const a_source_position *position) {
  static const struct {
    unsigned kinds;
    char letter;
  } rows[] = {{ref_call, 'C'}, {ref_address, 'A'}, {ref_modify, 'M'}};
  bool written = false;
  for (const auto &row : rows) {
    if ((kind & row.kinds) == 0) continue;
    write_xref_line(row.letter, symbol, position);
    written = true;
  }
  if (!written || (kind & ref_read) != 0) write_xref_line('R', symbol, position);
}

void mark_routine_referenced(a_routine *routine) {
  routine->referenced = true;
}

void mark_variable_value_set(a_symbol *symbol) {
  symbol->value_set = true;
  if (symbol->variant.variable != nullptr) symbol->variant.variable->modified_after_init = true;
}

void record_symbol_reference_full(unsigned kind, a_symbol *symbol,
                                  const a_source_position *position, bool needed,
                                  a_source_correspondence *entity) {
  symbol = fundamental_symbol_of(symbol);
  if (symbol->is_error_symbol) return;
  if (f_xref_info != nullptr) [[unlikely]]
    write_xref_of_use(kind, symbol, position);
  if (symbol->kind == syk_field) return;  // noted for the cross-reference file alone
  // An assignment alone is no use: "x = 1;" leaves x set and not used.
  if (kind != ref_modify) symbol->referenced = true;
  if ((kind & ref_unevaluated) != 0) needed = false;
  if (is_variable_symbol_kind(symbol->kind)) {
    if ((kind & ref_unevaluated) != 0) symbol->value_used = true;
    record_variable_use(kind, symbol, needed);
  } else if (is_routine_symbol_kind(symbol->kind)) {
    record_routine_use(kind, symbol, needed);
  }
  if (entity == nullptr && symbol->kind != syk_keyword && symbol->kind != syk_macro)
    entity = source_corresp_entry_for_symbol(symbol);
  if (entity != nullptr && entity->is_deprecated && position != nullptr)
    check_use_of_deprecated_entity(entity, position);
}

void record_symbol_reference(unsigned kind, a_symbol *symbol, const a_source_position *position,
                             bool needed) {
  record_symbol_reference_full(kind, symbol, position, needed, nullptr);
}

// The first declaration was told when the symbol was entered.
void record_symbol_declaration(a_declaration_kind kind, a_symbol *symbol,
                               const a_source_position *position, a_source_correspondence *) {
  if (f_xref_info != nullptr && symbol != nullptr && position != nullptr &&
      compare_source_positions(*position, symbol->decl_position) != 0)
    write_xref_line('D', symbol, position);
  if (kind == dk_definition && symbol != nullptr) symbol->defined = true;
}

a_symbol *reference_to_invalid_name(a_symbol_locator *locator) {
  if (locator->symbol != nullptr) return locator->symbol;
  if (locator->error_name || locator->header == nullptr) {
    make_specific_symbol_error_locator(locator);
    return locator->symbol;
  }
  pos_st_error(ec_undefined_identifier, &locator->position, locator->header->name);
  return enter_undefined_symbol(locator);
}

void check_use_of_deprecated_entity(a_source_correspondence *entity,
                                    const a_source_position *position) {
  if (entity->symbol == nullptr) return;
  pos_sy_warning(ec_deprecated_entity, position, entity->symbol);
}

bool check_use_of_deleted_function(a_symbol *symbol, bool report,
                                   const a_source_position *position) {
  symbol = fundamental_symbol_of(symbol);
  if (!is_routine_symbol_kind(symbol->kind) || symbol->variant.routine == nullptr ||
      !symbol->variant.routine->is_deleted)
    return true;
  if (report) pos_sy_error(ec_deleted_function, position, symbol);
  return false;
}

// ---- Names of C --------------------------------------------------------------------------------

bool f_is_generalized_identifier_start() {
  if (curr_token == tok_identifier) return true;
  return in_cplusplus() && (curr_token == tok_colon_colon || curr_token == tok_operator);
}

// Qualified names, operator names and template arguments are C++: an identifier that nothing of
// them follows is the whole name.
bool coalesce_and_lookup_generalized_identifier(unsigned options) {
  if (curr_token != tok_identifier) {
    pos_st_error(ec_not_supported, &pos_curr_token, "qualified name");
    return false;
  }
  if (in_cplusplus() && next_token() == tok_colon_colon) {
    pos_st_error(ec_not_supported, &pos_curr_token, "qualified name");
    make_specific_symbol_error_locator(&locator_for_curr_id);
    return false;
  }
  normal_id_lookup(&locator_for_curr_id, options);
  return true;
}

bool coalesce_and_lookup_qualified_name(unsigned options) {
  return coalesce_and_lookup_generalized_identifier(options);
}

void symbol_ref_one_time_init() {}
