// Where the members of a class lie: offsets, bit-fields, sizes and alignments, under both ABIs of
// the target; and the alignments that #pragma pack asks for.
#ifndef SEMANTICS_LAYOUT_H
#define SEMANTICS_LAYOUT_H

#include <cstdint>

#include "il/il_fwd.h"

// ---- State: the pack alignment in force, moved by the pragma and by instantiations --------------

extern std::uint32_t curr_max_member_alignment;  // 0: no pragma is in force

struct a_pack_alignment_state {
  std::uint32_t max_member_alignment;
};

// What limits the alignment of members now: the pragma, or else the command line; 0: nothing does.
std::uint32_t current_max_alignment_for_class_members();
std::uint32_t current_pack_pragma_value();
// Sets the value and gives the old state back for restore_pack_alignment_state.
void reset_pack_alignment_state(std::uint32_t value, a_pack_alignment_state *saved);
void restore_pack_alignment_state(const a_pack_alignment_state *saved);
// Is it a power of two between the limits of the target? Says nothing.
bool check_pack_alignment_value(std::int64_t value);

// ---- Layout ------------------------------------------------------------------------------------

// Sets size and alignment of a class and the place of every member; once, when its definition is
// finished. class_supplement->pragma_pack_alignment must hold the pack alignment in force.
void do_class_layout(a_type *class_type);

// The alignment that a field of this type has.
std::uint32_t field_alignment_for(const a_type *type);
// The alignment of a field, by its type, its attributes and the packing of its class.
std::uint32_t alignment_of_field_full(const a_field *field, const a_type *class_type,
                                      bool for_bit_field_pass);
bool is_empty_class_type(const a_type *type);
// The width of the declared type of a bit-field, in bits.
std::uint32_t bits_of_bit_field_type(const a_type *type);

// ---- Phases ------------------------------------------------------------------------------------

void layout_one_time_init();
void layout_init();
void layout_trans_unit_init();

#endif
