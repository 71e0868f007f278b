// Designated aggregates: what was written in any order, in the order of the type.
//
//     int a[6] = { [4] = 1, 2, [1] = 3, [4] = 7 };       { 0, 3, 0 x 2, 7, 2 }
//     struct s v = { .b = 1, .a.x = 2, .a.y = 3 };       { { 2, 3 }, 1 }
//
// The last value of a place counts. A value whose own text began with a designator (.a.y = 3 gives
// .a the list { .y = 3 }) changes only a part of what the place held: the two lists become one and
// are put in order together. An array is held as intervals by first index while this goes on, so
// that [0 ... 999999] costs one entry; gaps become zeros. In a struct a gap stays a designator,
// which only leads forward; the member of a union is always designated.
#include <iterator>
#include <map>
#include <vector>

#include "lower/lower_internal.h"
#include "semantics/folding.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

bool is_aggregate_kind(const a_type *type) {
  return is_array_type(type) || is_class_struct_union_type(type);
}

void set_elements(a_constant *aggregate, const std::vector<a_constant *> &elements) {
  aggregate->first_element = aggregate->last_element = nullptr;
  for (a_constant *element : elements) {
    element->next_in_list = nullptr;
    if (aggregate->last_element == nullptr)
      aggregate->first_element = element;
    else
      aggregate->last_element->next_in_list = element;
    aggregate->last_element = element;
  }
}

a_constant *zero_of_type(a_type *type) {
  a_constant *zero = alloc_constant(ck_aggregate);
  if (!is_aggregate_kind(type)) make_zero_constant(zero, make_unqualified_type(type));
  zero->type = type;
  return zero;
}

a_constant *run_of(a_constant *element, std::uint64_t count) {
  if (count == 1) return element;
  a_constant *run = alloc_constant(ck_repeat);
  run->type = element->type;
  run->repeat_element = element;
  run->repeat_count = count;
  return run;
}

// "abc" as { 'a', 'b', 'c', 0 }, so that a part of it can be replaced.
a_constant *elements_of_string(const a_constant *string) {
  a_constant *aggregate = alloc_constant(ck_aggregate);
  aggregate->type = string->type;
  a_type *element = f_skip_typerefs(array_element_type(string->type));
  std::uint64_t size = element->size == 0 ? 1 : element->size;
  std::vector<a_constant *> elements;
  for (std::uint64_t i = 0; i + size <= string->string_length; i += size) {
    const auto *bytes = reinterpret_cast<const unsigned char *>(string->string_text) + i;
    std::uint64_t value = 0;
    for (std::uint64_t b = 0; b < size; b++)
      value = value << 8 | bytes[targ_little_endian ? size - 1 - b : b];
    a_constant *character = alloc_constant(ck_integer);
    set_integer_constant_of_type(character, static_cast<std::int64_t>(value), element);
    elements.push_back(character);
  }
  set_elements(aggregate, elements);
  return aggregate;
}

// Does the value change only a part of its place?
bool is_partial(const a_constant *value) {
  return value->kind == ck_aggregate && !value->is_explicit_braces &&
         value->first_element != nullptr && value->first_element->kind == ck_designator;
}

// What a place holds when a later value is put over an earlier one. `old_is_shared`: other places
// hold the old one, too.
a_constant *overlay(a_constant *old_value, a_constant *new_value, bool old_is_shared) {
  if (!is_partial(new_value)) return new_value;
  if (old_value->kind == ck_string)
    old_value = elements_of_string(old_value);
  else if (old_value->kind != ck_aggregate)
    return new_value;
  else if (old_is_shared)
    old_value = copy_constant_tree(old_value);
  if (old_value->first_element == nullptr) {
    old_value->first_element = new_value->first_element;
  } else {
    old_value->last_element->next_in_list = new_value->first_element;
  }
  old_value->last_element = new_value->last_element;
  old_value->has_designators = true;
  old_value->has_dynamic_init_component |= new_value->has_dynamic_init_component;
  return old_value;
}

// ---- Arrays ------------------------------------------------------------------------------------

struct an_interval {
  std::uint64_t count;
  a_constant *value;
};
using an_interval_map = std::map<std::uint64_t, an_interval>;

// Makes an interval begin at index, if one lies across it. Both halves hold the same value then.
void split_at(an_interval_map &map, std::uint64_t index) {
  auto found = map.upper_bound(index);
  if (found == map.begin()) return;
  --found;
  std::uint64_t end = found->first + found->second.count;
  if (found->first == index || end <= index) return;
  a_constant *value = found->second.value;
  if (value->kind == ck_aggregate) value = copy_constant_tree(value);
  found->second.count = index - found->first;
  map.emplace(index, an_interval{end - index, value});
}

void put_interval(an_interval_map &map, std::uint64_t index, std::uint64_t count,
                  a_constant *value) {
  if (map.empty() || std::prev(map.end())->first + std::prev(map.end())->second.count <= index) {
    map.emplace_hint(map.end(), index, an_interval{count, value});
    return;
  }
  std::uint64_t end = index + count;
  split_at(map, index);
  split_at(map, end);
  if (!is_partial(value)) {
    map.erase(map.lower_bound(index), map.lower_bound(end));
    map.emplace(index, an_interval{count, value});
    return;
  }
  bool first = true;
  std::uint64_t next = index;
  while (next < end) {
    a_constant *part = first ? value : copy_constant_tree(value);
    first = false;
    auto found = map.lower_bound(next);
    if (found == map.end() || found->first >= end) {
      map.emplace(next, an_interval{end - next, part});
      break;
    }
    if (found->first > next) {
      map.emplace(next, an_interval{found->first - next, part});
      next = found->first;
      continue;
    }
    found->second.value = overlay(found->second.value, part, false);
    next += found->second.count;
  }
}

