// From symbols to the entities of the IL and back.
#include "driver/switches.h"
#include "il/il_alloc.h"
#include "il/il_entity.h"
#include "il/il_kinds.h"
#include "il/il_type.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"

namespace {

template <class T>
char *entry_and_kind(T *entry, an_il_entry_kind entry_kind, an_il_entry_kind *kind) {
  if (kind != nullptr) *kind = entry == nullptr ? iek_none : entry_kind;
  return reinterpret_cast<char *>(entry);
}

}  // namespace

char *il_entry_for_symbol_null_okay(a_symbol *symbol, an_il_entry_kind *kind) {
  symbol = fundamental_symbol_of(symbol);
  switch (symbol->kind) {
    case syk_constant:
      return entry_and_kind(symbol->variant.constant, iek_constant, kind);
    case syk_type:
    case syk_class:
    case syk_union:
    case syk_enum:
      return entry_and_kind(symbol->variant.type, iek_type, kind);
    case syk_variable:
    case syk_static_data_member:
    case syk_parameter:
    case syk_extern_variable:
      return entry_and_kind(symbol->variant.variable, iek_variable, kind);
    case syk_field:
      return entry_and_kind(symbol->variant.field, iek_field, kind);
    case syk_member_function:
    case syk_routine:
    case syk_extern_routine:
      return entry_and_kind(symbol->variant.routine, iek_routine, kind);
    case syk_label:
      return entry_and_kind(symbol->variant.label, iek_label, kind);
    case syk_namespace:
      return entry_and_kind(symbol->variant.namespace_ptr, iek_namespace, kind);
    case syk_keyword:
    case syk_macro:
    case syk_undefined:
    case syk_projection:
    case syk_overloaded_function:
    case syk_class_template:
    case syk_function_template:
    case syk_variable_template:
    case syk_namespace_projection:
    case syk_last:
      break;
  }
  if (kind != nullptr) *kind = iek_none;
  return nullptr;
}

char *il_entry_for_symbol(a_symbol *symbol, an_il_entry_kind *kind) {
  char *entry = il_entry_for_symbol_null_okay(symbol, kind);
  check_invariant(entry != nullptr);
  return entry;
}

a_source_correspondence *source_corresp_entry_for_symbol(a_symbol *symbol) {
  return reinterpret_cast<a_source_correspondence *>(
      il_entry_for_symbol_null_okay(symbol, nullptr));
}

a_type *type_of_symbol(const a_symbol *symbol) {
  switch (symbol->kind) {
    case syk_constant:
      return symbol->variant.constant == nullptr ? nullptr : symbol->variant.constant->type;
    case syk_type:
    case syk_class:
    case syk_union:
    case syk_enum:
      return symbol->variant.type;
    case syk_variable:
    case syk_static_data_member:
    case syk_parameter:
      return symbol->variant.variable == nullptr ? nullptr : symbol->variant.variable->type;
    case syk_extern_variable:
    case syk_extern_routine:
      return symbol->extra.composite_type;
    case syk_field:
      return symbol->variant.field == nullptr ? nullptr : symbol->variant.field->type;
    case syk_member_function:
    case syk_routine:
      return symbol->variant.routine == nullptr ? nullptr : symbol->variant.routine->type;
    default:
      return nullptr;
  }
}

void set_type_of_symbol(a_symbol *symbol, a_type *type) {
  switch (symbol->kind) {
    case syk_type:
    case syk_class:
    case syk_union:
    case syk_enum:
      symbol->variant.type = type;
      break;
    case syk_extern_variable:
    case syk_extern_routine:
      symbol->extra.composite_type = type;
      break;
    case syk_variable:
    case syk_static_data_member:
    case syk_parameter:
      symbol->variant.variable->type = type;
      break;
    case syk_member_function:
    case syk_routine:
      symbol->variant.routine->type = type;
      break;
    case syk_field:
      symbol->variant.field->type = type;
      break;
    default:
      unexpected_state("a symbol of this kind has no type");
  }
}

void set_source_corresp_name(a_source_correspondence *entity, a_symbol *symbol) {
  bool unnamed =
      symbol->header == unnamed_symbol_header() || symbol->header == error_symbol_header();
  entity->name = unnamed ? nullptr : symbol->header->name;
}

void set_class_membership(a_symbol *symbol, a_source_correspondence *entity, a_type *class_type) {
  if (symbol != nullptr) {
    symbol->is_class_member = class_type != nullptr;
    symbol->parent.class_type = class_type;
  }
  if (entity != nullptr) entity->is_class_member = class_type != nullptr;
}

void set_namespace_membership(a_symbol *symbol, a_source_correspondence *entity,
                              a_namespace *namespace_ptr) {
  if (symbol != nullptr) {
    symbol->is_class_member = false;
    symbol->parent.namespace_ptr = namespace_ptr;
  }
  if (entity != nullptr) entity->is_class_member = false;
}

void set_source_corresp(a_source_correspondence *entity, a_symbol *symbol) {
  entity->symbol = symbol;
  entity->decl_position = symbol->decl_position;
  set_source_corresp_name(entity, symbol);
  entity->is_class_member = symbol->is_class_member;
}

void set_source_corresp_with_scope_depth(a_source_correspondence *entity, a_symbol *symbol,
                                         int depth) {
  set_source_corresp(entity, symbol);
  if (depth >= 0 && depth_innermost_function_scope >= 0 && depth >= depth_innermost_function_scope)
    entity->is_local_to_routine = true;
}

bool is_local_symbol(const a_symbol *symbol) {
  if (symbol->kind == syk_label) return true;
  a_source_correspondence *entity = source_corresp_entry_for_symbol(const_cast<a_symbol *>(symbol));
  if (entity == nullptr) {
    bool in_function = false;
    scope_depth_of_symbol(symbol, &in_function);
    return in_function;
  }
  return entity->is_local_to_routine || entity->enclosing_routine != nullptr;
}

bool is_block_extern_symbol(const a_symbol *symbol) {
  return symbol->block_extern != nullptr || symbol->kind == syk_extern_variable ||
         symbol->kind == syk_extern_routine;
}
