// Pushing and popping scopes, and the globals that follow the top of the stack.
//
// A push saves what it changes in its own entry, and the pop puts it back from there, so the two
// agree whatever happens between. Names leave the symbol table at the pop; those of classes and
// namespaces move to the chain of names that are reached through their scope.
#include "semantics/scope_stk.h"

#include <cstring>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il.h"
#include "il/il_alloc.h"
#include "il/il_entity.h"
#include "il/il_kinds.h"
#include "il/il_stmt.h"
#include "il/il_type.h"
#include "il/src_seq.h"
#include "lower/lower_il.h"
#include "semantics/symbol_tbl.h"
#include "target/pragma.h"

a_scope_stack scope_stack;
int size_scope_stack;
int depth_scope_stack = -1;
int decl_scope_level = -1;
int depth_innermost_function_scope = -1;
a_scope *innermost_function_scope;
int depth_innermost_namespace_scope = -1;
int depth_template_declaration_scope = -1;
int depth_innermost_instantiation_scope = -1;
int depth_of_initial_lookup_scope = -1;
int depth_of_innermost_scope_that_affects_access_control = -1;
int curr_deferred_access_scope = -1;
an_object_lifetime *curr_object_lifetime;
a_pack_expansion_stack_entry *pack_expansion_stack;
a_name_linkage_kind default_routine_name_linkage = nlk_external_c;

