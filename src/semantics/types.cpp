// What a type is, what its parts are, and how large it is. Every question steps through typerefs
// first; an error type answers no to all of them.
#include "semantics/types.h"

#include "DIAG/error.h"
#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "semantics/layout.h"
#include "semantics/target.h"

a_float_kind float_kind_for_float80 = fk_float80;
a_float_kind float_kind_for_float128 = fk_float128;

// ---- Stepping through typerefs -----------------------------------------------------------------

namespace {

// Goes on as long as the typeref at hand may be stepped over.
template <typename MAY_SKIP>
a_type *skip_while(a_type *type, MAY_SKIP may_skip) {
  while (type->kind == tk_typeref && may_skip(type))
    type = type->referenced_type;
  return type;
}

bool has_qualifiers(const a_type *typeref) {
  return (typeref->qualifiers & tq_mask) != 0;
}

bool is_decltype(const a_type *typeref) {
  return (typeref->qualifiers & typeref_is_decltype) != 0;
}

// typedef t0 t1;  typedef t1 t2;  ...   Beyond this many the typerefs remember where they lead.
constexpr int long_chain = 8;

// Fills chain_end and chain_qualifiers of a typeref, and of some behind it, so that no walk from
// any of them is long again.
const a_typeref_supplement *remembered_chain(const a_type *typeref) {
  constexpr int steps_between = 64;
  a_typeref_supplement *chain = typeref->typeref_supplement;
  if (chain->chain_end != nullptr) return chain;
  a_type *end = typeref->referenced_type;
  unsigned qualifiers = typeref->qualifiers & tq_mask;
  for (int steps = 1; end->kind == tk_typeref; end = end->referenced_type, ++steps) {
    if (steps >= steps_between || end->typeref_supplement->chain_end != nullptr) {
      const a_typeref_supplement *rest = remembered_chain(end);
      qualifiers |= rest->chain_qualifiers;
      end = rest->chain_end;
      break;
    }
    qualifiers |= end->qualifiers & tq_mask;
  }
  chain->chain_end = end;
  chain->chain_qualifiers = qualifiers;
  return chain;
}

}  // namespace

a_type *f_skip_typerefs(a_type *type) {
  for (int steps = 0; type->kind == tk_typeref; type = type->referenced_type)
    if (++steps > long_chain) return remembered_chain(type)->chain_end;
  return type;
}

a_type *skip_typedefs(a_type *type) {
  return skip_while(type, [](const a_type *t) { return !has_qualifiers(t); });
}

a_type *skip_typerefs_not_typedefs(a_type *type) {
  return skip_while(type, [](const a_type *t) { return !is_typedef(t); });
}

a_type *skip_typerefs_not_dependent_decltypes(a_type *type) {
  return skip_while(type, [](const a_type *t) { return !is_decltype(t); });
}

a_type *skip_typerefs_not_parameterized_decltypes(a_type *type) {
  return skip_while(type, [](a_type *t) {
    return !(in_cplusplus() && is_decltype(t) && is_template_dependent_type(t));
  });
}

a_type *skip_typedefs_not_dependent_decltypes(a_type *type) {
  return skip_while(type, [](const a_type *t) { return !has_qualifiers(t) && !is_decltype(t); });
}

bool is_typedef(const a_type *type) {
  return type->kind == tk_typeref && type->name != nullptr;
}

// ---- Arithmetic types --------------------------------------------------------------------------

namespace {

bool is_special_integer(const a_type *t) {  // an enum or a wide keyword type
  return t->is_enum || t->is_wchar_t || t->is_char16_t || t->is_char32_t;
}

bool is_integer_of_kind(const a_type *t, an_integer_kind kind) {
  return t->kind == tk_integer && t->int_kind == kind && !is_special_integer(t) && !t->is_bool;
}

}  // namespace

bool is_integral_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_integer && (!type->is_enum || enum_type_is_integral);
}

bool is_signed_integral_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_integer && int_kind_is_signed[type->int_kind] != 0;
}

bool is_character_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_integer && type->int_kind <= ik_unsigned_char && !type->is_bool &&
         !is_special_integer(type);
}

bool is_plain_char_type(const a_type *type) {
  return is_character_type(type) && skip_typerefs(type)->int_kind == plain_char_int_kind;
}

bool is_wchar_t_type(const a_type *type) {
  type = skip_typerefs(type);
  if (in_cplusplus() && wchar_t_is_keyword) return type->kind == tk_integer && type->is_wchar_t;
  return is_integer_of_kind(type, targ_wchar_t_int_kind);
}

