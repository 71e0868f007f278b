// The text of a command file. No word may name a file outside of the folder; comments may.
#include <cstring>

#include "fuzz_run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  const char *text = reinterpret_cast<const char *>(data);
  for (std::size_t i = 0; i < size; ++i) {
    const bool in_comment = (i > 0 && text[i - 1] == '*') || (i + 1 < size && text[i + 1] == '*');
    if (text[i] == '/' && !in_comment) return 0;
  }
  write_input_file("t.c", "int x;\n", 7);
  write_input_file("words", text, size);
  run_front_end({"qxparse", "--opt_cmdfile=words", "t.c"}, fd_compilation);
  return 0;
}
