// Spellings: one header for each, in one hash table of the whole compilation; keywords and macros,
// which belong to no scope; and the state of the symbol table.
//
// The tokenizer asks for a header once for each identifier token, so this file is on its path: the
// hash reads at most nine bytes, and a hit moves to the head of its bucket.
#include "semantics/symbol_tbl.h"

#include <cstring>
#include <new>
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
a_symbol_table symbol_table;
const a_symbol_locator cleared_locator = {};
std::int32_t next_scope_number;
std::uint32_t decl_seq_counter = 1;
a_symbol *symbols_with_no_scope;
bool file_scope_symbols_are_on_inactive_list;

namespace {

constexpr std::size_t num_first_slots = 8192;
std::uint32_t first_hashes[num_first_slots];  // enough for small programs
a_symbol_header *first_headers[num_first_slots];
std::size_t num_headers;  // in the table

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
  char *place =
      static_cast<char *>(alloc_in_region(permanent_region, sizeof(a_symbol_header) + length + 1));
  auto *header = new (place) a_symbol_header{};
  char *copy = place + sizeof(a_symbol_header);  // read together with the header
  std::memcpy(copy, name, length);
  copy[length] = '\0';
  header->name = copy;
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

// Never 0. All bytes take part: generated names often differ in a few places of a long text only.
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
  const auto result = static_cast<std::uint32_t>(hash >> 32);
  return result != 0 ? result : 1;
}

namespace {

// The number of the name's slot, or of the free one where it belongs.
std::size_t find_slot(const char *name, std::size_t length, std::uint32_t hash) {
  const std::size_t mask = symbol_table.num_slots - 1;
  std::size_t i = hash & mask;
  for (; symbol_table.hashes[i] != 0; i = (i + 1) & mask) {
    if (symbol_table.hashes[i] != hash) continue;
    const a_symbol_header *header = symbol_table.headers[i];
    if (header->length == length && std::memcmp(header->name, name, length) == 0) break;
  }
  return i;
}

void grow_symbol_table() {
  const a_symbol_table old = symbol_table;
  a_symbol_table &table = symbol_table;
  table.num_slots *= 2;
  const std::size_t size_of_hashes = table.num_slots * sizeof *table.hashes;
  table.hashes = static_cast<std::uint32_t *>(alloc_general(size_of_hashes));
  std::memset(table.hashes, 0, size_of_hashes);
  table.headers =
      static_cast<a_symbol_header **>(alloc_general(table.num_slots * sizeof *table.headers));
  for (std::size_t from = 0; from < old.num_slots; ++from) {
    if (old.hashes[from] == 0) continue;
    std::size_t i = old.hashes[from] & (table.num_slots - 1);
    while (table.hashes[i] != 0)
      i = (i + 1) & (table.num_slots - 1);
    table.hashes[i] = old.hashes[from];
    table.headers[i] = old.headers[from];
  }
  if (old.hashes == first_hashes) return;
  free_general(old.hashes, old.num_slots * sizeof *old.hashes);
  free_general(old.headers, old.num_slots * sizeof *old.headers);
}

}  // namespace

a_symbol_header *find_symbol_header(const char *name, std::size_t length) {
  const std::uint32_t hash = hash_of_name(name, length);
  std::size_t i = find_slot(name, length, hash);
  if (symbol_table.hashes[i] != 0) return symbol_table.headers[i];
  if (++num_headers * 4 > symbol_table.num_slots * 3) {
    grow_symbol_table();
    i = find_slot(name, length, hash);
  }
  symbol_table.hashes[i] = hash;
  return symbol_table.headers[i] = alloc_symbol_header(name, length, hash);
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
  if (num_headers != 0) std::memset(first_hashes, 0, sizeof first_hashes);
  symbol_table = {num_first_slots, first_hashes, first_headers};
  num_headers = 0;
  error_header = unnamed_header = nullptr;
}

void symbol_tbl_trans_unit_init() {
  decl_seq_counter = 1;
  symbols_with_no_scope = nullptr;
  file_scope_symbols_are_on_inactive_list = false;
}