bool is_char16_t_type(const a_type *type) {
  type = skip_typerefs(type);
  if (in_cplusplus() && char16_t_and_char32_t_are_keywords)
    return type->kind == tk_integer && type->is_char16_t;
  return is_integer_of_kind(type, targ_char16_t_int_kind);
}

bool is_char32_t_type(const a_type *type) {
  type = skip_typerefs(type);
  if (in_cplusplus() && char16_t_and_char32_t_are_keywords)
    return type->kind == tk_integer && type->is_char32_t;
  return is_integer_of_kind(type, targ_char32_t_int_kind);
}

bool is_float_floating_type(const a_type *type) {
  return is_floating_type(type) && skip_typerefs(type)->float_kind == fk_float;
}

bool is_double_floating_type(const a_type *type) {
  return is_floating_type(type) && skip_typerefs(type)->float_kind == fk_double;
}

bool is_arithmetic_type(const a_type *type) {
  type = skip_typerefs(type);
  if (type->kind == tk_integer) return !type->is_enum || !in_cplusplus();
  return is_floating_type(type);
}

bool is_arithmetic_or_enum_type(const a_type *type) {
  return is_integral_or_enum_type(type) || is_floating_type(type);
}

bool is_arithmetic_or_unscoped_enum_type(const a_type *type) {
  return is_integral_or_unscoped_enum_type(type) || is_floating_type(type);
}

bool is_scalar_type(const a_type *type) {
  type = skip_typerefs(type);
  switch (type->kind) {
    case tk_integer:
    case tk_float:
    case tk_imaginary:
    case tk_complex:
    case tk_ptr_to_member:
    case tk_nullptr:
      return true;
    case tk_pointer:
      return !type->is_reference;
    default:
      return false;
  }
}

bool is_ptrdiff_t_type(const a_type *type) {
  return is_integer_of_kind(skip_typerefs(type), targ_ptrdiff_t_int_kind);
}

bool is_size_t_type(const a_type *type) {
  return is_integer_of_kind(skip_typerefs(type), targ_size_t_int_kind);
}

// ---- Complete and incomplete -------------------------------------------------------------------

bool is_incomplete_array_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_array && !type->bound_is_constant && !type->bound_is_expr &&
         !type->is_vla && !type->has_vla_dimension && !type->zero_bound &&
         type->number_of_elements == 0;
}

bool is_flexible_array_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_array && !type->bound_is_constant && !type->bound_is_expr &&
         !type->is_vla && type->number_of_elements == 0 && (!type->zero_bound || gpp_mode);
}

bool is_incomplete_type(const a_type *type) {
  type = skip_typerefs(type);
  if (type->kind == tk_array)
    return is_incomplete_array_type(type) || is_incomplete_type(type->element_type);
  return type->is_incomplete && type->kind != tk_error;
}

bool is_object_type(const a_type *type) {
  type = skip_typerefs(type);
  if (type->kind == tk_error || type->kind == tk_routine) return false;
  if (!in_cplusplus()) return !is_incomplete_type(type);
  return type->kind != tk_void && !is_any_reference_type(type);
}

bool is_complete_object_type(const a_type *type) {
  return is_object_type(type) && !is_incomplete_type(type);
}

// ---- Pointers ----------------------------------------------------------------------------------

bool is_void_star_type(const a_type *type) {
  return is_pointer_type(type) && get_type_qualifiers(type_pointed_to(type)) == 0 &&
         is_void_type(type_pointed_to(type));
}

bool is_pointer_to_void_type(const a_type *type) {
  return is_pointer_type(type) && is_void_type(type_pointed_to(type));
}

bool is_pointer_to_function_type(const a_type *type) {
  return is_pointer_type(type) && is_function_type(type_pointed_to(type));
}

bool is_pointer_to_object_type(const a_type *type) {
  if (!is_pointer_type(type)) return false;
  const a_type *target = skip_typerefs(type_pointed_to(type));
  return target->kind != tk_void && target->kind != tk_routine && target->kind != tk_error;
}

bool is_lhsref_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_pointer && type->lhsref_kind != 0;
}

// ---- Arrays ------------------------------------------------------------------------------------

bool is_vla_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_array && type->is_vla;
}

bool is_variably_modified_type(a_type *type) {
  if (!il_header.any_vla_type) return false;
  return traverse_type_tree(
      type,
      [](a_type *t, bool *) {
        return is_vla_type(t) || (t->kind == tk_array && t->has_vla_dimension);
      },
      ttf_routine_parts);
}

