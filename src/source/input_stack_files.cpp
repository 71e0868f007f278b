// Opening of files, and their images in memory. A source file is read once in one piece; UTF-16 is
// turned into UTF-8 at that moment, so that everything behind sees one form of text. An image is
// kept to the end: a file that is included again costs a look into a hash table.

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "DIAG/error.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "source/input_stack_internal.h"

// ---- Streams -----------------------------------------------------------------------------------

std::FILE *fopen_with_result(const char *name, const char *mode, an_open_file_result *result) {
  *result = {};
  if (*name == '\0') {
    result->flags = off_bad_name;
    return nullptr;
  }
  // A pipe or a device would be waited for, or would change by being opened.
  struct stat status;
  if (stat(name, &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) {
    result->flags = off_not_regular;
    return nullptr;
  }
  errno = 0;
  std::FILE *stream = std::fopen(name, mode);
  if (stream == nullptr) {
    result->flags = errno == ENOENT ? off_does_not_exist : off_other_failure;
    result->errno_value = errno;
    return nullptr;
  }
  if (fstat(fileno(stream), &status) == 0 && !S_ISREG(status.st_mode)) {
    std::fclose(stream);
    result->flags = S_ISDIR(status.st_mode) ? off_directory : off_not_regular;
    return nullptr;
  }
  return stream;
}

std::FILE *open_source_file(const char *name, an_open_file_result *result,
                            a_unicode_source_kind_tag *kind) {
  *kind = static_cast<a_unicode_source_kind_tag>(default_unicode_source_kind);
  std::FILE *stream = fopen_with_result(name, "rb", result);
  if (stream == nullptr || !check_for_byte_order_mark) return stream;
  unsigned char mark[3] = {};
  std::size_t length = std::fread(mark, 1, 3, stream);
  long skip = 0;
  if (length == 3 && mark[0] == 0xEF && mark[1] == 0xBB && mark[2] == 0xBF) {
    *kind = usk_utf8;
    skip = 3;
  } else if (length >= 2 && mark[0] == 0xFF && mark[1] == 0xFE) {
    *kind = usk_utf16le;
    skip = 2;
  } else if (length >= 2 && mark[0] == 0xFE && mark[1] == 0xFF) {
    *kind = usk_utf16be;
    skip = 2;
  }
  std::fseek(stream, skip, SEEK_SET);
  return stream;
}

std::FILE *open_input_file(const char *name, bool binary, an_open_file_result *result) {
  return fopen_with_result(name, binary ? "rb" : "r", result);
}

// The regular files that this run writes: two outputs in one file would spoil each other.
static a_unique_file_id output_ids[8];
static std::size_t num_output_ids;

static bool is_other_output(const a_unique_file_id &file) {
  for (std::size_t i = 0; i < num_output_ids; ++i)
    if (same_unique_file_ids(&output_ids[i], &file)) return true;
  return false;
}

void forget_output_files() {
  num_output_ids = 0;
}

bool okay_as_output_file(const char *name) {
  if (primary_source_file_name == nullptr) return true;
  if (f_compare_file_names(name, primary_source_file_name, false) == 0) return false;
  a_unique_file_id output, source;  // one file can have several names
  get_unique_id_for_file(name, &output);
  if (is_other_output(output)) return false;
  get_unique_id_for_file(primary_source_file_name, &source);
  return !same_unique_file_ids(&output, &source);
}

std::FILE *open_output_file(const char *name, bool binary, bool append_read,
                            an_open_file_result *result) {
  static const char *const modes[2][2] = {{"w", "w+"}, {"wb", "w+b"}};
  if (*name == '\0' || !okay_as_output_file(name)) {
    *result = {off_bad_name, 0};
    return nullptr;
  }
  std::FILE *stream = fopen_with_result(name, modes[binary][append_read], result);
  if (stream != nullptr && num_output_ids < std::size(output_ids) && is_regular_file(name))
    get_unique_id_for_file(name, &output_ids[num_output_ids++]);
  return stream;
}

bool close_output_file(std::FILE *stream, int *errno_value) {
  errno = 0;
  bool failed = std::fflush(stream) != 0 || std::ferror(stream) != 0;
  if (stream != stdout && std::fclose(stream) != 0) failed = true;
  *errno_value = failed ? errno : 0;
  return failed;
}

void delete_file(const char *name) {
  if (unlink(name) != 0)
    pos_str2_catastrophe(ec_file_delete_error_reason, &null_source_position, name,
                         std::strerror(errno));
}

// ---- Images ------------------------------------------------------------------------------------

namespace {

struct a_stored_image {
  a_file_image image;
  a_stored_image *next_by_name;
  a_stored_image *next_by_id;
  char *name;
  std::uint64_t device;
  std::uint64_t inode;
};

constexpr std::size_t num_image_buckets = 8192;
a_stored_image *images_by_name[num_image_buckets];
a_stored_image *images_by_id[num_image_buckets];

std::size_t bucket_of_name(const char *name) {
  std::uint64_t hash = 14695981039346656037u;
  for (; *name != '\0'; ++name)
    hash = (hash ^ static_cast<unsigned char>(*name)) * 1099511628211u;
  return (hash >> 32) % num_image_buckets;
}

std::size_t bucket_of_id(std::uint64_t device, std::uint64_t inode) {
  return ((inode * 0x9E3779B97F4A7C15u) ^ device) % num_image_buckets;
}

// The bytes of an open file; *length of them, with room for the padding behind.
char *read_whole_file(int descriptor, std::size_t expected, std::size_t *length) {
  std::size_t capacity = expected + 1;
  std::size_t used = 0;
  char *text = static_cast<char *>(std::malloc(capacity + image_padding));
  if (text == nullptr) stop_out_of_memory();
  for (;;) {
    ssize_t got = read(descriptor, text + used, capacity - used);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;  // a failing read counts as the end of the file
    used += static_cast<std::size_t>(got);
    if (used == expected) break;
    if (used == capacity) {
      capacity *= 2;
      text = static_cast<char *>(std::realloc(text, capacity + image_padding));
      if (text == nullptr) stop_out_of_memory();
    }
  }
  *length = used;
  return text;
}

std::size_t put_utf8(std::uint32_t value, char *out) {
  if (value < 0x80) {
    out[0] = static_cast<char>(value);
    return 1;
  }
  if (value < 0x800) {
    out[0] = static_cast<char>(0xC0 | value >> 6);
    out[1] = static_cast<char>(0x80 | (value & 0x3F));
    return 2;
  }
  if (value < 0x10000) {
    out[0] = static_cast<char>(0xE0 | value >> 12);
    out[1] = static_cast<char>(0x80 | (value >> 6 & 0x3F));
    out[2] = static_cast<char>(0x80 | (value & 0x3F));
    return 3;
  }
  out[0] = static_cast<char>(0xF0 | value >> 18);
  out[1] = static_cast<char>(0x80 | (value >> 12 & 0x3F));
  out[2] = static_cast<char>(0x80 | (value >> 6 & 0x3F));
  out[3] = static_cast<char>(0x80 | (value & 0x3F));
  return 4;
}

// UTF-16 in the byte order of kind as UTF-8; a surrogate that stands alone becomes a question mark.
char *utf8_of_utf16(const char *bytes, std::size_t length, a_unicode_source_kind_tag kind,
                    std::size_t *out_length) {
  std::size_t low = kind == usk_utf16le ? 0 : 1;
  std::size_t units = length / 2;
  char *text = static_cast<char *>(std::malloc(units * 3 + image_padding));
  if (text == nullptr) stop_out_of_memory();
  auto unit = [&](std::size_t i) -> std::uint32_t {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[2 * i + low]) |
                                      static_cast<unsigned char>(bytes[2 * i + 1 - low]) << 8);
  };
  char *out = text;
  for (std::size_t i = 0; i < units; ++i) {
    std::uint32_t value = unit(i);
    if (value >= 0xD800 && value < 0xE000) {
      std::uint32_t follower = i + 1 < units ? unit(i + 1) : 0;
      if (value < 0xDC00 && follower >= 0xDC00 && follower < 0xE000) {
        value = 0x10000 + ((value - 0xD800) << 10) + (follower - 0xDC00);
        ++i;
      } else {
        value = '?';
      }
    }
    out += put_utf8(value, out);
  }
  *out_length = static_cast<std::size_t>(out - text);
  return text;
}

