// Declarations: turns specifiers and declarators into entities, at file scope, in blocks, in
// parameter lists and in K&R headers. Finds the previous declaration of a name, reconciles the two,
// decides linkage, and enters the symbol.
#ifndef PARSER_DECLS_H
#define PARSER_DECLS_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

// Reads the whole translation unit; the first token has not been fetched yet.
void translation_unit();

// Reads one declaration at file or namespace scope, or in a block; state is cleared, the current
// token is its first. *range, if given, gets its first and last position.
void scan_nonmember_declaration(a_decl_parse_state *state, a_source_range *range);

// One declaration in a block, or the first clause of a for statement: up to and past its ";".
void declaration(bool in_for_init);

// The declarations between a K&R declarator and the body; the current token is the first of them.
// Fills the entries of the identifier list; undeclared names become int. The promoted types become
// the parameter types of the routine, unless a prototype told them: then they must agree with it.
void scan_knr_parameter_declarations(a_func_info_block *func_info, a_routine *routine);

// Is a K&R header with its body standing at the current token, behind the declarator?
bool is_start_of_function_body(const a_func_info_block *func_info);

void static_assert_declaration();
void alias_declaration(a_decl_parse_state *state, const a_source_position *position);

// asm("name") behind a declarator, into state->asm_name.
void scan_gnu_asm_name(a_decl_parse_state *state);

// Makes or finds the entity of a declarator. Each leaves the symbol in state->symbol and returns
// it; null after an error that leaves nothing to declare.
a_symbol *decl_variable(a_symbol_locator *locator, a_decl_parse_state *state, bool is_definition);
a_symbol *decl_routine(a_symbol_locator *locator, a_decl_parse_state *state,
                       a_func_info_block *func_info, bool is_definition);
a_symbol *decl_typedef(a_symbol_locator *locator, a_decl_parse_state *state, a_type *member_class,
                       a_decl_pos_block *positions);

// Makes a declared routine for a call of an undeclared function in C: "extern int name();".
a_symbol *declare_implicit_function(a_symbol_locator *locator);

// Entity makers; depth is the scope stack entry that owns the entity.
a_routine *make_routine(a_type *type, std::uint8_t storage_class, int scope_depth);
a_variable *make_variable(a_type *type, std::uint8_t storage_class, int scope_depth);

// Redeclaration. Reports what does not fit at the severity given; true: the types agree, and the
// composite type is in force.
bool reconcile_external_symbol_types(a_symbol *external_symbol, const a_source_position *position,
                                     a_type *type, int severity);
bool reconcile_routine_types(a_routine *routine, a_type *type, const a_source_position *position,
                             bool is_definition);

void attach_decl_attributes(a_decl_parse_state *state, bool is_redeclaration);
void attach_param_attributes(a_param_type *param, an_attribute *attributes);

// Makes the state ready for the next declarator of a list.
void start_secondary_declarator(a_decl_parse_state *state);

// A declaration without a type: what each dialect says of the int that it means.
void report_missing_type_specifier(const a_source_position *position, a_type *type,
                                   bool is_file_scope, bool no_specifiers, bool is_routine,
                                   bool is_definition_or_void);

void check_main_function(a_func_info_block *func_info, a_type *type, a_decl_parse_state *state,
                         const a_source_position *position);

// At the end of the unit: tentative definitions of incomplete arrays get one element, of other
// incomplete types are reported.
void complete_tentative_definitions();

void decls_one_time_init();
void decls_trans_unit_init();

#endif
