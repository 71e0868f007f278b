// What the rooms of the host's library share.
#ifndef TOOLS_IFRUN_HOST_H
#define TOOLS_IFRUN_HOST_H

#include "tools/ifrun_machine.h"

// A row of a room's table. Routines that compute on their values alone, without memory, take them
// as doubles or integers through the helpers below.
struct a_host_row {
  const char *name;
  a_host_routine routine;
};
struct a_host_table {
  const a_host_row *rows;
  std::size_t count;
};
a_host_table host_atomic_routines();
a_host_table host_memory_routines();
a_host_table host_stdio_routines();
a_host_table host_stdlib_routines();
a_host_table host_math_routines();

// The n-th argument, after a check that it is there and a scalar.
inline const an_argument &host_argument(const an_argument_list &arguments, std::size_t n) {
  if (n >= arguments.size()) fault("a library routine is called with too few arguments");
  return arguments[n];
}
inline std::uint32_t pointer_argument(const an_argument_list &arguments, std::size_t n) {
  const an_argument &argument = host_argument(arguments, n);
  if (argument.shape.vclass != vc_int) fault("a library routine is called without its pointer");
  return static_cast<std::uint32_t>(argument.value.i);
}
inline std::int64_t int_argument(const an_argument_list &arguments, std::size_t n) {
  const an_argument &argument = host_argument(arguments, n);
  if (argument.shape.vclass != vc_int) fault("a library routine is called without its integer");
  return static_cast<std::int64_t>(argument.value.i);
}
inline double float_argument(const an_argument_list &arguments, std::size_t n) {
  const an_argument &argument = host_argument(arguments, n);
  a_shape wide;
  wide.vclass = vc_double;
  return convert(argument.value, argument.shape, wide).f;
}
// An integer or a floating result in the shape that the call expects.
inline a_value host_result(std::int64_t value, const a_shape &result) {
  a_shape wide;
  wide.vclass = vc_int;
  wide.bytes = 8;
  wide.is_signed = true;
  return convert(int_value(static_cast<std::uint64_t>(value)), wide, result);
}
inline a_value host_float_result(double value, const a_shape &result) {
  a_shape wide;
  wide.vclass = vc_double;
  return convert(float_value(value), wide, result);
}

#endif
