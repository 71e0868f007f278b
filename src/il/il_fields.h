// The table of fields: for each record of the IL, which of its fields hold IL pointers.
//
// visit_fields(record, visitor) hands every such field to the visitor, by its role:
//
//   entry(field, kind)      an entry that is part of this one, or that it uses
//   list(field, kind)       the head of a list linked through next, of the same role
//   constants(field)        the same for constants, linked through next_in_list
//   owned(field, kind)      a list of a scope: the scope owns it, nobody uses it through the scope
//   owned_constants(field)
//   ref(field, kind)        a way back or across (a parent, an owner): never followed
//   text(field, kind, size) text, with the bytes that it takes
//   hidden(field)           valid only while parsing
//
// The part of a record that its kind decides is visited by that kind. From this table come the
// walkers, the rewriting of pointers, the copier of trees and the verifier. It is long because it is
// a table: one short function for each of the 78 kinds, and nothing else belongs here.
#ifndef IL_IL_FIELDS_H
#define IL_IL_FIELDS_H

#include <cstring>

#include "il/il_alloc.h"

template <class V>
inline void visit_text(const char *&text, an_il_entry_kind kind, V &v) {
  if (text != nullptr) v.text(text, kind, std::strlen(text) + 1);
}

// An entity of any kind.
template <class V>
inline void visit_any(void *&entity, an_il_entry_kind kind, V &v) {
  if (kind != iek_none) v.entry(entity, kind);
}

template <class V>
void visit_head(a_source_correspondence *r, V &v) {
  v.hidden(r->symbol);
  visit_text(r->name, iek_id_name_text, v);
  visit_text(r->unmangled_name, iek_id_name_text, v);
  v.ref(r->parent_scope, iek_scope);
  v.ref(r->enclosing_routine, iek_routine);
  v.entry(r->decl_pos_supplement, iek_decl_position_supplement);
  v.list(r->name_reference, iek_name_reference);
  v.list(r->attributes, iek_attribute);
  v.hidden(r->source_sequence_link);
  v.hidden(r->source_sequence_tail);
}

// ---- Files and positions -----------------------------------------------------------------------

template <class V>
void visit_fields(a_source_file *r, V &v) {
  visit_text(r->file_name, iek_other_text, v);
  visit_text(r->full_name, iek_other_text, v);
  visit_text(r->path_name, iek_other_text, v);
  v.ref(r->real_file, iek_source_file);
  v.list(r->children, iek_source_file);
  v.ref(r->last_child, iek_source_file);
}
template <class V>
void visit_fields(a_seq_number_lookup_entry *r, V &v) {
  v.ref(r->file, iek_source_file);
}
template <class V>
void visit_fields(an_element_position *, V &) {}
template <class V>
void visit_fields(a_decl_position_supplement *, V &) {}

// ---- Constants ---------------------------------------------------------------------------------

template <class V>
void visit_address_target(a_constant *r, V &v) {
  switch (r->address_kind) {
    case abk_routine:
      v.entry(r->address_routine, iek_routine);
      break;
    case abk_variable:
      v.entry(r->address_variable, iek_variable);
      break;
    case abk_constant:
    case abk_temporary_constant:
      v.entry(r->address_constant, iek_constant);
      break;
    case abk_typeinfo:
      v.entry(r->address_type, iek_type);
      break;
    case abk_base:
      v.entry(r->address_base, iek_base_class);
      break;
    case abk_label:
      v.ref(r->address_label, iek_label);
      break;
    default:
      break;
  }
  v.list(r->subobject_path, iek_subobject_path);
}

template <class V>
void visit_template_param_constant(a_constant *r, V &v) {
  switch (r->template_kind) {
    case tpck_expr:
      v.entry(r->param_expr, iek_expr_node);
      break;
    case tpck_unknown_function:
    case tpck_destructor:
      v.entry(r->param_type, iek_type);
      break;
    case tpck_address:
    case tpck_cast:
      v.entry(r->param_constant, iek_constant);
      break;
    case tpck_sizeof:
    case tpck_alignof:
    case tpck_datasizeof:
    case tpck_typeid:
    case tpck_noexcept:
      v.entry(r->param_type, iek_type);
      v.entry(r->param_operand_expr, iek_expr_node);
      break;
    case tpck_template_ref:
      v.entry(r->param_constant, iek_constant);
      v.list(r->param_template_args, iek_template_arg);
      break;
    default:
      break;
  }
}

