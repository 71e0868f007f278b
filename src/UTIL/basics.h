// The few definitions that every module builds on: integer names, and the check of internal
// invariants. Knows nothing of the language.
#ifndef UTIL_BASICS_H
#define UTIL_BASICS_H

#include <cstddef>
#include <cstdint>

// One unsigned host word that holds any integer of the target; how its bits are read (signed or
// unsigned) is told by the integer kind that goes with it.
using a_host_large_integer = std::uint64_t;
using a_line_number = std::uint32_t;    // 1-based; 0 means none
using a_column_number = std::uint16_t;  // 1-based byte column; 0 means none, stops at 65535

// Called when an invariant does not hold; ends the process after saying where. The diagnostics
// module installs a handler that reports an internal error at the current source position; before
// that, and if the handler returns, the words go to the standard error stream and abort() follows.
using an_invariant_handler = void (*)(const char *file, int line, const char *function,
                                      const char *text);
extern an_invariant_handler invariant_handler;  // null: none installed
[[noreturn]] void invariant_failed(const char *file, int line, const char *function,
                                   const char *text);

// Checks an invariant in every build; use it where a wrong value would give a wrong file.
#define check_invariant(condition)                                        \
  do {                                                                    \
    if (!(condition)) [[unlikely]]                                        \
      invariant_failed(__FILE_NAME__, __LINE__, __func__, #condition);    \
  } while (0)

// Stops at a place that no valid state reaches, saying why it was thought unreachable.
#define unexpected_state(text) invariant_failed(__FILE_NAME__, __LINE__, __func__, text)

#ifndef __FILE_NAME__
#define __FILE_NAME__ __FILE__
#endif

#endif