namespace {

// Linkage specifications that are open: extern "C" { ... }.
constexpr int most_nested_linkage_blocks = 256;
a_name_linkage_kind saved_name_linkages[most_nested_linkage_blocks];
int num_saved_name_linkages;

void grow_scope_stack() {
  const auto old_chunks = static_cast<std::size_t>(size_scope_stack / a_scope_stack::chunk_size);
  scope_stack.chunks = static_cast<a_scope_stack_entry **>(
      realloc_buffer(scope_stack.chunks, old_chunks * sizeof(a_scope_stack_entry *),
                     (old_chunks + 1) * sizeof(a_scope_stack_entry *)));
  scope_stack.chunks[old_chunks] = static_cast<a_scope_stack_entry *>(
      alloc_general(a_scope_stack::chunk_size * sizeof(a_scope_stack_entry)));
  size_scope_stack += a_scope_stack::chunk_size;
}

// Kinds whose entries start a context of their own, with no flags from around them.
bool starts_fresh_context(a_scope_kind kind) {
  return kind == sck_file || kind == sck_template_instantiation || kind == sck_top_level ||
         kind == sck_pragma;
}

// Kinds that have a number only if the caller gives one.
bool needs_no_number(a_scope_kind kind) {
  switch (kind) {
    case sck_namespace_extension:
    case sck_namespace_reactivation:
    case sck_class_reactivation:
    case sck_template_declaration:
    case sck_template_instantiation:
      return true;
    default:
      return false;
  }
}

void set_region_of_scope(a_scope_kind kind) {
  switch (kind) {
    case sck_block:
    case sck_condition:
    case sck_pragma:
    case sck_access:
    case sck_template_declaration:
    case sck_function:  // when its scope is made
      break;
    default:
      switch_il_region(file_scope_region_number);
      break;
  }
}

void save_globals(a_scope_stack_entry &entry) {
  entry.previous_il_region = curr_il_region_number;
  entry.saved_decl_scope_level = decl_scope_level;
  entry.saved_depth_template_declaration_scope = depth_template_declaration_scope;
  entry.saved_depth_innermost_instantiation_scope = depth_innermost_instantiation_scope;
  entry.saved_depth_innermost_function_scope = depth_innermost_function_scope;
  entry.saved_depth_innermost_namespace_scope = depth_innermost_namespace_scope;
  entry.saved_depth_of_innermost_scope_that_affects_access_control =
      depth_of_innermost_scope_that_affects_access_control;
  entry.saved_curr_deferred_access_scope = curr_deferred_access_scope;
  entry.saved_object_lifetime = curr_object_lifetime;
  entry.saved_fp_contract_state = curr_fp_contract_state;
  entry.saved_fenv_access_state = curr_fenv_access_state;
  entry.saved_cx_limited_range_state = curr_cx_limited_range_state;
  entry.previous_lookup_scope = entry.kind == sck_top_level ? -1 : depth_of_initial_lookup_scope;
}

void restore_globals(const a_scope_stack_entry &entry) {
  switch_il_region(entry.previous_il_region);
  decl_scope_level = entry.saved_decl_scope_level;
  depth_template_declaration_scope = entry.saved_depth_template_declaration_scope;
  depth_innermost_instantiation_scope = entry.saved_depth_innermost_instantiation_scope;
  depth_innermost_function_scope = entry.saved_depth_innermost_function_scope;
  innermost_function_scope = depth_innermost_function_scope < 0
                                 ? nullptr
                                 : scope_stack[depth_innermost_function_scope].il_scope;
  depth_innermost_namespace_scope = entry.saved_depth_innermost_namespace_scope;
  depth_of_innermost_scope_that_affects_access_control =
      entry.saved_depth_of_innermost_scope_that_affects_access_control;
  curr_deferred_access_scope = entry.saved_curr_deferred_access_scope;
  curr_object_lifetime = entry.saved_object_lifetime;
  if (entry.kind == sck_function || entry.kind == sck_block) {
    curr_fp_contract_state = entry.saved_fp_contract_state;
    curr_fenv_access_state = entry.saved_fenv_access_state;
    curr_cx_limited_range_state = entry.saved_cx_limited_range_state;
  }
  depth_of_initial_lookup_scope = entry.previous_lookup_scope;
}

a_memory_region_number region_of_local_class_function() {
  return depth_innermost_function_scope < 0 ? 0
                                            : scope_stack[depth_innermost_function_scope].il_region;
}

void make_scope_of_kind(a_scope_stack_entry &entry) {
  switch (entry.kind) {
    case sck_file:
      entry.il_scope = curr_translation_unit->file_scope;
      if (entry.il_scope == nullptr) {
        entry.il_scope = new_file_scope(entry.scope_number);
        curr_translation_unit->file_scope = entry.il_scope;
      }
      entry.scope_number = entry.il_scope->scope_number;
      break;
    case sck_class:
      entry.il_scope = alloc_scope(sck_class, entry.scope_number, nullptr);
      entry.il_scope->assoc.type = entry.assoc_type;
      break;
    case sck_enum:
      entry.il_scope = alloc_scope(sck_enum, entry.scope_number, nullptr);
      entry.il_scope->assoc.type = entry.assoc_type;
      break;
    case sck_function: {
      bool shares_region = entry.scope_flags.inside_local_class;
      entry.il_scope = new_function_scope(entry.scope_number, entry.assoc_routine,
                                          shares_region ? region_of_local_class_function() : 0);
      switch_il_region(entry.assoc_routine->region_number);
      break;
    }
    default:
      break;
  }
  if (entry.il_scope != nullptr) entry.il_scope->stack_depth = depth_scope_stack;
}

// A scope that names are reached through keeps its lists with its entity.
void set_pointers_of_scope(a_scope_stack_entry &entry) {
  entry.pointers = &entry.own_pointers;
  switch (entry.kind) {
    case sck_class:
    case sck_class_reactivation:
      if (entry.assoc_type != nullptr && entry.assoc_type->symbol != nullptr)
        entry.pointers = entry.assoc_type->symbol->extra.class_supplement->pointers_block;
      break;
    case sck_file:
      if (curr_translation_unit->scope_pointers == nullptr) {
        curr_translation_unit->scope_pointers = static_cast<a_scope_pointers_block *>(
            alloc_in_region(permanent_region, sizeof(a_scope_pointers_block)));
        clear_scope_pointers_block(curr_translation_unit->scope_pointers);
      }
      entry.pointers = curr_translation_unit->scope_pointers;
      break;
    default:
      break;
  }
  if (entry.pointers == &entry.own_pointers) clear_scope_pointers_block(entry.pointers);
}

// The scope whose IL scope encloses that of an entry: in C the entry below that has one.
a_scope *enclosing_il_scope(int depth) {
  for (int outer = depth - 1; outer >= 0; --outer)
    if (scope_stack[outer].il_scope != nullptr) return scope_stack[outer].il_scope;
  return nullptr;
}

void set_parent_of_il_scope(a_scope_stack_entry &entry) {
  if (entry.il_scope == nullptr || entry.kind == sck_file) return;
  a_scope *parent = enclosing_il_scope(depth_scope_stack);
  // A scope in the file-scope region may not point into a function's region: the entity of the
  // scope, which is entered in its own scope's list, knows its routine.
  bool scope_stays = entry.kind == sck_class || entry.kind == sck_enum;
  if (scope_stays)
    while (parent != nullptr && parent->kind != sck_file && parent->kind != sck_class)
      parent = parent->parent;
  entry.il_scope->parent = parent;
}

void enter_depth_globals(a_scope_stack_entry &entry) {
  const int depth = depth_scope_stack;
  depth_of_initial_lookup_scope = depth;
  switch (entry.kind) {
    case sck_template_declaration:
      depth_template_declaration_scope = depth;
      return;
    case sck_template_instantiation:
      depth_innermost_instantiation_scope = depth;
      return;
    case sck_pragma:
    case sck_access:
      return;
    case sck_function:
      depth_innermost_function_scope = depth;
      innermost_function_scope = entry.il_scope;
      depth_of_innermost_scope_that_affects_access_control = depth;
      break;
    case sck_file:
    case sck_namespace:
    case sck_namespace_extension:
    case sck_namespace_reactivation:
      depth_innermost_namespace_scope = depth;
      break;
    case sck_class:
    case sck_class_reactivation:
      depth_of_innermost_scope_that_affects_access_control = depth;
      break;
    default:
      break;
  }
  decl_scope_level = depth;
}

// ---- Leaving -----------------------------------------------------------------------------------

bool names_stay_reachable(a_scope_kind kind) {
  switch (kind) {
    case sck_class:
    case sck_class_reactivation:
    case sck_namespace:
    case sck_namespace_extension:
    case sck_namespace_reactivation:
      return true;
    default:
      return false;
  }
}

void take_names_out_of_sight(a_scope_stack_entry &entry) {
  if (entry.kind == sck_file) return;
  bool inactive = names_stay_reachable(entry.kind);
  for (a_symbol *symbol = entry.pointers->first_symbol; symbol != nullptr;
       symbol = symbol->next_in_scope) {
    if (!symbol->is_in_symbol_table || symbol->is_inactive) continue;
    unlink_symbol_from_symbol_table(symbol);
    if (inactive) add_symbol_to_inactive_list(symbol);
  }
}

enum a_pop_flag : unsigned { pf_checks = 1, pf_keep_symbols = 2 };

void pop_scope_full(unsigned flags) {
  check_invariant(depth_scope_stack >= 0);
  a_scope_stack_entry &entry = top_scope();
  if (entry.scope_pragmas != nullptr || entry.construct_pragmas != nullptr)
    end_of_scope_pragma_processing(&entry);
  take_names_out_of_sight(entry);
  if ((flags & pf_checks) != 0) wrapup_scope(entry.il_scope, entry.kind, entry.pointers);
  if (entry.kind == sck_function) {
    if (entry.function_shareable_constants != nullptr) empty_func_shareable_constants_table(&entry);
    routine_defined(entry.assoc_routine);
    if (!should_delay_lowering_on_function(entry.assoc_routine))
      finish_function_processing_for_function_def(entry.assoc_routine->function_def_number);
  }
  if (entry.il_scope != nullptr) entry.il_scope->stack_depth = -1;
  restore_globals(entry);
  --depth_scope_stack;
  // Nobody will read the body of a function of C when no code is wanted.
  if (entry.kind == sck_function && suppress_back_end && !in_cplusplus())
    clear_function_body(entry.il_scope);
}

}  // namespace