template <class V>
void visit_constant_value(a_constant *r, V &v) {
  switch (r->kind) {
    case ck_string:
      if (r->string_text != nullptr) v.text(r->string_text, iek_string_text, r->string_length);
      break;
    case ck_complex:
      v.entry(r->complex_value, iek_complex_value);
      break;
    case ck_address:
      visit_address_target(r, v);
      break;
    case ck_ptr_to_member:
      v.entry(r->pm_base_class, iek_base_class);
      v.entry(r->pm_name_reference, iek_name_reference);
      if (r->pm_is_function)
        v.entry(r->pm_routine, iek_routine);
      else
        v.entry(r->pm_field, iek_field);
      break;
    case ck_address_difference:
      v.entry(r->difference_from, iek_constant);
      v.entry(r->difference_subtract, iek_constant);
      break;
    case ck_dynamic_init:
      v.entry(r->dynamic_init, iek_dynamic_init);
      break;
    case ck_aggregate:
      v.constants(r->first_element);
      v.ref(r->last_element, iek_constant);
      break;
    case ck_repeat:
      v.entry(r->repeat_element, iek_constant);
      break;
    case ck_template_param:
      visit_template_param_constant(r, v);
      break;
    case ck_designator:
      if (r->designator_is_field)
        v.entry(r->designator_field, iek_field);
      else if (r->designator_is_name)
        visit_text(r->designator_name, iek_id_name_text, v);
      else
        v.entry(r->designator_index, iek_constant);
      v.entry(r->designator_range_end, iek_constant);
      break;
    default:
      break;
  }
}

template <class V>
void visit_fields(a_constant *r, V &v) {
  visit_head(r, v);
  v.entry(r->type, iek_type);
  v.entry(r->orig_type, iek_type);
  v.entry(r->expr, iek_expr_node);
  visit_constant_value(r, v);
}
template <class V>
void visit_fields(a_complex_value *, V &) {}
template <class V>
void visit_fields(a_subobject_path *r, V &v) {
  if (r->kind == a_subobject_path::spk_field) v.entry(r->field, iek_field);
  if (r->kind == a_subobject_path::spk_base_class) v.entry(r->base_class, iek_base_class);
  v.entry(r->type, iek_type);
}

// ---- Types -------------------------------------------------------------------------------------

template <class V>
void visit_array_type(a_type *r, V &v) {
  v.entry(r->element_type, iek_type);
  if (r->bound_is_constant && !r->bound_is_expr) v.entry(r->bound_constant, iek_constant);
  if (r->bound_is_expr && !r->bound_is_constant) v.entry(r->bound_expr, iek_expr_node);
  v.entry(r->vla_dimension_expr, iek_expr_node);
}

