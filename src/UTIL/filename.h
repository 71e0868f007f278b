// File names and small file operations for the option and message libraries, apart from the front
// end's own (driver/host_envir.h).
#ifndef UTIL_FILENAME_H
#define UTIL_FILENAME_H

#include <cstddef>

inline constexpr std::size_t fn_part_size = 500;  // a longer part is cut

// Directory (without its last '/'), base name and extension (without '.'); an absent part is "".
void fn_split(const char *path, char (&dir)[fn_part_size], char (&base)[fn_part_size],
              char (&ext)[fn_part_size]);
// The reverse, with '/' and '.' where they are missing; a null out: from safemalloc.
char *fn_build(char *out, const char *dir, const char *base, const char *ext);

const char *fn_basename(const char *path);           // behind the last '/'
char *fn_addext(const char *path, const char *ext);  // an extension where none is; safemalloc
char *fn_delext(const char *path);                   // safemalloc
bool fn_matches_ext(const char *path, const char *ext);
bool fn_hasdir(const char *path);
bool fn_has_full_path(const char *path);
bool fn_has_relative_path(const char *path);  // begins with "../"
bool fn_is_user_specified_stream(const char *path);
int fn_strcmp(const char *a, const char *b);
bool fn_samefile(const char *a, const char *b);
bool fn_exists(const char *path);
bool file_is_empty(const char *path);
bool fn_delete(const char *path);
bool fn_rename(const char *from, const char *to);
char *fn_get_working_dir();  // safemalloc; ends the process on failure
void fn_change_dir(const char *dir);

// The name of a new, empty temporary file, from malloc; ends the process when none can be made.
char *fn_tmpnam();

// Calls back with each part of a list divided by ':'.
void extract_paths(const char *list, void (*callback)(const char *path, void *context),
                   void *context);

#endif
