// The layout of classes.
//
// A cursor of bytes and bits moves over the members in the order of their declaration:
//
//     struct { char c; int a : 5; int b : 28; short s; }     // c at 0, a at 1 (bit 0), b at 4, s
//     at 8
//
// An ordinary member rounds the cursor up to its alignment. A bit-field lies in a container of its
// declared type: it goes where the cursor stands unless it would span more units of the container's
// alignment than the container has; then the cursor is rounded up to that alignment. Packing lowers
// the alignments, and with them the units. In a union the cursor starts again for each member.
//
// The other methods, one class of containers allocated as a whole or fields sorted by size, give
// other offsets than the rest of the tool chain expects.
#include "semantics/layout.h"

#include <initializer_list>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "semantics/layout_internal.h"
#include "semantics/target.h"
#include "semantics/types.h"

std::uint32_t curr_max_member_alignment;

// ---- Packing -----------------------------------------------------------------------------------

std::uint32_t current_max_alignment_for_class_members() {
  return curr_max_member_alignment != 0 ? curr_max_member_alignment
                                        : static_cast<std::uint32_t>(default_max_member_alignment);
}

std::uint32_t current_pack_pragma_value() {
  return curr_max_member_alignment;
}

void reset_pack_alignment_state(std::uint32_t value, a_pack_alignment_state *saved) {
  saved->max_member_alignment = curr_max_member_alignment;
  curr_max_member_alignment = value;
}

void restore_pack_alignment_state(const a_pack_alignment_state *saved) {
  curr_max_member_alignment = saved->max_member_alignment;
}

bool check_pack_alignment_value(std::int64_t value) {
  return value >= targ_minimum_pack_alignment && value <= targ_maximum_pack_alignment &&
         (value & (value - 1)) == 0;
}

// ---- The cursor --------------------------------------------------------------------------------

namespace {

std::uint32_t pack_limit(const a_type *class_type) {
  return class_type->class_supplement->pragma_pack_alignment;  // 0: none
}

void report_too_large(a_class_layout_state &state) {
  if (state.too_large_reported) return;
  state.too_large_reported = true;
  pos_error(in_cplusplus() ? ec_class_too_large : ec_struct_too_large,
            &state.class_type->decl_position);
}

std::uint64_t bit_position(const a_class_layout_state &state) {
  return state.next_byte_offset * static_cast<unsigned>(targ_char_bit) + state.next_bit_in_byte;
}

// Moves the cursor; too far is reported and leaves it where it is.
void set_bit_position(a_class_layout_state &state, std::uint64_t position) {
  unsigned char_bit = static_cast<unsigned>(targ_char_bit);
  if (position / char_bit > targ_max_class_object_size) {
    report_too_large(state);
    return;
  }
  state.next_byte_offset = position / char_bit;
  state.next_bit_in_byte = static_cast<std::uint32_t>(position % char_bit);
}

}  // namespace

std::uint64_t round_up_to(std::uint64_t value, std::uint64_t unit) {
  return unit <= 1 ? value : (value + unit - 1) / unit * unit;
}

void finish_partial_byte(a_class_layout_state &state) {
  set_bit_position(state, round_up_to(bit_position(state), static_cast<unsigned>(targ_char_bit)));
}

void raise_class_alignment(a_class_layout_state &state, std::uint32_t alignment) {
  if (alignment > state.alignment_so_far) state.alignment_so_far = alignment;
}

// Takes a place for `size` bytes and gives its offset.
std::uint64_t allocate_bytes(a_class_layout_state &state, std::uint64_t size,
                             std::uint32_t alignment) {
  finish_partial_byte(state);
  std::uint64_t offset = round_up_to(state.next_byte_offset, alignment);
  raise_class_alignment(state, alignment);
  if (offset > targ_max_class_object_size || size > targ_max_class_object_size - offset) {
    report_too_large(state);
    return offset;
  }
  state.next_byte_offset = offset + size;
  return offset;
}

// ---- Alignments of fields ----------------------------------------------------------------------

std::uint32_t field_alignment_for(const a_type *type) {
  return f_alignment_of_type(type);
}

