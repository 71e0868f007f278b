// Constants of the IL: scratch ones, fresh ones, and those shared by value.
//
// The folder works in scratch constants, which come from a free list and lie in the file-scope
// region; what becomes part of the IL is shared: equal constants of the file scope are one, and so
// are equal constants of one function that refer to what belongs to it. A constant of the file
// scope never refers to an entry of a function's region.
#include <cstring>

#include "driver/host_envir.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il_alloc.h"
#include "il/il_alloc_internal.h"
#include "semantics/float_pt.h"
#include "semantics/scope_stk.h"
#include "semantics/types.h"

a_constant *available_local_constants;

namespace {

constexpr std::size_t size_of_shareable_table = 2039;
constexpr std::size_t size_of_func_shareable_table = 31;

a_shared_constants *shareable_constants_table;  // of the current unit; null: not made

}  // namespace

// Chains of shared constants through next_in_list. General memory; grows with the program.
struct a_shared_constants {
  a_constant **chains;
  std::size_t size, count;
};

// ---- Fresh constants ---------------------------------------------------------------------------

a_constant *alloc_constant(a_constant_kind kind) {
  a_constant *constant = alloc_record_with_head<a_constant>();
  set_constant_kind(constant, kind);
  return constant;
}

a_constant *fs_constant(a_constant_kind kind) {
  a_constant *constant = alloc_fs_record_with_head<a_constant>();
  set_constant_kind(constant, kind);
  return constant;
}

void clear_constant(a_constant *constant, a_constant_kind kind) {
  set_head(clear_record(constant));
  set_constant_kind(constant, kind);
}

void set_constant_kind(a_constant *constant, a_constant_kind kind) {
  constant->kind = kind;
  clear_constant_variant(constant);
  if (kind == ck_string) constant->string_sequence_number = -1;
}

void set_template_param_constant_kind(a_constant *constant, a_template_param_constant_kind kind) {
  clear_constant_variant(constant);
  constant->template_kind = kind;
}

void break_constant_source_corresp(a_constant *constant) {
  break_source_corresp(constant);
  constant->decl_position = null_source_position;
  constant->is_enumerator = false;
}

// ---- Scratch constants -------------------------------------------------------------------------

a_constant *local_constant() {
  a_constant *constant = available_local_constants;
  if (constant != nullptr) {
    available_local_constants = constant->next_in_list;
    clear_constant(constant, ck_error);
  } else {
    constant = fs_constant(ck_error);
  }
  il_marks(constant).is_scratch = true;
  return constant;
}

void release_local_constant(a_constant **constant) {
  a_constant *released = *constant;
  check_invariant(released != nullptr && il_marks(released).is_scratch);
  released->next_in_list = available_local_constants;
  available_local_constants = released;
  *constant = nullptr;
}

a_constant *move_local_constant_to_il(a_constant **constant) {
  a_constant *local = *constant;
  a_constant *result;
  if (!has_non_file_scope_ref(local)) {
    result = local;
    il_marks(result).is_scratch = false;
    result->next_in_list = nullptr;
    *constant = nullptr;
  } else {
    result = alloc_unshared_constant_full(local);
    release_local_constant(constant);
  }
  break_constant_source_corresp(result);
  return result;
}

// ---- References into function regions ----------------------------------------------------------

namespace {

bool is_local_entry(const void *entry) {
  return entry != nullptr && !in_file_scope_region(entry);
}

bool address_has_non_file_scope_ref(const a_constant *constant) {
  switch (constant->address_kind) {
    case abk_variable:
    case abk_label:
      return is_local_entry(constant->address_target);
    case abk_constant:
    case abk_temporary_constant:
      return is_local_entry(constant->address_target) ||
             (constant->address_constant != nullptr &&
              has_non_file_scope_ref(constant->address_constant));
    default:
      return false;
  }
}

bool template_param_has_non_file_scope_ref(const a_constant *constant) {
  switch (constant->template_kind) {
    case tpck_expr:
      return is_local_entry(constant->param_expr);
    case tpck_sizeof:
    case tpck_alignof:
    case tpck_datasizeof:
    case tpck_typeid:
    case tpck_noexcept:
      return is_local_entry(constant->param_operand_expr);
    default:
      return false;
  }
}

}  // namespace

