// The flat memory of the running program, and values in it.
//
// A second array holds the state of each byte, so that an access to what was never mapped, was
// freed, or is constant is found at once. Both arrays are reserved address space; only what is
// touched takes memory.
#include <sys/mman.h>

#include <cmath>
#include <cstring>

#include "tools/ifrun_machine.h"

void fault(const std::string &what) {
  throw a_run_error(status_fault, what);
}
void bad_file(const std::string &what) {
  throw a_run_error(status_bad_file, what);
}

static std::uint8_t *reserve(std::uint32_t size) {
  void *block = mmap(nullptr, size, PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (block == MAP_FAILED) throw a_run_error(status_usage, "no memory for the program");
  return static_cast<std::uint8_t *>(block);
}

a_memory::a_memory(std::uint32_t size) : bytes(reserve(size)), states(reserve(size)), total(size) {}

a_memory::~a_memory() {
  munmap(bytes, total);
  munmap(states, total);
}

void a_memory::map(std::uint32_t address, std::uint32_t size, a_state state) {
  if (address > total || size > total - address)
    bad_file("the program is too large for its memory");
  if (size != 0) std::memset(states + address, state, size);
}

void a_memory::bad_access(std::uint32_t address, std::uint32_t size, bool writes) {
  char text[128];
  const char *verb = writes ? "write" : "read";
  if (address < code_start)
    std::snprintf(text, sizeof text, "%s of %u bytes through a null pointer (address 0x%x)", verb,
                  size, address);
  else if (address < static_start)
    std::snprintf(text, sizeof text, "%s of %u bytes of code (address 0x%x)", verb, size, address);
  else if (address < total && states[address] == read_only)
    std::snprintf(text, sizeof text, "write to a constant (address 0x%x)", address);
  else
    std::snprintf(text, sizeof text, "wild %s of %u bytes at address 0x%x", verb, size, address);
  fault(text);
}

// Routines that read strings by words look behind their end, but never into a word of its own.
bool a_memory::may_read_whole_word(std::uint32_t address, std::uint32_t size) const {
  if (!whole_words || size > 4 || address % size != 0) return false;
  for (std::uint32_t i = 0; i < size; i++)
    if (states[address + i] != unmapped) return true;
  return false;
}

std::uint8_t *a_memory::readable_range(std::uint32_t address, std::uint32_t size) {
  if (address > total || size > total - address) bad_access(address, size, false);
  const void *hole = size != 0 ? std::memchr(states + address, unmapped, size) : nullptr;
  if (hole != nullptr && !may_read_whole_word(address, size))
    bad_access(static_cast<std::uint32_t>(static_cast<const std::uint8_t *>(hole) - states), size,
               false);
  return bytes + address;
}

std::uint8_t *a_memory::writable_range(std::uint32_t address, std::uint32_t size) {
  if (address > total || size > total - address) bad_access(address, size, true);
  for (std::uint32_t i = 0; i < size; i++)
    if (states[address + i] != writable) bad_access(address + i, size, true);
  return bytes + address;
}

std::uint64_t a_memory::load(std::uint32_t address, std::uint32_t count) {
  const std::uint8_t *place = readable_range(address, count);
  std::uint64_t value = 0;
  if (big_endian)
    for (std::uint32_t i = 0; i < count; i++)
      value = value << 8 | place[i];
  else
    std::memcpy(&value, place, count);
  return value;
}

void a_memory::store(std::uint32_t address, std::uint32_t count, std::uint64_t value) {
  std::uint8_t *place = writable_range(address, count);
  if (big_endian)
    for (std::uint32_t i = count; i-- > 0; value >>= 8)
      place[i] = static_cast<std::uint8_t>(value);
  else
    std::memcpy(place, &value, count);
}

a_value a_memory::load_value(std::uint32_t address, const a_shape &shape) {
  switch (shape.vclass) {
    case vc_int:
      return int_value(fit_integer(load(address, shape.bytes), shape));
    case vc_float: {
      std::uint32_t raw = static_cast<std::uint32_t>(load(address, 4));
      float f;
      std::memcpy(&f, &raw, 4);
      return float_value(f);
    }
    case vc_double:
      return int_value(load(address, 8));
    case vc_class:
      return int_value(address);
    default:
      bad_file("a value of a type that has none is read");
  }
}

void a_memory::store_value(std::uint32_t address, const a_shape &shape, a_value value) {
  switch (shape.vclass) {
    case vc_int:
      store(address, shape.bytes, value.i);
      return;
    case vc_float: {
      float f = static_cast<float>(value.f);
      std::uint32_t raw;
      std::memcpy(&raw, &f, 4);
      store(address, 4, raw);
      return;
    }
    case vc_double:
      store(address, 8, value.i);
      return;
    case vc_class: {
      std::uint32_t from = static_cast<std::uint32_t>(value.i);
      if (from == address) return;
      readable_range(from, shape.size);
      writable_range(address, shape.size);
      std::memmove(bytes + address, bytes + from, shape.size);
      return;
    }
    default:
      bad_file("a value of a type that has none is stored");
  }
}

std::string a_memory::text_at(std::uint32_t address) {
  std::string text;
  while (std::uint8_t c = static_cast<std::uint8_t>(load(address, 1))) {
    text.push_back(static_cast<char>(c));
    address++;
  }
  return text;
}

void a_memory::put_bytes(std::uint32_t address, const void *data, std::uint32_t size) {
  std::memcpy(writable_range(address, size), data, size);
}

void a_memory::set_heap(std::uint32_t start, std::uint32_t end) {
  heap_next = (start + 7) & ~7u;
  heap_end = end;
}

// Blocks are rounded to 8 bytes and kept apart by an unmapped gap of 8, so that running over the
// end of a block is a fault. A freed block waits for a request of the same size.
std::uint32_t a_memory::heap_alloc(std::uint32_t size) {
  std::uint32_t rounded = (size + 7) & ~7u;
  if (rounded < size) return 0;
  if (rounded == 0) rounded = 8;
  std::uint32_t address;
  std::vector<std::uint32_t> &free = free_blocks[rounded];
  if (!free.empty()) {
    address = free.back();
    free.pop_back();
  } else {
    if (heap_end - heap_next < 16 || heap_end - heap_next - 16 < rounded) return 0;
    address = heap_next;
    heap_next += rounded + 8;
  }
  map(address, size, writable);
  live_blocks[address] = size;
  return address;
}

void a_memory::heap_free(std::uint32_t address) {
  if (address == 0) return;
  std::uint32_t size = heap_size(address);
  live_blocks.erase(address);
  std::uint32_t rounded = size == 0 ? 8 : (size + 7) & ~7u;
  map(address, rounded, unmapped);
  free_blocks[rounded].push_back(address);
}

std::uint32_t a_memory::heap_size(std::uint32_t address) {
  auto block = live_blocks.find(address);
  if (block == live_blocks.end()) fault("free or realloc of something that malloc did not give");
  return block->second;
}

a_shape shape_of(const TYPE *type) {
  a_shape shape;
  if (type == nullptr) return shape;
  std::uint32_t align = type->align_in_bytes();
  const TYPE *inner = type->stripped;
  while (inner->kind == TYPE::ENUM)
    inner = inner->component->stripped;
  shape.align = align == 0 ? 1 : align;
  shape.size = static_cast<std::uint32_t>(type->stripped->size_in_bytes());
  switch (inner->kind) {
    case TYPE::INTEGRAL:
      shape.vclass = vc_int;
      shape.bytes = static_cast<std::uint8_t>(inner->size_in_bytes());
      shape.is_signed = inner->is_signed();
      shape.is_bool = inner->is_bool();
      break;
    case TYPE::FLOATING:
      shape.vclass = inner->size == 32 ? vc_float : vc_double;
      shape.bytes = static_cast<std::uint8_t>(inner->size_in_bytes());
      break;
    case TYPE::POINTER:
    case TYPE::REFERENCE:
    case TYPE::PTR_TO_MEMBER:
      shape.vclass = vc_int;
      shape.bytes = 4;
      shape.is_pointer = true;
      break;
    case TYPE::FUNCTION:
      shape.vclass = vc_function;
      break;
    case TYPE::VOID_KIND:
      break;
    default:
      shape.vclass = vc_class;  // arrays too: they are known by their place
      break;
  }
  return shape;
}

std::uint64_t fit_integer(std::uint64_t value, const a_shape &shape) {
  unsigned unused = 64 - 8u * shape.bytes;
  if (unused == 0) return value;
  value <<= unused;
  return shape.is_signed ? static_cast<std::uint64_t>(static_cast<std::int64_t>(value) >> unused)
                         : value >> unused;
}

// Out of range the result is the nearest value, as the target's instructions give it.
static std::uint64_t integer_of_float(double f, const a_shape &to) {
  if (std::isnan(f)) return 0;
  f = std::trunc(f);
  unsigned bits = 8u * to.bytes;
  if (to.is_signed) {
    double bound = std::ldexp(1.0, static_cast<int>(bits) - 1);
    if (f >= bound) return fit_integer((std::uint64_t{1} << (bits - 1)) - 1, to);
    if (f < -bound) return fit_integer(std::uint64_t{1} << (bits - 1), to);
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(f));
  }
  if (f <= 0) return 0;
  if (f >= std::ldexp(1.0, static_cast<int>(bits))) return fit_integer(~std::uint64_t{0}, to);
  return static_cast<std::uint64_t>(f);
}

