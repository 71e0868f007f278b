// The source line that is shown below a message. Files are kept whole in memory once they are read;
// a line in them is found through an index of every 64th line, made when the first line of the file
// is shown, so that the cost of a message does not depend on where its line lies.
#include <cstring>
#include <unordered_map>
#include <vector>

#include "driver/diag_hooks_internal.h"
#include "driver/host_envir.h"
#include "driver/mem_manage.h"
#include "il/src_seq.h"
#include "source/input_stack.h"

namespace {

constexpr a_line_number lines_per_index_entry = 64;

struct a_line_index {
  const char *text_start;  // of the text that was indexed
  const char *text_end;
  std::vector<const char *> starts;  // of lines 1, 65, 129 and so on
};

// Behind the end of the line, or null for the last one.
const char *next_line(const char *line, const char *end) {
  const void *newline = std::memchr(line, '\n', static_cast<std::size_t>(end - line));
  return newline != nullptr ? static_cast<const char *>(newline) + 1 : nullptr;
}

const a_line_index &index_of(const a_file_image *image) {
  static std::unordered_map<const a_file_image *, a_line_index> indexes;
  a_line_index &index = indexes[image];
  if (index.text_start == image->start && index.text_end == image->end) return index;
  index = {image->start, image->end, {}};
  a_line_number count = 0;
  for (const char *line = image->start; line != nullptr; line = next_line(line, image->end)) {
    if (count++ % lines_per_index_entry == 0) index.starts.push_back(line);
  }
  return index;
}

const char *start_of_line(const a_file_image *image, a_line_number line) {
  const a_line_index &index = index_of(image);
  const a_line_number slot = (line - 1) / lines_per_index_entry;
  if (slot >= index.starts.size()) return nullptr;
  const char *start = index.starts[slot];
  for (a_line_number left = (line - 1) % lines_per_index_entry; left != 0 && start != nullptr;
       --left)
    start = next_line(start, image->end);
  return start;
}

}  // namespace

bool get_physical_source_line(const a_source_position *pos, a_text_buffer *out) {
  a_source_file *file = nullptr;
  a_line_number line = 0;
  bool at_end = false;
  conv_seq_to_physical_file_and_line(pos->seq, &file, &line, &at_end);
  if (file == nullptr || at_end || line == 0 || std::strcmp(file->path_name, "-") == 0)
    return false;
  an_open_file_result result{};
  const a_file_image *image = image_of_source_file(file->path_name, &result);
  const char *start = image != nullptr ? start_of_line(image, line) : nullptr;
  if (start == nullptr) return false;
  const char *next = next_line(start, image->end);
  const char *end = next != nullptr ? next - 1 : image->end;
  add_to_text_buffer(out, start, static_cast<std::size_t>(end - start));
  return true;
}
