// What the rooms of the layout share: the cursor over a class, and the placing of base classes.
#ifndef SEMANTICS_LAYOUT_INTERNAL_H
#define SEMANTICS_LAYOUT_INTERNAL_H

#include <cstdint>

#include "il/il_type.h"

struct a_class_layout_state {
  a_type *class_type;
  const a_field *first_unplaced_field;  // null: all fields have their place
  std::uint64_t next_byte_offset;
  std::uint32_t next_bit_in_byte;
  std::uint32_t alignment_so_far;
  bool too_large_reported;
};

std::uint64_t round_up_to(std::uint64_t value, std::uint64_t unit);
void finish_partial_byte(a_class_layout_state &state);
void raise_class_alignment(a_class_layout_state &state, std::uint32_t alignment);
std::uint64_t allocate_bytes(a_class_layout_state &state, std::uint64_t size,
                             std::uint32_t alignment);

// ---- layout_bases.cpp --------------------------------------------------------------------------

bool bases_are_empty(const a_type *class_type);
// The virtual table pointer and the direct non-virtual bases.
void place_direct_bases(a_class_layout_state &state);
void place_virtual_bases(a_class_layout_state &state);
// As allocate_bytes, but no empty subobject of `type` comes to lie on another one of its type.
std::uint64_t allocate_class_without_conflict(a_class_layout_state &state, const a_type *type,
                                              std::uint64_t size, std::uint32_t alignment);

#endif
