// Comparing types: identity, the compatibility of C, and the composite of two compatible types.
//
// No hash of a type's structure exists. Two types are compared by walking both: typerefs off,
// qualifiers side by side, then the parts by kind; a class is only ever equal to itself.
#include "driver/switches.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

unsigned compared_qualifiers(const a_type *type) {
  return f_get_type_qualifiers(type, true) & ~unsigned{tq_nullability};
}

// struct and class are one kind.
a_type_kind compared_kind(const a_type *type) {
  return type->kind == tk_class ? tk_struct : type->kind;
}

bool same_integer_kind(const a_type *a, const a_type *b) {
  return a->int_kind == b->int_kind && a->is_wchar_t == b->is_wchar_t &&
         a->is_char16_t == b->is_char16_t && a->is_char32_t == b->is_char32_t &&
         a->is_bool == b->is_bool;
}

bool same_pointer_kind(const a_type *a, const a_type *b) {
  return a->is_reference == b->is_reference && a->is_rvalue_reference == b->is_rvalue_reference;
}

bool has_unknown_bound(const a_type *array) {
  return is_incomplete_array_type(array);
}

bool is_computed_bound(const a_type *array) {
  return array->is_vla || array->has_vla_dimension || array->bound_is_expr ||
         array->bound_is_constant;
}

// ---- Identity ----------------------------------------------------------------------------------

bool identical_bounds(const a_type *a, const a_type *b) {
  if (is_computed_bound(a) || is_computed_bound(b)) {
    return !a->is_vla && !b->is_vla && a->bound_is_constant == b->bound_is_constant &&
           a->bound_is_expr == b->bound_is_expr && a->number_of_elements == b->number_of_elements;
  }
  return has_unknown_bound(a) == has_unknown_bound(b) && a->zero_bound == b->zero_bound &&
         a->number_of_elements == b->number_of_elements;
}

bool identical_this_classes(const a_routine_type_supplement *a,
                            const a_routine_type_supplement *b) {
  if ((a->this_class == nullptr) != (b->this_class == nullptr)) return false;
  return a->this_qualifiers == b->this_qualifiers && a->ref_qualifier == b->ref_qualifier &&
         (a->this_class == nullptr || identical_types(a->this_class, b->this_class));
}

bool identical_param_lists(const a_param_type *a, const a_param_type *b, unsigned flags) {
  for (; a != nullptr && b != nullptr; a = a->next, b = b->next) {
    if (a->is_pack_expansion != b->is_pack_expansion) return false;
    if (!f_identical_types(a->type, b->type, flags)) return false;
  }
  return a == nullptr && b == nullptr;
}

bool identical_routine_types(a_type *a, a_type *b, unsigned flags) {
  const a_routine_type_supplement *sa = a->routine_supplement, *sb = b->routine_supplement;
  if (!identical_this_classes(sa, sb)) return false;
  if (sa->has_ellipsis != sb->has_ellipsis || sa->prototyped != sb->prototyped) return false;
  if (!routine_linkages_are_compatible(a, b)) return false;
  if (!f_identical_types(a->return_type, b->return_type, flags)) return false;
  if (!identical_param_lists(sa->param_types, sb->param_types, flags)) return false;
  if (gnu_mode && (flags & itf_ignore_gnu_attributes) == 0 &&
      !calling_conventions_are_compatible(a, b))
    return false;
  if ((flags & itf_compare_noreturn) != 0) {
    if (sa->is_noreturn != sb->is_noreturn) return false;
    if (gnu_mode && a->alignment != b->alignment) return false;
  }
  return true;
}

bool identical_template_params(const a_type *a, const a_type *b) {
  const a_template_param_type_supplement *sa = a->template_param_supplement;
  const a_template_param_type_supplement *sb = b->template_param_supplement;
  return a->template_param_kind == b->template_param_kind && sa->kind == sb->kind &&
         sa->coordinate.level == sb->coordinate.level &&
         sa->coordinate.position == sb->coordinate.position;
}

}  // namespace

