// Text of types.
//
// A declared type has a part in front of the place of its name and a part behind it:
//
//     int (*(*x)[3])(char)      "int (*(*"   x   ")[3])(char)"
//
// Both parts walk from the outside of the type to its inside. The first part prints on the way
// back, so that what is innermost comes first; an array or function that a pointer leads to opens a
// parenthesis there, and closes it in the second part.
#include "il/il_to_str.h"

#include <cstdio>
#include <cstring>

#include "driver/switches.h"
#include "il/il.h"
#include "il/il_to_str_internal.h"
#include "semantics/target.h"
#include "semantics/types.h"

using a_block = an_il_to_str_output_control_block;

void clear_il_to_str_output_control_block(an_il_to_str_output_control_block *block) {
  std::memset(static_cast<void *>(block), 0, sizeof *block);
}

void il_to_str_one_time_init() {}
void il_to_str_init() {}

// ---- Qualifiers --------------------------------------------------------------------------------

void form_type_qualifier(a_type_qualifier_set qualifiers, bool, bool trailing_blank,
                         an_il_to_str_output_control_block *block) {
  if (block->suppress_qualifiers_and_suffixes) return;
  struct a_qualifier_word {
    a_type_qualifier_set bit;
    const char *word;
  };
  const bool source = block->c_source_output;
  const a_qualifier_word words[] = {{tq_atomic, "_Atomic"},
                                    {tq_const, "const"},
                                    {tq_volatile, "volatile"},
                                    {tq_restrict, source     ? nullptr
                                                  : gnu_mode ? "__restrict__"
                                                             : "restrict"},
                                    {tq_nullable, source ? nullptr : "_Nullable"},
                                    {tq_nonnull, source ? nullptr : "_Nonnull"},
                                    {tq_null_unspecified, source ? nullptr : "_Null_unspecified"}};
  bool any = false;
  for (const a_qualifier_word &q : words) {
    if ((qualifiers & q.bit) == 0 || q.word == nullptr) continue;
    if (any) put_text(" ", block);
    put_text(q.word, block);
    any = true;
  }
  if (any && trailing_blank) put_text(" ", block);
}

// ---- Typedefs ----------------------------------------------------------------------------------

