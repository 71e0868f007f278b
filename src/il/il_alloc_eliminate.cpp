// Removal of what nothing needs: entities whose mark keep_in_il was not set by the keep walk leave
// the lists of their scopes, function bodies that are not needed are released, and what the
// released ones owned in the file scope is kept by headers of its own.
#include "driver/trans_unit.h"
#include "il/il_alloc.h"
#include "il/il_alloc_internal.h"
#include "semantics/scope_stk.h"

namespace {

bool is_kept(const void *entry) {
  return il_marks(entry).keep_in_il;
}

// Keeps the members that are marked; the tail of the open list, if there is one, follows.
template <class T>
void filter_list(T **head, T **open_tail) {
  T *last = nullptr;
  T **link = head;
  while (*link != nullptr) {
    T *entry = *link;
    if (is_kept(entry)) {
      last = entry;
      link = &entry->next;
    } else {
      *link = entry->next;
      entry->next = nullptr;
    }
  }
  if (open_tail != nullptr) *open_tail = last;
}

void filter_constants(a_constant **head, a_constant **open_tail) {
  a_constant *last = nullptr;
  a_constant **link = head;
  while (*link != nullptr) {
    a_constant *entry = *link;
    if (is_kept(entry)) {
      last = entry;
      link = &entry->next_in_list;
    } else {
      *link = entry->next_in_list;
      entry->next_in_list = nullptr;
    }
  }
  if (open_tail != nullptr) *open_tail = last;
}

template <class T>
void remove_from_list(T *entry, T **head, T **open_tail) {
  T *previous = nullptr;
  T **link = head;
  while (*link != nullptr && *link != entry) {
    previous = *link;
    link = &(*link)->next;
  }
  if (*link == nullptr) return;
  *link = entry->next;
  if (open_tail != nullptr && *open_tail == entry) *open_tail = previous;
  entry->next = nullptr;
}

void eliminate_in_nested_scopes(a_scope *scope) {
  for (a_scope *nested = scope->nested_scopes; nested != nullptr; nested = nested->next)
    eliminate_unneeded_il_entries(nested);
  for (a_namespace *name_space = scope->namespaces; name_space != nullptr;
       name_space = name_space->next) {
    if (!name_space->is_alias && name_space->scope != nullptr)
      eliminate_unneeded_il_entries(name_space->scope);
  }
}

}  // namespace

void remove_from_variables_list(a_variable *variable, a_scope *scope) {
  a_scope_pointers_block *open = open_pointers_of(scope);
  if (variable->storage_class >= sc_auto)
    remove_from_list(variable, &scope->local_variables,
                     open != nullptr ? &open->local_variables_tail : nullptr);
  else
    remove_from_list(variable, &scope->variables,
                     open != nullptr ? &open->variables_tail : nullptr);
}

void remove_from_routines_list(a_routine *routine, a_scope *scope) {
  a_scope_pointers_block *open = open_pointers_of(scope);
  remove_from_list(routine, &scope->routines, open != nullptr ? &open->routines_tail : nullptr);
}

void remove_from_types_list(a_type *type, a_scope *scope) {
  a_scope_pointers_block *open = open_pointers_of(scope);
  remove_from_list(type, &scope->types, open != nullptr ? &open->types_tail : nullptr);
}

// Of the file scope and of namespaces: the bodies of functions are settled as a whole.
void eliminate_unneeded_il_entries(a_scope *scope) {
  if (!okay_to_eliminate_unneeded_il_entries) return;
  a_scope_pointers_block *open = open_pointers_of(scope);
  if (scope->kind == sck_file) eliminate_unneeded_scope_orphaned_list_entries();
  filter_list(&scope->variables, open != nullptr ? &open->variables_tail : nullptr);
  filter_list(&scope->routines, open != nullptr ? &open->routines_tail : nullptr);
  filter_list(&scope->types, open != nullptr ? &open->types_tail : nullptr);
  filter_list(&scope->namespaces, open != nullptr ? &open->namespaces_tail : nullptr);
  filter_list(&scope->templates, open != nullptr ? &open->templates_tail : nullptr);
  filter_constants(&scope->constants, open != nullptr ? &open->constants_tail : nullptr);
  eliminate_in_nested_scopes(scope);
}

