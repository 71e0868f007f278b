// The pragmas of the tool chain itself: sections, alignment, interrupts, loops, calls. Their
// effects are shared with the attributes of the same meaning, which call the backends below with a
// pending pragma that has no tokens.
#ifndef TARGET_QX_PRAGMA_H
#define TARGET_QX_PRAGMA_H

#include <cstdint>

#include "target/pragma.h"

// A pending pragma for an attribute: nothing is rescanned.
a_pending_pragma *make_pending_pragma_for_attribute(a_pragma_kind kind,
                                                    const a_source_position *position);

// Each checks, reports, and says whether it took effect.
bool pragma_interrupt_backend(a_pending_pragma *pending, a_symbol *symbol, const char *type,
                              bool is_attribute);
bool pragma_location_backend(a_pending_pragma *pending, a_symbol *symbol, std::uint64_t address,
                             bool is_attribute);
bool pragma_noinit_persistent_backend(a_pending_pragma *pending, a_symbol *symbol,
                                      bool is_attribute);
bool pragma_for_sym_def_backend(a_pending_pragma *pending, a_symbol *symbol, bool is_attribute);
bool pragma_code_state_backend(a_pending_pragma *pending, a_symbol *symbol, std::uint64_t value,
                               bool is_attribute);
bool pragma_unroll_backend(a_pending_pragma *pending, a_statement *statement, std::uint64_t value,
                           bool is_attribute, const char *name);
bool pragma_must_iterate_backend(a_pending_pragma *pending, a_statement *statement,
                                 const std::uint64_t values[3], int count, bool is_attribute,
                                 const char *name);
bool pragma_prob_iterate_backend(a_pending_pragma *pending, a_statement *statement,
                                 const std::uint64_t values[2], int count, bool is_attribute,
                                 const char *name);
// One record whose texts are the external names.
void create_pragma_calls(a_pending_pragma *pending, a_symbol *symbol, const char *const *names,
                         int count);

// Sets dm_ bits of a routine or variable.
void update_symbol_by_symtype(a_symbol *symbol, std::uint32_t modifier_bits,
                              const a_source_position *position);

#endif
