// One compilation from the command line to the exit status: the phases, in their order.
#ifndef DRIVER_CFE_H
#define DRIVER_CFE_H

extern int sys_argc;
extern char **sys_argv;

// Runs the whole compilation on a large stack of its own and ends the process.
[[noreturn]] void run_compilation(int argc, char **argv);

#endif
