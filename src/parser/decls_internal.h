// What the rooms of decls share.
#ifndef PARSER_DECLS_INTERNAL_H
#define PARSER_DECLS_INTERNAL_H

#include "parser/decls.h"

// The scope of the declaration is the file's (or a namespace).
bool declaring_at_file_scope();

// What a declared name has to do with earlier declarations of it.
struct a_prior_declaration {
  a_symbol *in_scope;  // declared in the scope of the declaration itself
  a_symbol *visible;   // with linkage, seen from a block-scope extern; null: none
  a_symbol *external;  // kept for all block-scope externs of the name; null: none
};
a_prior_declaration find_prior_declaration(a_symbol_locator *locator, bool is_block_extern);

// The name is taken in this scope by something else; reports.
void report_name_conflict(a_symbol_locator *locator, a_symbol *previous, a_decl_parse_state *state);

// A locator with the name of locator and no symbol looked up.
a_symbol_locator fresh_locator(const a_symbol_locator *locator);

// The linkage of a name was told in two ways; reports.
void report_linkage_conflict(const a_source_position *position, a_symbol *previous);

#endif
