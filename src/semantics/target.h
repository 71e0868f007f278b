// The target: sizes, alignments, bit-field rules and floating formats of the processor, as plain
// global parameters (target.def), and the few routines that derive one from another.
//
// The parameters are settled when the command line has been read and never change afterwards; they
// are read directly wherever they are needed.
#ifndef SEMANTICS_TARGET_H
#define SEMANTICS_TARGET_H

#include <cstdint>

// How far a symbol is seen by the dynamic linker.
enum a_symbol_visibility : std::uint8_t {
  svk_unspecified,
  svk_default,
  svk_protected,
  svk_hidden,
  svk_internal,
  svk_extern
};
#include <cstdio>

#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/il_kinds.h"

// What the mode attribute can name.
enum a_machine_mode : std::uint8_t { tmk_none, tmk_QI, tmk_HI, tmk_SI, tmk_DI, tmk_SF, tmk_DF };

#define TARGET_NUMBER(name, value, meaning) extern int name;
#define TARGET_FLAG(name, value, meaning) extern bool name;
#define TARGET_LARGE(name, value, meaning) extern std::uint64_t name;
#define TARGET_KIND(name, value, meaning) extern an_integer_kind name;
#define TARGET_MODE(name, value, meaning) extern a_machine_mode name;
#include "semantics/target.def"

// ---- Fixed after the command line --------------------------------------------------------------

extern bool is_eabi, is_aeabi;          // --abi=eabi
extern const char *vfp_support;         // the floating-point unit, "VFPv2" ...; null: none
extern bool softfp_support;             // floating point by library calls was asked for
extern int target_configuration_index;  // of a named configuration; -1: the built-in one
extern const char *auxiliary_info_dir_name;
extern an_integer_kind plain_char_int_kind;  // of the type that "char" makes
extern int character_size[4];                // bytes, by character kind (a_character_kind)

// ---- Setting the parameters --------------------------------------------------------------------

void set_target_configuration(int index);
int find_target_configuration(const char *name);  // always -1: there are none by name
// Writes the configuration as macro definitions whose names end in _NAME.
void dump_target_configuration(std::FILE *stream, const char *name);

void set_eabi();                   // --abi=eabi and all that goes with it
void reset_internal_type_sizes();  // what depends on the ABI
void set_wchar_t_bits(int bits);   // 32, or anything else for 16
void set_long_to_32_bits();
void set_minimum_struct_alignment(int alignment);

// ---- Sizes -------------------------------------------------------------------------------------

// Bytes, bits of value and alignment of an integer kind.
void get_integer_size_and_alignment(an_integer_kind kind, std::uint64_t *size,
                                    std::uint64_t *precision, std::uint32_t *alignment);
void get_float_size_and_alignment(a_float_kind kind, std::uint64_t *size, std::uint32_t *alignment);
int mantissa_digits_of_float_kind(a_float_kind kind);
int precision_of_integer_kind(an_integer_kind kind);
// The first kind of that size, alignment and signedness; ik_last when there is none. Plain char and
// its signed and unsigned forms count as signed and unsigned char.
an_integer_kind int_kind_for_size_and_alignment(std::uint64_t size, std::uint32_t alignment,
                                                bool is_signed);
an_integer_kind int_kind_for_bit_size(int bits, bool is_signed);
std::uint64_t size_of_pointer_to(const a_type *pointed_to, std::uint32_t *alignment);
// The alignment that a variable gets for its type's sake.
std::uint32_t top_level_alignment(const a_variable *variable);

// ---- Phases ------------------------------------------------------------------------------------

void target_early_init();     // the built-in configuration
void target_one_time_init();  // what follows from the command line
void target_init();           // what follows from the dialect

#endif
