// Brace lists of arrays, structs and unions: elided braces, designators, ranges, excess values.
//
//     struct { int a[2]; int b; } s[] = { {{1, 2}, 3}, 4, 5, 6, [3].b = 7, 8 };
//
// One routine walks one array or class. With braces of its own it reads to the "}"; with elided
// braces it takes as many elements of the list around it as it has members, and leaves the comma
// behind the last one. A designator ends every elided walk, since it speaks to the list in whose
// braces it stands; its own path ".a[2].b" is followed by elided walks that begin with their part
// of the path, so that the values behind it go on where the path led.
//
// The constant holds the elements in the order written. A ck_designator stands in front of an
// element that is not the next one; members without a value are not stored; equal values in a row
// of a range are one ck_repeat. The work is linear in the text, whatever the bounds are.
#include "DIAG/error.h"
#include "driver/switches.h"
#include "il/il.h"
#include "il/il_entity.h"
#include "il/il_type.h"
#include "parser/decl_inits_internal.h"
#include "parser/expr.h"
#include "semantics/const_ints.h"
#include "semantics/folding.h"
#include "semantics/lookup.h"
#include "semantics/symbol_ref.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "source/lexical.h"

void add_constant_to_aggregate(a_constant *element, a_constant *aggregate) {
  element->next_in_list = nullptr;
  if (aggregate->last_element == nullptr)
    aggregate->first_element = element;
  else
    aggregate->last_element->next_in_list = element;
  aggregate->last_element = element;
}

bool at_designator() {
  if (curr_token == tok_period || curr_token == tok_lbracket) return true;
  return curr_token == tok_identifier && extended_designators_allowed && next_token() == tok_colon;
}