namespace {

const a_type *element_of_array(const a_type *type) {  // null: no array
  type = skip_typerefs(type);
  return type->kind == tk_array ? type->element_type : nullptr;
}

}  // namespace

bool is_char_array_type(const a_type *type) {
  const a_type *element = element_of_array(type);
  return element != nullptr && is_character_type(element);
}

bool is_wchar_t_array_type(const a_type *type) {
  const a_type *element = element_of_array(type);
  return element != nullptr && is_wchar_t_type(element);
}

bool is_char16_t_array_type(const a_type *type) {
  const a_type *element = element_of_array(type);
  return element != nullptr && is_char16_t_type(element);
}

bool is_char32_t_array_type(const a_type *type) {
  const a_type *element = element_of_array(type);
  return element != nullptr && is_char32_t_type(element);
}

bool is_string_type(const a_type *type) {
  return is_char_array_type(type) || is_wchar_t_array_type(type) || is_char16_t_array_type(type) ||
         is_char32_t_array_type(type);
}

bool may_be_string_type(const a_type *type, a_string_char_kind *char_kind) {
  if (is_char_array_type(type))
    *char_kind = chk_char;
  else if (is_wchar_t_array_type(type))
    *char_kind = chk_wchar_t;
  else if (is_char16_t_array_type(type))
    *char_kind = chk_char16_t;
  else if (is_char32_t_array_type(type))
    *char_kind = chk_char32_t;
  else
    return false;
  return true;
}

// ---- Classes -----------------------------------------------------------------------------------

bool is_real_class_type(const a_type *type) {
  type = skip_typerefs(type);
  return is_class_struct_type(type) && !type->is_vector_struct;
}

bool is_transparent_union_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_union && type->class_flags.is_transparent_union;
}

bool is_aggregate_type(const a_type *type) {
  type = skip_typerefs(type);
  if (type->kind == tk_array) return true;
  if (!is_class_struct_type(type)) return false;
  return !in_cplusplus() || type->class_flags.is_aggregate;
}

bool is_aggregate_or_union_type(const a_type *type) {
  return is_aggregate_type(type) || is_union_type(type);
}

bool is_template_class_type(const a_type *type) {
  type = skip_typerefs(type);
  return is_class_kind(type->kind) && type->class_flags.is_template_instance;
}

bool is_polymorphic_class_type(const a_type *type) {
  type = skip_typerefs(type);
  return is_class_kind(type->kind) && type->class_flags.is_polymorphic;
}

bool is_abstract_class_type(const a_type *type) {
  type = skip_typerefs(type);
  return is_class_kind(type->kind) && type->class_flags.is_abstract;
}

bool is_std_initializer_list_type(const a_type *type) {
  type = skip_typerefs(type);
  return is_class_kind(type->kind) && type->class_flags.is_std_initializer_list;
}

a_type *scalar_csu(a_type *type) {
  if (!scalar_replacement) return nullptr;
  type = f_skip_typerefs(type);
  if (!is_class_struct_union_type(type) || type->is_incomplete) return nullptr;
  a_field *field = type->fields;
  if (type->kind == tk_union || field == nullptr || field->next != nullptr || field->is_bit_field)
    return nullptr;
  a_type *field_type = f_skip_typerefs(field->type);
  bool scalar = field_type->kind == tk_integer || field_type->kind == tk_float;
  return scalar && field_type->size == type->size && field_type->alignment == type->alignment
             ? field->type
             : nullptr;
}

bool is_passed_by_ref_type(const a_type *type) {
  if (is_eabi || !is_class_struct_union_type(type)) return false;
  return scalar_csu(skip_typerefs(const_cast<a_type *>(type))) == nullptr;
}

// ---- Template parameters -----------------------------------------------------------------------

bool is_unknown_template_param_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_template_param && type->template_param_kind == 2;
}

bool is_auto_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_template_param && type->template_param_supplement->kind != auto_none;
}

bool is_template_dependent_type(const a_type *type) {
  return in_cplusplus() && is_or_contains_template_param(const_cast<a_type *>(type));
}

// ---- Parts of types ----------------------------------------------------------------------------

a_type *type_pointed_to(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_pointer ? type->pointed_to : error_type();
}

a_type *array_element_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_array ? type->element_type : error_type();
}

a_type *underlying_array_element_type(a_type *type) {
  for (;;) {
    a_type *bottom = skip_typerefs(type);
    if (bottom->kind != tk_array) return type;
    type = bottom->element_type;
  }
}

