// The host's library: atomic operations by size. One program runs at a time, so that each is its
// plain operation.
#include "tools/ifrun_host.h"

namespace {

using args = const an_argument_list &;
using shape = const a_shape &;

std::uint64_t keep_bytes(std::uint64_t value, unsigned size) {
  return size == 8 ? value : value & ((std::uint64_t{1} << size * 8) - 1);
}

std::uint64_t value_argument(args a, std::size_t n) {
  return static_cast<std::uint64_t>(int_argument(a, n));
}

using an_operation = std::uint64_t(std::uint64_t old, std::uint64_t operand);
std::uint64_t op_set(std::uint64_t, std::uint64_t operand) {
  return operand;
}
std::uint64_t op_add(std::uint64_t old, std::uint64_t operand) {
  return old + operand;
}
std::uint64_t op_sub(std::uint64_t old, std::uint64_t operand) {
  return old - operand;
}
std::uint64_t op_and(std::uint64_t old, std::uint64_t operand) {
  return old & operand;
}
std::uint64_t op_or(std::uint64_t old, std::uint64_t operand) {
  return old | operand;
}
std::uint64_t op_xor(std::uint64_t old, std::uint64_t operand) {
  return old ^ operand;
}
std::uint64_t op_nand(std::uint64_t old, std::uint64_t operand) {
  return ~(old & operand);
}

a_value result_of(std::uint64_t value, shape r) {
  return host_result(static_cast<std::int64_t>(value), r);
}

template <an_operation operation, unsigned size, bool gives_new>
a_value change(a_machine &m, args a, shape r) {
  std::uint32_t place = pointer_argument(a, 0);
  std::uint64_t old = m.memory.load(place, size);
  std::uint64_t now = keep_bytes(operation(old, value_argument(a, 1)), size);
  m.memory.store(place, size, now);
  return result_of(gives_new ? now : old, r);
}

template <unsigned size>
a_value load(a_machine &m, args a, shape r) {
  return result_of(m.memory.load(pointer_argument(a, 0), size), r);
}
template <unsigned size>
a_value store(a_machine &m, args a, shape) {
  m.memory.store(pointer_argument(a, 0), size, keep_bytes(value_argument(a, 1), size));
  return int_value(0);
}
template <unsigned size>
a_value release(a_machine &m, args a, shape) {
  m.memory.store(pointer_argument(a, 0), size, 0);
  return int_value(0);
}

// (place, expected value's place, value, ...): a place that differs is told.
template <unsigned size>
a_value compare_exchange(a_machine &m, args a, shape r) {
  std::uint32_t place = pointer_argument(a, 0), expected = pointer_argument(a, 1);
  std::uint64_t old = m.memory.load(place, size);
  bool same = old == m.memory.load(expected, size);
  if (same)
    m.memory.store(place, size, keep_bytes(value_argument(a, 2), size));
  else
    m.memory.store(expected, size, old);
  return result_of(same, r);
}

// (place, expected value, value)
template <unsigned size, bool gives_old>
a_value compare_and_swap(a_machine &m, args a, shape r) {
  std::uint32_t place = pointer_argument(a, 0);
  std::uint64_t old = m.memory.load(place, size);
  bool same = old == keep_bytes(value_argument(a, 1), size);
  if (same) m.memory.store(place, size, keep_bytes(value_argument(a, 2), size));
  return result_of(gives_old ? old : same, r);
}

a_value fence(a_machine &, args, shape) {
  return int_value(0);
}

#define SIZED(name, routine)                                                   \
  {name "_1", routine(1)}, {name "_2", routine(2)}, {name "_4", routine(4)}, { \
    name "_8", routine(8)                                                      \
  }
#define LOAD(size) load<size>
#define STORE(size) store<size>
#define RELEASE(size) release<size>
#define COMPARE_EXCHANGE(size) compare_exchange<size>
#define SWAPPED(size) compare_and_swap<size, false>
#define SWAP_OLD(size) compare_and_swap<size, true>
#define SET(size) change<op_set, size, false>
#define ROWS_OF(name, operation)                                     \
  {"__atomic_fetch_" name "_1", change<operation, 1, false>},        \
      {"__atomic_fetch_" name "_2", change<operation, 2, false>},    \
      {"__atomic_fetch_" name "_4", change<operation, 4, false>},    \
      {"__atomic_fetch_" name "_8", change<operation, 8, false>},    \
      {"__sync_fetch_and_" name "_1", change<operation, 1, false>},  \
      {"__sync_fetch_and_" name "_2", change<operation, 2, false>},  \
      {"__sync_fetch_and_" name "_4", change<operation, 4, false>},  \
      {"__sync_fetch_and_" name "_8", change<operation, 8, false>},  \
      {"__sync_" name "_and_fetch_1", change<operation, 1, true>},   \
      {"__sync_" name "_and_fetch_2", change<operation, 2, true>},   \
      {"__sync_" name "_and_fetch_4", change<operation, 4, true>}, { \
    "__sync_" name "_and_fetch_8", change<operation, 8, true>        \
  }

constexpr a_host_row rows[] = {
    SIZED("__atomic_load", LOAD),
    SIZED("__atomic_store", STORE),
    SIZED("__atomic_exchange", SET),
    SIZED("__atomic_compare_exchange", COMPARE_EXCHANGE),
    SIZED("__sync_lock_test_and_set", SET),
    SIZED("__sync_lock_release", RELEASE),
    SIZED("__sync_bool_compare_and_swap", SWAPPED),
    SIZED("__sync_val_compare_and_swap", SWAP_OLD),
    ROWS_OF("add", op_add),
    ROWS_OF("sub", op_sub),
    ROWS_OF("and", op_and),
    ROWS_OF("or", op_or),
    ROWS_OF("xor", op_xor),
    ROWS_OF("nand", op_nand),
    {"__sync_synchronize", fence},
    {"__atomic_thread_fence", fence},
    {"__atomic_signal_fence", fence},
};

}  // namespace

a_host_table host_atomic_routines() {
  return {rows, sizeof rows / sizeof *rows};
}
