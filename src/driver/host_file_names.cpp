// File names: their parts, their comparison, and how they are written in messages and listings.
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "UTIL/filename.h"
#include "driver/host_envir.h"

namespace {

struct a_known_directory {
  a_known_directory *next;
  const char *name;
};
a_known_directory *known_directories_in_general_memory;
a_known_directory *known_directories_in_region;

a_text_buffer *shared_buffer(a_text_buffer **buffer) {
  if (*buffer == nullptr) *buffer = alloc_text_buffer(256);
  reset_text_buffer(*buffer);
  return *buffer;
}

// Neither escaped nor shown by number, nor the beginning of a longer sequence.
bool is_plain_in_names(char c) {
  return c >= 0x20 && c < 0x7f && c != '\\' && c != '"';
}

}  // namespace

// No byte inside a sequence of UTF-8 has the value of '/' or '.'.
const char *start_of_file_name(const char *name) {
  const char *slash = std::strrchr(name, '/');
  return slash != nullptr ? slash + 1 : name;
}

const char *suffix_of(const char *name) {
  const char *base = start_of_file_name(name);
  const char *period = std::strrchr(base, '.');
  return period != nullptr ? period : base + std::strlen(base);
}

const char *f_directory_of(const char *name, bool general) {
  const char *base = start_of_file_name(name);
  const char *end = base;
  if (end > name + 1) --end;  // "/x" lies in "/"; any other directory is named without its '/'
  const auto length = static_cast<std::size_t>(end - name);
  if (length == 0) return "";
  a_known_directory **list =
      general ? &known_directories_in_general_memory : &known_directories_in_region;
  for (a_known_directory *known = *list; known != nullptr; known = known->next) {
    if (std::strncmp(known->name, name, length) == 0 && known->name[length] == '\0') {
      return known->name;
    }
  }
  const a_memory_region_number region = general ? general_memory : permanent_region;
  auto *known = static_cast<a_known_directory *>(
      alloc_general_or_in_region(region, sizeof(a_known_directory)));
  auto *copy = static_cast<char *>(alloc_general_or_in_region(region, length + 1));
  std::memcpy(copy, name, length);
  copy[length] = '\0';
  known->name = copy;
  known->next = *list;
  *list = known;
  return copy;
}

char *derived_name(const char *name, const char *suffix) {
  char dir[fn_part_size], base[fn_part_size], ext[fn_part_size];
  fn_split(name, dir, base, ext);
  auto *result = static_cast<char *>(alloc_general(std::strlen(base) + std::strlen(suffix) + 2));
  return fn_build(result, "", base, suffix);
}

void append_to_path_name(a_text_buffer *buffer, const char *name) {
  if (buffer->size_used != 0 && buffer->buffer[buffer->size_used - 1] != '/') {
    add_char_to_text_buffer(buffer, '/');
  }
  f_add_string_to_text_buffer(buffer, name);
}

const char *combine_dir_and_file_name(const char *dir, const char *name, a_text_buffer *buffer) {
  static a_text_buffer *shared;
  if (buffer == nullptr) {
    buffer = shared_buffer(&shared);
  } else {
    reset_text_buffer(buffer);
  }
  if (!is_absolute_file_name(name)) f_add_string_to_text_buffer(buffer, dir);
  append_to_path_name(buffer, name);
  return text_of_buffer(buffer);
}

void replace_file_name_suffix(const char *suffix, a_text_buffer *buffer) {
  const char *name = text_of_buffer(buffer);
  set_buffer_position(buffer, suffix_of(name));
  f_add_string_to_text_buffer(buffer, suffix);
}

const char *normalize_file_name(const char *name) {
  if (std::strncmp(name, "./", 2) != 0 && std::strstr(name, "//") == nullptr) return name;
  while (name[0] == '.' && name[1] == '/') {
    name += 2;
    while (*name == '/')
      ++name;
  }
  auto *result = static_cast<char *>(alloc_general(std::strlen(name) + 1));
  char *out = result;
  for (; *name != '\0'; ++name) {
    if (*name == '/' && name[1] == '/') continue;
    *out++ = *name;
  }
  *out = '\0';
  return result;
}

bool is_absolute_file_name(const char *name) {
  return *name == '/';
}

bool change_directory(const char *dir) {
  return chdir(dir) == 0;
}