// A lone carriage return ends a line.
std::size_t turn_carriage_returns_into_newlines(char *text, std::size_t length) {
  char *out = text;
  for (const char *p = text; p != text + length; ++p) {
    if (*p == '\r') {
      *out++ = '\n';
      if (p + 1 != text + length && p[1] == '\n') ++p;
    } else {
      *out++ = *p;
    }
  }
  return static_cast<std::size_t>(out - text);
}

// Makes an image of the bytes read.
void form_image(char *text, std::size_t length, a_file_image *image) {
  a_unicode_source_kind_tag kind =
      static_cast<a_unicode_source_kind_tag>(default_unicode_source_kind);
  std::size_t mark = 0;
  if (check_for_byte_order_mark) {
    if (length >= 3 && std::memcmp(text, "\xEF\xBB\xBF", 3) == 0) {
      kind = usk_utf8;
      mark = 3;
    } else if (length >= 2 && std::memcmp(text, "\xFF\xFE", 2) == 0) {
      kind = usk_utf16le;
      mark = 2;
    } else if (length >= 2 && std::memcmp(text, "\xFE\xFF", 2) == 0) {
      kind = usk_utf16be;
      mark = 2;
    }
  }
  char *start = text + mark;
  length -= mark;
  if (kind == usk_utf16le || kind == usk_utf16be) {
    std::size_t new_length;
    char *converted = utf8_of_utf16(start, length, kind, &new_length);
    std::free(text);
    start = converted;
    length = new_length;
  }
  if (carriage_return_is_line_terminator)
    length = turn_carriage_returns_into_newlines(start, length);
  start[length] = '\n';
  std::memset(start + length + 1, 0, image_padding - 1);
  *image = {start, start + length, kind};
}

