// Signals: what the process says when it breaks, and how it ends when it is asked to.
#ifndef DRIVER_SIGNALS_H
#define DRIVER_SIGNALS_H

using a_signal_handler = void (*)(int);

// Installs handler for the faults and requests to stop; callback, if not null, is called by
// primary_signal_handler before it ends the process.
void install_common_handlers(a_signal_handler handler, a_signal_handler callback);
// Puts the handlers in place that end a compilation on an interrupt with the usual sign-off, and
// lets writes to a closed pipe or a full file fail in the ordinary way.
void install_interrupt_handlers();
// From now on a fault in [low, high), which lies below the stack, is not a defect of the program
// but a source that nests too deep: the compilation ends with a catastrophe.
void install_stack_guard(void *low, void *high);
// Says what happened and where the compilation was, and ends the process.
void primary_signal_handler(int sig);
// Gives the handlers a stack of their own, so that an overflow of the main one can be told.
void install_signal_stack();

void print_support_message();
const char *tool_name();

#endif
