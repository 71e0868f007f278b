// The chains that a symbol hangs on: those of its header (visible, or reached through a class or
// closed namespace only), the list of its scope in order of declaration, and the scope's lookup
// table.
//
// A scope that can be searched while it is closed keeps, for each header, the chain of its symbols.
// Small scopes find the chain by walking their list; from a size on they have a hash table. Scopes
// that are only searched through the headers' chains (blocks, and in C the file scope) have none.
#include <cstring>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il_kinds.h"
#include "il/il_type.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/symbol_tbl_internal.h"

namespace {

// Up to this many symbols a walk over the list is as fast as a table.
constexpr std::uint32_t most_symbols_without_table = 8;

constexpr std::size_t table_sizes[] = {
    1,          5,          11,        17,        29,        41,        59,        83,
    127,        179,        251,       353,       499,       701,       983,       1381,
    1949,       2729,       3821,      5351,      7499,      10499,     14699,     20593,
    28837,      40387,      56543,     79181,     110863,    155209,    217307,    304253,
    425959,     596363,     834913,    1168879,   1636457,   2291041,   3207461,   4490459,
    6286661,    8801327,    12321863,  17250641,  24150901,  33811277,  47335793,  66270121,
    92778187,   129889477,  181845299, 254583437, 356416861, 498983623, 698577083, 978007931,
    1369211111, 1916895569,
};
static_assert(sizeof table_sizes / sizeof *table_sizes == 58);

std::size_t table_size_for(std::size_t request) {
  for (std::size_t size : table_sizes)
    if (size >= request) return size;
  return table_sizes[57];
}

void alloc_buckets(a_hash_table *table, std::size_t size) {
  table->size = size;
  table->buckets = static_cast<a_hash_entry **>(
      alloc_in_region(permanent_region, size * sizeof(a_hash_entry *)));
  std::memset(table->buckets, 0, size * sizeof(a_hash_entry *));
}

void grow_hash_table(a_hash_table *table) {
  const std::size_t old_size = table->size;
  const std::size_t new_size = table_size_for(old_size * 4);
  if (new_size == old_size) return;
  a_hash_entry **old_buckets = table->buckets;
  alloc_buckets(table, new_size);
  for (std::size_t i = 0; i < old_size; ++i) {
    for (a_hash_entry *entry = old_buckets[i], *next; entry != nullptr; entry = next) {
      next = entry->next;
      a_hash_entry **bucket = &table->buckets[entry->hash_value % new_size];
      entry->next = *bucket;
      *bucket = entry;
    }
  }
}

// The latest symbol of this header in a list that has no table.
a_symbol *latest_in_list(const a_scope_pointers_block *block, const a_symbol_header *header,
                         const a_symbol *except) {
  for (a_symbol *symbol = block->last_symbol; symbol != nullptr; symbol = symbol->prev_in_scope)
    if (symbol->header == header && symbol != except) return symbol;
  return nullptr;
}

std::size_t first_table_size(a_scope_kind kind) {
  switch (kind) {
    case sck_file:
    case sck_namespace:
    case sck_namespace_extension:
      return 100;
    case sck_class_reactivation:
      return 5;
    default:
      return 30;
  }
}

bool scope_kind_is_searched_when_closed(a_scope_kind kind) {
  switch (kind) {
    case sck_class:
    case sck_class_reactivation:
    case sck_namespace:
    case sck_namespace_extension:
    case sck_namespace_reactivation:
      return true;
    case sck_file:
    case sck_enum:
      return in_cplusplus();
    default:
      return false;
  }
}

// The chain of the header that the symbol stands on.
a_symbol **chain_of(a_symbol *symbol) {
  return symbol->is_inactive ? &symbol->header->class_member_symbols
                             : &symbol->header->active_symbols;
}

// Where on the visible chain a symbol of the scope at depth goes: behind those of inner scopes.
a_symbol **place_on_active_chain(a_symbol_header *header, int depth) {
  a_symbol **link = &header->active_symbols;
  if (depth < 0 || depth >= depth_scope_stack) return link;
  for (; *link != nullptr; link = &(*link)->next_active) {
    if ((*link)->scope_number == no_scope_number) continue;
    if (scope_depth_of_symbol(*link, nullptr) <= depth) break;
  }
  return link;
}

// A member with the name of its class, which only a constructor may have: 407 and 282.
bool member_has_name_of_its_class(a_symbol *symbol, a_scope_stack_entry &entry) {
  if (!in_cplusplus() || entry.kind != sck_class || entry.assoc_type == nullptr) return false;
  a_symbol *class_symbol = entry.assoc_type->symbol;
  if (class_symbol == nullptr || class_symbol->header != symbol->header ||
      is_unnamed_tag_symbol(class_symbol))
    return false;
  switch (symbol->kind) {
    case syk_type:
      if (symbol->is_injected_class_name) return false;
      break;
    case syk_projection:
      return false;
    case syk_field:
      if (class_symbol->extra.class_supplement->constructor == nullptr) return false;
      break;
    default:
      break;
  }
  bool is_function =
      is_routine_symbol_kind(symbol->kind) || symbol->kind == syk_overloaded_function;
  pos_sy_error(
      is_function ? ec_class_and_member_function_name_conflict : ec_class_and_member_name_conflict,
      &symbol->decl_position, symbol);
  symbol->is_error_symbol = true;
  return true;
}

void append_to_list(a_symbol *symbol, a_scope_pointers_block *block) {
  symbol->next_in_scope = nullptr;
  symbol->prev_in_scope = block->last_symbol;
  if (block->last_symbol == nullptr)
    block->first_symbol = symbol;
  else
    block->last_symbol->next_in_scope = symbol;
  block->last_symbol = symbol;
  ++block->num_symbols;
}

}  // namespace

