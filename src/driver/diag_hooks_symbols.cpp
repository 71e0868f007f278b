// How a message writes a symbol: the word for its kind, and its name in quotes, in C++ with its
// qualifiers, with parameters, type and template arguments as the message's text asks for them.
// Also which open scopes stand for an instantiation that a message has to tell.
#include "DIAG/error.h"
#include "driver/diag_hooks_internal.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il_entity.h"
#include "il/il_template.h"
#include "il/il_to_str.h"
#include "il/il_type.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"

namespace {

a_text_buffer *form_target;  // where the IL printer's pieces go

void add_piece(const char *text, an_il_to_str_output_control_block *) {
  f_add_string_to_text_buffer(form_target, text);
}

void init_block(an_il_to_str_output_control_block *block, a_text_buffer *out) {
  clear_il_to_str_output_control_block(block);
  block->output_text = add_piece;
  form_target = out;
}

// What a projection stands for.
const a_symbol *projected_symbol(const a_symbol *symbol) {
  while (symbol->kind == syk_projection || symbol->kind == syk_namespace_projection)
    symbol = symbol->variant.target;
  return symbol;
}

bool is_template_template_param(const a_symbol *symbol) {
  return symbol->is_template_param_symbol;
}

// The word for a symbol's kind, as number of a text.
int word_for_symbol(const a_symbol *symbol) {
  switch (symbol->kind) {
    case syk_keyword:
      return ect_1735;
    case syk_macro:
      return ect_1736;
    case syk_constant:
      return symbol->is_template_param_symbol ? ect_1750 : ect_1751;
    case syk_type:
      return symbol->is_template_param_symbol ? ect_1738 : ect_1739;
    case syk_class:
      return in_cplusplus() ? ect_1741 : ect_1742;
    case syk_union:
      return ect_1740;
    case syk_enum:
      return ect_1746;
    case syk_parameter: {
      const a_variable *parameter = symbol->variant.variable;
      return parameter != nullptr && parameter->is_handler_parameter ? ect_1748 : ect_1747;
    }
    case syk_field:
      return in_cplusplus() ? ect_1754 : ect_1755;
    case syk_static_data_member:
      return ect_1754;
    case syk_member_function:
    case syk_routine:
    case syk_extern_routine:
      return ect_1752;
    case syk_overloaded_function:
      return ect_1753;
    case syk_label:
      return ect_1737;
    case syk_class_template:
      return is_template_template_param(symbol) ? ect_1743 : ect_1745;
    case syk_function_template:
      return ect_1759;
    case syk_variable_template:
      return ect_3110;
    case syk_namespace:
      return ect_1756;
    default:
      return ect_1749;
  }
}

const a_routine *routine_of(const a_symbol *symbol) {
  switch (symbol->kind) {
    case syk_routine:
    case syk_member_function:
    case syk_extern_routine:
      return symbol->variant.routine;
    default:
      return nullptr;
  }
}

a_type *type_shown_for_symbol(const a_symbol *symbol) {
  switch (symbol->kind) {
    case syk_variable:
    case syk_parameter:
    case syk_static_data_member:
    case syk_extern_variable:
      return symbol->variant.variable->type;
    case syk_field:
      return symbol->variant.field->type;
    default:
      return routine_of(symbol) != nullptr ? routine_of(symbol)->type : nullptr;
  }
}

// In C and for what has no entity the name as it was written; else with qualifiers and arguments.
void form_name_of_symbol(const a_symbol *symbol, an_il_to_str_output_control_block *block) {
  an_il_entry_kind kind;
  const char *entry = nullptr;
  if (in_cplusplus() && symbol->kind != syk_macro && symbol->kind != syk_keyword)
    entry = il_entry_for_symbol_null_okay(const_cast<a_symbol *>(symbol), &kind);
  if (entry != nullptr && il_entry_kind_has_source_corresp(kind))
    form_name(reinterpret_cast<const a_source_correspondence *>(entry), kind, block);
  else
    block->output_text(symbol->header->name, block);
}

// ---- Template instances ------------------------------------------------------------------------

struct an_instance {
  const a_template *from;
  a_template_arg *args;  // null: no instance
};

an_instance instance_of_class(const a_type *type) {
  if (type == nullptr || !is_class_kind(type->kind) || !type->class_flags.is_template_instance)
    return {};
  return {type->class_supplement->assoc_template, type->class_supplement->template_args};
}

// A member function of an instantiated class has the arguments of the class.
an_instance instance_of(const a_symbol *symbol) {
  if (const a_routine *routine = routine_of(symbol)) {
    if (!routine->is_template_instance) return {};
    if (routine->template_args != nullptr) return {routine->template_info, routine->template_args};
    return symbol->is_class_member ? instance_of_class(symbol->parent.class_type) : an_instance{};
  }
  if (symbol->kind != syk_class && symbol->kind != syk_union) return {};
  return instance_of_class(symbol->variant.type);
}

// " [with T=int, U=char]"
void form_parameter_values(const an_instance &instance, an_il_to_str_output_control_block *block) {
  if (instance.from == nullptr || instance.from->declaration == nullptr) return;
  const a_template_param *param = instance.from->declaration->params;
  a_template_arg *arg = instance.args;
  const char *separator = " [with ";
  for (; param != nullptr && arg != nullptr; param = param->next) {
    block->output_text(separator, block);
    separator = ", ";
    block->output_text(param->name != nullptr ? param->name : "<unnamed>", block);
    block->output_text("=", block);
    if (!param->is_pack) {
      form_a_template_arg(arg, block);
      arg = arg->next;
      continue;
    }
    const char *element_separator = "<";
    for (; arg != nullptr && arg->is_pack_element; arg = arg->next) {
      if (arg->payload.entry == nullptr) continue;  // stands in front of the elements
      block->output_text(element_separator, block);
      element_separator = ", ";
      form_a_template_arg(arg, block);
    }
    block->output_text(*element_separator == '<' ? "<>" : ">", block);
  }
  if (*separator == ',') block->output_text("]", block);
}

void form_quoted_name(const a_symbol *symbol, const a_symbol_form &form,
                      const an_instance &instance, an_il_to_str_output_control_block *block) {
  const a_routine *routine = routine_of(symbol);
  a_type *type = form.with_type ? type_shown_for_symbol(symbol) : nullptr;
  if (type != nullptr) form_type_first_part(type, false, true, 0, 0, block);
  form_name_of_symbol(symbol, block);
  if (type != nullptr) {
    form_type_second_part(type, false, true, block);
  } else if (routine != nullptr && routine->type != nullptr &&
             (form.full_signature || form.with_parameters || instance.args != nullptr)) {
    form_function_declarator(routine->type, block);
  }
  if (routine != nullptr && distinct_template_signatures) form_parameter_values(instance, block);
}

}  // namespace