namespace {

bool typedef_is_shown(a_type *type, a_block *block) {
  if (type->name == nullptr) return false;
  if (block->skip_typedef != nullptr) return !block->skip_typedef(type, block);
  if (block->no_typedef_names) return false;
  return !(block->no_local_typedef_names && type->enclosing_routine != nullptr);
}

bool is_decltype_typeref(const a_type *type) {
  return (type->qualifiers & (typeref_is_decltype | typeref_is_decltype_auto_placeholder |
                              typeref_is_auto_placeholder)) != 0;
}

// Steps over the typerefs that are not shown, gathering their qualifiers.
a_type *skip_unshown_typerefs(a_type *type, a_type_qualifier_set *qualifiers, a_block *block) {
  while (type != nullptr && type->kind == tk_typeref) {
    if (typedef_is_shown(type, block)) break;
    if (is_decltype_typeref(type) && !block->no_decltype_forms) break;
    *qualifiers |= type->qualifiers & tq_mask;
    type = type->referenced_type;
  }
  return type;
}

// Parts of a type that come behind the name.
bool has_second_part(const a_type *type) {
  return type != nullptr && (type->kind == tk_array || type->kind == tk_routine);
}

// ---- Specifiers --------------------------------------------------------------------------------

const char *name_of_keyword_type(const a_type *type) {
  if (type->is_bool) return in_cplusplus() ? "bool" : "_Bool";
  if (type->is_wchar_t) return "wchar_t";
  if (type->is_char16_t) return "char16_t";
  if (type->is_char32_t) return "char32_t";
  return nullptr;
}

void form_tagged_type(const a_type *type, const char *keyword, a_block *block) {
  if (!is_cplusplus_il()) {
    put_text(keyword, block);
    put_text(" ", block);
  }
  form_name(type, iek_type, block);
}

void form_integer_specifier(a_type *type, a_block *block) {
  const char *keyword_name = name_of_keyword_type(type);
  if (type->is_enum)
    form_tagged_type(type, "enum", block);
  else
    put_text(keyword_name != nullptr ? keyword_name : int_type_name(type), block);
}

void form_class_specifier(a_type *type, a_block *block) {
  const char *keyword = type->kind == tk_class    ? "class"
                        : type->kind == tk_struct ? "struct"
                                                  : "union";
  form_tagged_type(type, keyword, block);
}

void form_floating_specifier(a_type *type, a_block *block) {
  put_text(float_kind_name(type->float_kind), block);
  if (type->kind == tk_complex)
    put_text(gnu_mode && in_cplusplus() ? " __complex__" : " _Complex", block);
  else if (type->kind == tk_imaginary)
    put_text(" _Imaginary", block);
}

void form_decltype(a_type *type, a_block *block) {
  if ((type->qualifiers & typeref_is_decltype_auto_placeholder) != 0) {
    put_text("decltype(auto)", block);
    return;
  }
  if ((type->qualifiers & typeref_is_auto_placeholder) != 0) {
    put_text("auto", block);
    return;
  }
  put_text(in_cplusplus() ? "decltype(" : "__typeof__(", block);
  an_expr_node *operand = decltype_arg(type);
  if (operand != nullptr && block->form_expr != nullptr)
    block->form_expr(operand, block);
  else
    put_text("<expr>", block);
  put_text(")", block);
}

void form_template_param_specifier(a_type *type, a_block *block) {
  const a_template_param_type_supplement *supplement = type->template_param_supplement;
  if (type->name != nullptr)
    form_unqualified_name(type, iek_type, block);
  else
    put_text(supplement->kind == auto_decltype ? "decltype(auto)" : "auto", block);
}

void form_nullptr_specifier(a_block *block) {
  put_text(gpp_mode ? "decltype(nullptr)" : "std::nullptr_t", block);
}

void form_specifier(a_type *type, a_block *block) {
  switch (type->kind) {
    case tk_error:
      put_text("<error-type>", block);
      break;
    case tk_void:
      put_text("void", block);
      break;
    case tk_integer:
      form_integer_specifier(type, block);
      break;
    case tk_float:
    case tk_imaginary:
    case tk_complex:
      form_floating_specifier(type, block);
      break;
    case tk_class:
    case tk_struct:
    case tk_union:
      form_class_specifier(type, block);
      break;
    case tk_typeref:
      if (typedef_is_shown(type, block))
        form_name(type, iek_type, block);
      else
        form_decltype(type, block);
      break;
    case tk_template_param:
      form_template_param_specifier(type, block);
      break;
    case tk_nullptr:
      form_nullptr_specifier(block);
      break;
    case tk_unknown:
      put_text("<unknown-type>", block);
      break;
    default:
      put_text("**BAD-TYPE-KIND**", block);
      break;
  }
}

// ---- First parts -------------------------------------------------------------------------------

const char *pointer_sign(const a_type *type, const a_block *block) {
  if (!type->is_reference || block->no_decltype_forms) return "*";
  return type->is_rvalue_reference ? "&&" : "&";
}

void form_pointer_first_part(a_type *type, bool separator_needed, a_type_qualifier_set qualifiers,
                             int flags, a_block *block) {
  form_type_first_part(type->pointed_to, true, true, tq_none, flags, block);
  put_text(pointer_sign(type, block), block);
  form_type_qualifier(qualifiers, false, separator_needed, block);
}

void form_routine_first_part(a_type *type, bool parenthesize, int flags, a_block *block) {
  if (type->routine_supplement->has_trailing_return)
    put_text("auto ", block);
  else
    form_type_first_part(type->return_type, false, true, tq_none, flags, block);
  if (type->routine_supplement->calling_convention == 1)
    put_text("__attribute__((call_conv(\"cc_rom\"))) ", block);
  if (parenthesize) put_text("(", block);
}

void form_member_pointer_first_part(a_type *type, bool separator_needed,
                                    a_type_qualifier_set qualifiers, int flags, a_block *block) {
  a_type_qualifier_set ignored = tq_none;
  const a_type *member = skip_unshown_typerefs(type->member_type, &ignored, block);
  form_type_first_part(type->member_type, false, true, tq_none, flags, block);
  if (has_second_part(member)) put_text("(", block);
  form_class_or_namespace_qualifier(true, type->member_class, block);
  put_text("*", block);
  form_type_qualifier(qualifiers, false, separator_needed, block);
}

}  // namespace

