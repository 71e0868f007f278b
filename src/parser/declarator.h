// Declarators: what stands around a declared name. "* const (*name[3])(int)" is read from the name
// outwards and turned into a type built on the type of the specifiers.
//
// The parts of a declarator (pointers, arrays, functions) are kept in the order in which they apply
// to the type of the specifiers, and turned into types when the whole is read, so that pointer
// types are shared. Function declarators open a prototype scope for their parameters and leave in
// an a_func_info_block what a definition needs.
#ifndef PARSER_DECLARATOR_H
#define PARSER_DECLARATOR_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

// One name of a K&R identifier list.
struct a_param_id {
  a_param_id *next;
  a_param_id *next_in_chain;
  a_symbol_header *header;
  a_source_position position;
  a_type *type;                // set by its declaration; null: not declared, an int
  a_type *promoted_type;       // the type under which the argument is passed
  a_symbol *symbol;            // the parameter's symbol, once declared
  std::uint8_t storage_class;  // dsc_none or dsc_register
  an_attribute *attributes;
};

// A VLA bound of a parameter that waits for its routine.
struct a_vla_fixup;

// The names that a prototype declares, in order; a definition makes the parameter variables of
// them.
struct a_param_decl {
  a_param_decl *next;
  a_symbol_header *header;  // null: unnamed
  a_param_type *param_type;
  a_type *type;           // adjusted, with its qualifiers
  a_type *declared_type;  // before adjustment
  a_source_position position;
  std::uint8_t storage_class;  // dsc_none or dsc_register
  an_attribute *attributes;
};

// What a function declarator leaves for the declaration routines.
struct a_func_info_block {
  a_param_id *param_id_list;  // K&R identifier list; null: a prototype or ()
  a_param_id *last_param_id;
  a_param_id **param_id_chains;  // by header, a power of two of them
  std::uint32_t num_param_id_chains;
  std::uint32_t num_param_ids;
  a_param_decl *param_decls;         // parameters of a prototype
  std::uint32_t param_scope_number;  // scope of the parameters; 0: none
  a_token_cache *exception_spec_cache;
  a_source_position end_position;     // the closing ) of the parameter list
  a_scope *prototype_scope;           // null: no IL scope was needed
  a_symbol *prototype_scope_symbols;  // head of the symbols of the prototype scope
  std::int32_t scope_depth;           // of the parameter scope while it is open, else -1
  an_error_code deferred_exception_error;
  a_pending_pragma *pending_pragmas;
  a_vla_fixup *vla_fixups;
  bool has_ellipsis : 1;
  bool has_params : 1;
  bool is_function_declarator : 1;  // the declarator itself has a parameter list (no typedef)
  bool prototyped : 1;
  bool ref_qualified : 1;
  bool is_deleted : 1;
  bool is_main : 1;
};
void clear_func_info(a_func_info_block *info);

void add_to_param_id_list(const a_symbol_locator *locator, a_func_info_block *info);
a_param_id *param_id_on_list(const a_symbol_locator *locator, const a_func_info_block *info);
void free_param_id_list(a_func_info_block *info);

// Context of a declarator.
enum a_declarator_flag : std::uint64_t {
  dcl_name_ok = 1ull << 0,
  dcl_abstract_ok = 1ull << 1,
  dcl_in_new = 1ull << 3,
  dcl_param_array = 1ull << 4,  // [static n], [qualifiers] and [*] are allowed
  dcl_implicit_int_function = 1ull << 5,
  dcl_in_parens = 1ull << 6,
  dcl_typedef = 1ull << 8,
  dcl_friend = 1ull << 10,
  dcl_template_type_ok = 1ull << 11,
  dcl_allow_unknown_type = 1ull << 12,
  dcl_allow_abstract_class = 1ull << 13,
  dcl_tentative = 1ull << 14,
  dcl_vla_ok = 1ull << 15,
  dcl_no_pack_recording = 1ull << 17,
  dcl_knr_list_ok = 1ull << 18,  // an identifier list may stand: a definition can follow
  dcl_is_class_member = 1ull << 31,
};

// Reads a declarator; leaves the type in state->declared_type and the name in *locator (a cleared
// locator for an abstract one). member_class, func_info and positions may be null.
void declarator(std::uint64_t flags, a_decl_parse_state *state, a_type *member_class,
                a_symbol_locator *locator, a_func_info_block *func_info,
                a_decl_pos_block *positions);

// Array to pointer, function to pointer; false and a message for void and other impossible types.
bool check_and_adjust_parameter_type(a_decl_parse_state *state, const a_source_position *position);
void adjust_parameter_type(a_type **type);

// Reports a return type that a function cannot have; true: it is good.
bool check_return_type(a_type *type, a_decl_parse_state *state, const a_source_position *position);
void report_bad_return_type_qualifier(a_type *type, a_decl_parse_state *state,
                                      const a_source_position *position);

// Reads qualifiers behind * or inside [ ]; gives the qualifier bits of semantics/types.h.
unsigned collect_type_qualifiers(a_decl_parse_state *state);

// Type-ids.
void type_name(a_type **type);
void type_name_full(a_decl_parse_state *state);
void new_type_name(a_decl_parse_state *state, std::uint64_t flags);
// The type of "(type)" with the current token behind "("; the current token is ")" afterwards.
a_type *scan_type_for_cast();
a_type *scan_type_for_sizeof();
a_type *simple_type_specifier_sequence();
a_type *type_keyword();

void declarator_trans_unit_init();

#endif
