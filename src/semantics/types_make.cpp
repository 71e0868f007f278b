// Making derived types. A pointer, a reference and a qualified form of a given type exist once:
// each type lists what was made from it, the form used last in front. Arrays and functions are new
// each time.
#include <initializer_list>

#include "driver/switches.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

// The member of the type's list that accepts, moved to the front; null: none.
template <typename ACCEPTS>
a_type *find_based_type(a_type *type, a_based_type_relation relation, ACCEPTS accepts) {
  a_based_type_list_member **link = &type->based_types;
  for (; *link != nullptr; link = &(*link)->next) {
    a_based_type_list_member *member = *link;
    if (member->relation != relation || !accepts(member->type)) continue;
    *link = member->next;
    member->next = type->based_types;
    type->based_types = member;
    return member->type;
  }
  return nullptr;
}

a_type *find_based_type(a_type *type, a_based_type_relation relation) {
  return find_based_type(type, relation, [](const a_type *) { return true; });
}

// The pointer or reference to type, found or made.
a_type *pointer_form(a_type *type, a_based_type_relation relation) {
  if (type != nullptr) {
    if (a_type *known = find_based_type(type, relation)) return known;
  }
  a_type *pointer = alloc_type(tk_pointer);
  pointer->pointed_to = type;
  pointer->is_reference = relation != btr_pointer;
  pointer->is_rvalue_reference = relation == btr_rvalue_reference;
  set_type_size(pointer);
  if (type != nullptr) add_based_type(type, relation, pointer);
  return pointer;
}

}  // namespace

void add_based_type(a_type *type, a_based_type_relation relation, a_type *based) {
  a_based_type_list_member *member = alloc_based_type_list_member(relation, based);
  member->next = type->based_types;
  type->based_types = member;
}

a_type *make_pointer_type_full(a_type *type) {
  return pointer_form(type, btr_pointer);
}

a_type *make_reference_type(a_type *type) {
  return pointer_form(type, btr_reference);
}

a_type *make_rvalue_reference_type(a_type *type) {
  return pointer_form(type, btr_rvalue_reference);
}

// The reference that only the result of an intrinsic has: it stands for an lvalue in plain C too.
a_type *make_lhsref_type(a_type *type) {
  a_type *reference = alloc_type(tk_pointer);
  reference->pointed_to = type;
  reference->is_reference = true;
  reference->lhsref_kind = 1;
  set_type_size(reference);
  return reference;
}

a_type *make_pointer_type_of_same_kind(a_type *type, const a_type *like) {
  like = skip_typerefs(like);
  if (like->kind != tk_pointer || !like->is_reference) return make_pointer_type_full(type);
  return make_reference_type_of_same_kind(type, like);
}

a_type *make_reference_type_of_same_kind(a_type *type, const a_type *like) {
  return is_rvalue_reference_type(like) ? make_rvalue_reference_type(type)
                                        : make_reference_type(type);
}

a_type *make_ptr_to_const_type(a_type *type) {
  return make_pointer_type_full(f_make_qualified_type(type, tq_const));
}

namespace {

// A member function's type knows its class.
a_type *member_routine_type(a_type *member, a_type *class_type) {
  a_type *bottom = skip_typerefs(member);
  if (bottom->kind != tk_routine || bottom->routine_supplement->this_class != nullptr)
    return member;
  a_type *copy = copy_routine_type_with_param_types(bottom);
  copy->routine_supplement->this_class = class_type;
  copy->routine_supplement->name_linkage = nlk_external_cpp;
  return copy;
}

}  // namespace

a_type *ptr_to_member_type_full(a_type *member, a_type *class_type) {
  class_type = skip_typerefs(class_type);
  member = member_routine_type(member, class_type);
  a_type *known = find_based_type(class_type, btr_ptr_to_member, [member](const a_type *based) {
    return based->member_type == member;
  });
  if (known != nullptr) return known;
  a_type *type = alloc_type(tk_ptr_to_member);
  type->member_class = class_type;
  type->member_type = member;
  set_type_size(type);
  add_based_type(class_type, btr_ptr_to_member, type);
  return type;
}

// ---- Qualification -----------------------------------------------------------------------------

