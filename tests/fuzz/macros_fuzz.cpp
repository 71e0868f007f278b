// Preprocessed text of a source without includes: definitions, expansion, and the writing of what
// was expanded. The first byte chooses the dialect and the form of the output.
#include "fuzz_run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  if (size == 0) return 0;
  static const char *const forms[] = {"--preprocess", "--comments", "--no_line_commands",
                                      "--preproc_macros"};
  std::vector<std::string> words = dialect_words(data[0]);
  words.push_back(forms[data[0] >> 3 & 3]);
  if (data[0] & 0x20) words.push_back("--list=listing");
  if (data[0] & 0x40) words.push_back("--old_style_preprocessing");
  write_input_file("t.c", reinterpret_cast<const char *>(data + 1), size - 1);
  words.push_back("t.c");
  run_front_end(words, fd_compilation);
  return 0;
}
