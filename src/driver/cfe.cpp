// The phases of a compilation, in their order, on a large stack of the process's own.
//
// The parser, the instances of templates and the interpreter of constants recurse as deep as the
// program that they read asks for. So everything runs on 512 MiB of address space, of which only
// what is touched becomes memory. The recursions that a source drives directly count their depth
// and stop with a message of their own; for all others there is a stretch without access below the
// stack, and a fault there ends the compilation as a program that is too large.
#include "driver/cfe.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <ucontext.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

#include "ANSI/i_gen_be.h"
#include "DIAG/error.h"
#include "driver/fe_init.h"
#include "driver/fe_wrapup.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "driver/signals.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il_check.h"
#include "options/cmd_line.h"

int sys_argc;
char **sys_argv;

namespace {

constexpr std::size_t largest_stack_size = std::size_t{512} << 20;
constexpr std::size_t least_stack_size = std::size_t{4} << 20;
constexpr std::size_t stack_guard_size = std::size_t{1} << 20;  // more than any one frame

[[noreturn]] void stop_on_exception(const std::exception &exception) {
  std::fprintf(stderr, "Unhandled exception: %s\n\n", exception.what());
  print_support_message();
  std::exit(1);
}

void show_time_since(const char *label, const a_timer &start) {
  a_timer now;
  get_timer(&now);
  display_time_used(label, &start, &now);
}

void generate_code() {
  a_timer start;
  get_timer(&start);
  check_il_or_stop(icp_before_emission);
  back_end();
  if (display_compilation_time) show_time_since("Back end time", start);
}

[[noreturn]] void compile() {
  a_timer start, front_end_start;
  try {
    fe_early_init();
    install_interrupt_handlers();
    get_timer(&start);
    proc_command_line(sys_argc, sys_argv);
    fe_one_time_init();
    get_timer(&front_end_start);
  } catch (const std::exception &exception) {
    stop_on_exception(exception);
  }
  trans_unit_init();
  try {
    process_translation_unit(primary_source_file_name, 1, nullptr);
    fe_wrapup();
    if (display_compilation_time) show_time_since("Front end time", front_end_start);
    if (total_errors != 0) suppress_back_end = true;
    if (!suppress_back_end) generate_code();
    fe_wrapup_part_2();
    if (display_compilation_time) show_time_since("Total compilation time", start);
    exit_compilation(total_errors != 0 ? es_error : total_warnings != 0 ? es_warning : es_none);
  } catch (const std::exception &exception) {
    stop_on_exception(exception);
  }
}

// The address sanitizer has to be told of a change of stacks.
#ifdef __SANITIZE_ADDRESS__
void announce_stack(const void *stack, std::size_t size) {
  __sanitizer_start_switch_fiber(nullptr, stack, size);
}
void compile_on_front_end_stack() {
  __sanitizer_finish_switch_fiber(nullptr, nullptr, nullptr);
  compile();
}
#else
void announce_stack(const void *, std::size_t) {}
void compile_on_front_end_stack() {
  compile();
}
#endif

// A stack with a guard below it, as large as may be; null when there is no address space for it.
void *map_front_end_stack(std::size_t *size) {
  const std::size_t page = get_page_size();
  for (*size = share_of_address_space(largest_stack_size) / page * page; *size >= least_stack_size;
       *size = *size / 2 / page * page) {
    void *stack = mmap(nullptr, *size, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK, -1, 0);
    if (stack == MAP_FAILED) continue;
    mprotect(stack, stack_guard_size, PROT_NONE);
    return stack;
  }
  return nullptr;
}

// A standard stream that the caller closed must not become the next file that is opened: its
// number is taken by one that cannot be used that way, so that reads and writes fail.
void take_closed_standard_streams() {
  for (int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) != -1) continue;
    const int taken = open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    if (taken != descriptor && taken >= 0) close(taken);
  }
}

}  // namespace

void run_compilation(int argc, char **argv) {
  take_closed_standard_streams();
  install_common_handlers(primary_signal_handler, nullptr);
  install_signal_stack();
  std::atexit(unlink_begun_outputs);
  sys_argc = argc;
  sys_argv = argv;
  f_error = stderr;

  static ucontext_t front_end;
  std::size_t stack_size;
  auto *stack = static_cast<char *>(map_front_end_stack(&stack_size));
  if (stack != nullptr && getcontext(&front_end) == 0) {
    front_end.uc_stack.ss_sp = stack;
    front_end.uc_stack.ss_size = stack_size;
    front_end.uc_link = nullptr;
    makecontext(&front_end, compile_on_front_end_stack, 0);
    install_stack_guard(stack, stack + stack_guard_size);
    announce_stack(stack, stack_size);
    setcontext(&front_end);
  }
  compile();  // without the large stack, the ordinary one has to do
}