namespace {

// Steps over nameless pure qualifications, gathering what they add, so that qualified types do not
// pile up. A typeref with attributes stays: its alignment would be lost.
a_type *strip_nameless_qualifications(a_type *type, unsigned *qualifiers) {
  while (type->kind == tk_typeref && !is_typedef(type) &&
         (type->qualifiers & tq_mask) == type->qualifiers && !type->explicit_alignment) {
    *qualifiers |= type->qualifiers;
    type = type->referenced_type;
  }
  return type;
}

a_type *qualified_non_array_type(a_type *type, unsigned qualifiers) {
  unsigned wanted = qualifiers;
  type = strip_nameless_qualifications(type, &wanted);
  a_type *known = find_based_type(
      type, btr_qualified, [wanted](const a_type *based) { return based->qualifiers == wanted; });
  if (known != nullptr) return known;
  a_type *typeref = alloc_type(tk_typeref);
  typeref->referenced_type = type;
  typeref->qualifiers = wanted;
  add_based_type(type, btr_qualified, typeref);
  return typeref;
}

// Rebuilds an array on a qualified element; the new array remembers the typedef it stands for.
a_type *qualified_array_type(a_type *array, unsigned qualifiers) {
  a_type *element = f_make_qualified_type(underlying_array_element_type(array), qualifiers);
  a_type *qualified = copy_array_type_replacing_element_type(array, element);
  add_based_type(qualified, btr_array_of_qualified_typedef, array);
  return qualified;
}

}  // namespace

a_type *f_make_qualified_type(a_type *type, unsigned qualifiers) {
  a_type *bottom = skip_typerefs(type);
  if (bottom->kind == tk_error) return type;
  a_type *element = bottom->kind == tk_array ? underlying_array_element_type(type) : type;
  unsigned present = f_get_type_qualifiers(element, true);
  unsigned added = qualifiers & tq_mask & ~present;
  if (is_any_reference_type(element)) added &= tq_restrict;
  if ((present & tq_nullability) != 0) added &= ~unsigned{tq_nullability};
  if (added == 0) return type;
  return bottom->kind == tk_array ? qualified_array_type(type, added)
                                  : qualified_non_array_type(type, added);
}

a_type *is_qualified_version_of_array_typedef(const a_type *type) {
  if (type->kind != tk_array) return nullptr;
  for (a_based_type_list_member *m = type->based_types; m != nullptr; m = m->next)
    if (m->relation == btr_array_of_qualified_typedef && is_typedef(m->type)) return m->type;
  return nullptr;
}

a_type *make_unqualified_type(a_type *type) {
  if (get_type_qualifiers(type) == 0) return type;
  a_type *bottom = type;
  while (bottom->kind == tk_typeref && f_get_type_qualifiers(bottom, true) != 0)
    bottom = bottom->referenced_type;
  if (!is_array_type(bottom) || !in_cplusplus()) return bottom;
  a_type *element = underlying_array_element_type(bottom);
  return copy_array_type_replacing_element_type(bottom, make_unqualified_type(element));
}

a_type *type_plus_qualifiers_from_second_type(a_type *type, const a_type *from) {
  return make_qualified_type(type, get_type_qualifiers(from));
}

// ---- Arrays ------------------------------------------------------------------------------------

a_type *make_array_type(a_type *element, std::uint64_t number_of_elements) {
  a_type *array = alloc_type(tk_array);
  array->element_type = element;
  array->number_of_elements = number_of_elements;
  array->zero_bound = number_of_elements == 0;
  set_array_type_size(array, true);
  return array;
}

a_type *make_incomplete_array_type(a_type *element) {
  a_type *array = alloc_type(tk_array);
  array->element_type = element;
  set_array_type_size(array, false);
  return array;
}

a_type *copy_array_type_replacing_element_type(a_type *array, a_type *element) {
  a_type *bottom = skip_typerefs(array);
  if (bottom->kind != tk_array) return element;
  a_type *copy = alloc_type(tk_array);
  copy_type(bottom, copy);
  copy->element_type = copy_array_type_replacing_element_type(bottom->element_type, element);
  copy->size = 0;
  copy->size_is_set = false;
  set_array_type_size(copy, !is_incomplete_array_type(copy));
  bool drops_alignment = gnu_mode && gnu_version < 40000;
  for (a_type *t = array; t->kind == tk_typeref && !drops_alignment; t = t->referenced_type) {
    if (!t->explicit_alignment) continue;
    copy->explicit_alignment = true;
    copy->alignment = t->alignment;
    break;
  }
  return copy;
}