void normalize_array(a_constant *constant, a_type *type) {
  a_type *element_type = array_element_type(type);
  an_interval_map map;
  std::uint64_t index = 0;
  a_constant *next;
  for (a_constant *e = constant->first_element; e != nullptr; e = next) {
    next = e->next_in_list;
    if (e->kind == ck_designator) {
      index = e->designator_index->integer_value;
      continue;
    }
    bool is_run = e->kind == ck_repeat;
    std::uint64_t count = is_run ? e->repeat_count : 1;
    put_interval(map, index, count, is_run ? e->repeat_element : e);
    index += count;
  }
  std::vector<a_constant *> elements;
  std::uint64_t end = 0;
  for (auto &[first, interval] : map) {
    if (first > end) elements.push_back(run_of(zero_of_type(element_type), first - end));
    elements.push_back(run_of(interval.value, interval.count));
    end = first + interval.count;
  }
  set_elements(constant, elements);
  constant->has_designators = false;
}

// ---- Classes -----------------------------------------------------------------------------------

a_field *next_with_value(a_field *field) {
  while (field != nullptr && field->is_bit_field && field->name == nullptr)
    field = field->next;
  return field;
}

a_constant *designator_of(a_field *field) {
  a_constant *designator = alloc_constant(ck_designator);
  designator->designator_is_field = true;
  designator->designator_field = field;
  return designator;
}

void normalize_union(a_constant *constant, a_type *type) {
  a_field *field = next_with_value(type->fields);
  a_field *held_field = nullptr;
  a_constant *held = nullptr;
  for (a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list) {
    if (e->kind == ck_designator) {
      field = e->designator_field;
    } else {
      held = held != nullptr && held_field == field ? overlay(held, e, false) : e;
      held_field = field;
    }
  }
  if (held == nullptr) return;
  set_elements(constant, {designator_of(held_field), held});
}

// The places of the members in order. The next member asked for is nearly always a later one.
struct a_member_list {
  std::vector<a_field *> fields;
  std::vector<a_constant *> values;

  explicit a_member_list(a_type *type) {
    for (a_field *f = next_with_value(type->fields); f != nullptr; f = next_with_value(f->next))
      fields.push_back(f);
    values.resize(fields.size());
  }
  std::size_t find(const a_field *field, std::size_t start) const {
    for (std::size_t i = 0; i < fields.size(); i++) {
      std::size_t at = (start + i) % fields.size();
      if (fields[at] == field) return at;
    }
    unexpected_state("a designator of another class");
  }
};

void normalize_struct(a_constant *constant, a_type *type) {
  a_member_list members(type);
  std::size_t at = 0;
  a_constant *next;
  for (a_constant *e = constant->first_element; e != nullptr; e = next) {
    next = e->next_in_list;
    if (e->kind == ck_designator) {
      at = members.find(e->designator_field, at);
      continue;
    }
    check_invariant(at < members.values.size());
    a_constant *&value = members.values[at++];
    value = value != nullptr ? overlay(value, e, false) : e;
  }
  std::vector<a_constant *> elements;
  bool has_gap = false;
  constant->has_designators = false;
  for (std::size_t i = 0; i < members.fields.size(); i++) {
    if (members.values[i] == nullptr) {
      has_gap = true;
      continue;
    }
    if (has_gap) {
      elements.push_back(designator_of(members.fields[i]));
      constant->has_designators = true;
    }
    elements.push_back(members.values[i]);
    has_gap = false;
  }
  set_elements(constant, elements);
}

// ---- Elements ----------------------------------------------------------------------------------

void normalize_elements(a_constant *constant, a_type *type) {
  a_type *bottom = f_skip_typerefs(type);
  bool is_array = bottom->kind == tk_array;
  a_field *field = is_class_kind(bottom->kind) ? next_with_value(bottom->fields) : nullptr;
  for (a_constant *e = constant->first_element; e != nullptr; e = e->next_in_list) {
    if (e->kind == ck_designator) {
      field = e->designator_field;
      continue;
    }
    a_type *element_type = is_array ? bottom->element_type : field != nullptr ? field->type : type;
    normalize_designated_aggregate(e->kind == ck_repeat ? e->repeat_element : e, element_type);
    if (field != nullptr) field = next_with_value(field->next);
  }
}

}  // namespace

void normalize_designated_aggregate(a_constant *constant, a_type *type) {
  if (constant->kind != ck_aggregate) return;
  a_type *bottom = f_skip_typerefs(type);
  if (constant->has_designators) {
    if (bottom->kind == tk_array)
      normalize_array(constant, bottom);
    else if (bottom->kind == tk_union)
      normalize_union(constant, bottom);
    else if (is_class_kind(bottom->kind))
      normalize_struct(constant, bottom);
  }
  normalize_elements(constant, type);
}
