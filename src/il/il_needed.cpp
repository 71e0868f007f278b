// What the program needs: marks that spread from the roots that the end of the file scope names,
// along every use, into the bodies of the functions that are reached.
//
//     static int a;                         needed: f uses it
//     static int b;                         not needed: g is not
//     static int g(void) { return b; }
//     int f(void) { return a; }             a root
//
// A scope does not use what it owns, so a walk never goes through the lists of a scope. Bodies wait
// on a stack until the walk that reached them ends: a chain of calls does not deepen the recursion.
// The same walk sets the marks by which the removal keeps entries. An entity that was marked before
// it was complete (an incomplete struct, a variable without its initializer) is walked again.
#include "driver/trans_unit.h"
#include "il/il_fields.h"
#include "il/il_walk.h"
#include "il/il_walk_internal.h"
#include "semantics/types.h"

bool end_of_file_scope_needed_flags_phase;

namespace {

// Bodies that are to be walked.
struct a_body_stack {
  a_scope **entries;
  std::size_t allocated;
  std::size_t used;
};
a_body_stack pending_bodies;
bool marking_walk_runs;

void push_body(a_scope *scope) {
  if (pending_bodies.used == pending_bodies.allocated) {
    const std::size_t old_bytes = pending_bodies.allocated * sizeof(a_scope *);
    const std::size_t new_bytes = old_bytes == 0 ? 64 * sizeof(a_scope *) : old_bytes * 2;
    pending_bodies.entries = static_cast<a_scope **>(
        old_bytes == 0 ? alloc_resizable_buffer(new_bytes)
                       : realloc_buffer(pending_bodies.entries, old_bytes, new_bytes));
    pending_bodies.allocated = new_bytes / sizeof(a_scope *);
  }
  pending_bodies.entries[pending_bodies.used++] = scope;
}

void mark_one_needed(void *entry, an_il_entry_kind kind, bool forced);
void mark_one_kept(void *entry, an_il_entry_kind kind);

// Follows uses only.
template <void (*mark)(void *entry, an_il_entry_kind kind)>
struct a_use_visitor {
  template <class T>
  void entry(T *&field, an_il_entry_kind kind) {
    if (field != nullptr) mark(field, kind);
  }
  template <class T>
  void list(T *&head, an_il_entry_kind kind) {
    for (T *entry = head; entry != nullptr; entry = link_of(entry))
      mark(entry, kind);
  }
  void constants(a_constant *&head) { list(head, iek_constant); }
  template <class T>
  void owned(T *&, an_il_entry_kind) {}
  void owned_constants(a_constant *&) {}
  template <class T>
  void ref(T *&, an_il_entry_kind) {}
  void text(const char *&, an_il_entry_kind, std::size_t) {}
  template <class T>
  void hidden(T *&) {}
};

void mark_needed_use(void *entry, an_il_entry_kind kind) {
  mark_one_needed(entry, kind, false);
}

// Nothing will be added to it that it could use.
bool is_complete_entity(const void *entry, an_il_entry_kind kind) {
  switch (kind) {
    case iek_variable:
      return static_cast<const a_variable *>(entry)->init_kind != init_none;
    case iek_type:
      return !static_cast<const a_type *>(entry)->is_incomplete;
    case iek_routine:
      return static_cast<const a_routine *>(entry)->definition_needed_pending;
    default:
      return true;
  }
}

bool body_is_never_emitted(const a_routine *routine) {
  return routine->gnu_inline && routine->declared_storage_class == sc_extern;
}

void need_definition(a_routine *routine, bool forced) {
  if (body_is_never_emitted(routine)) return;
  if (routine->definition_needed_pending && !forced) return;
  a_scope *scope = scope_for_routine(routine);
  if (scope == nullptr) return;  // not defined yet, or dropped
  routine->definition_needed_pending = true;
  routine->definition_needed = true;
  set_routine_keep_definition_in_il(routine);
  push_body(scope);
}

void mark_alternate_entries(a_routine *routine) {
  if (routine->special_kind != sfk_constructor && routine->special_kind != sfk_destructor) return;
  for (a_routine_list_entry *e = routine->special_data.alternate_entries; e != nullptr;
       e = e->next) {
    const std::uint8_t variant = e->routine->ctor_dtor_variant;
    if (variant == cdv_complete || variant == cdv_base_subobject)
      mark_one_needed(e->routine, iek_routine, false);
  }
}

void mark_one_needed(void *entry, an_il_entry_kind kind, bool forced) {
  an_il_entry_marks &marks = il_marks(entry);
  if (marks.walk_number == current_walk_number) return;
  a_source_correspondence *corresp = source_corresp_for_il_entry(entry, kind);
  if (corresp != nullptr) {
    if (corresp->needed && marks.needed_walked && !forced) return;
    corresp->needed = true;
    marks.needed_walked = is_complete_entity(entry, kind);
  }
  marks.walk_number = current_walk_number;
  if (okay_to_eliminate_unneeded_il_entries) marks.keep_in_il = true;
  a_use_visitor<mark_needed_use> visitor;
  visit_fields_of_entry(entry, kind, visitor);
  if (kind != iek_routine) return;
  a_routine *routine = static_cast<a_routine *>(entry);
  mark_alternate_entries(routine);
  need_definition(routine, forced);
}

void walk_pending_bodies() {
  while (pending_bodies.used > 0)
    mark_one_needed(pending_bodies.entries[--pending_bodies.used], iek_scope, true);
}

// Runs `mark`, and all bodies that it reaches. A call out of a running walk only adds to that walk.
template <class F>
void run_marking_walk(F mark) {
  if (marking_walk_runs) {
    mark();
    return;
  }
  marking_walk_runs = true;
  start_new_il_walk();
  mark();
  walk_pending_bodies();
  marking_walk_runs = false;
}

}  // namespace