void clear_scope_pointers_block(a_scope_pointers_block *block) {
  std::memset(static_cast<void *>(block), 0, sizeof *block);
}

// ---- Pushes ------------------------------------------------------------------------------------

a_scope_stack_entry *push_scope(a_scope_kind kind, std::int32_t number, a_type *type,
                                a_routine *routine) {
  if (depth_scope_stack + 1 >= size_scope_stack) grow_scope_stack();
  a_scope_stack_entry &entry = scope_stack[depth_scope_stack + 1];
  a_scope_flags inherited = {};
  if (depth_scope_stack >= 0 && !starts_fresh_context(kind)) {
    inherited = top_scope().scope_flags;
    inherited.is_for_init_scope = inherited.is_class_instantiation = false;
    inherited.skip_hash_search = inherited.keep_symbols = inherited.symbols_reentered = false;
  } else {
    inherited.implicit_typename = implicit_typename_enabled;
    inherited.record_name_references = kind == sck_file && record_form_of_name_reference;
  }
  std::memset(static_cast<void *>(&entry), 0, sizeof entry);
  entry.kind = kind;
  entry.scope_flags = inherited;
  entry.assoc_type = type;
  entry.assoc_routine = routine;
  entry.scope_number = number;
  bool file_scope_exists = kind == sck_file && curr_translation_unit->file_scope != nullptr;
  if (number < 0 && !needs_no_number(kind) && !file_scope_exists)
    entry.scope_number = take_next_scope_number();
  save_globals(entry);
  set_region_of_scope(kind);
  ++depth_scope_stack;
  set_pointers_of_scope(entry);
  make_scope_of_kind(entry);
  set_parent_of_il_scope(entry);
  entry.il_region = curr_il_region_number;
  if (kind == sck_class && type != nullptr && type->symbol != nullptr)
    type->symbol->extra.class_supplement->scope_number = entry.scope_number;
  enter_depth_globals(entry);
  return &entry;
}

