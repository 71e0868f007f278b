// What the front end knows of the ARM target beyond sizes and macros: small hooks called by name
// (TRG_...), the check of calls of intrinsics, and the float forms of math functions.
#ifndef TARGET_ARM_UTIL_H
#define TARGET_ARM_UTIL_H

#include <cstdint>

#include "il/il_fwd.h"
#include "il/il_kinds.h"

class SYMTAB;

// The target as the generator asks it.
class TARGET {
 public:
  virtual ~TARGET() = default;
  // May this call of a builtin stay one? False, after a message: it is a call of a function of that
  // name.
  virtual bool ok_to_dump_as_builtin(an_expr_node *call, a_scope *scope);
};
class ARM_TARGET final : public TARGET {
 public:
  bool ok_to_dump_as_builtin(an_expr_node *call, a_scope *scope) override;
};
extern TARGET *target;

// Checks of the arguments of a call; arguments count from 1. Each reports and says whether all is
// well.
bool check_ucst(an_expr_node *call, int argument_number, std::uint64_t maximum,
                std::uint64_t multiple);
bool check_lit(an_expr_node *call, int argument_number);
bool check_constrange(an_expr_node *call);
void issue_error_for_non_immediate_arg(an_expr_node *call, an_expr_node *argument);

extern bool always_inline_funcs;                 // #pragma ALWAYS_INLINE: of the whole file
bool is_software_interrupt(a_routine *routine);  // #pragma INTERRUPT(f, SWI)

// A name that an older tool chain knew as an intrinsic: reports its replacement and answers false.
bool TRG_func_check_ok(const char *name, const struct a_source_position *position);
// Checks a routine that is defined in this file when its symbol is made.
void TRG_func_transform(a_routine *routine, SYMTAB *symtab);
void TRG_sym_transform(a_variable *variable, SYMTAB *symtab);
const char *TRG_fname_transform(const char *name);
// Variables that name control registers (none) and general registers.
bool TRG_is_creg_name(a_variable *variable, a_symbol *symbol);
bool TRG_is_creg_type(a_variable *variable, a_symbol *symbol);
bool TRG_is_greg_name(a_variable *variable, a_symbol *symbol);
bool TRG_is_greg_type(a_variable *variable, a_symbol *symbol);
bool TRG_legal_membank(a_pending_pragma *pending, a_symbol *symbol, int bank);
int TRG_adjust_membank(a_pending_pragma *pending, a_symbol *symbol, int bank);
void TRG_check_cmd_options();
// Sets the architecture; gives its number.
int TRG_parse_versions(const char *name);
int TRG_top_aryaln(a_type_kind kind);

// The state (32 or 16) that the code of a scope's function is made for.
int code_state_of_scope(a_scope *scope);

// Under relaxed floating point in C: calls of double math functions whose value and arguments are
// float become calls of their float forms, if those are declared. type: that of the expression.
void replace_math_funcs(an_expr_node *expr, a_type *type);
// The float form of a math function of doubles; null: there is none.
const char *lookup_float_math_function(const char *name);

#endif