template <class V>
void visit_fields(a_type *r, V &v) {
  visit_head(r, v);
  v.hidden(r->based_types);
  v.entry(r->assoc_variable, iek_variable);
  switch (r->kind) {
    case tk_integer:
      v.entry(r->enum_supplement, iek_enum_supplement);
      break;
    case tk_pointer:
      v.entry(r->pointed_to, iek_type);
      break;
    case tk_routine:
      v.entry(r->return_type, iek_type);
      v.entry(r->routine_supplement, iek_routine_type_supplement);
      break;
    case tk_array:
      visit_array_type(r, v);
      break;
    case tk_class:
    case tk_struct:
    case tk_union:
      v.list(r->fields, iek_field);
      v.entry(r->class_supplement, iek_class_type_supplement);
      break;
    case tk_typeref:
      v.entry(r->referenced_type, iek_type);
      v.entry(r->typeref_supplement, iek_typeref_supplement);
      break;
    case tk_ptr_to_member:
      v.entry(r->member_class, iek_type);
      v.entry(r->member_type, iek_type);
      break;
    case tk_template_param:
      v.entry(r->template_param_supplement, iek_template_param_type_supplement);
      break;
    default:
      break;
  }
}
template <class V>
void visit_fields(a_based_type_list_member *r, V &v) {
  v.ref(r->type, iek_type);
}
template <class V>
void visit_fields(a_param_type *r, V &v) {
  v.entry(r->type, iek_type);
  v.entry(r->declared_type, iek_type);
  visit_text(r->name, iek_id_name_text, v);
  v.entry(r->default_arg_expr, iek_expr_node);
  v.entry(r->default_arg_lifetime, iek_object_lifetime);
  v.list(r->attributes, iek_attribute);
  v.hidden(r->param_template_info);
}
template <class V>
void visit_fields(a_routine_type_supplement *r, V &v) {
  v.list(r->param_types, iek_param_type);
  v.entry(r->special_this_class, iek_type);
  v.entry(r->exception_spec, iek_exception_specification);
  v.entry(r->this_class, iek_type);
  v.owned(r->prototype_scope, iek_scope);
  v.ref(r->owning_routine, iek_routine);
}
template <class V>
void visit_fields(an_exception_specification *r, V &v) {
  if (r->noexcept_arg_is_constant)
    v.entry(r->noexcept_arg, iek_constant);
  else
    v.list(r->first_type, iek_exception_specification_type);
}
template <class V>
void visit_fields(an_exception_specification_type *r, V &v) {
  v.entry(r->type, iek_type);
}
template <class V>
void visit_fields(an_enum_supplement *r, V &v) {
  v.entry(r->underlying_type, iek_type);
  v.constants(r->first_enumerator);
  v.ref(r->last_enumerator, iek_constant);
  v.ref(r->assoc_template, iek_template);
}
template <class V>
void visit_fields(a_typeref_supplement *r, V &v) {
  v.entry(r->typeof_expr, iek_expr_node);
  v.entry(r->typeof_type, iek_type);
  v.list(r->attributes, iek_attribute);
  v.list(r->template_args, iek_template_arg);
  v.ref(r->assoc_template, iek_template);
  v.entry(r->original_type, iek_type);
}
template <class V>
void visit_fields(a_template_param_type_supplement *r, V &v) {
  v.entry(r->proxy_class, iek_type);
  v.entry(r->deduced_type, iek_type);
  v.ref(r->assoc_template, iek_template);
  v.list(r->template_args, iek_template_arg);
}
template <class V>
void visit_fields(a_class_type_supplement *r, V &v) {
  v.list(r->base_classes, iek_base_class);
  v.ref(r->virtual_bases_first, iek_base_class);
  v.ref(r->primary_base, iek_base_class);
  v.owned(r->member_scope, iek_scope);
  v.list(r->friend_classes, iek_class_list_entry);
  v.list(r->friend_routines, iek_routine_list_entry);
  v.list(r->overriding_virtuals, iek_overriding_virtual_function);
  v.list(r->vcall_offsets, iek_vcall_offset_entry);
  v.ref(r->destructor, iek_routine);
  v.ref(r->assoc_operator_new, iek_routine);
  v.ref(r->assoc_operator_delete, iek_routine);
  v.list(r->inline_members, iek_routine_list_entry);
  v.ref(r->assoc_template, iek_template);
  v.list(r->template_args, iek_template_arg);
  v.entry(r->lambda, iek_lambda);
  v.ref(r->vtbl_variable, iek_variable);
  v.ref(r->typeinfo_variable, iek_variable);
  v.ref(r->key_function, iek_routine);
  v.entry(r->subobject_type, iek_type);
  v.ref(r->construction_vtbls, iek_variable);
  v.hidden(r->routine_fixups);
  v.hidden(r->field_initializer_fixups);
}
template <class V>
void visit_fields(a_base_class *r, V &v) {
  v.ref(r->next_virtual, iek_base_class);
  v.ref(r->derived_class, iek_type);
  v.entry(r->base_type, iek_type);
  v.list(r->derivation, iek_base_class_derivation);
  v.ref(r->vtbl_variable, iek_variable);
  v.list(r->attributes, iek_attribute);
}
template <class V>
void visit_fields(a_base_class_derivation *r, V &v) {
  v.list(r->steps, iek_derivation_step);
}
template <class V>
void visit_fields(a_derivation_step *r, V &v) {
  v.ref(r->base, iek_base_class);
}
template <class V>
void visit_fields(a_vcall_offset_entry *r, V &v) {
  v.ref(r->routine, iek_routine);
}
template <class V>
void visit_fields(an_overriding_virtual_function *r, V &v) {
  v.ref(r->overridden_function, iek_routine);
  v.ref(r->overriding_function, iek_routine);
  v.ref(r->base_class, iek_base_class);
  v.ref(r->return_adjustment, iek_base_class);
}
template <class V>
void visit_fields(a_class_list_entry *r, V &v) {
  v.ref(r->type, iek_type);
}
template <class V>
void visit_fields(a_routine_list_entry *r, V &v) {
  v.ref(r->routine, iek_routine);
}

// ---- Entities ----------------------------------------------------------------------------------

