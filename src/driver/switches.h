// The variables that the command line sets: which dialect, which features, which outputs. Settled
// before the first source line is read; read at the point of use everywhere. The table of them, with
// starting values and meanings, is switches.def.
#ifndef DRIVER_SWITCHES_H
#define DRIVER_SWITCHES_H

// Which floating point the code may use.
enum a_legal_float_precision : int { flp_none, flp_all, flp_32_bits, flp_64_bits };
// What a hook at the entry or exit of functions is called with.
enum a_hook_parameter : int { hkp_none, hkp_name, hkp_address };

#define FLAG(name, default, meaning) extern bool name;
#define NUMBER(name, default, meaning) extern int name;
#define TEXT(name, meaning) extern const char *name;
#include "driver/switches.def"

// Values of C_dialect.
enum : int { dialect_standard_c = 0, dialect_pcc = 1, dialect_cplusplus = 2 };
inline bool in_cplusplus() { return C_dialect == dialect_cplusplus; }
inline bool in_pcc_mode() { return C_dialect == dialect_pcc; }
inline bool in_any_cfront_mode() { return cfront_2_1_mode || cfront_3_0_mode; }

// Dialects that the code knows and no option turns on.
inline constexpr bool microsoft_mode = false;
inline constexpr bool microsoft_bugs_mode = false;
inline constexpr bool cppcli_enabled = false;
inline constexpr bool cppcx_enabled = false;
inline constexpr bool fixed_point_enabled = false;
inline constexpr bool implicit_microsoft_cpp11_mode = false;

// Gives every switch its starting value.
void reset_switches();

#endif
