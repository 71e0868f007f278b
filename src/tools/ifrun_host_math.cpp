// The host's library: mathematics, and the table of all host routines.
#include <cmath>

#include "tools/ifrun_host.h"

namespace {

using args = const an_argument_list &;
using shape = const a_shape &;

// A routine of one, two or three values. In the f form the value is computed as a float.
template <double (*D)(double), float (*F)(float)>
a_value unary(a_machine &, args a, shape r) {
  double x = float_argument(a, 0);
  return host_float_result(r.vclass == vc_float ? F(static_cast<float>(x)) : D(x), r);
}
template <double (*D)(double, double), float (*F)(float, float)>
a_value binary(a_machine &, args a, shape r) {
  double x = float_argument(a, 0), y = float_argument(a, 1);
  return host_float_result(
      r.vclass == vc_float ? F(static_cast<float>(x), static_cast<float>(y)) : D(x, y), r);
}
a_value host_fma(a_machine &, args a, shape r) {
  double x = float_argument(a, 0), y = float_argument(a, 1), z = float_argument(a, 2);
  return host_float_result(
      r.vclass == vc_float
          ? std::fma(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z))
          : std::fma(x, y, z),
      r);
}
a_value host_ldexp(a_machine &, args a, shape r) {
  return host_float_result(std::ldexp(float_argument(a, 0), static_cast<int>(int_argument(a, 1))),
                           r);
}
a_value host_frexp(a_machine &m, args a, shape r) {
  int exponent;
  double value = std::frexp(float_argument(a, 0), &exponent);
  m.memory.store(pointer_argument(a, 1), 4, static_cast<std::uint32_t>(exponent));
  return host_float_result(value, r);
}
a_value host_modf(a_machine &m, args a, shape r) {
  double whole;
  double value = std::modf(float_argument(a, 0), &whole);
  m.memory.store_value(pointer_argument(a, 1), r, float_value(whole));
  return host_float_result(value, r);
}
a_value host_lround(a_machine &, args a, shape r) {
  return host_result(std::llround(float_argument(a, 0)), r);
}
a_value host_lrint(a_machine &, args a, shape r) {
  return host_result(std::llrint(float_argument(a, 0)), r);
}
a_value host_classify(a_machine &, args a, shape r) {
  // The numbers of the C library: NaN 0, infinite 1, zero 2, subnormal 3, normal 4.
  switch (std::fpclassify(float_argument(a, 0))) {
    case FP_NAN:
      return host_result(0, r);
    case FP_INFINITE:
      return host_result(1, r);
    case FP_ZERO:
      return host_result(2, r);
    case FP_SUBNORMAL:
      return host_result(3, r);
    default:
      return host_result(4, r);
  }
}
a_value host_signbit(a_machine &, args a, shape r) {
  return host_result(std::signbit(float_argument(a, 0)), r);
}

#define UNARY(name)                                                                 \
  {#name, unary<std::name, std::name>}, {#name "f", unary<std::name, std::name>}, { \
#name "l", unary < std::name, std::name>                                        \
  }
#define BINARY(name)                                                                  \
  {#name, binary<std::name, std::name>}, {#name "f", binary<std::name, std::name>}, { \
#name "l", binary < std::name, std::name>                                         \
  }

constexpr a_host_row rows[] = {
    UNARY(sin),
    UNARY(cos),
    UNARY(tan),
    UNARY(asin),
    UNARY(acos),
    UNARY(atan),
    UNARY(sinh),
    UNARY(cosh),
    UNARY(tanh),
    UNARY(asinh),
    UNARY(acosh),
    UNARY(atanh),
    UNARY(exp),
    UNARY(exp2),
    UNARY(expm1),
    UNARY(log),
    UNARY(log2),
    UNARY(log10),
    UNARY(log1p),
    UNARY(sqrt),
    UNARY(cbrt),
    UNARY(fabs),
    UNARY(floor),
    UNARY(ceil),
    UNARY(trunc),
    UNARY(round),
    UNARY(rint),
    UNARY(nearbyint),
    UNARY(erf),
    UNARY(erfc),
    UNARY(lgamma),
    UNARY(tgamma),
    BINARY(pow),
    BINARY(atan2),
    BINARY(fmod),
    BINARY(hypot),
    BINARY(fmax),
    BINARY(fmin),
    BINARY(fdim),
    BINARY(copysign),
    BINARY(remainder),
    BINARY(nextafter),
    {"fma", host_fma},
    {"fmaf", host_fma},
    {"ldexp", host_ldexp},
    {"ldexpf", host_ldexp},
    {"scalbn", host_ldexp},
    {"scalbnf", host_ldexp},
    {"frexp", host_frexp},
    {"frexpf", host_frexp},
    {"modf", host_modf},
    {"modff", host_modf},
    {"lround", host_lround},
    {"lroundf", host_lround},
    {"llround", host_lround},
    {"lrint", host_lrint},
    {"lrintf", host_lrint},
    {"llrint", host_lrint},
    {"__fpclassifyd", host_classify},
    {"__fpclassifyf", host_classify},
    {"__signbitd", host_signbit},
    {"__signbitf", host_signbit},
};

}  // namespace

a_host_table host_math_routines() {
  return {rows, sizeof rows / sizeof *rows};
}

a_host_routine find_host_routine(std::string_view name) {
  static const std::unordered_map<std::string_view, a_host_routine> all = [] {
    std::unordered_map<std::string_view, a_host_routine> table;
    for (a_host_table part : {host_atomic_routines(), host_memory_routines(), host_stdio_routines(),
                              host_stdlib_routines(), host_math_routines()})
      for (std::size_t i = 0; i < part.count; i++)
        table.emplace(part.rows[i].name, part.rows[i].routine);
    return table;
  }();
  auto found = all.find(name);
  return found == all.end() ? nullptr : found->second;
}
