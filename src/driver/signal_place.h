// Where the compilation is, for the message about a fault.
#ifndef DRIVER_SIGNAL_PLACE_H
#define DRIVER_SIGNAL_PLACE_H

struct a_signal_place {
  const char *function;  // innermost function being read
  const char *file;
  unsigned long line;
};

// Never faults: every pointer on the way is looked at with suspicion.
void find_signal_place(a_signal_place *place);

#endif