namespace {

// The walk over one array or class.
struct an_aggregate_walk {
  an_init_walk *walk;
  a_brace_form form;
  a_constant *aggregate;
  bool first;  // no element was read yet
  bool excess_reported;
};

bool check_designators_allowed() {
  if (designators_allowed || gnu_mode || in_cplusplus()) return true;
  pos_st_diagnostic(strict_ansi_mode ? strict_ansi_error_severity : es_warning, ec_not_supported,
                    &pos_curr_token, "a designator in this dialect is");
  return true;
}

// Behind an element: is there another one for this walk? Goes behind the comma if so.
bool more_elements(an_aggregate_walk &list) {
  if (curr_token != tok_comma) return false;
  if (list.form == bform_braces) {
    get_token();
    return curr_token != tok_rbrace;
  }
  // An elided list ends in front of "}" and of a designator, and leaves the comma.
  a_token_kind next = next_token();
  if (next == tok_rbrace || next == tok_period || next == tok_lbracket) return false;
  if (next == tok_identifier && extended_designators_allowed) {
    a_token_kind second = tok_error;
    next_two_tokens(tok_identifier, &second);
    if (second == tok_colon) return false;
  }
  get_token();
  return true;
}

void report_excess(an_aggregate_walk &list) {
  if (list.excess_reported || list.walk->in_recovery) return;
  list.excess_reported = true;
  if (gcc_mode) {
    pos_warning(ec_excess_initializers_ignored, &pos_curr_token);
    return;
  }
  pos_error(ec_too_many_initializer_values, &pos_curr_token);
  list.walk->error = true;
}

// Elements up to the next designator or the end of the list, in silence.
void skip_elements() {
  do {
    a_stop_token_count stops[tok_last] = {};
    stops[tok_comma] = stops[tok_rbrace] = stops[tok_semicolon] = 1;
    flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
  } while (curr_token == tok_comma && (get_token(), curr_token != tok_rbrace) && !at_designator());
}

void append_index_designator(an_aggregate_walk &list, std::uint64_t index) {
  a_constant *designator = alloc_constant(ck_designator);
  a_constant *value = alloc_constant(ck_integer);
  set_unsigned_integer_constant(value, index, ik_unsigned_long);
  designator->designator_is_field = false;
  designator->designator_index = value;
  add_constant_to_aggregate(designator, list.aggregate);
  list.aggregate->has_designators = true;
}

void append_field_designator(an_aggregate_walk &list, a_field *field) {
  a_constant *designator = alloc_constant(ck_designator);
  designator->designator_is_field = true;
  designator->designator_field = field;
  add_constant_to_aggregate(designator, list.aggregate);
  list.aggregate->has_designators = true;
}

void append_value(an_aggregate_walk &list, a_constant *value) {
  if (value->kind == ck_dynamic_init ||
      (value->kind == ck_aggregate && value->has_dynamic_init_component))
    list.aggregate->has_dynamic_init_component = true;
  add_constant_to_aggregate(value, list.aggregate);
}

// Behind the designators of a value: "=", or nothing in the old forms "[1] x" and "a: x".
// A further designator belongs to the subobject.
a_brace_form scan_designator_end(bool may_lack_assign) {
  if (curr_token == tok_period || curr_token == tok_lbracket) return bform_designated;
  if (curr_token == tok_assign) {
    get_token();
  } else if (!may_lack_assign) {
    pos_syntax_error(ec_exp_assign, &pos_curr_token);
  }
  return bform_elided;
}

// The value of a member of type.
a_constant *scan_member_value(an_aggregate_walk &list, a_type *type, a_brace_form form) {
  if (form == bform_designated) {
    a_type *bottom = skip_typerefs(type);
    if (bottom->kind == tk_array || is_class_kind(bottom->kind))
      return scan_aggregate(*list.walk, &type, bform_designated);
    if (!is_error_type(type))
      pos_ty_error(ec_designator_requires_aggregate_type, &pos_curr_token, type);
    skip_elements();
    return make_error_value(*list.walk);
  }
  return scan_object_initializer(*list.walk, &type);
}

// Values behind the last member are read and dropped.
void skip_excess_elements(an_aggregate_walk &list) {
  report_excess(list);
  skip_elements();
}

// ---- Arrays ------------------------------------------------------------------------------------

struct an_array_walk {
  an_aggregate_walk list;
  a_type *element;
  bool has_limit;
  std::uint64_t limit;  // number of elements, with has_limit
  std::uint64_t index;  // of the next element
  std::uint64_t count;  // one behind the highest index with a value
};

// [ constant ]    [ constant ... constant ]
// Sets the index and the number of elements that the value is for; false after a message.
bool scan_subscript_designator(an_array_walk &array, std::uint64_t *repeat) {
  *repeat = 1;
  a_constant low, high;
  clear_constant(&low, ck_error);
  clear_constant(&high, ck_error);
  get_token();
  a_source_position position = pos_curr_token;
  add_stop_token(tok_rbracket);
  scan_integral_constant_expression(&low);
  bool is_range = curr_token == tok_ellipsis;
  if (is_range) {
    get_token();
    scan_integral_constant_expression(&high);
  }
  remove_stop_token(tok_rbracket);
  required_token(tok_rbracket, ec_exp_rbracket);
  if (low.kind != ck_integer || (is_range && high.kind != ck_integer)) return false;
  const a_constant *last = is_range ? &high : &low;
  bool in_range = cmplit_integer_constant(&low, 0) >= 0 && cmp_integer_constants(&low, last) <= 0 &&
                  (!array.has_limit || cmpulit_integer_constant(last, array.limit) < 0);
  if (!in_range) {
    pos_error(is_range && cmp_integer_constants(&low, last) > 0 ? ec_no_negative_designator_range
                                                                : ec_subscript_out_of_range,
              &position);
    return false;
  }
  array.index = low.integer_value;
  *repeat = last->integer_value - low.integer_value + 1;
  return true;
}

// A value for `repeat` elements from the current index on.
void append_array_value(an_array_walk &array, a_constant *value, std::uint64_t repeat,
                        const a_source_position *position) {
  if (repeat > 1) {
    if (value->kind == ck_dynamic_init ||
        (value->kind == ck_aggregate && value->has_dynamic_init_component)) {
      pos_error(ec_no_range_designator_with_dynamic_init, position);
      value = make_error_value(*array.list.walk);
    }
    a_constant *run = alloc_constant(ck_repeat);
    run->type = array.element;
    run->repeat_element = value;
    run->repeat_count = repeat;
    value = run;
  }
  append_value(array.list, value);
  array.index += repeat;
  if (array.index > array.count) array.count = array.index;
}

void scan_array_element(an_array_walk &array) {
  std::uint64_t repeat = 1;
  a_brace_form form = bform_elided;
  a_source_position position = pos_curr_token;
  if (!array.list.walk->has_pending && at_designator()) {
    if (curr_token != tok_lbracket) {
      pos_error(ec_invalid_designator_kind, &pos_curr_token);
      array.list.walk->error = true;
      skip_elements();
      return;
    }
    check_designators_allowed();
    std::uint64_t before = array.index;
    if (!scan_subscript_designator(array, &repeat)) {
      array.list.walk->error = true;
      array.index = before;
    }
    append_index_designator(array.list, array.index);
    form = scan_designator_end(extended_designators_allowed);
  } else if (array.has_limit && array.index >= array.limit) {
    skip_excess_elements(array.list);
    return;
  }
  a_constant *value = scan_member_value(array.list, array.element, form);
  append_array_value(array, value, repeat, &position);
}

bool array_is_full(const an_array_walk &array) {
  return array.has_limit && array.index >= array.limit && array.list.form != bform_braces;
}

void complete_open_array(an_array_walk &array, a_type **type) {
  if (array.has_limit) return;
  a_type *complete = make_array_type(array.element, array.count);
  if (array.count == 0) complete->zero_bound = true;
  *type = complete;
}

a_constant *scan_array(an_init_walk &walk, a_type **type, a_brace_form form,
                       a_constant *aggregate) {
  a_type *bottom = skip_typerefs(*type);
  an_array_walk array = {};
  array.list = {&walk, form, aggregate, true, false};
  array.element = array_element_type(*type);
  array.has_limit = !is_incomplete_array_type(bottom);
  array.limit = bottom->number_of_elements;
  if (array.has_limit && array.limit == 0 && form != bform_braces) return aggregate;
  for (;;) {
    if (form == bform_braces && curr_token == tok_rbrace && !walk.has_pending) break;
    std::uint32_t before = curr_token_sequence_number;
    bool had_pending = walk.has_pending;
    scan_array_element(array);
    if (array_is_full(array)) break;
    if (!more_elements(array.list)) break;
    if (curr_token_sequence_number == before && !had_pending) break;
  }
  complete_open_array(array, type);
  aggregate->type = *type;
  return aggregate;
}

// ---- Classes -----------------------------------------------------------------------------------

// The next field that takes a value: not the unnamed bit-fields.
a_field *next_initializable_field(a_field *field) {
  while (field != nullptr && field->is_unnamed_member && !field->is_anonymous_parent)
    field = field->next;
  return field;
}

struct a_class_walk {
  an_aggregate_walk list;
  a_type *type;
  a_field *field;  // the next one; null: all have had their turn
  bool is_union;
};

// .name    or    name:
// Sets the field. The path into anonymous members goes on in elided walks: then the designator
// stays the current token and *inside is set. False after a message.
bool scan_field_designator(a_class_walk &walk, bool *old_form, bool *inside) {
  *inside = false;
  *old_form = curr_token == tok_identifier;
  bool at_period = curr_token == tok_period;
  a_source_position position = pos_curr_token;
  a_symbol_locator locator = cleared_locator;
  locator.position = position;
  if (!at_period) {
    locator.header = locator_for_curr_id.header;
  } else if (next_token_full(nullptr, &locator.header) != tok_identifier) {
    get_token();
    pos_error(ec_exp_identifier, &pos_curr_token);
    return false;
  }
  a_symbol *symbol = field_lookup(&locator, walk.type);
  a_field *field = symbol != nullptr ? symbol->variant.field : nullptr;
  a_field *outer = field;
  while (outer != nullptr && outer->anonymous_union_field != nullptr &&
         skip_typerefs(outer->anonymous_union_field->type) != walk.type)
    outer = outer->anonymous_union_field;
  *inside = outer != field;
  if (!*inside && at_period) get_token();
  if (field == nullptr) {
    pos_stsy_error(ec_not_a_field, &position, locator.header->name,
                   skip_typerefs(walk.type)->symbol);
    get_token();
    return false;
  }
  walk.field = outer;
  if (*inside) return true;
  write_xref_line('M', symbol, &pos_curr_token);
  get_token();
  if (*old_form) get_token();
  return true;
}

void scan_designated_field(a_class_walk &walk) {
  if (curr_token == tok_lbracket) {
    pos_error(ec_invalid_designator_kind, &pos_curr_token);
    walk.list.walk->error = true;
    skip_elements();
    return;
  }
  check_designators_allowed();
  bool old_form = false;
  bool inside = false;
  if (!scan_field_designator(walk, &old_form, &inside)) {
    walk.list.walk->error = true;
    skip_elements();
    return;
  }
  append_field_designator(walk.list, walk.field);
  a_brace_form form = inside ? bform_designated : scan_designator_end(old_form);
  append_value(walk.list, scan_member_value(walk.list, walk.field->type, form));
  walk.field = walk.is_union ? nullptr : next_initializable_field(walk.field->next);
}

// int a[];  as the last member takes a list in GNU C and gets the size of it.
void scan_flexible_member(a_class_walk &walk) {
  a_source_position position = pos_curr_token;
  bool allowed = gnu_mode && walk.list.walk->state->static_storage && walk.list.walk->depth == 1;
  if (!allowed) {
    pos_error(ec_cannot_initialize_flexible_array_member, &position);
    walk.list.walk->error = true;
  }
  a_type *type = walk.field->type;
  append_value(walk.list, scan_object_initializer(*walk.list.walk, &type));
  a_symbol *symbol = walk.list.walk->state->symbol;
  if (symbol != nullptr && symbol->kind == syk_variable)
    symbol->variant.variable->has_flexible_array_init = true;
  walk.field = nullptr;
}

void scan_class_element(a_class_walk &walk) {
  if (!walk.list.walk->has_pending && at_designator()) {
    scan_designated_field(walk);
    return;
  }
  if (walk.field == nullptr) {
    skip_excess_elements(walk.list);
    return;
  }
  if (is_array_type(walk.field->type) && is_incomplete_array_type(walk.field->type)) {
    scan_flexible_member(walk);
    return;
  }
  if (walk.is_union) append_field_designator(walk.list, walk.field);
  append_value(walk.list, scan_member_value(walk.list, walk.field->type, bform_elided));
  walk.field = walk.is_union ? nullptr : next_initializable_field(walk.field->next);
}

a_constant *scan_class(an_init_walk &init, a_type *type, a_brace_form form, a_constant *aggregate) {
  a_class_walk walk = {};
  walk.list = {&init, form, aggregate, true, false};
  walk.type = skip_typerefs(type);
  walk.is_union = walk.type->kind == tk_union;
  walk.field = next_initializable_field(walk.type->fields);
  if (walk.field == nullptr && form == bform_elided) return aggregate;
  for (;;) {
    if (form == bform_braces && curr_token == tok_rbrace && !init.has_pending) break;
    std::uint32_t before = curr_token_sequence_number;
    bool had_pending = init.has_pending;
    scan_class_element(walk);
    if (walk.field == nullptr && form != bform_braces) break;
    if (!more_elements(walk.list)) break;
    if (curr_token_sequence_number == before && !had_pending) break;
  }
  return aggregate;
}

}  // namespace

