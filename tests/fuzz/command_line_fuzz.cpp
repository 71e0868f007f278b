// Words of a command line, a line of the input each, in front of a small source that is compiled
// when they are accepted. No word may name a file outside of the folder.
#include "fuzz_run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  static const char source[] =
      "#define A(x) x\n"
      "struct s { int m : 3; char c; };\n"
      "int f(struct s *p, double d) { return A(p->m) + (int)d; }\n";
  write_input_file("t.c", source, sizeof source - 1);
  write_input_file("a.txt", "-DA1 --c", 8);
  std::vector<std::string> words = {"qxparse", ""};
  for (std::size_t i = 0; i < size; ++i) {
    if (data[i] == '/') return 0;
    if (data[i] == '\n' || data[i] == '\0')
      words.emplace_back();
    else
      words.back() += static_cast<char>(data[i]);
  }
  if (words.back().empty()) words.pop_back();
  words.push_back("t.c");
  run_front_end(words, fd_compilation);
  return 0;
}
