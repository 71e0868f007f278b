// Making symbols and entering them into scopes.
//
// A declaration that failed still has a symbol, so that the code behind it has something to work
// with; it is only kept out of sight.
#include <cstring>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il_alloc.h"
#include "il/il_entity.h"
#include "il/il_kinds.h"
#include "il/il_type.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/sys_predef.h"

namespace {

a_class_symbol_supplement *alloc_class_symbol_supplement() {
  auto *supplement = static_cast<a_class_symbol_supplement *>(
      alloc_in_region(permanent_region, sizeof(a_class_symbol_supplement)));
  *supplement = {};
  supplement->pointers_block = static_cast<a_scope_pointers_block *>(
      alloc_in_region(permanent_region, sizeof(a_scope_pointers_block)));
  clear_scope_pointers_block(supplement->pointers_block);
  supplement->scope_number = no_scope_number;
  return supplement;
}

// Members of C structs have a name space for each struct: only the struct's own list leads to them.
bool is_reached_through_class_only(const a_symbol *symbol) {
  return !in_cplusplus() && name_space_for_symbol_kind[symbol->kind] == ns_members;
}

// In C++ a declaration right in the body of a statement may not repeat a name that the statement's
// condition or first clause declares: 707, 782.
void check_redeclaration_of_controlling_name(a_symbol *symbol, int depth) {
  if (!in_cplusplus() || depth < 1) return;
  a_scope_stack_entry &outer = scope_stack[depth - 1];
  bool in_condition = outer.kind == sck_condition;
  bool in_for_init =
      outer.scope_flags.is_for_init_scope && !(gpp_mode || use_nonstandard_for_init_scope);
  if (!in_condition && !in_for_init) return;
  for (a_symbol *old = symbol->header->active_symbols; old != nullptr; old = old->next_active) {
    if (old == symbol || old->scope_number != outer.scope_number) continue;
    if (name_space_for_symbol_kind[old->kind] != ns_ordinary) continue;
    pos_st_error(in_condition ? ec_redeclaration_of_condition_decl_name
                              : ec_redeclaration_of_for_init_decl_name,
                 &symbol->decl_position, symbol->header->name);
    return;
  }
}

}  // namespace

a_symbol *alloc_symbol(a_symbol_kind kind, a_symbol_header *header,
                       const a_source_position *position) {
  auto *symbol = static_cast<a_symbol *>(alloc_in_region(permanent_region, sizeof(a_symbol)));
  std::memset(static_cast<void *>(symbol), 0, sizeof *symbol);
  symbol->header = header;
  symbol->scope_number = no_scope_number;
  symbol->decl_seq = decl_seq_counter++;
  symbol->decl_position = *position;
  set_symbol_kind(symbol, kind);
  return symbol;
}

void set_symbol_kind(a_symbol *symbol, a_symbol_kind kind) {
  symbol->kind = kind;
  symbol->variant.pointer = nullptr;
  symbol->extra.first = nullptr;
  if (kind == syk_class || kind == syk_union)
    symbol->extra.class_supplement = alloc_class_symbol_supplement();
}

a_symbol *make_symbol(a_symbol_kind kind, a_symbol_locator *locator) {
  a_symbol_header *header = locator->header != nullptr ? locator->header : error_symbol_header();
  a_symbol *symbol = alloc_symbol(kind, header, &locator->position);
  if (locator->error_name) symbol->is_error_symbol = true;
  return symbol;
}

a_symbol *full_enter_symbol(a_symbol_kind kind, a_symbol_header *header,
                            const a_source_position *position, int depth, unsigned flags) {
  a_symbol *symbol = alloc_symbol(kind, header, position);
  reenter_symbol(symbol, depth, flags);
  return symbol;
}

a_symbol *enter_symbol(a_symbol_kind kind, a_symbol_locator *locator, int depth, unsigned flags) {
  a_symbol *symbol = make_symbol(kind, locator);
  reenter_symbol(symbol, depth, flags);
  locator->symbol = symbol;
  // A label is told where it stands, not where a goto first names it.
  if (f_xref_info != nullptr && kind != syk_undefined && kind != syk_label) [[unlikely]]
    write_xref_line('D', symbol, &symbol->decl_position);
  return symbol;
}

