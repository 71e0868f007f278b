// Spellings: one header for each, in one hash table of the whole compilation; keywords and macros,
// which belong to no scope; and the state of the symbol table.
//
// The tokenizer asks for a header once for each identifier token, so this file is on its path: the
// hash reads at most nine bytes, and a hit moves to the head of its bucket.
#include "semantics/symbol_tbl.h"

#include <cstring>
#include <initializer_list>

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "driver/trans_unit.h"
#include "il/il_alloc.h"
#include "il/il_kinds.h"
#include "semantics/scope_stk.h"

const char *const symbol_kind_names[syk_last + 1] = {
#define SYMBOL_KIND(number, name, printed, c_space, cpp_space) printed,
#include "semantics/symbol_tbl_kinds.def"
    "last",
};

a_name_space name_space_for_symbol_kind[syk_last];
a_symbol_header **symbol_table;
std::size_t num_symbol_buckets;
const a_symbol_locator cleared_locator = {};
std::int32_t next_scope_number;
std::uint32_t decl_seq_counter = 1;
a_symbol *symbols_with_no_scope;
bool file_scope_symbols_are_on_inactive_list;

namespace {

constexpr std::size_t num_first_buckets = 16384;
a_symbol_header *first_buckets[num_first_buckets];  // enough for most programs
std::size_t num_headers;                            // in the table

a_symbol_header *error_header;    // null: not made yet
a_symbol_header *unnamed_header;  // null: not made yet

// By scope number: the unit that took the number.
a_translation_unit **trans_unit_for_scope;
std::size_t size_of_trans_unit_for_scope;

void set_name_spaces() {
  static constexpr a_name_space c_spaces[] = {
#define SYMBOL_KIND(number, name, printed, c_space, cpp_space) ns_##c_space,
#include "semantics/symbol_tbl_kinds.def"
  };
  static constexpr a_name_space cpp_spaces[] = {
#define SYMBOL_KIND(number, name, printed, c_space, cpp_space) ns_##cpp_space,
#include "semantics/symbol_tbl_kinds.def"
  };
  std::memcpy(name_space_for_symbol_kind, in_cplusplus() ? cpp_spaces : c_spaces, sizeof c_spaces);
}

a_symbol_header *alloc_symbol_header(const char *name, std::size_t length, std::uint32_t hash) {
  auto *header =
      static_cast<a_symbol_header *>(alloc_in_region(permanent_region, sizeof(a_symbol_header)));
  *header = {};
  header->name = copy_string_to_region(primary_file_scope_region, name, length);
  header->length = length;
  header->hash_value = hash;
  return header;
}

// A header that no spelling in a source can find.
a_symbol_header *make_private_header(const char *name) {
  std::size_t length = std::strlen(name);
  return alloc_symbol_header(name, length, hash_of_name(name, length));
}

}  // namespace

// All bytes take part: generated names often differ in a few places of a long text only.
std::uint32_t hash_of_name(const char *name, std::size_t length) {
  constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15;
  std::uint64_t hash = length * multiplier, word;
  for (; length >= sizeof word; name += sizeof word, length -= sizeof word) {
    std::memcpy(&word, name, sizeof word);
    hash = (hash ^ word) * multiplier;
    hash ^= hash >> 32;
  }
  word = 0;
  for (std::size_t i = 0; i < length; ++i)
    word = word << 8 | static_cast<unsigned char>(name[i]);
  hash = (hash ^ word) * multiplier;
  return static_cast<std::uint32_t>(hash >> 32);
}

namespace {

a_symbol_header **bucket_of(std::uint32_t hash) {
  return &symbol_table[hash & (num_symbol_buckets - 1)];
}

void grow_symbol_table() {
  a_symbol_header **old_table = symbol_table;
  const std::size_t old_size = num_symbol_buckets;
  num_symbol_buckets *= 4;
  const std::size_t bytes = num_symbol_buckets * sizeof(a_symbol_header *);
  symbol_table = static_cast<a_symbol_header **>(alloc_general(bytes));
  std::memset(symbol_table, 0, bytes);
  for (std::size_t i = 0; i < old_size; ++i) {
    a_symbol_header *next;
    for (a_symbol_header *header = old_table[i]; header != nullptr; header = next) {
      next = header->next_in_bucket;
      a_symbol_header **bucket = bucket_of(header->hash_value);
      header->next_in_bucket = *bucket;
      *bucket = header;
    }
  }
  if (old_table != first_buckets) free_general(old_table, old_size * sizeof(a_symbol_header *));
}

}  // namespace

a_symbol_header *find_symbol_header(const char *name, std::size_t length) {
  const std::uint32_t hash = hash_of_name(name, length);
  a_symbol_header **bucket = bucket_of(hash);
  a_symbol_header **link = bucket;
  for (a_symbol_header *header = *bucket; header != nullptr; header = header->next_in_bucket) {
    if (header->hash_value == hash && header->length == length &&
        std::memcmp(header->name, name, length) == 0) {
      if (link != bucket) {
        *link = header->next_in_bucket;
        header->next_in_bucket = *bucket;
        *bucket = header;
      }
      return header;
    }
    link = &header->next_in_bucket;
  }
  if (++num_headers > num_symbol_buckets) {
    grow_symbol_table();
    bucket = bucket_of(hash);
  }
  a_symbol_header *header = alloc_symbol_header(name, length, hash);
  header->next_in_bucket = *bucket;
  *bucket = header;
  return header;
}

