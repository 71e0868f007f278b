// Text of the IL for tests and debugging: entities and statements one to a line, indented; an
// expression in one line in prefix form, (operator type operands). Entities without a name are
// shown as <unnamed>, temporaries by their kind: nothing depends on addresses.
#include "il/il_dump.h"

#include <cstdio>

#include "il/il.h"
#include "il/il_to_str.h"
#include "semantics/types.h"

namespace {

void put(a_text_buffer *out, const char *text) {
  f_add_string_to_text_buffer(out, text);
}

void put_number(a_text_buffer *out, std::int64_t value) {
  char text[24];
  std::snprintf(text, sizeof text, "%lld", static_cast<long long>(value));
  put(out, text);
}

void put_indent(a_text_buffer *out, int indent) {
  for (int i = 0; i < indent; ++i)
    put(out, "  ");
}

void add_piece(const char *text, an_il_to_str_output_control_block *block) {
  put(static_cast<a_text_buffer *>(block->data), text);
}

an_il_to_str_output_control_block block_for(a_text_buffer *out) {
  an_il_to_str_output_control_block block;
  clear_il_to_str_output_control_block(&block);
  block.output_text = add_piece;
  block.data = out;
  return block;
}

void put_name(a_text_buffer *out, const a_source_correspondence *entity) {
  put(out, entity == nullptr ? "<null>" : entity->name != nullptr ? entity->name : "<unnamed>");
}

// int (*x)[3]
void put_declared(a_text_buffer *out, a_type *type, const a_source_correspondence *entity) {
  an_il_to_str_output_control_block block = block_for(out);
  form_type_first_part(type, false, true, tq_none, 0, &block);
  put_name(out, entity);
  form_type_second_part(type, false, true, &block);
}

}  // namespace

void dump_type(a_type *type, a_text_buffer *out) {
  if (type == nullptr) {
    put(out, "<null-type>");
    return;
  }
  an_il_to_str_output_control_block block = block_for(out);
  form_type(type, &block);
}

void dump_constant(const a_constant *constant, a_text_buffer *out) {
  if (constant == nullptr) {
    put(out, "<null>");
    return;
  }
  if (constant->kind == ck_aggregate) {
    put(out, "{");
    for (const a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list) {
      dump_constant(e, out);
      if (e->next_in_list != nullptr) put(out, ", ");
    }
    put(out, "}");
    return;
  }
  if (constant->kind == ck_dynamic_init) {
    dump_dynamic_init(constant->dynamic_init, out);
    return;
  }
  an_il_to_str_output_control_block block = block_for(out);
  form_constant(constant, false, &block);
}

void dump_dynamic_init(const a_dynamic_init *init, a_text_buffer *out) {
  if (init == nullptr) {
    put(out, "<null>");
    return;
  }
  switch (init->kind) {
    case dik_constant:
    case dik_aggregate:
    case dik_nonconstant_aggr:
      dump_constant(init->constant, out);
      break;
    case dik_expression:
    case dik_call:
      dump_expr(init->expr, out);
      break;
    case dik_constructor:
      put(out, "(construct ");
      put_name(out, init->constructor);
      for (const an_expr_node *arg = init->arguments; arg != nullptr; arg = arg->next) {
        put(out, " ");
        dump_expr(arg, out);
      }
      put(out, ")");
      break;
    default:
      put(out, dynamic_init_kind_names[init->kind]);
      break;
  }
}

// ---- Expressions -------------------------------------------------------------------------------

namespace {

void dump_operands(const an_expr_node *list, a_text_buffer *out) {
  for (; list != nullptr; list = list->next) {
    put(out, " ");
    dump_expr(list, out);
  }
}

void dump_operation(const an_expr_node *expr, a_text_buffer *out) {
  put(out, expr_operator_names[expr->op]);
  if (expr->is_lvalue) put(out, " lvalue");
  put(out, " ");
  dump_type(expr->type, out);
  dump_operands(expr->operands, out);
}

void dump_sizeof(const an_expr_node *expr, a_text_buffer *out) {
  put(out, " ");
  if (expr->sizeof_is_template_form)
    put_name(out, reinterpret_cast<const a_source_correspondence *>(expr->sizeof_template));
  else if (expr->sizeof_is_type)
    dump_type(expr->sizeof_type, out);
  else
    dump_expr(expr->sizeof_expr, out);
}

void dump_expr_content(const an_expr_node *expr, a_text_buffer *out) {
  switch (expr->kind) {
    case enk_variable:
      put(out, " ");
      put_name(out, expr->variable);
      break;
    case enk_routine:
      put(out, " ");
      put_name(out, expr->routine);
      break;
    case enk_field:
      put(out, " ");
      put_name(out, expr->field);
      break;
    case enk_constant:
      put(out, " ");
      dump_constant(expr->constant, out);
      break;
    case enk_temp_init:
    case enk_reusable_value:
      put(out, " ");
      dump_type(expr->type, out);
      put(out, " ");
      dump_dynamic_init(expr->init, out);
      break;
    case enk_object_lifetime:
      put(out, " ");
      dump_expr(expr->lifetime_expr, out);
      break;
    case enk_sizeof:
    case enk_alignof:
    case enk_noexcept:
      dump_sizeof(expr, out);
      break;
    case enk_type_operand:
      put(out, " ");
      dump_type(expr->operand_type, out);
      break;
    case enk_statement_expr:
      put(out, " {\n");
      for (const a_statement *s = expr->statement; s != nullptr; s = s->next)
        dump_statement(s, 1, out);
      put(out, "}");
      break;
    case enk_vla_dealloc:
      put(out, " ");
      put_name(out, expr->vla_variable);
      break;
    case enk_template_dependent:
    case enk_init_list:
    case enk_unresolved_call:
      dump_operands(expr->operands, out);
      break;
    default:
      break;
  }
}

}  // namespace