void form_type_for_message(a_type *type, a_text_buffer *out) {
  an_il_to_str_output_control_block block;
  init_block(&block, out);
  form_type(type, &block);
}

void form_symbol_for_message(a_symbol *written, const a_symbol_form *form, a_text_buffer *out) {
  const a_symbol *symbol = projected_symbol(written);
  if (!form->omit_kind) {
    f_add_string_to_text_buffer(out, error_text(word_for_symbol(symbol)));
    add_char_to_text_buffer(out, ' ');
  }
  const an_instance instance = instance_of(symbol);
  an_il_to_str_output_control_block block;
  init_block(&block, out);
  add_char_to_text_buffer(out, '"');
  form_quoted_name(symbol, *form, instance, &block);
  add_char_to_text_buffer(out, '"');
  if (!form->with_template_args || instance.args == nullptr) return;
  add_char_to_text_buffer(out, ' ');
  f_add_string_to_text_buffer(out,
                              error_text(instance.args->next == nullptr ? ect_1760 : ect_1761));
  add_char_to_text_buffer(out, ' ');
  form_template_args(instance.args, &block);
}

// ---- Open instantiations -----------------------------------------------------------------------

static an_instantiation_context_kind context_of_routine(const a_routine *routine) {
  if (routine->is_template_instance && !routine->is_prototype_instantiation) {
    return routine->template_args == nullptr ? ick_member_instantiation : ick_instantiation;
  }
  if (!routine->is_compiler_generated) return ick_none;
  return routine->is_defaulted ? ick_implicit_definition : ick_implicit_generation;
}

an_instantiation_context_kind instantiation_context_of(int depth, a_symbol **symbol,
                                                       const a_source_position **position) {
  const a_scope_stack_entry &entry = scope_stack[depth];
  *symbol = nullptr;
  *position = &entry.needed_position;
  an_instantiation_context_kind kind = ick_none;
  if (entry.kind == sck_function && entry.assoc_routine != nullptr) {
    kind = context_of_routine(entry.assoc_routine);
    *symbol = entry.assoc_routine->symbol;
  } else if (entry.kind == sck_class && entry.scope_flags.is_class_instantiation) {
    kind = ick_instantiation;
    *symbol = entry.assoc_type->symbol;
  }
  return *symbol != nullptr ? kind : ick_none;
}

bool template_scope_of_messages(std::int64_t *scope_id) {
  const a_scope_stack_entry &top = top_scope();
  *scope_id = top.scope_number;
  return depth_template_declaration_scope != -1 ||
         (top.assoc_routine != nullptr && top.assoc_routine->is_prototype_instantiation) ||
         (top.kind == sck_class && top.assoc_type != nullptr &&
          top.assoc_type->class_flags.is_prototype_instantiation);
}
