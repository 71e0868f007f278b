// A front end that is ready to read its first token: every module is initialised by the driver's
// own table, for a unit of C with GNU extensions that no file belongs to.
#ifndef UNIT_FRONT_END_START_H
#define UNIT_FRONT_END_START_H

#include <deque>
#include <sstream>
#include <string>
#include <vector>

#include "driver/fe_init.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "options/cmd_line.h"

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

// A front end as the command line sets it.
inline void start_front_end_with_options(const std::string &options) {
  static std::deque<std::vector<std::string>> kept;  // the options point into their words
  std::vector<std::string> &words = kept.emplace_back();
  words = {"qxparse"};
  std::istringstream stream(options + " none.c");
  for (std::string word; stream >> word;)
    words.push_back(word);
  std::vector<char *> arguments;
  for (std::string &word : words)
    arguments.push_back(word.data());
  arguments.push_back(nullptr);
  fe_early_init();
  proc_command_line(static_cast<int>(words.size()), arguments.data());
  fe_one_time_init();
  begin_translation_unit("none.c", 1, nullptr);
}

inline void end_front_end() {
  in_front_end = false;
  free_all_memory_regions();
}

#endif
