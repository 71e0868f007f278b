// Declarators: pointers, parentheses, names, and the application of the parts to the type.
//
//     int *(*f[3])(void)
//
// is read as the level "* ( ... ) (void)" with the inner level "* f [3]". Each level yields its
// parts in the order in which they apply to the type of the specifiers: its pointers from left to
// right, its suffixes from right to left, then the inner level's. Here: pointer, function, pointer,
// array, that is, an array of pointers to functions that return pointers to int. A part is checked
// when it is applied, on a type that is complete by then.
#include "parser/declarator.h"

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il.h"
#include "parser/attribute.h"
#include "parser/decl_spec.h"
#include "parser/declarator_internal.h"
#include "parser/disambig.h"
#include "semantics/layout.h"
#include "semantics/scope_stk.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"

namespace {

constexpr int max_declarator_depth = 2000;

a_declarator_part *free_declarator_parts;

void append_part(a_part_list &list, a_declarator_part *part) {
  part->next = nullptr;
  if (list.tail == nullptr)
    list.head = part;
  else
    list.tail->next = part;
  list.tail = part;
}

void prepend_part(a_part_list &list, a_declarator_part *part) {
  part->next = list.head;
  list.head = part;
  if (list.tail == nullptr) list.tail = part;
}

void append_list(a_part_list &list, a_part_list &behind) {
  if (behind.head == nullptr) return;
  if (list.tail == nullptr)
    list.head = behind.head;
  else
    list.tail->next = behind.head;
  list.tail = behind.tail;
}

bool at_gnu_attribute() {
  return curr_token == tok_attribute || curr_token == tok_declspec;
}

}  // namespace

a_declarator_part *alloc_declarator_part(a_declarator_part_kind kind) {
  a_declarator_part *part = free_declarator_parts;
  if (part != nullptr)
    free_declarator_parts = part->next;
  else
    part = static_cast<a_declarator_part *>(alloc_in_region(0, sizeof *part));
  *part = a_declarator_part{};
  part->kind = kind;
  part->position = pos_curr_token;
  return part;
}

unsigned collect_type_qualifiers(a_decl_parse_state *state) {
  a_decl_parse_state inner;
  clear_decl_parse_state(&inner);
  decl_specifiers(dsf_qualifiers_only, &inner, nullptr);
  if (inner.restrict_pos.seq != 0) state->restrict_pos = inner.restrict_pos;
  if (inner.qualifiers != 0) state->qualifier_pos = inner.qualifier_pos;
  return inner.qualifiers;
}

