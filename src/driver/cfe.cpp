// The phases of a compilation, in their order, on a large stack of the process's own.
//
// The parser, the instances of templates and the interpreter of constants recurse as deep as the
// program that they read asks for. So everything runs on 512 MiB of address space, of which only
// what is touched becomes memory; a page without access lies below, so that an overflow is a fault
// that can be told.
#include "driver/cfe.h"

#include <sys/mman.h>
#include <ucontext.h>

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
#include "driver/signals.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il_check.h"
#include "options/cmd_line.h"

int sys_argc;
char **sys_argv;

namespace {

constexpr std::size_t front_end_stack_size = std::size_t{512} << 20;

[[noreturn]] void stop_on_exception(const std::exception &exception) {
  std::fprintf(stderr, "Unhandled exception: %s\n\n", exception.what());
  print_support_message();
  unlink_begun_outputs();
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

// A stack with a page below it that nobody may touch; null when there is no address space for it.
void *map_front_end_stack() {
  const std::size_t page = get_page_size();
  void *stack = mmap(nullptr, front_end_stack_size, PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE | MAP_STACK, -1, 0);
  if (stack == MAP_FAILED) return nullptr;
  mprotect(stack, page, PROT_NONE);
  return stack;
}

}  // namespace

void run_compilation(int argc, char **argv) {
  install_common_handlers(primary_signal_handler, nullptr);
  install_signal_stack();
  sys_argc = argc;
  sys_argv = argv;
  f_error = stderr;

  static ucontext_t front_end;
  void *stack = map_front_end_stack();
  if (stack != nullptr && getcontext(&front_end) == 0) {
    front_end.uc_stack.ss_sp = stack;
    front_end.uc_stack.ss_size = front_end_stack_size;
    front_end.uc_link = nullptr;
    makecontext(&front_end, compile_on_front_end_stack, 0);
    announce_stack(stack, front_end_stack_size);
    setcontext(&front_end);
  }
  compile();  // without the large stack, the ordinary one has to do
}