a_hash_table *alloc_hash_table(std::size_t first_size) {
  auto *table =
      static_cast<a_hash_table *>(alloc_in_region(permanent_region, sizeof(a_hash_table)));
  table->entries = 0;
  alloc_buckets(table, table_size_for(first_size));
  return table;
}

a_hash_entry *hash_find(a_hash_table *table, const a_symbol_header *header, bool add) {
  const std::uint32_t hash = header->hash_value;
  a_hash_entry **bucket = &table->buckets[hash % table->size];
  for (a_hash_entry *entry = *bucket; entry != nullptr; entry = entry->next)
    if (entry->hash_value == hash && entry->header == header) return entry;
  if (!add) return nullptr;
  if (++table->entries > table->size) {
    grow_hash_table(table);
    bucket = &table->buckets[hash % table->size];
  }
  auto *entry =
      static_cast<a_hash_entry *>(alloc_in_region(permanent_region, sizeof(a_hash_entry)));
  *entry = {*bucket, hash, header, nullptr};
  *bucket = entry;
  return entry;
}

// ---- Lookup tables of scopes -------------------------------------------------------------------

a_symbol *symbols_in_lookup_table(const a_scope_pointers_block *block,
                                  const a_symbol_header *header) {
  if (block->lookup_table == nullptr) return latest_in_list(block, header, nullptr);
  a_hash_entry *entry = hash_find(block->lookup_table, header, false);
  return entry == nullptr ? nullptr : entry->first_symbol;
}

// The symbol stands at the end of the scope's list already.
void add_symbol_to_lookup_table(a_symbol *symbol, a_scope_pointers_block *block,
                                std::size_t first_size) {
  if (block->lookup_table == nullptr && block->num_symbols > most_symbols_without_table) {
    block->lookup_table = alloc_hash_table(first_size);
    for (a_symbol *old = block->first_symbol; old != nullptr; old = old->next_in_scope)
      hash_find(block->lookup_table, old->header, true)->first_symbol = old;
    a_symbol *previous = latest_in_list(block, symbol->header, symbol);
    symbol->next_with_same_name_in_scope = previous;
    return;
  }
  if (block->lookup_table == nullptr) {
    symbol->next_with_same_name_in_scope = latest_in_list(block, symbol->header, symbol);
    return;
  }
  a_hash_entry *entry = hash_find(block->lookup_table, symbol->header, true);
  symbol->next_with_same_name_in_scope = entry->first_symbol;
  entry->first_symbol = symbol;
}

