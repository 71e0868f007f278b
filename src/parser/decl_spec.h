// Declaration specifiers: the leading part of every declaration, in any order: type keywords, type
// names, tags, qualifiers, storage classes, function specifiers, attributes.
//
// decl_specifiers reads them into an a_decl_parse_state, the record that one declaration carries
// from its first token to its last check, and leaves there a finished type for the declarator.
// Enum specifiers, with their enumerators, and the tag of a struct, union or enum are read here;
// the body of a class is class_decl's.
//
// Parse states and end-of-parse actions come from free lists of region 0 (or a state stands on the
// caller's stack); the types made here lie in the file-scope region.
#ifndef PARSER_DECL_SPEC_H
#define PARSER_DECL_SPEC_H

#include <cstdint>

#include "DIAG/error_codes.h"
#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

struct a_decl_parse_state;
struct an_init_state;

// The storage class of a declaration as written. typedef is one here only: in an a_variable the
// value 4 has another meaning.
enum a_decl_storage_class : std::uint8_t {
  dsc_none = 0,
  dsc_extern = 1,
  dsc_static = 2,
  dsc_auto = 3,
  dsc_typedef = 4,
  dsc_register = 5,
};

// Keywords that modify the declared entity (decl_modifiers).
enum a_decl_modifier : std::uint32_t {
  dmod_dllexport = 1,
  dmod_dllimport = 2,
  dmod_notshared = 4,
  dmod_interrupt = 8,
  dmod_reentrant = 32,
  dmod_shared = 128,
  dmod_sharedpp = 256,
  dmod_trap = 512,
  dmod_cregister = 1024,
  dmod_global = 2048,
};

// A check or effect that needs the declared entity (constexpr, thread_local, _Noreturn,
// __auto_type).
using an_end_of_parse_routine = void (*)(a_decl_parse_state *state);
struct an_end_of_parse_action {
  an_end_of_parse_action *next;
  an_end_of_parse_routine routine;
  bool keep;  // stays for the next declarator of the list
};

struct a_decl_parse_state {
  a_symbol *symbol;  // the symbol finally declared; null: none yet

  // What the specifiers said.
  bool inline_seen : 1;
  bool virtual_seen : 1;
  bool mutable_seen : 1;
  bool constexpr_seen : 1;
  bool thread_local_seen : 1;
  bool noreturn_seen : 1;
  bool friend_seen : 1;
  bool explicit_seen : 1;
  bool has_storage_class_or_typedef_after_type : 1;
  bool type_specified : 1;  // a type specifier stood there
  bool only_void : 1;       // void and nothing else
  bool typedef_used_with_modifier : 1;
  bool no_specifier_seen : 1;  // no specifier of any kind
  bool no_specifiers : 1;      // as no_specifier_seen where the context lets specifiers be absent
  bool implicit_int_rejected : 1;
  bool can_be_declaration_without_declarator : 1;  // a lone tag specifier: "struct s;"
  bool tag_declared : 1;                           // a tag specifier declared or defined its tag
  bool tag_defined : 1;                            // ... with a body
  bool is_ctor_or_dtor_like : 1;
  bool class_constructor_name : 1;
  bool class_destructor_name : 1;
  bool qualified_name_follows : 1;
  bool typename_specifier_used : 1;
  bool auto_seen : 1;
  bool decltype_auto_seen : 1;
  bool auto_settled : 1;
  bool register_at_file_scope : 1;  // "register" was dropped; asm names look at it
  bool has_error : 1;               // a message was given; what follows stays silent
  bool error_in_specifiers : 1;

  // Where the declaration stands and what the declarator made of it.
  bool is_lambda_declarator : 1;
  bool has_body_or_init : 1;
  bool in_trailing_return : 1;
  bool no_defining_type_allowed : 1;
  bool reference_qualified : 1;
  bool in_parameter_list : 1;
  bool in_knr_parameter_declarations : 1;  // between a K&R declarator and its body
  bool in_decltype : 1;
  bool no_attribute_target : 1;  // the specifiers are a lone class: attributes have no entity
  bool caller_mark : 1;          // dsf_set_caller_mark was given
  bool is_file_scope_declaration : 1;
  bool is_first_declarator : 1;
  bool in_for_init : 1;  // the first clause of a for statement: objects only

  // Initializer.
  bool static_storage : 1;     // the object exists before the program starts
  bool constant_required : 1;  // only a constant initializer will do
  bool initializer_incomplete : 1;
  bool initializer_seen : 1;
  bool initializer_in_error : 1;

  a_source_position start_pos;       // first token of the declaration
  a_source_position specifiers_pos;  // first token of the specifiers
  a_source_position qualifier_pos;   // first cv-qualifier
  a_source_position restrict_pos;    // first restrict
  a_source_position inline_pos;
  a_source_position virtual_pos;
  a_source_position auto_pos;
  a_source_position constexpr_pos;
  a_source_position noreturn_pos;
  a_source_position thread_local_pos;
  a_source_position storage_class_pos;
  a_source_position declarator_pos;  // the declared name, or the place where it would stand

