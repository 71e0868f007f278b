// Connects the messages with the modules above them.
#ifndef DRIVER_DIAG_HOOKS_H
#define DRIVER_DIAG_HOOKS_H

// Fills in diag_hooks.
void connect_diagnostics();

#endif