void dump_expr(const an_expr_node *expr, a_text_buffer *out) {
  if (expr == nullptr) {
    put(out, "<null>");
    return;
  }
  put(out, "(");
  if (expr->kind == enk_operation) {
    dump_operation(expr, out);
  } else {
    put(out, expr_node_kind_names[expr->kind]);
    if (expr->is_lvalue) put(out, " lvalue");
    dump_expr_content(expr, out);
  }
  put(out, ")");
}

// ---- Statements --------------------------------------------------------------------------------

namespace {

void dump_statement_list(const a_statement *list, int indent, a_text_buffer *out) {
  for (; list != nullptr; list = list->next)
    dump_statement(list, indent, out);
}

void dump_if(const a_statement *s, int indent, a_text_buffer *out) {
  dump_statement_list(s->then_stmt, indent + 1, out);
  if (s->else_stmt == nullptr) return;
  put_indent(out, indent);
  put(out, "else\n");
  dump_statement_list(s->else_stmt, indent + 1, out);
}

void dump_case_value(const a_statement *s, a_text_buffer *out) {
  const a_switch_case_entry *entry = s->switch_case_entry;
  if (entry == nullptr || entry->is_default) {
    put(out, " default");
    return;
  }
  put(out, " ");
  dump_constant(entry->case_value, out);
  if (entry->range_end_value == nullptr) return;
  put(out, " ... ");
  dump_constant(entry->range_end_value, out);
}

// What stands on the line of the statement, behind its kind.
void dump_statement_head(const a_statement *s, a_text_buffer *out) {
  if (s->expr != nullptr) {
    put(out, " ");
    dump_expr(s->expr, out);
  }
  switch (s->kind) {
    case stmk_goto:
    case stmk_label:
      put(out, " ");
      put_name(out, s->label);
      break;
    case stmk_return:
      if (s->return_init == nullptr) break;
      put(out, " ");
      dump_dynamic_init(s->return_init, out);
      break;
    case stmk_init:
    case stmk_stmt_expr_result:
      put(out, " ");
      if (s->init != nullptr && s->init->variable != nullptr) {
        put_name(out, s->init->variable);
        put(out, " = ");
      }
      dump_dynamic_init(s->init, out);
      break;
    case stmk_case:
      dump_case_value(s, out);
      break;
    case stmk_decl:
      for (const an_il_entity_list_entry *e = s->entities; e != nullptr; e = e->next) {
        put(out, " ");
        if (il_entry_kind_has_source_corresp(e->kind))
          put_name(out, static_cast<const a_source_correspondence *>(e->entity));
      }
      break;
    case stmk_asm:
      put(out, " ");
      dump_constant(s->asm_entry->asm_text, out);
      break;
    default:
      break;
  }
  put(out, "\n");
}

}  // namespace

void dump_statement(const a_statement *s, int indent, a_text_buffer *out) {
  put_indent(out, indent);
  put(out, statement_kind_names[s->kind]);
  dump_statement_head(s, out);
  switch (s->kind) {
    case stmk_if:
      dump_if(s, indent, out);
      break;
    case stmk_block:
      if (s->block_supplement->scope != nullptr)
        dump_scope(s->block_supplement->scope, indent + 1, out);
      dump_statement_list(s->first_statement, indent + 1, out);
      break;
    case stmk_for:
      dump_statement_list(s->for_supplement->init_statement, indent + 1, out);
      if (s->for_supplement->increment_expr != nullptr) {
        put_indent(out, indent + 1);
        put(out, "step ");
        dump_expr(s->for_supplement->increment_expr, out);
        put(out, "\n");
      }
      dump_statement_list(s->body, indent + 1, out);
      break;
    case stmk_while:
    case stmk_do:
    case stmk_range_for:
    case stmk_switch:
    case stmk_case:
      dump_statement_list(s->body, indent + 1, out);
      break;
    case stmk_try:
      dump_statement_list(s->try_supplement->statement, indent + 1, out);
      break;
    default:
      break;
  }
}