// ---- Functions ---------------------------------------------------------------------------------

a_type *make_routine_type(a_type *return_type) {
  a_type *type = alloc_type(tk_routine);
  type->return_type = return_type;
  return type;
}

a_param_type *make_param_type(a_type *type) {
  a_type *stored = remove_qualifiers_from_param_types ? make_unqualified_type(type) : type;
  a_param_type *param = alloc_param_type(stored);
  param->declared_type = type;
  return param;
}

void add_param_type(a_type *routine_type, a_type *param) {
  a_routine_type_supplement *supplement = skip_typerefs(routine_type)->routine_supplement;
  a_param_type **link = &supplement->param_types;
  std::uint8_t position = 1;
  for (; *link != nullptr; link = &(*link)->next)
    if (position < 255) ++position;
  *link = make_param_type(param);
  (*link)->position = position;
}

a_type *make_routine_type_full(a_type *return_type, a_type *p1, a_type *p2, a_type *p3, a_type *p4,
                               a_type *p5, a_type *p6, a_type *p7) {
  a_type *type = make_routine_type(return_type);
  type->routine_supplement->prototyped = true;
  for (a_type *param : {p1, p2, p3, p4, p5, p6, p7}) {
    if (param == nullptr) break;
    add_param_type(type, param);
  }
  return type;
}

a_param_type *copy_param_type_list(const a_param_type *list) {
  a_param_type *first = nullptr;
  a_param_type **link = &first;
  for (; list != nullptr; list = list->next) {
    a_param_type *copy = alloc_param_type(list->type);
    *copy = *list;
    copy->next = nullptr;
    *link = copy;
    link = &copy->next;
  }
  return first;
}

a_type *copy_routine_type_with_param_types(a_type *type) {
  a_type *from = skip_typerefs(type);
  a_type *copy = alloc_type(tk_routine);
  copy_type(from, copy);
  copy->routine_supplement->param_types =
      copy_param_type_list(from->routine_supplement->param_types);
  return copy;
}

// ---- Copies, special types ---------------------------------------------------------------------

namespace {

// The record behind the head of a type, which tells which declaration it is.
void copy_type_proper(const a_type *from, a_type *to) {
  a_source_correspondence head = *to;
  a_type *next = to->next;
  a_based_type_list_member *based_types = to->based_types;
  *to = *from;
  static_cast<a_source_correspondence &>(*to) = head;
  to->next = next;
  to->based_types = based_types;
  to->is_builtin_type = false;
  to->on_types_list = false;
}

}  // namespace

void copy_type(const a_type *from, a_type *to) {
  if (to->kind != from->kind) set_type_kind(to, from->kind);
  a_routine_type_supplement *routine = to->kind == tk_routine ? to->routine_supplement : nullptr;
  a_typeref_supplement *typeref = to->kind == tk_typeref ? to->typeref_supplement : nullptr;
  copy_type_proper(from, to);
  if (routine != nullptr) {
    *routine = *from->routine_supplement;
    to->routine_supplement = routine;
  }
  if (typeref != nullptr) {
    *typeref = *from->typeref_supplement;
    to->typeref_supplement = typeref;
  }
}

a_type *make_field_selection_type(const a_field *field, unsigned qualifiers) {
  if (field->is_mutable) qualifiers &= ~unsigned{tq_const};
  if (is_any_reference_type(field->type)) return type_pointed_to(field->type);
  return make_qualified_type(field->type, qualifiers & ~unsigned{tq_restrict});
}

a_type *make_auto_type(const a_source_position *position, bool is_decltype_auto) {
  a_type *type = alloc_type(tk_template_param);
  type->decl_position = *position;
  type->template_param_supplement->kind = is_decltype_auto ? auto_decltype : auto_plain;
  type->template_param_supplement->coordinate.level = auto_placeholder_level;
  set_type_size(type);
  return type;
}
