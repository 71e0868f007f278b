// What the rooms of the command line share.
#ifndef OPTIONS_CMD_LINE_INTERNAL_H
#define OPTIONS_CMD_LINE_INTERNAL_H

#include <cstdint>

#include "options/cmd_line.h"

enum an_option_id : std::uint16_t {
  opt_none,
#define OPTION_ID(id) opt_##id,
#include "options/option_ids.def"
  num_option_ids
};

// Which options were given, whatever their value: an explicit option is never changed by the
// dialect.
extern bool option_seen[num_option_ids];
inline bool given(an_option_id id) {
  return option_seen[id];
}

// The argument of the option in hand; null when it takes none.
extern const char *curr_option_argument;
// Set when any option has chosen the dialect.
extern bool dialect_fixed;

// Files named by options and opened when the line is read.
extern const char *raw_listing_file_name;
extern const char *xref_file_name;
extern const char *error_file_name;
// The entry of the include path behind which -I- put the boundary; null: not given.
extern bool system_path_boundary_seen;

// The next whole word of the command file or of argv; null at the end.
const char *next_word();
// A command file takes the place of argv until its end.
void open_command_file(const char *name);

// The argument as a decimal number; anything else is a command-line error.
std::int64_t decimal_argument();
// Chooses the dialect; a conflict with an earlier choice is a command-line error.
void set_dialect(int dialect);

// The routine of each option with an effect of its own; value is that of its row.
using an_option_handler = void (*)(int value);
#define OPTION(id, name, letter, value, takes_argument, accepted, handler) void handler(int);
#define FLAG_OPTION(id, name, letter, value, variable)
#include "options/options.def"

// Settles everything that depends on the dialect, in order. The order counts wherever a later step
// reads what an earlier one set.
void settle_dialect();

#endif