void push_file_scope(bool is_reentry) {
  check_invariant(!is_reentry || curr_translation_unit->file_scope != nullptr);
  push_scope(sck_file, new_scope_number, nullptr, nullptr);
}

void push_block_scope(a_scope_pointers_block *pointers) {
  a_scope_stack_entry *entry = push_scope(sck_block, new_scope_number, nullptr, nullptr);
  if (pointers == nullptr) return;
  clear_scope_pointers_block(pointers);
  entry->pointers = pointers;
}

void push_block_scope_with_lifetime(an_object_lifetime *lifetime) {
  push_block_scope(nullptr);
  top_scope().object_lifetime = lifetime;
}

void push_block_reactivation_scope(a_scope *scope, a_scope_pointers_block *pointers) {
  std::int32_t number = scope != nullptr ? scope->scope_number : new_scope_number;
  a_scope_stack_entry *entry = push_scope(sck_block, number, nullptr, nullptr);
  entry->pointers = pointers;
  entry->il_scope = scope;
  entry->scope_flags.symbols_reentered = true;
  if (scope != nullptr) scope->stack_depth = depth_scope_stack;
  for (a_symbol *symbol = pointers->first_symbol; symbol != nullptr; symbol = symbol->next_in_scope)
    reenter_block_scope_symbol(symbol);
}

void push_for_init_scope(a_scope_pointers_block *pointers) {
  push_block_scope(pointers);
  top_scope().scope_flags.is_for_init_scope = true;
}

void push_new_top_level_declaration() {
  push_scope(sck_top_level, new_scope_number, nullptr, nullptr);
}

// ---- Pops --------------------------------------------------------------------------------------

void pop_scope() {
  // The checks of a file scope run once, when everything is parsed and instantiated.
  pop_scope_full(top_scope().kind == sck_file ? 0u : static_cast<unsigned>(pf_checks));
}

void pop_block_scope(bool keep_symbols) {
  check_invariant(top_scope().kind == sck_block);
  pop_scope_full(keep_symbols ? pf_keep_symbols : pf_checks);
}

void abandon_scope() {
  pop_scope_full(0);
}

// ---- IL scopes ---------------------------------------------------------------------------------

a_scope *ensure_il_scope_exists(a_scope_stack_entry *entry) {
  if (entry->il_scope != nullptr) return entry->il_scope;
  a_memory_region_number saved = curr_il_region_number;
  if (entry->kind == sck_prototype) {
    switch_il_region(file_scope_region_number);
    entry->il_scope = alloc_scope(sck_prototype, entry->scope_number, nullptr);
    entry->il_scope->assoc.type = entry->assoc_type;
    if (entry->assoc_type != nullptr)
      entry->assoc_type->routine_supplement->prototype_scope = entry->il_scope;
  } else if (entry->kind == sck_block || entry->kind == sck_condition) {
    check_invariant(entry->previous_lookup_scope >= 0);
    a_scope *parent = ensure_il_scope_exists(&scope_stack[entry->previous_lookup_scope]);
    switch_il_region(entry->il_region);
    a_scope *scope = alloc_scope(entry->kind, entry->scope_number, nullptr);
    scope->parent = parent;
    a_scope_pointers_block *outer = scope_stack[entry->previous_lookup_scope].pointers;
    scope->prev = outer->nested_scopes_tail;
    if (outer->nested_scopes_tail == nullptr)
      parent->nested_scopes = scope;
    else
      outer->nested_scopes_tail->next = scope;
    outer->nested_scopes_tail = scope;
    entry->il_scope = scope;
  } else {
    return nullptr;
  }
  for (int depth = depth_scope_stack; depth >= 0; --depth)
    if (&scope_stack[depth] == entry) entry->il_scope->stack_depth = depth;
  switch_il_region(saved);
  return entry->il_scope;
}

a_scope_pointers_block *get_pointers_block_for_scope(a_scope *scope) {
  if (scope->stack_depth >= 0 && scope->stack_depth <= depth_scope_stack)
    return scope_stack[scope->stack_depth].pointers;
  switch (scope->kind) {
    case sck_class:
      return scope->assoc.type->symbol->extra.class_supplement->pointers_block;
    case sck_file:
      return curr_translation_unit->scope_pointers;
    default:
      return nullptr;
  }
}