bool f_identical_types(a_type *a, a_type *b, unsigned flags) {
  for (;;) {
    if (a == b) return true;
    if ((flags & itf_ignore_qualifiers) == 0 && compared_qualifiers(a) != compared_qualifiers(b))
      return false;
    a = skip_typerefs(a);
    b = skip_typerefs(b);
    if (a == b) return true;
    if (compared_kind(a) != compared_kind(b)) return false;
    unsigned ignored_kind = flags & itf_ignore_pointer_kind;
    flags &= ~unsigned{itf_ignore_qualifiers | itf_ignore_pointer_kind};
    switch (a->kind) {
      case tk_error:
      case tk_void:
      case tk_unknown:
        return true;
      case tk_integer:
        return !a->is_enum && !b->is_enum && same_integer_kind(a, b);
      case tk_float:
      case tk_imaginary:
      case tk_complex:
        return a->float_kind == b->float_kind;
      case tk_pointer:
        if (ignored_kind == 0 && !same_pointer_kind(a, b)) return false;
        a = a->pointed_to;
        b = b->pointed_to;
        break;
      case tk_array:
        if (!identical_bounds(a, b)) return false;
        a = a->element_type;
        b = b->element_type;
        break;
      case tk_ptr_to_member:
        if (!identical_types(a->member_class, b->member_class)) return false;
        a = a->member_type;
        b = b->member_type;
        break;
      case tk_routine:
        return identical_routine_types(a, b, flags);
      case tk_template_param:
        return identical_template_params(a, b);
      case tk_nullptr:
        return a->is_managed == b->is_managed;
      default:
        return false;  // a class is equal only to itself
    }
  }
}

// ---- Compatibility -----------------------------------------------------------------------------

namespace {

bool differ(a_type_difference_descr *difference, a_type_difference what, a_type *a, a_type *b) {
  if (difference != nullptr && difference->difference == tdf_none) {
    difference->difference = what;
    difference->first = a;
    difference->second = b;
  }
  return false;
}

bool compatible_integers(const a_type *a, const a_type *b, unsigned flags) {
  if (!a->is_enum && !b->is_enum) return same_integer_kind(a, b);
  if (in_cplusplus() || (flags & tcf_enum_is_distinct) != 0) return false;
  if (a->is_enum && b->is_enum && !(gcc_mode && gnu_version < 30400)) return false;
  return a->int_kind == b->int_kind && !a->is_bool && !b->is_bool;
}

bool compatible_bounds(const a_type *a, const a_type *b, unsigned flags) {
  if ((flags & tcf_parameter) != 0) return true;
  if (has_unknown_bound(a) || has_unknown_bound(b)) return true;
  if (is_computed_bound(a) || is_computed_bound(b)) return true;
  return a->number_of_elements == b->number_of_elements;
}

bool compatible_this_classes(const a_type *a, const a_type *b, unsigned flags) {
  if ((flags & tcf_ignore_this_class) != 0) return true;
  const a_routine_type_supplement *sa = a->routine_supplement, *sb = b->routine_supplement;
  if (sa->this_qualifiers != sb->this_qualifiers) return false;
  if ((sa->this_class == nullptr) != (sb->this_class == nullptr)) return false;
  if (sa->this_class == nullptr || types_are_compatible(sa->this_class, sb->this_class))
    return true;
  return inexact_ptr_to_member_deduction_enabled &&
         same_or_related_class_types(sa->this_class, sb->this_class);
}

bool compatible_routines(a_type *a, a_type *b, unsigned flags,
                         a_type_difference_descr *difference) {
  if (!f_types_are_compatible_full(a->return_type, b->return_type, flags, nullptr))
    return differ(difference, tdf_return_type, a->return_type, b->return_type);
  if (!param_types_are_compatible_full(a, b, flags, difference)) return false;
  if (!compatible_this_classes(a, b, flags)) return differ(difference, tdf_other, a, b);
  if (!impl_conv_between_c_and_cpp_function_ptrs_allowed && !routine_linkages_are_compatible(a, b))
    return differ(difference, tdf_name_linkage, a, b);
  return true;
}

bool compatible_parameter(a_type *a, a_type *b, unsigned flags) {
  return f_types_are_compatible_full(a, b, flags | tcf_ignore_qualifiers, nullptr);
}

// int f(int, ...);  int f();   What the caller passes without a prototype are promoted arguments.
bool compatible_with_no_prototype(const a_routine_type_supplement *prototype,
                                  const a_routine_type_supplement *old_style, unsigned flags) {
  if (prototype->has_ellipsis) return false;
  const a_param_type *p = prototype->param_types;
  const a_param_type *o = old_style->param_types;
  if (o == nullptr && !old_style->old_style_definition) {
    for (; p != nullptr; p = p->next)
      if (!compatible_parameter(p->type, default_argument_promotion(p->type), flags)) return false;
    return true;
  }
  // int f(short);  int f(s) short s; { }   GNU lets the prototype win.
  for (; p != nullptr && o != nullptr; p = p->next, o = o->next) {
    if (compatible_parameter(p->type, default_argument_promotion(o->type), flags)) continue;
    if (!gnu_mode || !compatible_parameter(p->type, o->type, flags)) return false;
  }
  return p == nullptr && o == nullptr;
}

}  // namespace

