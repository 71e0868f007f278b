// What the rooms of the symbol table share: the hash tables of scopes.
#ifndef SEMANTICS_SYMBOL_TBL_INTERNAL_H
#define SEMANTICS_SYMBOL_TBL_INTERNAL_H

#include <cstddef>
#include <cstdint>

#include "il/il_fwd.h"

// All symbols of one header in one scope.
struct a_hash_entry {
  a_hash_entry *next;  // in the bucket
  std::uint32_t hash_value;
  const a_symbol_header *header;
  a_symbol *first_symbol;  // the latest; linked by next_with_same_name_in_scope
};

// Grows fourfold when it holds more entries than buckets. Lies in region 0.
struct a_hash_table {
  std::size_t size;  // of the list of primes, each about 1.4 times the one before
  std::size_t entries;
  a_hash_entry **buckets;
};

a_hash_table *alloc_hash_table(std::size_t first_size);
// The entry of a header; with add it is made, at the head of its bucket. Null: not there.
a_hash_entry *hash_find(a_hash_table *table, const a_symbol_header *header, bool add);

#endif
