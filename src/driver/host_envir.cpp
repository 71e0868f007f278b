// The host: include lists, temporary files, file identities, the id of the translation unit, and
// the end of the process.
#include "driver/host_envir.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "DIAG/error.h"
#include "UTIL/basics.h"
#include "UTIL/filename.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"

std::FILE *f_error = stderr;
std::FILE *f_xref_info = nullptr;
bool in_front_end;
const char *compilation_date_string;
bool host_little_endian = true;
bool use_predefined_macro_file;
const char *current_directory_name = "";

a_directory_name_entry *incl_search_path;
a_directory_name_entry *end_incl_search_path;
a_directory_name_entry *sys_incl_search_path;
a_directory_name_entry *template_search_path;

namespace {

a_directory_name_entry *end_template_search_path;
a_directory_name_entry *avail_directory_name_entries;
const char *module_id;

a_directory_name_entry *alloc_directory_name_entry(const char *name, bool is_system) {
  a_directory_name_entry *entry = avail_directory_name_entries;
  if (entry != nullptr) {
    avail_directory_name_entries = entry->next;
  } else {
    entry = static_cast<a_directory_name_entry *>(alloc_general(sizeof(a_directory_name_entry)));
  }
  entry->name = name;
  entry->is_system = is_system;
  entry->id_is_known = false;
  entry->next = nullptr;
  return entry;
}

void free_directory_name_entry(a_directory_name_entry *entry) {
  entry->next = avail_directory_name_entries;
  avail_directory_name_entries = entry;
}

char *general_copy(const char *text) {
  const std::size_t size = std::strlen(text) + 1;
  return static_cast<char *>(std::memcpy(alloc_general(size), text, size));
}

}  // namespace

// ---- Include lists -----------------------------------------------------------------------------

void add_to_specified_include_search_path(const char *dir, bool is_system,
                                          a_directory_name_entry **head,
                                          a_directory_name_entry **tail) {
  a_directory_name_entry *entry = alloc_directory_name_entry(dir, is_system);
  if (*tail != nullptr) {
    (*tail)->next = entry;
  } else {
    *head = entry;
  }
  *tail = entry;
}

void add_to_include_search_path(const char *dir, bool is_system) {
  add_to_specified_include_search_path(dir, is_system, &incl_search_path, &end_incl_search_path);
  if (is_system && sys_incl_search_path == nullptr) sys_incl_search_path = end_incl_search_path;
}

void add_to_front_of_include_search_path(const char *dir, a_directory_name_entry **head,
                                         a_directory_name_entry **tail) {
  a_directory_name_entry *entry = alloc_directory_name_entry(dir, false);
  entry->next = *head;
  *head = entry;
  if (*tail == nullptr) *tail = entry;
}

void add_to_template_search_path(const char *dir) {
  add_to_specified_include_search_path(dir, false, &template_search_path,
                                       &end_template_search_path);
}

void add_default_include_search_path() {}

void push_primary_include_search_dir(const char *dir, bool is_system) {
  if (!put_dir_of_each_opened_source_file_on_incl_search_path) return;
  if (stack_referenced_include_directories || incl_search_path == nullptr) {
    add_to_front_of_include_search_path(dir, &incl_search_path, &end_incl_search_path);
    incl_search_path->is_system = is_system;
  } else {
    change_primary_include_search_dir(dir);
  }
}

void pop_primary_include_search_dir(const char *dir, bool) {
  if (!put_dir_of_each_opened_source_file_on_incl_search_path) return;
  if (!stack_referenced_include_directories) {
    change_primary_include_search_dir(dir);
    return;
  }
  a_directory_name_entry *entry = incl_search_path;
  check_invariant(entry != nullptr);
  incl_search_path = entry->next;
  if (incl_search_path == nullptr) end_incl_search_path = nullptr;
  free_directory_name_entry(entry);
}

