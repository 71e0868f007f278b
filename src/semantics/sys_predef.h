// What the system declares before the first line of a program: predefined macros that tell of the
// target, builtin functions and intrinsics, types that the headers build on.
//
// The rows of the builtins stand in target/builtins.def. A builtin's declaration is made when its
// name is first met (load_matching_builtin_function), so that a compilation pays for those it uses.
#ifndef SEMANTICS_SYS_PREDEF_H
#define SEMANTICS_SYS_PREDEF_H

#include <cstddef>
#include <cstdint>

#include "il/il_fwd.h"

// Macros, through enter_predef_macro; called by init_predefined_macros.
void enter_system_specific_predefined_macros_and_assertions();
void TRG_enter_system_specific_macros();

// Functions and types; called when the file scope has been opened.
void enter_system_specific_predeclared_symbols();

// ---- Builtin functions -------------------------------------------------------------------------

// The numbers of the builtins (special_data.builtin_number of an a_routine): bi_abs for
// __builtin_abs, bi_atomic_load_n, bi_sync_synchronize, qi__sadd for the intrinsic _sadd.
enum a_builtin_function_kind : std::uint16_t {
  bi_none = 0,
#define INTRINSIC(name, id, condition, flags, signature) qi_##name = id,
#define GNU_BUILTIN(name, id, condition, signature) bi_##name = id,
#define ATOMIC_BUILTIN(name, id, condition, signature) bi_atomic_##name = id,
#define SYNC_BUILTIN(name, id, condition, signature) bi_sync_##name = id,
#include "target/builtins.def"
};
// Where a builtin exists.
enum a_builtin_condition : std::uint8_t {
  bc_always,
  bc_not_m0,
  bc_m_profile,  // 6M0, 7M3, 7M4
  bc_delay,      // the M profile and 7R4, 7R5
  bc_v5e,
  bc_v5e_not_m0,
  bc_v5e_not_m3,
  bc_v6,
  bc_v6_not_m0,
  bc_v6_not_m3,
  bc_v6_not_m_profile,
  bc_v7_or_m0,
  bc_vfp,
  bc_vfp_double,  // a unit that knows double precision
  bc_vfp_fpv4,
};
inline constexpr int first_qx_builtin = 3851, last_qx_builtin = 4044;

// Is there a builtin function of this name, in this dialect and for this processor? (__has_builtin)
bool is_builtin_function_name(const char *name, std::size_t length);
// Declares the builtin function of this name at file scope; null when there is none.
a_symbol *load_matching_builtin_function(a_symbol_header *header);
// The builtin number of a routine; 0: an ordinary function.
int builtin_function_number(const a_routine *routine);
bool is_gnu_builtin_function(const a_routine *routine);
bool is_qx_builtin_function(const a_routine *routine);  // an intrinsic of the target
// One instruction of the machine (a row marked M, or an intrinsic without parameters).
bool is_machine_intrinsic(const a_routine *routine);

// The type of va_list: struct __zvn_va_list { void *__ap; }.
a_type *get_default_va_list_type();
bool is_va_list_type(const a_type *type);

void sys_predef_trans_unit_init();

#endif
