#include "fuzz_run.h"

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sanitizer/common_interface_defs.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csetjmp>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iterator>
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
#include "source/pp_output.h"

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
constexpr int fuzzer_status = 77;  // of its handlers of signals
constexpr rlim_t max_seconds = 10;
constexpr long max_resident_kilobytes = 2L << 20;
constexpr int max_runs_of_worker = 200;
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

void stop_worker();

void remove_folder() {
  if (in_child) return;
  stop_worker();
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
  write_signoff();  // and the memory stays, for the free lists that lie in it
}

void prepare_child() {
  in_child = true;
  if (chdir(folder.c_str()) != 0) std::abort();
  std::signal(SIGABRT, SIG_DFL);
  const rlimit bytes = {max_file_bytes, max_file_bytes};
  setrlimit(RLIMIT_FSIZE, &bytes);
  std::signal(SIGXFSZ, SIG_IGN);
  const int null_device = open("/dev/null", O_RDWR);
  for (int descriptor : {0, 1, 2})
    dup2(null_device, descriptor);
}

// One run; comes back when it ends without exit.
void run_once(const std::vector<std::string> &words, a_fuzz_depth depth) {
  auto **argv = new char *[words.size() + 1]();
  for (std::size_t i = 0; i < words.size(); ++i)
    argv[i] = strdup(words[i].c_str());  // of its exact size; the front end keeps what it points to
  f_error = stderr;
  f_pp_output = f_raw_listing = f_xref_info = nullptr;
  try {
    fe_early_init();
    proc_command_line(static_cast<int>(words.size()), argv);
    if (depth == fd_tokens) read_all_tokens();
    if (depth == fd_compilation) compile_unit();
  } catch (const std::exception &) {
    std::abort();
  }
}

// ---- The worker --------------------------------------------------------------------------------

struct a_request {
  a_fuzz_depth depth;
  std::size_t num_words;
  char words[1 << 16];  // each with its null
};
a_request *request;  // in memory that is shared with the worker
pid_t worker;        // 0: none runs
int to_worker, from_worker;
int runs_of_worker;
std::jmp_buf end_of_run;  // where exit leads to
bool in_worker;

[[noreturn]] void be_worker(int in, int out) {
  prepare_child();
  in_worker = true;
  for (char byte; read(in, &byte, 1) == 1;) {
    std::vector<std::string> words;
    const char *word = request->words;
    for (std::size_t i = 0; i < request->num_words; ++i, word += std::strlen(word) + 1)
      words.push_back(word);
    const bool is_left = setjmp(end_of_run) != 0;
    if (!is_left) run_once(words, request->depth);
    std::fflush(nullptr);
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    byte = usage.ru_maxrss > max_resident_kilobytes / 2 ? 'm' : is_left ? 'x' : '.';
    if (write(out, &byte, 1) != 1 || is_left) break;
  }
  _exit(0);
}

void stop_worker() {
  if (worker == 0) return;
  kill(worker, SIGKILL);
  while (waitpid(worker, nullptr, 0) < 0 && errno == EINTR) {
  }
  close(to_worker);
  close(from_worker);
  worker = 0;
}

void start_worker() {
  if (request == nullptr) {
    request = static_cast<a_request *>(mmap(nullptr, sizeof(a_request), PROT_READ | PROT_WRITE,
                                            MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    if (request == MAP_FAILED) std::abort();
  }
  int there[2], back[2];
  if (pipe(there) != 0 || pipe(back) != 0) std::abort();
  worker = fork();
  if (worker < 0) std::abort();
  if (worker == 0) {
    close(there[1]);
    close(back[0]);
    be_worker(there[0], back[1]);
  }
  close(there[0]);
  close(back[1]);
  to_worker = there[1];
  from_worker = back[0];
  runs_of_worker = 0;
}

// Lets the worker do a run. False: it did not come back as it should.
bool run_in_worker(const std::vector<std::string> &words, a_fuzz_depth depth) {
  if (worker != 0 && runs_of_worker++ >= max_runs_of_worker) stop_worker();
  if (worker == 0) start_worker();
  request->depth = depth;
  request->num_words = words.size();
  char *place = request->words;
  for (const std::string &word : words) {
    if (place + word.size() + 1 > std::end(request->words)) return false;
    place = std::strcpy(place, word.c_str()) + word.size() + 1;
  }
  char byte = '.';
  if (write(to_worker, &byte, 1) != 1) std::abort();
  pollfd answer = {from_worker, POLLIN, 0};
  int ready;
  while ((ready = poll(&answer, 1, 2000 * static_cast<int>(max_seconds))) < 0 && errno == EINTR) {
  }
  const bool has_answer = ready == 1 && read(from_worker, &byte, 1) == 1;
  if (!has_answer || byte != '.') stop_worker();
  return has_answer && byte != 'm';
}

// ---- A run of its own --------------------------------------------------------------------------

// What is wrong with the end of a run in a fresh process; null: nothing.
const char *finding_in_fresh_process(const std::vector<std::string> &words, a_fuzz_depth depth) {
  const pid_t child = fork();
  if (child < 0) return nullptr;
  if (child == 0) {
    prepare_child();
    const rlimit seconds = {max_seconds, max_seconds + 1};
    setrlimit(RLIMIT_CPU, &seconds);
    run_once(words, depth);
    leave_child(0);
  }
  int status;
  rusage usage;
  while (wait4(child, &status, 0, &usage) != child) {
    if (errno != EINTR) std::abort();  // the fuzzer's clock interrupts
  }
  if (WIFSIGNALED(status)) {
    return WTERMSIG(status) == SIGXCPU ? "too much time" : strsignal(WTERMSIG(status));
  }
  if (WEXITSTATUS(status) == sanitizer_status || WEXITSTATUS(status) == fuzzer_status)
    return "finding of a sanitizer";
  if (usage.ru_maxrss > max_resident_kilobytes) return "too much memory";
  return nullptr;
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
  if (in_worker) std::longjmp(end_of_run, 1);
  if (in_child) leave_child(status);
  __real_exit(status);
}

int LLVMFuzzerInitialize(int *, char ***) {
  share_coverage_counters();
  make_folder();
  std::signal(SIGPIPE, SIG_IGN);
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
  if (run_in_worker(words, depth)) return;
  const char *finding = finding_in_fresh_process(words, depth);
  std::fprintf(stderr, "==== the run ended with: %s; the command line was:",
               finding != nullptr ? finding : "nothing when it was repeated alone");
  for (const std::string &word : words)
    std::fprintf(stderr, " '%s'", word.c_str());
  std::fputc('\n', stderr);
  if (finding != nullptr) std::abort();
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
