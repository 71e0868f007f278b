// From sequence numbers to files and lines.
//
// The stretches stand in a table, in order of sequence, so that a position is found by bisection,
// and runs of near positions by the last result alone. Each stretch knows its first line twice, as
// #line tells it and as the file on the disk has it: a real file counts the lines of its closed
// stretches, so no tree has to be walked for the physical view.
#include "il/src_seq.h"

#include <cstring>

#include "driver/trans_unit.h"
#include "il/il_alloc.h"

a_seq_number_lookup_entry *seq_number_lookup_entries;
a_seq_number_lookup_entry *last_seq_number_lookup_entry;
a_memory_region_number curr_il_region_number;

namespace {

constexpr std::size_t first_table_size = 1024;

a_seq_number_lookup_entry **stretch_table;
std::size_t stretch_table_size;  // entries there is room for
std::size_t number_of_stretches;
a_seq_number_lookup_entry *cached_stretch;      // of the last position asked for; null: none
a_source_file *cached_eff_primary_source_file;  // per translation unit

void add_to_stretch_table(a_seq_number_lookup_entry *stretch) {
  if (number_of_stretches == stretch_table_size) {
    const std::size_t new_size =
        stretch_table_size == 0 ? first_table_size : stretch_table_size * 2;
    const std::size_t old_bytes = stretch_table_size * sizeof(*stretch_table);
    const std::size_t new_bytes = new_size * sizeof(*stretch_table);
    stretch_table = static_cast<a_seq_number_lookup_entry **>(
        stretch_table == nullptr ? alloc_resizable_buffer(new_bytes)
                                 : realloc_buffer(stretch_table, old_bytes, new_bytes));
    stretch_table_size = new_size;
  }
  stretch_table[number_of_stretches++] = stretch;
}

void close_open_stretch(a_seq_number last_seq) {
  a_seq_number_lookup_entry *open = last_seq_number_lookup_entry;
  if (open == nullptr || open->last_seq != open_ended_seq) return;
  open->last_seq = last_seq;
  open->file->real_file->real_lines_done += last_seq + 1 - open->first_seq;
  cached_stretch = nullptr;
}

void open_stretch(a_source_file *file, a_seq_number first_seq, a_line_number first_line) {
  close_open_stretch(first_seq - 1);
  a_seq_number_lookup_entry *stretch = alloc_seq_number_lookup_entry();
  stretch->first_seq = first_seq;
  stretch->last_seq = open_ended_seq;
  stretch->first_line = first_line;
  stretch->first_real_line = file->real_file->real_lines_done + 1;
  stretch->file = file;
  if (last_seq_number_lookup_entry == nullptr)
    seq_number_lookup_entries = stretch;
  else
    last_seq_number_lookup_entry->next = stretch;
  last_seq_number_lookup_entry = stretch;
  add_to_stretch_table(stretch);
  cached_stretch = nullptr;
}

void link_source_file(a_source_file *file, a_source_file *parent) {
  if (parent == nullptr) {
    file->is_primary = true;
    a_source_file **link = &il_header.primary_source_files;
    while (*link != nullptr)
      link = &(*link)->next;
    *link = file;
    return;
  }
  if (parent->last_child == nullptr)
    parent->children = file;
  else
    parent->last_child->next = file;
  parent->last_child = file;
}

// The last stretch that begins at or before seq; null: none does.
a_seq_number_lookup_entry *stretch_at_or_before(a_seq_number seq) {
  std::size_t low = 0, high = number_of_stretches;
  while (low < high) {
    const std::size_t middle = (low + high) / 2;
    if (stretch_table[middle]->first_seq <= seq)
      low = middle + 1;
    else
      high = middle;
  }
  return low == 0 ? nullptr : stretch_table[low - 1];
}

// Behind the end of all that was read: the outermost of the files that end there.
a_seq_number_lookup_entry *stretch_ending_at(a_seq_number last_seq) {
  a_seq_number_lookup_entry *result = nullptr;
  for (std::size_t i = number_of_stretches; i > 0; --i) {
    a_seq_number_lookup_entry *stretch = stretch_table[i - 1];
    if (stretch->last_seq != last_seq) break;
    result = stretch;
    if (!stretch->file->is_include_file) break;
  }
  return result;
}

a_seq_number_lookup_entry *find_stretch(a_seq_number seq, bool *at_end) {
  a_seq_number_lookup_entry *stretch = cached_stretch;
  if (stretch != nullptr && stretch->first_seq <= seq && seq <= stretch->last_seq) return stretch;
  stretch = stretch_at_or_before(seq);
  // Empty stretches lie in front of the one that really holds the line.
  if (stretch != nullptr && seq > stretch->last_seq) {
    stretch = stretch_ending_at(seq - 1);
    *at_end = stretch != nullptr;
    return stretch;
  }
  cached_stretch = stretch;
  return stretch;
}

}  // namespace

// ---- Files -------------------------------------------------------------------------------------

void record_start_of_source_file(a_source_file *parent, a_seq_number first_seq,
                                 a_line_number first_line, const char *file_name,
                                 const char *full_name, const char *path_name,
                                 a_source_file **out_file, bool is_include_file, bool flag1,
                                 bool is_pre_include, bool flag3, int, bool is_system_header, int) {
  a_source_file *file = alloc_source_file();
  file->file_name = file_name;
  file->full_name = full_name;
  file->path_name = path_name;
  file->first_seq = first_seq;
  file->last_seq = open_ended_seq;
  file->first_line = first_line;
  file->is_include_file = is_include_file;
  file->is_pre_include = is_pre_include;
  file->is_system_header = is_system_header;
  file->flag1 = flag1;
  file->flag3 = flag3;
  file->real_file = file;
  if (full_name == nullptr && last_seq_number_lookup_entry != nullptr) {
    file->is_line_directive_clone = true;
    file->real_file = last_seq_number_lookup_entry->file->real_file;
  }
  *out_file = file;
  link_source_file(file, parent);
  open_stretch(file, first_seq, first_line);
  cached_eff_primary_source_file = nullptr;
}