void mark_as_needed(void *entry, an_il_entry_kind kind) {
  run_marking_walk([=] { mark_one_needed(entry, kind, false); });
}

void remark_as_needed(void *entry, an_il_entry_kind kind) {
  run_marking_walk([=] { mark_one_needed(entry, kind, true); });
}

void mark_as_needed_like(void *entry, an_il_entry_kind kind, const a_source_correspondence *like) {
  if (like->needed) mark_as_needed(entry, kind);
}

void set_routine_definition_needed(a_routine *routine) {
  run_marking_walk([=] { need_definition(routine, false); });
}

void remark_routine_definition_needed(a_routine *routine) {
  run_marking_walk([=] { need_definition(routine, true); });
}

void set_class_definition_needed(a_type *type) {
  if (type->definition_needed) return;
  type->definition_needed = true;
  remark_as_needed(type, iek_type);
  set_class_keep_definition_in_il(type);
}

void set_routine_keep_definition_in_il(a_routine *routine) {
  il_marks(routine).keep_in_il = true;
  routine->keep_definition_in_il = true;
}

void set_class_keep_definition_in_il(a_type *type) {
  il_marks(type).keep_in_il = true;
  if (is_class_kind(type->kind)) type->class_flags.keep_definition_in_il = true;
}

// ---- Kept entries ------------------------------------------------------------------------------

namespace {

template <class T>
void keep_needed_members(T *list, an_il_entry_kind kind) {
  for (T *entry = list; entry != nullptr; entry = link_of(entry)) {
    if (entry->needed) mark_one_kept(entry, kind);
  }
}

void keep_needed_members_of_scope(a_scope *scope) {
  keep_needed_members(scope->constants, iek_constant);
  keep_needed_members(scope->types, iek_type);
  keep_needed_members(scope->variables, iek_variable);
  keep_needed_members(scope->routines, iek_routine);
  keep_needed_members(scope->templates, iek_template);
  for (a_namespace *name_space = scope->namespaces; name_space != nullptr;
       name_space = name_space->next) {
    if (name_space->is_alias || name_space->scope == nullptr) {
      if (name_space->needed) mark_one_kept(name_space, iek_namespace);
      continue;
    }
    mark_one_kept(name_space, iek_namespace);
    keep_needed_members_of_scope(name_space->scope);
  }
}

void keep_needed_orphaned_lists() {
  for (a_scope_orphaned_list_header *header = il_header.orphaned_scope_lists; header != nullptr;
       header = header->next) {
    il_marks(header).keep_in_il = true;
    keep_needed_members(header->types, iek_type);
    keep_needed_members(header->variables, iek_variable);
    keep_needed_members(header->namespaces, iek_namespace);
  }
}

void mark_one_kept(void *entry, an_il_entry_kind kind) {
  an_il_entry_marks &marks = il_marks(entry);
  if (marks.walk_number == current_walk_number) return;
  marks.walk_number = current_walk_number;
  marks.keep_in_il = true;
  marks.keep_definition_pending = false;
  a_use_visitor<mark_one_kept> visitor;
  visit_fields_of_entry(entry, kind, visitor);
}

}  // namespace

void mark_to_keep_in_il(void *entry, an_il_entry_kind kind) {
  const bool is_inner = marking_walk_runs;
  marking_walk_runs = true;
  const std::uint32_t outer_number = current_walk_number;
  start_new_il_walk();
  const a_scope_kind scope_kind =
      kind == iek_scope ? static_cast<a_scope *>(entry)->kind : sck_last;
  if (scope_kind == sck_file || scope_kind == sck_namespace) {
    il_marks(entry).keep_in_il = true;
    keep_needed_members_of_scope(static_cast<a_scope *>(entry));
    keep_needed_orphaned_lists();
    for (a_macro *macro = il_header.macro_list; macro != nullptr; macro = macro->next)
      mark_one_kept(macro, iek_macro);
  } else if (scope_kind != sck_function ||
             static_cast<a_scope *>(entry)->assoc.routine != nullptr) {
    mark_one_kept(entry, kind);
  }
  if (is_inner) current_walk_number = outer_number;
  marking_walk_runs = is_inner;
}

void walk_subtrees_of_local_entities(a_scope *scope) {
  if (scope->kind != sck_function) return;
  for (a_variable *variable = scope->variables; variable != nullptr; variable = variable->next) {
    if (!variable->needed) continue;
    remark_as_needed(variable, iek_variable);
    if (il_marks(variable).keep_definition_pending) mark_to_keep_in_il(variable, iek_variable);
  }
  for (a_type *type = scope->types; type != nullptr; type = type->next) {
    if (type->needed) remark_as_needed(type, iek_type);
  }
}

void process_local_types(a_scope *scope, a_routine *routine,
                         void (*process)(a_type *type, a_routine *routine)) {
  for (a_type *type = scope->types; type != nullptr; type = type->next)
    process(type, routine);
  for (a_scope *nested = scope->nested_scopes; nested != nullptr; nested = nested->next)
    process_local_types(nested, routine, process);
}

void il_needed_init() {
  pending_bodies = {};
  marking_walk_runs = false;
}
