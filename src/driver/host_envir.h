// Everything that touches the operating system, but for the opening of source and output files:
// directory lists for includes, file names, temporary files, encodings, the id of the translation
// unit, and the end of the process. Names are POSIX names: parts divided by '/', compared byte for
// byte.
#ifndef DRIVER_HOST_ENVIR_H
#define DRIVER_HOST_ENVIR_H

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ctime>

#include "driver/mem_manage.h"

// Device and inode of a file; both zero when it has no status.
struct a_unique_file_id {
  std::uint64_t device;
  std::uint64_t inode;
};

// One directory of a search list. From general memory; entries taken out of a list are used again.
struct a_directory_name_entry {
  const char *name;
  bool is_system;
  bool id_is_known;  // id was asked for
  a_unique_file_id id;
  a_directory_name_entry *next;
};

struct a_timer {
  std::uint64_t cpu_time;  // milliseconds
  std::time_t wall_time;
};

// A byte source over a UTF-16 file: what is left of the character being handed out as UTF-8.
struct a_getc_source_state {
  unsigned char pending[4];
  int pending_count;
  int pending_next;
  int kind;  // 0 none, 1 UTF-8, 2 UTF-16 little endian, 3 UTF-16 big endian
};

// ---- Fixed after the command line --------------------------------------------------------------

extern std::FILE *f_error;                   // where messages go
extern std::FILE *f_xref_info;               // the cross-reference file; null: none is written
extern bool in_front_end;                    // the front end proper runs
extern const char *compilation_date_string;  // ctime text of the start; null before it
extern bool host_little_endian;
extern bool use_predefined_macro_file;
extern const char *current_directory_name;

// ---- Per translation unit ----------------------------------------------------------------------

extern a_directory_name_entry *incl_search_path;      // searched for "name"
extern a_directory_name_entry *end_incl_search_path;  // its tail
extern a_directory_name_entry *sys_incl_search_path;  // first entry searched for <name>; null: none
extern a_directory_name_entry *template_search_path;

// ---- Include lists -----------------------------------------------------------------------------

void add_to_include_search_path(const char *dir, bool is_system);
void add_to_specified_include_search_path(const char *dir, bool is_system,
                                          a_directory_name_entry **head,
                                          a_directory_name_entry **tail);
void add_to_front_of_include_search_path(const char *dir, a_directory_name_entry **head,
                                         a_directory_name_entry **tail);
void add_to_template_search_path(const char *dir);
void add_default_include_search_path();  // the command line names all directories: adds none

// Keep the head of the list equal to the directory of the file that is read; when includers are
// stacked, the directories of all open files stand in front.
void push_primary_include_search_dir(const char *dir, bool is_system);
void pop_primary_include_search_dir(const char *dir, bool is_system);
void change_primary_include_search_dir(const char *dir);

// Takes out each directory that an earlier entry names too. *last_user_dir, the last entry in front
// of the system part, is kept right; also_system: the system part is gone through too.
void remove_duplicate_include_dirs(a_directory_name_entry **last_user_dir, bool also_system);
// 0 when both names mean the same directory, else 1; exact: only as text.
int compare_dir_names(const char *a, const char *b, bool exact);

// ---- File names --------------------------------------------------------------------------------

const char *start_of_file_name(const char *name);  // behind the last '/'
const char *suffix_of(const char *name);           // from the last '.', or the end
// The directory part, "" without one; the same text for the same directory. general: in general
// memory, else in the permanent region.
const char *f_directory_of(const char *name, bool general);
inline const char *directory_of(const char *name) {
  return f_directory_of(name, false);
}
// The base name with a new suffix and without directory; general memory.
char *derived_name(const char *name, const char *suffix);
void append_to_path_name(a_text_buffer *buffer, const char *name);
// "dir/name", or name alone for an absolute name or an empty dir; a null buffer means a shared one.
const char *combine_dir_and_file_name(const char *dir, const char *name, a_text_buffer *buffer);
void replace_file_name_suffix(const char *suffix, a_text_buffer *buffer);
// Without "./" in front and doubled '/'; the name itself when there is nothing to do.
const char *normalize_file_name(const char *name);
bool is_absolute_file_name(const char *name);
bool change_directory(const char *dir);  // false: it failed
// 0 when both name the same file of the same directory; quoted: both stand in quotes.
int f_compare_file_names(const char *a, const char *b, bool quoted);

