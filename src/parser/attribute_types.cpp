// Attributes that change types: alignment, packing, machine modes, transparent unions, and the
// properties of function types.
//
// Types are shared. What belongs to one declaration is changed in place (a class or enum being
// defined, a typedef's own record, a typeref made for the attributes); anything else is copied
// first.
#include <cstring>

#include "driver/switches.h"
#include "parser/attribute_internal.h"
#include "semantics/const_ints.h"
#include "semantics/layout.h"
#include "semantics/target.h"
#include "semantics/types.h"

namespace {

a_type *as_type(char *entity) {
  return reinterpret_cast<a_type *>(entity);
}

// ---- Alignment ---------------------------------------------------------------------------------

// The alignment that one argument asks for; 0: none. Reports, and drops the attribute then.
std::uint32_t alignment_of_argument(an_attribute *attribute, const an_attribute_arg *arg) {
  if (arg->kind == aak_type) {
    if (is_error_type(arg->type)) {
      drop_attribute(attribute);
      return 0;
    }
    bool is_function = is_function_type(arg->type);
    if (!is_function && !is_incomplete_type(arg->type)) return f_alignment_of_type(arg->type);
    pos_error(is_function ? ec_function_type_not_allowed : ec_incomplete_type_not_allowed,
              &arg->position);
    drop_attribute(attribute);
    return 0;
  }
  std::int64_t value;
  if (!integer_argument(arg, &value) || value < 0) {
    report_invalid_argument(attribute, arg);
    return 0;
  }
  if (value == 0) return 0;
  if (check_pack_alignment_value(value)) return static_cast<std::uint32_t>(value);
  pos_error(ec_bad_attribute_alignment, &arg->position);
  drop_attribute(attribute);
  return 0;
}

std::uint32_t strongest_alignment(an_attribute *attribute) {
  if (attribute->args == nullptr)
    return static_cast<std::uint32_t>(targ_maximum_intrinsic_alignment);
  std::uint32_t strongest = 0;
  for (const an_attribute_arg *arg = attribute->args; arg != nullptr; arg = arg->next) {
    std::uint32_t alignment = alignment_of_argument(attribute, arg);
    if (alignment > strongest) strongest = alignment;
  }
  return strongest;
}

const char *places_of_alignment(const an_attribute *attribute) {
  if (attribute->syntax == asx_alignas)
    return gpp_mode ? "c|e|t|v:-r!-h!|d:-b!" : "c|e|v:-r!-h!|d:-b!";
  return gnu_version >= 40300 ? "c|e|t|v:-r!|d|r" : "c|e|t|v:-r!|d";
}

// alignas may not ask for less than the type has.
bool is_alignas_reduction(an_attribute *attribute, const a_type *type, std::uint32_t alignment) {
  if (attribute->syntax != asx_alignas || is_incomplete_type(type) || is_error_type(type) ||
      alignment >= f_alignment_of_type(type))
    return false;
  pos_error(ec_invalid_alignment_reducing_attr, &attribute->position);
  drop_attribute(attribute);
  return true;
}

void align_field(a_field *field, std::uint32_t alignment) {
  std::uint32_t limit = current_pack_pragma_value();
  if (limit != 0 && limit < alignment) alignment = limit;
  if (alignment > field->explicit_alignment) field->explicit_alignment = alignment;
}

void align_type(an_attribute *attribute, a_type *type, std::uint32_t alignment) {
  if (attribute->syntax == asx_declspec && type->kind == tk_integer && type->is_enum) {
    pos_warning(ec_extended_modifier_ignored_on_enum, &attribute->position);
    drop_attribute(attribute);
    return;
  }
  if (type->explicit_alignment && type->alignment >= alignment) return;
  type->alignment = alignment;
  type->explicit_alignment = true;
}

}  // namespace

char *apply_align(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  if (attribute->syntax == asx_alignas && !in_cplusplus() && attribute->location != al_specifier &&
      attribute->location != al_decl_start) {
    pos_st_diagnostic(es_discretionary_error, ec_attribute_not_allowed, &attribute->position,
                      attribute->name);
    return nullptr;
  }
  if (!attribute_fits(attribute, entity, kind, places_of_alignment(attribute))) return entity;
  std::uint32_t alignment = strongest_alignment(attribute);
  if (alignment == 0 || attribute->kind == atk_none) return entity;
  const a_type *type = type_of_attributed(entity, kind);
  switch (kind) {
    case iek_variable: {
      auto *variable = reinterpret_cast<a_variable *>(entity);
      if (is_alignas_reduction(attribute, type, alignment)) break;
      if (alignment > variable->explicit_alignment) variable->explicit_alignment = alignment;
      break;
    }
    case iek_field:
      if (!is_alignas_reduction(attribute, type, alignment))
        align_field(reinterpret_cast<a_field *>(entity), alignment);
      break;
    case iek_routine: {
      // The type of a routine is its own, unless a typedef named it.
      auto *routine = reinterpret_cast<a_routine *>(entity);
      if (routine->type->kind == tk_typeref)
        routine->type = copy_routine_type_with_param_types(routine->type);
      align_type(attribute, routine->type, alignment);
      break;
    }
    case iek_type:
      align_type(attribute, as_type(entity), alignment);
      break;
    default:
      break;
  }
  return entity;
}

