// The command line: one long list of options in the front end's own vocabulary, given by the
// compiler shell. Reading it sets the variables of driver/switches.h and of the target, and then
// settles the dialect, which decides every switch that no option gave. Any mistake here is a
// command-line error, which ends the run.
#ifndef OPTIONS_CMD_LINE_H
#define OPTIONS_CMD_LINE_H

#include <cstdint>
#include <string>
#include <vector>

#include "ifile/if_util.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"
#include "options/optobj.h"

// Options by id; names that mean two directions of one thing share one.
enum an_option_id : std::uint16_t;

// What replaces options for one function or file.
struct an_opt_override {
  const char *ansi_options = nullptr;  // language options, one word
  const char *opt_options = nullptr;   // of the optimizer
  const char *cg_options = nullptr;    // of the code generator
  std::uint32_t option_set_id = 0;     // 0: the base set
};

// What process_opt_override gives while an override is in force. All settings that can be changed
// this way are read again from the texts, so that it has no state of its own.
class OPTION_STATE {
 public:
  virtual ~OPTION_STATE() = default;
  virtual void save_state() {}
  virtual void restore_state() {}
  virtual void reset_state() {}
};

// ---- Fixed after the command line --------------------------------------------------------------

extern const char **shell_opts;                // of the shell, null-terminated; null: none
extern std::vector<OPTION_SET> icode_optlist;  // the base set first

// ---- Routines ----------------------------------------------------------------------------------

void cmd_line_early_init();
void proc_command_line(int argc, char **argv);
const char *get_src_file_name();  // the primary source name, null before it is read

// The override of a key, made when create is set; null: there is none.
an_opt_override *lookup_opt_override(const std::string &key, bool create);
// The override of a function of a file, by name and the file of its position; a null name asks for
// the one of the whole file.
an_opt_override *get_opt_override(const char *name, const a_source_position *position);
an_opt_override *get_opt_override(const a_source_correspondence *entity);
// Gives a function the options of a text besides those that it has already, as a new set of the
// intermediate file. Stops at a word that is refused, which *refused becomes, and changes nothing
// then. There must be a base set.
an_option_verdict add_function_options(const char *name, const a_source_position *position,
                                       const char *text, std::string *refused);
// Puts the language options of an override in force. The caller deletes the result; null: none.
OPTION_STATE *process_opt_override(const char *name, const a_source_position *position);
OPTION_STATE *process_opt_override(const a_source_correspondence *entity);

// True if the option that turns on the feature of a GNU C++11 warning was given.
bool cmd_line_option_inhibits_gnu_cpp11_extension_warning(int code);

#endif
