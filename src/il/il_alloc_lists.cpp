// The lists by which scopes own entities, the parents of entities, and the orphans that no scope
// owns.
//
// An entity of the file-scope region that is declared in a function may not point to the function's
// scope: its parent_scope is null, and a local reference in the function's region holds the pair.
#include "driver/trans_unit.h"
#include "il/il_alloc.h"
#include "il/il_alloc_internal.h"
#include "semantics/scope_stk.h"

namespace {

// The list's members are linked through next.
template <class T>
void append_to_list(T *entry, T **head, T **tail) {
  entry->next = nullptr;
  if (*tail == nullptr)
    *head = entry;
  else
    (*tail)->next = entry;
  *tail = entry;
}

a_scope_stack_entry &stack_entry_with_scope(int depth) {
  a_scope_stack_entry &entry = scope_stack[depth];
  if (entry.il_scope == nullptr) ensure_il_scope_exists(&entry);
  check_invariant(entry.il_scope != nullptr);
  return entry;
}

// The scope of the body that the scope belongs to; null: none.
a_scope *enclosing_function_scope(a_scope *scope) {
  while (scope != nullptr && scope->kind != sck_function)
    scope = scope->parent;
  return scope;
}

a_scope *scope_for_local_refs(a_scope *scope) {
  a_scope *function_scope = enclosing_function_scope(scope);
  return function_scope != nullptr ? function_scope : innermost_function_scope;
}

}  // namespace

// ---- Parents -----------------------------------------------------------------------------------

void set_parent_scope(a_source_correspondence *entity, an_il_entry_kind kind, a_scope *scope) {
  entity->parent_scope = scope;
  entity->has_local_scope_ref = false;
  if (scope == nullptr || in_file_scope_region(scope)) return;
  a_scope *function_scope = scope_for_local_refs(scope);
  if (function_scope != nullptr) entity->enclosing_routine = function_scope->assoc.routine;
  if (!in_file_scope_region(entity) || function_scope == nullptr) return;
  a_memory_region_number saved = curr_il_region_number;
  curr_il_region_number = function_scope->assoc.routine->region_number;
  a_local_scope_ref *ref = alloc_local_scope_ref();
  curr_il_region_number = saved;
  ref->entity = entity;
  ref->kind = kind;
  ref->scope = scope;
  ref->next = function_scope->local_scope_refs;
  function_scope->local_scope_refs = ref;
  entity->parent_scope = nullptr;
  entity->has_local_scope_ref = true;
}

a_scope *f_get_parent_scope_of(const a_source_correspondence *entity) {
  if (!entity->has_local_scope_ref) return entity->parent_scope;
  if (entity->enclosing_routine == nullptr) return nullptr;
  a_scope *function_scope = scope_for_routine(entity->enclosing_routine);
  if (function_scope == nullptr) return nullptr;
  for (a_local_scope_ref *ref = function_scope->local_scope_refs; ref != nullptr; ref = ref->next) {
    if (ref->entity == entity) return ref->scope;
  }
  return nullptr;
}

void clear_parent(a_source_correspondence *entity, an_il_entry_kind) {
  if (entity->has_local_scope_ref) {
    a_scope *function_scope = entity->enclosing_routine != nullptr
                                  ? scope_for_routine(entity->enclosing_routine)
                                  : nullptr;
    if (function_scope != nullptr) {
      a_local_scope_ref **link = &function_scope->local_scope_refs;
      while (*link != nullptr && (*link)->entity != entity)
        link = &(*link)->next;
      if (*link != nullptr) *link = (*link)->next;
    }
    entity->has_local_scope_ref = false;
  }
  entity->parent_scope = il_header.primary_scope;
}

a_local_expr_node_ref *make_local_expr_node_ref(an_expr_node *expr, a_local_expr_ref_role role,
                                                void *entry, a_scope *scope) {
  a_scope *function_scope = scope_for_local_refs(scope);
  check_invariant(function_scope != nullptr);
  a_memory_region_number saved = curr_il_region_number;
  curr_il_region_number = function_scope->assoc.routine->region_number;
  a_local_expr_node_ref *ref = alloc_local_expr_node_ref();
  curr_il_region_number = saved;
  ref->expr = expr;
  ref->role = role;
  ref->entry = entry;
  switch (role) {
    case ler_constant_template_operand:
    case ler_constant_template_expr:
      ref->kind = iek_constant;
      break;
    case ler_field_default_init:
      ref->kind = iek_field;
      break;
    default:
      ref->kind = iek_type;
      break;
  }
  ref->next = function_scope->local_expr_refs;
  function_scope->local_expr_refs = ref;
  return ref;
}

an_expr_node *find_local_expr_node_in_scope(const void *entry, a_local_expr_ref_role role,
                                            const a_scope *scope) {
  scope = enclosing_function_scope(const_cast<a_scope *>(scope));
  if (scope == nullptr) return nullptr;
  for (a_local_expr_node_ref *ref = scope->local_expr_refs; ref != nullptr; ref = ref->next) {
    if (ref->entry == entry && ref->role == role) return ref->expr;
  }
  return nullptr;
}

a_scope_pointers_block *open_pointers_of(a_scope *scope) {
  if (scope->stack_depth < 0 || scope->stack_depth > depth_scope_stack) return nullptr;
  return scope_stack[scope->stack_depth].pointers;
}

// ---- The lists of scopes -----------------------------------------------------------------------

void add_to_types_list(a_type *type, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(type, &entry.il_scope->types, &entry.pointers->types_tail);
  type->on_types_list = true;
  set_parent_scope(type, iek_type, entry.il_scope);
}