// ---- Packing -----------------------------------------------------------------------------------

bool packed_attribute_allowed_on_type(const a_type *type) {
  type = skip_typerefs(type);
  while (type->kind == tk_array)
    type = skip_typerefs(type->element_type);
  if (!is_class_kind(type->kind)) return is_aeabi || type->size < 5;
  for (const a_field *field = type->fields; field != nullptr; field = field->next)
    if (!packed_attribute_allowed_on_type(field->type)) return false;
  return true;
}

char *apply_packed(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  if (kind == iek_field) {
    auto *field = reinterpret_cast<a_field *>(entity);
    if (!packed_attribute_allowed_on_type(field->type)) {
      pos_sy_error(ec_attribute_does_not_apply, &attribute->position, field->symbol);
      return nullptr;
    }
    field->is_packed = true;
    return entity;
  }
  a_type *type = as_type(entity);
  if (is_class_kind(type->kind)) {
    if (type->class_flags.layout_done) {
      pos_ty_warning(ec_attribute_does_not_apply_to_type, &attribute->position, type);
      return nullptr;
    }
    type->is_packed = true;
    if (!type->explicit_alignment) type->alignment = 1;
  } else {
    type->is_small_enum = true;
  }
  return entity;
}

char *apply_unpacked(an_attribute *, char *entity, an_il_entry_kind) {
  a_type *type = as_type(entity);
  type->is_packed = false;
  if (type->kind == tk_integer) type->is_small_enum = false;
  return entity;
}

// ---- Machine modes -----------------------------------------------------------------------------

namespace {

struct a_mode_row {
  const char *name;
  int size;
  bool is_float;
};
const a_mode_row mode_rows[] = {
    {"QI", 1, false},
    {"HI", 2, false},
    {"SI", 4, false},
    {"DI", 8, false},
    {"TI", 16, false},
    {"SF", 4, true},
    {"DF", 8, true},
    {"XF", 12, true},
    {"TF", 16, true},
    {"byte", 1, false},
    {"word", 4, false},
    {"pointer", 4, false},
    {"unwind_word", 4, false},
    {"libgcc_cmp_return", 4, false},
    {"libgcc_shift_count", 4, false},
};

const a_mode_row *find_mode(const char *name) {
  std::size_t length = std::strlen(name);
  strip_underscores(&name, &length);
  for (const a_mode_row &row : mode_rows)
    if (std::strlen(row.name) == length && std::memcmp(row.name, name, length) == 0) return &row;
  return nullptr;
}

// The type of the mode that stands for a type; null after a message.
a_type *integer_type_of_mode(const an_attribute *attribute, const a_mode_row &mode,
                             const a_type *type) {
  an_integer_kind kind =
      int_kind_for_bit_size(mode.size * targ_char_bit, is_signed_integral_type(type));
  if (kind != ik_last) return integer_type(kind);
  pos_error(ec_no_type_of_specified_width, &attribute->position);
  return nullptr;
}

a_type *float_type_of_mode(const an_attribute *attribute, const a_mode_row &mode) {
  constexpr int num_plain_float_kinds = 5;
  for (int kind = 0; kind < num_plain_float_kinds; ++kind) {
    std::uint64_t size;
    std::uint32_t alignment;
    get_float_size_and_alignment(static_cast<a_float_kind>(kind), &size, &alignment);
    if (size == static_cast<std::uint64_t>(mode.size))
      return float_type(static_cast<a_float_kind>(kind));
  }
  pos_error(ec_no_type_of_specified_width, &attribute->position);
  return nullptr;
}

}  // namespace

// int x __attribute__((mode(DI)));    x is a 64-bit integer
char *apply_mode(an_attribute *attribute, char *entity, an_il_entry_kind) {
  a_type *type = as_type(entity);
  const a_mode_row *mode = find_mode(attribute->args->identifier);
  if (mode == nullptr) {
    report_invalid_argument(attribute, attribute->args);
    return entity;
  }
  if (is_enum_type(type)) {
    // The values of the enum are settled later, by rules that know no mode.
    report_attribute_not_supported(attribute);
    return entity;
  }
  bool fits = mode->is_float ? is_real_floating_type(type) : is_integral_or_enum_type(type);
  if (!fits) {
    pos_ty_error(ec_mode_incompatible_with_type, &attribute->position, type);
    return nullptr;
  }
  a_type *result = mode->is_float ? float_type_of_mode(attribute, *mode)
                                  : integer_type_of_mode(attribute, *mode, type);
  if (result == nullptr) return nullptr;
  return reinterpret_cast<char *>(make_qualified_type(result, get_type_qualifiers(type)));
}

