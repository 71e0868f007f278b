// The order of lowering: bodies at their own end, the file scope at the end of the unit.
//
// The pass runs only over a unit without errors, whose trees are well formed. The errors that the
// pass itself reports, on constructs that have no lowered form, do not stop it: each function gets
// its own.
#include "lower/lower_il.h"

#include <string>
#include <unordered_map>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il.h"
#include "lower/lower_c99.h"
#include "lower/lower_internal.h"
#include "lower/lower_name.h"
#include "semantics/types.h"

bool il_lowering_underway;
bool lowering_file_scope;
bool function_body_processing_delayed_on_some_func_in_primary_il;
a_scope *lowered_scope;
a_routine *lowered_routine;
a_statement_run *current_run;

namespace {

std::uint64_t errors_of_lowering;
a_variable *last_temporary;  // of the function; null: none yet
std::unordered_map<std::string, a_routine *> runtime_routines;

bool may_lower() {
  return total_errors == errors_of_lowering && !suppress_il_lowering;
}

// What a running pass sets, saved around a scope.
struct a_scope_guard {
  a_scope *scope = lowered_scope;
  a_routine *routine = lowered_routine;
  a_statement_run *run = current_run;
  a_variable *temporary = last_temporary;
  bool underway = il_lowering_underway, at_file_scope = lowering_file_scope;
  a_memory_region_number region = curr_il_region_number;
  std::uint64_t errors_before = total_errors;

  a_scope_guard(a_routine *new_routine, a_scope *new_scope) {
    lowered_routine = new_routine;
    lowered_scope = new_scope;
    current_run = nullptr;
    last_temporary = nullptr;
    il_lowering_underway = true;
    lowering_file_scope = new_scope == nullptr;
    set_il_lowering_flag(true);
    switch_il_region(new_routine != nullptr ? new_routine->region_number
                                            : file_scope_region_number);
  }
  ~a_scope_guard() {
    errors_of_lowering += total_errors - errors_before;
    lowered_routine = routine;
    lowered_scope = scope;
    current_run = run;
    last_temporary = temporary;
    il_lowering_underway = underway;
    lowering_file_scope = at_file_scope;
    set_il_lowering_flag(underway);
    switch_il_region(region);
  }
};

}  // namespace

// ---- Questions ---------------------------------------------------------------------------------

bool il_lowering_needed() {
  return in_cplusplus() && total_errors == 0 && !suppress_il_lowering;
}

bool cpp_il_lowering_occured() {
  return il_header.lowered && in_cplusplus();
}

bool c99_il_lowering_needed() {
  if (suppress_il_lowering || total_errors != 0) return false;
  return !in_cplusplus() && (std_version >= 199901 || gnu_mode || vla_enabled);
}

// Instances, implicit members and the interpreter need bodies as they were parsed.
bool should_delay_lowering_on_function(const a_routine *) {
  return in_cplusplus();
}

// ---- Scopes ------------------------------------------------------------------------------------

void lower_function_scope(a_routine *routine, a_scope *scope) {
  if (in_cplusplus() || routine->body_lowered || !may_lower()) return;
  a_scope_guard guard(routine, scope);
  routine->body_lowered = true;
  if (report_unlowered_c99_type(routine->type, &routine->decl_position)) return;
  lower_variables_of_scope(scope);
  for (a_variable *p = scope->parameters; p != nullptr; p = p->next)
    report_unlowered_c99_type(p->type, &p->decl_position);
  lower_statement_list(scope->block);
  forget_vars_of_constants();
}

void lower_file_scope() {
  if (in_cplusplus() || !may_lower()) return;
  a_scope_guard guard(nullptr, nullptr);
  lower_variables_of_scope(curr_translation_unit->file_scope);
  forget_vars_of_constants();
  il_header.lowered = true;
}

void lower_functions_waiting_for_module_id() {}

namespace {

template <class T>
void clear_lost_parents(T *first, an_il_entry_kind kind) {
  for (T *entity = first; entity != nullptr; entity = entity->next)
    if (entity->has_local_scope_ref && get_parent_scope_of(entity) == nullptr)
      clear_parent(entity, kind);
}

}  // namespace

void clear_parent_information(a_scope *file_scope) {
  clear_lost_parents(file_scope->types, iek_type);
  clear_lost_parents(file_scope->variables, iek_variable);
  clear_lost_parents(file_scope->routines, iek_routine);
}

// ---- Made entities -----------------------------------------------------------------------------

a_variable *make_local_temporary(a_type *type) {
  check_invariant(lowered_scope != nullptr);
  a_variable *variable = alloc_variable(sc_auto);
  variable->type = make_unqualified_type(type);
  variable->is_temporary = variable->is_compiler_generated = true;
  variable->defined = true;
  // Those of a function stand in front of its own variables, in the order in which they were made.
  insert_in_variables_list(variable, last_temporary, lowered_scope);
  last_temporary = variable;
  return variable;
}

namespace {

// A routine of the file scope that the program declares itself, or null.
a_routine *find_declared_routine(const std::string &name) {
  for (a_routine *r = curr_translation_unit->file_scope->routines; r != nullptr; r = r->next)
    if (r->name != nullptr && name == r->name && r->storage_class != sc_static &&
        r->special_kind == sfk_none && r->special_data.builtin_number == 0)
      return r;
  return nullptr;
}

a_routine *make_runtime_routine(const char *name, a_type *type) {
  a_memory_region_number saved;
  switch_to_file_scope_region(&saved);
  a_routine *routine = alloc_routine();
  routine->name = alloc_il_text(name, std::char_traits<char>::length(name));
  routine->type = type;
  routine->storage_class = sc_extern;
  routine->is_compiler_generated = true;
  routine->name_linkage = nlk_external_c;
  routine->name_linkage_set = true;
  add_to_routines_list(routine, 0);
  switch_back_to_original_region(saved);
  return routine;
}

an_expr_node *call_node(a_routine *routine, an_expr_node *arguments) {
  an_expr_node *callee = function_addr_expr(routine);
  routine->called = routine->referenced = true;
  callee->next = arguments;
  a_type *type = f_skip_typerefs(routine->type);
  return make_operator_node(eok_call, type->return_type, callee);
}

}  // namespace

an_expr_node *make_prototyped_runtime_call(const char *name, a_type *routine_type,
                                           an_expr_node *arguments) {
  a_routine *&routine = runtime_routines[name];
  if (routine == nullptr) routine = find_declared_routine(name);
  if (routine == nullptr) routine = make_runtime_routine(name, routine_type);
  an_expr_node *call = call_node(routine, arguments);
  call->type = routine_type->return_type;
  return call;
}

an_expr_node *intrinsic_call(int number, const char *name, a_type *type, an_expr_node *arguments) {
  std::string key = std::string("intrinsic ") + name;  // no name of a routine holds a blank
  a_routine *&routine = runtime_routines[key];
  if (routine == nullptr) {
    routine = make_runtime_routine(name, type);
    routine->special_data.builtin_number = static_cast<std::uint32_t>(number);
  }
  return call_node(routine, arguments);
}

// ---- Phases ------------------------------------------------------------------------------------

void il_lower_init() {
  errors_of_lowering = 0;
  il_lowering_underway = lowering_file_scope = false;
  function_body_processing_delayed_on_some_func_in_primary_il = in_cplusplus();
  lowered_scope = nullptr;
  lowered_routine = nullptr;
  current_run = nullptr;
  last_temporary = nullptr;
  runtime_routines.clear();
}

void il_lower_trans_unit_init() {
  runtime_routines.clear();
  forget_vars_of_constants();
}
