// The bytes of the intermediate file: integers, texts, positions, records, the file table.
#include <cstdlib>
#include <cstring>

#include "ifile/if_write.h"

namespace {
constexpr std::size_t out_capacity = 256 * 1024;
}

void I_FILE::i_write_i16(std::int64_t value) {
  if (value < -32768 || value > 65535) {
    std::printf(">> Value exceeds size of short\n");
    std::exit(1);
  }
  i_write_i8(static_cast<unsigned>(value & 0xFF));
  i_write_i8(static_cast<unsigned>((value >> 8) & 0xFF));
}

void I_FILE::i_write_i32(std::uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8)
    i_write_i8((value >> shift) & 0xFF);
}

// Seven bits a byte, lowest first, bit 7 set on all but the last.
void I_FILE::i_write_uint(std::uint64_t value) {
  while (value >= 0x80) {
    buffer.push_back(static_cast<char>(value | 0x80));
    value >>= 7;
  }
  buffer.push_back(static_cast<char>(value));
}

void I_FILE::i_write_sint(std::int64_t value) {
  for (;;) {
    unsigned byte = static_cast<unsigned>(value & 0x7F);
    value >>= 7;
    bool last = (value == 0 && (byte & 0x40) == 0) || (value == -1 && (byte & 0x40) != 0);
    i_write_i8(last ? byte : byte | 0x80);
    if (last) return;
  }
}

void I_FILE::i_write_string(const char *text) {
  buffer.append(text, std::strlen(text) + 1);
}

void I_FILE::i_write_typeref(TYPE *type) {
  if (type == nullptr) {
    i_write_i8(0);
    return;
  }
  TYPE *representative = find_type(type);
  representative->referenced = true;
  i_write_uint_signed(representative->uid);
}

void I_FILE::i_write_psn(const PSN *psn) {
  if (psn == nullptr) {
    i_write_i8(0);
    return;
  }
  i_write_uint(i_enter_file_name(psn->file));
  i_write_uint(psn->line);
  i_write_uint(psn->column);
}

std::uint32_t I_FILE::i_enter_file_name(const char *name) {
  if (name == nullptr) name = "NO_FILE";
  if (name == last_file_name) return last_file_id;
  auto [place, is_new] = file_ids.try_emplace(std::string_view(name), file_names.size() + 1);
  if (is_new) file_names.push_back(name);
  last_file_name = name;
  return last_file_id = place->second;
}

void I_FILE::flush_out() {
  if (!out.empty() && std::fwrite(out.data(), 1, out.size(), stream) != out.size())
    write_failed = true;
  flushed += out.size();
  out.clear();
}

void I_FILE::i_flush(an_if_record kind) {
  if (out.size() + buffer.size() + 16 > out_capacity) flush_out();
  out.push_back(static_cast<char>(kind));
  std::size_t length = buffer.size();
  for (; length >= 0x80; length >>= 7)
    out.push_back(static_cast<char>(length | 0x80));
  out.push_back(static_cast<char>(length));
  out.append(buffer);
  buffer.clear();
}

void I_FILE::i_write_eof() {
  out.push_back(static_cast<char>(ifr_eof));
}

// Every number is of fixed width and the name is the same, so that the second writing covers the
// first exactly.
void I_FILE::if_write_magic() {
  i_write_string(icode_magic);
  i_write_i16(icode_version);
  i_write_i16(icode_cpu_id);
  i_write_i32(static_cast<std::uint32_t>(options_position));
  i_write_i32(static_cast<std::uint32_t>(init_position));
  i_write_i32(static_cast<std::uint32_t>(types_position));
  i_write_i32(static_cast<std::uint32_t>(files_position));
  i_write_i32(static_cast<std::uint32_t>(globals_position));
  i_write_string(source_name);
  i_write_i32(header_extra);
  i_flush(ifr_header);
}

void I_FILE::if_create(std::FILE *output, TYPE_PKG *package, const char *name) {
  stream = output;
  type_pkg = package;
  source_name = name;
  std::setvbuf(stream, nullptr, _IONBF, 0);  // records are gathered here already
  out.reserve(out_capacity);
  buffer.reserve(32768);
  if_write_magic();
}

bool I_FILE::if_close(bool keep_types, bool abandon) {
  if (!abandon) {
    i_write_eof();
    if_write_all_options();
    if_write_all_types(keep_types);
    if_write_all_files();
    if_write_all_globals();
    flush_out();
    if (std::fseek(stream, 0, SEEK_SET) != 0) write_failed = true;
    if_write_magic();
    flush_out();
  }
  bool failed = write_failed || std::ferror(stream) != 0;
  if (std::fclose(stream) != 0) failed = true;
  stream = nullptr;
  return failed;
}
