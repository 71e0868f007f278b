// Declaration or expression. In C the first token settles every such question, since a declaration
// begins with a keyword or with a name that is a typedef name at this place; only the tokens of
// __extension__ have to be looked through. The dry run over ambiguous C++ declarations is not
// built: C++ asks for it in the one case of a type name that is followed by a parenthesis.
#include "parser/disambig.h"

#include "driver/switches.h"
#include "parser/decl_spec.h"
#include "semantics/lookup.h"
#include "semantics/symbol_tbl.h"
#include "source/lexical.h"

namespace {

enum a_specifier_class : std::uint8_t {
  spc_none,
  spc_type,         // begins a type specifier or is a qualifier: starts a type-id too
  spc_declaration,  // storage classes and function specifiers
  spc_attribute,    // attributes, alignas
};

// What a keyword token begins. Names are not here: they need a lookup.
constexpr a_specifier_class specifier_class(a_token_kind token) {
  switch (token) {
    case tok_char:
    case tok_const:
    case tok_double:
    case tok_enum:
    case tok_float:
    case tok_int:
    case tok_long:
    case tok_short:
    case tok_signed:
    case tok_struct:
    case tok_union:
    case tok_unsigned:
    case tok_void:
    case tok_volatile:
    case tok_restrict:
    case tok_restrict_gnu:
    case tok_c99_bool:
    case tok_complex:
    case tok_imaginary:
    case tok_char16_t:
    case tok_char32_t:
    case tok_class:
    case tok_wchar_t:
    case tok_bool:
    case tok_typename:
    case tok_decltype:
    case tok_decltype_construct:
    case tok_typeof:
    case tok_auto_type:
    case tok_underlying_type:
    case tok_bases:
    case tok_direct_bases:
    case tok_atomic:
    case tok_nullable:
    case tok_nonnull:
    case tok_null_unspecified:
    case tok_zvn_vector_type:
    case tok_zvn_size_type:
    case tok_zvn_ptrdiff_type:
    case tok_zvn_bool_type:
      return spc_type;
    case tok_auto:
    case tok_extern:
    case tok_register:
    case tok_static:
    case tok_typedef:
    case tok_inline:
    case tok_noreturn:
    case tok_thread:
    case tok_thread_local:
    case tok_c11_thread_local:
    case tok_static_assert:
    case tok_friend:
    case tok_virtual:
    case tok_explicit:
    case tok_mutable:
    case tok_constexpr:
    case tok_template:
    case tok_namespace:
    case tok_using:
    case tok_export:
    case tok_shared:
    case tok_sharedpp:
    case tok_trap:
    case tok_interrupt:
    case tok_interrupt_gnu:
    case tok_reentrant:
    case tok_cregister:
    case tok_global:
    case tok_data16:
    case tok_data20:
    case tok_memory_of:
      return spc_declaration;
    case tok_attribute:
    case tok_declspec:
    case tok_alignas:
      return spc_attribute;
    default:
      return spc_none;
  }
}

}  // namespace

a_symbol *curr_type_symbol() {
  if (curr_token != tok_identifier) return nullptr;
  a_symbol *symbol = normal_id_lookup(&locator_for_curr_id, 0);
  return symbol != nullptr && symbol->kind == syk_type ? symbol : nullptr;
}

bool is_type_start(unsigned flags) {
  if (curr_token == tok_identifier) return curr_type_symbol() != nullptr;
  switch (specifier_class(curr_token)) {
    case spc_type:
      return true;
    case spc_attribute:
      return (flags & dst_type_id_only) != 0 && curr_token == tok_attribute;
    default:
      return false;
  }
}

// x y;   where x is not declared: a declaration whose type is misspelt. In  x f(1);  a word too
// many stands in front of a call.
static bool is_misspelt_type() {
  a_symbol_locator locator = locator_for_curr_id;
  if (normal_id_lookup(&locator, 0) != nullptr) return false;
  if (is_unknown_specifier()) return true;
  a_token_kind second = tok_error;
  return next_two_tokens(tok_identifier, &second) == tok_identifier && second != tok_lparen;
}

bool is_decl_start(unsigned flags) {
  if (curr_token == tok_identifier)
    return curr_type_symbol() != nullptr ||
           ((flags & dst_statement) != 0 && !in_cplusplus() && is_misspelt_type());
  if (curr_token == tok_extension) {
    // __extension__ int x;     __extension__ (x + 1);
    a_token_cache cache;
    clear_token_cache(&cache, false);
    cache_curr_token(&cache);
    get_token();
    bool answer = is_decl_start(flags);
    rescan_cached_tokens(&cache);
    return answer;
  }
  switch (specifier_class(curr_token)) {
    case spc_type:
      return true;
    case spc_declaration:
      return (flags & dst_type_id_only) == 0;
    case spc_attribute:
      return true;
    case spc_none:
      break;
  }
  if (curr_token == tok_lbracket && std_attributes_enabled) return next_token() == tok_lbracket;
  return false;
}

bool is_decl_not_expr(unsigned mode) {
  unsigned flags = 0;
  if ((mode & dam_statement) != 0) flags |= dst_statement;
  if ((mode & dam_type_id) != 0) flags |= dst_type_id_only;
  if (!is_decl_start(flags)) return curr_token == tok_overload;
  // T(x)   with T a type: taken as a declaration; an expression of that form is not understood yet.
  return true;
}

a_symbol *prescan_and_find_declarator(bool *is_function) {
  *is_function = false;
  return nullptr;
}

// for ( declaration : range )   is read as a plain for, which reports the ":".
bool is_start_of_range_based_for() {
  return false;
}

void prescan_decl_modifiers() {
  while (curr_token == tok_attribute || curr_token == tok_declspec) {
    get_token();
    if (curr_token == tok_lparen) {
      flush_until_matching_token();
      get_token();
    }
  }
}

void disambig_one_time_init() {}