void form_type_first_part(a_type *type, bool parenthesize, bool separator_needed,
                          a_type_qualifier_set extra_qualifiers, int flags,
                          an_il_to_str_output_control_block *block) {
  a_type_qualifier_set qualifiers = extra_qualifiers;
  type = skip_unshown_typerefs(type, &qualifiers, block);
  if (type == nullptr) {
    put_text("<something>", block);
    return;
  }
  switch (type->kind) {
    case tk_pointer:
      form_pointer_first_part(type, separator_needed, qualifiers, flags, block);
      return;
    case tk_routine:
      form_routine_first_part(type, parenthesize, flags, block);
      return;
    case tk_array:
      form_type_first_part(type->element_type, false, true, qualifiers, flags, block);
      if (parenthesize) put_text("(", block);
      return;
    case tk_ptr_to_member:
      form_member_pointer_first_part(type, separator_needed, qualifiers, flags, block);
      return;
    case tk_typeref:
      qualifiers |= type->qualifiers & tq_mask & (type->name == nullptr ? tq_mask : tq_none);
      break;
    default:
      break;
  }
  form_type_qualifier(qualifiers, false, true, block);
  form_specifier(type, block);
  if (separator_needed) put_text(" ", block);
}

// ---- Second parts ------------------------------------------------------------------------------

namespace {

void form_array_bound(a_type *type, a_block *block) {
  if (type->bound_is_unknown || (type->bound_is_constant && type->bound_is_expr)) return;
  if (type->bound_is_constant) {
    form_constant(type->bound_constant, false, block);
  } else if (type->bound_is_expr) {
    if (block->form_expr != nullptr && type->bound_expr != nullptr)
      block->form_expr(type->bound_expr, block);
    else
      put_text("<expr>", block);
  } else if (type->is_star_bound) {
    put_text("*", block);
  } else if (type->is_vla) {
    put_text("<expr>", block);
  } else if (type->number_of_elements != 0 || type->zero_bound) {
    put_unsigned(type->number_of_elements, block);
  }
}

void form_trailing_return_type(a_type *type, a_block *block) {
  if (!type->routine_supplement->has_trailing_return) {
    form_type_second_part(type->return_type, false, false, block);
    return;
  }
  put_text(" -> ", block);
  form_type(type->return_type, block);
}

}  // namespace

void form_type_second_part(a_type *type, bool parenthesize, bool after_name,
                           an_il_to_str_output_control_block *block) {
  a_type_qualifier_set ignored = tq_none;
  type = skip_unshown_typerefs(type, &ignored, block);
  if (type == nullptr) return;
  switch (type->kind) {
    case tk_pointer:
      form_type_second_part(type->pointed_to, true, after_name, block);
      break;
    case tk_array:
      if (parenthesize) put_text(")", block);
      put_text("[", block);
      form_array_bound(type, block);
      put_text("]", block);
      form_type_second_part(type->element_type, false, after_name, block);
      break;
    case tk_routine:
      if (parenthesize) put_text(")", block);
      if (block->form_function_declarator_override != nullptr)
        block->form_function_declarator_override(type, block);
      else
        form_function_declarator(type, block);
      form_trailing_return_type(type, block);
      break;
    case tk_ptr_to_member: {
      a_type *member = skip_unshown_typerefs(type->member_type, &ignored, block);
      form_type_second_part(member, has_second_part(member), after_name, block);
      break;
    }
    default:
      break;
  }
}

