// Nesting has a limit, so that no input runs out of stack: each recursive entry of the parser
// counts how often it is open and stops the compilation beyond its limit.
#pragma once

#include "DIAG/error.h"
#include "il/src_seq.h"
#include "source/lexical.h"

class a_depth_guard {
 public:
  // The count is cleared where a unit starts: after a catastrophe nobody counts down.
  a_depth_guard(int &count, int limit) : count(count) {
    if (++count <= limit) return;
    error_position = pos_curr_token;
    catastrophe(ec_program_too_large);
  }
  ~a_depth_guard() { --count; }
  a_depth_guard(const a_depth_guard &) = delete;
  a_depth_guard &operator=(const a_depth_guard &) = delete;

 private:
  int &count;
};
