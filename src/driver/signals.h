// Signals: what the process says when it breaks, and how it ends when it is asked to.
#ifndef DRIVER_SIGNALS_H
#define DRIVER_SIGNALS_H

using a_signal_handler = void (*)(int);

// Installs handler for the faults and requests to stop; callback, if not null, is called by
// primary_signal_handler before it ends the process.
void install_common_handlers(a_signal_handler handler, a_signal_handler callback);
// Puts the handlers in place that end a compilation on an interrupt with the usual sign-off.
void install_interrupt_handlers();
// Says what happened and where the compilation was, and ends the process.
void primary_signal_handler(int sig);
// Gives the handlers a stack of their own, so that an overflow of the main one can be told.
void install_signal_stack();

void print_support_message();
const char *tool_name();

#endif