// ---- Scopes ------------------------------------------------------------------------------------

namespace {

void put_needed_mark(const a_source_correspondence *entity, a_text_buffer *out) {
  if (!entity->needed) put(out, " (not needed)");
}

void dump_class(const a_type *type, int indent, a_text_buffer *out) {
  put(out, type->kind == tk_class ? "class " : type->kind == tk_struct ? "struct " : "union ");
  put_name(out, type);
  if (type->is_incomplete) {
    put(out, " incomplete\n");
    return;
  }
  put(out, " size ");
  put_number(out, static_cast<std::int64_t>(type->size));
  put(out, " alignment ");
  put_number(out, type->alignment);
  put(out, "\n");
  for (const a_field *field = type->fields; field != nullptr; field = field->next) {
    put_indent(out, indent + 1);
    put_declared(out, field->type, field);
    put(out, " at ");
    put_number(out, static_cast<std::int64_t>(field->offset));
    if (field->is_bit_field) {
      put(out, " bit ");
      put_number(out, field->bit_offset);
      put(out, " width ");
      put_number(out, field->bit_size);
    }
    put(out, "\n");
  }
}

void dump_enum(const a_type *type, int indent, a_text_buffer *out) {
  put(out, "enum ");
  put_name(out, type);
  put(out, " : ");
  put(out, int_kind_name(type->int_kind));
  put(out, "\n");
  for (const a_constant *e = type->enum_supplement->first_enumerator; e != nullptr;
       e = e->next_in_list) {
    put_indent(out, indent + 1);
    put_name(out, e);
    put(out, " = ");
    put_number(out, static_cast<std::int64_t>(e->integer_value));
    put(out, "\n");
  }
}

void dump_types(const a_type *list, int indent, a_text_buffer *out) {
  for (const a_type *type = list; type != nullptr; type = type->next) {
    put_indent(out, indent);
    if (is_class_kind(type->kind)) {
      dump_class(type, indent, out);
    } else if (type->kind == tk_integer && type->is_enum) {
      dump_enum(type, indent, out);
    } else if (type->kind == tk_typeref) {
      put(out, "typedef ");
      put_declared(out, type->referenced_type, type);
      put(out, "\n");
    } else {
      put(out, type_kind_names[type->kind]);
      put(out, "\n");
    }
  }
}

void dump_variables(const char *word, const a_variable *list, int indent, a_text_buffer *out) {
  for (const a_variable *variable = list; variable != nullptr; variable = variable->next) {
    put_indent(out, indent);
    put(out, word);
    put(out, " ");
    if (*storage_class_names[variable->storage_class] != '\0') {
      put(out, storage_class_names[variable->storage_class]);
      put(out, " ");
    }
    put_declared(out, variable->type, variable);
    if (variable->init_kind == init_constant) {
      put(out, " = ");
      dump_constant(variable->initializer.constant, out);
    } else if (variable->init_kind == init_dynamic) {
      put(out, " = ");
      dump_dynamic_init(variable->initializer.dynamic, out);
    } else if (variable->init_kind == init_zero) {
      put(out, " = zero");
    }
    if (variable->storage_class < sc_auto) put_needed_mark(variable, out);
    put(out, "\n");
  }
}

void dump_routines(const a_routine *list, int indent, a_text_buffer *out) {
  for (const a_routine *routine = list; routine != nullptr; routine = routine->next) {
    put_indent(out, indent);
    put(out, "routine ");
    if (*storage_class_names[routine->storage_class] != '\0') {
      put(out, storage_class_names[routine->storage_class]);
      put(out, " ");
    }
    if (routine->is_inline) put(out, "inline ");
    put_declared(out, routine->type, routine);
    put_needed_mark(routine, out);
    put(out, "\n");
    const a_scope *scope = scope_for_routine(routine);
    if (scope != nullptr) dump_scope(scope, indent + 1, out);
  }
}

}  // namespace

void dump_scope(const a_scope *scope, int indent, a_text_buffer *out) {
  dump_types(scope->types, indent, out);
  if (scope->kind == sck_function) dump_variables("parameter", scope->parameters, indent, out);
  dump_variables("variable", scope->variables, indent, out);
  dump_variables("local", scope->local_variables, indent, out);
  dump_routines(scope->routines, indent, out);
  if (scope->kind == sck_function && scope->block != nullptr)
    dump_statement(scope->block, indent, out);
}

void dump_il(a_text_buffer *out) {
  if (il_header.primary_scope != nullptr) dump_scope(il_header.primary_scope, 0, out);
}
