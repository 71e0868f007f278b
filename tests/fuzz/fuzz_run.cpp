#include "fuzz_run.h"

#include <dirent.h>
#include <fcntl.h>
#include <sanitizer/common_interface_defs.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <set>

#include "ANSI/i_gen_be.h"
#include "DIAG/error.h"
#include "driver/fe_init.h"
#include "driver/fe_wrapup.h"
#include "driver/host_envir.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "options/cmd_line.h"
#include "source/lexical.h"

extern "C" {
// The coverage counters of all instrumented code; the linker gives their bounds.
extern char __start___sancov_cntrs[];
extern char __stop___sancov_cntrs[];

const char *__asan_default_options();
const char *__ubsan_default_options();
[[noreturn]] void __real_exit(int status);
[[noreturn]] void __wrap_exit(int status);
int LLVMFuzzerInitialize(int *argc, char ***argv);
}

namespace {

constexpr int sanitizer_status = 99;
constexpr rlim_t max_seconds = 10;
constexpr long max_resident_kilobytes = 2L << 20;
constexpr rlim_t max_file_bytes = 64 << 20;

bool in_child;
std::string folder;
std::set<std::string> input_files;

// Makes the counters survive the child: their whole pages become shared. The two pages at the ends
// may hold other data and stay private.
void share_coverage_counters() {
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const std::uintptr_t begin =
      (reinterpret_cast<std::uintptr_t>(__start___sancov_cntrs) + page - 1) & ~(page - 1);
  const std::uintptr_t end = reinterpret_cast<std::uintptr_t>(__stop___sancov_cntrs) & ~(page - 1);
  if (begin >= end) return;
  void *place = mmap(reinterpret_cast<void *>(begin), end - begin, PROT_READ | PROT_WRITE,
                     MAP_SHARED | MAP_ANONYMOUS | MAP_FIXED, -1, 0);
  if (place == MAP_FAILED) std::abort();
}

void remove_folder_contents(bool inputs_too) {
  DIR *directory = opendir(folder.c_str());
  if (directory == nullptr) return;
  while (const dirent *entry = readdir(directory)) {
    if (entry->d_name[0] == '.' && std::strspn(entry->d_name, ".") == std::strlen(entry->d_name))
      continue;
    if (!inputs_too && input_files.count(entry->d_name) != 0) continue;
    unlinkat(dirfd(directory), entry->d_name, 0);
  }
  closedir(directory);
}

void remove_folder() {
  if (in_child) return;
  remove_folder_contents(true);
  rmdir(folder.c_str());
}

void make_folder() {
  char name[] = "/dev/shm/qx_fuzz_XXXXXX";
  if (mkdtemp(name) == nullptr) std::abort();
  folder = name;
  std::atexit(remove_folder);
}

[[noreturn]] void leave_child(int status) {
  std::fflush(nullptr);
  _exit(status);
}

void read_all_tokens() {
  fe_one_time_init();
  trans_unit_init();
  begin_translation_unit(primary_source_file_name, 1, nullptr);
  fe_init_part_2();
  while (get_token() != tok_end_of_source) {
  }
}

void compile_unit() {
  fe_one_time_init();
  trans_unit_init();
  process_translation_unit(primary_source_file_name, 1, nullptr);
  fe_wrapup();
  if (total_errors == 0 && !suppress_back_end) back_end();
  fe_wrapup_part_2();
}

[[noreturn]] void be_child(const std::vector<std::string> &words, a_fuzz_depth depth) {
  in_child = true;
  if (chdir(folder.c_str()) != 0) std::abort();
  std::signal(SIGABRT, SIG_DFL);
  const rlimit seconds = {max_seconds, max_seconds + 1};
  setrlimit(RLIMIT_CPU, &seconds);
  const rlimit bytes = {max_file_bytes, max_file_bytes};
  setrlimit(RLIMIT_FSIZE, &bytes);
  std::signal(SIGXFSZ, SIG_IGN);
  const int null_device = open("/dev/null", O_RDWR);
  for (int descriptor : {0, 1, 2})
    dup2(null_device, descriptor);

  std::vector<char *> argv;
  for (const std::string &word : words)
    argv.push_back(const_cast<char *>(word.c_str()));
  argv.push_back(nullptr);
  f_error = stderr;
  try {
    fe_early_init();
    proc_command_line(static_cast<int>(words.size()), argv.data());
    if (depth == fd_tokens) read_all_tokens();
    if (depth == fd_compilation) compile_unit();
  } catch (const std::exception &) {
    std::abort();
  }
  leave_child(0);
}

}  // namespace

const char *__asan_default_options() {
  return "exitcode=99:detect_leaks=0:allocator_may_return_null=1:malloc_context_size=4:"
         "quarantine_size_mb=1:thread_local_quarantine_size_kb=16";
}

const char *__ubsan_default_options() {
  return "exitcode=99:print_stacktrace=1";
}

void __wrap_exit(int status) {
  if (in_child) leave_child(status);
  __real_exit(status);
}

int LLVMFuzzerInitialize(int *, char ***) {
  share_coverage_counters();
  make_folder();
  // The messages of a run go nowhere; a finding is shown where the fuzzer writes.
  __sanitizer_set_report_fd(reinterpret_cast<void *>(static_cast<std::intptr_t>(dup(2))));
  return 0;
}

void write_input_file(const char *name, const char *text, std::size_t length) {
  input_files.insert(name);
  const std::string path = folder + "/" + name;
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (file < 0 || write(file, text, length) != static_cast<ssize_t>(length)) std::abort();
  close(file);
}

void run_front_end(const std::vector<std::string> &words, a_fuzz_depth depth) {
  remove_folder_contents(false);
  const pid_t child = fork();
  if (child < 0) return;
  if (child == 0) be_child(words, depth);
  int status;
  rusage usage;
  while (wait4(child, &status, 0, &usage) != child) {
    if (errno != EINTR) std::abort();  // the fuzzer's clock interrupts
  }
  const char *finding = nullptr;
  if (WIFSIGNALED(status)) {
    finding = WTERMSIG(status) == SIGXCPU ? "too much time" : strsignal(WTERMSIG(status));
  } else if (WEXITSTATUS(status) == sanitizer_status || WEXITSTATUS(status) == 77) {
    finding = "finding of a sanitizer";
  } else if (usage.ru_maxrss > max_resident_kilobytes) {
    finding = "too much memory";
  }
  if (finding == nullptr) return;
  std::fprintf(stderr, "==== the run ended with: %s; the command line was:", finding);
  for (const std::string &word : words)
    std::fprintf(stderr, " '%s'", word.c_str());
  std::fputc('\n', stderr);
  std::abort();
}

std::vector<std::string> dialect_words(std::uint8_t choice) {
  switch (choice % 8) {
    case 0:
      return {"qxparse", "--c", "--gcc"};
    case 1:
      return {"qxparse", "--c", "--strict", "--c99"};
    case 2:
      return {"qxparse", "--c11", "--gcc", "--trigraphs"};
    case 3:
      return {"qxparse", "--c++"};
    case 4:
      return {"qxparse", "--c++", "--strict", "--c++14"};
    case 5:
      return {"qxparse", "--old_c"};
    case 6:
      return {"qxparse", "--c", "--check_misra=all"};
    default:
      return {"qxparse", "--c", "--c99", "--remarks", "--vencode"};
  }
}
