// Signals. The handlers run on a stack of their own and touch only static buffers, the standard
// streams and _Exit, since the process may be corrupted. The two that are no faults end as any
// catastrophe ends: an interrupt, and an overflow of the stack, which leaves all else whole.
#include "driver/signals.h"

#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

#include "DIAG/error.h"
#include "driver/cfe.h"
#include "driver/host_envir.h"
#include "driver/signal_place.h"

namespace {

a_signal_handler end_callback;
const char *stack_guard_low;
const char *stack_guard_high;

const char *reason_of(int sig) {
  switch (sig) {
    case SIGILL:
      return "executed an illegal instruction";
    case SIGTRAP:
      return "received a TRAP signal";
    case SIGABRT:
      return "had an internal inconsistency and aborted";
    case SIGBUS:
      return "experienced a bus alignment fault";
    case SIGFPE:
      return "received a floating point exception";
    case SIGSEGV:
      return "experienced a segmentation fault";
    case SIGXCPU:
      return "exceeded the CPU time limit";
    case SIGXFSZ:
      return "exceeded the file size limit";
    case SIGSYS:
      return "experienced a bad system call";
    default:
      return "experienced a fatal internal fault";
  }
}

// Formats where the compilation was; the last byte of the buffer stays a null.
const char *place_text(const char *format, ...) {
  static char buffer[2048];
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(buffer, sizeof buffer, format, arguments);
  va_end(arguments);
  buffer[sizeof buffer - 1] = '\0';
  return buffer;
}

void install(int sig, a_signal_handler handler) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_ONSTACK | SA_NODEFER;
  sigemptyset(&action.sa_mask);
  sigaction(sig, &action, nullptr);
}

// An interrupt or a request to end: as a catastrophe, without its message.
void interrupt_handler(int) {
  in_signal_handler = true;
  std::fputc('\n', f_error);
  term_compilation(es_catastrophe);
}

// A signal that ends the process in the system's own way, but not with an output half written.
void ending_handler(int sig) {
  unlink_begun_outputs();
  std::signal(sig, SIG_DFL);
  std::raise(sig);
}

void fault_handler(int sig, siginfo_t *information, void *) {
  const auto *place = static_cast<const char *>(information->si_addr);
  if (place < stack_guard_low || place >= stack_guard_high) primary_signal_handler(sig);
  stack_guard_low = stack_guard_high = nullptr;
  in_signal_handler = true;
  catastrophe(ec_program_too_large);
}

}  // namespace

void install_common_handlers(a_signal_handler handler, a_signal_handler callback) {
  end_callback = callback;
  for (int sig : {SIGILL, SIGABRT, SIGFPE, SIGSEGV, SIGTERM, SIGINT, SIGHUP, SIGTRAP, SIGBUS,
                  SIGSYS, SIGXCPU, SIGXFSZ}) {
    install(sig, handler);
  }
}

void install_interrupt_handlers() {
  install(SIGINT, interrupt_handler);
  install(SIGTERM, interrupt_handler);
  for (int sig : {SIGQUIT, SIGALRM, SIGUSR1, SIGUSR2, SIGVTALRM, SIGPROF})
    install(sig, ending_handler);
  for (int sig : {SIGXFSZ, SIGPIPE})
    std::signal(sig, SIG_IGN);  // a write then fails in the ordinary way
}

void install_stack_guard(void *low, void *high) {
  stack_guard_low = static_cast<const char *>(low);
  stack_guard_high = static_cast<const char *>(high);
  struct sigaction action {};
  action.sa_sigaction = fault_handler;
  action.sa_flags = SA_ONSTACK | SA_NODEFER | SA_SIGINFO;
  sigemptyset(&action.sa_mask);
  sigaction(SIGSEGV, &action, nullptr);
}

void install_signal_stack() {
  static char stack[256 * 1024];
  stack_t signal_stack{};
  signal_stack.ss_sp = stack;
  signal_stack.ss_size = sizeof stack;
  sigaltstack(&signal_stack, nullptr);
}

void primary_signal_handler(int sig) {
  const char *tool = sys_argv != nullptr && sys_argv[0] != nullptr ? sys_argv[0] : "unknown";
  if (sig == SIGHUP || sig == SIGINT || sig == SIGTERM) {
    std::fprintf(
        stderr, sig == SIGTERM ? "[%s received a terminate signal]\n" : "[%s forced exit]\n", tool);
    unlink_begun_outputs();
    std::_Exit(2);
  }
  // A second fault while this one is told ends the process at once.
  static volatile std::sig_atomic_t already_here;
  if (already_here) {
    unlink_begun_outputs();
    std::_Exit(2);
  }
  already_here = 1;
  unlink_begun_outputs();
  a_signal_place place;
  find_signal_place(&place);
  static const char *const reason = reason_of(sig);
  const char *where = place_text("while processing function %s file %s line %lu", place.function,
                                 place.file, place.line);
  std::fprintf(stderr, "\nINTERNAL ERROR: %s %s\n", tool, reason);
  if (*where != '\0') std::fprintf(stderr, "                  %s\n", where);
  std::fputc('\n', stderr);
  std::fflush(nullptr);
  print_support_message();
  std::fflush(nullptr);
  if (end_callback != nullptr) end_callback(sig);
  std::_Exit(2);
}

const char *tool_name() {
  return "EABI C/C++ Parser";
}

void print_support_message() {
  const char *name = tool_name();
  std::fprintf(stderr,
               "This is caused by a defect in the QX %s.\n"
               "QX Customer Support may be able to suggest a workaround to avoid this.\n\n"
               "Upgrading to the newest version of the compiler may fix this problem.\n\n"
               "Please report this problem to QX Customer Support.\n\n"
               "We need to see this ENTIRE error message and a complete, reproducible\n"
               "test case including ALL of the command-line options.\n",
               name);
  if (std::strstr(name, "C/C++ Parser") != nullptr ||
      std::strstr(name, "C/C++ Optimizer") != nullptr ||
      std::strstr(name, "C/C++ Codegen") != nullptr) {
    std::fputs("Include the .pp file created by option --preproc_with_comment\n\n", stderr);
  } else if (std::strcmp(name, "Linker") == 0) {
    std::fputs(
        "Include all of the object files, libraries, and linker command files\n"
        "used to link the program.\n\n",
        stderr);
  } else {
    std::fputc('\n', stderr);
  }
}