void change_primary_include_search_dir(const char *dir) {
  if (!put_dir_of_each_opened_source_file_on_incl_search_path) return;
  if (incl_search_path == nullptr) return;
  incl_search_path->name = dir;
  incl_search_path->id_is_known = false;
}

// Takes the entry behind `before` (null: the head) out of the include list.
static void remove_include_dir_behind(a_directory_name_entry *before,
                                      a_directory_name_entry **last_user_dir) {
  a_directory_name_entry **link = before != nullptr ? &before->next : &incl_search_path;
  a_directory_name_entry *entry = *link;
  *link = entry->next;
  if (end_incl_search_path == entry) end_incl_search_path = before;
  if (sys_incl_search_path == entry) sys_incl_search_path = entry->next;
  if (last_user_dir != nullptr && *last_user_dir == entry) *last_user_dir = before;
  free_directory_name_entry(entry);
}

// Do the names alone say that it is one directory?
static bool dir_names_agree(const char *a, const char *b) {
  if (std::strcmp(a, b) == 0) return true;
  auto same_as_absolute = [](const char *relative, const char *absolute) {
    const std::size_t length = std::strlen(current_directory_name);
    if (std::strncmp(absolute, current_directory_name, length) != 0) return false;
    absolute += length;
    if (*relative == '\0') return *absolute == '\0';
    return *absolute == '/' && std::strcmp(absolute + 1, relative) == 0;
  };
  const bool absolute_a = is_absolute_file_name(a);
  const bool absolute_b = is_absolute_file_name(b);
  return absolute_a != absolute_b && (absolute_a ? same_as_absolute(b, a) : same_as_absolute(a, b));
}

static void get_id_of_dir(const char *name, a_unique_file_id *id) {
  get_unique_id_for_file(*name != '\0' ? name : ".", id);
}

// Asks the system once for each entry, since every one is compared with all others.
static bool is_same_dir(a_directory_name_entry *a, a_directory_name_entry *b) {
  if (dir_names_agree(a->name, b->name)) return true;
  for (a_directory_name_entry *entry : {a, b}) {
    if (!entry->id_is_known) get_id_of_dir(entry->name, &entry->id);
    entry->id_is_known = true;
  }
  return same_unique_file_ids(&a->id, &b->id);
}

void remove_duplicate_include_dirs(a_directory_name_entry **last_user_dir, bool also_system) {
  a_directory_name_entry *before = nullptr;
  a_directory_name_entry *entry = incl_search_path;
  auto at_stop = [also_system](const a_directory_name_entry *place) {
    return place == nullptr || (!also_system && place == sys_incl_search_path);
  };
  while (!at_stop(entry)) {
    bool entry_goes = false;
    for (a_directory_name_entry *previous = entry; !entry_goes && !at_stop(previous->next);) {
      a_directory_name_entry *later = previous->next;
      if (!is_same_dir(entry, later)) {
        previous = later;
        continue;
      }
      if (entry->is_system != later->is_system) {
        str_command_line_warning(ec_incl_dir_both_sys_and_nonsys, later->name);
        entry_goes = later->is_system;  // of the two, the system entry stays
      }
      if (!entry_goes) remove_include_dir_behind(previous, last_user_dir);
    }
    a_directory_name_entry *next = entry->next;
    if (entry_goes) {
      remove_include_dir_behind(before, last_user_dir);
    } else {
      before = entry;
    }
    entry = next;
  }
}

int compare_dir_names(const char *a, const char *b, bool exact) {
  if (dir_names_agree(a, b)) return 0;
  if (exact) return 1;
  a_unique_file_id id_a, id_b;
  get_id_of_dir(a, &id_a);
  get_id_of_dir(b, &id_b);
  return same_unique_file_ids(&id_a, &id_b) ? 0 : 1;
}

// ---- Files -------------------------------------------------------------------------------------

