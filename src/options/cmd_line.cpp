// Reading the words of the command line: names, abbreviations, groups of letters, arguments and
// command files; and the steps around it. What an option does stands in cmd_line_handlers.cpp, how
// the dialect settles the rest in cmd_line_dialect.cpp.
#include "options/cmd_line.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "DIAG/error.h"
#include "UTIL/cmdfile.h"
#include "driver/cfe.h"
#include "driver/host_envir.h"
#include "driver/switches.h"
#include "il/src_seq.h"
#include "options/cmd_line_internal.h"
#include "target/misra.h"

const char **shell_opts = nullptr;
std::vector<OPTION_SET> icode_optlist;

bool option_seen[num_option_ids];
const char *curr_option_argument = nullptr;
bool dialect_fixed = false;
const char *raw_listing_file_name = nullptr;
const char *xref_file_name = nullptr;
const char *error_file_name = nullptr;
bool system_path_boundary_seen = false;

namespace {

struct an_option {
  an_option_id id;
  const char *name;
  char letter;  // 0: none
  int value;
  bool takes_argument;
  bool accepted;
  an_option_handler handler;
};

// The routine of an option that only gives a switch a value.
template <bool *VARIABLE, bool VALUE>
void set_flag_variable(int) {
  *VARIABLE = VALUE;
}

constexpr an_option option_table[] = {
#define OPTION(id, name, letter, value, takes_argument, accepted, handler) \
  {opt_##id, name, letter, value, takes_argument, accepted, handler},
#define FLAG_OPTION(id, name, letter, value, variable) \
  {opt_##id, name, letter, value, false, true, set_flag_variable<&variable, value != 0>},
#include "options/options.def"
};
static_assert(sizeof option_table / sizeof *option_table == 343);

int arg_index = 0;
const char *rest_of_group = nullptr;  // letters that follow in the same word; null: none
std::FILE *command_file = nullptr;

[[noreturn]] void invalid_option(const char *word) {
  str_command_line_error(ec_cl_invalid_option, word);
}

const an_option *find_by_letter(char letter) {
  for (const an_option &option : option_table)
    if (option.letter == letter && letter != 0) return &option;
  return nullptr;
}

// The option of a long name: an exact match, else the only one that the text abbreviates.
const an_option *find_by_name(const char *text, std::size_t length, const char *word) {
  const an_option *match = nullptr;
  int matches = 0;
  for (const an_option &option : option_table) {
    if (std::strncmp(option.name, text, length) != 0) continue;
    if (option.name[length] == '\0') return &option;
    if (matches++ == 0) match = &option;
  }
  if (matches == 0) invalid_option(word);
  if (matches == 1) return match;
  static char abbreviation[256];
  std::snprintf(abbreviation, sizeof abbreviation, "%.*s", static_cast<int>(length), text);
  a_diagnostic *d = start_command_line_error(ec_cl_ambiguous_option);
  add_string_argument(d, abbreviation);
  for (const an_option &option : option_table)
    if (std::strncmp(option.name, text, length) == 0) str_add_diag_info(d, ect_978, option.name);
  end_command_line_error(d);
}

void run_option(const an_option *option) {
  option->handler(option->value);
  curr_option_argument = nullptr;
}

// --name, --name=value: without "=" an argument is the next word.
void scan_long_option(const char *word) {
  const char *text = word + 2;
  const char *equals = std::strchr(text, '=');
  std::size_t length =
      equals != nullptr ? static_cast<std::size_t>(equals - text) : std::strlen(text);
  if (length == 0) invalid_option(word);
  const an_option *option = find_by_name(text, length, word);
  option_seen[option->id] = true;
  if (!option->accepted) invalid_option(word);
  if (!option->takes_argument) {
    if (equals != nullptr) invalid_option(word);
  } else if (equals != nullptr) {
    bool may_be_empty = option->id == opt_error_limit || option->id == opt_pack_alignment ||
                        option->id == opt_context_limit ||
                        option->id == opt_pending_instantiations || option->id == opt_clang_version;
    if (equals[1] == '\0' && !may_be_empty) invalid_option(word);
    curr_option_argument = equals + 1;
  } else {
    curr_option_argument = next_word();
    if (curr_option_argument == nullptr) str_command_line_error(ec_cl_missing_argument, word);
  }
  run_option(option);
}

// -x, -xvalue, -xyz: letters without an argument can stand together.
void scan_letter(const char *letters) {
  static char word[3] = "-?";
  word[1] = *letters;
  const an_option *option = find_by_letter(*letters);
  if (option == nullptr) invalid_option(word);
  option_seen[option->id] = true;
  if (!option->accepted) invalid_option(word);
  const char *rest = letters + 1;
  rest_of_group = nullptr;
  if (!option->takes_argument) {
    if (*rest != '\0') rest_of_group = rest;
  } else {
    curr_option_argument = *rest != '\0' ? rest : next_word();
    if (curr_option_argument == nullptr) invalid_option(word);
  }
  run_option(option);
}

// Reads options up to the source name, or up to the end.
void parse_options() {
  for (;;) {
    if (rest_of_group != nullptr) {
      scan_letter(rest_of_group);
      continue;
    }
    const char *word = next_word();
    if (word == nullptr) return;
    while (*word == ' ' || (*word >= '\t' && *word <= '\r'))
      word++;
    if (*word != '-') {
      primary_source_file_name = word;
      return;
    }
    if (word[1] == '\0') invalid_option(word);
    if (word[1] == '-')
      scan_long_option(word);
    else
      scan_letter(word + 1);
  }
}

// Severities of some messages differ in this tool from what their reports say.
void set_severities_of_tool() {
  static constexpr struct {
    an_error_code code;
    an_error_severity severity;
  } changes[] = {
      {ec_implicit_func_decl, es_warning},
      {ec_std_attributes_is_cpp11, es_none},
      {ec_ilp64_will_narrow, es_remark},
      {ec_impl_narrowing_64_bit_int, es_none},
      {ec_expl_narrowing_64_bit_int, es_none},
      {ec_pointer_conversion_to_same_size_int, es_none},
      {ec_microsoft_ptr_sign_extension, es_remark},
      {ec_known_comparison_with_null, es_none},
  };
  for (const auto &change : changes)
    set_severity_for_error_number(change.code, change.severity, nullptr, true);
}

}  // namespace

const char *next_word() {
  // Options point into the words of command files until the process ends.
  static auto *words = new std::vector<const char *>;
  while (command_file != nullptr) {
    if (const char *word = fnextopt(command_file)) {
      words->push_back(word);
      return word;
    }
    std::fclose(command_file);
    command_file = nullptr;
  }
  return arg_index < sys_argc ? sys_argv[arg_index++] : nullptr;
}

void open_command_file(const char *name) {
  if (command_file != nullptr) str_command_line_error(ec_cl_cmd_file_in_use, name);
  command_file = std::fopen(name, "r");
  struct stat status;
  if (command_file != nullptr && fstat(fileno(command_file), &status) == 0 &&
      S_ISDIR(status.st_mode)) {
    std::fclose(command_file);
    command_file = nullptr;
    errno = EISDIR;
  }
  if (command_file != nullptr) return;
  std::string place_and_reason = std::string("'") + name + "': " + std::strerror(errno);
  str_command_line_error(ec_cl_cannot_open_cmd_file, place_and_reason.c_str());
}

std::int64_t decimal_argument() {
  std::int64_t value = 0;
  for (const char *c = curr_option_argument; *c != '\0'; c++) {
    if (*c < '0' || *c > '9' || __builtin_mul_overflow(value, 10, &value) ||
        __builtin_add_overflow(value, *c - '0', &value))
      str_command_line_error(ec_cl_invalid_number, curr_option_argument);
  }
  if (*curr_option_argument == '\0') str_command_line_error(ec_cl_invalid_number, "");
  return value;
}

void set_dialect(int dialect) {
  bool was_cplusplus = C_dialect == dialect_cplusplus;
  if (dialect_fixed && was_cplusplus != (dialect == dialect_cplusplus))
    command_line_error(ec_cl_incompatible_language_modes);
  C_dialect = dialect;
  dialect_fixed = true;
}

void cmd_line_early_init() {
  reset_switches();
  include_file_suffixes = "::hpp";
  std::memset(option_seen, 0, sizeof option_seen);
  dialect_fixed = false;
  shell_opts = nullptr;
  icode_optlist.clear();
  raw_listing_file_name = xref_file_name = error_file_name = nullptr;
  system_path_boundary_seen = false;
}

void proc_command_line(int argc, char **argv) {
  sys_argc = argc;
  sys_argv = argv;
  arg_index = 1;
  rest_of_group = nullptr;
  error_position = null_source_position;
  error_position.column = 1;
  set_severities_of_tool();
  strict_ansi_mode = false;
  strict_ansi_error_severity = strict_ansi_discretionary_severity = es_warning;
  add_to_template_search_path(current_directory_name != nullptr ? current_directory_name : "");
  parse_options();
  settle_dialect();
  if (check_misra_c_2004 && some_misra_rule_is_not_checked())
    str_command_line_warning(
        ec_not_supported,
        "the checking of MISRA-C:2004 rules beyond those of tokens, macros and directives is");
}

const char *get_src_file_name() {
  return primary_source_file_name;
}

// An override is one word of options; what does not begin with "-" has no meaning in it.
static OPTION_STATE *reparse(const an_opt_override *override) {
  if (override == nullptr || override->ansi_options == nullptr) return nullptr;
  char **old_argv = sys_argv;
  int old_argc = sys_argc, old_index = arg_index;
  const char *old_source = primary_source_file_name;
  char *words[] = {const_cast<char *>(override->ansi_options)};
  sys_argv = words;
  sys_argc = 1;
  arg_index = 0;
  parse_options();
  sys_argv = old_argv;
  sys_argc = old_argc;
  arg_index = old_index;
  primary_source_file_name = old_source;
  return new OPTION_STATE;
}

OPTION_STATE *process_opt_override(const char *name, const a_source_position *position) {
  return reparse(get_opt_override(name, position));
}

OPTION_STATE *process_opt_override(const a_source_correspondence *entity) {
  return reparse(get_opt_override(entity));
}

bool cmd_line_option_inhibits_gnu_cpp11_extension_warning(int code) {
  switch (code) {
    case 2868:
      return given(opt_lambdas);
    case 2867:
      return given(opt_rvalue_refs);
    case 2870:
      return given(opt_delegating_constructors);
    default:
      return false;
  }
}
