// The host's library: memory management, numbers from text, sorting and searching, jumps, ends of
// the program, time, and the run-time helpers that compiled code calls by itself.
#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "tools/ifrun_host.h"

namespace {

using args = const an_argument_list &;
using shape = const a_shape &;

a_value host_malloc(a_machine &m, args a, shape) {
  return int_value(m.memory.heap_alloc(static_cast<std::uint32_t>(int_argument(a, 0))));
}
a_value host_calloc(a_machine &m, args a, shape) {
  std::uint64_t size = static_cast<std::uint64_t>(int_argument(a, 0)) *
                       static_cast<std::uint64_t>(int_argument(a, 1));
  if (size > 0x7FFFFFFF) return int_value(0);
  std::uint32_t address = m.memory.heap_alloc(static_cast<std::uint32_t>(size));
  if (address != 0) std::memset(m.memory.raw(address), 0, size);
  return int_value(address);
}
a_value host_realloc(a_machine &m, args a, shape) {
  std::uint32_t old = pointer_argument(a, 0);
  std::uint32_t size = static_cast<std::uint32_t>(int_argument(a, 1));
  std::uint32_t address = m.memory.heap_alloc(size);
  if (address == 0 || old == 0) return int_value(address);
  std::memcpy(m.memory.raw(address), m.memory.raw(old), std::min(size, m.memory.heap_size(old)));
  m.memory.heap_free(old);
  return int_value(address);
}
a_value host_free(a_machine &m, args a, shape) {
  m.memory.heap_free(pointer_argument(a, 0));
  return int_value(0);
}

[[noreturn]] a_value host_exit(a_machine &, args a, shape) {
  throw a_program_exit{static_cast<int>(int_argument(a, 0)) & 0xFF};
}
[[noreturn]] a_value host_quick_exit(a_machine &, args a, shape) {
  throw a_program_exit{-(static_cast<int>(int_argument(a, 0)) & 0xFF)};
}
[[noreturn]] a_value host_abort(a_machine &, args, shape) {
  std::fprintf(stderr, "Aborted\n");
  throw a_program_exit{-134};
}
a_value host_atexit(a_machine &m, args a, shape) {
  m.exit_routines.push_back(pointer_argument(a, 0));
  return int_value(0);
}
// void __assert_func(const char *file, int line, const char *function, const char *expression)
[[noreturn]] a_value host_assert_func(a_machine &m, args a, shape) {
  std::string function =
      pointer_argument(a, 2) == 0 ? "" : m.memory.text_at(pointer_argument(a, 2));
  std::fprintf(stderr, "assertion \"%s\" failed: file \"%s\", line %d%s%s\n",
               m.memory.text_at(pointer_argument(a, 3)).c_str(),
               m.memory.text_at(pointer_argument(a, 0)).c_str(),
               static_cast<int>(int_argument(a, 1)),
               function.empty() ? "" : ", function: ", function.c_str());
  throw a_program_exit{-134};
}

// Text to number: end is stored where the second argument points.
void store_end(a_machine &m, args a, const std::string &text, const char *end) {
  std::uint32_t where = pointer_argument(a, 1);
  if (where != 0)
    m.memory.store(where, 4,
                   pointer_argument(a, 0) + static_cast<std::uint32_t>(end - text.c_str()));
}
void set_range_error(a_machine &m) {
  m.memory.store(m.errno_address, 4, ERANGE);
}
a_value host_strtol(a_machine &m, args a, shape r) {
  std::string text = m.memory.text_at(pointer_argument(a, 0));
  char *end;
  errno = 0;
  long long value = std::strtoll(text.c_str(), &end, static_cast<int>(int_argument(a, 2)));
  store_end(m, a, text, end);
  long long fitting = r.bytes == 4 ? std::clamp<long long>(value, INT32_MIN, INT32_MAX) : value;
  if (errno == ERANGE || fitting != value) set_range_error(m);
  value = fitting;
  return host_result(value, r);
}
a_value host_strtoul(a_machine &m, args a, shape r) {
  std::string text = m.memory.text_at(pointer_argument(a, 0));
  char *end;
  errno = 0;
  unsigned long long value =
      std::strtoull(text.c_str(), &end, static_cast<int>(int_argument(a, 2)));
  store_end(m, a, text, end);
  bool negative = text.find('-') < static_cast<std::size_t>(end - text.c_str());
  unsigned long long magnitude = negative ? 0 - value : value;
  bool too_large = r.bytes == 4 && magnitude > UINT32_MAX;
  if (too_large) value = UINT32_MAX;
  if (errno == ERANGE || too_large) set_range_error(m);
  return host_result(static_cast<std::int64_t>(value), r);
}
a_value host_strtod(a_machine &m, args a, shape r) {
  std::string text = m.memory.text_at(pointer_argument(a, 0));
  char *end;
  errno = 0;
  double value =
      r.vclass == vc_float ? std::strtof(text.c_str(), &end) : std::strtod(text.c_str(), &end);
  store_end(m, a, text, end);
  if (errno == ERANGE) set_range_error(m);
  return host_float_result(value, r);
}
a_value host_atoi(a_machine &m, args a, shape r) {
  return host_result(std::strtoll(m.memory.text_at(pointer_argument(a, 0)).c_str(), nullptr, 10),
                     r);
}
a_value host_atof(a_machine &m, args a, shape r) {
  return host_float_result(std::strtod(m.memory.text_at(pointer_argument(a, 0)).c_str(), nullptr),
                           r);
}
a_value host_abs(a_machine &, args a, shape r) {
  std::int64_t value = int_argument(a, 0);
  return host_result(value < 0 ? -value : value, r);
}

constexpr a_shape pointer_shape{vc_int, 4, false, false, true, 4, 4};
constexpr a_shape int_shape{vc_int, 4, true, false, false, 4, 4};

int call_compare(a_machine &m, std::uint32_t routine, std::uint32_t x, std::uint32_t y) {
  an_argument_list list = {{pointer_shape, int_value(x)}, {pointer_shape, int_value(y)}};
  return static_cast<int>(m.call_address(routine, list, int_shape).i);
}

// Sorts by merging, so that a comparison that contradicts itself cannot lead out of the array. The
// elements are compared at places of their own in memory.
a_value host_qsort(a_machine &m, args a, shape) {
  std::uint32_t base = pointer_argument(a, 0);
  std::uint32_t count = static_cast<std::uint32_t>(int_argument(a, 1));
  std::uint32_t size = static_cast<std::uint32_t>(int_argument(a, 2));
  std::uint32_t routine = pointer_argument(a, 3);
  if (count < 2 || size == 0) return int_value(0);
  m.memory.writable_range(base, count * size);
  std::uint32_t copy = m.memory.heap_alloc(count * size);
  if (copy == 0) fault("no memory to sort in");
  std::memcpy(m.memory.raw(copy), m.memory.raw(base), std::size_t{count} * size);
  std::vector<std::uint32_t> order(count), merged(count);
  for (std::uint32_t i = 0; i < count; i++)
    order[i] = copy + i * size;
  for (std::uint32_t width = 1; width < count; width *= 2) {
    for (std::uint32_t low = 0; low < count; low += 2 * width) {
      std::uint32_t middle = std::min(low + width, count), high = std::min(low + 2 * width, count);
      for (std::uint32_t i = low, j = middle, k = low; k < high; k++) {
        bool take_first =
            j >= high || (i < middle && call_compare(m, routine, order[i], order[j]) <= 0);
        merged[k] = take_first ? order[i++] : order[j++];
      }
    }
    order.swap(merged);
  }
  for (std::uint32_t i = 0; i < count; i++)
    std::memcpy(m.memory.raw(base + i * size), m.memory.raw(order[i]), size);
  m.memory.heap_free(copy);
  return int_value(0);
}
a_value host_bsearch(a_machine &m, args a, shape) {
  std::uint32_t key = pointer_argument(a, 0), base = pointer_argument(a, 1);
  std::uint32_t low = 0, high = static_cast<std::uint32_t>(int_argument(a, 2));
  std::uint32_t size = static_cast<std::uint32_t>(int_argument(a, 3));
  while (low < high) {
    std::uint32_t middle = low + (high - low) / 2;
    int c = call_compare(m, pointer_argument(a, 4), key, base + middle * size);
    if (c == 0) return int_value(base + middle * size);
    (c < 0 ? high : low) = c < 0 ? middle : middle + 1;
  }
  return int_value(0);
}

std::uint64_t random_state = 1;
a_value host_srand(a_machine &, args a, shape) {
  random_state = static_cast<std::uint32_t>(int_argument(a, 0));
  return int_value(0);
}
a_value host_rand(a_machine &, args, shape r) {
  random_state = random_state * 6364136223846793005u + 1;
  return host_result(static_cast<std::int64_t>(random_state >> 32 & 0x7FFFFFFF), r);
}

a_value host_time(a_machine &m, args a, shape r) {
  std::int64_t now = std::time(nullptr);
  std::uint32_t where = pointer_argument(a, 0);
  if (where != 0) m.memory.store(where, r.bytes, static_cast<std::uint64_t>(now));
  return host_result(now, r);
}
a_value host_clock(a_machine &, args, shape r) {
  return host_result(static_cast<std::int64_t>(std::clock()) * 100 / CLOCKS_PER_SEC, r);
}
a_value host_getenv(a_machine &, args, shape) {
  return int_value(0);
}

a_value host_setjmp(a_machine &m, args a, shape r) {
  std::uint32_t buffer = pointer_argument(a, 0);
  auto back = m.returned_jumps.find(buffer);
  if (back != m.returned_jumps.end()) {
    int value = back->second;
    m.returned_jumps.erase(back);
    return host_result(value, r);
  }
  m.jump_buffers[buffer] = {buffer, m.frame->id, m.frame->step, 0};
  return int_value(0);
}
[[noreturn]] a_value host_longjmp(a_machine &m, args a, shape) {
  auto found = m.jump_buffers.find(pointer_argument(a, 0));
  if (found == m.jump_buffers.end()) fault("longjmp to a buffer that setjmp did not fill");
  a_long_jump jump = found->second;
  jump.value = static_cast<int>(int_argument(a, 1));
  if (jump.value == 0) jump.value = 1;
  for (a_frame *frame = m.frame; frame != nullptr; frame = frame->caller)
    if (frame->id == jump.frame_id) throw jump;
  fault("longjmp into a routine that has returned");
}

a_value host_errno(a_machine &m, args, shape) {
  return int_value(m.errno_address);
}

[[noreturn]] a_value host_never_executed(a_machine &, args, shape) {
  fault("a place that the program says is never reached is reached");
}

// Bit counting, by the names that the run-time library gives to it.
std::uint64_t word(args a, int bits) {
  std::uint64_t value = static_cast<std::uint64_t>(int_argument(a, 0));
  return bits == 32 ? static_cast<std::uint32_t>(value) : value;
}
a_value swap_word(a_machine &, args a, shape r) {
  return host_result(__builtin_bswap32(static_cast<std::uint32_t>(word(a, 32))), r);
}
a_value swap_halves(a_machine &, args a, shape r) {
  std::uint32_t swapped = __builtin_bswap32(static_cast<std::uint32_t>(word(a, 32)));
  return host_result(swapped >> 16 | swapped << 16, r);
}
template <int BITS>
a_value count_leading(a_machine &, args a, shape r) {
  std::uint64_t v = word(a, BITS);
  return host_result(v == 0 ? BITS : std::countl_zero(v) - (64 - BITS), r);
}
template <int BITS>
a_value count_trailing(a_machine &, args a, shape r) {
  std::uint64_t v = word(a, BITS);
  return host_result(v == 0 ? BITS : std::countr_zero(v), r);
}
template <int BITS>
a_value find_first_set(a_machine &, args a, shape r) {
  std::uint64_t v = word(a, BITS);
  return host_result(v == 0 ? 0 : std::countr_zero(v) + 1, r);
}
template <int BITS>
a_value count_bits(a_machine &, args a, shape r) {
  return host_result(std::popcount(word(a, BITS)), r);
}
template <int BITS>
a_value parity(a_machine &, args a, shape r) {
  return host_result(std::popcount(word(a, BITS)) & 1, r);
}

constexpr a_host_row rows[] = {
    {"malloc", host_malloc},
    {"calloc", host_calloc},
    {"realloc", host_realloc},
    {"free", host_free},
    {"exit", host_exit},
    {"_exit", host_quick_exit},
    {"_Exit", host_quick_exit},
    {"abort", host_abort},
    {"atexit", host_atexit},
    {"__assert_func", host_assert_func},
    {"strtol", host_strtol},
    {"strtoll", host_strtol},
    {"strtoul", host_strtoul},
    {"strtoull", host_strtoul},
    {"strtod", host_strtod},
    {"strtof", host_strtod},
    {"strtold", host_strtod},
    {"atoi", host_atoi},
    {"atol", host_atoi},
    {"atoll", host_atoi},
    {"atof", host_atof},
    {"abs", host_abs},
    {"labs", host_abs},
    {"llabs", host_abs},
    {"qsort", host_qsort},
    {"bsearch", host_bsearch},
    {"rand", host_rand},
    {"srand", host_srand},
    {"random", host_rand},
    {"srandom", host_srand},
    {"time", host_time},
    {"clock", host_clock},
    {"getenv", host_getenv},
    {"setjmp", host_setjmp},
    {"_setjmp", host_setjmp},
    {"longjmp", host_longjmp},
    {"_longjmp", host_longjmp},
    {"__errno", host_errno},
    {"_never_executed", host_never_executed},
    {"__bswapsi2", swap_word},
    {"__rev", swap_word},
    {"__rev16", swap_halves},
    {"__clz", count_leading<32>},
    {"__clzsi2", count_leading<32>},
    {"__clzdi2", count_leading<64>},
    {"__ctzsi2", count_trailing<32>},
    {"__ctzdi2", count_trailing<64>},
    {"__ffssi2", find_first_set<32>},
    {"__ffsdi2", find_first_set<64>},
    {"__popcountsi2", count_bits<32>},
    {"__popcountdi2", count_bits<64>},
    {"__paritysi2", parity<32>},
    {"__paritydi2", parity<64>},
    {"ffs", find_first_set<32>},
};

}  // namespace

a_host_table host_stdlib_routines() {
  return {rows, sizeof rows / sizeof *rows};
}