bool has_non_file_scope_ref(const a_constant *constant) {
  switch (constant->kind) {
    case ck_address:
      return address_has_non_file_scope_ref(constant);
    case ck_address_difference:
      return has_non_file_scope_ref(constant->difference_from) ||
             has_non_file_scope_ref(constant->difference_subtract);
    case ck_dynamic_init:
      return is_local_entry(constant->dynamic_init);
    case ck_aggregate:
      for (const a_constant *element = constant->first_element; element != nullptr;
           element = element->next_in_list) {
        if (is_local_entry(element) || has_non_file_scope_ref(element)) return true;
      }
      return false;
    case ck_repeat:
      return is_local_entry(constant->repeat_element) ||
             has_non_file_scope_ref(constant->repeat_element);
    case ck_template_param:
      return template_param_has_non_file_scope_ref(constant);
    case ck_designator:
      return !constant->designator_is_field && !constant->designator_is_name &&
             is_local_entry(constant->designator_index);
    default:
      return false;
  }
}

// ---- Copies ------------------------------------------------------------------------------------

namespace {

// An expression of a template-dependent constant of the file scope stays in its function's region;
// a local reference tells which it is.
void move_template_expr_to_local_ref(a_constant *constant) {
  a_scope *scope = get_innermost_function_scope();
  if (scope == nullptr || !template_param_has_non_file_scope_ref(constant)) return;
  if (constant->template_kind == tpck_expr) {
    make_local_expr_node_ref(constant->param_expr, ler_constant_template_expr, constant, scope);
    constant->param_expr = nullptr;
  } else {
    make_local_expr_node_ref(constant->param_operand_expr, ler_constant_template_operand, constant,
                             scope);
    constant->param_operand_expr = nullptr;
  }
}

// All of the value; what a constant of the file scope may not hold is dropped.
void copy_constant_into_il(const a_constant *from, a_constant *to) {
  *to = *from;
  to->next_in_list = nullptr;
  to->trans_unit_corresp = nullptr;
  if (!in_file_scope_region(to)) return;
  if (is_local_entry(to->expr)) to->expr = nullptr;
  if (to->kind == ck_string) to->string_sequence_number = -1;
  if (to->kind == ck_template_param) move_template_expr_to_local_ref(to);
}

bool goes_to_function_region(const a_constant *constant) {
  return !in_file_scope_il_region() && constant->kind != ck_template_param &&
         has_non_file_scope_ref(constant);
}

}  // namespace

a_constant *alloc_unshared_constant_full(const a_constant *constant) {
  a_constant *copy = goes_to_function_region(constant) ? alloc_constant(constant->kind)
                                                       : fs_constant(constant->kind);
  copy_constant_into_il(constant, copy);
  return copy;
}

// ---- Equality and hash -------------------------------------------------------------------------

namespace {

std::uint32_t hash_bytes(std::uint32_t hash, const char *text, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i)
    hash = hash * 33 + static_cast<unsigned char>(text[i]);
  return hash;
}

std::uint32_t hash_name(const a_source_correspondence *corresp) {
  if (corresp == nullptr || corresp->name == nullptr) return 0;
  return hash_bytes(0, corresp->name, std::strlen(corresp->name));
}

// Many local entities have one name ("static int count" in each function): the place tells them
// apart.
std::uint32_t hash_entity(const a_source_correspondence *corresp) {
  if (corresp == nullptr) return 0;
  const a_source_position &position = corresp->decl_position;
  return hash_name(corresp) + position.seq * 0x9E3779B1u + position.column;
}

std::uint32_t hash_address(const a_constant *constant) {
  std::uint32_t hash = 0;
  switch (constant->address_kind) {
    case abk_routine:
      hash = hash_entity(constant->address_routine);
      break;
    case abk_variable:
      hash = hash_entity(constant->address_variable);
      break;
    case abk_label:
      hash = hash_entity(constant->address_label);
      break;
    case abk_typeinfo:
      hash = hash_name(constant->address_type);
      break;
    case abk_constant:
    case abk_temporary_constant:
      hash = constant->address_constant->name != nullptr
                 ? hash_name(constant->address_constant)
                 : hash_constant(constant->address_constant);
      break;
    default:
      break;
  }
  return hash + static_cast<std::uint32_t>(constant->address_offset) + 1000;
}

bool same_fval(const a_constant *a, const a_constant *b, const simul_fval *x, const simul_fval *y) {
  static_cast<void>(b);
  const a_type *type = a->type != nullptr ? skip_typerefs(a->type) : nullptr;
  const bool has_kind = type != nullptr && type->kind >= tk_float && type->kind <= tk_complex;
  return fp_same_representation(has_kind ? type->float_kind : fk_long_double, x, y);
}

bool same_subobject_path(const a_subobject_path *a, const a_subobject_path *b) {
  for (; a != nullptr && b != nullptr; a = a->next, b = b->next) {
    if (a->kind != b->kind || a->index != b->index) return false;
  }
  return a == b;
}

