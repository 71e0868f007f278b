// The scope stack: the scopes that are open at the place being parsed, innermost last. It drives
// where names are entered and found, and which memory region new entries go to.
//
// a_scope (il) is what survives of a scope; an entry here is the parser's working state. A block
// gets an IL scope only when something must be recorded in it. Leaving a scope takes its names out
// of sight and checks them: unused and undefined ones are reported there.
//
// Entries never move while they are open: the stack grows by chunks.
#ifndef SEMANTICS_SCOPE_STK_H
#define SEMANTICS_SCOPE_STK_H

#include <cstdint>

#include "UTIL/basics.h"
#include "driver/mem_manage.h"
#include "il/il_fwd.h"
#include "il/il_kinds.h"
#include "il/src_seq.h"

struct a_hash_table;
struct a_template_decl_info;
struct an_instance_info;
struct a_pack_expansion_stack_entry;
struct an_active_using;

// The open lists of a scope. The tails are those of the lists in a_scope.
struct a_scope_pointers_block {
  a_symbol *first_symbol;
  a_symbol *last_symbol;
  std::uint32_t num_symbols;
  a_constant *constants_tail;
  a_type *types_tail;
  a_variable *variables_tail;
  a_variable *local_variables_tail;
  a_variable *parameters_tail;
  a_routine *routines_tail;
  a_label *labels_tail;
  a_dynamic_init *dynamic_inits_tail;
  a_namespace *namespaces_tail;
  a_using_decl *using_decls_tail;
  an_asm_entry *asm_entries_tail;
  a_template *templates_tail;
  a_pragma *pragmas_tail;
  a_scope *nested_scopes_tail;
  a_hash_table *lookup_table;  // names to symbols; null: not made
  bool symbols_are_inactive;   // the symbols hang on their headers' inactive chains
};
void clear_scope_pointers_block(a_scope_pointers_block *block);

// Conditions of a scope; those below the line are inherited by the scopes inside.
struct a_scope_flags {
  bool is_for_init_scope : 1;       // declared in the first clause of a for statement
  bool is_class_instantiation : 1;  // of a class template
  bool skip_hash_search : 1;        // lookup must walk the stack
  bool keep_symbols : 1;            // symbols come back: the block will be entered again
  bool symbols_reentered : 1;       // the block is open for the second time
  // ---
  bool inside_local_class : 1;
  bool in_for_init : 1;
  bool is_dependent_context : 1;
  bool in_template_definition : 1;
  bool is_template_instantiation_rescan : 1;
  bool instantiation_needs_protection : 1;
  bool record_name_references : 1;
  bool implicit_typename : 1;
};

struct a_scope_stack_entry {
  std::int32_t scope_number;
  a_scope_kind kind;
  a_scope_flags scope_flags;
  a_scope_pointers_block *pointers;  // never null; usually own_pointers
  a_scope_pointers_block own_pointers;
  a_scope *il_scope;  // null: nothing needed it yet
  a_memory_region_number il_region;
  a_memory_region_number previous_il_region;  // restored at the pop
  a_type *assoc_type;                         // sck_class, sck_enum, sck_prototype
  a_routine *assoc_routine;                   // sck_function
  a_namespace *assoc_namespace;               // the namespace kinds

  // What the globals of this face held before the push.
  int saved_decl_scope_level;
  int saved_depth_template_declaration_scope;
  int saved_depth_innermost_instantiation_scope;
  int saved_depth_innermost_function_scope;
  int saved_depth_innermost_namespace_scope;
  int saved_depth_of_innermost_scope_that_affects_access_control;
  int saved_curr_deferred_access_scope;
  an_expr_stack_entry *saved_expr_stack;
  an_object_lifetime *saved_object_lifetime;
  std::uint8_t saved_fp_contract_state;  // a_stdc_pragma_state
  std::uint8_t saved_fenv_access_state;
  std::uint8_t saved_cx_limited_range_state;

  an_active_using *active_using_list;                // using directives in force here
  an_object_lifetime *object_lifetime;               // opened for this scope; null: none
  an_object_lifetime *free_lifetimes;                // finished ones of this function
  a_shared_constants *function_shareable_constants;  // sck_function; null: not made
  a_template_decl_info *template_decl_info;
  an_instance_info *instance_info;
  a_source_position needed_position;  // what asked for the class or function that is instantiated
  a_pack_expansion_stack_entry *pack_expansion;
  a_pending_pragma *scope_pragmas;      // wait for the end of the scope
  a_pending_pragma *construct_pragmas;  // bind to the declaration or statement being read
  int previous_lookup_scope;            // the next entry to try in a lookup; -1: none
};

