// Regions, general memory, text buffers.
//
// A region is a chain of blocks, the newest first; only the newest is allocated from. When a region
// is trimmed, or outgrows its block, the unused tail of the block is split off as a block of its
// own and serves another region; the pieces find together again when they are released, and only a
// whole allocation goes back to the system. A block always keeps 8 spare bytes behind what it
// handed out.
#include "driver/mem_manage.h"

#include <sys/resource.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <new>

#include "DIAG/error.h"
#include "UTIL/basics.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"

bool free_blocks_to_system = true;

a_mem_block **mem_region_table;
std::size_t size_of_mem_region_table;
a_memory_region_number highest_used_region_number;
a_function_def_entry *function_def_table;
std::size_t size_of_function_def_table;
int highest_used_function_def_number;
a_text_buffer *text_buffers;

a_memory_region_number file_scope_region_number;

namespace {

constexpr std::size_t table_step = 2048;
constexpr int max_parallel_tables = 8;

// Free blocks by the power of two that their size reaches.
constexpr int num_size_classes = 48;
a_mem_block *free_mem_blocks[num_size_classes];
void **parallel_tables[max_parallel_tables];
void ***parallel_table_addresses[max_parallel_tables];
int num_parallel_tables;

// In front of every general allocation, so that it is found again without a search.
struct alignas(16) a_general_allocation {
  a_general_allocation *next;
  a_general_allocation *prev;
  std::size_t size;
};
a_general_allocation *general_allocations;
a_general_allocation *resizable_allocations;

// Kept back so that the end can be told when nothing else is left.
constexpr std::size_t size_of_reserve = 64 * 1024;
void *reserve_for_the_end;

void *malloc_or_stop(std::size_t size) {
  void *result = std::malloc(size != 0 ? size : 1);
  if (result == nullptr) stop_out_of_memory();
  return result;
}

std::size_t size_of_block(const a_mem_block *block) {
  return static_cast<std::size_t>(block->end - block->start) + sizeof(a_mem_block);
}

bool block_is_whole(const a_mem_block *block) {
  return block->total_size != 0 &&
         block->total_size ==
             static_cast<std::size_t>(block->end - reinterpret_cast<const char *>(block));
}

void init_block(a_mem_block *block, char *end, std::size_t total_size) {
  *block = {};
  block->start = reinterpret_cast<char *>(block) + sizeof(a_mem_block);
  block->next_free = block->start;
  block->end = end;
  block->total_size = total_size;
  block->is_last = true;
}

// ---- Free blocks -------------------------------------------------------------------------------

int size_class(std::size_t size) {
  return static_cast<int>(std::bit_width(size)) - 1;
}

void link_free_block(a_mem_block *block) {
  a_mem_block **head = &free_mem_blocks[size_class(size_of_block(block))];
  block->prev_free = nullptr;
  block->next = *head;
  if (*head != nullptr) (*head)->prev_free = block;
  *head = block;
  block->is_free = true;
}

void unlink_free_block(a_mem_block *block) {
  a_mem_block **head = &free_mem_blocks[size_class(size_of_block(block))];
  (block->prev_free != nullptr ? block->prev_free->next : *head) = block->next;
  if (block->next != nullptr) block->next->prev_free = block->prev_free;
  block->is_free = false;
}

a_mem_block *piece_behind(a_mem_block *block) {
  return block->is_last ? nullptr : reinterpret_cast<a_mem_block *>(block->end);
}

// The higher piece becomes part of the lower one, which lies in front of it.
void merge_pieces(a_mem_block *lower, a_mem_block *higher) {
  lower->end = higher->end;
  lower->is_last = higher->is_last;
  if (a_mem_block *behind = piece_behind(lower)) behind->lower = lower;
}

// Gives a block back: to the system when it is whole, else to the lists of free blocks.
void release_block(a_mem_block *block) {
  if (free_blocks_to_system) {
    a_mem_block *behind = piece_behind(block);
    if (behind != nullptr && behind->is_free) {
      unlink_free_block(behind);
      merge_pieces(block, behind);
    }
    if (block->lower != nullptr && block->lower->is_free) {
      a_mem_block *lower = block->lower;
      unlink_free_block(lower);
      merge_pieces(lower, block);
      block = lower;
    }
    if (block_is_whole(block)) {
      std::free(block);
      return;
    }
  }
  link_free_block(block);
}

// A free block of at least needed bytes and not more than limit, out of its list; null: none.
a_mem_block *take_free_block(std::size_t needed, std::size_t limit) {
  int least = size_class(needed);
  int last = std::min(size_class(limit), num_size_classes - 1);
  for (int i = least; i <= last; i++) {
    // Blocks of the first class may be too small, those of the last one too large: a few are tried.
    int tries = 8;
    for (a_mem_block *block = free_mem_blocks[i]; block != nullptr && tries-- > 0;
         block = block->next) {
      const std::size_t available = size_of_block(block);
      if (available < needed || available > limit) continue;
      unlink_free_block(block);
      block->next_free = block->start;
      block->trimmed = false;
      return block;
    }
  }
  return nullptr;
}

void split_off_tail_if_worth(a_mem_block *block) {
  if (static_cast<std::size_t>(block->end - block->next_free) < min_tail_to_split) return;
  auto *tail = reinterpret_cast<a_mem_block *>(block->next_free);
  init_block(tail, block->end, 0);
  tail->lower = block;
  tail->is_last = block->is_last;
  if (a_mem_block *behind = piece_behind(tail)) behind->lower = tail;
  block->end = block->next_free;
  block->is_last = false;
  release_block(tail);
}

// Puts a block with room for size bytes at the head of the region's chain.
a_mem_block *alloc_mem_block(a_memory_region_number region, std::size_t size, bool small) {
  const std::size_t minimum = small ? small_mem_block_size : large_mem_block_size;
  const std::size_t needed = size + sizeof(a_mem_block);
  a_mem_block *block = take_free_block(needed, small ? minimum : SIZE_MAX);
  if (block == nullptr) {
    const std::size_t total = (std::max(needed, minimum) + 7) & ~std::size_t{7};
    block = static_cast<a_mem_block *>(malloc_or_stop(total));
    init_block(block, reinterpret_cast<char *>(block) + total, total);
  }
  block->next = mem_region_table[region];
  mem_region_table[region] = block;
  return block;
}

template <class T>
void grow_table(T **table, std::size_t old_size, std::size_t new_size) {
  *table = static_cast<T *>(realloc_buffer(*table, old_size * sizeof(T), new_size * sizeof(T)));
  std::memset(static_cast<void *>(*table + old_size), 0, (new_size - old_size) * sizeof(T));
}

void grow_function_def_table(std::size_t new_size) {
  grow_table(&function_def_table, size_of_function_def_table, new_size);
  size_of_function_def_table = new_size;
}

}  // namespace