std::uint32_t bits_of_bit_field_type(const a_type *type) {
  return static_cast<std::uint32_t>(skip_typerefs(type)->size) *
         static_cast<std::uint32_t>(targ_char_bit);
}

namespace {

bool is_packed_field(const a_field *field, const a_type *class_type) {
  return field->is_packed || class_type->is_packed;
}

std::uint32_t limited_by_packing(std::uint32_t alignment, const a_type *class_type) {
  std::uint32_t limit = pack_limit(class_type);
  return limit != 0 && limit < alignment ? limit : alignment;
}

}  // namespace

std::uint32_t alignment_of_field_full(const a_field *field, const a_type *class_type,
                                      bool for_bit_field_pass) {
  std::uint32_t natural = field_alignment_for(field->type);
  if (is_packed_field(field, class_type)) {
    if (field->explicit_alignment != 0) return field->explicit_alignment;
    return for_bit_field_pass ? 0 : 1;
  }
  if (field->explicit_alignment >= natural) return field->explicit_alignment;
  if (field->explicit_alignment != 0 && gnu_mode)
    pos_warning(ec_alignment_reduction_ignored, &field->decl_position);
  return limited_by_packing(natural, class_type);
}

// ---- Bit-fields --------------------------------------------------------------------------------

namespace {

// Where a bit-field may lie: within `size` bits, in units of `alignment` bytes.
struct a_container {
  std::uint32_t bits;
  std::uint32_t alignment;  // 0: wherever the cursor stands
};

a_container container_of_kind(an_integer_kind kind) {
  std::uint64_t size, precision;
  a_container container;
  get_integer_size_and_alignment(kind, &size, &precision, &container.alignment);
  container.bits = static_cast<std::uint32_t>(size) * static_cast<std::uint32_t>(targ_char_bit);
  return container;
}

bool fits_in_unit(const a_class_layout_state &state, const a_field *field, std::uint32_t bits) {
  return bit_position(state) % bits + field->bit_size <= bits;
}

// The smallest unit that still has room where the cursor stands, or the smallest type that holds
// the field at all.
a_container small_container(const a_class_layout_state &state, const a_field *field) {
  if (fits_in_unit(state, field, static_cast<std::uint32_t>(targ_char_bit)))
    return container_of_kind(ik_unsigned_char);
  for (an_integer_kind kind : {ik_unsigned_short, ik_unsigned_int, ik_unsigned_long}) {
    a_container unit = container_of_kind(kind);
    if (unit.bits <= static_cast<std::uint32_t>(targ_max_bit_field_size) &&
        fits_in_unit(state, field, unit.bits))
      return unit;
  }
  for (an_integer_kind kind :
       {ik_unsigned_char, ik_unsigned_short, ik_unsigned_int, ik_unsigned_long}) {
    a_container type = container_of_kind(kind);
    if (field->bit_size <= type.bits) return type;
  }
  return container_of_kind(ik_unsigned_long_long);
}

a_container fixed_container(int bytes) {
  for (an_integer_kind kind : {ik_unsigned_char, ik_unsigned_short, ik_unsigned_int,
                               ik_unsigned_long, ik_unsigned_long_long}) {
    a_container container = container_of_kind(kind);
    if (container.bits == static_cast<std::uint32_t>(bytes * targ_char_bit)) return container;
  }
  return container_of_kind(ik_unsigned_int);
}

a_container container_for(const a_class_layout_state &state, const a_field *field) {
  a_container container;
  if (targ_bit_field_container_size == 0) {
    container = small_container(state, field);
  } else if (targ_bit_field_container_size > 0) {
    container = fixed_container(targ_bit_field_container_size);
  } else {
    container.bits = bits_of_bit_field_type(field->type);
    container.alignment = alignment_of_field_full(field, state.class_type, true);
  }
  if (targ_user_control_of_struct_packing_affects_bit_fields && field->explicit_alignment == 0)
    container.alignment = limited_by_packing(container.alignment, state.class_type);
  return container;
}

void raise_alignment_for_bit_field(a_class_layout_state &state, const a_field *field,
                                   std::uint32_t alignment) {
  if (field->is_unnamed_member && !targ_unnamed_bit_field_affects_struct_alignment) return;
  if (state.class_type->kind == tk_union && !targ_bit_field_affects_union_alignment) return;
  raise_class_alignment(state, alignment);
}

// int : 0;   The next field starts at a boundary of the type, whatever the packing.
void place_zero_width_bit_field(a_class_layout_state &state, a_field *field) {
  std::uint32_t alignment;
  if (targ_zero_width_bit_field_alignment < 0)
    alignment = f_alignment_of_type(field->type);
  else if (targ_zero_width_bit_field_alignment == 0)
    alignment = 1;
  else
    alignment = static_cast<std::uint32_t>(targ_zero_width_bit_field_alignment);
  if (field->explicit_alignment > alignment) alignment = field->explicit_alignment;
  std::uint64_t unit = std::uint64_t{alignment} * static_cast<unsigned>(targ_char_bit);
  set_bit_position(state, round_up_to(bit_position(state), unit));
  field->offset = state.next_byte_offset;
  if (targ_zero_width_bit_field_affects_struct_alignment)
    raise_alignment_for_bit_field(state, field, alignment);
}

// int x : 40;   in C++: the largest integer that fits into the width, and padding behind it.
void place_oversized_bit_field(a_class_layout_state &state, a_field *field) {
  a_container unit = container_of_kind(ik_unsigned_char);
  for (an_integer_kind kind : {ik_unsigned_short, ik_unsigned_int, ik_unsigned_long_long}) {
    a_container next = container_of_kind(kind);
    if (next.bits <= field->bit_size) unit = next;
  }
  std::uint32_t alignment = limited_by_packing(unit.alignment, state.class_type);
  std::uint64_t position =
      round_up_to(bit_position(state), alignment * static_cast<unsigned>(targ_char_bit));
  set_bit_position(state, position);
  field->offset = state.next_byte_offset;
  field->bit_offset = 0;
  set_bit_position(state, position + field->bit_size);
  raise_alignment_for_bit_field(state, field, alignment);
}

// Would the field span more units of the alignment than its container has? Under #pragma pack a
// bit-field goes wherever the cursor stands.
bool crosses_container(const a_class_layout_state &state, std::uint32_t width,
                       const a_container &container) {
  if (pack_limit(state.class_type) != 0) return false;
  std::uint64_t position = bit_position(state);
  std::uint64_t unit = container.alignment * static_cast<unsigned>(targ_char_bit);
  if (unit == 0 || container.bits == 0) return false;
  if (unit > container.bits) unit = container.bits;
  return (position % unit + width + unit - 1) / unit > container.bits / unit;
}

void check_packed_bit_field(const a_field *field) {
  std::uint32_t limit = is_eabi ? 64 : 32;
  if (field->bit_offset + field->bit_size <= limit) return;
  if (field->symbol != nullptr)
    pos_sy_error(ec_attribute_does_not_apply, &field->decl_position, field->symbol);
}

void place_bit_field(a_class_layout_state &state, a_field *field) {
  if (field->bit_size == 0) {
    place_zero_width_bit_field(state, field);
    return;
  }
  if (field->bit_size > bits_of_bit_field_type(field->type) &&
      targ_pad_bit_fields_larger_than_base_type) {
    place_oversized_bit_field(state, field);
    return;
  }
  a_container container = container_for(state, field);
  std::uint64_t unit = container.alignment * static_cast<unsigned>(targ_char_bit);
  std::uint64_t position = bit_position(state);
  bool starts_at_alignment = field->explicit_alignment != 0;
  if (starts_at_alignment || crosses_container(state, field->bit_size, container))
    position = round_up_to(position, unit);
  set_bit_position(state, position);
  field->offset = state.next_byte_offset;
  field->bit_offset = static_cast<std::uint8_t>(state.next_bit_in_byte);
  if (is_packed_field(field, state.class_type)) check_packed_bit_field(field);
  set_bit_position(state, position + field->bit_size);
  raise_alignment_for_bit_field(state, field, container.alignment);
}

// ---- Fields ------------------------------------------------------------------------------------

bool takes_no_room(const a_field *field) {
  return is_flexible_array_type(field->type) || skip_typerefs(field->type)->size == 0;
}

void place_ordinary_field(a_class_layout_state &state, a_field *field) {
  std::uint32_t alignment = alignment_of_field_full(field, state.class_type, false);
  std::uint64_t size = takes_no_room(field) ? 0 : skip_typerefs(field->type)->size;
  if (in_cplusplus() && is_class_struct_union_type(field->type))
    field->offset =
        allocate_class_without_conflict(state, skip_typerefs(field->type), size, alignment);
  else
    field->offset = allocate_bytes(state, size, alignment);
}

void place_field(a_class_layout_state &state, a_field *field) {
  if (is_error_type(field->type)) {
    field->has_error_type = true;
    return;
  }
  set_type_size(skip_typerefs(field->type));
  if (field->is_bit_field)
    place_bit_field(state, field);
  else
    place_ordinary_field(state, field);
}

void place_fields(a_class_layout_state &state) {
  bool is_union = state.class_type->kind == tk_union;
  std::uint64_t union_size = 0;
  for (a_field *field = state.class_type->fields; field != nullptr; field = field->next) {
    state.first_unplaced_field = field;
    if (is_union) set_bit_position(state, 0);
    place_field(state, field);
    if (!is_union) continue;
    finish_partial_byte(state);
    if (state.next_byte_offset > union_size) union_size = state.next_byte_offset;
  }
  if (is_union) state.next_byte_offset = union_size;
  state.first_unplaced_field = nullptr;
}

// ---- Empty classes -----------------------------------------------------------------------------

bool field_makes_class_nonempty(const a_field *field) {
  if (field->is_bit_field) return field->bit_size != 0;
  if (in_cplusplus()) return !(gpp_mode && takes_no_room(field));
  return !(gcc_mode && takes_no_room(field));
}

bool class_is_empty(const a_type *type) {
  for (const a_field *field = type->fields; field != nullptr; field = field->next)
    if (field_makes_class_nonempty(field)) return false;
  return !in_cplusplus() || bases_are_empty(type);
}

}  // namespace