template <class I, class V>
void visit_initializer(an_init_kind kind, I &initializer, V &v) {
  if (kind == init_constant) v.entry(initializer.constant, iek_constant);
  if (kind == init_dynamic) v.entry(initializer.dynamic, iek_dynamic_init);
}
template <class V>
void visit_fields(a_variable *r, V &v) {
  visit_head(r, v);
  v.entry(r->type, iek_type);
  v.ref(r->param_type, iek_param_type);
  visit_initializer(r->init_kind, r->initializer, v);
  if (r->init_kind == init_local_static)
    v.entry(r->initializer.local_static, iek_local_static_variable_init);
  visit_text(r->section_name_text, iek_other_text, v);
  visit_text(r->asm_name, iek_other_text, v);
  v.ref(r->instance_of_routine, iek_routine);
  v.list(r->attributes_of_definition, iek_il_entity_list_entry);
  v.entry(r->template_info, iek_variable_template_info);
  v.ref(r->next_in_group, iek_variable);
  visit_text(r->comdat_group_name, iek_other_text, v);
  v.ref(r->shadowed_variable, iek_variable);
  v.entry(r->alias_target, iek_variable);
  v.ref(r->assoc_object_lifetime, iek_object_lifetime);
}
template <class V>
void visit_fields(a_local_static_variable_init *r, V &v) {
  v.ref(r->variable, iek_variable);
  visit_initializer(r->init_kind, r->initializer, v);
}
template <class V>
void visit_fields(a_variable_template_info *r, V &v) {
  v.ref(r->assoc_template, iek_template);
  v.list(r->template_args, iek_template_arg);
  v.ref(r->instantiated_from, iek_variable);
}
template <class V>
void visit_fields(a_field *r, V &v) {
  visit_head(r, v);
  v.entry(r->type, iek_type);
  if (r->has_default_init && !r->default_init_pending) {
    if (r->default_init_is_constant)
      v.entry(r->default_init.constant, iek_constant);
    else
      v.entry(r->default_init.dynamic, iek_dynamic_init);
  }
  v.ref(r->anonymous_union_field, iek_field);
  v.ref(r->default_init_lifetime, iek_object_lifetime);
}
template <class V>
void visit_fields(a_routine *r, V &v) {
  visit_head(r, v);
  v.entry(r->type, iek_type);
  if (r->special_kind == sfk_constructor || r->special_kind == sfk_destructor)
    v.list(r->special_data.alternate_entries, iek_routine_list_entry);
  visit_text(r->asm_name, iek_other_text, v);
  visit_text(r->comdat_group_name, iek_other_text, v);
  v.entry(r->gnu_supplement, iek_gnu_routine_supplement);
  v.list(r->friend_classes, iek_class_list_entry);
  v.ref(r->template_info, iek_template);
  v.list(r->template_args, iek_template_arg);
  v.entry(r->alias_target, iek_routine);
  v.entry(r->cloned_from, iek_routine);
  v.ref(r->primary_entry, iek_routine);
  v.list(r->entry_list, iek_routine_list_entry);
  v.ref(r->overridden, iek_routine);
  v.list(r->ctor_inits, iek_constructor_init);
  v.ref(r->eh_info, iek_eh_info_entry);
  v.ref(r->using_decl, iek_using_decl);
}
template <class V>
void visit_fields(a_gnu_routine_supplement *r, V &v) {
  visit_text(r->section_name, iek_other_text, v);
  visit_text(r->alias_name, iek_other_text, v);
  visit_text(r->error_text, iek_other_text, v);
  visit_text(r->warning_text, iek_other_text, v);
  visit_text(r->target_text, iek_other_text, v);
}
template <class V>
void visit_fields(a_label *r, V &v) {
  visit_head(r, v);
  v.ref(r->statement, iek_statement);
  v.ref(r->lifetime, iek_object_lifetime);
}
template <class V>
void visit_fields(a_namespace *r, V &v) {
  visit_head(r, v);
  if (r->is_alias)
    v.ref(r->alias_target, iek_namespace);
  else
    v.owned(r->scope, iek_scope);
  v.ref(r->inline_using_directive, iek_using_decl);
}
template <class V>
void visit_fields(a_using_decl *r, V &v) {
  v.ref(r->target, r->entry_kind);
  v.ref(r->scope, iek_scope);
  v.list(r->qualifier, iek_name_qualifier);
}
template <class V>
void visit_fields(an_il_entity_list_entry *r, V &v) {
  v.ref(r->entity, r->kind);
}
template <class V>
void visit_fields(a_name_qualifier *r, V &v) {
  v.ref(r->entity, r->kind);
  v.list(r->template_args, iek_template_arg);
}
template <class V>
void visit_fields(a_name_reference *r, V &v) {
  v.list(r->name_qualifier, iek_name_qualifier);
  v.entry(r->destructor_type, iek_type);
  v.list(r->template_args, iek_template_arg);
}
template <class V>
void visit_fields(an_asm_entry *r, V &v) {
  visit_head(r, v);
  v.entry(r->asm_text, iek_constant);
  v.list(r->outputs, iek_asm_operand);
  v.list(r->inputs, iek_asm_operand);
  v.list(r->clobbers, iek_named_register_list);
  v.list(r->labels, iek_label_list);
}
template <class V>
void visit_fields(an_asm_operand *r, V &v) {
  visit_text(r->constraint, iek_other_text, v);
  visit_text(r->symbolic_name, iek_id_name_text, v);
  v.entry(r->expr, iek_expr_node);
}
template <class V>
void visit_fields(a_named_register_list *, V &) {}
template <class V>
void visit_fields(a_label_list *r, V &v) {
  v.ref(r->label, iek_label);
}
template <class V>
void visit_fields(a_macro *r, V &v) {
  visit_head(r, v);
  visit_text(r->text, iek_other_text, v);
}
template <class V>
void visit_fields(a_pragma *r, V &v) {
  v.ref(r->entity, r->entity_kind);
  visit_text(r->text, iek_other_text, v);
}