// An array that grows without moving its elements.
struct a_scope_stack {
  static constexpr int chunk_size = 30;
  a_scope_stack_entry **chunks;
  a_scope_stack_entry &operator[](int depth) const {
    return chunks[static_cast<unsigned>(depth) / chunk_size]
                 [static_cast<unsigned>(depth) % chunk_size];
  }
};

// ---- State: per translation unit ---------------------------------------------------------------

extern a_scope_stack scope_stack;
extern int size_scope_stack;   // entries there is room for
extern int depth_scope_stack;  // the top; -1: empty
// Where declarations go; differs from the top in template declarations and pragmas.
extern int decl_scope_level;
extern int depth_innermost_function_scope;  // -1: outside functions
extern a_scope *innermost_function_scope;   // null: outside functions
extern int depth_innermost_namespace_scope;
extern int depth_template_declaration_scope;     // -1: none
extern int depth_innermost_instantiation_scope;  // -1: none
extern int depth_of_initial_lookup_scope;        // where lookups begin
extern int depth_of_innermost_scope_that_affects_access_control;
extern int curr_deferred_access_scope;  // -1: access errors are reported at once
extern an_object_lifetime *curr_object_lifetime;
extern a_pack_expansion_stack_entry *pack_expansion_stack;

inline a_scope_stack_entry &top_scope() {
  return scope_stack[depth_scope_stack];
}
inline bool inside_function_scope() {
  return depth_innermost_function_scope >= 0;
}

// ---- Entering and leaving ----------------------------------------------------------------------

inline constexpr std::int32_t new_scope_number = -1;  // take one

// The general push. type for a class, enum or prototype scope (may be null there), routine for a
// function scope.
a_scope_stack_entry *push_scope(a_scope_kind kind, std::int32_t number, a_type *type,
                                a_routine *routine);
void push_file_scope(bool is_reentry);
// A block; its lists lie in *pointers, in the entry with null.
void push_block_scope(a_scope_pointers_block *pointers);
void push_block_scope_with_lifetime(an_object_lifetime *lifetime);
// A block again, with the symbols that *pointers kept.
void push_block_reactivation_scope(a_scope *scope, a_scope_pointers_block *pointers);
void push_for_init_scope(a_scope_pointers_block *pointers);
void push_new_top_level_declaration();

void pop_scope();
// With keep_symbols the symbols stay on the list of the pointers block, to be entered again.
void pop_block_scope(bool keep_symbols);
// Leaves without the checks and remarks at the end of a scope: what was declared is dropped.
void abandon_scope();

// The IL scope of an entry, made if it is missing; null for kinds that never have one.
a_scope *ensure_il_scope_exists(a_scope_stack_entry *entry);
// The block of open lists of a scope that may be closed (namespace, class, file) or open.
a_scope_pointers_block *get_pointers_block_for_scope(a_scope *scope);

// The checks at the end of a scope, and its wrap-up.
void wrapup_scope(a_scope *scope, a_scope_kind kind, a_scope_pointers_block *pointers);
void wrapup_namespace_scopes();
void set_needed_flags_at_end_of_file_scope(a_scope *file_scope);
void routine_defined(a_routine *routine);
void finish_function_processing_for_function_def(int function_def_number);

// The depth of the entry whose scope declares the symbol; -1: in none that is open.
int scope_depth_of_symbol(const a_symbol *symbol, bool *in_function);
a_scope *get_innermost_function_scope();   // null: none
int get_depth_innermost_function_scope();  // -1: none
a_routine *innermost_function();           // the routine being defined; null: none
// Number of the scope at a depth.
inline std::int32_t scope_number_at(int depth) {
  return scope_stack[depth].scope_number;
}

// ---- Linkage specifications --------------------------------------------------------------------

extern a_name_linkage_kind default_routine_name_linkage;
void push_name_linkage(a_name_linkage_kind linkage);
void pop_name_linkage();

// ---- Object lifetimes --------------------------------------------------------------------------

// Opens a lifetime of a kind inside the current one.
an_object_lifetime *push_object_lifetime(std::uint8_t kind);
void pop_object_lifetime();

// ---- Life cycle --------------------------------------------------------------------------------

void scope_stk_one_time_init();
void scope_stk_init();
void scope_stk_trans_unit_init();

#endif
