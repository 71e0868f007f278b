// The names of the pragma records of the intermediate file.
#include "target/pragma_kinds.h"

namespace {
constexpr const char *names[] = {
#define PRAGMA_ROW(number, name, text) text,
#include "target/pragma_kinds.def"
};
static_assert(sizeof names / sizeof *names == num_file_pragma_kinds);
#define PRAGMA_ROW(number, name, text) static_assert(number < num_file_pragma_kinds);
#include "target/pragma_kinds.def"
}  // namespace

const char *file_pragma_name(unsigned kind) {
  return kind < num_file_pragma_kinds ? names[kind] : "unknown";
}
