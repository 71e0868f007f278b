// The start of the type system without a parser: memory, target and IL, in C with GNU extensions.
#ifndef UNIT_SEMANTICS_START_H
#define UNIT_SEMANTICS_START_H

#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il.h"
#include "semantics/const_ints.h"
#include "semantics/float_pt.h"
#include "semantics/folding.h"
#include "semantics/layout.h"
#include "semantics/target.h"
#include "semantics/types.h"

// Everything anew; types and constants of an earlier start are dead.
inline void start_semantics(bool eabi) {
  static a_translation_unit unit;
  reset_switches();
  mem_manage_early_init();
  target_early_init();
  types_early_init();
  if (eabi) set_eabi();
  C_dialect = dialect_standard_c;
  gnu_mode = gcc_mode = true;
  targ_little_endian = true;
  target_one_time_init();
  mem_manage_one_time_init();
  mem_manage_init();
  unit = {};
  curr_translation_unit = &unit;
  switch_il_region(primary_file_scope_region);
  il_alloc_one_time_init();
  il_alloc_init();
  il_alloc_trans_unit_init();
  target_init();
  const_ints_init();
  float_pt_init();
  layout_init();
  types_trans_unit_init();
}

#endif
