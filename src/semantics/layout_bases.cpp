// Base classes in the layout of a class.
//
// A primary base shares its virtual table pointer with the class and lies at offset 0; the other
// direct bases follow in order, each with its size without virtual bases, so that what follows lies
// in its tail padding. An empty base takes no room of its own, but two objects of one type never
// share an address:
//
//     struct E {}; struct A : E {}; struct B : E, A {};     // A moves to offset 1
//
// To see that, the empty subobjects of the class built so far are walked and compared with those of
// the newcomer. Only offsets up to the highest empty subobject need to be looked at.
#include "semantics/layout.h"
#include "semantics/layout_internal.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

std::uint64_t nonvirtual_size(const a_type *base) {
  return is_empty_class_type(base) ? 0 : base->class_supplement->size_without_virtual_bases;
}

std::uint32_t base_alignment(const a_class_layout_state &state, const a_type *base) {
  std::uint32_t alignment = base->class_supplement->alignment_without_virtual_bases;
  std::uint32_t limit = state.class_type->class_supplement->pragma_pack_alignment;
  return limit != 0 && limit < alignment ? limit : alignment;
}

// Has an object of class `type` an empty subobject of class `empty` at `offset`? Of a class that is
// being laid out only the fields in front of `end` count.
bool has_empty_subobject_at(const a_type *type, const a_type *empty, std::uint64_t offset,
                            bool with_virtual_bases, const a_field *end = nullptr) {
  if (type == empty && offset == 0) return true;
  for (const a_base_class *b = type->class_supplement->base_classes; b != nullptr; b = b->next) {
    bool counts = b->offset_is_set && (b->is_virtual ? with_virtual_bases : b->is_direct);
    if (counts && b->offset <= offset &&
        has_empty_subobject_at(skip_typerefs(b->base_type), empty, offset - b->offset, false))
      return true;
  }
  for (const a_field *field = type->fields; field != end; field = field->next) {
    if (field->is_bit_field || field->offset > offset) continue;
    const a_type *element = skip_typerefs(underlying_array_element_type(field->type));
    if (!is_class_kind(element->kind) || element->size == 0) continue;
    std::uint64_t inner = offset - field->offset;
    if (inner >= skip_typerefs(field->type)->size) continue;
    if (has_empty_subobject_at(element, empty, inner % element->size, true)) return true;
  }
  return false;
}

// Would some empty subobject of `type`, put at `offset`, lie on one of its own type?
bool conflicts_at(const a_class_layout_state &state, const a_type *type, std::uint64_t offset) {
  if (is_empty_class_type(type) &&
      has_empty_subobject_at(state.class_type, type, offset, true, state.first_unplaced_field))
    return true;
  for (const a_base_class *b = type->class_supplement->base_classes; b != nullptr; b = b->next)
    if (b->is_direct && !b->is_virtual && b->offset_is_set &&
        conflicts_at(state, skip_typerefs(b->base_type), offset + b->offset))
      return true;
  for (const a_field *field = type->fields; field != nullptr; field = field->next) {
    const a_type *member = skip_typerefs(field->type);
    if (!field->is_bit_field && is_class_kind(member->kind) &&
        conflicts_at(state, member, offset + field->offset))
      return true;
  }
  return false;
}

// The virtual table pointer is shared with the first direct base that has one.
a_base_class *choose_primary_base(const a_type *type) {
  for (a_base_class *b = type->class_supplement->base_classes; b != nullptr; b = b->next)
    if (b->is_direct && !b->is_virtual && is_polymorphic_class_type(b->base_type)) return b;
  return nullptr;
}

void place_base(a_class_layout_state &state, a_base_class *base) {
  const a_type *type = skip_typerefs(base->base_type);
  std::uint64_t size = nonvirtual_size(type);
  std::uint32_t alignment = base_alignment(state, type);
  if (size != 0 || !targ_optimize_empty_base_class_layout) {
    base->offset = allocate_class_without_conflict(state, type, size, alignment);
  } else {
    std::uint64_t offset = 0;
    while (conflicts_at(state, type, offset))
      offset += alignment;
    base->offset = offset;
    raise_class_alignment(state, alignment);
    if (offset >= state.next_byte_offset) state.next_byte_offset = offset + (offset != 0 ? 1 : 0);
  }
  base->offset_is_set = true;
}

}  // namespace

bool bases_are_empty(const a_type *type) {
  if (type->class_flags.has_virtual_functions || type->class_flags.has_virtual_bases) return false;
  for (const a_base_class *b = type->class_supplement->base_classes; b != nullptr; b = b->next)
    if (b->is_direct && !is_empty_class_type(b->base_type)) return false;
  return true;
}

std::uint64_t allocate_class_without_conflict(a_class_layout_state &state, const a_type *type,
                                              std::uint64_t size, std::uint32_t alignment) {
  finish_partial_byte(state);
  std::uint64_t offset = round_up_to(state.next_byte_offset, alignment);
  bool is_union = state.class_type->kind == tk_union;
  while (!is_union && conflicts_at(state, type, offset))
    offset += alignment;
  state.next_byte_offset = offset;
  return allocate_bytes(state, size, alignment);
}

void place_direct_bases(a_class_layout_state &state) {
  a_type *type = state.class_type;
  a_class_type_supplement *supplement = type->class_supplement;
  a_base_class *primary = choose_primary_base(type);
  supplement->primary_base = primary;
  if (primary != nullptr) {
    primary->shares_virtual_pointer = true;
    place_base(state, primary);
  } else if (type->class_flags.has_virtual_functions || type->class_flags.has_virtual_bases) {
    std::uint32_t alignment = static_cast<std::uint32_t>(targ_alignof_virtual_function_info);
    std::uint32_t limit = supplement->pragma_pack_alignment;
    if (limit != 0 && limit < alignment) alignment = limit;
    supplement->vptr_offset = allocate_bytes(
        state, static_cast<std::uint64_t>(targ_sizeof_virtual_function_info), alignment);
    type->class_flags.has_own_vtbl_pointer = true;
  }
  for (a_base_class *b = supplement->base_classes; b != nullptr; b = b->next)
    if (b->is_direct && !b->is_virtual && b != primary) place_base(state, b);
}

void place_virtual_bases(a_class_layout_state &state) {
  for (a_base_class *b = state.class_type->class_supplement->base_classes; b != nullptr;
       b = b->next)
    if (b->is_virtual && !b->offset_is_set) place_base(state, b);
}
