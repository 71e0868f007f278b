// Floating constants of the target: what the folder and the literal scanner use. Every operation is
// done at 96 bits and rounded through the target's format of its kind, so that a stored value is
// always one that the target can represent.
//
// Of the two status outputs the first says that the result could not be computed or left the range
// of the kind, the second that range was lost on the way; both are cleared first.
#ifndef SEMANTICS_FLOAT_PT_H
#define SEMANTICS_FLOAT_PT_H

#include "UTIL/basics.h"
#include "UTIL/fpsmath.h"
#include "il/il_fwd.h"
#include "il/il_kinds.h"

void float_pt_init();  // once for each compilation

void fp_add(a_float_kind kind, const simul_fval *a, const simul_fval *b, simul_fval *result,
            bool *error, bool *inexact_range);
void fp_subtract(a_float_kind kind, const simul_fval *a, const simul_fval *b, simul_fval *result,
                 bool *error, bool *inexact_range);
void fp_multiply(a_float_kind kind, const simul_fval *a, const simul_fval *b, simul_fval *result,
                 bool *error, bool *inexact_range);
void fp_divide(a_float_kind kind, const simul_fval *a, const simul_fval *b, simul_fval *result,
               bool *error, bool *inexact_range);
void fp_negate(a_float_kind kind, const simul_fval *a, simul_fval *result, bool *error,
               bool *inexact_range);

// -1, 0 or 1; a NaN on either side gives 0 and sets *unordered.
int fp_compare(a_float_kind kind, const simul_fval *a, const simul_fval *b, bool *unordered);
bool fp_is_negative(a_float_kind kind, const simul_fval *v);  // false for a negative zero
bool fp_is_zero_constant(const simul_fval *v);
bool fp_is_nan(const simul_fval *v);
bool fp_is_infinity(const simul_fval *v);
bool fp_is_normalized(const simul_fval *v, a_float_kind kind, bool *error);
bool fp_same_representation(a_float_kind kind, const simul_fval *a, const simul_fval *b);
std::uint32_t fp_hash(const simul_fval *v);

// Rounds a value of one kind through the format of another.
void fp_change_kind(const simul_fval *v, a_float_kind from, simul_fval *result, a_float_kind to,
                    bool *error, bool *range);

// The values of the builtins for NaN, infinity and the huge value (which is infinity).
void make_fp_nan(simul_fval *v, a_float_kind kind, bool is_signalling,
                 a_host_large_integer payload);
void make_fp_infinity(simul_fval *v, a_float_kind kind);
void make_huge_fp_val(simul_fval *v, a_float_kind kind);

// Literals, without suffix and digit separators.
void fp_string_to_float(a_float_kind kind, const char *text, simul_fval *result,
                        bool *out_of_range);
void fp_hex_string_to_float(a_float_kind kind, const char *text, simul_fval *result,
                            bool *out_of_range, bool *inexact);

// The exact hexadecimal text of v, in a static buffer that the next call overwrites.
const char *fp_to_string(a_float_kind kind, const simul_fval *v);

// From integers, rounded through the kind.
void fp_host_large_integer_to_float(a_float_kind kind, std::int64_t value, simul_fval *result,
                                    bool *error);
void conv_integer_value_to_float(a_host_large_integer value, bool is_signed, simul_fval *result,
                                 a_float_kind kind, bool *error);

// To integers: rounds *v through the kind in place, then truncates toward zero.
void fp_to_host_large_integer(a_float_kind kind, simul_fval *v, std::int64_t *value, bool *overflow,
                              bool *unused);
void fp_to_host_large_unsigned(a_float_kind kind, simul_fval *v, a_host_large_integer *value,
                               bool *overflow, bool *unused);

// For a v that does not fit: the maximum of the kind of constant's type, or for a negative v its
// minimum.
void make_saturated_integer_for_float(a_float_kind kind, const simul_fval *v,
                                      a_host_large_integer *value, const a_constant *constant);

// The bit pattern that the target holds for v.
void fp_to_target_format(a_float_kind kind, const simul_fval *v, trg_fval *out);

#endif