void write_file_name_to_text_buffer(const char *name, a_text_buffer *buffer, bool escape,
                                    bool show_nonprint);
void write_file_name(const char *name, std::FILE *stream, bool escape, bool show_nonprint);
const char *format_file_name(const char *name);           // in a shared buffer
const char *makefile_format_file_name(const char *name);  // blanks get a backslash; shared buffer

// ---- Files -------------------------------------------------------------------------------------

bool get_file_modification_time(const char *name, std::time_t *time_out);
// ctime text of a regular file, else null; static storage.
const char *get_file_modification_time_string(const char *name, bool strip_newline);
bool is_regular_file(const char *name);
bool is_directory(const char *name);
// One line without leading blanks and without a last one; null at the end. A shared buffer.
char *read_line_from_file(std::FILE *stream);
// The names of the files in dir that end in suffix, one a call, null behind the last.
const char *get_file_name_from_dir(bool first, const char *dir, const char *suffix);
// A nameless file that goes away with the process.
std::FILE *open_temp_file(bool binary);
std::size_t get_page_size();

void get_unique_id_for_file(const char *name, a_unique_file_id *id);
void clear_unique_file_id(a_unique_file_id *id);
bool same_unique_file_ids(const a_unique_file_id *a, const a_unique_file_id *b);
std::size_t hash_unique_file_id(const a_unique_file_id *id);

// Outputs that are begun. In whatever way the process ends but with status 0, all that are still
// noted are deleted, so that nobody takes a part for the whole.
void note_begun_output(const char *name);
void forget_begun_output(const char *name);
void forget_all_begun_outputs();
void unlink_begun_outputs();  // safe in a signal handler

// ---- Encodings ---------------------------------------------------------------------------------

// Bytes of the UTF-8 sequence at text. *invalid (may be null): it is none; then the length covers
// the lead and all continuation bytes behind it. Without decode each byte is a character.
int f_mbc_length(const char *text, bool *invalid, bool decode);
const char *mbc_strchr(const char *text, int c);
// The code point at text and the length of its sequence; as_bytes: each byte is a character.
int mbc_to_wide_char(const char *text, std::uint32_t *value, bool *invalid, bool as_bytes);
int unicode_to_utf8(std::uint32_t value, char *out);        // returns the length, 1 to 4
int ucn_to_utf16(std::uint32_t value, std::uint16_t *out);  // returns 1, or 2 for a pair
std::uint32_t extract_character_from_string(const char *text, std::size_t index);
int getc_utf16(std::FILE *stream, a_getc_source_state *state);  // a byte of UTF-8, or EOF
void set_multibyte_locale();
inline const char *file_name_in_external_encoding(const char *name) {
  return name;
}
inline const char *file_name_in_internal_encoding(const char *name) {
  return name;
}

// ---- The id of the translation unit ------------------------------------------------------------

// Unique per source file and directory; made once, by the first call. A null text means the
// source's time.
const char *make_module_id(const char *unique_text);
void set_module_id(const char *id);
const char *get_module_id();                // null: not made yet
void change_non_id_characters(char *text);  // to '_'
// The reflected CRC-32 (polynomial 0xEDB88320) of a text; results chain through seed.
std::uint32_t crc_32(const char *text, std::uint32_t seed);

// A decimal or prefixed number; *error: it is none, or something follows.
unsigned long strtoul_interface(const char *text, bool *error);
int smemcmp(const void *a, const void *b, std::size_t length);  // a null compares as empty

// ---- Times and the end -------------------------------------------------------------------------

void get_timer(a_timer *timer);
void display_time_used(const char *label, const a_timer *start, const a_timer *end);
extern bool in_signal_handler;  // the process may be in the middle of anything
// Ends the process with the status that belongs to the severity; without tidying up when a signal
// asked for it, since what it would touch may be half done.
[[noreturn]] void exit_compilation(int severity);

void host_envir_early_init();
void host_envir_one_time_init();
void host_envir_init();
void host_envir_trans_unit_init();

#endif
