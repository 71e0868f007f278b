// The small hooks of the target, and the names that an older tool chain knew as intrinsics.
#include "target/arm_util.h"

#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "semantics/target.h"
#include "semantics/types.h"
#include "target/arm_arch.h"
#include "target/pragma.h"

bool always_inline_funcs;

namespace {

ARM_TARGET arm_target;

struct a_deprecated_intrinsic {
  const char *name;
  const char *replacement;
};
constexpr char use_wfi[] = "Recommended replacement is __wfi().";
constexpr char write_scr[] = "Recommended to write to SCS_SCR register.";
constexpr char no_replacement[] = "No replacement available.";
constexpr a_deprecated_intrinsic deprecated_intrinsics[] = {
    {"__low_power_mode_0", use_wfi},
    {"__low_power_mode_1", use_wfi},
    {"__low_power_mode_2", use_wfi},
    {"__low_power_mode_3", use_wfi},
    {"__low_power_mode_4", use_wfi},
    {"__swap_bytes", "Possible replacement is __REV16()."},
    {"__bis_SR_register_on_exit", write_scr},
    {"__bic_SR_register_on_exit", write_scr},
    {"__bcd_add_short", no_replacement},
    {"__bcd_add_long", no_replacement},
    {"__bcd_add_long_long", no_replacement},
    {"__even_in_range", no_replacement},
    {"__data16_read_addr", no_replacement},
    {"__data20_read_char", no_replacement},
    {"__data20_read_short", no_replacement},
    {"__data20_read_long", no_replacement},
    {"__data16_write_addr", no_replacement},
    {"__data20_write_char", no_replacement},
    {"__data20_write_short", no_replacement},
    {"__data20_write_long", no_replacement},
    {"__never_executed", no_replacement},
    {"__op_code", no_replacement},
    {"__code_distance", no_replacement},
    {"__get_SR_register", no_replacement},
    {"__bic_SR_register", no_replacement},
    {"__bis_SR_register", no_replacement},
    {"__get_SR_register_on_exit", no_replacement},
};

// The first visible pragma of a kind on a routine; null: none.
const a_pragma *find_routine_pragma(a_routine *routine, a_pragma_kind kind) {
  if (!routine->has_associated_pragma) return nullptr;
  a_pragma *pragma = nullptr;
  while ((pragma = find_assoc_pragma(routine, nullptr, nullptr, pragma)) != nullptr)
    if (pragma->kind == kind && !pragma->hidden) return pragma;
  return nullptr;
}

int code_state_of_routine(a_routine *routine) {
  const a_pragma *pragma = find_routine_pragma(routine, prk_CODE_STATE);
  if (pragma == nullptr || pragma->text == nullptr) return targ_code_state;
  return static_cast<int>(std::strtol(pragma->text, nullptr, 10));
}

}  // namespace

TARGET *target = &arm_target;

int code_state_of_scope(a_scope *scope) {
  while (scope != nullptr && scope->kind != sck_function)
    scope = scope->parent;
  if (scope == nullptr || scope->assoc.routine == nullptr) return targ_code_state;
  return code_state_of_routine(scope->assoc.routine);
}

bool is_software_interrupt(a_routine *routine) {
  const a_pragma *pragma = find_routine_pragma(routine, prk_INTERRUPT);
  return pragma != nullptr && pragma->text != nullptr && std::strcmp(pragma->text, "SWI") == 0;
}

bool TRG_func_check_ok(const char *name, const a_source_position *position) {
  for (const a_deprecated_intrinsic &row : deprecated_intrinsics) {
    if (std::strcmp(row.name, name) != 0) continue;
    pos_st2_warning(ec_func_is_intrinsic_for_another_target, position, row.name, row.replacement);
    return false;
  }
  return true;
}

void TRG_func_transform(a_routine *routine, SYMTAB *) {
  if (routine->storage_class != sc_none && routine->storage_class != sc_static) return;
  if (code_state_of_routine(routine) == 32) return;
  if (arm_arch_types.is_v7_or_higher() || arm_arch_types.is(arch_6M0)) return;
  bool is_interrupt = (routine->decl_modifiers & dm_interrupt) != 0 || routine->is_interrupt ||
                      find_routine_pragma(routine, prk_INTERRUPT) != nullptr;
  if (is_interrupt) pos_error(ec_arm_interrupt_not_allowed, &routine->decl_position);
}

void TRG_sym_transform(a_variable *, SYMTAB *) {}

const char *TRG_fname_transform(const char *name) {
  return name;
}

bool TRG_is_creg_name(a_variable *, a_symbol *) {
  return false;
}

bool TRG_is_creg_type(a_variable *, a_symbol *) {
  return false;
}

bool TRG_is_greg_name(a_variable *variable, a_symbol *) {
  for (const char *name : {"__R9", "__R6", "__R5"})
    if (variable->name != nullptr && std::strcmp(variable->name, name) == 0) return true;
  return false;
}

bool TRG_is_greg_type(a_variable *variable, a_symbol *) {
  return (is_integral_or_enum_type(variable->type) || is_pointer_type(variable->type)) &&
         variable->storage_class != sc_static && variable->storage_class != sc_auto;
}

bool TRG_legal_membank(a_pending_pragma *, a_symbol *, int) {
  return true;
}

int TRG_adjust_membank(a_pending_pragma *, a_symbol *, int bank) {
  return bank;
}

void TRG_check_cmd_options() {}

int TRG_parse_versions(const char *name) {
  arm_arch_types.set(name);
  targ_cpu_version = arm_arch_types.value();
  return targ_cpu_version;
}

int TRG_top_aryaln(a_type_kind) {
  return is_eabi ? 1 : targ_top_aryaln;
}