  an_attribute *prefix_attributes;      // before the specifiers
  an_attribute *specifier_attributes;   // among the specifiers, for the declared entity
  an_attribute *declarator_attributes;  // behind the declarator, for the declared entity
  an_attribute *type_attributes;        // go to the type
  unsigned qualifiers;                  // cv-qualifiers as written among the specifiers
  std::uint32_t pending_alignment;      // strongest alignas so far; 0: none
  std::uint32_t decl_modifiers;         // a_decl_modifier

  a_decl_storage_class storage_class;
  a_decl_storage_class declared_storage_class;  // as written, before later changes

  a_type *type;                // the specified type, with qualifiers
  a_type *pre_qualifier_type;  // copy for messages about the specifiers
  a_type *declared_type;       // what the declarator made of type
  a_type *auto_type;           // placeholder of auto or __auto_type; null: none
  const char *asm_name;        // asm("name") behind the declarator; null: none
  a_source_position asm_name_pos;

  // Result of initializer(): at most one is set.
  a_dynamic_init *dynamic_init;
  a_constant *constant_value;

  an_end_of_parse_action *end_of_parse_actions;  // latest first
  an_element_position *element_positions;
  void *auto_param_descriptions;  // auto parameters of a generic lambda
  a_decl_parse_state *next_free;
};

a_decl_parse_state *alloc_decl_parse_state();  // cleared, start_pos at the current token
void free_decl_parse_state(a_decl_parse_state *state);
void clear_decl_parse_state(a_decl_parse_state *state);  // for a state on the caller's stack

void add_end_of_parse_action(an_end_of_parse_routine routine, a_decl_parse_state *state, bool keep);
// Calls the actions, latest first; with declarator_done the kept ones stay for the next declarator.
void run_end_of_parse_actions(a_decl_parse_state *state, bool declarator_done);
void discard_end_of_parse_actions(a_decl_parse_state *state);

// What a context admits among its specifiers.
enum a_decl_specifiers_flag : std::uint32_t {
  dsf_storage_class_ok = 1u << 0,
  dsf_type_ok = 1u << 1,
  dsf_member = 1u << 2,
  dsf_parameter = 1u << 3,
  dsf_type_optional = 1u << 4,
  dsf_inline_ok = 1u << 5,
  dsf_type_required = 1u << 6,     // an identifier must name a type
  dsf_definition_first = 1u << 7,  // a tag specifier as the very first token may define
  dsf_template_decl = 1u << 9,
  dsf_qualifiers_only = 1u << 10,  // stop at anything but a qualifier
  dsf_stop_after_type = 1u << 11,  // one type specifier
  dsf_typedef_param_ok = 1u << 12,
  dsf_condition = 1u << 14,
  dsf_explicit_instantiation = 1u << 16,
  dsf_local_extern_only = 1u << 17,
  dsf_set_caller_mark = 1u << 18,
  dsf_no_name = 1u << 19,    // a type name: no declarator with implicit int follows
  dsf_secondary = 1u << 20,  // behind a first declarator
  dsf_for_init = 1u << 21,   // the first clause of a for statement
  dsf_attribute_only_class_tag = 1u << 27,
  dsf_no_misra_basic_type_check = 1u << 28,
  dsf_auto_register_only = 1u << 31,
};

// Reads the specifiers at the current token into state; the type is set in every case (the error
// type after a message). positions may be null.
void decl_specifiers(std::uint32_t flags, a_decl_parse_state *state, a_decl_pos_block *positions);
// The current token is an undeclared name with a specifier behind it.
bool is_unknown_specifier();

// Reads "enum ..." at the current token and gives the type; the error type after a message.
a_type *enum_specifier(a_decl_parse_state *state, std::uint32_t flags);

// Reads "struct ...", "union ..." or "class ..." at the current token.
a_type *class_specifier(a_decl_parse_state *state, std::uint32_t flags);

// Reads typeof ( expression-or-type ).
a_type *scan_typeof_operator(a_decl_parse_state *state);

// Qualifier bits that restrict_pos and friends refer to: is restrict allowed on type? Reports.
bool restrict_qualifier_is_allowed(a_type *type, const a_source_position *position);

// Gives the attributes of a tag specifier to its type.
void attach_tag_attributes(an_attribute *attributes, a_type *type, a_decl_parse_state *state,
                           bool defining);

// A nameless class or enum got its name from a typedef.
void set_name_linkage_for_type(a_type *type);

void decl_spec_one_time_init();
void decl_spec_trans_unit_init();

extern std::uint8_t enum_default_int_kind;  // the widest kind an enum takes without a fixed base

#endif