int f_compare_file_names(const char *a, const char *b, bool quoted) {
  std::size_t length_a = std::strlen(a), length_b = std::strlen(b);
  if (quoted && length_a >= 2 && length_b >= 2) {
    ++a, ++b;
    length_a -= 2, length_b -= 2;
  }
  if (length_a == length_b && std::strncmp(a, b, length_a) == 0) return 0;
  char copy_a[4096], copy_b[4096];
  if (length_a >= sizeof copy_a || length_b >= sizeof copy_b) return 1;
  std::memcpy(copy_a, a, length_a), copy_a[length_a] = '\0';
  std::memcpy(copy_b, b, length_b), copy_b[length_b] = '\0';
  if (std::strcmp(start_of_file_name(copy_a), start_of_file_name(copy_b)) != 0) return 1;
  return compare_dir_names(f_directory_of(copy_a, true), f_directory_of(copy_b, true), false);
}

// ---- Writing -----------------------------------------------------------------------------------

void write_file_name_to_text_buffer(const char *name, a_text_buffer *buffer, bool escape,
                                    bool show_nonprint) {
  for (;;) {
    const char *plain_end = name;
    while (is_plain_in_names(*plain_end))
      ++plain_end;
    add_to_text_buffer(buffer, name, static_cast<std::size_t>(plain_end - name));
    name = plain_end;
    if (*name == '\0') return;
    const int length = f_mbc_length(name, nullptr, true);
    const auto c = static_cast<unsigned char>(*name);
    if (length > 1) {
      add_to_text_buffer(buffer, name, static_cast<std::size_t>(length));
    } else if (show_nonprint && (c < 0x20 || c >= 0x7f)) {
      char octal[8];
      std::snprintf(octal, sizeof octal, c == '\n' ? "\\n" : "\\%03o", static_cast<unsigned>(c));
      f_add_string_to_text_buffer(buffer, octal);
    } else {
      if (escape && (c == '\\' || c == '"')) add_char_to_text_buffer(buffer, '\\');
      add_char_to_text_buffer(buffer, *name);
    }
    name += length;
  }
}

void write_file_name(const char *name, std::FILE *stream, bool escape, bool show_nonprint) {
  static a_text_buffer *shared;
  a_text_buffer *buffer = shared_buffer(&shared);
  write_file_name_to_text_buffer(name, buffer, escape, show_nonprint);
  std::fwrite(buffer->buffer, 1, buffer->size_used, stream);
}

const char *format_file_name(const char *name) {
  static a_text_buffer *shared;
  a_text_buffer *buffer = shared_buffer(&shared);
  write_file_name_to_text_buffer(name, buffer, false, true);
  return text_of_buffer(buffer);
}

const char *makefile_format_file_name(const char *name) {
  static a_text_buffer *shared;
  a_text_buffer *buffer = shared_buffer(&shared);
  for (; *name != '\0'; ++name) {
    if (*name == ' ') add_char_to_text_buffer(buffer, '\\');
    add_char_to_text_buffer(buffer, *name);
  }
  return text_of_buffer(buffer);
}

// ---- Files -------------------------------------------------------------------------------------

bool get_file_modification_time(const char *name, std::time_t *time_out) {
  struct stat status;
  if (stat(name, &status) != 0 || !S_ISREG(status.st_mode)) return false;
  *time_out = status.st_mtime;
  return true;
}

const char *get_file_modification_time_string(const char *name, bool strip_newline) {
  std::time_t time;
  if (!get_file_modification_time(name, &time)) return nullptr;
  char *text = std::ctime(&time);
  if (text != nullptr && strip_newline) {
    if (char *newline = std::strchr(text, '\n')) *newline = '\0';
  }
  return text;
}

bool is_regular_file(const char *name) {
  struct stat status;
  return stat(name, &status) == 0 && S_ISREG(status.st_mode);
}

bool is_directory(const char *name) {
  struct stat status;
  return stat(name, &status) == 0 && S_ISDIR(status.st_mode);
}

char *read_line_from_file(std::FILE *stream) {
  static a_text_buffer *buffer;
  if (buffer == nullptr) buffer = alloc_text_buffer(1024);
  reset_text_buffer(buffer);
  int c = std::getc(stream);
  if (c == EOF) return nullptr;
  for (; c != EOF && c != '\n'; c = std::getc(stream)) {
    if (buffer->size_used == 0 && (c == ' ' || c == '\t')) continue;
    add_char_to_text_buffer(buffer, static_cast<char>(c));
  }
  if (buffer->size_used != 0 && buffer->buffer[buffer->size_used - 1] == ' ') --buffer->size_used;
  text_of_buffer(buffer);
  return buffer->buffer;
}

const char *get_file_name_from_dir(bool first, const char *dir, const char *suffix) {
  static DIR *stream;
  if (first) {
    if (stream != nullptr) closedir(stream);
    stream = opendir(*dir != '\0' ? dir : ".");
  }
  if (stream == nullptr) return nullptr;
  while (const dirent *entry = readdir(stream)) {
    if (std::strcmp(suffix_of(entry->d_name), suffix) == 0) return entry->d_name;
  }
  closedir(stream);
  stream = nullptr;
  return nullptr;
}