void form_type(a_type *type, an_il_to_str_output_control_block *block) {
  form_type_first_part(type, false, false, tq_none, 0, block);
  form_type_second_part(type, false, false, block);
}

// ---- Parameter lists ---------------------------------------------------------------------------

namespace {

bool param_is_left_out(const a_param_type *param, const a_block *block) {
  return block->omit_defaulted_params && param->has_default_arg && param->name == nullptr;
}

void form_param_list(const a_routine_type_supplement *supplement, a_block *block) {
  bool any = false;
  for (a_param_type *param = supplement->param_types; param != nullptr; param = param->next) {
    if (param_is_left_out(param, block)) continue;
    if (any) put_text(", ", block);
    any = true;
    if (param->is_ellipsis_marker) {
      put_text("...", block);
      continue;
    }
    form_type(param->type, block);
    if (param->is_pack_expansion) put_text("...", block);
  }
  if (supplement->has_ellipsis)
    put_text(any ? ", ..." : "...", block);
  else if (!any && supplement->prototyped && !is_cplusplus_il())
    put_text("void", block);
}

void form_exception_specification(const an_exception_specification *spec, a_block *block) {
  if (spec == nullptr || spec->is_deferred) return;
  if (spec->is_noexcept_form) {
    put_text(" noexcept", block);
    if (!spec->noexcept_arg_is_constant || spec->noexcept_arg == nullptr) return;
    put_text("(", block);
    form_constant(spec->noexcept_arg, false, block);
    put_text(")", block);
    return;
  }
  put_text(" throw(", block);
  if (spec->throws_anything) {
    put_text("...", block);
  } else {
    for (const an_exception_specification_type *e = spec->first_type; e != nullptr; e = e->next) {
      form_type(e->type, block);
      if (e->is_pack_expansion) put_text("...", block);
      if (e->next != nullptr) put_text(", ", block);
    }
  }
  put_text(")", block);
}

}  // namespace

void form_function_declarator(a_type *type, an_il_to_str_output_control_block *block) {
  const a_routine_type_supplement *supplement = type->routine_supplement;
  put_text("(", block);
  if (supplement->prototyped || (is_cplusplus_il() && !block->c_source_output))
    form_param_list(supplement, block);
  put_text(")", block);
  if (!block->c_source_output && is_cplusplus_il() && supplement->name_linkage == nlk_external_c) {
    put_text(" ", block);
    put_text(name_linkage_kind_names[supplement->name_linkage], block);
  }
  if (supplement->this_qualifiers != 0) {
    put_text(" ", block);
    form_type_qualifier(supplement->this_qualifiers, false, false, block);
  }
  if (supplement->ref_qualifier == rq_lvalue) put_text(" &", block);
  if (supplement->ref_qualifier == rq_rvalue) put_text(" &&", block);
  form_exception_specification(supplement->exception_spec, block);
}

// ---- Names of kinds ----------------------------------------------------------------------------

const char *int_kind_name_full(an_integer_kind kind, bool signed_mark) {
  if (kind == plain_char_int_kind) kind = ik_char;
  if (!signed_mark) return int_kind_name(kind);
  switch (kind) {
    case ik_char:
    case ik_signed_char:
      return "signed char";
    case ik_short:
      return "signed short";
    case ik_int:
      return "signed int";
    case ik_long:
      return "signed long";
    case ik_long_long:
      return "signed long long";
    default:
      return int_kind_name(kind);
  }
}

// Messages show "signed int" as int: they are one type.
const char *int_type_name(const a_type *type) {
  return int_kind_name_full(type->int_kind, false);
}

an_expr_node *decltype_arg(a_type *type) {
  if (type->typeref_supplement == nullptr) return nullptr;
  if (type->typeref_supplement->typeof_expr != nullptr)
    return type->typeref_supplement->typeof_expr;
  if (type->enclosing_routine == nullptr) return nullptr;
  a_scope *scope = scope_for_routine(type->enclosing_routine);
  return scope == nullptr ? nullptr : find_local_expr_node_in_scope(type, ler_type_decltype, scope);
}
