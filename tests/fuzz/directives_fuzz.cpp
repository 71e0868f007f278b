// A source with three files to include, divided by lines "@@": conditions, includes, lines,
// pragmas. The first byte chooses the dialect and whether the source is preprocessed or its tokens
// are read.
#include <cstring>

#include "fuzz_run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  if (size == 0) return 0;
  static const char *const names[] = {"t.c", "a.h", "b.h", "c.h"};
  static const char *const forms[] = {"", "--preprocess", "--dependencies", "--trace_includes"};
  const char *text = reinterpret_cast<const char *>(data + 1);
  std::size_t left = size - 1;
  for (int i = 0; i < 4; ++i) {
    const char *mark =
        i == 3 ? nullptr : static_cast<const char *>(memmem(text, left, "\n@@\n", 4));
    const std::size_t length = mark != nullptr ? static_cast<std::size_t>(mark - text) + 1 : left;
    write_input_file(names[i], text, length);
    text += length;
    left -= length;
    if (mark != nullptr) text += 3, left -= 3;
  }
  std::vector<std::string> words = dialect_words(data[0]);
  const char *form = forms[data[0] >> 3 & 3];
  if (*form != '\0') words.push_back(form);
  if (data[0] & 0x20) words.push_back("--list=listing");
  if (data[0] & 0x40) words.push_back("--preinclude=c.h");
  words.insert(words.end(), {"-I.", "t.c"});
  run_front_end(words, *form != '\0' ? fd_compilation : fd_tokens);
  return 0;
}