// ---- Limits ------------------------------------------------------------------------------------

void stop_out_of_memory() {
  std::free(reserve_for_the_end);
  reserve_for_the_end = nullptr;
  catastrophe(ec_out_of_memory);
}

std::size_t share_of_address_space(std::size_t wanted) {
  constexpr rlim_t shares = 16;
  rlimit limit;
  if (getrlimit(RLIMIT_AS, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return wanted;
  return std::min<std::size_t>(wanted, limit.rlim_cur / shares);
}

// ---- Regions -----------------------------------------------------------------------------------

void *alloc_in_region_from_new_block(a_memory_region_number region, std::size_t aligned_size) {
  a_mem_block *block = mem_region_table[region];
  bool small = false;
  if (block != nullptr) {
    small = block->trimmed;
    if (!small) {
      split_off_tail_if_worth(block);
      block->trimmed = true;
    }
  }
  block = alloc_mem_block(region, aligned_size + 8, small);
  char *result = block->next_free;
  block->next_free += aligned_size;
  // A region that was trimmed from outside goes on growing by small blocks.
  block->trimmed = small;
  return result;
}

void *alloc_general_or_in_region(a_memory_region_number region, std::size_t size) {
  return region == general_memory ? alloc_general(size) : alloc_in_region(region, size);
}

char *copy_string_to_region(a_memory_region_number region, const char *text, std::size_t length) {
  auto *copy = static_cast<char *>(alloc_in_region(region, length + 1));
  std::memcpy(copy, text, length);
  copy[length] = '\0';
  return copy;
}

void ensure_mem_region_table_space(a_memory_region_number region) {
  const auto number = static_cast<std::size_t>(region);
  if (number < size_of_mem_region_table) return;
  const std::size_t new_size = number + table_step;
  grow_table(&mem_region_table, size_of_mem_region_table, new_size);
  for (int i = 0; i < num_parallel_tables; ++i) {
    grow_table(&parallel_tables[i], size_of_mem_region_table, new_size);
    *parallel_table_addresses[i] = parallel_tables[i];
  }
  size_of_mem_region_table = new_size;
}

void add_table_parallel_to_regions(void ***table) {
  for (int i = 0; i < num_parallel_tables; ++i) {
    if (parallel_table_addresses[i] == table) return;
  }
  check_invariant(num_parallel_tables < max_parallel_tables);
  const int index = num_parallel_tables++;
  parallel_table_addresses[index] = table;
  parallel_tables[index] = nullptr;
  if (size_of_mem_region_table != 0) {
    grow_table(&parallel_tables[index], 0, size_of_mem_region_table);
  }
  *table = parallel_tables[index];
}

void init_memory_region_without_initial_allocation(a_memory_region_number region) {
  ensure_mem_region_table_space(region);
  mem_region_table[region] = nullptr;
  highest_used_region_number = std::max(highest_used_region_number, region);
}

void init_memory_region(a_memory_region_number region, std::size_t size) {
  init_memory_region_without_initial_allocation(region);
  alloc_mem_block(region, size, false);
}

a_memory_region_number new_memory_region() {
  if (highest_used_region_number == INT_MAX - 1) catastrophe(ec_program_too_large);
  init_memory_region(highest_used_region_number + 1, 0);
  return highest_used_region_number;
}

void free_memory_region(a_memory_region_number region) {
  a_mem_block *block = mem_region_table[region];
  mem_region_table[region] = nullptr;
  for (int i = 0; i < num_parallel_tables; ++i)
    parallel_tables[i][region] = nullptr;
  while (block != nullptr) {
    a_mem_block *next = block->next;
    release_block(block);
    block = next;
  }
}

void trim_memory_region(a_memory_region_number region) {
  a_mem_block *block = mem_region_table[region];
  if (block == nullptr) return;
  split_off_tail_if_worth(block);
  block->trimmed = true;
}

void check_for_done_with_memory_region(a_memory_region_number region) {
  trim_memory_region(region);
}

void check_for_done_with_all_function_memory_regions() {
  for (a_memory_region_number region = 2; region <= highest_used_region_number; ++region) {
    if (region != file_scope_region_number) trim_memory_region(region);
  }
}

void free_all_memory_regions() {
  // A piece with no size of its own lies inside another allocation and goes away with it.
  auto unlink_pieces = [](a_mem_block **link) {
    while (*link != nullptr) {
      if ((*link)->total_size == 0) {
        *link = (*link)->next;
      } else {
        link = &(*link)->next;
      }
    }
  };
  auto free_chain = [](a_mem_block **head) {
    while (*head != nullptr) {
      a_mem_block *next = (*head)->next;
      std::free(*head);
      *head = next;
    }
  };
  for (a_memory_region_number region = highest_used_region_number; region >= 0; --region) {
    unlink_pieces(&mem_region_table[region]);
  }
  for (a_mem_block *&head : free_mem_blocks)
    unlink_pieces(&head);
  for (a_memory_region_number region = 0; region <= highest_used_region_number; ++region) {
    free_chain(&mem_region_table[region]);
    for (int i = 0; i < num_parallel_tables; ++i)
      parallel_tables[i][region] = nullptr;
  }
  for (a_mem_block *&head : free_mem_blocks)
    free_chain(&head);
}

// ---- General memory ----------------------------------------------------------------------------

namespace {

void link_allocation(a_general_allocation **list, a_general_allocation *entry, std::size_t size) {
  entry->size = size;
  entry->prev = nullptr;
  entry->next = *list;
  if (*list != nullptr) (*list)->prev = entry;
  *list = entry;
}

void unlink_allocation(a_general_allocation **list, a_general_allocation *entry) {
  (entry->prev != nullptr ? entry->prev->next : *list) = entry->next;
  if (entry->next != nullptr) entry->next->prev = entry->prev;
}

void *alloc_on_list(a_general_allocation **list, std::size_t size) {
  auto *entry =
      static_cast<a_general_allocation *>(malloc_or_stop(sizeof(a_general_allocation) + size));
  link_allocation(list, entry, size);
  return entry + 1;
}

}  // namespace

void *alloc_general(std::size_t size) {
  return alloc_on_list(&general_allocations, size);
}

void free_general(void *pointer, std::size_t size) {
  if (pointer == nullptr) return;
  auto *entry = static_cast<a_general_allocation *>(pointer) - 1;
  check_invariant(entry->size == size);
  unlink_allocation(&general_allocations, entry);
  std::free(entry);
}

void *alloc_resizable_buffer(std::size_t size) {
  return alloc_on_list(&resizable_allocations, size);
}

void *realloc_buffer(void *pointer, std::size_t old_size, std::size_t new_size) {
  if (pointer == nullptr) return alloc_resizable_buffer(new_size);
  auto *entry = static_cast<a_general_allocation *>(pointer) - 1;
  check_invariant(entry->size == old_size);
  unlink_allocation(&resizable_allocations, entry);
  auto *moved = static_cast<a_general_allocation *>(
      std::realloc(static_cast<void *>(entry), sizeof(a_general_allocation) + new_size));
  if (moved == nullptr) stop_out_of_memory();
  link_allocation(&resizable_allocations, moved, new_size);
  return moved + 1;
}

// ---- Function definitions ----------------------------------------------------------------------

int new_function_def_number() {
  if (highest_used_function_def_number == INT_MAX - 1) catastrophe(ec_program_too_large);
  const int number = ++highest_used_function_def_number;
  const auto index = static_cast<std::size_t>(number);
  if (index >= size_of_function_def_table) grow_function_def_table(index + table_step);
  return number;
}

void ensure_function_def_table_space(int number) {
  const auto index = static_cast<std::size_t>(number);
  if (index >= size_of_function_def_table) grow_function_def_table(index + table_step);
}

// ---- Text buffers ------------------------------------------------------------------------------

a_text_buffer *alloc_text_buffer(std::size_t initial_size) {
  auto *buffer = static_cast<a_text_buffer *>(alloc_general(sizeof(a_text_buffer)));
  buffer->next = text_buffers;
  text_buffers = buffer;
  buffer->allocated_size = initial_size;
  buffer->size_used = 0;
  buffer->increment = std::max<std::size_t>(initial_size, 1);
  buffer->buffer = static_cast<char *>(malloc_or_stop(initial_size));
  return buffer;
}

void reset_text_buffer(a_text_buffer *buffer) {
  buffer->size_used = 0;
}

void expand_text_buffer(a_text_buffer *buffer, std::size_t required) {
  if (required <= buffer->allocated_size) return;
  const std::size_t step = buffer->increment;
  const std::size_t new_size = (required + step - 1) / step * step;
  auto *moved = static_cast<char *>(std::realloc(buffer->buffer, new_size));
  if (moved == nullptr) stop_out_of_memory();
  buffer->buffer = moved;
  buffer->allocated_size = new_size;
  buffer->increment = step * 2;
}

void set_buffer_position(a_text_buffer *buffer, const char *position) {
  buffer->size_used = static_cast<std::size_t>(position - buffer->buffer);
}

void add_to_text_buffer(a_text_buffer *buffer, const char *data, std::size_t length) {
  expand_text_buffer(buffer, buffer->size_used + length);
  if (length != 0) std::memcpy(buffer->buffer + buffer->size_used, data, length);
  buffer->size_used += length;
}

void f_add_string_to_text_buffer(a_text_buffer *buffer, const char *string) {
  add_to_text_buffer(buffer, string, std::strlen(string));
}

void remove_null_terminator_from_text_buffer(a_text_buffer *buffer) {
  if (buffer->size_used != 0 && buffer->buffer[buffer->size_used - 1] == '\0') --buffer->size_used;
}

const char *text_of_buffer(a_text_buffer *buffer) {
  expand_text_buffer(buffer, buffer->size_used + 1);
  buffer->buffer[buffer->size_used] = '\0';
  return buffer->buffer;
}

// ---- Phases ------------------------------------------------------------------------------------

void mem_manage_early_init() {
  if (reserve_for_the_end == nullptr) reserve_for_the_end = std::malloc(size_of_reserve);
  std::set_new_handler(stop_out_of_memory);
  mem_region_table = nullptr;
  size_of_mem_region_table = 0;
  highest_used_region_number = 0;
  function_def_table = nullptr;
  size_of_function_def_table = 0;
  highest_used_function_def_number = 0;
  num_parallel_tables = 0;
  std::fill(std::begin(free_mem_blocks), std::end(free_mem_blocks), nullptr);
}

void mem_manage_one_time_init() {
  free_blocks_to_system = !precompiled_header_processing_required;
  register_trans_unit_variable(&file_scope_region_number);
}

void mem_manage_init() {
  highest_used_region_number = permanent_region;
  file_scope_region_number = primary_file_scope_region;
  highest_used_function_def_number = 0;
  init_memory_region(permanent_region, 0);
  init_memory_region(primary_file_scope_region, 0);
}

void mem_manage_trans_unit_init() {
  if (!is_primary_translation_unit) file_scope_region_number = new_memory_region();
}