bool param_types_are_compatible_full(a_type *a, a_type *b, unsigned flags,
                                     a_type_difference_descr *difference) {
  a = skip_typerefs(a);
  b = skip_typerefs(b);
  const a_routine_type_supplement *sa = a->routine_supplement, *sb = b->routine_supplement;
  flags &= ~unsigned{tcf_parameter};
  if (sa->prototyped != sb->prototyped) {
    bool good = sa->prototyped ? compatible_with_no_prototype(sa, sb, flags)
                               : compatible_with_no_prototype(sb, sa, flags);
    return good || differ(difference, tdf_prototype, a, b);
  }
  if (!sa->prototyped) return true;
  const a_param_type *p = sa->param_types, *q = sb->param_types;
  int parameter = 1;
  for (; p != nullptr && q != nullptr; p = p->next, q = q->next, ++parameter) {
    if (p->is_pack_expansion == q->is_pack_expansion &&
        compatible_parameter(p->type, q->type, flags))
      continue;
    differ(difference, tdf_param_types, p->type, q->type);
    if (difference != nullptr) difference->parameter = parameter;
    return false;
  }
  if (p != nullptr || q != nullptr || sa->has_ellipsis != sb->has_ellipsis)
    return differ(difference, tdf_param_types, nullptr, nullptr);
  return true;
}

bool f_types_are_compatible_full(a_type *a, a_type *b, unsigned flags,
                                 a_type_difference_descr *difference) {
  if (difference != nullptr) *difference = {};
  for (;;) {
    if (a == b) return true;
    if (is_error_type(a) || is_error_type(b)) return (flags & tcf_error_is_compatible) != 0;
    if ((flags & tcf_ignore_qualifiers) == 0 && compared_qualifiers(a) != compared_qualifiers(b))
      return differ(difference, tdf_qualifiers, a, b);
    flags &= ~unsigned{tcf_ignore_qualifiers};
    a = skip_typerefs(a);
    b = skip_typerefs(b);
    if (a == b) return true;
    if (compared_kind(a) != compared_kind(b)) return differ(difference, tdf_kind, a, b);
    switch (a->kind) {
      case tk_integer:
        return compatible_integers(a, b, flags) || differ(difference, tdf_kind, a, b);
      case tk_pointer:
        if (!same_pointer_kind(a, b)) return differ(difference, tdf_kind, a, b);
        flags &= ~unsigned{tcf_parameter};
        a = a->pointed_to;
        b = b->pointed_to;
        break;
      case tk_array:
        if (!compatible_bounds(a, b, flags)) return differ(difference, tdf_bound, a, b);
        flags &= ~unsigned{tcf_parameter};
        a = a->element_type;
        b = b->element_type;
        break;
      case tk_routine:
        return compatible_routines(a, b, flags, difference);
      case tk_ptr_to_member:
        if (!types_are_compatible(a->member_class, b->member_class))
          return differ(difference, tdf_other, a, b);
        a = a->member_type;
        b = b->member_type;
        break;
      default:
        return f_identical_types(a, b, itf_ignore_qualifiers) || differ(difference, tdf_kind, a, b);
    }
  }
}

