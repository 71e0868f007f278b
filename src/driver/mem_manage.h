// The memory of the front end: numbered regions, each a chain of large blocks that is released as a
// whole; a general allocator that remembers what it gave; resizable buffers; growing text buffers.
//
// Region 0 lasts for the whole process, region 1 is the file scope of the primary translation unit;
// from 2 on come the regions of function bodies and the file scopes of secondary units. Nothing is
// cleared: who allocates initialises. A region that was trimmed grows by small blocks only. Every
// failure is a catastrophe, so no routine here returns null.
#ifndef DRIVER_MEM_MANAGE_H
#define DRIVER_MEM_MANAGE_H

#include <cstddef>
#include <cstdint>

#include "il/il_fwd.h"

using a_memory_region_number = int;

inline constexpr a_memory_region_number permanent_region = 0;
inline constexpr a_memory_region_number primary_file_scope_region = 1;
inline constexpr a_memory_region_number general_memory = -1;  // for alloc_general_or_in_region
inline constexpr std::size_t large_mem_block_size = 0x10000;
inline constexpr std::size_t small_mem_block_size = 2048;
inline constexpr std::size_t min_tail_to_split = 2208;  // a smaller rest stays with its block

// The head of a block; the space that is handed out follows it.
struct a_mem_block {
  a_mem_block *next;       // in the region's chain, or in the list of free blocks
  char *start;             // first byte behind this head
  char *next_free;         // next byte to hand out
  char *end;               // one past the last byte
  std::size_t total_size;  // of the whole allocation that begins here; 0: split off from another
  a_mem_block *prev_free;  // in the list of free blocks
  a_mem_block *lower;      // the piece in front of it in the same allocation; null: none
  bool trimmed;            // nothing more is expected here
  bool is_free;
  bool is_last;  // no piece of the same allocation lies behind it
};
static_assert(sizeof(a_mem_block) == 64);

// What is kept for each function definition: its scope, and the region that holds its body.
struct a_function_def_entry {
  a_scope *scope;                 // null once the region is gone
  a_memory_region_number region;  // 0: none
};

// A growing run of bytes; it holds no terminating null unless its user adds one.
struct a_text_buffer {
  a_text_buffer *next;         // all text buffers
  std::size_t allocated_size;  // bytes behind buffer
  std::size_t size_used;
  std::size_t increment;  // the next growth is a multiple of this, and doubles it
  char *buffer;
};

// The catastrophe out_of_memory; what its message needs was kept back for it.
[[noreturn]] void stop_out_of_memory();
// How much address space a large reservation may take: what is wanted, or, in a process whose
// memory is limited, a share that leaves enough for everything else.
std::size_t share_of_address_space(std::size_t wanted);

// ---- Fixed after the command line --------------------------------------------------------------

extern bool free_blocks_to_system;  // blocks of a released region go back to the system

// ---- Per compilation ---------------------------------------------------------------------------

extern a_mem_block **mem_region_table;  // by region: the newest block first; null: none
extern std::size_t size_of_mem_region_table;
extern a_memory_region_number highest_used_region_number;
extern a_function_def_entry *function_def_table;  // by function definition number, from 1
extern std::size_t size_of_function_def_table;
extern int highest_used_function_def_number;
extern a_text_buffer *text_buffers;  // all of them, newest first

// ---- Per translation unit ----------------------------------------------------------------------

extern a_memory_region_number file_scope_region_number;  // of the current unit

// ---- Regions -----------------------------------------------------------------------------------

// A new number, with a first block.
a_memory_region_number new_memory_region();
void init_memory_region(a_memory_region_number region, std::size_t size);
void init_memory_region_without_initial_allocation(a_memory_region_number region);
// Releases all blocks of a region; every pointer into it is dead.
void free_memory_region(a_memory_region_number region);
// Says that little more will be allocated: the rest of its newest block can serve others.
void trim_memory_region(a_memory_region_number region);
// Asked when a function's memory may be finished: trims it.
void check_for_done_with_memory_region(a_memory_region_number region);
void check_for_done_with_all_function_memory_regions();
void ensure_mem_region_table_space(a_memory_region_number region);
// Makes *table, an array of pointers by region number, grow with the table of regions; new entries
// and those of released regions are null.
void add_table_parallel_to_regions(void ***table);

// The general form of alloc_in_region, for a block that has no room.
void *alloc_in_region_from_new_block(a_memory_region_number region, std::size_t aligned_size);

// `size` bytes, aligned to 8, in a region; not cleared.
inline void *alloc_in_region(a_memory_region_number region, std::size_t size) {
  const std::size_t aligned = (size + 7) & ~std::size_t{7};
  a_mem_block *block = mem_region_table[region];
  if (block == nullptr || aligned + 8 > static_cast<std::size_t>(block->end - block->next_free))
      [[unlikely]] {
    return alloc_in_region_from_new_block(region, aligned);
  }
  char *result = block->next_free;
  block->next_free += aligned;
  return result;
}
// The same; general_memory means alloc_general.
void *alloc_general_or_in_region(a_memory_region_number region, std::size_t size);
// A copy of the first `length` bytes of text in a region, with a null behind it.
char *copy_string_to_region(a_memory_region_number region, const char *text, std::size_t length);

// Releases all memory at the end of the compilation; nothing in a region lives on.
void free_all_memory_regions();

// ---- General memory ----------------------------------------------------------------------------

void *alloc_general(std::size_t size);
void free_general(void *pointer, std::size_t size);
void *alloc_resizable_buffer(std::size_t size);
// A null pointer allocates; otherwise the contents move along.
void *realloc_buffer(void *pointer, std::size_t old_size, std::size_t new_size);

// ---- Function definitions ----------------------------------------------------------------------

int new_function_def_number();
void ensure_function_def_table_space(int number);

// ---- Text buffers ------------------------------------------------------------------------------

a_text_buffer *alloc_text_buffer(std::size_t initial_size);
void reset_text_buffer(a_text_buffer *buffer);
void expand_text_buffer(a_text_buffer *buffer, std::size_t required);
void set_buffer_position(a_text_buffer *buffer, const char *position);
void add_to_text_buffer(a_text_buffer *buffer, const char *data, std::size_t length);
void f_add_string_to_text_buffer(a_text_buffer *buffer, const char *string);
// Drops one last byte if it is a null.
void remove_null_terminator_from_text_buffer(a_text_buffer *buffer);
inline void add_char_to_text_buffer(a_text_buffer *buffer, char c) {
  if (buffer->size_used + 1 > buffer->allocated_size) {
    expand_text_buffer(buffer, buffer->size_used + 1);
  }
  buffer->buffer[buffer->size_used++] = c;
}
// The text as a string: puts a null behind it that does not count in size_used.
const char *text_of_buffer(a_text_buffer *buffer);

// ---- Phases ------------------------------------------------------------------------------------

void mem_manage_early_init();
void mem_manage_one_time_init();
void mem_manage_init();
void mem_manage_trans_unit_init();

#endif