namespace {

// pointer:
//     * [attributes] [type-qualifier-list] [pointer]
void scan_pointers(a_declarator_scan &scan, a_part_list &parts) {
  while (curr_token == tok_star || (in_cplusplus() && curr_token == tok_ampersand)) {
    if (curr_token == tok_ampersand) {
      pos_st_error(ec_not_supported, &pos_curr_token, "reference declarator");
      scan.error = true;
    }
    a_declarator_part *part = alloc_declarator_part(dpk_pointer);
    get_token();
    for (;;) {
      if (at_gnu_attribute()) {
        *f_last_attribute_link(&part->attributes) = scan_attributes(al_pointer);
        continue;
      }
      unsigned qualifiers = collect_type_qualifiers(scan.state);
      if (qualifiers == 0) break;
      part->qualifiers |= qualifiers;
    }
    append_part(parts, part);
  }
}

// ( __attribute__((x)) *p )    is a declarator,    ( __attribute__((x)) int )    a parameter list.
bool next_behind_attribute_is_star(a_token_cache &cache) {
  while (at_gnu_attribute()) {
    cache_curr_token(&cache);
    get_token();
    if (curr_token != tok_lparen) break;
    if (!cache_token_stream_until_matching_token(&cache, 0)) break;
    get_token();
  }
  return curr_token == tok_star || curr_token == tok_lparen || !is_decl_start(dst_parameter);
}

// With "(" current: does a parenthesised declarator begin, not a parameter list?
//     int (*p)    int (x)    int ((x))        a declarator
//     int ()      int (int)  int (T)          a parameter list, where no name is needed
bool is_parenthesized_declarator(const a_declarator_scan &scan) {
  if ((scan.flags & dcl_abstract_ok) == 0) return true;
  a_token_cache cache;
  clear_token_cache(&cache, false);
  cache_curr_token(&cache);
  get_token();
  bool answer = true;
  if (curr_token == tok_rparen || curr_token == tok_ellipsis) {
    answer = false;
  } else if (at_gnu_attribute()) {
    answer = next_behind_attribute_is_star(cache);
  } else {
    answer = !is_decl_start(dst_parameter);
  }
  rescan_cached_tokens(&cache);
  return answer;
}

void scan_declared_name(a_declarator_scan &scan) {
  *scan.locator = locator_for_curr_id;
  scan.locator->symbol = nullptr;
  scan.state->declarator_pos = pos_curr_token;
  scan.name_seen = true;
  if (scan.positions != nullptr) scan.positions->identifier_position = pos_curr_token;
  get_token();
}

void scan_level(a_declarator_scan &scan, a_part_list &parts);

void scan_parenthesized_declarator(a_declarator_scan &scan, a_part_list &inner) {
  get_token();
  if (at_gnu_attribute()) {
    an_attribute *list = scan_attributes(al_parenthesized_declarator);
    *f_last_attribute_link(&scan.state->declarator_attributes) = list;
  }
  if (++scan.depth > max_declarator_depth) {
    pos_st_error(ec_not_supported, &pos_curr_token, "a declarator nested this deeply is");
    scan.error = true;
    flush_to_closing_paren();
  } else {
    add_stop_token(tok_rparen);
    scan_level(scan, inner);
    remove_stop_token(tok_rparen);
  }
  --scan.depth;
  required_token(tok_rparen, ec_exp_rparen);
}

void report_missing_name(a_declarator_scan &scan) {
  if ((scan.flags & dcl_abstract_ok) != 0) return;
  error_position = pos_curr_token;
  syntax_error(ec_exp_identifier);
  scan.error = true;
}

// Suffixes from right to left: each new one applies before those read so far.
void scan_suffixes(a_declarator_scan &scan, a_part_list &suffixes, bool for_name) {
  bool first = true;
  for (;;) {
    if (curr_token == tok_lbracket) {
      prepend_part(suffixes, scan_array_declarator(scan, for_name && first));
    } else if (curr_token == tok_lparen) {
      prepend_part(suffixes, scan_function_declarator(scan, for_name && first));
    } else {
      return;
    }
    first = false;
  }
}

// declarator:
//     [pointer] direct-declarator
// direct-declarator:
//     identifier | ( [attributes] declarator )
//     direct-declarator [ ... ] | direct-declarator ( ... )
// C11 6.7.6
void scan_level(a_declarator_scan &scan, a_part_list &parts) {
  a_part_list inner = {};
  a_part_list suffixes = {};
  scan_pointers(scan, parts);
  if (curr_token == tok_lparen && is_parenthesized_declarator(scan)) {
    scan_parenthesized_declarator(scan, inner);
  } else if (curr_token == tok_identifier && (scan.flags & dcl_name_ok) != 0) {
    scan_declared_name(scan);
  } else {
    report_missing_name(scan);
  }
  // The suffixes belong to the name itself where no inner part stands between.
  if (!scan.error) scan_suffixes(scan, suffixes, inner.head == nullptr);
  append_list(parts, suffixes);
  append_list(parts, inner);
}

// ---- Application -------------------------------------------------------------------------------

a_type *apply_pointer(a_declarator_scan &scan, a_declarator_part *part, a_type *type) {
  if (is_error_type(type)) return type;
  a_type *pointer = make_pointer_type_full(type);
  unsigned qualifiers = part->qualifiers;
  if ((qualifiers & tq_restrict) != 0 &&
      !restrict_qualifier_is_allowed(pointer, &scan.state->restrict_pos))
    qualifiers &= ~unsigned{tq_restrict};
  if (qualifiers != 0) pointer = f_make_qualified_type(pointer, qualifiers);
  if (part->attributes != nullptr) attach_type_attributes(&pointer, part->attributes, scan.state);
  return pointer;
}

// The element of an array must be a complete object; reports and gives false where it is none.
bool check_array_element(a_declarator_scan &scan, a_declarator_part *part, a_type *element) {
  a_type *bottom = skip_typerefs(element);
  const a_source_position *position = &part->position;
  if (bottom->kind == tk_routine) {
    pos_error(ec_array_of_function, position);
    return false;
  }
  if (bottom->kind == tk_void) {
    pos_error(ec_array_of_void, position);
    return false;
  }
  if (is_incomplete_array_type(bottom)) {
    pos_error(ec_bad_array_element_type, position);
    return false;
  }
  // An array that has a bound was judged when it was made.
  if (bottom->kind != tk_array && is_incomplete_type(bottom)) {
    // struct s a[3];   before s is complete
    bool tolerated = (scan.flags & dcl_template_type_ok) != 0;
    if (!tolerated) pos_ty_error(ec_incomplete_type_not_allowed, position, element);
    return tolerated;
  }
  if (is_class_struct_union_type(bottom) && bottom->class_flags.has_flexible_array_member) {
    if (!gnu_mode) {
      pos_error(ec_flexible_array_member_not_allowed, position);
      return false;
    }
    pos_warning(ec_nonstandard_array_with_flexible_array_element, position);
  }
  return true;
}

a_type *apply_array(a_declarator_scan &scan, a_declarator_part *part, a_type *type) {
  if (is_error_type(type) || is_error_type(part->type)) return error_type();
  if (!check_array_element(scan, part, type)) return error_type();
  a_type *array = part->type;
  array->element_type = type;
  set_type_size(array);
  return array;
}

a_type *apply_function(a_declarator_scan &scan, a_declarator_part *part, a_type *type) {
  if (is_error_type(type)) {
    part->type->return_type = type;
    return part->type;
  }
  if (!check_return_type(type, scan.state, &part->position)) type = error_type();
  if (in_pcc_mode() && is_float_floating_type(type)) type = float_type(fk_double);
  part->type->return_type = type;
  if (part->attributes != nullptr)
    attach_type_attributes(&part->type, part->attributes, scan.state);
  return part->type;
}

a_type *apply_parts(a_declarator_scan &scan, a_part_list &parts, a_type *type) {
  while (parts.head != nullptr) {
    a_declarator_part *part = parts.head;
    switch (part->kind) {
      case dpk_pointer:
        type = apply_pointer(scan, part, type);
        break;
      case dpk_array:
        type = apply_array(scan, part, type);
        break;
      case dpk_function:
        type = apply_function(scan, part, type);
        break;
    }
    parts.head = part->next;
    part->next = free_declarator_parts;
    free_declarator_parts = part;
  }
  parts.tail = nullptr;
  return type;
}

}  // namespace

