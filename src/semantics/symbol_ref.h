// References to symbols: marks what is used, set and called, and reports uses that the language or
// an attribute forbids.
#ifndef SEMANTICS_SYMBOL_REF_H
#define SEMANTICS_SYMBOL_REF_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

// How a name is used; combined where one use does several things (x++ reads and modifies).
enum a_reference_kind : unsigned {
  ref_read = 1,          // its value is taken
  ref_modify = 2,        // it is assigned
  ref_address = 4,       // its address is taken, or an array decays
  ref_call = 8,          // it is called
  ref_unevaluated = 16,  // in sizeof, typeof: does not need a definition
  ref_other = 32,        // a type, label, enumerator or macro is named
};

// Marks the symbol and its entity for this use; deprecated and deleted entities are reported at
// position. needed: the entity's definition is needed (false in unevaluated operands).
void record_symbol_reference(unsigned kind, a_symbol *symbol, const a_source_position *position,
                             bool needed);
void record_symbol_reference_full(unsigned kind, a_symbol *symbol,
                                  const a_source_position *position, bool needed,
                                  a_source_correspondence *entity);

enum a_declaration_kind : std::uint8_t { dk_declaration, dk_definition };
void record_symbol_declaration(a_declaration_kind kind, a_symbol *symbol,
                               const a_source_position *position, a_source_correspondence *entity);

// A line of the cross-reference file, when there is one: D a declaration, R a value is read, M it is
// modified, A an address is taken, C a call.
void write_xref_line(char letter, const a_symbol *symbol, const a_source_position *position);

void mark_variable_value_set(a_symbol *symbol);
void mark_routine_referenced(a_routine *routine);

// Reports "identifier is undefined" and enters an undefined symbol, so that the name reports once
// in its scope. Sets and gives locator->symbol.
a_symbol *reference_to_invalid_name(a_symbol_locator *locator);

// 1291 for an entity with the deprecated attribute.
void check_use_of_deprecated_entity(a_source_correspondence *entity,
                                    const a_source_position *position);
// True if the routine may be used.
bool check_use_of_deleted_function(a_symbol *symbol, bool report,
                                   const a_source_position *position);

// ---- Generalized identifiers of C++ ------------------------------------------------------------

// Does the current token start a name, qualified or not?
bool f_is_generalized_identifier_start();
// Reads a name with its qualifiers into locator_for_curr_id; in C an identifier as it is. The
// current token stays the (coalesced) identifier.
bool coalesce_and_lookup_generalized_identifier(unsigned options);
bool coalesce_and_lookup_qualified_name(unsigned options);

void symbol_ref_one_time_init();

#endif