std::FILE *open_temp_file(bool binary) {
  char *name = fn_tmpnam();
  std::FILE *stream = std::fopen(name, binary ? "w+b" : "w+");
  if (stream == nullptr) {
    str_errno_catastrophe(ec_cannot_open_temp_file_reason, name, errno);
  }
  unlink(name);
  std::free(name);
  return stream;
}

std::size_t get_page_size() {
  return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

void clear_unique_file_id(a_unique_file_id *id) {
  *id = {};
}

void get_unique_id_for_file(const char *name, a_unique_file_id *id) {
  struct stat status;
  clear_unique_file_id(id);
  if (stat(name, &status) != 0) return;
  id->device = static_cast<std::uint64_t>(status.st_dev);
  id->inode = static_cast<std::uint64_t>(status.st_ino);
}

bool same_unique_file_ids(const a_unique_file_id *a, const a_unique_file_id *b) {
  return a->device == b->device && a->inode == b->inode && (a->device != 0 || a->inode != 0);
}

std::size_t hash_unique_file_id(const a_unique_file_id *id) {
  return static_cast<std::size_t>(id->device * 31 + id->inode);
}

namespace {

// A fixed table, since a signal handler reads it: no allocation, no list in the making.
constexpr int max_begun_outputs = 8;
constexpr std::size_t max_output_name = 4096;
char begun_outputs[max_begun_outputs][max_output_name];  // an empty name: a free slot

// Where a name leads to: behind a symbolic link it is the file that must not stay.
bool find_place_of_output(const char *name, char (&place)[max_output_name]) {
  static_assert(max_output_name >= PATH_MAX);
  return realpath(name, place) != nullptr;
}

}  // namespace

void note_begun_output(const char *name) {
  for (auto &slot : begun_outputs) {
    if (slot[0] == '\0') {
      if (!find_place_of_output(name, slot)) slot[0] = '\0';
      return;
    }
  }
  unexpected_state("more outputs at once than the program writes");
}

void forget_begun_output(const char *name) {
  char place[max_output_name];
  if (!find_place_of_output(name, place)) return;
  for (auto &slot : begun_outputs) {
    if (std::strcmp(slot, place) == 0) slot[0] = '\0';
  }
}

void forget_all_begun_outputs() {
  for (auto &slot : begun_outputs)
    slot[0] = '\0';
}

void unlink_begun_outputs() {
  for (auto &slot : begun_outputs) {
    if (slot[0] != '\0') {
      struct stat status;
      if (stat(slot, &status) == 0 && S_ISREG(status.st_mode)) unlink(slot);
      slot[0] = '\0';
    }
  }
}

// ---- The id of the translation unit ------------------------------------------------------------

std::uint32_t crc_32(const char *text, std::uint32_t seed) {
  std::uint32_t crc = ~seed;
  for (; *text != '\0'; ++text) {
    crc ^= static_cast<unsigned char>(*text);
    for (int bit = 0; bit < 8; ++bit)
      crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1)));
  }
  return ~crc;
}

