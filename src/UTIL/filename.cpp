// File names and small file operations.
#include "UTIL/filename.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "UTIL/safe_alloc.h"

namespace {

// The '.' of the extension in a base name; null without one. ".profile" has none.
const char *extension_dot(const char *base) {
  const char *dot = std::strrchr(base, '.');
  return dot == base ? nullptr : dot;
}

void copy_part(char (&out)[fn_part_size], const char *start, const char *end) {
  const std::size_t length =
      std::min<std::size_t>(static_cast<std::size_t>(end - start), fn_part_size - 1);
  std::memcpy(out, start, length);
  out[length] = '\0';
}

char *safe_copy(const char *text, std::size_t length) {
  char *copy = static_cast<char *>(safemalloc(length + 1));
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  return copy;
}

}  // namespace

const char *fn_basename(const char *path) {
  const char *slash = std::strrchr(path, '/');
  return slash != nullptr ? slash + 1 : path;
}

void fn_split(const char *path, char (&dir)[fn_part_size], char (&base)[fn_part_size],
              char (&ext)[fn_part_size]) {
  const char *name = fn_basename(path);
  const char *end = name + std::strlen(name);
  const char *dot = extension_dot(name);
  if (dot == nullptr) dot = end;
  // "/x" keeps its root; any other directory loses the '/' behind it.
  const char *dir_end = name;
  if (dir_end > path + 1) --dir_end;
  copy_part(dir, path, dir_end);
  copy_part(base, name, dot);
  copy_part(ext, dot < end ? dot + 1 : end, end);
}

char *fn_build(char *out, const char *dir, const char *base, const char *ext) {
  const std::size_t dir_length = std::strlen(dir);
  const bool slash = dir_length != 0 && dir[dir_length - 1] != '/';
  const bool dot = *ext != '\0' && *ext != '.';
  if (out == nullptr) {
    out = static_cast<char *>(safemalloc(dir_length + std::strlen(base) + std::strlen(ext) + 3));
  }
  char *end = out;
  auto append = [&end](const char *text) {
    const std::size_t length = std::strlen(text);
    std::memcpy(end, text, length);
    end += length;
  };
  append(dir);
  if (slash) append("/");
  append(base);
  if (dot) append(".");
  append(ext);
  *end = '\0';
  return out;
}

char *fn_addext(const char *path, const char *ext) {
  if (extension_dot(fn_basename(path)) != nullptr) return safe_copy(path, std::strlen(path));
  return fn_build(nullptr, "", path, ext);
}

char *fn_delext(const char *path) {
  const char *dot = extension_dot(fn_basename(path));
  return safe_copy(path, dot != nullptr ? static_cast<std::size_t>(dot - path) : std::strlen(path));
}

bool fn_matches_ext(const char *path, const char *ext) {
  const char *dot = extension_dot(fn_basename(path));
  if (*ext == '.') ++ext;
  return dot != nullptr ? std::strcmp(dot + 1, ext) == 0 : *ext == '\0';
}

bool fn_hasdir(const char *path) {
  return std::strchr(path, '/') != nullptr;
}

bool fn_has_full_path(const char *path) {
  return *path == '/';
}

bool fn_has_relative_path(const char *path) {
  return std::strncmp(path, "../", 3) == 0;
}

bool fn_is_user_specified_stream(const char *path) {
  return std::strcmp(path, "stdout") == 0 || std::strcmp(path, "stderr") == 0;
}

int fn_strcmp(const char *a, const char *b) {
  return std::strcmp(a, b);
}

bool fn_samefile(const char *a, const char *b) {
  struct stat sa, sb;
  if (stat(a, &sa) != 0 || stat(b, &sb) != 0) return std::strcmp(a, b) == 0;
  return sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
}

bool fn_exists(const char *path) {
  struct stat status;
  return stat(path, &status) == 0;
}

bool file_is_empty(const char *path) {
  struct stat status;
  return stat(path, &status) == 0 && status.st_size == 0;
}

bool fn_delete(const char *path) {
  return unlink(path) == 0;
}

bool fn_rename(const char *from, const char *to) {
  return std::rename(from, to) == 0;
}

char *fn_get_working_dir() {
  for (std::size_t size = 256;; size += 256) {
    char *buffer = static_cast<char *>(safemalloc(size));
    if (getcwd(buffer, size) != nullptr) return buffer;
    const int error = errno;
    std::free(buffer);
    if (error != ERANGE) {
      std::perror("getcwd in fn_get_working_dir");
      std::exit(1);
    }
  }
}

void fn_change_dir(const char *dir) {
  if (chdir(dir) != 0) {
    std::perror("chdir in fn_change_dir");
    std::exit(1);
  }
}

// The file exists when the name is handed out, so that nobody else can take it.
char *fn_tmpnam() {
  static const char digits[] = "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  // The lowest digit of the process id comes last.
  char prefix[6] = "QX";
  unsigned long id = static_cast<unsigned long>(getpid());
  for (int i = 4; i >= 2; --i, id /= 62)
    prefix[i] = digits[id % 62];
  prefix[5] = '\0';
  const char *dir = std::getenv("TMPDIR");
  if (dir == nullptr || access(dir, W_OK | X_OK) != 0) dir = P_tmpdir;
  const std::size_t size = std::strlen(dir) + sizeof "/QX000XXXXXX";
  char *name = static_cast<char *>(safemalloc(size));
  std::snprintf(name, size, "%s/%sXXXXXX", dir, prefix);
  const int file = mkstemp(name);
  if (file < 0) {
    std::fprintf(stderr, "ERROR: cannot create temporary file name; %s\n",
                 errno == ENOMEM ? "out of memory" : "check directory permissions");
    std::exit(1);
  }
  close(file);
  return name;
}

void extract_paths(const char *list, void (*callback)(const char *path, void *context),
                   void *context) {
  while (*list != '\0') {
    const char *end = list;
    while (*end != '\0' && *end != ':')
      ++end;
    if (end != list) {
      char *path = safe_copy(list, static_cast<std::size_t>(end - list));
      callback(path, context);
      std::free(path);
    }
    list = *end == ':' ? end + 1 : end;
  }
}
