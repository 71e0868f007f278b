// The cursor that the rooms of the reader share.
#ifndef IFILE_IF_READ_INTERNAL_H
#define IFILE_IF_READ_INTERNAL_H

#include "ifile/if_read.h"

// A place in the bytes of the file, bounded by the end of a record or of the file.
struct IF_READER::a_cursor {
  const char *bytes;
  std::uint64_t position;
  std::uint64_t end;
  std::uint64_t start = 0;  // of the record, for messages

  [[noreturn]] void fail(const std::string &what) const { throw an_if_damage(position, what); }
  bool at_end() const { return position == end; }
  void expect_end() const {
    if (position != end) fail("a record is longer than its contents");
  }
  std::uint8_t byte() {
    if (position >= end) fail("the bytes end inside an item");
    return static_cast<std::uint8_t>(bytes[position++]);
  }
  bool flag() {
    std::uint8_t value = byte();
    if (value > 1) fail("a truth value that is neither 0 nor 1");
    return value != 0;
  }
  std::uint64_t fixed(unsigned count) {
    std::uint64_t value = 0;
    for (unsigned i = 0; i < count; i++)
      value |= std::uint64_t{byte()} << (8 * i);
    return value;
  }
  std::uint64_t uint() {
    std::uint64_t value = 0;
    for (unsigned shift = 0;; shift += 7) {
      std::uint8_t part = byte();
      if (shift >= 64) fail("a number is too long");
      value |= std::uint64_t{part & 0x7Fu} << shift;
      if ((part & 0x80) == 0) return value;
    }
  }
  std::int64_t sint() {
    std::uint64_t value = 0;
    for (unsigned shift = 0;; shift += 7) {
      std::uint8_t part = byte();
      if (shift >= 64) fail("a number is too long");
      value |= std::uint64_t{part & 0x7Fu} << shift;
      if ((part & 0x80) != 0) continue;
      if ((part & 0x40) != 0 && shift + 7 < 64) value |= ~std::uint64_t{0} << (shift + 7);
      return static_cast<std::int64_t>(value);
    }
  }
  const char *text() {
    std::uint64_t first = position;
    while (byte() != 0) {
    }
    return bytes + first;
  }
  const char *raw(std::uint64_t count) {
    if (count > end - position) fail("the bytes end inside an item");
    const char *result = bytes + position;
    position += count;
    return result;
  }
  // Of a section: the kind of the next record without taking it, 255 at the end mark or beyond.
  unsigned next_kind() const {
    return position < end ? static_cast<std::uint8_t>(bytes[position]) : unsigned{ifr_eof};
  }
  bool at_end_mark() {
    if (position >= end) fail("a section has no end");
    if (static_cast<std::uint8_t>(bytes[position]) != ifr_eof) return false;
    position++;
    return true;
  }
  a_cursor next_record(an_if_record *kind) {
    std::uint64_t first = position;
    *kind = static_cast<an_if_record>(byte());
    std::uint64_t length = uint();
    if (length > end - position) fail("a record is longer than the file");
    a_cursor record{bytes, position, position + length, first};
    position += length;
    return record;
  }
};

#endif