bool routine_linkages_are_compatible(const a_type *a, const a_type *b) {
  if (!in_cplusplus() || !c_and_cpp_function_types_are_distinct) return true;
  return skip_typerefs(a)->routine_supplement->name_linkage ==
         skip_typerefs(b)->routine_supplement->name_linkage;
}

bool calling_conventions_are_compatible(const a_type *a, const a_type *b) {
  std::uint16_t ca = skip_typerefs(a)->routine_supplement->calling_convention;
  std::uint16_t cb = skip_typerefs(b)->routine_supplement->calling_convention;
  return ca == cb || ca == calling_convention_unset || cb == calling_convention_unset;
}

// ---- Weaker relations --------------------------------------------------------------------------

bool integral_types_the_same_except_for_signedness(const a_type *a, const a_type *b) {
  a = skip_typerefs(a);
  b = skip_typerefs(b);
  if (a->kind != tk_integer || b->kind != tk_integer) return false;
  return unsigned_int_kind_of[a->int_kind] == unsigned_int_kind_of[b->int_kind];
}

bool interchangeable_types(a_type *a, a_type *b) {
  if (f_types_are_compatible(a, b, tcf_ignore_qualifiers)) return true;
  a = skip_typerefs(a);
  b = skip_typerefs(b);
  if (a->kind == tk_pointer && b->kind == tk_pointer)
    return interchangeable_types(a->pointed_to, b->pointed_to);
  if (a->kind == tk_integer && b->kind == tk_integer)
    return a->size == b->size && is_signed_integral_type(a) == is_signed_integral_type(b);
  if (a->kind == tk_float && b->kind == tk_float) return a->size == b->size;
  return false;
}

bool cast_identical_types(a_type *a, a_type *b) {
  return identical_types_ignoring_qualifiers(a, b);
}

bool same_type_with_added_qualifiers(a_type *from, a_type *to) {
  return qualification_conversion_possible(from, to) && !identical_types(from, to);
}

a_base_class *find_base_class_of(a_type *derived, a_type *base) {
  derived = skip_typerefs(derived);
  base = skip_typerefs(base);
  if (!is_class_kind(derived->kind)) return nullptr;
  for (a_base_class *b = derived->class_supplement->base_classes; b != nullptr; b = b->next)
    if (skip_typerefs(b->base_type) == base) return b;
  return nullptr;
}

bool is_same_class_or_base_class_thereof(a_type *base, a_type *derived) {
  base = skip_typerefs(base);
  derived = skip_typerefs(derived);
  return is_class_kind(base->kind) &&
         (base == derived || find_base_class_of(derived, base) != nullptr);
}

bool same_or_related_class_types(a_type *a, a_type *b) {
  return is_same_class_or_base_class_thereof(a, b) || is_same_class_or_base_class_thereof(b, a);
}

// ---- Composite types ---------------------------------------------------------------------------