// { 1; , 2 }   { .a; = 1 }   { 1; };   No statement begins behind this ";".
static bool at_stray_semicolon() {
  if (curr_token != tok_semicolon) return false;
  a_token_kind second = tok_error;
  a_token_kind next = next_two_tokens(tok_rbrace, &second);
  return next == tok_comma || next == tok_assign || (next == tok_rbrace && second == tok_semicolon);
}

// { 1 2, 3 }   { 1; , 2 }   After a forgotten comma or a stray ";" the rest of the list is no
// declarator of what is around it.
void scan_end_of_braced_list() {
  if (curr_token != tok_rbrace) {
    pos_syntax_error(ec_exp_rbrace, &pos_curr_token);
    a_stop_token_count stops[tok_last] = {};
    stops[tok_rbrace] = stops[tok_semicolon] = 1;
    flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
    while (at_stray_semicolon()) {
      get_token();
      flush_tokens_with_stop_tokens_and_warning_flag(stops, true);
    }
  }
  if (curr_token == tok_rbrace) get_token();
}

// initializer-list:
//     [designation] initializer { , [designation] initializer }
// C11 6.7.9
a_constant *scan_aggregate(an_init_walk &walk, a_type **type, a_brace_form form) {
  a_constant *aggregate = alloc_constant(ck_aggregate);
  aggregate->type = *type;
  if (++walk.depth > max_initializer_depth) {
    pos_st_error(ec_not_supported, &pos_curr_token, "an initializer nested this deeply is");
    if (form == bform_braces) {
      flush_until_matching_token();
      get_token();
    }
    --walk.depth;
    return make_error_value(walk);
  }
  if (form == bform_braces) {
    aggregate->is_explicit_braces = true;
    get_token();
    add_stop_token(tok_rbrace);
    add_stop_token(tok_comma);
    if (curr_token == tok_rbrace && !gnu_mode && !in_cplusplus()) {
      pos_error(ec_exp_primary_expr, &pos_curr_token);
      walk.error = true;
    }
  }
  if (is_array_type(*type))
    scan_array(walk, type, form, aggregate);
  else
    scan_class(walk, *type, form, aggregate);
  if (form == bform_braces) {
    remove_stop_token(tok_comma);
    remove_stop_token(tok_rbrace);
    scan_end_of_braced_list();
  } else if (walk.has_pending) {
    // struct { struct {} e; int i; } s = {1};  The value is that of e, which has no room for it.
    an_aggregate_walk list = {&walk, form, aggregate, true, false};
    report_excess(list);
    drop_pending(walk);
  }
  --walk.depth;
  return aggregate;
}
