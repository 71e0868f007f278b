// Positions in the source, and what file and line they mean.
//
// A position is a sequence number and a column. The sequence number counts the physical lines that
// were read since the start of the compilation, through all files and #line changes, so positions
// sort in reading order. The records of files form a tree below il_header.primary_source_files; a
// table of stretches, one for each run of lines of one file that no other file interrupts, leads
// from a sequence number to its file. Also here: which memory region new IL entries go to.
#ifndef IL_SRC_SEQ_H
#define IL_SRC_SEQ_H

#include <cstdint>

#include "UTIL/basics.h"
#include "driver/mem_manage.h"
#include "il/il_fwd.h"

using a_seq_number = std::uint32_t;  // 0: no position

struct a_source_position {
  a_seq_number seq;
  std::uint16_t column;  // counted from 1
  std::uint16_t unused;  // 0
};
static_assert(sizeof(a_source_position) == 8);
struct a_source_range {
  a_source_position start, end;
};

inline constexpr a_source_position null_source_position = {0, 0, 0};
inline constexpr a_source_position preinclude_source_position = {0, 2, 0};
inline constexpr a_source_range null_source_range = {null_source_position, null_source_position};
inline constexpr a_seq_number open_ended_seq = 0xFFFFFFFF;  // the last line is not known yet

inline bool is_null_position(const a_source_position &position) {
  return position.seq == 0 && position.column == 0;
}
inline a_source_position make_source_position(a_seq_number seq, std::uint16_t column) {
  return {seq, column, 0};
}
// -1, 0 or 1.
inline int compare_source_positions(const a_source_position &a, const a_source_position &b) {
  if (a.seq != b.seq) return a.seq < b.seq ? -1 : 1;
  if (a.column != b.column) return a.column < b.column ? -1 : 1;
  return 0;
}
inline bool operator==(const a_source_position &a, const a_source_position &b) {
  return a.seq == b.seq && a.column == b.column;
}

// One opening of a file, or what a #line directive made of its rest. In region 1, never freed.
struct a_source_file {
  const char *file_name;  // as given, or as #line set it
  const char *full_name;  // after the directory search; null in a clone made by #line
  const char *path_name;  // as it is opened
  a_seq_number first_seq;
  a_seq_number last_seq;  // open_ended_seq while the file is open
  a_line_number first_line;
  bool is_include_file : 1;
  bool is_implicit_include : 1;
  bool is_pre_include : 1;
  bool is_line_directive_clone : 1;
  bool is_system_header : 1;
  bool is_primary : 1;
  bool flag1 : 1;  // only stored, for the input stack
  bool flag3 : 1;
  a_source_file *real_file;       // the file on the disk; itself, unless it is a clone
  std::uint32_t real_lines_done;  // of a real file: lines in its closed stretches, clones included
  a_source_file *children;
  a_source_file *last_child;
  a_source_file *next;  // sibling
};

struct a_seq_number_lookup_entry {
  a_seq_number_lookup_entry *next;
  a_seq_number first_seq;
  a_seq_number last_seq;  // open_ended_seq: the stretch is open
  a_line_number first_line;
  a_line_number first_real_line;  // in the file on the disk
  a_source_file *file;
};

// The ranges of a declaration while it is parsed; the supplement is what is kept of them.
struct a_decl_pos_block {
  a_source_range specifiers_range;
  a_source_range declarator_range;
  a_source_range declaration_range;
  a_source_position identifier_position;
};
struct a_decl_position_supplement {
  a_source_range specifiers_range;
  a_source_range declarator_range;
  a_source_range declaration_range;
  a_source_position identifier_position;
};
// The position of one part of a declaration.
struct an_element_position {
  an_element_position *next;
  a_source_position position;
  std::uint8_t kind;
};

// ---- State: per translation unit ---------------------------------------------------------------

extern a_seq_number_lookup_entry *seq_number_lookup_entries;  // in order of sequence
extern a_seq_number_lookup_entry *last_seq_number_lookup_entry;
extern a_memory_region_number curr_il_region_number;  // where entries of the current region go

// ---- Files -------------------------------------------------------------------------------------

// A file begins: its record, below parent or (null) as a root. flag1 and flag3 are only stored.
void record_start_of_source_file(a_source_file *parent, a_seq_number first_seq,
                                 a_line_number first_line, const char *file_name,
                                 const char *full_name, const char *path_name,
                                 a_source_file **out_file, bool is_include_file, bool flag1,
                                 bool is_pre_include, bool flag3, int unused1,
                                 bool is_system_header, int unused2);
// Reading goes on in a file; with null the current file goes on under the name and line that a
// #line directive gave, as clone_current_input_file (input stack) tells.
void record_resumption_of_source_file(a_source_file *file, a_seq_number first_seq,
                                      a_line_number first_line);
void record_end_of_source_file(a_source_file *file, a_seq_number last_seq);

// ---- From a sequence number to file and line ---------------------------------------------------

a_source_file *primary_source_file_for_seq(a_seq_number seq);
// Null without a file. *at_end: the position lies just past the end of the file.
a_source_file *source_file_for_seq(a_seq_number seq, a_line_number *line, bool *at_end,
                                   bool physical);
// As #line tells; without a file the names are "" and the line is 0.
void conv_seq_to_file_and_line(a_seq_number seq, const char **name, const char **full_name,
                               a_line_number *line, bool *at_end);
// As the file on the disk has it.
void conv_seq_to_physical_file_and_line(a_seq_number seq, a_source_file **file, a_line_number *line,
                                        bool *at_end);
a_source_file *eff_primary_source_file();
bool seq_is_in_include_file(a_seq_number seq);
bool seq_is_in_system_header(a_seq_number seq);

// ---- Positions of declarations -----------------------------------------------------------------

// Null for a null block.
a_decl_position_supplement *make_decl_pos_supplement(bool in_file_scope,
                                                     const a_decl_pos_block *block);
void update_decl_pos_info(a_source_correspondence *entity, const a_decl_pos_block *block);
// Appends to the list.
void f_add_element_position(std::uint8_t kind, const a_source_position &position,
                            an_element_position **list);

// ---- Regions -----------------------------------------------------------------------------------

inline void switch_il_region(a_memory_region_number region) {
  curr_il_region_number = region;
}
// *saved becomes 0 when nothing changed.
inline void switch_to_file_scope_region(a_memory_region_number *saved) {
  *saved = 0;
  if (curr_il_region_number != file_scope_region_number) {
    *saved = curr_il_region_number;
    curr_il_region_number = file_scope_region_number;
  }
}
// To the region of the entry at `depth` of the scope stack.
void switch_to_scope_region(int depth, a_memory_region_number *saved);
inline void switch_back_to_original_region(a_memory_region_number saved) {
  if (saved != 0) curr_il_region_number = saved;
}
inline bool in_file_scope_il_region() {
  return curr_il_region_number == file_scope_region_number;
}

// The file scope of the current unit, in the current region, which becomes the unit's own.
a_scope *new_file_scope(std::int32_t number);
// The scope of a function body, in a region of its own (region 0) or in one that is shared.
a_scope *new_function_scope(std::int32_t number, a_routine *routine, a_memory_region_number region);
// Null when there is no body, or its region is gone.
a_scope *scope_for_routine(const a_routine *routine);

void src_seq_one_time_init();  // registers the variables of each unit
void src_seq_init();           // drops the cache of positions
void src_seq_reset();          // drops the cache of look-ups
void src_seq_trans_unit_init();

#endif
