// Tags: the name of a struct, union or enum specifier, and the specifier around a class body.
//
//   struct s { ... };     defines s in this scope, unless a forward "struct s;" of it did so
//   struct s;             declares s in this scope, hiding an outer s
//   struct s *p;          finds s in any enclosing scope, or declares it
//
// In C a struct body is no scope for tags: they are declared in the scope around it. The tags of a
// prototype belong to the prototype, with a warning in C; without func_prototype_tags_enabled only
// those that are defined there.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/class_decl.h"
#include "parser/decl_spec_internal.h"
#include "semantics/lookup.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

const char *tag_keyword(std::uint8_t symbol_kind, bool is_class_keyword) {
  switch (symbol_kind) {
    case syk_enum:
      return "enum";
    case syk_union:
      return "union";
    default:
      return is_class_keyword ? "class" : "struct";
  }
}

}  // namespace

int depth_for_new_tag(const a_tag_scan &tag) {
  int depth = decl_scope_level;
  bool skip_prototypes = !func_prototype_tags_enabled && !tag.is_definition;
  while (depth > 0) {
    a_scope_kind kind = scope_stack[depth].kind;
    bool skipped = (kind == sck_class && (!in_cplusplus() || !tag.is_definition)) ||
                   (kind == sck_prototype && skip_prototypes);
    if (!skipped) break;
    --depth;
  }
  return depth;
}

a_symbol *find_tag(a_tag_scan &tag) {
  if (!tag.named) return nullptr;
  a_symbol *symbol = nullptr;
  if (tag.is_definition || tag.is_declaration) {
    // The scope of the declaration only; inside a struct body of C that is the one around it.
    symbol = scope_depth_id_lookup(tag.locator, depth_for_new_tag(tag), lookup_tag_only);
  } else {
    symbol = normal_id_lookup(tag.locator, lookup_tag_only);
  }
  return symbol;
}

a_symbol *enter_tag(a_tag_scan &tag, a_type *type) {
  int depth = depth_for_new_tag(tag);
  a_symbol *symbol = nullptr;
  if (tag.named) {
    symbol = enter_symbol(static_cast<a_symbol_kind>(tag.symbol_kind), tag.locator, depth, 0);
    if (!in_cplusplus() && scope_stack[depth].kind == sck_prototype)
      pos_warning(ec_decl_in_prototype_scope, &tag.locator->position);
  } else {
    symbol = make_unnamed_tag_symbol(static_cast<a_symbol_kind>(tag.symbol_kind), &tag.keyword_pos);
  }
  set_type_of_symbol(symbol, type);
  set_source_corresp_with_scope_depth(type, symbol, depth);
  add_to_types_list(type, depth);
  return symbol;
}

void attach_tag_attributes(an_attribute *attributes, a_type *type, a_decl_parse_state *, bool) {
  if (attributes != nullptr && !is_error_type(type))
    attach_attributes(attributes, reinterpret_cast<char *>(type), iek_type);
}

namespace {

struct a_class_head {
  a_tag_scan tag;
  a_type_kind type_kind;
  bool is_class_keyword;
  an_attribute *attributes;
};

a_type *make_class_type(a_class_head &head) {
  a_type *type = alloc_type(head.type_kind);
  enter_tag(head.tag, type);
  return type;
}

// struct [attributes] [name]   with the token behind it current.
void scan_class_head(a_class_head &head, a_symbol_locator *locator, bool first_specifier) {
  head.is_class_keyword = curr_token == tok_class;
  head.type_kind = curr_token == tok_union   ? tk_union
                   : curr_token == tok_class ? tk_class
                                             : tk_struct;
  head.tag.symbol_kind = curr_token == tok_union ? syk_union : syk_class;
  head.tag.keyword_pos = pos_curr_token;
  head.tag.locator = locator;
  *locator = cleared_locator;
  get_token();
  if (curr_token == tok_attribute || curr_token == tok_declspec || curr_token == tok_alignas ||
      curr_token == tok_lbracket)
    head.attributes = scan_attributes(al_tag_keyword);
  if (curr_token == tok_identifier) {
    *locator = locator_for_curr_id;
    locator->symbol = nullptr;
    head.tag.named = true;
    get_token();
  }
  head.tag.is_definition = curr_token == tok_lbrace;
  head.tag.is_declaration = curr_token == tok_semicolon && first_specifier;
}

// The type of a tag that was found; null where it cannot serve and a message was given.
a_type *type_of_found_tag(a_class_head &head, a_symbol *symbol) {
  if (symbol->kind != head.tag.symbol_kind) {
    pos_stsy_error(ec_tag_kind_incompatible_with_declaration, &head.tag.locator->position,
                   tag_keyword(head.tag.symbol_kind, head.is_class_keyword), symbol);
    return nullptr;
  }
  a_type *type = type_of_symbol(symbol);
  if (!head.tag.is_definition) return type;
  if (!type->is_incomplete || type->class_flags.is_being_defined) {
    pos_sy_error(ec_already_defined, &head.tag.locator->position, symbol);
    return nullptr;
  }
  return type;
}

// A definition that cannot have the name it asks for is read as a nameless one.
a_type *type_for_class_head(a_class_head &head, a_decl_parse_state *state) {
  a_symbol *symbol = find_tag(head.tag);
  if (symbol == nullptr) {
    if (!head.tag.is_definition) state->tag_declared = true;
    return make_class_type(head);
  }
  a_type *type = type_of_found_tag(head, symbol);
  if (type != nullptr) {
    record_symbol_reference(ref_other, symbol, &head.tag.locator->position, true);
    return type;
  }
  state->has_error = true;
  if (!head.tag.is_definition) return error_type();
  head.tag.named = false;
  return make_class_type(head);
}

}  // namespace

// struct-or-union-specifier:
//     struct-or-union [attributes] [identifier] { member-declarations } [attributes]
//     struct-or-union [attributes] identifier
// C11 6.7.2.1, 6.7.2.3
a_type *class_specifier(a_decl_parse_state *state, std::uint32_t flags) {
  a_class_head head = {};
  a_symbol_locator locator;
  bool first_specifier = state->storage_class == dsc_none && state->qualifier_pos.seq == 0;
  scan_class_head(head, &locator, first_specifier);
  state->tag_declared = true;
  if (!head.tag.named && !head.tag.is_definition) {
    error_position = pos_curr_token;
    syntax_error(ec_exp_identifier);
    state->has_error = true;
    return error_type();
  }
  a_type *type = type_for_class_head(head, state);
  attach_tag_attributes(head.attributes, type, state, head.tag.is_definition);
  if (!head.tag.is_definition) return type;
  state->tag_defined = true;
  scan_class_definition(type, state, flags);
  return type;
}

// typedef struct { ... } name;   the nameless type takes the name for messages and linkage.
void set_name_linkage_for_type(a_type *type) {
  type->is_typedef_of_unnamed = true;
}