void reenter_symbol(a_symbol *symbol, int depth, unsigned flags) {
  bool no_error = true;
  symbol->is_hidden = (flags & ef_hidden) != 0;
  add_symbol_to_scope_list(symbol, depth, &no_error);
  if (!no_error) return;
  if (depth >= 0) {
    a_scope_stack_entry &entry = scope_stack[depth];
    if (entry.kind == sck_class || entry.kind == sck_class_reactivation) {
      symbol->is_class_member = true;
      symbol->parent.class_type = entry.assoc_type;
    } else if (entry.assoc_namespace != nullptr) {
      symbol->parent.namespace_ptr = entry.assoc_namespace;
    }
    if (is_reached_through_class_only(symbol)) return;
    check_redeclaration_of_controlling_name(symbol, depth);
  }
  add_symbol_to_symbol_table(symbol, depth);
}

// The symbol stands on the list of the block already.
void reenter_block_scope_symbol(a_symbol *symbol) {
  symbol->scope_number = top_scope().scope_number;
  if (!symbol->is_in_symbol_table) add_symbol_to_symbol_table(symbol, depth_scope_stack);
}

a_symbol *enter_copy_of_symbol(const a_symbol *symbol, int depth) {
  auto *copy = static_cast<a_symbol *>(alloc_in_region(permanent_region, sizeof(a_symbol)));
  *copy = *symbol;
  copy->next_active = copy->next_in_scope = copy->prev_in_scope = nullptr;
  copy->next_with_same_name_in_scope = nullptr;
  copy->is_in_symbol_table = false;
  reenter_symbol(copy, depth, 0);
  return copy;
}

a_symbol *enter_typedef_symbol(a_type *type, a_symbol_locator *locator, int depth, unsigned flags) {
  a_symbol *symbol = enter_symbol(syk_type, locator, depth, flags);
  symbol->variant.type = type;
  return symbol;
}

a_symbol *enter_extern_symbol(a_symbol_kind kind, a_symbol_locator *locator) {
  check_invariant(kind == syk_extern_variable || kind == syk_extern_routine);
  a_symbol *symbol = make_symbol(kind, locator);
  add_symbol_to_scope_list(symbol, 0, nullptr);
  add_symbol_to_symbol_table(symbol, 0);
  return symbol;
}

a_symbol *make_dummy_undefined_symbol(a_symbol_header *header, const a_source_position *position) {
  a_symbol *symbol = alloc_symbol(syk_undefined, header, position);
  symbol->is_error_symbol = true;
  return symbol;
}

// The outermost block of the function: the name stays known as bad to its end.
a_symbol *enter_undefined_symbol(a_symbol_locator *locator) {
  int depth = inside_function_scope() ? depth_innermost_function_scope : decl_scope_level;
  a_symbol *symbol = enter_symbol(syk_undefined, locator, depth, ef_no_shadow_check);
  symbol->is_error_symbol = true;
  return symbol;
}

a_symbol *make_unnamed_symbol(a_symbol_kind kind, const a_source_position *position) {
  a_symbol *symbol = alloc_symbol(kind, unnamed_symbol_header(), position);
  if (depth_scope_stack >= 0) symbol->scope_number = scope_number_at(decl_scope_level);
  return symbol;
}

a_symbol *make_unnamed_tag_symbol(a_symbol_kind kind, const a_source_position *position) {
  check_invariant(is_tag_symbol_kind(kind));
  return make_unnamed_symbol(kind, position);
}

bool is_unnamed_tag_symbol(const a_symbol *symbol) {
  return is_tag_symbol_kind(symbol->kind) && symbol->header == unnamed_symbol_header();
}

// typedef struct {} x;
void relink_unnamed_tag_symbol(a_symbol *symbol, a_symbol_locator *locator) {
  check_invariant(is_unnamed_tag_symbol(symbol));
  symbol->header = locator->header;
}

