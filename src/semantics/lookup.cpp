// Lookup by the chain of visible symbols of a header, in one scope, and in struct and union types.
//
// The chain is ordered by nesting, so the first symbol of the wanted name space and kind is the
// answer and no scope is walked. A search of one scope tests the scope number on the same chain;
// classes and namespaces are searched through their own lists.
#include "semantics/lookup.h"

#include <initializer_list>

#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il_entity.h"
#include "il/il_kinds.h"
#include "il/il_type.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"

namespace {

a_name_space wanted_name_space(unsigned options) {
  return !in_cplusplus() && (options & lookup_tag_only) != 0 ? ns_tags : ns_ordinary;
}

bool is_candidate(a_symbol *symbol, a_name_space space, unsigned options) {
  a_name_space own = name_space_for_symbol_kind[symbol->kind];
  if (own != space && !(own == ns_block_externs && (options & lookup_block_externs) != 0))
    return false;
  if (symbol->is_hidden && (options & lookup_in_declarator) == 0) return false;
  return sym_matches_lookup_options(symbol, options);
}

// In C++ a tag and another entity may have one name in one scope: the tag is found only where the
// other cannot stand.
a_symbol *prefer_non_tag(a_symbol *found, a_name_space space, unsigned options) {
  if (!in_cplusplus() || !is_tag_symbol_kind(found->kind) || (options & lookup_tag_only) != 0)
    return found;
  for (a_symbol *other = found->next_active; other != nullptr; other = other->next_active) {
    if (other->scope_number != found->scope_number || is_tag_symbol_kind(other->kind)) continue;
    if (is_candidate(other, space, options)) return other;
  }
  return found;
}

a_symbol *answer(a_symbol_locator *locator, a_symbol *symbol) {
  locator->symbol = symbol;
  return symbol;
}

// Takes care of what every lookup begins with; true: *result is the answer.
bool is_settled(a_symbol_locator *locator, a_symbol **result) {
  *result = nullptr;
  if (locator->specific_symbol) {
    *result = locator->symbol;
    return true;
  }
  locator->symbol = nullptr;
  locator->nested_class_anachronism = false;
  return locator->error_name || locator->header == nullptr;
}

a_symbol *first_candidate_in_list(a_symbol *symbol, a_name_space space, unsigned options) {
  a_symbol *tag = nullptr;
  for (; symbol != nullptr; symbol = symbol->next_with_same_name_in_scope) {
    if (!is_candidate(symbol, space, options)) continue;
    if (!is_tag_symbol_kind(symbol->kind) || (options & lookup_tag_only) != 0) return symbol;
    if (tag == nullptr) tag = symbol;
  }
  return tag;
}

}  // namespace

bool sym_matches_lookup_options(a_symbol *symbol, unsigned options) {
  constexpr unsigned restrictions = lookup_qualifier_only | lookup_tag_only |
                                    lookup_namespace_only | lookup_class_like_only |
                                    lookup_templates_only;
  if ((options & restrictions) == 0) return true;
  symbol = fundamental_symbol_of(symbol);
  const a_symbol_kind kind = symbol->kind;
  const bool is_class = kind == syk_class || kind == syk_union;
  const bool is_template =
      kind == syk_class_template || kind == syk_function_template || kind == syk_variable_template;
  if ((options & lookup_templates_only) != 0) return is_template;
  if ((options & lookup_namespace_only) != 0) return kind == syk_namespace;
  if ((options & lookup_tag_only) != 0) {
    if (is_tag_symbol_kind(kind)) return true;
    return in_cplusplus() && kind == syk_type &&
           (symbol->is_injected_class_name || elab_type_lookup_finds_typedefs ||
            (gpp_mode && gnu_version >= 40500 && (options & lookup_defining) == 0));
  }
  if ((options & lookup_class_like_only) != 0)
    return is_class || kind == syk_type || kind == syk_class_template;
  return is_class || kind == syk_enum || kind == syk_namespace || kind == syk_type ||
         kind == syk_class_template;
}

a_symbol *normal_id_lookup(a_symbol_locator *locator, unsigned options) {
  if (locator->symbol != nullptr) return locator->symbol;
  if (locator->error_name || locator->is_qualified || locator->header == nullptr) return nullptr;
  const a_name_space space = wanted_name_space(options);
  for (a_symbol *symbol = locator->header->active_symbols; symbol != nullptr;
       symbol = symbol->next_active) {
    if (is_candidate(symbol, space, options))
      return answer(locator, prefer_non_tag(symbol, space, options));
  }
  return nullptr;
}