std::uint64_t num_array_elements(const a_type *type) {
  std::uint64_t count = 1;
  for (type = skip_typerefs(type); type->kind == tk_array;
       type = skip_typerefs(type->element_type)) {
    if (type->bound_is_constant || type->bound_is_expr) return 0;
    count *= type->number_of_elements;
  }
  return count;
}

a_type *pm_member_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_ptr_to_member ? type->member_type : error_type();
}

a_type *pm_class_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_ptr_to_member ? type->member_class : error_type();
}

a_type *return_type_of(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_routine ? type->return_type : error_type();
}

bool routine_type_is_prototyped(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_routine && type->routine_supplement->prototyped;
}

a_param_type *param_types_of(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_routine ? type->routine_supplement->param_types : nullptr;
}

a_type *f_underlying_type_of_derived_type(a_type *type, bool *known) {
  *known = true;
  switch (type->kind) {
    case tk_pointer:
      return type->pointed_to;
    case tk_routine:
      return type->return_type;
    case tk_array:
      return type->element_type;
    case tk_ptr_to_member:
      return type->member_type;
    case tk_typeref:
      return is_typedef(type) ? nullptr : type->referenced_type;
    default:
      *known = false;
      return nullptr;
  }
}

a_type *find_bottom_of_type(a_type *type) {
  for (;;) {
    bool known;
    a_type *inner = f_underlying_type_of_derived_type(skip_typerefs(type), &known);
    if (inner == nullptr) return skip_typerefs(type);
    type = inner;
  }
}

a_type *type_specifier_of_type(a_type *type) {
  for (;;) {
    bool known;
    a_type *derived = skip_typerefs_not_typedefs(type);
    if (is_typedef(derived)) return type;
    a_type *inner = f_underlying_type_of_derived_type(derived, &known);
    if (inner == nullptr) return type;
    type = inner;
  }
}

std::uint32_t f_alignment_of_type(const a_type *type) {
  while (type->kind == tk_typeref && !type->explicit_alignment)
    type = type->referenced_type;
  return type->alignment;
}

a_type *underlying_enum_type(const a_type *type) {
  type = skip_typerefs(type);
  return type->kind == tk_integer ? integer_type(type->int_kind) : error_type();
}

unsigned f_get_type_qualifiers(const a_type *type, bool c_rules) {
  unsigned qualifiers = 0;
  for (int steps = 0;; ++steps) {
    if (type->kind == tk_typeref && steps >= long_chain) {
      const a_typeref_supplement *chain = remembered_chain(type);
      qualifiers |= chain->chain_qualifiers;
      type = chain->chain_end;
      steps = 0;
    } else if (type->kind == tk_typeref) {
      qualifiers |= type->qualifiers & tq_mask;
      type = type->referenced_type;
    } else if (type->kind == tk_array && !c_rules) {
      type = type->element_type;
    } else {
      return qualifiers;
    }
  }
}

bool f_any_qualifier_missing(const a_type *from, const a_type *to) {
  unsigned had = get_type_qualifiers(from) & ~unsigned{tq_nullability};
  return (had & ~get_type_qualifiers(to)) != 0;
}

// ---- Sizes -------------------------------------------------------------------------------------

namespace {

// An enum keeps an alignment that was asked for unless it is below the natural one.
void set_integer_size(a_type *type) {
  std::uint32_t alignment;
  get_integer_size_and_alignment(type->int_kind, &type->size, &type->precision, &alignment);
  if (type->is_bool) type->precision = 1;
  if (type->is_enum && type->explicit_alignment) {
    if (type->alignment >= alignment) return;
    if (!gnu_mode || clang_mode)
      pos_diagnostic(es_discretionary_error, ec_invalid_alignment_reducing_attr,
                     &type->decl_position);
  }
  type->alignment = alignment;
}

void set_float_size(a_type *type) {
  get_float_size_and_alignment(type->float_kind, &type->size, &type->alignment);
  if (type->kind == tk_complex) type->size *= 2;
}

void set_ptr_to_member_size(a_type *type) {
  bool is_function = is_function_type(type->member_type);
  type->size = static_cast<std::uint64_t>(is_function ? targ_sizeof_ptr_to_member_function
                                                      : targ_sizeof_ptr_to_data_member);
  type->alignment = static_cast<std::uint32_t>(is_function ? targ_alignof_ptr_to_member_function
                                                           : targ_alignof_ptr_to_data_member);
}

}  // namespace

