// The token reader of command files.
//
// White space divides options. A comment is /* to */, or ; to the end of the line, or # to the end
// of the line unless the option being read has begun with a '-': -Dx=#1 is one option. A stretch in
// double quotes keeps its white space and loses its quotes; a backslash escapes a quote or a
// backslash.
#include "UTIL/cmdfile.h"

#include <cctype>
#include <cstdlib>

#include "UTIL/safe_alloc.h"

namespace {

constexpr std::size_t buffer_step = 80;

struct an_option_buffer {
  char *text = nullptr;
  std::size_t length = 0;
  std::size_t size = 0;

  void add(int c) {
    if (length + 1 >= size) {
      size += buffer_step;
      text = static_cast<char *>(saferealloc(text, size));
    }
    text[length++] = static_cast<char>(c);
    text[length] = '\0';
  }
  // Did the option, back to the last white space in it, begin with '-'? Then # is plain text.
  bool reaches_dash() const {
    for (std::size_t i = length; i-- > 0;) {
      if (text[i] == '-') return true;
      if (std::isspace(static_cast<unsigned char>(text[i]))) return false;
    }
    return false;
  }
};

void skip_block_comment(std::FILE *stream) {
  int previous = 0;
  for (int c = std::getc(stream); c != EOF; previous = c, c = std::getc(stream)) {
    if (previous == '*' && c == '/') return;
  }
  std::fputs(">> Unterminated comment in command file; aborting!\n", stderr);
  std::exit(255);
}

void skip_line(std::FILE *stream) {
  for (int c = std::getc(stream); c != EOF && c != '\n'; c = std::getc(stream)) {
  }
}

// Behind the opening quote: the text up to the closing one.
void read_quoted(std::FILE *stream, an_option_buffer *buffer) {
  const std::size_t start = buffer->length;
  for (;;) {
    int c = std::getc(stream);
    if (c == '"') return;
    if (c == '\\') {
      const int escaped = std::getc(stream);
      if (escaped == '"' || escaped == '\\') {
        c = escaped;
      } else {
        std::ungetc(escaped, stream);
      }
    }
    if (c == EOF) {
      std::fprintf(stderr,
                   ">> Unterminated quote in command file; aborting\n   Quote starts at %s\n",
                   buffer->length > start ? buffer->text + start : "");
      std::exit(255);
    }
    buffer->add(c);
  }
}

}  // namespace

char *fnextopt(std::FILE *stream) {
  an_option_buffer buffer;
  bool any = false;  // an option of no character, "", is an option too
  for (;;) {
    int c = std::getc(stream);
    if (c == EOF) break;
    if (std::isspace(c)) {
      if (any) break;
      continue;
    }
    if (c == '/') {
      const int next = std::getc(stream);
      if (next == '*' && !any) {
        skip_block_comment(stream);
        continue;
      }
      std::ungetc(next, stream);
    }
    if (c == ';' || (c == '#' && !buffer.reaches_dash())) {
      skip_line(stream);
      if (any) break;
      continue;
    }
    any = true;
    if (c == '"') {
      read_quoted(stream, &buffer);
      continue;
    }
    if (c == '\\') {
      const int escaped = std::getc(stream);
      if (escaped == '"' || escaped == '\\') {
        c = escaped;
      } else {
        std::ungetc(escaped, stream);
      }
    }
    buffer.add(c);
  }
  if (!any) return nullptr;
  if (buffer.text == nullptr) buffer.text = static_cast<char *>(safecalloc(1, 1));
  return buffer.text;
}
