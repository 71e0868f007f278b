// The host's library: formatted output and input, streams.
//
// Formats are taken apart here, because their arguments lie in the program's memory; each single
// conversion is done by the host's own routine.
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>

#include "tools/ifrun_host.h"

namespace {

using args = const an_argument_list &;
using shape = const a_shape &;

// Where a format takes its values: from a call's arguments, or from memory by a va_list.
class a_value_source {
 public:
  a_value_source(a_machine &machine, args list, std::size_t first)
      : m(machine), arguments(&list), index(first) {}
  a_value_source(a_machine &machine, std::uint32_t start) : m(machine), address(start) {}

  std::uint64_t next_integer(std::uint32_t bytes) {
    if (arguments != nullptr) {
      const an_argument &argument = host_argument(*arguments, index++);
      if (argument.shape.vclass != vc_int) fault("a format asks for an integer that is not there");
      return argument.value.i;
    }
    return m.memory.load(next_slot(bytes), bytes);
  }
  double next_float() {
    if (arguments != nullptr) {
      const an_argument &argument = host_argument(*arguments, index++);
      if (argument.shape.vclass != vc_double && argument.shape.vclass != vc_float)
        fault("a format asks for a floating value that is not there");
      return argument.value.f;
    }
    a_value value = int_value(m.memory.load(next_slot(8), 8));
    return value.f;
  }

