// The host's library: memory, strings, characters.
#include <cctype>
#include <cstring>

#include "tools/ifrun_host.h"

namespace {

using args = const an_argument_list &;
using shape = const a_shape &;

std::uint32_t size_argument(args a, std::size_t n) {
  return static_cast<std::uint32_t>(int_argument(a, n));
}

a_value copy_memory(a_machine &m, args a, shape) {
  std::uint32_t to = pointer_argument(a, 0), from = pointer_argument(a, 1), n = size_argument(a, 2);
  if (n != 0) {
    m.memory.readable_range(from, n);
    std::memmove(m.memory.writable_range(to, n), m.memory.raw(from), n);
  }
  return int_value(to);
}
a_value copy_memory_end(a_machine &m, args a, shape r) {
  copy_memory(m, a, r);
  return int_value(pointer_argument(a, 0) + size_argument(a, 2));
}
a_value set_memory(a_machine &m, args a, shape) {
  std::uint32_t to = pointer_argument(a, 0), n = size_argument(a, 2);
  if (n != 0) std::memset(m.memory.writable_range(to, n), static_cast<int>(int_argument(a, 1)), n);
  return int_value(to);
}
a_value clear_memory(a_machine &m, args a, shape) {
  std::uint32_t to = pointer_argument(a, 0), n = size_argument(a, 1);
  if (n != 0) std::memset(m.memory.writable_range(to, n), 0, n);
  return int_value(0);
}
a_value compare_memory(a_machine &m, args a, shape r) {
  std::uint32_t n = size_argument(a, 2);
  if (n == 0) return int_value(0);
  int c = std::memcmp(m.memory.readable_range(pointer_argument(a, 0), n),
                      m.memory.readable_range(pointer_argument(a, 1), n), n);
  return host_result(c, r);
}
a_value find_in_memory(a_machine &m, args a, shape) {
  std::uint32_t start = pointer_argument(a, 0), n = size_argument(a, 2);
  std::uint8_t wanted = static_cast<std::uint8_t>(int_argument(a, 1));
  for (std::uint32_t i = 0; i < n; i++)
    if (m.memory.load(start + i, 1) == wanted) return int_value(start + i);
  return int_value(0);
}

a_value length(a_machine &m, args a, shape) {
  return int_value(m.memory.text_at(pointer_argument(a, 0)).size());
}
a_value bounded_length(a_machine &m, args a, shape) {
  std::uint32_t start = pointer_argument(a, 0), n = size_argument(a, 1), i = 0;
  while (i < n && m.memory.load(start + i, 1) != 0)
    i++;
  return int_value(i);
}
void put_text(a_machine &m, std::uint32_t to, const std::string &text) {
  m.memory.put_bytes(to, text.c_str(), static_cast<std::uint32_t>(text.size() + 1));
}
a_value copy_text(a_machine &m, args a, shape) {
  put_text(m, pointer_argument(a, 0), m.memory.text_at(pointer_argument(a, 1)));
  return int_value(pointer_argument(a, 0));
}
a_value copy_text_end(a_machine &m, args a, shape) {
  std::string text = m.memory.text_at(pointer_argument(a, 1));
  put_text(m, pointer_argument(a, 0), text);
  return int_value(pointer_argument(a, 0) + text.size());
}
// At most n bytes of a text, up to its NUL.
std::string bounded_text(a_machine &m, std::uint32_t address, std::uint32_t n) {
  std::string text;
  for (std::uint32_t i = 0; i < n; i++) {
    char c = static_cast<char>(m.memory.load(address + i, 1));
    if (c == 0) break;
    text.push_back(c);
  }
  return text;
}
a_value copy_text_n(a_machine &m, args a, shape) {
  std::uint32_t n = size_argument(a, 2);
  std::string text = bounded_text(m, pointer_argument(a, 1), n);
  text.resize(n, '\0');
  if (n != 0) m.memory.put_bytes(pointer_argument(a, 0), text.data(), n);
  return int_value(pointer_argument(a, 0));
}
a_value append_text(a_machine &m, args a, shape) {
  std::uint32_t to = pointer_argument(a, 0);
  std::uint32_t end = to + static_cast<std::uint32_t>(m.memory.text_at(to).size());
  put_text(m, end, m.memory.text_at(pointer_argument(a, 1)));
  return int_value(to);
}
a_value append_text_n(a_machine &m, args a, shape) {
  std::uint32_t to = pointer_argument(a, 0);
  std::uint32_t end = to + static_cast<std::uint32_t>(m.memory.text_at(to).size());
  put_text(m, end, bounded_text(m, pointer_argument(a, 1), size_argument(a, 2)));
  return int_value(to);
}
a_value compare_text(a_machine &m, args a, shape r) {
  return host_result(
      m.memory.text_at(pointer_argument(a, 0)).compare(m.memory.text_at(pointer_argument(a, 1))),
      r);
}
a_value compare_text_n(a_machine &m, args a, shape r) {
  std::uint32_t n = size_argument(a, 2);
  return host_result(bounded_text(m, pointer_argument(a, 0), n)
                         .compare(bounded_text(m, pointer_argument(a, 1), n)),
                     r);
}
a_value found(std::uint32_t start, std::size_t place) {
  return int_value(place == std::string::npos ? 0 : start + place);
}
a_value find_char(a_machine &m, args a, shape) {
  std::uint32_t start = pointer_argument(a, 0);
  std::string text = m.memory.text_at(start);
  char wanted = static_cast<char>(int_argument(a, 1));
  return wanted == 0 ? int_value(start + text.size()) : found(start, text.find(wanted));
}
a_value find_last_char(a_machine &m, args a, shape) {
  std::uint32_t start = pointer_argument(a, 0);
  std::string text = m.memory.text_at(start);
  char wanted = static_cast<char>(int_argument(a, 1));
  return wanted == 0 ? int_value(start + text.size()) : found(start, text.rfind(wanted));
}
a_value find_text(a_machine &m, args a, shape) {
  std::uint32_t start = pointer_argument(a, 0);
  return found(start, m.memory.text_at(start).find(m.memory.text_at(pointer_argument(a, 1))));
}
a_value find_any(a_machine &m, args a, shape) {
  std::uint32_t start = pointer_argument(a, 0);
  return found(start,
               m.memory.text_at(start).find_first_of(m.memory.text_at(pointer_argument(a, 1))));
}
a_value span(a_machine &m, args a, shape) {
  std::string text = m.memory.text_at(pointer_argument(a, 0));
  std::size_t end = text.find_first_not_of(m.memory.text_at(pointer_argument(a, 1)));
  return int_value(end == std::string::npos ? text.size() : end);
}
a_value span_without(a_machine &m, args a, shape) {
  std::string text = m.memory.text_at(pointer_argument(a, 0));
  std::size_t end = text.find_first_of(m.memory.text_at(pointer_argument(a, 1)));
  return int_value(end == std::string::npos ? text.size() : end);
}
a_value duplicate(a_machine &m, args a, shape) {
  std::string text = m.memory.text_at(pointer_argument(a, 0));
  std::uint32_t copy = m.memory.heap_alloc(static_cast<std::uint32_t>(text.size() + 1));
  if (copy != 0) put_text(m, copy, text);
  return int_value(copy);
}

// The next word of a text at *position, which moves on.
a_value next_word(a_machine &m, std::uint32_t text, const std::string &separators,
                  std::uint32_t position) {
  if (text == 0) text = static_cast<std::uint32_t>(m.memory.load(position, 4));
  std::string rest = text == 0 ? std::string() : m.memory.text_at(text);
  std::size_t start = rest.find_first_not_of(separators);
  if (start == std::string::npos) {
    m.memory.store(position, 4, 0);
    return int_value(0);
  }
  std::size_t end = rest.find_first_of(separators, start);
  if (end != std::string::npos) m.memory.store(text + static_cast<std::uint32_t>(end), 1, 0);
  m.memory.store(position, 4,
                 end == std::string::npos ? 0 : text + static_cast<std::uint32_t>(end) + 1);
  return int_value(text + start);
}
a_value host_strtok_r(a_machine &m, args a, shape) {
  return next_word(m, pointer_argument(a, 0), m.memory.text_at(pointer_argument(a, 1)),
                   pointer_argument(a, 2));
}
a_value host_strtok(a_machine &m, args a, shape) {
  return next_word(m, pointer_argument(a, 0), m.memory.text_at(pointer_argument(a, 1)),
                   m.strtok_position);
}

// A test gives 0 or 1; a mapping gives the character. Both leave what is no character alone.
template <int (*TEST)(int)>
a_value character_test(a_machine &, args a, shape r) {
  std::int64_t c = int_argument(a, 0);
  return host_result(c >= 0 && c <= 255 && TEST(static_cast<int>(c)) != 0, r);
}
template <int (*MAP)(int)>
a_value character_map(a_machine &, args a, shape r) {
  std::int64_t c = int_argument(a, 0);
  return host_result(c >= 0 && c <= 255 ? MAP(static_cast<int>(c)) : c, r);
}

constexpr a_host_row rows[] = {
    {"memcpy", copy_memory},
    {"memmove", copy_memory},
    {"__aeabi_memcpy", copy_memory},
    {"mempcpy", copy_memory_end},
    {"memset", set_memory},
    {"bzero", clear_memory},
    {"memcmp", compare_memory},
    {"memchr", find_in_memory},
    {"strlen", length},
    {"strnlen", bounded_length},
    {"strcpy", copy_text},
    {"stpcpy", copy_text_end},
    {"strncpy", copy_text_n},
    {"strcat", append_text},
    {"strncat", append_text_n},
    {"strcmp", compare_text},
    {"strcoll", compare_text},
    {"strncmp", compare_text_n},
    {"strchr", find_char},
    {"strrchr", find_last_char},
    {"strstr", find_text},
    {"strpbrk", find_any},
    {"strspn", span},
    {"strcspn", span_without},
    {"strdup", duplicate},
    {"strtok", host_strtok},
    {"strtok_r", host_strtok_r},
    {"isalpha", character_test<std::isalpha>},
    {"isdigit", character_test<std::isdigit>},
    {"isalnum", character_test<std::isalnum>},
    {"isspace", character_test<std::isspace>},
    {"isupper", character_test<std::isupper>},
    {"islower", character_test<std::islower>},
    {"ispunct", character_test<std::ispunct>},
    {"isprint", character_test<std::isprint>},
    {"isgraph", character_test<std::isgraph>},
    {"iscntrl", character_test<std::iscntrl>},
    {"isxdigit", character_test<std::isxdigit>},
    {"isblank", character_test<std::isblank>},
    {"tolower", character_map<std::tolower>},
    {"toupper", character_map<std::toupper>},
};

}  // namespace

a_host_table host_memory_routines() {
  return {rows, sizeof rows / sizeof *rows};
}