bool is_empty_class_type(const a_type *type) {
  type = skip_typerefs(type);
  return is_class_kind(type->kind) && type->class_flags.is_empty;
}

// ---- A class -----------------------------------------------------------------------------------

namespace {

void close_class(a_class_layout_state &state, std::uint32_t explicit_alignment) {
  a_type *type = state.class_type;
  a_class_type_supplement *supplement = type->class_supplement;
  finish_partial_byte(state);
  if (explicit_alignment > state.alignment_so_far) state.alignment_so_far = explicit_alignment;
  supplement->alignment_without_virtual_bases = state.alignment_so_far;
  supplement->size_without_virtual_bases =
      targ_reuse_tail_padding ? state.next_byte_offset
                              : round_up_to(state.next_byte_offset, state.alignment_so_far);
  if (in_cplusplus()) place_virtual_bases(state);
  type->alignment = state.alignment_so_far;
  type->size = round_up_to(state.next_byte_offset, state.alignment_so_far);
  if (type->size == 0 && in_cplusplus()) type->size = type->alignment;
  if (type->size > targ_max_class_object_size) report_too_large(state);
  type->size_is_set = true;
}

void pack_all_fields(a_type *type) {
  for (a_field *field = type->fields; field != nullptr; field = field->next)
    field->is_packed = true;
}

}  // namespace

void do_class_layout(a_type *type) {
  a_class_flags &flags = type->class_flags;
  if (flags.layout_done || flags.layout_in_progress) return;
  flags.layout_in_progress = true;
  a_class_layout_state state = {};
  state.class_type = type;
  state.first_unplaced_field = type->fields;
  state.alignment_so_far = static_cast<std::uint32_t>(targ_minimum_struct_alignment);
  std::uint32_t explicit_alignment = type->explicit_alignment ? type->alignment : 0;
  if (pack_all_structs) pack_all_fields(type);
  flags.is_empty = class_is_empty(type);
  if (in_cplusplus()) place_direct_bases(state);
  place_fields(state);
  close_class(state, explicit_alignment);
  flags.layout_in_progress = false;
  flags.layout_done = true;
}

// ---- Phases ------------------------------------------------------------------------------------

void layout_one_time_init() {}

void layout_init() {
  curr_max_member_alignment = 0;
}

void layout_trans_unit_init() {
  curr_max_member_alignment = 0;
}