void set_type_size(a_type *type) {
  if (type->size != 0 || type->size_is_set) return;
  switch (type->kind) {
    case tk_error:
    case tk_template_param:
    case tk_unknown:
      type->size = 1;
      break;
    case tk_integer:
      set_integer_size(type);
      break;
    case tk_float:
    case tk_imaginary:
    case tk_complex:
      set_float_size(type);
      break;
    case tk_pointer:
      type->size = size_of_pointer_to(type->pointed_to, &type->alignment);
      break;
    case tk_nullptr:
      type->size = size_of_pointer_to(nullptr, &type->alignment);
      break;
    case tk_ptr_to_member:
      set_ptr_to_member_size(type);
      break;
    case tk_array:
      set_array_type_size(type, !is_incomplete_array_type(type));
      break;
    case tk_typeref:
      set_type_size(skip_typerefs(type));
      break;
    case tk_void:
    case tk_routine:
    case tk_class:
    case tk_struct:
    case tk_union:
    case tk_last:
      break;  // none, or set by the layout
  }
}

void set_array_type_size(a_type *type, bool bound_known) {
  a_type *element = skip_typerefs(type->element_type);
  set_type_size(element);
  type->alignment = f_alignment_of_type(type->element_type);
  if (!bound_known || type->bound_is_constant || type->bound_is_expr || type->is_vla) return;
  std::uint64_t count = type->number_of_elements;
  if (element->size != 0 && count > targ_size_t_max / element->size) {
    pos_error(ec_array_size_too_large, &error_position);
    type->size = 1;
    return;
  }
  type->size = element->size * count;
}

std::uint32_t alignment_of_variable(const a_variable *variable) {
  std::uint32_t alignment = f_alignment_of_type(variable->type);
  return variable->explicit_alignment > alignment ? variable->explicit_alignment : alignment;
}

// ---- Walking through a type --------------------------------------------------------------------

namespace {

bool traverse_parts(a_type *type, a_type_visitor visit, unsigned flags) {
  switch (type->kind) {
    case tk_pointer:
      return traverse_type_tree(type->pointed_to, visit, flags);
    case tk_array:
      return traverse_type_tree(type->element_type, visit, flags);
    case tk_ptr_to_member:
      return traverse_type_tree(type->member_type, visit, flags) ||
             traverse_type_tree(type->member_class, visit, flags);
    case tk_typeref:
      return traverse_type_tree(type->referenced_type, visit, flags);
    case tk_routine:
      if ((flags & ttf_routine_parts) == 0) return false;
      if (traverse_type_tree(type->return_type, visit, flags)) return true;
      for (a_param_type *p = type->routine_supplement->param_types; p != nullptr; p = p->next)
        if (traverse_type_tree(p->type, visit, flags)) return true;
      return false;
    case tk_class:
    case tk_struct:
    case tk_union:
      if ((flags & ttf_template_args) == 0) return false;
      for (a_template_arg *arg = type->class_supplement->template_args; arg != nullptr;
           arg = arg->next)
        if (arg->kind == tak_type && arg->payload.type != nullptr &&
            traverse_type_tree(arg->payload.type, visit, flags))
          return true;
      return false;
    default:
      return false;
  }
}

}  // namespace

bool traverse_type_tree(a_type *type, a_type_visitor visit, unsigned flags) {
  if (type == nullptr) return false;
  if ((flags & ttf_skip_typerefs) != 0) type = skip_typerefs(type);
  if ((flags & ttf_skip_unqualified_typerefs) != 0) type = skip_typedefs(type);
  bool go_inside = true;
  if (visit(type, &go_inside)) return true;
  if (!go_inside || ((flags & ttf_stop_at_typedefs) != 0 && is_typedef(type))) return false;
  return traverse_parts(type, visit, flags);
}

bool is_or_contains_error_type(a_type *type) {
  return traverse_type_tree(
      type, [](a_type *t, bool *) { return t->kind == tk_error; }, ttf_routine_parts);
}

bool is_or_contains_template_param(a_type *type) {
  return traverse_type_tree(
      type,
      [](a_type *t, bool *) {
        return t->kind == tk_template_param ||
               (is_class_kind(t->kind) && t->class_flags.is_nonreal);
      },
      ttf_routine_parts | ttf_template_args);
}

bool is_or_contains_local_type(a_type *type) {
  return traverse_type_tree(
      type,
      [](a_type *t, bool *) {
        return (is_class_kind(t->kind) && t->class_flags.is_local) ||
               (t->kind == tk_integer && t->is_enum && t->is_local_enum);
      },
      ttf_routine_parts | ttf_template_args);
}

bool is_or_contains_vla_type_with_unspecified_bound(a_type *type) {
  return traverse_type_tree(
      type, [](a_type *t, bool *) { return t->kind == tk_array && t->is_star_bound; },
      ttf_routine_parts);
}