a_symbol *make_symbol_for_predeclared_type(a_type *type, const char *name) {
  a_symbol_header *header = find_symbol_header(name, std::strlen(name));
  a_symbol *symbol = full_enter_symbol(syk_type, header, &null_source_position, 0, 0);
  symbol->variant.type = type;
  if (type->symbol == nullptr) set_source_corresp(type, symbol);
  return symbol;
}

void declare_builtin_va_list_type() {
  a_symbol_locator locator = cleared_locator;
  find_symbol("va_list", std::strlen("va_list"), &locator);
  if (scope_depth_id_lookup(&locator, 0, 0) != nullptr) return;
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  a_type *type = alloc_type(tk_typeref);
  type->referenced_type = get_default_va_list_type();
  make_symbol_for_predeclared_type(type, "va_list");
  add_to_types_list(type, 0);
  switch_back_to_original_region(saved);
}

a_symbol *make_predeclared_function_symbol(const char *name, a_routine *routine) {
  a_symbol_header *header = find_symbol_header(name, std::strlen(name));
  a_symbol *symbol = full_enter_symbol(syk_routine, header, &null_source_position, 0, 0);
  symbol->variant.routine = routine;
  set_source_corresp(routine, symbol);
  return symbol;
}

// ---- Locators ----------------------------------------------------------------------------------

void make_locator_for_symbol(a_symbol *symbol, a_symbol_locator *locator) {
  *locator = cleared_locator;
  locator->header = symbol->header;
  locator->position = symbol->decl_position;
  locator->symbol = symbol;
  locator->specific_symbol = true;
  locator->error_name = symbol->is_error_symbol;
  locator->qualifier_is_class = symbol->is_class_member;
  if (symbol->is_class_member)
    locator->qualifier.class_type = symbol->parent.class_type;
  else
    locator->qualifier.namespace_ptr = symbol->parent.namespace_ptr;
}

void make_specific_symbol_error_locator(a_symbol_locator *locator) {
  a_symbol_header *header = locator->header != nullptr ? locator->header : error_symbol_header();
  a_source_position position = locator->position;
  *locator = cleared_locator;
  locator->header = header;
  locator->position = position;
  locator->symbol = make_dummy_undefined_symbol(header, &position);
  locator->specific_symbol = true;
  locator->error_name = true;
}

void clear_qualifier_from_locator(a_symbol_locator *locator) {
  locator->is_qualified = false;
  locator->has_global_prefix = false;
  locator->global_scope_qualifier = false;
  locator->qualifier_is_class = false;
  locator->qualifier.class_type = nullptr;
}

// ---- Overload sets -----------------------------------------------------------------------------

// The set takes the place of the first function in the scope and on the chain: the name leads to
// it, and its members are reached through it only.
a_symbol *add_symbol_to_overload_list(a_symbol *existing, a_symbol *added) {
  a_symbol *set = existing;
  if (existing->kind != syk_overloaded_function) {
    int depth = scope_depth_of_symbol(existing, nullptr);
    set = alloc_symbol(syk_overloaded_function, existing->header, &existing->decl_position);
    set->is_class_member = existing->is_class_member;
    set->parent = existing->parent;
    remove_symbol(existing);
    set->variant.first_function = existing;
    reenter_symbol(set, depth, 0);
    existing->scope_number = set->scope_number;
  }
  added->scope_number = set->scope_number;
  added->is_class_member = set->is_class_member;
  added->parent = set->parent;
  a_symbol **link = &set->variant.first_function;
  while (*link != nullptr && (*link)->decl_seq <= added->decl_seq)
    link = &(*link)->extra.next_overload;
  added->extra.next_overload = *link;
  *link = added;
  return set;
}

void remove_symbol_from_overload_set(a_symbol *symbol, a_symbol *set) {
  for (a_symbol **link = &set->variant.first_function; *link != nullptr;
       link = &(*link)->extra.next_overload) {
    if (*link != symbol) continue;
    *link = symbol->extra.next_overload;
    symbol->extra.next_overload = nullptr;
    return;
  }
}
