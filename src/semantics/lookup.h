// Name lookup: which symbol a name means at this point.
//
// The usual case reads the chain of visible symbols of the header, whose first symbol in the wanted
// name space is the answer. Classes, namespaces and using directives are searched through their
// lookup tables. All lookups are silent: the caller reports what it cannot do without
// (reference_to_invalid_name).
#ifndef SEMANTICS_LOOKUP_H
#define SEMANTICS_LOOKUP_H

#include <cstdint>

#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

// Options of every lookup.
enum a_lookup_option : unsigned {
  lookup_qualifier_only = 1,  // only a name that can stand before ::
  lookup_tag_only = 2,        // only a tag: "struct x"
  lookup_template_args_follow = 4,
  lookup_variable_like = 8,     // for the checks of a redeclaration
  lookup_in_declarator = 0x20,  // hidden symbols are seen
  lookup_block_externs = 0x80,  // symbols of block-scope extern declarations are seen
  lookup_namespace_only = 0x200,
  lookup_class_like_only = 0x800,  // a class, class template, or a typedef of a class
  lookup_templates_only = 0x2000,
  lookup_defining = 0x4000,  // the name of a declaration that is being defined
  lookup_stop_at_namespace = 0x8000,
  lookup_using_declaration = 0x10000,
  lookup_typedefs_distinct = 0x20000,
  lookup_quiet = 0x80000000,  // the caller will report nothing
};

// True if the symbol (seen through projections) satisfies the kind restrictions of the options.
bool sym_matches_lookup_options(a_symbol *symbol, unsigned options);

// An unqualified name from here. Gives the locator's symbol if it has one already.
a_symbol *normal_id_lookup(a_symbol_locator *locator, unsigned options);
// Only the scope where declarations go.
a_symbol *curr_scope_id_lookup(a_symbol_locator *locator, unsigned options);
// Only the scope at a depth of the scope stack.
a_symbol *scope_depth_id_lookup(a_symbol_locator *locator, int depth, unsigned options);
// Only a file scope.
a_symbol *file_scope_id_lookup(a_scope *scope, a_symbol_locator *locator, unsigned options);
// n::name, c::name and members, e::name.
a_symbol *namespace_qualified_id_lookup(a_symbol_locator *locator, a_namespace *namespace_ptr,
                                        unsigned options);
a_symbol *class_qualified_id_lookup(a_symbol_locator *locator, a_type *class_type,
                                    unsigned options);
a_symbol *enum_qualified_id_lookup(a_symbol_locator *locator, a_type *enum_type);

// The field of a C struct or union with the locator's name, seen through anonymous members (whose
// fields are entered in the outer class too); null: none. Sets locator->symbol.
a_symbol *field_lookup(a_symbol_locator *locator, a_type *class_type);

// The tag that an elaborated specifier names in the scope where declarations go.
a_symbol *curr_tag_symbol(a_symbol_locator *locator, unsigned options);

// Two names for the same entity.
bool symbols_are_lookup_equivalent(const a_symbol *a, const a_symbol *b, unsigned options);

void lookup_one_time_init();
void lookup_trans_unit_init();

#endif
