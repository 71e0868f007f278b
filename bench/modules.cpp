// The inner loops of the front end, one at a time. Whole runs are measured by compare.py.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "front_end_start.h"
#include "il/il.h"
#include "semantics/const_ints.h"
#include "semantics/folding.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/input_stack.h"
#include "source/lexical.h"

namespace {

void start() {
  static bool is_started = false;
  if (is_started) return;
  is_started = true;
  start_front_end([] { std_version = 201112; });
}

// Tokens of a text that is put into the input: identifiers, numbers, operators.
void BM_tokens(benchmark::State &state) {
  start();
  std::string text;
  for (int i = 0; i < 1000; ++i)
    text += "value_" + std::to_string(i) + " = (first + " + std::to_string(i * 37) + ") >> 3; ";
  const std::size_t length = text.size();
  text += std::string("\0\2\0\1", 4);
  for (auto _ : state) {
    a_source_position pos = {1, 1, 0};
    a_saved_text_place place;
    begin_inserted_text(text.c_str(), &pos, &place);
    do
      get_token();
    while (curr_token != tok_end_of_source);
    end_inserted_text(&place);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * length));
}
BENCHMARK(BM_tokens);

void BM_find_symbol_header(benchmark::State &state) {
  start();
  std::vector<std::string> names;
  for (int i = 0; i < state.range(0); ++i)
    names.push_back("module_register_" + std::to_string(i) + "_control");
  for (auto _ : state) {
    for (const std::string &name : names)
      benchmark::DoNotOptimize(find_symbol_header(name.data(), name.size()));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_find_symbol_header)->Arg(1000)->Arg(100000);

void BM_alloc_in_region(benchmark::State &state) {
  start();
  for (auto _ : state) {
    a_memory_region_number region = new_memory_region();
    for (int i = 0; i < 1000; ++i)
      benchmark::DoNotOptimize(alloc_in_region(region, 80));
    free_memory_region(region);
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_alloc_in_region);

// A derived type that exists already is found again.
void BM_pointer_types(benchmark::State &state) {
  start();
  for (auto _ : state) {
    a_type *type = integer_type(ik_int);
    for (int i = 0; i < 8; ++i)
      type = make_pointer_type(type);
    benchmark::DoNotOptimize(type);
  }
}
BENCHMARK(BM_pointer_types);

// Equal constants are shared.
void BM_shared_constants(benchmark::State &state) {
  start();
  for (auto _ : state) {
    for (int i = 0; i < 1000; ++i) {
      a_constant constant;
      clear_constant(&constant, ck_integer);
      set_unsigned_integer_constant(&constant, static_cast<std::uint64_t>(i), ik_int);
      benchmark::DoNotOptimize(alloc_shareable_constant(&constant));
    }
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_shared_constants);

}  // namespace
