// The last stop of a failed invariant.
#include "UTIL/basics.h"

#include <cstdio>
#include <cstdlib>

an_invariant_handler invariant_handler = nullptr;

void invariant_failed(const char *file, int line, const char *function, const char *text) {
  if (an_invariant_handler handler = invariant_handler) {
    invariant_handler = nullptr;  // a failure inside the handler must not come back here
    handler(file, line, function, text);
  }
  std::fprintf(stderr, "internal error: %s, line %d, in %s: %s\n", file, line, function, text);
  std::abort();
}
