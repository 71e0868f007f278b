// The memory region of new entries, and the scopes that own regions: the file scope of a unit and
// the bodies of functions.
#include "driver/mem_manage.h"
#include "il/il_alloc.h"
#include "il/src_seq.h"
#include "semantics/scope_stk.h"

void switch_to_scope_region(int depth, a_memory_region_number *saved) {
  const a_memory_region_number region = scope_stack[depth].il_region;
  *saved = 0;
  if (region != curr_il_region_number) {
    *saved = curr_il_region_number;
    curr_il_region_number = region;
  }
}

namespace {

// At the head of the scopes of the region.
void enter_region_scope(a_scope *scope, a_memory_region_number region) {
  if (il_header.region_scope_table == nullptr)
    add_table_parallel_to_regions(reinterpret_cast<void ***>(&il_header.region_scope_table));
  a_scope *&head = il_header.region_scope_table[region];
  scope->next = head;
  scope->prev = nullptr;
  if (head != nullptr) head->prev = scope;
  head = scope;
}

}  // namespace

a_scope *new_file_scope(std::int32_t number) {
  file_scope_region_number = curr_il_region_number;
  a_scope *scope = alloc_scope(sck_file, number, nullptr);
  enter_region_scope(scope, file_scope_region_number);
  if (il_header.primary_scope == nullptr) il_header.primary_scope = scope;
  return scope;
}

a_scope *new_function_scope(std::int32_t number, a_routine *routine,
                            a_memory_region_number region) {
  const int function_number = new_function_def_number();
  ensure_function_def_table_space(function_number);
  if (region == 0) {
    region = new_memory_region();
    routine->owns_memory_region = true;
  }
  const a_memory_region_number saved = curr_il_region_number;
  curr_il_region_number = region;
  a_scope *scope = alloc_scope(sck_function, number, routine);
  curr_il_region_number = saved;
  function_def_table[function_number].scope = scope;
  function_def_table[function_number].region = region;
  routine->function_def_number = function_number;
  routine->region_number = region;
  enter_region_scope(scope, region);
  return scope;
}

a_scope *scope_for_routine(const a_routine *routine) {
  const int number = routine->function_def_number;
  if (number <= 0 || number > highest_used_function_def_number) return nullptr;
  const a_function_def_entry &entry = function_def_table[number];
  if (entry.scope == nullptr || entry.region == 0) return nullptr;
  if (mem_region_table[entry.region] == nullptr) return nullptr;
  return entry.scope;
}
