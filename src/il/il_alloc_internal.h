// What the rooms of the allocator share: cleared records in a region, and the variant part of
// types.
#ifndef IL_IL_ALLOC_INTERNAL_H
#define IL_IL_ALLOC_INTERNAL_H

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "il/il_alloc.h"

template <class T>
inline T *clear_record(T *record) {
  static_assert(std::is_trivially_copyable_v<T>);
  std::memset(static_cast<void *>(record), 0, sizeof(T));
  return record;
}

template <class T>
inline T *alloc_record() {  // in the current region
  return clear_record(static_cast<T *>(alloc_in_current_il_region(sizeof(T))));
}
template <class T>
inline T *alloc_fs_record() {
  return clear_record(static_cast<T *>(alloc_il(sizeof(T))));
}

// With a copy of the template of heads.
template <class T>
inline T *set_head(T *record) {
  static_cast<a_source_correspondence &>(*record) = source_corresp_template;
  return record;
}
template <class T>
inline T *alloc_record_with_head() {
  return set_head(alloc_record<T>());
}
template <class T>
inline T *alloc_fs_record_with_head() {
  return set_head(alloc_fs_record<T>());
}

// The tails of the lists of a scope that is on the scope stack; null: it is not.
a_scope_pointers_block *open_pointers_of(a_scope *scope);

void il_constants_one_time_init();
void il_constants_trans_unit_init();

inline void clear_bytes(void *start, const void *end) {
  std::memset(
      start, 0,
      static_cast<std::size_t>(static_cast<const char *>(end) - static_cast<char *>(start)));
}
// The parts that the kind decides.
inline void clear_type_variant(a_type *type) {
  clear_bytes(&type->enum_supplement, &type->precision);
}
inline void clear_constant_variant(a_constant *constant) {
  clear_bytes(&constant->integer_value, constant + 1);
}
inline void clear_expr_node_variant(an_expr_node *node) {
  clear_bytes(&node->operands, node + 1);
}
inline void clear_statement_variant(a_statement *statement) {
  clear_bytes(&statement->then_stmt, &statement->lowering_link);
}

#endif