// ---- Scopes ------------------------------------------------------------------------------------

template <class V>
void visit_scope_assoc(a_scope *r, V &v) {
  switch (r->kind) {
    case sck_class:
    case sck_enum:
    case sck_prototype:
      v.ref(r->assoc.type, iek_type);
      break;
    case sck_namespace:
      v.ref(r->assoc.name_space, iek_namespace);
      break;
    case sck_condition:
      v.ref(r->assoc.statement, iek_statement);
      break;
    case sck_block:
      if (r->is_handler_scope) v.ref(r->assoc.handler, iek_handler);
      break;
    case sck_function:
      v.ref(r->assoc.routine, iek_routine);
      break;
    default:
      break;
  }
}
template <class V>
void visit_fields(a_scope *r, V &v) {
  v.ref(r->parent, iek_scope);
  visit_scope_assoc(r, v);
  v.list(r->parameters, iek_variable);
  v.list(r->ctor_inits, iek_constructor_init);
  v.ref(r->function_lifetime, iek_object_lifetime);
  v.entry(r->this_param, iek_variable);
  v.entry(r->return_var, iek_variable);
  v.entry(r->block, iek_statement);
  v.entry(r->lifetime, iek_object_lifetime);
  v.owned_constants(r->constants);
  v.owned(r->types, iek_type);
  v.owned(r->variables, iek_variable);
  v.owned(r->local_variables, iek_variable);
  v.owned(r->labels, iek_label);
  v.owned(r->routines, iek_routine);
  v.owned(r->asm_entries, iek_asm_entry);
  v.owned(r->nested_scopes, iek_scope);
  v.owned(r->namespaces, iek_namespace);
  v.owned(r->using_decls, iek_using_decl);
  v.owned(r->dynamic_inits, iek_dynamic_init);
  v.owned(r->local_static_inits, iek_local_static_variable_init);
  v.owned(r->vla_dimensions, iek_vla_dimension);
  v.owned(r->local_expr_refs, iek_local_expr_node_ref);
  v.owned(r->local_scope_refs, iek_local_scope_ref);
  v.owned(r->pragmas, iek_pragma);
  v.owned(r->templates, iek_template);
  v.owned(r->source_sequence, iek_il_entity_list_entry);
}
template <class V>
void visit_fields(a_local_expr_node_ref *r, V &v) {
  v.entry(r->expr, iek_expr_node);
  v.ref(r->entry, r->kind);
}
template <class V>
void visit_fields(a_local_scope_ref *r, V &v) {
  v.ref(r->entity, r->kind);
  v.ref(r->scope, iek_scope);
}
template <class V>
void visit_fields(a_scope_orphaned_list_header *r, V &v) {
  v.ref(r->routine, iek_routine);
  v.owned(r->types, iek_type);
  v.owned(r->variables, iek_variable);
  v.owned(r->namespaces, iek_namespace);
}
template <class V>
void visit_fields(a_vla_dimension *r, V &v) {
  v.entry(r->type, iek_type);
  v.entry(r->bound_expr, iek_expr_node);
  v.entry(r->variable, iek_variable);
}

// ---- Expressions -------------------------------------------------------------------------------

template <class V>
void visit_dependent_operation(an_expr_node *r, V &v) {
  switch (r->dependent_kind) {
    case dok_cast:
    case dok_type_trait:
      v.entry(r->dependent_type, iek_type);
      v.list(r->dependent_second, iek_expr_node);
      break;
    case dok_name:
    case dok_pack_size:
      v.entry(r->dependent_name, iek_name_reference);
      break;
    case dok_none:
      break;
    default:
      v.list(r->dependent_operands, iek_expr_node);
      v.list(r->dependent_second, iek_expr_node);
      break;
  }
}

template <class V>
void visit_sizeof_operand(an_expr_node *r, V &v) {
  if (r->sizeof_is_template_form)
    v.ref(r->sizeof_template, iek_template);
  else if (r->sizeof_is_type)
    v.entry(r->sizeof_type, iek_type);
  else
    v.entry(r->sizeof_expr, iek_expr_node);
}

