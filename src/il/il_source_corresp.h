// The common head of every named entity of the intermediate language.
#ifndef IL_IL_SOURCE_CORRESP_H
#define IL_IL_SOURCE_CORRESP_H

#include <cstdint>

#include "il/il_fwd.h"
#include "il/il_kinds.h"
#include "il/src_seq.h"

// Constants, types, variables, fields, routines, labels, namespaces, asm entries, templates, macros
// and template parameters begin with it; the link `next` to the following entity of the same kind
// stands in the record itself.
struct a_source_correspondence {
  a_symbol *symbol;            // null: none declares it
  const char *name;            // lowering replaces it by the external name
  const char *unmangled_name;  // as written, where it differs
  a_trans_unit_corresp *trans_unit_corresp;
  a_scope *parent_scope;         // null while has_local_scope_ref holds
  a_routine *enclosing_routine;  // of a local entity
  a_source_position decl_position;
  a_decl_position_supplement *decl_pos_supplement;
  a_name_reference *name_reference;  // forms of the name as written
  bool name_linkage_set : 1;
  bool referenced : 1;
  bool is_from_declaration : 1;  // starts set
  bool needed : 1;
  bool is_implicitly_declared : 1;
  bool marked_as_used : 1;  // an attribute says that it is used
  bool has_associated_pragma : 1;
  bool is_local_to_routine : 1;  // belongs inside a routine although the parent is a file-level
                                 // scope
  bool has_local_scope_ref : 1;
  bool is_class_member : 1;
  bool has_unmangled_name : 1;  // name is an external name already
  bool externalized : 1;        // an internal name was made external for several units
  bool marked_as_unused : 1;    // an attribute says that it may stay unused
  bool is_deprecated : 1;
  bool definition_needed : 1;
  bool in_unnamed_namespace : 1;
  std::uint8_t access : 2;        // an_access_specifier
  std::uint8_t name_linkage : 2;  // a_name_linkage_kind
  bool copied_from_secondary_trans_unit : 1;
  bool declared_in_system_header : 1;
  std::int32_t lowered_number;  // -1: none
  an_attribute *attributes;
  an_il_entity_list_entry *source_sequence_link;
  an_il_entity_list_entry *source_sequence_tail;
};

// Null for a kind that has no such head.
a_source_correspondence *source_corresp_for_il_entry(void *entry, an_il_entry_kind kind);
bool il_entry_kind_has_source_corresp(an_il_entry_kind kind);

#endif
