// Is this a declaration? The questions that the parser asks by looking at the tokens ahead, without
// consuming them, without messages and without effects on the IL.
#ifndef PARSER_DISAMBIG_H
#define PARSER_DISAMBIG_H

#include <cstdint>

#include "il/il_fwd.h"

// Contexts of is_type_start and is_decl_start.
enum a_decl_start_flag : unsigned {
  dst_type_id_only = 1,  // a type-id: storage classes and function specifiers do not start one
  dst_statement = 2,     // the start of a statement or a declaration at any level
  dst_parameter = 4,     // a parameter declaration: attributes and storage classes may stand first
};

// May the current token start a type specifier sequence? With dst_type_id_only only what a type-id
// holds counts: type specifiers, qualifiers and type names.
bool is_type_start(unsigned flags);

// May the current token start a declaration? __extension__ counts when what follows it does.
bool is_decl_start(unsigned flags);

// The type that the current identifier names in this place, or null. Looks the identifier up and
// leaves the answer in locator_for_curr_id. C: a typedef name that no inner declaration hides.
a_symbol *curr_type_symbol();

// Modes of is_decl_not_expr.
enum a_disambiguation_mode : unsigned {
  dam_type_id = 1,        // a type-id is asked for, not a full declaration
  dam_statement = 2,      // a statement position
  dam_abstract_only = 4,  // abstract declarators only
  dam_condition = 8,      // with dam_for_init the two forms of a statement's head
  dam_for_init = 16,
  dam_cast = 32,  // what follows ) decides
  dam_constructor_names = 64,
  dam_template_arg = 128,  // > or , ends the type-id
  dam_class_definition = 256,
  dam_lambda_parameter = 512,
  // The combinations in use.
  dam_parenthesized_type_id = dam_type_id | dam_abstract_only,
  dam_cast_type_id = dam_parenthesized_type_id | dam_cast,
  dam_template_type_id = dam_parenthesized_type_id | dam_template_arg,
  dam_new_type_id = dam_parenthesized_type_id | dam_class_definition,
};

// Do the tokens from the current one on form a declaration (or type-id, by mode) rather than an
// expression? In C the first token settles it.
bool is_decl_not_expr(unsigned mode);

// C++ questions.
a_symbol *prescan_and_find_declarator(bool *is_function);  // null: no name is declared
bool is_start_of_range_based_for();
void prescan_decl_modifiers();

void disambig_one_time_init();

#endif