 private:
  std::uint32_t next_slot(std::uint32_t bytes) {
    if (bytes == 8 && m.eabi) address = (address + 7) & ~7u;
    std::uint32_t slot = address;
    address += bytes < 4 ? 4 : bytes;
    return slot;
  }
  a_machine &m;
  const an_argument_list *arguments = nullptr;
  std::size_t index = 0;
  std::uint32_t address = 0;
};

// The start of the values of a va_list: its one member, wherever the list is passed as a class, by
// its address, or as a plain pointer.
a_value_source source_of_list(a_machine &m, args a, std::size_t n) {
  const an_argument &argument = host_argument(a, n);
  std::uint32_t address = static_cast<std::uint32_t>(argument.value.i);
  if (argument.shape.vclass == vc_class)
    address = static_cast<std::uint32_t>(m.memory.load(address, 4));
  return a_value_source(m, address);
}

struct a_conversion {
  std::string flags;
  int width = -1, precision = -1;
  std::uint32_t bytes = 4;  // of an integer
  char letter = 0;
  bool is_char_size = false, is_short_size = false, suppressed = false;
};

// Reads a conversion behind its %; `*` takes its value from the source when one is given.
a_conversion read_conversion(const std::string &format, std::size_t *place,
                             a_value_source *source) {
  a_conversion c;
  auto at = [&] { return *place < format.size() ? format[*place] : '\0'; };
  while (at() != 0 && std::strchr("-+ #0", at()) != nullptr)
    c.flags += format[(*place)++];
  auto number = [&](int *result) {
    if (at() == '*') {
      (*place)++;
      if (source == nullptr) {
        c.suppressed = true;
        return;
      }
      *result = static_cast<int>(source->next_integer(4));
    } else {
      while (at() >= '0' && at() <= '9') {
        if (*result < 0) *result = 0;
        if (*result < 100000000) *result = *result * 10 + (at() - '0');
        (*place)++;
      }
    }
  };
  number(&c.width);
  if (c.width < -1) {
    c.flags += '-';
    c.width = -c.width;
  }
  if (at() == '.') {
    (*place)++;
    c.precision = 0;
    number(&c.precision);
  }
  for (;; (*place)++) {
    if (at() == 'h') {
      c.is_char_size = c.is_short_size;
      c.is_short_size = !c.is_char_size;
    } else if (at() == 'l' && *place + 1 < format.size() && format[*place + 1] == 'l') {
      (*place)++;
      c.bytes = 8;
    } else if (at() == 'q' || at() == 'j') {
      c.bytes = 8;
    } else if (at() != 'l' && at() != 'L' && at() != 'z' && at() != 't') {
      break;
    }
  }
  c.letter = at();
  if (c.letter != 0) (*place)++;
  return c;
}

template <typename VALUE>
std::string formatted(const a_conversion &c, const char *length, VALUE value) {
  std::string format = "%" + c.flags;
  if (c.width >= 0) format += std::to_string(c.width);
  if (c.precision >= 0) format += "." + std::to_string(c.precision);
  format += length;
  format += c.letter;
  int size = std::snprintf(nullptr, 0, format.c_str(), value);
  std::string text(static_cast<std::size_t>(size) + 1, '\0');
  std::snprintf(text.data(), text.size(), format.c_str(), value);
  text.resize(static_cast<std::size_t>(size));
  return text;
}

std::string converted(a_machine &m, a_conversion c, a_value_source &source, std::size_t so_far) {
  switch (c.letter) {
    case 'd':
    case 'i': {
      std::int64_t value = static_cast<std::int64_t>(source.next_integer(c.bytes));
      if (c.bytes == 4) value = static_cast<std::int32_t>(value);
      if (c.is_short_size) value = static_cast<std::int16_t>(value);
      if (c.is_char_size) value = static_cast<std::int8_t>(value);
      return formatted(c, "ll", static_cast<long long>(value));
    }
    case 'u':
    case 'o':
    case 'x':
    case 'X': {
      std::uint64_t value = source.next_integer(c.bytes);
      if (c.bytes == 4) value = static_cast<std::uint32_t>(value);
      if (c.is_short_size) value = static_cast<std::uint16_t>(value);
      if (c.is_char_size) value = static_cast<std::uint8_t>(value);
      return formatted(c, "ll", static_cast<unsigned long long>(value));
    }
    case 'c':
      return formatted(c, "", static_cast<int>(source.next_integer(4)));
    case 's': {
      std::uint32_t address = static_cast<std::uint32_t>(source.next_integer(4));
      std::string text;
      for (int i = 0; c.precision < 0 || i < c.precision; i++) {
        char byte = static_cast<char>(m.memory.load(address + static_cast<std::uint32_t>(i), 1));
        if (byte == 0) break;
        text += byte;
      }
      c.precision = -1;
      return formatted(c, "", text.c_str());
    }
    case 'p':
      c.letter = 'x';
      c.flags += '#';
      return formatted(c, "", static_cast<unsigned>(source.next_integer(4)));
    case 'n':
      m.memory.store(static_cast<std::uint32_t>(source.next_integer(4)), c.bytes, so_far);
      return "";
    case 'a':
    case 'A':
    case 'e':
    case 'E':
    case 'f':
    case 'F':
    case 'g':
    case 'G':
      return formatted(c, "", source.next_float());
    case '%':
      return "%";
    default:
      fault("a format with an unknown conversion");
  }
}

std::string format_text(a_machine &m, std::uint32_t format_address, a_value_source source) {
  std::string format = m.memory.text_at(format_address);
  std::string result;
  for (std::size_t place = 0; place < format.size();) {
    if (format[place] != '%') {
      result += format[place++];
      continue;
    }
    place++;
    a_conversion c = read_conversion(format, &place, &source);
    result += converted(m, c, source, result.size());
  }
  return result;
}

// Streams that the program opened, by the address that it knows them by.
std::map<std::uint32_t, std::FILE *> &open_streams() {
  static std::map<std::uint32_t, std::FILE *> streams;
  return streams;
}

std::FILE *stream_at(a_machine &m, std::uint32_t address) {
  if (address == m.standard_streams) return stdin;
  if (address == m.standard_streams + 8) return stdout;
  if (address == m.standard_streams + 16) return stderr;
  auto found = open_streams().find(address);
  if (found == open_streams().end()) fault("a stream that is not open");
  return found->second;
}

int write_out(std::FILE *stream, const std::string &text) {
  std::fwrite(text.data(), 1, text.size(), stream);
  return static_cast<int>(text.size());
}

int write_to_memory(a_machine &m, std::uint32_t to, std::uint32_t size, const std::string &text) {
  if (size != 0) {
    std::string part = text.substr(0, size - 1);
    m.memory.put_bytes(to, part.c_str(), static_cast<std::uint32_t>(part.size() + 1));
  }
  return static_cast<int>(text.size());
}

a_value host_printf(a_machine &m, args a, shape r) {
  return host_result(
      write_out(stdout, format_text(m, pointer_argument(a, 0), a_value_source(m, a, 1))), r);
}
a_value host_fprintf(a_machine &m, args a, shape r) {
  std::FILE *stream = stream_at(m, pointer_argument(a, 0));
  return host_result(
      write_out(stream, format_text(m, pointer_argument(a, 1), a_value_source(m, a, 2))), r);
}
a_value host_sprintf(a_machine &m, args a, shape r) {
  std::string text = format_text(m, pointer_argument(a, 1), a_value_source(m, a, 2));
  return host_result(write_to_memory(m, pointer_argument(a, 0), ~0u, text), r);
}
a_value host_snprintf(a_machine &m, args a, shape r) {
  std::string text = format_text(m, pointer_argument(a, 2), a_value_source(m, a, 3));
  std::uint32_t size = static_cast<std::uint32_t>(int_argument(a, 1));
  return host_result(write_to_memory(m, pointer_argument(a, 0), size, text), r);
}
a_value host_vprintf(a_machine &m, args a, shape r) {
  return host_result(
      write_out(stdout, format_text(m, pointer_argument(a, 0), source_of_list(m, a, 1))), r);
}
a_value host_vfprintf(a_machine &m, args a, shape r) {
  std::FILE *stream = stream_at(m, pointer_argument(a, 0));
  return host_result(
      write_out(stream, format_text(m, pointer_argument(a, 1), source_of_list(m, a, 2))), r);
}
a_value host_vsprintf(a_machine &m, args a, shape r) {
  std::string text = format_text(m, pointer_argument(a, 1), source_of_list(m, a, 2));
  return host_result(write_to_memory(m, pointer_argument(a, 0), ~0u, text), r);
}
a_value host_vsnprintf(a_machine &m, args a, shape r) {
  std::string text = format_text(m, pointer_argument(a, 2), source_of_list(m, a, 3));
  std::uint32_t size = static_cast<std::uint32_t>(int_argument(a, 1));
  return host_result(write_to_memory(m, pointer_argument(a, 0), size, text), r);
}

// Where scanned characters come from.
struct a_char_source {
  std::function<int()> next;      // -1 at the end
  std::function<void(int)> back;  // one character is taken back
  int count = 0;
  int get() {
    int c = next();
    if (c >= 0) count++;
    return c;
  }
  void unget(int c) {
    if (c < 0) return;
    count--;
    back(c);
  }
  int skip_space() {
    int c;
    do
      c = get();
    while (c == ' ' || (c >= '\t' && c <= '\r'));
    return c;
  }
};

bool number_goes_on(const std::string &text, int c, char letter) {
  if (std::strchr("diuoxX", letter) != nullptr) {
    if (text.empty())
      return c == '+' || c == '-' || (c >= '0' && c <= '9') ||
             (std::isxdigit(c) && (letter == 'x' || letter == 'X'));
    bool hexadecimal =
        letter == 'x' || letter == 'X' || text.find_first_of("xX") != std::string::npos;
    if ((c == 'x' || c == 'X') && (letter == 'i' || letter == 'x' || letter == 'X'))
      return text == "0" || text == "+0" || text == "-0";
    return hexadecimal ? std::isxdigit(c) != 0 : c >= '0' && c <= '9';
  }
  return std::isalnum(c) || c == '.' ||
         ((c == '+' || c == '-') && (text.empty() || std::strchr("eEpP", text.back()) != nullptr));
}

std::string scan_number(a_char_source &in, const a_conversion &c) {
  std::string text;
  int ch = in.skip_space();
  while (ch >= 0 && (c.width < 0 || static_cast<int>(text.size()) < c.width) &&
         number_goes_on(text, ch, c.letter)) {
    text += static_cast<char>(ch);
    ch = in.get();
  }
  in.unget(ch);
  return text;
}

std::uint32_t size_of_target(const a_conversion &c) {
  return c.is_char_size ? 1 : c.is_short_size ? 2 : c.bytes;
}

// The set of a %[ conversion, as a table of 256 truth values.
std::vector<bool> scan_set(const std::string &format, std::size_t *place) {
  std::vector<bool> set(256, false);
  bool inverted = *place < format.size() && format[*place] == '^';
  if (inverted) (*place)++;
  bool first = true;
  for (; *place < format.size() && (first || format[*place] != ']'); (*place)++, first = false) {
    unsigned char low = static_cast<unsigned char>(format[*place]), high = low;
    if (*place + 2 < format.size() && format[*place + 1] == '-' && format[*place + 2] != ']') {
      high = static_cast<unsigned char>(format[*place + 2]);
      *place += 2;
    }
    for (unsigned i = low; i <= high; i++)
      set[i] = true;
  }
  (*place)++;
  if (inverted) set.flip();
  return set;
}

int scan_text(a_machine &m, a_char_source in, std::uint32_t format_address, a_value_source source,
              bool long_double_is_double = true) {
  (void)long_double_is_double;
  std::string format = m.memory.text_at(format_address);
  int assigned = 0;
  bool at_end = false;
  for (std::size_t place = 0; place < format.size();) {
    char f = format[place];
    if (std::isspace(static_cast<unsigned char>(f))) {
      in.unget(in.skip_space());
      place++;
      continue;
    }
    if (f != '%') {
      int c = in.get();
      if (c != static_cast<unsigned char>(f)) {
        at_end = c < 0;
        in.unget(c);
        break;
      }
      place++;
      continue;
    }
    place++;
    std::size_t letter_place = place;
    a_conversion c = read_conversion(format, &place, nullptr);
    bool is_long =
        format.substr(letter_place, place - letter_place).find_first_of("lL") != std::string::npos;
    if (c.letter == '%') {
      int ch = in.skip_space();
      if (ch != '%') break;
      continue;
    }
    if (c.letter == 'n') {
      if (!c.suppressed)
        m.memory.store(static_cast<std::uint32_t>(source.next_integer(4)), size_of_target(c),
                       static_cast<std::uint64_t>(in.count));
      continue;
    }
    if (c.letter == 'c' || c.letter == 's' || c.letter == '[') {
      std::vector<bool> set(256, true);
      if (c.letter == '[') set = scan_set(format, &place);
      if (c.letter == 's')
        for (int i : {' ', '\t', '\n', '\v', '\f', '\r'})
          set[static_cast<std::size_t>(i)] = false;
      int ch = c.letter == 's' ? in.skip_space() : in.get();
      std::string text;
      int width = c.letter == 'c' && c.width < 0 ? 1 : c.width;
      while (ch >= 0 && set[static_cast<std::size_t>(ch)] &&
             (width < 0 || static_cast<int>(text.size()) < width)) {
        text += static_cast<char>(ch);
        ch = in.get();
      }
      in.unget(ch);
      if (text.empty()) {
        at_end = ch < 0;
        break;
      }
      if (c.suppressed) continue;
      std::uint32_t to = static_cast<std::uint32_t>(source.next_integer(4));
      m.memory.put_bytes(to, text.c_str(),
                         static_cast<std::uint32_t>(text.size() + (c.letter == 'c' ? 0 : 1)));
      assigned++;
      continue;
    }
    std::string text = scan_number(in, c);
    char *end = nullptr;
    bool is_float = std::strchr("aAeEfFgG", c.letter) != nullptr;
    double real = 0;
    std::uint64_t integer = 0;
    if (is_float) {
      real = std::strtod(text.c_str(), &end);
    } else {
      int base = c.letter == 'i'                                         ? 0
                 : c.letter == 'o'                                       ? 8
                 : c.letter == 'x' || c.letter == 'X' || c.letter == 'p' ? 16
                                                                         : 10;
      integer = c.letter == 'u'
                    ? std::strtoull(text.c_str(), &end, base)
                    : static_cast<std::uint64_t>(std::strtoll(text.c_str(), &end, base));
    }
    if (text.empty() || end == text.c_str()) {
      int ch = in.get();
      at_end = ch < 0;
      in.unget(ch);
      break;
    }
    if (c.suppressed) continue;
    std::uint32_t to = static_cast<std::uint32_t>(source.next_integer(4));
    a_shape target;
    target.vclass = is_long ? vc_double : vc_float;
    if (is_float)
      m.memory.store_value(to, target, float_value(real));
    else
      m.memory.store(to, size_of_target(c), integer);
    assigned++;
  }
  return assigned == 0 && at_end ? -1 : assigned;
}

a_char_source chars_of_stream(std::FILE *stream) {
  a_char_source in;
  in.next = [stream] { return std::fgetc(stream); };
  in.back = [stream](int c) { std::ungetc(c, stream); };
  return in;
}
a_char_source chars_of_text(a_machine &m, std::uint32_t address) {
  a_char_source in;
  auto place = std::make_shared<std::uint32_t>(address);
  in.next = [&m, place] {
    int c = static_cast<int>(m.memory.load(*place, 1));
    if (c == 0) return -1;
    (*place)++;
    return c;
  };
  in.back = [place](int) { (*place)--; };
  return in;
}

a_value host_scanf(a_machine &m, args a, shape r) {
  return host_result(
      scan_text(m, chars_of_stream(stdin), pointer_argument(a, 0), a_value_source(m, a, 1)), r);
}
a_value host_fscanf(a_machine &m, args a, shape r) {
  return host_result(scan_text(m, chars_of_stream(stream_at(m, pointer_argument(a, 0))),
                               pointer_argument(a, 1), a_value_source(m, a, 2)),
                     r);
}
a_value host_sscanf(a_machine &m, args a, shape r) {
  return host_result(scan_text(m, chars_of_text(m, pointer_argument(a, 0)), pointer_argument(a, 1),
                               a_value_source(m, a, 2)),
                     r);
}
a_value host_vsscanf(a_machine &m, args a, shape r) {
  return host_result(scan_text(m, chars_of_text(m, pointer_argument(a, 0)), pointer_argument(a, 1),
                               source_of_list(m, a, 2)),
                     r);
}

a_value host_puts(a_machine &m, args a, shape r) {
  return host_result(write_out(stdout, m.memory.text_at(pointer_argument(a, 0)) + "\n"), r);
}
a_value host_fputs(a_machine &m, args a, shape r) {
  return host_result(
      write_out(stream_at(m, pointer_argument(a, 1)), m.memory.text_at(pointer_argument(a, 0))), r);
}
a_value host_putchar(a_machine &, args a, shape r) {
  return host_result(std::putchar(static_cast<int>(int_argument(a, 0))), r);
}
a_value host_fputc(a_machine &m, args a, shape r) {
  return host_result(
      std::fputc(static_cast<int>(int_argument(a, 0)), stream_at(m, pointer_argument(a, 1))), r);
}
a_value host_getchar(a_machine &, args, shape r) {
  return host_result(std::getchar(), r);
}
a_value host_fgetc(a_machine &m, args a, shape r) {
  return host_result(std::fgetc(stream_at(m, pointer_argument(a, 0))), r);
}
a_value host_ungetc(a_machine &m, args a, shape r) {
  return host_result(
      std::ungetc(static_cast<int>(int_argument(a, 0)), stream_at(m, pointer_argument(a, 1))), r);
}
a_value host_fgets(a_machine &m, args a, shape) {
  std::FILE *stream = stream_at(m, pointer_argument(a, 2));
  std::int64_t size = int_argument(a, 1);
  std::string text;
  int c = 0;
  while (static_cast<std::int64_t>(text.size()) + 1 < size && c != '\n' &&
         (c = std::fgetc(stream)) >= 0)
    text += static_cast<char>(c);
  if (text.empty()) return int_value(0);
  m.memory.put_bytes(pointer_argument(a, 0), text.c_str(),
                     static_cast<std::uint32_t>(text.size() + 1));
  return int_value(pointer_argument(a, 0));
}
a_value host_fwrite(a_machine &m, args a, shape r) {
  std::uint32_t size = static_cast<std::uint32_t>(int_argument(a, 1) * int_argument(a, 2));
  const std::uint8_t *data = m.memory.readable_range(pointer_argument(a, 0), size);
  std::fwrite(data, 1, size, stream_at(m, pointer_argument(a, 3)));
  return host_result(size == 0 ? 0 : int_argument(a, 2), r);
}
a_value host_fread(a_machine &m, args a, shape r) {
  std::uint32_t element = static_cast<std::uint32_t>(int_argument(a, 1));
  std::uint32_t size = element * static_cast<std::uint32_t>(int_argument(a, 2));
  if (size == 0) return host_result(0, r);
  std::size_t count = std::fread(m.memory.writable_range(pointer_argument(a, 0), size), 1, size,
                                 stream_at(m, pointer_argument(a, 3)));
  return host_result(static_cast<std::int64_t>(count / element), r);
}
a_value host_fopen(a_machine &m, args a, shape) {
  std::FILE *stream = std::fopen(m.memory.text_at(pointer_argument(a, 0)).c_str(),
                                 m.memory.text_at(pointer_argument(a, 1)).c_str());
  if (stream == nullptr) return int_value(0);
  std::uint32_t address = m.memory.heap_alloc(8);
  open_streams()[address] = stream;
  return int_value(address);
}
a_value host_fclose(a_machine &m, args a, shape r) {
  std::uint32_t address = pointer_argument(a, 0);
  int status = std::fclose(stream_at(m, address));
  if (open_streams().erase(address) != 0) m.memory.heap_free(address);
  return host_result(status, r);
}
a_value host_fflush(a_machine &m, args a, shape r) {
  std::uint32_t address = pointer_argument(a, 0);
  return host_result(std::fflush(address == 0 ? nullptr : stream_at(m, address)), r);
}
a_value host_feof(a_machine &m, args a, shape r) {
  return host_result(std::feof(stream_at(m, pointer_argument(a, 0))) != 0, r);
}
a_value host_ferror(a_machine &m, args a, shape r) {
  return host_result(std::ferror(stream_at(m, pointer_argument(a, 0))) != 0, r);
}
a_value host_perror(a_machine &m, args a, shape) {
  std::fprintf(stderr, "%s: %s\n", m.memory.text_at(pointer_argument(a, 0)).c_str(),
               std::strerror(static_cast<int>(m.memory.load(m.errno_address, 4))));
  return int_value(0);
}
a_value host_remove(a_machine &m, args a, shape r) {
  return host_result(std::remove(m.memory.text_at(pointer_argument(a, 0)).c_str()), r);
}

constexpr a_host_row rows[] = {
    {"printf", host_printf},     {"fprintf", host_fprintf},     {"sprintf", host_sprintf},
    {"snprintf", host_snprintf}, {"vprintf", host_vprintf},     {"vfprintf", host_vfprintf},
    {"vsprintf", host_vsprintf}, {"vsnprintf", host_vsnprintf}, {"scanf", host_scanf},
    {"fscanf", host_fscanf},     {"sscanf", host_sscanf},       {"vsscanf", host_vsscanf},
    {"puts", host_puts},         {"fputs", host_fputs},         {"putchar", host_putchar},
    {"fputc", host_fputc},       {"putc", host_fputc},          {"getchar", host_getchar},
    {"fgetc", host_fgetc},       {"getc", host_fgetc},          {"ungetc", host_ungetc},
    {"fgets", host_fgets},       {"fwrite", host_fwrite},       {"fread", host_fread},
    {"fopen", host_fopen},       {"fclose", host_fclose},       {"fflush", host_fflush},
    {"feof", host_feof},         {"ferror", host_ferror},       {"perror", host_perror},
    {"remove", host_remove},     {"iprintf", host_printf},      {"siprintf", host_sprintf},
};

}  // namespace

a_host_table host_stdio_routines() {
  return {rows, sizeof rows / sizeof *rows};
}