// Locals of blocks and functions have a list of their own.
void add_to_variables_list(a_variable *variable, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  a_scope *scope = entry.il_scope;
  if (variable->storage_class >= sc_auto)
    append_to_list(variable, &scope->local_variables, &entry.pointers->local_variables_tail);
  else
    append_to_list(variable, &scope->variables, &entry.pointers->variables_tail);
  set_parent_scope(variable, iek_variable, scope);
}

void insert_in_variables_list(a_variable *variable, a_variable *previous, a_scope *scope) {
  bool is_local = variable->storage_class >= sc_auto;
  a_variable *&head = is_local ? scope->local_variables : scope->variables;
  a_variable *&link = previous != nullptr ? previous->next : head;
  variable->next = link;
  link = variable;
  if (a_scope_pointers_block *open = open_pointers_of(scope)) {
    a_variable *&tail = is_local ? open->local_variables_tail : open->variables_tail;
    if (tail == previous) tail = variable;
  }
  set_parent_scope(variable, iek_variable, scope);
}

void add_to_parameters_list(a_variable *variable, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(variable, &entry.il_scope->parameters, &entry.pointers->parameters_tail);
  set_parent_scope(variable, iek_variable, entry.il_scope);
}

void add_to_routines_list(a_routine *routine, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(routine, &entry.il_scope->routines, &entry.pointers->routines_tail);
  set_parent_scope(routine, iek_routine, entry.il_scope);
}

void add_to_constants_list(a_constant *constant, bool at_file_scope) {
  a_scope_stack_entry &entry = stack_entry_with_scope(at_file_scope ? 0 : decl_scope_level);
  a_constant *&tail = entry.pointers->constants_tail;
  constant->next_in_list = nullptr;
  if (tail == nullptr)
    entry.il_scope->constants = constant;
  else
    tail->next_in_list = constant;
  tail = constant;
  set_parent_scope(constant, iek_constant, entry.il_scope);
}

// Labels belong to the whole function.
void add_to_labels_list(a_label *label) {
  check_invariant(depth_innermost_function_scope >= 0);
  a_scope_stack_entry &entry = stack_entry_with_scope(depth_innermost_function_scope);
  append_to_list(label, &entry.il_scope->labels, &entry.pointers->labels_tail);
  set_parent_scope(label, iek_label, entry.il_scope);
}

void add_to_namespaces_list(a_namespace *name_space, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(name_space, &entry.il_scope->namespaces, &entry.pointers->namespaces_tail);
  set_parent_scope(name_space, iek_namespace, entry.il_scope);
}

void add_to_using_decls_list(a_using_decl *using_decl, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(using_decl, &entry.il_scope->using_decls, &entry.pointers->using_decls_tail);
}

void add_to_asm_entries_list(an_asm_entry *asm_entry, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(asm_entry, &entry.il_scope->asm_entries, &entry.pointers->asm_entries_tail);
  set_parent_scope(asm_entry, iek_asm_entry, entry.il_scope);
}

void add_to_templates_list(a_template *il_template, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(il_template, &entry.il_scope->templates, &entry.pointers->templates_tail);
  set_parent_scope(il_template, iek_template, entry.il_scope);
}

void add_to_pragma_list(a_pragma *pragma, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(pragma, &entry.il_scope->pragmas, &entry.pointers->pragmas_tail);
}

void add_to_dynamic_inits_list(a_dynamic_init *init, int depth) {
  a_scope_stack_entry &entry = stack_entry_with_scope(depth);
  append_to_list(init, &entry.il_scope->dynamic_inits, &entry.pointers->dynamic_inits_tail);
}

void add_to_macros_list(a_macro *macro) {
  append_to_list(macro, &il_header.macro_list, &il_header.last_macro);
}

// ---- Orphans -----------------------------------------------------------------------------------

an_orphan_list orphaned_file_scope_il_entries[iek_last];

namespace {

bool scope_owns_named_entry(const a_source_correspondence *corresp) {
  return corresp->name != nullptr || corresp->is_class_member ||
         (corresp->parent_scope != nullptr && corresp->parent_scope->kind == sck_namespace);
}

bool constant_is_orphan(const a_constant *constant) {
  if (constant->kind == ck_template_param) return true;
  if (constant->kind == ck_integer && !constant->shareable) return true;
  return !scope_owns_named_entry(constant);
}

bool type_is_orphan(const a_type *type) {
  switch (type->kind) {
    case tk_template_param:
      return true;
    case tk_class:
    case tk_struct:
    case tk_union:
      return false;
    case tk_integer:
      if (type->is_enum) return false;
      break;
    case tk_routine:
      if (type->return_type != nullptr) return false;
      break;
    default:
      break;
  }
  return !scope_owns_named_entry(type);
}

bool entry_is_orphan(const void *entry, an_il_entry_kind kind) {
  switch (kind) {
    case iek_complex_value:
    case iek_template_arg:
    case iek_name_reference:
    case iek_attribute:
    case iek_base_class:
      return true;
    case iek_constant:
      return constant_is_orphan(static_cast<const a_constant *>(entry));
    case iek_type:
      return type_is_orphan(static_cast<const a_type *>(entry));
    default:
      return false;
  }
}

}  // namespace

void f_possibly_add_orphaned_file_scope_il_entry(void *entry, an_il_entry_kind kind,
                                                 a_translation_unit *) {
  an_il_entry_marks &marks = il_marks(entry);
  if (marks.is_orphan || !marks.in_file_scope_region || !entry_is_orphan(entry, kind)) return;
  an_orphan_list &list = orphaned_file_scope_il_entries[kind];
  marks.is_orphan = true;
  next_orphan_of(entry) = nullptr;
  if (list.last == nullptr)
    list.first = entry;
  else
    next_orphan_of(list.last) = entry;
  list.last = entry;
}