void eliminate_bodies_of_unneeded_functions(a_scope *file_scope) {
  for (int number = 1; number <= highest_used_function_def_number; ++number) {
    a_scope *scope = function_def_table[number].scope;
    if (scope == nullptr || function_def_table[number].region == 0) continue;
    a_routine *routine = scope->assoc.routine;
    if (routine == nullptr || routine->keep_definition_in_il) continue;
    if (il_marks(routine).from_secondary_trans_unit !=
        il_marks(file_scope).from_secondary_trans_unit)
      continue;
    if (!routine->owns_memory_region) continue;  // goes with the function around it
    clear_function_body(scope);
  }
}

namespace {

// Bodies of local classes share the region of the function around them.
bool other_body_in_region_is_kept(a_memory_region_number region, const a_scope *scope) {
  for (a_scope *other = il_header.region_scope_table[region]; other != nullptr;
       other = other->next) {
    if (other == scope || other->kind != sck_function || other->assoc.routine == nullptr) continue;
    if (other->assoc.routine->keep_definition_in_il) return true;
  }
  return false;
}

}  // namespace

void clear_function_body(a_scope *scope) {
  a_routine *routine = scope->assoc.routine;
  const a_memory_region_number region = routine->region_number;
  if (region == 0 || other_body_in_region_is_kept(region, scope)) return;
  add_scope_orphaned_il_lists(scope);
  for (a_scope *other = il_header.region_scope_table[region]; other != nullptr;) {
    a_scope *next = other->next;
    if (other->kind == sck_function && other->assoc.routine != nullptr) {
      a_routine *owner = other->assoc.routine;
      function_def_table[owner->function_def_number].scope = nullptr;
      function_def_table[owner->function_def_number].region = 0;
      owner->body_dropped = true;
      owner->region_number = 0;
    }
    other = next;
  }
  il_header.region_scope_table[region] = nullptr;
  free_memory_region(region);
}

// ---- What outlives a function's region ---------------------------------------------------------

namespace {

void orphan_lists_of_scope(a_scope *scope, a_routine *routine) {
  if (scope->lists_orphaned) return;
  scope->lists_orphaned = true;
  if (scope->types != nullptr || scope->variables != nullptr || scope->namespaces != nullptr) {
    auto *header = clear_record(static_cast<a_scope_orphaned_list_header *>(
        alloc_il(sizeof(a_scope_orphaned_list_header))));
    header->routine = routine;
    header->scope_number = scope->scope_number;
    header->types = scope->types;
    header->variables = scope->variables;
    header->namespaces = scope->namespaces;
    if (il_header.last_orphaned_scope_list == nullptr)
      il_header.orphaned_scope_lists = header;
    else
      il_header.last_orphaned_scope_list->next = header;
    il_header.last_orphaned_scope_list = header;
  }
  for (a_scope *nested = scope->nested_scopes; nested != nullptr; nested = nested->next)
    orphan_lists_of_scope(nested, routine);
}

}  // namespace

void add_scope_orphaned_il_lists(a_scope *scope) {
  orphan_lists_of_scope(scope, scope->assoc.routine);
}

void eliminate_unneeded_scope_orphaned_list_entries() {
  a_scope_orphaned_list_header *last = nullptr;
  a_scope_orphaned_list_header **link = &il_header.orphaned_scope_lists;
  while (*link != nullptr) {
    a_scope_orphaned_list_header *header = *link;
    filter_list(&header->types, static_cast<a_type **>(nullptr));
    filter_list(&header->variables, static_cast<a_variable **>(nullptr));
    filter_list(&header->namespaces, static_cast<a_namespace **>(nullptr));
    if (header->types == nullptr && header->variables == nullptr && header->namespaces == nullptr) {
      *link = header->next;
    } else {
      last = header;
      link = &header->next;
    }
  }
  il_header.last_orphaned_scope_list = last;
}