template <class V>
void visit_fields(an_expr_node *r, V &v) {
  v.entry(r->type, iek_type);
  v.entry(r->orig_lvalue_type, iek_type);
  v.hidden(r->rescan_info);
  switch (r->kind) {
    case enk_operation:
    case enk_template_dependent:
    case enk_init_list:
    case enk_unresolved_call:
      v.list(r->operands, iek_expr_node);
      break;
    case enk_constant:
      v.entry(r->constant, iek_constant);
      v.entry(r->name_reference, iek_name_reference);
      break;
    case enk_variable:
      v.entry(r->variable, iek_variable);
      v.entry(r->name_reference, iek_name_reference);
      break;
    case enk_field:
      v.ref(r->field, iek_field);
      v.entry(r->name_reference, iek_name_reference);
      break;
    case enk_routine:
      v.entry(r->routine, iek_routine);
      v.entry(r->name_reference, iek_name_reference);
      break;
    case enk_type_operand:
      v.entry(r->operand_type, iek_type);
      v.entry(r->name_reference, iek_name_reference);
      break;
    case enk_temp_init:
      v.entry(r->init, iek_dynamic_init);
      v.entry(r->init_type, iek_type);
      break;
    case enk_reusable_value:
      v.entry(r->init, iek_dynamic_init);
      break;
    case enk_lambda:
      v.entry(r->init, iek_dynamic_init);
      v.entry(r->lambda, iek_lambda);
      break;
    case enk_new_delete:
      v.entry(r->new_delete, iek_new_delete_supplement);
      break;
    case enk_throw:
      v.entry(r->throw_info, iek_throw_supplement);
      break;
    case enk_condition:
      v.entry(r->condition, iek_condition_supplement);
      break;
    case enk_object_lifetime:
      v.entry(r->lifetime_expr, iek_expr_node);
      v.ref(r->lifetime, iek_object_lifetime);
      break;
    case enk_typeid:
      v.entry(r->typeid_type, iek_type);
      v.entry(r->typeid_expr, iek_expr_node);
      break;
    case enk_sizeof:
    case enk_alignof:
    case enk_noexcept:
      visit_sizeof_operand(r, v);
      break;
    case enk_statement_expr:
      v.entry(r->statement, iek_statement);
      break;
    case enk_dependent_operation:
      visit_dependent_operation(r, v);
      break;
    case enk_vla_dealloc:
      v.entry(r->vla_variable, iek_variable);
      break;
    case enk_fold:
      v.list(r->fold_operands, iek_expr_node);
      v.entry(r->fold_init, iek_expr_node);
      break;
    case enk_lowered_eh:
      v.entry(r->eh_variable, iek_variable);
      v.entry(r->eh_expr, iek_expr_node);
      break;
    case enk_error:
    case enk_frame_address:
    case enk_wrapper_call:
    case enk_param_ref:
    case enk_last:
      break;
  }
}
template <class V>
void visit_fields(a_new_delete_supplement *r, V &v) {
  v.entry(r->type, iek_type);
  v.entry(r->routine, iek_routine);
  v.entry(r->delete_routine, iek_routine);
  v.list(r->placement_args, iek_expr_node);
  v.entry(r->number_of_elements, iek_expr_node);
  v.entry(r->operand, iek_expr_node);
  v.entry(r->init, iek_dynamic_init);
  v.entry(r->name_reference, iek_name_reference);
}
template <class V>
void visit_fields(a_throw_supplement *r, V &v) {
  v.entry(r->type, iek_type);
  v.entry(r->init, iek_dynamic_init);
  v.entry(r->destructor, iek_routine);
}
template <class V>
void visit_fields(a_condition_supplement *r, V &v) {
  v.entry(r->variable, iek_variable);
  v.entry(r->init, iek_dynamic_init);
  v.entry(r->expr, iek_expr_node);
  v.entry(r->scope, iek_scope);
}
template <class V>
void visit_fields(a_routine_selection *r, V &v) {
  v.ref(r->routine, iek_routine);
}

