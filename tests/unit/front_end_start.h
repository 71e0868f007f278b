// A front end that is ready to read its first token: every module is initialised by the driver's
// own table, for a unit of C with GNU extensions that no file belongs to.
#ifndef UNIT_FRONT_END_START_H
#define UNIT_FRONT_END_START_H

#include "driver/fe_init.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"

inline void no_settings() {}

// Everything anew; what an earlier start made is dead. The settings come where the command line
// does.
template <class SETTINGS>
void start_front_end(SETTINGS settings) {
  fe_early_init();
  C_dialect = dialect_standard_c;
  gnu_mode = gcc_mode = true;
  primary_source_file_name = "none.c";
  settings();
  fe_one_time_init();
  begin_translation_unit(primary_source_file_name, 1, nullptr);
}

inline void end_front_end() {
  in_front_end = false;
  free_all_memory_regions();
}

#endif