bool same_address(const a_constant *a, const a_constant *b, int flags) {
  if (a->address_kind != b->address_kind || a->address_offset != b->address_offset) return false;
  if (!same_subobject_path(a->subobject_path, b->subobject_path)) return false;
  if (a->address_target == b->address_target) return true;
  switch (a->address_kind) {
    case abk_constant:
    case abk_temporary_constant:
      return compare_constants(a->address_constant, b->address_constant, flags);
    case abk_typeinfo:
      return identical_types(a->address_type, b->address_type);
    default:
      return false;
  }
}

bool same_ptr_to_member(const a_constant *a, const a_constant *b) {
  return a->pm_base_class == b->pm_base_class && a->pm_is_null == b->pm_is_null &&
         a->pm_is_function == b->pm_is_function && a->pm_field == b->pm_field;
}

bool same_elements(const a_constant *a, const a_constant *b, int flags) {
  for (; a != nullptr && b != nullptr; a = a->next_in_list, b = b->next_in_list) {
    if (!compare_constants(a, b, flags)) return false;
  }
  return a == b;
}

bool same_template_param(const a_constant *a, const a_constant *b, int flags) {
  if (a->template_kind != b->template_kind) return false;
  switch (a->template_kind) {
    case tpck_param:
      return a->param_coordinate.level == b->param_coordinate.level &&
             a->param_coordinate.position == b->param_coordinate.position;
    case tpck_address:
    case tpck_cast:
      return compare_constants(a->param_constant, b->param_constant, flags);
    default:
      return a->param_type == b->param_type && a->param_operand_expr == b->param_operand_expr;
  }
}

bool same_value(const a_constant *a, const a_constant *b, int flags) {
  switch (a->kind) {
    case ck_error:
      return true;
    case ck_integer:
      return a->integer_value == b->integer_value;
    case ck_string:
      return a->string_char_kind == b->string_char_kind && a->string_length == b->string_length &&
             std::memcmp(a->string_text, b->string_text, a->string_length) == 0;
    case ck_float:
    case ck_imaginary:
      return same_fval(a, b, &a->float_value, &b->float_value);
    case ck_complex:
      return same_fval(a, b, &a->complex_value->real_part, &b->complex_value->real_part) &&
             same_fval(a, b, &a->complex_value->imag_part, &b->complex_value->imag_part);
    case ck_address:
      return same_address(a, b, flags);
    case ck_ptr_to_member:
      return same_ptr_to_member(a, b);
    case ck_address_difference:
      return compare_constants(a->difference_from, b->difference_from, flags) &&
             compare_constants(a->difference_subtract, b->difference_subtract, flags);
    case ck_dynamic_init:
      return a->dynamic_init == b->dynamic_init;
    case ck_aggregate:
      return same_elements(a->first_element, b->first_element, flags);
    case ck_repeat:
      return a->repeat_count == b->repeat_count &&
             compare_constants(a->repeat_element, b->repeat_element, flags);
    case ck_template_param:
      return same_template_param(a, b, flags);
    default:
      return false;
  }
}

bool same_marks(const a_constant *a, const a_constant *b) {
  return a->came_from_cast == b->came_from_cast && a->explicit_cast == b->explicit_cast &&
         a->not_a_constant_expression == b->not_a_constant_expression &&
         a->is_weak_addr == b->is_weak_addr && a->is_function_name == b->is_function_name &&
         a->is_char_literal == b->is_char_literal && a->is_literal == b->is_literal &&
         a->orig_type == b->orig_type && a->symbol == b->symbol;
}

}  // namespace

bool compare_constants(const a_constant *a, const a_constant *b, int flags) {
  if (a == b) return true;
  if (a->kind != b->kind) return false;
  if (a->kind == ck_integer && a->integer_value != b->integer_value) return false;
  if ((flags & ccf_exact) != 0 && !same_marks(a, b)) return false;
  if (a->type != b->type &&
      (a->type == nullptr || b->type == nullptr || !identical_types(a->type, b->type)))
    return false;
  return same_value(a, b, flags);
}

std::uint32_t hash_constant(const a_constant *constant) {
  switch (constant->kind) {
    case ck_integer:
      return static_cast<std::uint32_t>(constant->integer_value ^ (constant->integer_value >> 32));
    case ck_string:
      return hash_bytes(constant->string_char_kind + 100u, constant->string_text,
                        constant->string_length);
    case ck_float:
    case ck_imaginary:
      return fp_hash(&constant->float_value) + 500;
    case ck_complex:
      return fp_hash(&constant->complex_value->real_part) +
             fp_hash(&constant->complex_value->imag_part) + 250;
    case ck_address:
      return hash_address(constant);
    case ck_ptr_to_member:
      return constant->pm_is_function ? hash_name(constant->pm_routine)
                                      : hash_name(constant->pm_field);
    case ck_address_difference:
      return hash_constant(constant->difference_from) +
             hash_constant(constant->difference_subtract);
    default:
      return 0;
  }
}

