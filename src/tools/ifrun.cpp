// ifrun: executes intermediate files.
//
//   ifrun [options] FILE.if ... [-- ARGUMENT ...]
//
// The files are linked by name, main runs, and its status is the status of the run. A fault of the
// program ends it with 125, the instruction budget with 124, a file that cannot be read, linked or
// run with 126, wrong use with 2.
#include <pthread.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>

#include "tools/ifrun_machine.h"

namespace {

struct a_command_line {
  std::vector<const char *> files;
  std::vector<std::string> arguments;  // of the program, its name first
  int byte_order = -1;                 // 1 big, 0 little, -1 as the file says
  bool trace = false;
  bool check_alignment = true;
  bool whole_words = false;
  std::uint64_t limit = 0;
  std::uint32_t memory_megabytes = 256;
  std::uint32_t stack_megabytes = 8;
  int status = 0;
};

int usage() {
  std::fprintf(stderr,
               "usage: ifrun [options] FILE.if ... [-- ARGUMENT ...]\n"
               "  --big-endian, --little-endian  byte order in place of the files' own\n"
               "  --limit N      ends the run after N steps\n"
               "  --memory N     megabytes of memory (256)\n"
               "  --stack N      megabytes of stack (8)\n"
               "  --unaligned    allows accesses that are not aligned\n"
               "  --whole-words  allows reads of an aligned word up to its end\n"
               "  --trace        shows calls\n");
  return status_usage;
}

bool read_command_line(int argc, char **argv, a_command_line *line) {
  for (int i = 1; i < argc; i++) {
    const char *word = argv[i];
    auto number = [&](std::uint64_t maximum, std::uint64_t *result) {
      if (i + 1 >= argc) return false;
      char *end;
      *result = std::strtoull(argv[++i], &end, 10);
      return *end == '\0' && *result > 0 && *result <= maximum;
    };
    std::uint64_t n = 0;
    if (std::strcmp(word, "--") == 0) {
      line->arguments.assign(argv + i + 1, argv + argc);
      break;
    }
    if (std::strcmp(word, "--big-endian") == 0) {
      line->byte_order = 1;
    } else if (std::strcmp(word, "--little-endian") == 0) {
      line->byte_order = 0;
    } else if (std::strcmp(word, "--trace") == 0) {
      line->trace = true;
    } else if (std::strcmp(word, "--unaligned") == 0) {
      line->check_alignment = false;
    } else if (std::strcmp(word, "--whole-words") == 0) {
      line->whole_words = true;
    } else if (std::strcmp(word, "--limit") == 0) {
      if (!number(~std::uint64_t{0}, &line->limit)) return false;
    } else if (std::strcmp(word, "--memory") == 0) {
      if (!number(2048, &n)) return false;
      line->memory_megabytes = static_cast<std::uint32_t>(n);
    } else if (std::strcmp(word, "--stack") == 0) {
      if (!number(1024, &n)) return false;
      line->stack_megabytes = static_cast<std::uint32_t>(n);
    } else if (word[0] == '-') {
      return false;
    } else {
      line->files.push_back(word);
    }
  }
  return !line->files.empty() && line->stack_megabytes < line->memory_megabytes;
}

int run(const a_command_line &line) {
  std::deque<IF_READER> files;
  for (const char *name : line.files) {
    try {
      files.emplace_back().read(name);
    } catch (const an_if_damage &damage) {
      std::fprintf(stderr, "ifrun: %s: offset %llu: %s\n", name,
                   static_cast<unsigned long long>(damage.offset), damage.what());
      return status_bad_file;
    } catch (const std::runtime_error &error) {
      std::fprintf(stderr, "ifrun: %s: %s\n", name, error.what());
      return status_bad_file;
    }
  }
  a_machine machine(line.memory_megabytes << 20, line.stack_megabytes << 20);
  machine.trace = line.trace;
  machine.check_alignment = line.check_alignment;
  machine.memory.whole_words = line.whole_words;
  machine.limit = line.limit;
  try {
    for (IF_READER &file : files)
      machine.add_file(&file);
    if (line.byte_order >= 0) machine.forced_byte_order = line.byte_order;
    machine.link();
    std::vector<std::string> arguments = {line.files[0]};
    arguments.insert(arguments.end(), line.arguments.begin(), line.arguments.end());
    int status = machine.run_main(arguments);
    std::fflush(stdout);
    return status & 0xFF;
  } catch (const a_run_error &error) {
    std::fflush(stdout);
    std::fprintf(stderr, "ifrun: %s: %s\n", error.what(), machine.where().c_str());
    return error.status;
  }
}

void *run_thread(void *data) {
  a_command_line *line = static_cast<a_command_line *>(data);
  line->status = run(*line);
  return nullptr;
}

}  // namespace

// The interpreter recurses with the program, so that it runs on a large stack of its own.
int main(int argc, char **argv) {
  a_command_line line;
  if (!read_command_line(argc, argv, &line)) return usage();
  pthread_attr_t attributes;
  pthread_t thread;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, std::size_t{2} << 30);
  if (pthread_create(&thread, &attributes, run_thread, &line) != 0) {
    std::fprintf(stderr, "ifrun: no stack to run on\n");
    return status_bad_file;
  }
  pthread_join(thread, nullptr);
  return line.status;
}
