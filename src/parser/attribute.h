// Attributes: [[...]], __attribute__((...)), __declspec(...) and alignas.
//
// Attributes are scanned into lists before the declared entity is known; the lists are attached to
// the entity or type later, where each attribute is checked against the places where it may stand
// and takes effect. One table (attribute.def) tells how the arguments of an attribute are read, in
// which dialects it exists, and to what it applies.
//
// A bad attribute keeps its place in the list with kind 0. The records lie in the file-scope
// region.
#ifndef PARSER_ATTRIBUTE_H
#define PARSER_ATTRIBUTE_H

#include <cstdint>

#include "il/il_fwd.h"
#include "il/il_kinds.h"
#include "il/src_seq.h"

struct a_decl_parse_state;

enum an_attribute_kind : std::uint8_t {
  atk_none = 0,  // ignored or in error
  atk_empty = 1,
  atk_using = 2,  // holds the namespace of "using ns :"
#define ATTRIBUTE_KIND(number, name, applicability, apply) atk_##name = number,
#include "parser/attribute.def"
  atk_last
};
static_assert(atk_last == 81);

// ---- Scanning ----------------------------------------------------------------------------------

// All attribute specifiers at the current token; null: there are none.
an_attribute *scan_attributes(an_attribute_location_tag location);
an_attribute *scan_gnu_attribute_groups(an_attribute_location_tag location);  // GNU ones alone
void skip_over_attributes();
void unscan_attributes(an_attribute *list);  // the next scan_attributes gives them again
// Reports attributes where nothing can take them, and drops them.
void disallow_attributes(an_attribute *list);

// Where the last group scanned ended.
extern a_source_position end_position_of_attributes;
extern std::uint32_t last_token_number_of_attributes;

// ---- Attaching ---------------------------------------------------------------------------------

// Links the list at the end of the entity's, checks and applies each. The entity is that of the
// declaration (a_variable, a_routine, a_type, a_field, a_param_type, a_label, a_constant,
// a_statement, a_namespace), by kind.
void attach_attributes(an_attribute *list, char *entity, an_il_entry_kind kind);
// Applies the list to a type, which may be replaced: shared types are never changed.
void attach_type_attributes(a_type **type, an_attribute *list, a_decl_parse_state *state);
void transform_type_with_gnu_attributes(a_type **type, an_attribute *list,
                                        a_decl_parse_state *state);
a_type *make_typeref_with_attributes(a_type *type, an_attribute *list);

// ---- Lists -------------------------------------------------------------------------------------

an_attribute **f_last_attribute_link(an_attribute **list);               // the null link at the end
an_attribute **get_attribute_link(char *entity, an_il_entry_kind kind);  // head; null: none is kept
an_attribute *copy_of_attributes_list(const an_attribute *list);
an_attribute *composite_attributes(const an_attribute *a, const an_attribute *b);
bool equivalent_attributes(const an_attribute *a, const an_attribute *b);
void mark_primary_decl_attributes(an_attribute *list);  // they stand on the definition
an_attribute *get_param_variable_attr_copies(const a_param_type *param);
an_attribute *find_attribute(an_attribute *list, an_attribute_kind kind);  // null: not there

// ---- Checks and effects that others need -------------------------------------------------------

void report_bad_attribute_target(std::uint8_t severity, an_attribute *attribute);
bool packed_attribute_allowed_on_type(const a_type *type);
// Reports what keeps a complete union from being transparent; false then.
bool check_transparent_union(a_type *type, const a_source_position *position);
void copy_gnu_type_properties(a_type *target, const a_type *source);
bool gnu_attribute_is_supported(const char *name);  // __has_attribute
// The answer to __has_cpp_attribute as a number's text: the month of the standard that has the
// attribute, 1 for one of a vendor, 0 for one not known here. `scope` null: none.
const char *cpp_attribute_version(const char *scope, const char *name);

// ---- Aliases and external names ----------------------------------------------------------------

void add_alias_fixup(a_symbol *symbol, const char *name, an_attribute *attribute,
                     const a_source_position *position);
void process_alias_fixup_list();  // at the end of the unit
// The entity has an asm name, by which an alias can name it.
void record_asm_name_for_lookup(a_symbol *symbol);
// #pragma redefine_extname old new
void redefine_extname_pragma(a_pending_pragma *pragma);

// ---- Phases ------------------------------------------------------------------------------------

void attribute_one_time_init();
void attribute_init();
void attribute_trans_unit_init();

#endif