a_symbol *find_symbol(const char *name, std::size_t length, a_symbol_locator *locator) {
  locator->header = find_symbol_header(name, length);
  return locator->header->active_symbols;
}

a_symbol_header *error_symbol_header() {
  if (error_header == nullptr) error_header = make_private_header("<error>");
  return error_header;
}

a_symbol_header *unnamed_symbol_header() {
  if (unnamed_header == nullptr) unnamed_header = make_private_header("<unnamed>");
  return unnamed_header;
}

a_symbol *find_macro_symbol(a_symbol_header *header) {
  for (a_symbol *symbol = header->active_symbols; symbol != nullptr; symbol = symbol->next_active)
    if (symbol->kind == syk_macro) return symbol;
  return nullptr;
}

a_symbol *find_macro_symbol_by_name(const char *name) {
  return find_macro_symbol(find_symbol_header(name, std::strlen(name)));
}

// Labels are known in the whole function; one declared by __label__ only in its block.
a_symbol *find_label_symbol(a_symbol_header *header) {
  if (!inside_function_scope()) return nullptr;
  for (a_symbol *symbol = header->active_symbols; symbol != nullptr; symbol = symbol->next_active) {
    if (symbol->kind != syk_label) continue;
    for (int depth = depth_scope_stack; depth >= depth_innermost_function_scope; --depth)
      if (scope_stack[depth].scope_number == symbol->scope_number) return symbol;
  }
  return nullptr;
}

a_symbol *find_external_symbol(a_symbol_header *header) {
  a_symbol *block_extern = nullptr;
  std::int32_t file_scope = scope_number_at(0);
  for (a_symbol *symbol = header->active_symbols; symbol != nullptr; symbol = symbol->next_active) {
    if (symbol->kind == syk_extern_variable || symbol->kind == syk_extern_routine)
      block_extern = symbol;
    else if (symbol->scope_number == file_scope &&
             (is_variable_symbol_kind(symbol->kind) || is_routine_symbol_kind(symbol->kind)))
      return symbol;
  }
  return block_extern;
}

a_symbol *enter_keyword(a_token_kind token, const char *name) {
  a_symbol_header *header = find_symbol_header(name, std::strlen(name));
  a_symbol *symbol = alloc_symbol(syk_keyword, header, &null_source_position);
  symbol->variant.keyword = token;
  add_symbol_to_symbol_table(symbol, -1);
  return symbol;
}

a_symbol *enter_macro_symbol(a_symbol_header *header, const a_source_position *position) {
  a_symbol *symbol = alloc_symbol(syk_macro, header, position);
  add_symbol_to_symbol_table(symbol, -1);
  return symbol;
}

// ---- Scope numbers -----------------------------------------------------------------------------

std::int32_t take_next_scope_number() {
  if (next_scope_number == INT32_MAX) catastrophe(ec_program_too_large);
  const auto number = static_cast<std::size_t>(++next_scope_number);
  if (number >= size_of_trans_unit_for_scope) {
    const std::size_t new_size =
        size_of_trans_unit_for_scope == 0 ? 1024 : size_of_trans_unit_for_scope * 2;
    trans_unit_for_scope = static_cast<a_translation_unit **>(realloc_buffer(
        trans_unit_for_scope, size_of_trans_unit_for_scope * sizeof(a_translation_unit *),
        new_size * sizeof(a_translation_unit *)));
    size_of_trans_unit_for_scope = new_size;
  }
  trans_unit_for_scope[number] = curr_translation_unit;
  return next_scope_number;
}

a_translation_unit *trans_unit_for_symbol(const a_symbol *symbol) {
  if (symbol->scope_number <= 0) return curr_translation_unit;
  return trans_unit_for_scope[symbol->scope_number];
}

an_access_specifier compute_access(an_access_specifier path, an_access_specifier member) {
  if (path > as_protected || member == as_inaccessible) return as_inaccessible;
  if (member == as_private) return as_private;
  return path == member ? path : as_protected;
}

// ---- Life cycle --------------------------------------------------------------------------------

void symbol_tbl_early_init() {
  error_header = unnamed_header = nullptr;
  next_scope_number = 0;
}

void symbol_tbl_one_time_init() {
  set_name_spaces();
  register_trans_unit_variable(&decl_seq_counter);
  register_trans_unit_variable(&symbols_with_no_scope);
  register_trans_unit_variable(&file_scope_symbols_are_on_inactive_list);
}

void symbol_tbl_init() {
  if (num_headers != 0) std::memset(first_buckets, 0, sizeof first_buckets);
  symbol_table = first_buckets;
  num_symbol_buckets = num_first_buckets;
  num_headers = 0;
  error_header = unnamed_header = nullptr;
}

void symbol_tbl_trans_unit_init() {
  decl_seq_counter = 1;
  symbols_with_no_scope = nullptr;
  file_scope_symbols_are_on_inactive_list = false;
}