a_value convert(a_value value, const a_shape &from, const a_shape &to) {
  bool from_float = from.vclass == vc_float || from.vclass == vc_double;
  switch (to.vclass) {
    case vc_int:
      if (to.is_bool) return int_value(from_float ? value.f != 0 : value.i != 0);
      if (!from_float) return int_value(fit_integer(value.i, to));
      // Narrow targets take the value by way of int, as the conversion instructions do.
      if (to.bytes < 4) {
        a_shape wide;
        wide.bytes = 4;
        wide.is_signed = true;
        return int_value(fit_integer(integer_of_float(value.f, wide), to));
      }
      return int_value(integer_of_float(value.f, to));
    case vc_float:
      if (from_float) return float_value(static_cast<float>(value.f));
      return float_value(from.is_signed ? static_cast<float>(static_cast<std::int64_t>(value.i))
                                        : static_cast<float>(value.i));
    case vc_double:
      if (from_float) return value;
      return float_value(from.is_signed ? static_cast<double>(static_cast<std::int64_t>(value.i))
                                        : static_cast<double>(value.i));
    default:
      return value;
  }
}

a_shape promoted_shape(const a_shape &shape) {
  if (shape.vclass != vc_int || shape.bytes >= 4) return shape;
  a_shape result;
  result.vclass = vc_int;
  result.bytes = 4;
  result.is_signed = true;
  result.size = result.align = 4;
  return result;
}

a_shape usual_shape(const a_shape &a, const a_shape &b) {
  if (a.vclass == vc_double) return a;
  if (b.vclass == vc_double) return b;
  if (a.vclass == vc_float) return a;
  if (b.vclass == vc_float) return b;
  a_shape x = promoted_shape(a), y = promoted_shape(b);
  if (x.bytes != y.bytes) return x.bytes > y.bytes ? x : y;
  return x.is_signed ? y : x;
}