// ---- Transparent unions ------------------------------------------------------------------------

bool check_transparent_union(a_type *type, const a_source_position *position) {
  const a_field *first = skip_typerefs(type)->fields;
  if (first == nullptr) return true;
  if (is_floating_type(first->type)) {
    pos_warning(ec_transparent_union_cannot_have_floating_first_field, position);
    return false;
  }
  if (first->is_bit_field && gnu_version >= 40000) {
    pos_warning(ec_transparent_union_cannot_have_bit_field_first, position);
    return false;
  }
  std::uint64_t size = skip_typerefs(first->type)->size;
  for (const a_field *field = first->next; field != nullptr; field = field->next) {
    if (skip_typerefs(field->type)->size == size) continue;
    pos_sy_warning(ec_union_cannot_be_transparent_sym, position, field->symbol);
    return false;
  }
  return true;
}

char *apply_transparent_union(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  a_type *type = skip_typerefs(type_of_attributed(entity, kind));
  if (type->kind != tk_union) {
    pos_warning(ec_transparent_type_is_not_union, &attribute->position);
    return nullptr;
  }
  // In front of the body there are no members to check yet.
  if (!check_transparent_union(type, &attribute->position)) return nullptr;
  if (kind == iek_param_type)
    reinterpret_cast<a_param_type *>(entity)->is_transparent_union = true;
  else
    type->class_flags.is_transparent_union = true;
  return entity;
}

char *apply_vector_type(an_attribute *, char *entity, an_il_entry_kind) {
  as_type(entity)->class_flags.is_vector_type = true;
  return entity;
}

// ---- Properties of function types --------------------------------------------------------------

namespace {

using a_routine_type_mark = void (*)(a_routine_type_supplement *supplement);

// The type with a mark set in the function type that it is or leads to (a pointer, an array of
// pointers); null: there is none.
a_type *type_with_marked_function(a_type *type, a_routine_type_mark mark) {
  switch (type->kind) {
    case tk_typeref: {
      a_type *inner = type_with_marked_function(type->referenced_type, mark);
      return inner == nullptr ? nullptr : make_qualified_type(inner, type->qualifiers & tq_mask);
    }
    case tk_pointer: {
      a_type *inner = type_with_marked_function(type->pointed_to, mark);
      return inner == nullptr ? nullptr : make_pointer_type_of_same_kind(inner, type);
    }
    case tk_array: {
      a_type *inner = type_with_marked_function(type->element_type, mark);
      return inner == nullptr ? nullptr : copy_array_type_replacing_element_type(type, inner);
    }
    case tk_routine: {
      a_type *copy = copy_routine_type_with_param_types(type);
      mark(copy->routine_supplement);
      return copy;
    }
    default:
      return nullptr;
  }
}

// Marks the routine itself, or the function type of another entity.
char *apply_function_mark(an_attribute *attribute, char *entity, an_il_entry_kind kind,
                          void (*mark_routine)(a_routine *routine), a_routine_type_mark mark_type) {
  if (kind == iek_routine) {
    mark_routine(reinterpret_cast<a_routine *>(entity));
    return entity;
  }
  a_type **slot = type_slot_of(entity, kind);
  a_type *marked = slot == nullptr ? nullptr : type_with_marked_function(*slot, mark_type);
  if (marked == nullptr) {
    if (slot == nullptr || !is_error_type(*slot))
      report_bad_attribute_target(es_warning, attribute);
    return entity;
  }
  *slot = marked;
  return entity;
}

}  // namespace

#define FUNCTION_MARK(name, routine_bit, type_bit)                                        \
  char *apply_##name(an_attribute *attribute, char *entity, an_il_entry_kind kind) {      \
    return apply_function_mark(                                                           \
        attribute, entity, kind, [](a_routine *routine) { routine->routine_bit = true; }, \
        [](a_routine_type_supplement *supplement) { supplement->type_bit = true; });      \
  }
FUNCTION_MARK(noreturn, is_noreturn, is_noreturn)
FUNCTION_MARK(const, is_const_function, is_const_function)
FUNCTION_MARK(pure, is_pure, is_pure)
FUNCTION_MARK(warn_unused_result, warn_unused_result, warn_unused_result)
#undef FUNCTION_MARK
