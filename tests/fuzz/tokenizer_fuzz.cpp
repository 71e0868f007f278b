// The tokens of a source, as the parser would get them: literals are converted, names looked up,
// directives obeyed. The first byte chooses the dialect.
#include "fuzz_run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  if (size == 0) return 0;
  std::vector<std::string> words = dialect_words(data[0]);
  write_input_file("t.c", reinterpret_cast<const char *>(data + 1), size - 1);
  words.push_back("t.c");
  run_front_end(words, fd_tokens);
  return 0;
}