a_stored_image *find_image_by_name(const char *name) {
  for (a_stored_image *i = images_by_name[bucket_of_name(name)]; i != nullptr; i = i->next_by_name)
    if (std::strcmp(i->name, name) == 0) return i;
  return nullptr;
}

a_stored_image *find_image_by_id(std::uint64_t device, std::uint64_t inode) {
  for (a_stored_image *i = images_by_id[bucket_of_id(device, inode)]; i != nullptr;
       i = i->next_by_id)
    if (i->device == device && i->inode == inode) return i;
  return nullptr;
}

// An image under a name; text null: the same text as that of other.
a_stored_image *enter_image(const char *name, const struct stat &status, char *text,
                            std::size_t length, const a_stored_image *other) {
  a_stored_image *stored = static_cast<a_stored_image *>(std::calloc(1, sizeof(a_stored_image)));
  if (stored == nullptr || (stored->name = strdup(name)) == nullptr) stop_out_of_memory();
  stored->device = status.st_dev;
  stored->inode = status.st_ino;
  a_stored_image **bucket = &images_by_name[bucket_of_name(name)];
  stored->next_by_name = *bucket;
  *bucket = stored;
  if (text == nullptr) {
    stored->image = other->image;
  } else {
    form_image(text, length, &stored->image);
    bucket = &images_by_id[bucket_of_id(stored->device, stored->inode)];
    stored->next_by_id = *bucket;
    *bucket = stored;
  }
  return stored;
}

}  // namespace

a_file_image *image_of_source_file(const char *name, an_open_file_result *result) {
  *result = {};
  if (a_stored_image *known = find_image_by_name(name)) return &known->image;
  if (*name == '\0') {
    result->flags = off_bad_name;
    return nullptr;
  }
  constexpr int open_flags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;  // no wait on a pipe
  bool is_standard_input = std::strcmp(name, "-") == 0;
  int descriptor = is_standard_input ? STDIN_FILENO : open(name, open_flags);
  if (descriptor < 0) {
    result->flags = errno == ENOENT ? off_does_not_exist : off_other_failure;
    result->errno_value = errno;
    return nullptr;
  }
  struct stat status = {};
  if (fstat(descriptor, &status) == 0 && !S_ISREG(status.st_mode) && !is_standard_input) {
    result->flags = S_ISDIR(status.st_mode) ? off_directory : off_not_regular;
    close(descriptor);
    return nullptr;
  }
  a_stored_image *same =
      is_standard_input ? nullptr : find_image_by_id(status.st_dev, status.st_ino);
  std::size_t length = 0;
  char *text = nullptr;
  if (same == nullptr)
    text = read_whole_file(descriptor, static_cast<std::size_t>(status.st_size), &length);
  if (!is_standard_input) close(descriptor);
  return &enter_image(name, status, text, length, same)->image;
}

void forget_images() {
  std::memset(images_by_name, 0, sizeof images_by_name);
  std::memset(images_by_id, 0, sizeof images_by_id);
}

// ---- Text space --------------------------------------------------------------------------------

char *reserve_text_space(std::size_t *size) {
  for (*size = share_of_address_space(*size); *size >= std::size_t{1} << 18;
       *size = *size / 8192 * 4096) {
    void *space = mmap(nullptr, *size, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (space != MAP_FAILED) return static_cast<char *>(space);
  }
  stop_out_of_memory();
}