a_symbol *scope_depth_id_lookup(a_symbol_locator *locator, int depth, unsigned options) {
  a_symbol *settled;
  if (is_settled(locator, &settled)) return settled;
  const a_name_space space = wanted_name_space(options);
  const std::int32_t number = scope_number_at(depth);
  for (a_symbol *symbol = locator->header->active_symbols; symbol != nullptr;
       symbol = symbol->next_active) {
    if (symbol->scope_number == number && is_candidate(symbol, space, options))
      return answer(locator, prefer_non_tag(symbol, space, options));
  }
  return nullptr;
}

a_symbol *curr_scope_id_lookup(a_symbol_locator *locator, unsigned options) {
  return scope_depth_id_lookup(locator, decl_scope_level, options);
}

a_symbol *file_scope_id_lookup(a_scope *scope, a_symbol_locator *locator, unsigned options) {
  a_symbol *settled;
  if (is_settled(locator, &settled)) return settled;
  const a_name_space space = wanted_name_space(options);
  for (a_symbol *symbol = locator->header->active_symbols; symbol != nullptr;
       symbol = symbol->next_active) {
    if (symbol->scope_number == scope->scope_number && is_candidate(symbol, space, options))
      return answer(locator, prefer_non_tag(symbol, space, options));
  }
  return nullptr;
}

a_symbol *curr_tag_symbol(a_symbol_locator *locator, unsigned options) {
  return curr_scope_id_lookup(locator, options | lookup_tag_only);
}

// ---- Members -----------------------------------------------------------------------------------

// Anonymous structs and unions put their fields into the class around them, so one list answers.
a_symbol *field_lookup(a_symbol_locator *locator, a_type *class_type) {
  a_symbol *class_symbol = class_type->symbol;
  if (class_symbol == nullptr || locator->header == nullptr) return answer(locator, nullptr);
  const a_scope_pointers_block *block = class_symbol->extra.class_supplement->pointers_block;
  for (a_symbol *symbol = symbols_in_lookup_table(block, locator->header); symbol != nullptr;
       symbol = symbol->next_with_same_name_in_scope) {
    if (symbol->kind == syk_field) return answer(locator, symbol);
  }
  return answer(locator, nullptr);
}

// The class's own members; what a base class declares is not seen yet, and the caller's message
// says that the class has no such member.
a_symbol *class_qualified_id_lookup(a_symbol_locator *locator, a_type *class_type,
                                    unsigned options) {
  a_symbol *settled;
  if (is_settled(locator, &settled)) return settled;
  if (!in_cplusplus()) return field_lookup(locator, class_type);
  a_symbol *class_symbol = class_type->symbol;
  if (class_symbol == nullptr || locator->is_literal_operator_name) return nullptr;
  if (class_type->class_supplement->base_classes != nullptr) {
    pos_st_error(ec_not_supported, &locator->position, "lookup in base classes");
    make_specific_symbol_error_locator(locator);
    return nullptr;
  }
  const a_scope_pointers_block *block = class_symbol->extra.class_supplement->pointers_block;
  a_symbol *first = symbols_in_lookup_table(block, locator->header);
  for (a_name_space space : {ns_members, ns_ordinary}) {
    a_symbol *symbol = first_candidate_in_list(first, space, options);
    if (symbol != nullptr) return answer(locator, symbol);
  }
  return nullptr;
}

a_symbol *namespace_qualified_id_lookup(a_symbol_locator *locator, a_namespace *namespace_ptr,
                                        unsigned options) {
  a_symbol *settled;
  if (is_settled(locator, &settled)) return settled;
  while (namespace_ptr->is_alias)
    namespace_ptr = namespace_ptr->alias_target;
  const a_scope_pointers_block *block = get_pointers_block_for_scope(namespace_ptr->scope);
  if (block == nullptr) return nullptr;
  a_symbol *first = symbols_in_lookup_table(block, locator->header);
  return answer(locator, first_candidate_in_list(first, ns_ordinary, options));
}

a_symbol *enum_qualified_id_lookup(a_symbol_locator *locator, a_type *) {
  pos_st_error(ec_not_supported, &locator->position, "enum name as a qualifier");
  make_specific_symbol_error_locator(locator);
  return nullptr;
}

bool symbols_are_lookup_equivalent(const a_symbol *a, const a_symbol *b, unsigned options) {
  a = fundamental_symbol_of(const_cast<a_symbol *>(a));
  b = fundamental_symbol_of(const_cast<a_symbol *>(b));
  if (a == b) return true;
  if (a->kind == syk_type && b->kind == syk_type &&
      (equiv_typedefs_are_lookup_equivalent || (options & lookup_typedefs_distinct) == 0))
    return a->variant.type == b->variant.type;
  return false;
}

void lookup_one_time_init() {}
void lookup_trans_unit_init() {}