// ---- Sharing -----------------------------------------------------------------------------------

namespace {

bool is_string_or_its_address(const a_constant *constant) {
  if (constant->kind == ck_string) return true;
  return constant->kind == ck_address && constant->address_kind == abk_constant &&
         constant->address_constant->kind == ck_string;
}

bool may_be_shared(const a_constant *constant) {
  if (!in_front_end) return false;
  if (constant->symbol != nullptr && !constant->shareable) return false;
  if (constant->expr != nullptr || !is_null_position(constant->decl_position)) return false;
  switch (constant->kind) {
    case ck_address:
      return constant->address_offset == 0;
    case ck_ptr_to_member:
      return constant->pm_base_class == nullptr;
    case ck_string:
      return string_literals_shared;
    case ck_dynamic_init:
    case ck_aggregate:
    case ck_repeat:
    case ck_template_param:
    case ck_designator:
      return false;
    default:
      return true;
  }
}

a_constant **alloc_chains(std::size_t count) {
  const std::size_t bytes = count * sizeof(a_constant *);
  void *block = alloc_general(bytes);
  std::memset(block, 0, bytes);
  return static_cast<a_constant **>(block);
}

a_shared_constants *alloc_table(std::size_t size) {
  auto *table = static_cast<a_shared_constants *>(alloc_general(sizeof(a_shared_constants)));
  *table = {alloc_chains(size), size, 0};
  return table;
}

a_constant **chain_in_table(a_shared_constants *table, const a_constant *constant) {
  return &table->chains[hash_constant(constant) % table->size];
}

void grow_table(a_shared_constants *table) {
  a_shared_constants grown = {nullptr, table->size * 4 + 3, table->count};
  grown.chains = alloc_chains(grown.size);
  for (std::size_t i = 0; i < table->size; ++i) {
    a_constant *next;
    for (a_constant *entry = table->chains[i]; entry != nullptr; entry = next) {
      next = entry->next_in_list;
      a_constant **chain = chain_in_table(&grown, entry);
      entry->next_in_list = *chain;
      *chain = entry;
    }
  }
  free_general(table->chains, table->size * sizeof(a_constant *));
  *table = grown;
}

a_shared_constants *table_for_constant(bool local) {
  a_shared_constants *&table =
      local ? scope_stack[depth_innermost_function_scope].function_shareable_constants
            : shareable_constants_table;
  if (table == nullptr)
    table = alloc_table(local ? size_of_func_shareable_table : size_of_shareable_table);
  else if (table->count > 2 * table->size)
    grow_table(table);
  return table;
}

// A hit moves to the front.
a_constant *find_in_chain(a_constant **chain, const a_constant *constant) {
  for (a_constant **link = chain; *link != nullptr; link = &(*link)->next_in_list) {
    a_constant *entry = *link;
    if (!compare_constants(entry, constant, ccf_exact)) continue;
    if (link != chain) {
      *link = entry->next_in_list;
      entry->next_in_list = *chain;
      *chain = entry;
    }
    return entry;
  }
  return nullptr;
}

void free_table(a_shared_constants **place) {
  a_shared_constants *table = *place;
  if (table == nullptr) return;
  for (std::size_t i = 0; i < table->size; ++i) {
    a_constant *next;
    for (a_constant *entry = table->chains[i]; entry != nullptr; entry = next) {
      next = entry->next_in_list;
      entry->next_in_list = nullptr;
    }
  }
  free_general(table->chains, table->size * sizeof(a_constant *));
  free_general(table, sizeof(a_shared_constants));
  *place = nullptr;
}

}  // namespace

a_constant *alloc_shareable_constant(const a_constant *constant) {
  if (!may_be_shared(constant)) return alloc_unshared_constant_full(constant);
  const bool local = depth_innermost_function_scope >= 0 && goes_to_function_region(constant);
  a_shared_constants *table = table_for_constant(local);
  a_constant **chain = chain_in_table(table, constant);
  a_constant *result = find_in_chain(chain, constant);
  if (result != nullptr) return result;
  result = local ? alloc_constant(constant->kind) : fs_constant(constant->kind);
  copy_constant_into_il(constant, result);
  result->shareable = true;
  if (!string_literals_shared && is_string_or_its_address(constant)) return result;
  result->next_in_list = *chain;
  *chain = result;
  ++table->count;
  return result;
}

void empty_shareable_constants_table() {
  free_table(&shareable_constants_table);
}

void empty_func_shareable_constants_table(a_scope_stack_entry *entry) {
  free_table(&entry->function_shareable_constants);
}

void il_constants_one_time_init() {
  register_trans_unit_variable(&shareable_constants_table);
}

void il_constants_trans_unit_init() {
  shareable_constants_table = nullptr;
}