template <class V>
void visit_fields(a_dynamic_init *r, V &v) {
  v.entry(r->variable, iek_variable);
  v.entry(r->temp_variable, iek_variable);
  v.entry(r->destructor, iek_routine);
  v.ref(r->next_destruction, iek_dynamic_init);
  v.ref(r->prev_destruction, iek_dynamic_init);
  v.ref(r->object_lifetime, iek_object_lifetime);
  v.entry(r->lifetime, iek_object_lifetime);
  v.entry(r->type, iek_type);
  switch (r->kind) {
    case dik_constant:
    case dik_aggregate:
    case dik_nonconstant_aggr:
      v.entry(r->constant, iek_constant);
      break;
    case dik_expression:
    case dik_call:
      v.entry(r->expr, iek_expr_node);
      break;
    case dik_constructor:
      v.entry(r->constructor, iek_routine);
      v.list(r->arguments, iek_expr_node);
      break;
    default:
      break;
  }
  v.ref(r->ctor_init, iek_constructor_init);
  v.ref(r->lambda, iek_lambda);
  v.entry(r->array_bound, iek_expr_node);
  v.ref(r->eh_entry, iek_eh_info_entry);
}
template <class V>
void visit_fields(an_object_lifetime *r, V &v) {
  v.ref(r->parent, iek_object_lifetime);
  v.ref(r->children, iek_object_lifetime);
  v.ref(r->next_sibling, iek_object_lifetime);
  v.hidden(r->free_link);
  v.ref(r->destructions, iek_dynamic_init);
  v.ref(r->assoc_entry, r->assoc_kind);
}
template <class V>
void visit_fields(a_constructor_init *r, V &v) {
  if (r->kind == cik_field)
    v.entry(r->field, iek_field);
  else
    v.entry(r->base_class, iek_base_class);
  v.entry(r->init, iek_dynamic_init);
}
template <class V>
void visit_fields(an_eh_info_entry *r, V &v) {
  v.hidden(r->context);
  v.hidden(r->entity);
  if (r->kind == ehk_try)
    v.list(r->catch_list, iek_catch_entry);
  else
    v.entry(r->cleanup_call, iek_expr_node);
}
template <class V>
void visit_fields(a_catch_entry *r, V &v) {
  v.entry(r->typeinfo_variable, iek_variable);
  v.ref(r->label, iek_label);
}
template <class V>
void visit_fields(a_call_expr_entry *r, V &v) {
  v.ref(r->expr, iek_expr_node);
}

// ---- Statements --------------------------------------------------------------------------------

template <class V>
void visit_fields(a_statement *r, V &v) {
  v.ref(r->parent, iek_statement);
  v.list(r->attributes, iek_attribute);
  v.entry(r->expr, iek_expr_node);
  v.hidden(r->lowering_link);
  switch (r->kind) {
    case stmk_if:
      v.list(r->then_stmt, iek_statement);
      v.list(r->else_stmt, iek_statement);
      break;
    case stmk_for:
      v.entry(r->for_supplement, iek_for_loop_supplement);
      v.list(r->body, iek_statement);
      break;
    case stmk_range_for:
      v.entry(r->range_for_supplement, iek_range_for_supplement);
      v.list(r->body, iek_statement);
      break;
    case stmk_switch:
      v.entry(r->switch_supplement, iek_switch_supplement);
      v.list(r->body, iek_statement);
      break;
    case stmk_case:
      v.ref(r->switch_case_entry, iek_switch_case_entry);
      v.list(r->body, iek_statement);
      break;
    case stmk_while:
    case stmk_do:
      v.list(r->body, iek_statement);
      break;
    case stmk_goto:
    case stmk_label:
      v.entry(r->label, iek_label);
      v.ref(r->lifetime, iek_object_lifetime);
      break;
    case stmk_return:
      v.entry(r->return_init, iek_dynamic_init);
      break;
    case stmk_block:
      v.entry(r->block_supplement, iek_block_supplement);
      v.list(r->first_statement, iek_statement);
      break;
    case stmk_init:
    case stmk_stmt_expr_result:
      v.entry(r->init, iek_dynamic_init);
      break;
    case stmk_asm:
      v.entry(r->asm_entry, iek_asm_entry);
      break;
    case stmk_try:
      v.entry(r->try_supplement, iek_try_supplement);
      break;
    case stmk_decl:
      v.list(r->entities, iek_il_entity_list_entry);
      break;
    case stmk_set_vla_size:
      v.entry(r->vla_dimension, iek_vla_dimension);
      break;
    case stmk_vla_decl:
      if (r->vla_is_typedef)
        v.entry(r->vla_type, iek_type);
      else
        v.entry(r->vla_variable, iek_variable);
      break;
    case stmk_expr:
    case stmk_label_value:
    case stmk_null:
    case stmk_last:
      break;
  }
}
template <class V>
void visit_fields(a_block_supplement *r, V &v) {
  v.entry(r->scope, iek_scope);
  v.ref(r->lifetime, iek_object_lifetime);
}
template <class V>
void visit_fields(a_for_loop_supplement *r, V &v) {
  v.list(r->init_statement, iek_statement);
  v.entry(r->increment_expr, iek_expr_node);
  v.entry(r->scope, iek_scope);
  v.ref(r->condition_statement, iek_statement);
  v.ref(r->body_statement, iek_statement);
}
template <class V>
void visit_fields(a_range_for_supplement *r, V &v) {
  v.entry(r->range_var, iek_variable);
  v.entry(r->begin_var, iek_variable);
  v.entry(r->end_var, iek_variable);
  v.entry(r->loop_var, iek_variable);
  v.entry(r->scope, iek_scope);
  v.entry(r->init_scope, iek_scope);
  v.entry(r->body_scope, iek_scope);
  v.entry(r->iterator_expr, iek_expr_node);
}
template <class V>
void visit_fields(a_switch_supplement *r, V &v) {
  v.list(r->first_case, iek_switch_case_entry);
  v.ref(r->last_case, iek_switch_case_entry);
  v.ref(r->default_case, iek_switch_case_entry);
  v.ref(r->sorted_cases, iek_switch_case_entry);
}
template <class V>
void visit_fields(a_switch_case_entry *r, V &v) {
  v.ref(r->next_sorted, iek_switch_case_entry);
  v.ref(r->statement, iek_statement);
  v.entry(r->case_value, iek_constant);
  v.entry(r->range_end_value, iek_constant);
}
template <class V>
void visit_fields(a_try_supplement *r, V &v) {
  v.list(r->statement, iek_statement);
  v.list(r->handlers, iek_handler);
  v.ref(r->lifetime, iek_object_lifetime);
  v.ref(r->eh_entry, iek_eh_info_entry);
}
template <class V>
void visit_fields(a_handler *r, V &v) {
  v.entry(r->exception_variable, iek_variable);
  v.list(r->statement, iek_statement);
  v.entry(r->init, iek_dynamic_init);
  v.entry(r->parameter, iek_variable);
  v.entry(r->scope, iek_scope);
}

