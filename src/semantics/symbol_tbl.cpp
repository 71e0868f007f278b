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
a_symbol_header *symbol_table[num_symbol_buckets];
const a_symbol_locator cleared_locator = {};
std::int32_t next_scope_number;
std::uint32_t decl_seq_counter = 1;
a_symbol *symbols_with_no_scope;
bool file_scope_symbols_are_on_inactive_list;

namespace {

constexpr std::uint32_t hash_multiplier = 73;
constexpr std::size_t shortest_sampled_name = 10;

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

// The bytes that take part: all of a short name; of a long one three at each end and three around
// the middle, where names with common prefixes and suffixes differ.
std::uint32_t hash_of_name(const char *name, std::size_t length) {
  const auto *text = reinterpret_cast<const unsigned char *>(name);
  std::uint32_t hash = 0;
  if (length < shortest_sampled_name) {
    for (std::size_t i = 0; i < length; ++i)
      hash = hash * hash_multiplier + text[i];
    return hash;
  }
  const std::size_t middle = length / 2;
  for (std::size_t i : {std::size_t{0}, std::size_t{1}, std::size_t{2}, middle - 1, middle,
                        middle + 1, length - 3, length - 2, length - 1}) {
    hash = hash * hash_multiplier + text[i];
  }
  return hash;
}

a_symbol_header *find_symbol_header(const char *name, std::size_t length) {
  const std::uint32_t hash = hash_of_name(name, length);
  a_symbol_header **bucket = &symbol_table[hash % num_symbol_buckets];
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
  std::memset(symbol_table, 0, sizeof symbol_table);
  error_header = unnamed_header = nullptr;
}

void symbol_tbl_trans_unit_init() {
  decl_seq_counter = 1;
  symbols_with_no_scope = nullptr;
  file_scope_symbols_are_on_inactive_list = false;
}