void record_resumption_of_source_file(a_source_file *file, a_seq_number first_seq,
                                      a_line_number first_line) {
  if (file == nullptr) {
    check_invariant(last_seq_number_lookup_entry != nullptr);
    file = last_seq_number_lookup_entry->file;
  }
  open_stretch(file, first_seq, first_line);
}

void record_end_of_source_file(a_source_file *file, a_seq_number last_seq) {
  file->last_seq = last_seq;
  close_open_stretch(last_seq);
  cached_stretch = nullptr;
}

// ---- From a sequence number to file and line ---------------------------------------------------

a_source_file *primary_source_file_for_seq(a_seq_number seq) {
  if (seq == 0) return nullptr;
  for (a_source_file *file = il_header.primary_source_files; file != nullptr; file = file->next) {
    if (file->last_seq >= seq - 1) return file;
  }
  return nullptr;
}

a_source_file *source_file_for_seq(a_seq_number seq, a_line_number *line, bool *at_end,
                                   bool physical) {
  *line = 0;
  *at_end = false;
  if (seq == 0) return nullptr;
  a_seq_number_lookup_entry *stretch = find_stretch(seq, at_end);
  if (stretch == nullptr) return nullptr;
  *line = seq - stretch->first_seq + (physical ? stretch->first_real_line : stretch->first_line);
  return physical ? stretch->file->real_file : stretch->file;
}

void conv_seq_to_file_and_line(a_seq_number seq, const char **name, const char **full_name,
                               a_line_number *line, bool *at_end) {
  a_source_file *file = source_file_for_seq(seq, line, at_end, false);
  *name = *full_name = "";
  if (file == nullptr) return;
  *name = file->file_name;
  const char *full = file->full_name != nullptr ? file->full_name : file->path_name;
  *full_name = full != nullptr ? full : file->file_name;
}

void conv_seq_to_physical_file_and_line(a_seq_number seq, a_source_file **file, a_line_number *line,
                                        bool *at_end) {
  *file = source_file_for_seq(seq, line, at_end, true);
}

// A generated top file that begins with a #line of its own: the name it gives counts.
a_source_file *eff_primary_source_file() {
  if (cached_eff_primary_source_file != nullptr) return cached_eff_primary_source_file;
  a_source_file *root = il_header.primary_source_files;
  if (root == nullptr) return nullptr;
  a_source_file *child = root->children;
  while (child != nullptr && child->is_pre_include)
    child = child->next;
  const bool stands_for_root = child != nullptr && child->full_name == nullptr &&
                               child->first_seq == 2 && child->first_line == 1;
  cached_eff_primary_source_file = stands_for_root ? child : root;
  return cached_eff_primary_source_file;
}

bool seq_is_in_include_file(a_seq_number seq) {
  a_line_number line;
  bool at_end;
  a_source_file *file = source_file_for_seq(seq, &line, &at_end, false);
  if (file == nullptr) return false;
  if (file->is_include_file) return true;
  if (file->full_name == nullptr) return false;
  return std::strcmp(file->file_name, eff_primary_source_file()->file_name) != 0;
}

bool seq_is_in_system_header(a_seq_number seq) {
  a_line_number line;
  bool at_end;
  a_source_file *file = source_file_for_seq(seq, &line, &at_end, false);
  return file != nullptr && file->is_system_header;
}

// ---- Positions of declarations -----------------------------------------------------------------

namespace {
void copy_decl_pos_block(const a_decl_pos_block *block, a_decl_position_supplement *supplement) {
  supplement->specifiers_range = block->specifiers_range;
  supplement->declarator_range = block->declarator_range;
  supplement->declaration_range = block->declaration_range;
  supplement->identifier_position = block->identifier_position;
}
}  // namespace

a_decl_position_supplement *make_decl_pos_supplement(bool in_file_scope,
                                                     const a_decl_pos_block *block) {
  if (block == nullptr) return nullptr;
  a_decl_position_supplement *supplement = alloc_decl_position_supplement(in_file_scope);
  copy_decl_pos_block(block, supplement);
  return supplement;
}

void update_decl_pos_info(a_source_correspondence *entity, const a_decl_pos_block *block) {
  if (block == nullptr || entity->decl_pos_supplement == nullptr) return;
  copy_decl_pos_block(block, entity->decl_pos_supplement);
}

void f_add_element_position(std::uint8_t kind, const a_source_position &position,
                            an_element_position **list) {
  an_element_position *element = alloc_element_position();
  element->position = position;
  element->kind = kind;
  while (*list != nullptr)
    list = &(*list)->next;
  *list = element;
}

// ---- Life cycle --------------------------------------------------------------------------------

void src_seq_one_time_init() {
  register_trans_unit_variable(&curr_il_region_number);
  register_trans_unit_variable(&cached_eff_primary_source_file);
}

void src_seq_init() {
  cached_stretch = nullptr;
  seq_number_lookup_entries = last_seq_number_lookup_entry = nullptr;
  stretch_table = nullptr;
  stretch_table_size = number_of_stretches = 0;
}

void src_seq_reset() {
  cached_stretch = nullptr;
}

void src_seq_trans_unit_init() {
  cached_eff_primary_source_file = nullptr;
  curr_il_region_number = file_scope_region_number;
}
