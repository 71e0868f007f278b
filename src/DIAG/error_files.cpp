// Reports on files that do not open or cannot be written, and the opening of files with them.
#include <strings.h>

#include <cerrno>
#include <cstring>

#include "DIAG/error_internal.h"
#include "source/input_stack.h"

namespace {

// Headers that moved: their absence is told with where they are now.
constexpr const char *moved_headers[] = {"Compiler_Cfg.h", "Compiler.h", "Platform_Types.h",
                                         "Std_Types.h"};
constexpr const char moved_headers_reason[] =
    "The compiler RTS provides (outdated) AUTOSAR 3.1 header files, causing problems for "
    "applications which need a later version of AUTOSAR.  To solve that problem, the compiler RTS "
    "AUTOSAR files have been moved to a subdirectory of the include directory.  If you still want "
    "to use the old AUTOSAR header files, add ${include}/AUTOSAR31 to your include file search "
    "path.  If you want to use a later version of AUTOSAR, you will need to get it from a third "
    "party.";

const char *reason_of_failure(const char *name, const an_open_file_result *result) {
  if (result->flags & off_bad_name) return text_by_number(ect_1975);
  if (result->flags & off_directory) return text_by_number(ect_1974);
  if (result->flags & off_not_regular) return text_by_number(ect_1973);
  if (result->flags & off_other_failure) return std::strerror(result->errno_value);
  for (const char *header : moved_headers) {
    if (strcasecmp(name, header) == 0) return moved_headers_reason;
  }
  return nullptr;
}

// A failure that the flags of the caller expect is silent.
void report_open_failure(const char *name, const an_open_file_result *result, unsigned flags,
                         an_error_code kind_text) {
  const unsigned expected =
      flags & (off_does_not_exist | off_other_failure | off_not_regular | off_directory);
  if ((result->flags & expected) != 0 && (result->flags & off_bad_name) == 0) return;
  file_open_error(flags & ofp_command_line ? es_command_line_error : es_catastrophe, kind_text,
                  name, result);
}

}  // namespace

void file_open_error(an_error_severity severity, an_error_code kind_text, const char *name,
                     const an_open_file_result *result) {
  const char *reason = reason_of_failure(name, result);
  const an_error_code code = reason != nullptr ? ec_cannot_open_file_reason : ec_cannot_open_file;
  a_diagnostic *d = severity == es_command_line_error
                        ? start_command_line_error(code)
                        : pos_start_diagnostic(severity, code, &error_position);
  add_string_argument(d, text_by_number(kind_text));
  add_string_argument(d, name);
  if (reason != nullptr) add_string_argument(d, reason);
  end_diagnostic(d);
}

void file_write_error(an_error_code kind_text, int errno_value) {
  if (errno_value == 0) str_catastrophe(ec_file_write_error, text_by_number(kind_text));
  str_errno_catastrophe(ec_file_write_error_errno, text_by_number(kind_text), errno_value);
}

std::FILE *open_output_file_with_error_handling(const char *name, bool binary, bool append_read,
                                                unsigned flags, an_error_code kind_text) {
  an_open_file_result result{};
  std::FILE *stream = open_output_file(name, binary, append_read, &result);
  if (stream == nullptr) report_open_failure(name, &result, flags, kind_text);
  return stream;
}

std::FILE *open_input_file_with_error_handling(const char *name, bool binary, unsigned flags,
                                               an_error_code kind_text) {
  an_open_file_result result{};
  std::FILE *stream = open_input_file(name, binary, &result);
  if (stream == nullptr) report_open_failure(name, &result, flags, kind_text);
  return stream;
}

std::FILE *fopen_with_error(const char *name, const char *mode, an_error_code kind_text) {
  an_open_file_result result{};
  std::FILE *stream = fopen_with_result(name, mode, &result);
  if (stream == nullptr) report_open_failure(name, &result, 0, kind_text);
  return stream;
}

void close_output_file_with_error_handling(std::FILE **stream, an_error_code kind_text) {
  std::FILE *closing = *stream;
  if (closing == nullptr) return;
  *stream = nullptr;
  int errno_value = 0;
  if (close_output_file(closing, &errno_value)) file_write_error(kind_text, errno_value);
}