void remove_symbol_from_lookup_table(a_symbol *symbol, a_scope_pointers_block *block) {
  a_symbol *first = symbols_in_lookup_table(block, symbol->header);
  if (first == symbol) {
    if (block->lookup_table != nullptr)
      hash_find(block->lookup_table, symbol->header, true)->first_symbol =
          symbol->next_with_same_name_in_scope;
    return;
  }
  for (; first != nullptr; first = first->next_with_same_name_in_scope) {
    if (first->next_with_same_name_in_scope != symbol) continue;
    first->next_with_same_name_in_scope = symbol->next_with_same_name_in_scope;
    return;
  }
}

// ---- Lists of scopes ---------------------------------------------------------------------------

void add_symbol_to_scope_list(a_symbol *symbol, int depth, bool *no_error) {
  if (depth < 0) {
    symbol->next_in_scope = symbols_with_no_scope;
    symbols_with_no_scope = symbol;
    return;
  }
  a_scope_stack_entry &entry = scope_stack[depth];
  symbol->scope_number = entry.scope_number;
  if (member_has_name_of_its_class(symbol, entry)) {
    if (no_error != nullptr) *no_error = false;
    return;
  }
  append_to_list(symbol, entry.pointers);
  if (scope_kind_is_searched_when_closed(entry.kind))
    add_symbol_to_lookup_table(symbol, entry.pointers, first_table_size(entry.kind));
}

void remove_symbol_from_scope_list(a_symbol *symbol, a_scope_pointers_block *block) {
  (symbol->prev_in_scope == nullptr ? block->first_symbol : symbol->prev_in_scope->next_in_scope) =
      symbol->next_in_scope;
  (symbol->next_in_scope == nullptr ? block->last_symbol : symbol->next_in_scope->prev_in_scope) =
      symbol->prev_in_scope;
  symbol->next_in_scope = symbol->prev_in_scope = nullptr;
  --block->num_symbols;
}

// ---- Chains of headers -------------------------------------------------------------------------

void add_symbol_to_symbol_table(a_symbol *symbol, int depth) {
  bool inactive = depth >= 0 && scope_stack[depth].pointers->symbols_are_inactive;
  if (inactive) {
    add_symbol_to_inactive_list(symbol);
    return;
  }
  // Nothing looks for labels but the function they stand in: their order does not matter.
  a_symbol **link = symbol->kind == syk_label ? &symbol->header->active_symbols
                                              : place_on_active_chain(symbol->header, depth);
  symbol->next_active = *link;
  *link = symbol;
  symbol->is_inactive = false;
  symbol->is_in_symbol_table = true;
}

void add_symbol_to_inactive_list(a_symbol *symbol) {
  symbol->next_active = symbol->header->class_member_symbols;
  symbol->header->class_member_symbols = symbol;
  symbol->is_inactive = true;
  symbol->is_in_symbol_table = true;
}

void unlink_symbol_from_symbol_table(a_symbol *symbol) {
  if (!symbol->is_in_symbol_table) return;
  for (a_symbol **link = chain_of(symbol); *link != nullptr; link = &(*link)->next_active) {
    if (*link != symbol) continue;
    *link = symbol->next_active;
    break;
  }
  symbol->next_active = nullptr;
  symbol->is_in_symbol_table = false;
}

void remove_symbol(a_symbol *symbol) {
  unlink_symbol_from_symbol_table(symbol);
  if (symbol->scope_number == no_scope_number) return;
  int depth = scope_depth_of_symbol(symbol, nullptr);
  if (depth < 0) return;
  a_scope_pointers_block *block = scope_stack[depth].pointers;
  if (symbol->prev_in_scope == nullptr && block->first_symbol != symbol) return;
  if (scope_kind_is_searched_when_closed(scope_stack[depth].kind))
    remove_symbol_from_lookup_table(symbol, block);
  remove_symbol_from_scope_list(symbol, block);
}