// ---- Templates, lambdas, attributes ------------------------------------------------------------

template <class V>
void visit_fields(a_template *r, V &v) {
  visit_head(r, v);
  v.list(r->declaration, iek_template_decl);
  v.ref(r->canonical_template, iek_template);
  v.ref(r->prototype_template, iek_template);
  visit_text(r->text, iek_other_text, v);
}
template <class V>
void visit_fields(a_template_decl *r, V &v) {
  v.hidden(r->decl_info);
  v.list(r->params, iek_template_param);
  v.ref(r->il_template, iek_template);
}
inline an_il_entry_kind entry_kind_of_template_arg(a_template_arg_kind kind) {
  switch (kind) {
    case tak_type:
      return iek_type;
    case tak_nontype:
      return iek_constant;
    case tak_template:
      return iek_template;
    default:
      return iek_none;
  }
}
template <class V>
void visit_fields(a_template_param *r, V &v) {
  visit_head(r, v);
  v.hidden(r->token_cache);
  v.hidden(r->default_cache);
  visit_any(r->payload.entry, entry_kind_of_template_arg(r->kind), v);
  visit_any(r->default_value.entry, entry_kind_of_template_arg(r->kind), v);
}
template <class V>
void visit_fields(a_template_arg *r, V &v) {
  if (r->is_operand)
    v.hidden(r->payload.operand);
  else
    visit_any(r->payload.entry, entry_kind_of_template_arg(r->kind), v);
}
template <class V>
void visit_fields(a_lambda *r, V &v) {
  v.entry(r->closure_type, iek_type);
  v.list(r->capture_list, iek_lambda_capture);
  v.ref(r->body_routine, iek_routine);
}
template <class V>
void visit_fields(a_lambda_capture *r, V &v) {
  v.hidden(r->variable_symbol);
  v.entry(r->variable, iek_variable);
  v.ref(r->field, iek_field);
  v.entry(r->init, iek_dynamic_init);
}
template <class V>
void visit_fields(an_attribute *r, V &v) {
  visit_text(r->name, iek_other_text, v);
  visit_text(r->namespace_name, iek_other_text, v);
  v.list(r->args, iek_attribute_arg);
  v.entry(r->group, iek_attribute_group);
  v.hidden(r->parse_state);
  v.hidden(r->pack_expansion);
}
template <class V>
void visit_fields(an_attribute_arg *r, V &v) {
  v.hidden(r->pack_expansion);
  switch (r->kind) {
    case aak_constant:
      v.entry(r->constant, iek_constant);
      break;
    case aak_type:
      v.entry(r->type, iek_type);
      break;
    case aak_expression:
      v.entry(r->expr, iek_expr_node);
      break;
    default:
      visit_text(r->identifier, iek_other_text, v);
      break;
  }
}
template <class V>
void visit_fields(an_attribute_group *, V &) {}

// ---- By kind -----------------------------------------------------------------------------------

template <class V>
inline void visit_fields(char *, V &) {}  // text has no fields

template <class V>
void visit_fields_of_entry(void *entry, an_il_entry_kind kind, V &v) {
  switch (kind) {
#define IL_ENTRY_KIND(number, name, record)        \
  case iek_##name:                                 \
    visit_fields(static_cast<record *>(entry), v); \
    break;
#include "il/il_kinds.def"
    default:
      unexpected_state("no such kind of IL entry");
  }
}

// The link to the following member of a list of that kind.
template <class T>
inline T *&link_of(T *entry) {
  return entry->next;
}
inline a_constant *&link_of(a_constant *entry) {
  return entry->next_in_list;
}

#endif