namespace {

a_type *with_qualifiers_of(a_type *type, const a_type *like) {
  return make_qualified_type(type, f_get_type_qualifiers(like, true));
}

a_type *composite_pointer(a_type *a, a_type *b) {
  a_type *pa = skip_typerefs(a), *pb = skip_typerefs(b);
  a_type *inner = composite_type(pa->pointed_to, pb->pointed_to);
  if (inner == pa->pointed_to) return a;
  if (inner == pb->pointed_to) return b;
  return with_qualifiers_of(make_pointer_type_of_same_kind(inner, pa), a);
}

a_type *composite_array(a_type *a, a_type *b) {
  a_type *pa = skip_typerefs(a), *pb = skip_typerefs(b);
  a_type *element = composite_type(pa->element_type, pb->element_type);
  bool b_knows_more = has_unknown_bound(pa) && !has_unknown_bound(pb);
  a_type *base = b_knows_more ? pb : pa;
  if (element == base->element_type) return b_knows_more ? b : a;
  a_type *composite = alloc_type(tk_array);
  copy_type(base, composite);
  composite->element_type = element;
  composite->size = 0;
  composite->size_is_set = false;
  set_array_type_size(composite, !has_unknown_bound(composite));
  return composite;
}

bool has_more_function_marks(const a_routine_type_supplement *a,
                             const a_routine_type_supplement *b) {
  return (b->is_noreturn && !a->is_noreturn) || (b->is_pure && !a->is_pure) ||
         (b->is_const_function && !a->is_const_function) ||
         (b->warn_unused_result && !a->warn_unused_result) ||
         (b->calling_convention != calling_convention_unset &&
          a->calling_convention == calling_convention_unset);
}

void add_function_marks(a_routine_type_supplement *to, const a_routine_type_supplement *from) {
  if (from->is_noreturn) to->is_noreturn = true;
  if (from->is_pure) to->is_pure = true;
  if (from->is_const_function) to->is_const_function = true;
  if (from->warn_unused_result) to->warn_unused_result = true;
  if (to->calling_convention == calling_convention_unset)
    to->calling_convention = from->calling_convention;
}

// Which of the two sides has the wanted return type and parameters already?
struct a_routine_composite {
  a_type *return_type;
  bool a_serves, b_serves;
};

void note_parts(a_routine_composite *composite, const a_type *wanted, const a_type *in_a,
                const a_type *in_b) {
  if (wanted != in_a) composite->a_serves = false;
  if (wanted != in_b) composite->b_serves = false;
}

a_type *built_routine_composite(a_type *base, a_type *other, a_type *return_type) {
  a_type *composite = copy_routine_type_with_param_types(base);
  composite->return_type = return_type;
  a_param_type *p = composite->routine_supplement->param_types;
  const a_param_type *q = other->routine_supplement->param_types;
  if (other->routine_supplement->prototyped == base->routine_supplement->prototyped) {
    for (; p != nullptr && q != nullptr; p = p->next, q = q->next) {
      p->type = composite_type(p->type, q->type);
      if (q->has_default_arg && !p->has_default_arg) {
        p->has_default_arg = true;
        p->default_arg_expr = q->default_arg_expr;
        p->default_arg_lifetime = q->default_arg_lifetime;
      }
    }
  }
  add_function_marks(composite->routine_supplement, other->routine_supplement);
  return composite;
}

a_type *composite_routine(a_type *a, a_type *b) {
  a_type *ra = skip_typerefs(a), *rb = skip_typerefs(b);
  const a_routine_type_supplement *sa = ra->routine_supplement, *sb = rb->routine_supplement;
  a_routine_composite composite = {composite_type(ra->return_type, rb->return_type), true, true};
  note_parts(&composite, composite.return_type, ra->return_type, rb->return_type);
  bool b_wins = !sa->prototyped && sb->prototyped;
  if (sa->prototyped != sb->prototyped) {
    (b_wins ? composite.a_serves : composite.b_serves) = false;
  } else {
    const a_param_type *p = sa->param_types, *q = sb->param_types;
    for (; p != nullptr && q != nullptr; p = p->next, q = q->next) {
      note_parts(&composite, composite_type(p->type, q->type), p->type, q->type);
      if (q->has_default_arg && !p->has_default_arg) composite.a_serves = false;
      if (p->has_default_arg && !q->has_default_arg) composite.b_serves = false;
    }
  }
  if (composite.a_serves && !has_more_function_marks(sa, sb)) return a;
  if (composite.b_serves && !has_more_function_marks(sb, sa)) return b;
  return b_wins ? built_routine_composite(rb, ra, composite.return_type)
                : built_routine_composite(ra, rb, composite.return_type);
}

}  // namespace

a_type *composite_type(a_type *a, a_type *b) {
  if (a == b) return a;
  a_type *pa = skip_typerefs(a), *pb = skip_typerefs(b);
  if (pa == pb || pa->kind != pb->kind) return a;
  switch (pa->kind) {
    case tk_pointer:
      return composite_pointer(a, b);
    case tk_array:
      return composite_array(a, b);
    case tk_routine:
      return composite_routine(a, b);
    default:
      return a;
  }
}