void change_non_id_characters(char *text) {
  for (; *text != '\0'; ++text) {
    const char c = *text;
    const bool plain =
        (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    if (!plain) *text = '_';
  }
}

void set_module_id(const char *id) {
  module_id = id;
}

const char *get_module_id() {
  return module_id;
}

const char *make_module_id(const char *unique_text) {
  if (module_id != nullptr) return module_id;
  const char *source = primary_source_file_name != nullptr ? primary_source_file_name : "";
  const char *base = start_of_file_name(source);
  if (unique_text == nullptr) unique_text = get_file_modification_time_string(source, true);
  if (unique_text == nullptr) unique_text = compilation_date_string;
  if (unique_text == nullptr) unique_text = "";

  a_text_buffer *buffer = alloc_text_buffer(256);
  char number[32];
  std::snprintf(number, sizeof number, "_%lu_", static_cast<unsigned long>(std::strlen(base)));
  f_add_string_to_text_buffer(buffer, number);
  f_add_string_to_text_buffer(buffer, base);
  f_add_string_to_text_buffer(buffer, "_");
  if (std::strlen(unique_text) + 1 + std::strlen(current_directory_name) >= 9) {
    std::uint32_t crc = crc_32(unique_text, 0);
    crc = crc_32("_", crc);
    crc = crc_32(current_directory_name, crc);
    std::snprintf(number, sizeof number, "%08lx", static_cast<unsigned long>(crc));
    f_add_string_to_text_buffer(buffer, number);
  } else {
    f_add_string_to_text_buffer(buffer, unique_text);
    f_add_string_to_text_buffer(buffer, "_");
    f_add_string_to_text_buffer(buffer, current_directory_name);
  }
  char *id = general_copy(text_of_buffer(buffer));
  change_non_id_characters(id);
  module_id = id;
  return id;
}

// ---- Numbers, times, and the end ---------------------------------------------------------------

unsigned long strtoul_interface(const char *text, bool *error) {
  char *end = nullptr;
  errno = 0;
  const unsigned long value = std::strtoul(text, &end, 0);
  *error = errno == ERANGE || errno == EINVAL || end == text || *end != '\0';
  return value;
}

int smemcmp(const void *a, const void *b, std::size_t length) {
  if (a == nullptr || b == nullptr) return (a != nullptr) - (b != nullptr);
  return std::memcmp(a, b, length);
}

void get_timer(a_timer *timer) {
  timer->cpu_time = static_cast<std::uint64_t>(static_cast<double>(std::clock()) * 1000.0 /
                                               static_cast<double>(CLOCKS_PER_SEC));
  timer->wall_time = std::time(nullptr);
}

void display_time_used(const char *label, const a_timer *start, const a_timer *end) {
  std::fprintf(f_error, "%-30s %10.2f (CPU) %10.2f (elapsed)\n", label,
               static_cast<double>(end->cpu_time - start->cpu_time) / 1000.0,
               std::difftime(end->wall_time, start->wall_time));
}

bool in_signal_handler;

void exit_compilation(int severity) {
  int status = 0;
  switch (severity) {
    case es_none:
    case es_remark:
    case es_power_remark:
    case es_warning:
      break;
    case es_error:
      status = 2;
      break;
    case es_catastrophe:
    case es_command_line_error:
      std::fputs("Compilation terminated.\n", f_error);
      status = 4;
      break;
    default:
      unlink_begun_outputs();
      if (severity == es_internal_error) std::fputs("Compilation aborted.\n", f_error);
      std::fflush(f_error);
      std::abort();
  }
  if (in_signal_handler) {
    unlink_begun_outputs();
    std::fflush(f_error);
    std::_Exit(status);
  }
  // What is begun goes away with a failing end, also when it is whole: the listing that cannot be
  // written takes the intermediate file along.
  if (status == 0) forget_all_begun_outputs();
  std::exit(status);
}

// ---- Phases ------------------------------------------------------------------------------------

void host_envir_early_init() {
  C_dialect = dialect_cplusplus;
  host_little_endian = true;
  use_predefined_macro_file = false;
  default_unicode_source_kind = 0;
  in_front_end = false;
  put_dir_of_each_opened_source_file_on_incl_search_path = true;
  stack_referenced_include_directories = false;
  incl_search_path = end_incl_search_path = sys_incl_search_path = nullptr;
  template_search_path = end_template_search_path = nullptr;
  module_id = nullptr;
  static char *working_dir;
  std::free(working_dir);
  current_directory_name = working_dir = fn_get_working_dir();
  const char *base = std::getenv("ZVN_BASE");
  zvn_base_directory = base != nullptr ? base : "";
  std::setlocale(LC_CTYPE, "C");
}

void host_envir_one_time_init() {
  register_trans_unit_variable(&incl_search_path);
  register_trans_unit_variable(&end_incl_search_path);
  register_trans_unit_variable(&sys_incl_search_path);
  register_trans_unit_variable(&template_search_path);
}

void host_envir_init() {}

void host_envir_trans_unit_init() {}