bool check_return_type(a_type *type, a_decl_parse_state *state, const a_source_position *position) {
  if (is_function_type(type)) {
    pos_error(ec_function_returning_function, position);
    return false;
  }
  if (is_array_type(type)) {
    pos_error(ec_function_returning_array, position);
    return false;
  }
  if (get_type_qualifiers(type) != 0) report_bad_return_type_qualifier(type, state, position);
  return true;
}

// const void f(void);   C has always let qualifiers of other return types pass.
void report_bad_return_type_qualifier(a_type *type, a_decl_parse_state *,
                                      const a_source_position *position) {
  if (!is_void_type(type) || gcc_mode) return;
  pos_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning,
                 ec_qualified_void_return_type, position);
}

void declarator(std::uint64_t flags, a_decl_parse_state *state, a_type *, a_symbol_locator *locator,
                a_func_info_block *func_info, a_decl_pos_block *positions) {
  a_declarator_scan scan = {};
  scan.flags = flags;
  scan.state = state;
  scan.locator = locator;
  scan.func_info = func_info;
  scan.positions = positions;
  *locator = cleared_locator;
  locator->position = pos_curr_token;
  state->declarator_pos = pos_curr_token;
  if (positions != nullptr) positions->declarator_range.start = pos_curr_token;
  a_part_list parts = {};
  scan_level(scan, parts);
  a_type *type = apply_parts(scan, parts, state->type);
  if (scan.error) {
    state->has_error = true;
    type = error_type();
  }
  if (positions != nullptr) positions->declarator_range.end = end_pos_curr_token;
  state->declared_type = type;
}

void declarator_trans_unit_init() {
  free_declarator_parts = nullptr;
  reset_prototype_depth();
}