// ---- Questions ---------------------------------------------------------------------------------

int scope_depth_of_symbol(const a_symbol *symbol, bool *in_function) {
  int depth = -1;
  if (symbol->scope_number >= 0 && depth_scope_stack >= 0) {
    if (symbol->scope_number == scope_number_at(0)) {
      depth = 0;
    } else if (symbol->scope_number == scope_number_at(decl_scope_level)) {
      depth = decl_scope_level;
    } else {
      for (int i = depth_scope_stack; i > 0; --i) {
        a_scope_kind kind = scope_stack[i].kind;
        if (kind == sck_namespace_reactivation || kind == sck_class_reactivation) continue;
        if (scope_stack[i].scope_number != symbol->scope_number) continue;
        depth = i;
        break;
      }
    }
  }
  if (in_function != nullptr)
    *in_function = depth_innermost_function_scope >= 0 && depth >= depth_innermost_function_scope;
  return depth;
}

a_scope *get_innermost_function_scope() {
  return innermost_function_scope;
}

int get_depth_innermost_function_scope() {
  return depth_innermost_function_scope;
}

a_routine *innermost_function() {
  return depth_innermost_function_scope < 0
             ? nullptr
             : scope_stack[depth_innermost_function_scope].assoc_routine;
}

// ---- Linkage and lifetimes ---------------------------------------------------------------------

void push_name_linkage(a_name_linkage_kind linkage) {
  if (num_saved_name_linkages == most_nested_linkage_blocks) catastrophe(ec_program_too_large);
  saved_name_linkages[num_saved_name_linkages++] = default_routine_name_linkage;
  default_routine_name_linkage = linkage;
}

void pop_name_linkage() {
  check_invariant(num_saved_name_linkages > 0);
  default_routine_name_linkage = saved_name_linkages[--num_saved_name_linkages];
}

an_object_lifetime *push_object_lifetime(std::uint8_t kind) {
  an_object_lifetime *lifetime = alloc_object_lifetime(static_cast<an_object_lifetime_kind>(kind));
  lifetime->parent = curr_object_lifetime;
  if (curr_object_lifetime != nullptr) {
    lifetime->next_sibling = curr_object_lifetime->children;
    curr_object_lifetime->children = lifetime;
  }
  curr_object_lifetime = lifetime;
  return lifetime;
}

void pop_object_lifetime() {
  check_invariant(curr_object_lifetime != nullptr);
  curr_object_lifetime = curr_object_lifetime->parent;
}

// ---- Life cycle --------------------------------------------------------------------------------

void scope_stk_one_time_init() {
  register_trans_unit_variable(&scope_stack);
  register_trans_unit_variable(&size_scope_stack);
  register_trans_unit_variable(&depth_scope_stack);
  register_trans_unit_variable(&decl_scope_level);
  register_trans_unit_variable(&depth_innermost_function_scope);
  register_trans_unit_variable(&innermost_function_scope);
  register_trans_unit_variable(&depth_innermost_namespace_scope);
  register_trans_unit_variable(&depth_template_declaration_scope);
  register_trans_unit_variable(&depth_innermost_instantiation_scope);
  register_trans_unit_variable(&depth_of_initial_lookup_scope);
  register_trans_unit_variable(&depth_of_innermost_scope_that_affects_access_control);
  register_trans_unit_variable(&curr_deferred_access_scope);
  register_trans_unit_variable(&curr_object_lifetime);
  register_trans_unit_variable(&pack_expansion_stack);
  register_trans_unit_variable(&default_routine_name_linkage);
}

void scope_stk_init() {
  scope_stk_trans_unit_init();
}

void scope_stk_trans_unit_init() {
  scope_stack.chunks = nullptr;
  size_scope_stack = 0;
  depth_scope_stack = decl_scope_level = -1;
  depth_innermost_function_scope = -1;
  innermost_function_scope = nullptr;
  depth_innermost_namespace_scope = -1;
  depth_template_declaration_scope = depth_innermost_instantiation_scope = -1;
  depth_of_initial_lookup_scope = -1;
  depth_of_innermost_scope_that_affects_access_control = -1;
  curr_deferred_access_scope = -1;
  curr_object_lifetime = nullptr;
  pack_expansion_stack = nullptr;
  num_saved_name_linkages = 0;
  default_routine_name_linkage = nlk_external_c;
  if (in_cplusplus()) default_routine_name_linkage = nlk_external_cpp;
}
