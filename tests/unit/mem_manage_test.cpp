// Regions, general memory and text buffers.
#include "driver/mem_manage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

class Regions : public ::testing::Test {
 protected:
  void SetUp() override {
    mem_manage_early_init();
    mem_manage_one_time_init();
    mem_manage_init();
  }
  void TearDown() override { free_all_memory_regions(); }
  static std::size_t room(int region) {
    return static_cast<std::size_t>(mem_region_table[region]->end -
                                    mem_region_table[region]->next_free);
  }
};

TEST_F(Regions, HandsOutAlignedDistinctSpace) {
  std::vector<char *> given;
  for (std::size_t size = 1; size < 400; ++size) {
    auto *p = static_cast<char *>(alloc_in_region(1, size));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % 8, 0u);
    std::memset(p, static_cast<int>(size & 0xff), size);
    given.push_back(p);
  }
  for (std::size_t i = 0; i < given.size(); ++i) {
    for (std::size_t k = 0; k <= i; ++k) {
      ASSERT_EQ(static_cast<unsigned char>(given[i][k]), (i + 1) & 0xff);
    }
  }
}

TEST_F(Regions, KeepsEightSpareBytes) {
  // An exact fit would leave nothing, so it takes a new block.
  const a_mem_block *before = mem_region_table[1];
  alloc_in_region(1, room(1));
  EXPECT_NE(mem_region_table[1], before);
  before = mem_region_table[1];
  alloc_in_region(1, room(1) - 8);
  EXPECT_EQ(mem_region_table[1], before);
  EXPECT_EQ(room(1), 8u);
}

TEST_F(Regions, GivesALargeRequestItsOwnBlock) {
  const int region = new_memory_region();
  auto *p = static_cast<char *>(alloc_in_region(region, 200000));
  std::memset(p, 1, 200000);
  EXPECT_EQ(mem_region_table[region]->total_size, 200000u + 8 + sizeof(a_mem_block));
  EXPECT_EQ(room(region), 8u);
}

TEST_F(Regions, SplitsATailOf2208BytesAndNoSmallerOne) {
  const int kept = new_memory_region();
  alloc_in_region(kept, room(kept) - 2200);
  ASSERT_EQ(room(kept), 2200u);
  trim_memory_region(kept);
  EXPECT_EQ(room(kept), 2200u);

  const int split = new_memory_region();
  alloc_in_region(split, room(split) - 2208);
  trim_memory_region(split);
  EXPECT_EQ(room(split), 0u);
  // The next region gets just that tail.
  const int next = new_memory_region();
  EXPECT_EQ(mem_region_table[next]->total_size, 0u);
  EXPECT_EQ(room(next), 2208u - sizeof(a_mem_block));
}

TEST_F(Regions, GrowsATrimmedRegionBySmallBlocks) {
  const int region = new_memory_region();
  alloc_in_region(region, room(region) - 2208);
  trim_memory_region(region);
  new_memory_region();  // takes the tail away
  for (int i = 0; i < 3; ++i) {
    alloc_in_region(region, room(region) + 1 < 64 ? 64 : room(region));
    EXPECT_EQ(mem_region_table[region]->total_size, small_mem_block_size);
  }
  alloc_in_region(region, 5000);
  EXPECT_EQ(mem_region_table[region]->total_size, 5000u + 8 + sizeof(a_mem_block));
}

TEST_F(Regions, MergesThePiecesOfReleasedRegions) {
  // Three regions share one allocation; released in any order they must not leave a dead piece on
  // the free list, which a sanitizer would report as a use after free in the next round.
  for (int order = 0; order < 6; ++order) {
    int region[3];
    for (int &r : region) {
      r = new_memory_region();
      alloc_in_region(r, 3000);
      trim_memory_region(r);
    }
    const int first = order % 3;
    const int second = (first + 1 + order / 3) % 3;
    free_memory_region(region[first]);
    free_memory_region(region[second]);
    free_memory_region(region[3 - first - second]);
    EXPECT_EQ(mem_region_table[region[0]], nullptr);
  }
  const int region = new_memory_region();
  EXPECT_EQ(mem_region_table[region]->total_size, large_mem_block_size);
}

TEST_F(Regions, TablesGrowTogether) {
  void **parallel = nullptr;
  add_table_parallel_to_regions(&parallel);
  int last = 0;
  parallel[1] = &last;
  for (int i = 0; i < 2100; ++i) {
    last = new_memory_region();
    alloc_in_region(last, 10);
    trim_memory_region(last);
  }
  EXPECT_EQ(parallel[1], &last);
  EXPECT_EQ(parallel[last], nullptr);
  parallel[last] = &last;
  free_memory_region(last);
  EXPECT_EQ(parallel[last], nullptr);
}

TEST_F(Regions, NumbersFunctionDefinitionsFromOne) {
  for (int i = 1; i <= 5000; ++i)
    ASSERT_EQ(new_function_def_number(), i);
  ASSERT_GT(size_of_function_def_table, 5000u);
  EXPECT_EQ(function_def_table[5000].scope, nullptr);
}

TEST_F(Regions, GeneralMemoryMovesItsContents) {
  auto *p = static_cast<char *>(realloc_buffer(nullptr, 0, 10));
  std::strcpy(p, "contents");
  void *others[3] = {alloc_resizable_buffer(5), alloc_general(3), alloc_general(100)};
  p = static_cast<char *>(realloc_buffer(p, 10, 100000));
  EXPECT_STREQ(p, "contents");
  free_general(others[1], 3);
  free_general(others[2], 100);
  EXPECT_DEATH(free_general(alloc_general(8), 9), "size");
}

TEST(TextBuffers, GrowByDoublingSteps) {
  a_text_buffer *buffer = alloc_text_buffer(1024);
  const std::string text(1025, 'x');
  add_to_text_buffer(buffer, text.data(), text.size());
  EXPECT_EQ(buffer->allocated_size, 2048u);
  EXPECT_EQ(buffer->increment, 2048u);
  add_to_text_buffer(buffer, text.data(), 1024);
  EXPECT_EQ(buffer->allocated_size, 4096u);
  EXPECT_EQ(buffer->increment, 4096u);
  EXPECT_EQ(std::string(buffer->buffer, buffer->size_used), std::string(2049, 'x'));
}

TEST(TextBuffers, EndAndPosition) {
  a_text_buffer *buffer = alloc_text_buffer(1);
  for (char c : std::string("abcdef"))
    add_char_to_text_buffer(buffer, c);
  EXPECT_STREQ(text_of_buffer(buffer), "abcdef");
  EXPECT_EQ(buffer->size_used, 6u);
  set_buffer_position(buffer, buffer->buffer + 2);
  f_add_string_to_text_buffer(buffer, "yz");
  EXPECT_STREQ(text_of_buffer(buffer), "abyz");
  add_char_to_text_buffer(buffer, '\0');
  remove_null_terminator_from_text_buffer(buffer);
  remove_null_terminator_from_text_buffer(buffer);
  EXPECT_EQ(buffer->size_used, 4u);
}

}  // namespace
