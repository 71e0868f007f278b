// Text of names: the qualifiers of namespaces and classes, the name itself, template arguments.
#include <cstdio>

#include "il/il.h"
#include "il/il_to_str.h"
#include "il/il_to_str_internal.h"
#include "semantics/types.h"

using a_block = an_il_to_str_output_control_block;

void put_unsigned(std::uint64_t value, an_il_to_str_output_control_block *block) {
  char text[24];
  std::snprintf(text, sizeof text, "%llu", static_cast<unsigned long long>(value));
  put_literal_text(text, block);
}

namespace {

bool is_lambda_closure(const a_source_correspondence *entity, an_il_entry_kind kind) {
  if (kind != iek_type) return false;
  const a_type *type = static_cast<const a_type *>(entity);
  return is_class_kind(type->kind) && type->class_flags.is_lambda_closure;
}

// An anonymous class adds no qualifier of its own.
bool is_anonymous_class(const a_source_correspondence *entity) {
  const a_type *type = static_cast<const a_type *>(entity);
  return is_class_kind(type->kind) && type->class_flags.is_anonymous;
}

void form_qualifier_of_scope(a_scope *scope, a_block *block) {
  if (scope == nullptr) return;
  switch (scope->kind) {
    case sck_class:
      form_class_or_namespace_qualifier(true, scope->assoc.type, block);
      break;
    case sck_enum:
      if (scope->assoc.type->is_scoped_enum)
        form_class_or_namespace_qualifier(true, scope->assoc.type, block);
      break;
    case sck_namespace:
      form_class_or_namespace_qualifier(false, scope->assoc.name_space, block);
      break;
    default:
      break;
  }
}

}  // namespace

void form_class_or_namespace_qualifier(bool is_class, void *parent,
                                       an_il_to_str_output_control_block *block) {
  if (is_class) {
    a_type *type = static_cast<a_type *>(parent);
    if (block->form_class_qualifier_override != nullptr) {
      block->form_class_qualifier_override(type, block);
      return;
    }
    if (is_anonymous_class(type)) {
      form_qualifier_of_scope(get_parent_scope_of(type), block);
      return;
    }
    form_name(type, iek_type, block);
  } else {
    a_namespace *name_space = static_cast<a_namespace *>(parent);
    if (block->form_namespace_qualifier_override != nullptr) {
      block->form_namespace_qualifier_override(name_space, block);
      return;
    }
    form_name(name_space, iek_namespace, block);
  }
  put_text("::", block);
}

void form_name(const a_source_correspondence *entity, an_il_entry_kind kind,
               an_il_to_str_output_control_block *block) {
  if (block->form_name_override != nullptr) {
    block->form_name_override(entity, kind, block);
    return;
  }
  if (is_cplusplus_il() && !is_lambda_closure(entity, kind))
    form_qualifier_of_scope(get_parent_scope_of(entity), block);
  form_unqualified_name(entity, kind, block);
}

namespace {

void form_lambda_name(const a_source_correspondence *entity, a_block *block) {
  put_text("lambda []", block);
  if (is_null_position(entity->decl_position)) return;
  const char *name, *full_name;
  a_line_number line;
  bool at_end;
  conv_seq_to_file_and_line(entity->decl_position.seq, &name, &full_name, &line, &at_end);
  put_text(" type at line ", block);
  put_unsigned(line, block);
  put_text(", col. ", block);
  put_unsigned(entity->decl_position.column, block);
}

void form_conversion_function_name(const a_routine *routine, a_block *block) {
  put_text("operator ", block);
  const bool saved = block->in_operator_name;
  block->in_operator_name = true;
  if (routine->type != nullptr && routine->type->kind == tk_routine)
    form_type(routine->type->return_type, block);
  else
    put_text("<null-type>", block);
  block->in_operator_name = saved;
}

a_template_arg *template_args_of_type(const a_type *type) {
  return is_class_kind(type->kind) ? type->class_supplement->template_args : nullptr;
}

}  // namespace

void form_unqualified_name(const a_source_correspondence *entity, an_il_entry_kind kind,
                           an_il_to_str_output_control_block *block) {
  if (block->form_name_override != nullptr) {
    block->form_name_override(entity, kind, block);
    return;
  }
  if (kind == iek_routine &&
      static_cast<const a_routine *>(entity)->special_kind == sfk_conversion) {
    form_conversion_function_name(static_cast<const a_routine *>(entity), block);
    return;
  }
  const char *name = entity->unmangled_name != nullptr ? entity->unmangled_name : entity->name;
  if (name != nullptr && *name != '\0')
    put_text(name, block);
  else if (is_lambda_closure(entity, kind))
    form_lambda_name(entity, block);
  else
    put_text("<unnamed>", block);
  if (kind != iek_type || block->no_template_args || !is_cplusplus_il()) return;
  a_template_arg *args = template_args_of_type(static_cast<const a_type *>(entity));
  if (args != nullptr) form_template_args(args, block);
}

// ---- Template arguments ------------------------------------------------------------------------

void form_template_args(a_template_arg *args, an_il_to_str_output_control_block *block) {
  const bool saved = block->in_template_arg;
  block->in_template_arg = false;
  put_text(block->c_source_output ? "< " : "<", block);
  bool any = false;
  for (a_template_arg *arg = args; arg != nullptr; arg = arg->next) {
    if (arg->payload.entry == nullptr && arg->is_pack_element) continue;
    if (any) put_text(", ", block);
    any = true;
    form_a_template_arg(arg, block);
  }
  put_text(block->c_source_output ? " >" : ">", block);
  block->in_template_arg = saved;
}

void form_a_template_arg(a_template_arg *arg, an_il_to_str_output_control_block *block) {
  switch (arg->kind) {
    case tak_type:
      form_type(arg->payload.type, block);
      break;
    case tak_nontype:
      if (arg->is_operand || arg->payload.constant == nullptr)
        put_text("<expression>", block);
      else
        form_constant(arg->payload.constant, false, block);
      break;
    case tak_template:
      form_name(arg->payload.il_template, iek_template, block);
      break;
    default:
      put_text("<error>", block);
      break;
  }
  if (arg->pack_expansion) put_text("...", block);
}
