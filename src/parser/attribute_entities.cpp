// Attributes that act on routines, variables and other named entities.
#include <cstring>
#include <string_view>

#include "driver/switches.h"
#include "il/il_walk.h"
#include "parser/attribute_internal.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"
#include "target/qx_pragma.h"

namespace {

a_routine *as_routine(char *entity) {
  return reinterpret_cast<a_routine *>(entity);
}
a_variable *as_variable(char *entity) {
  return reinterpret_cast<a_variable *>(entity);
}

}  // namespace

// ---- Marks -------------------------------------------------------------------------------------

char *apply_routine_mark(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  // On anything but a routine these say nothing.
  if (kind != iek_routine) return entity;
  a_routine *routine = as_routine(entity);
  switch (attribute->kind) {
    case atk_always_inline:
      routine->is_always_inline = true;
      break;
    case atk_noinline:
      routine->is_never_inline = true;
      break;
    case atk_gnu_inline:
      routine->gnu_inline = true;
      break;
    case atk_cold:
      routine->is_cold = true;
      break;
    case atk_hot:
      routine->is_hot = true;
      break;
    case atk_malloc:
      routine->is_malloc = true;
      break;
    case atk_naked:
      routine->is_naked = true;
      break;
    case atk_ramfunc:
      routine->is_ramfunc = true;
      break;
    default:
      unexpected_state("an attribute that is no mark of a routine");
  }
  return entity;
}

char *apply_unused(an_attribute *, char *entity, an_il_entry_kind kind) {
  if (a_source_correspondence *head = source_corresp_for_il_entry(entity, kind))
    head->marked_as_unused = true;
  return entity;
}

char *apply_used(an_attribute *, char *entity, an_il_entry_kind kind) {
  if (kind == iek_routine)
    as_routine(entity)->never_removed = true;
  else if (kind == iek_variable)
    as_variable(entity)->never_removed = true;
  if (a_source_correspondence *head = source_corresp_for_il_entry(entity, kind)) {
    head->marked_as_used = true;
    mark_as_needed(entity, kind);
  }
  return entity;
}

char *apply_weak(an_attribute *, char *entity, an_il_entry_kind kind) {
  if (kind == iek_routine)
    as_routine(entity)->is_weak = true;
  else
    as_variable(entity)->is_weak = true;
  return entity;
}

// ---- Deprecation -------------------------------------------------------------------------------

char *apply_deprecated(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  a_source_correspondence *head = source_corresp_for_il_entry(entity, kind);
  if (kind == iek_type) {
    const auto *type = reinterpret_cast<const a_type *>(entity);
    bool is_named = is_class_kind(type->kind) || is_enum_type(type) || is_typedef(type);
    if (!is_named) {
      report_bad_attribute_target(es_warning, attribute);
      return entity;
    }
  }
  if (attribute->args != nullptr && attribute->syntax == asx_gnu && gnu_version < 40500) {
    report_invalid_argument(attribute, attribute->args);
    return entity;
  }
  if (head != nullptr) head->is_deprecated = true;
  return entity;
}

// ---- Sections and other names ------------------------------------------------------------------

char *apply_section(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  const char *name = string_argument(attribute->args);
  const a_section_specification *old = kind == iek_routine
                                           ? as_routine(entity)->section_specification
                                           : as_variable(entity)->section_specification;
  if (attribute->syntax == asx_declspec && old != nullptr && std::strcmp(old->name, name) != 0) {
    pos_sy_diagnostic(es_discretionary_error, ec_decl_modifiers_incompatible_with_previous_decl,
                      &attribute->position, symbol_of_attributed(entity, kind));
    return nullptr;
  }
  if (kind == iek_routine)
    set_routine_section_specification(as_routine(entity), sec_attribute_or_pragma, name,
                                      &attribute->position);
  else
    set_variable_section_specification(as_variable(entity), sec_attribute_or_pragma, name,
                                       &attribute->position);
  return entity;
}

char *apply_alias(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  a_symbol *symbol = symbol_of_attributed(entity, kind);
  bool defined = kind == iek_routine ? as_routine(entity)->defined
                                     : as_variable(entity)->init_kind != init_none;
  if (defined) {
    pos_sy_error(ec_already_defined, &attribute->position, symbol);
    return nullptr;
  }
  add_alias_fixup(symbol, string_argument(attribute->args), attribute, &attribute->position);
  return entity;
}

// error("text") and warning("text"): for calls that survive optimization.
char *apply_message(an_attribute *attribute, char *entity, an_il_entry_kind) {
  a_gnu_routine_supplement *supplement = alloc_gnu_supplement_for_routine(as_routine(entity));
  const char *text = string_argument(attribute->args);
  if (attribute->kind == atk_error)
    supplement->error_text = text;
  else
    supplement->warning_text = text;
  return entity;
}

char *apply_target(an_attribute *attribute, char *entity, an_il_entry_kind) {
  a_routine *routine = as_routine(entity);
  alloc_gnu_supplement_for_routine(routine)->target_text = attribute->args->identifier;
  report_attribute_not_supported(attribute);
  return entity;
}

char *apply_not_supported(an_attribute *attribute, char *entity, an_il_entry_kind) {
  report_attribute_not_supported(attribute);
  return entity;
}

// ---- Attributes with numbers -------------------------------------------------------------------

namespace {

// A priority from 1 to 65535; those up to 100 belong to the system.
bool check_priority(an_attribute *attribute, an_error_code reserved_code, std::uint32_t *priority) {
  std::int64_t value;
  if (attribute->args->kind != aak_constant || attribute->args->constant->kind != ck_integer) {
    pos_error(ec_exp_int_constant, &attribute->args->position);
    return false;
  }
  if (!integer_argument(attribute->args, &value) || value < 1 || value > 65535) {
    report_invalid_argument(attribute, attribute->args);
    return false;
  }
  if (value <= 101) pos_warning(reserved_code, &attribute->args->position);
  *priority = static_cast<std::uint32_t>(value);
  return true;
}

// Parameter numbers count from 1. The parameters of an old-style declaration are not known.
std::int64_t number_of_parameters(const a_type *type) {
  type = skip_typerefs(type);
  while (type->kind == tk_pointer)
    type = skip_typerefs(type->pointed_to);
  if (type->kind != tk_routine || !type->routine_supplement->prototyped) return -1;
  std::int64_t count = 0;
  for (const a_param_type *p = type->routine_supplement->param_types; p != nullptr; p = p->next)
    ++count;
  return count;
}

// An argument that names a parameter; false after a message.
bool parameter_argument(an_attribute *attribute, const an_attribute_arg *arg, const a_type *type,
                        bool zero_allowed, std::uint32_t *number) {
  std::int64_t value, count = number_of_parameters(type);
  bool good = integer_argument(arg, &value) && value >= (zero_allowed ? 0 : 1) &&
              (count < 0 || value <= count || zero_allowed);
  if (!good) report_invalid_argument(attribute, arg);
  *number = static_cast<std::uint32_t>(value);
  return good;
}

}  // namespace

char *apply_constructor(an_attribute *attribute, char *entity, an_il_entry_kind) {
  a_routine *routine = as_routine(entity);
  std::uint32_t priority = 0;
  if (attribute->args != nullptr &&
      !check_priority(attribute, ec_ctor_dtor_priority_reserved, &priority))
    return nullptr;
  routine->is_constructor_function = true;
  routine->priority = priority;
  alloc_gnu_supplement_for_routine(routine)->constructor_priority = priority;
  mark_as_needed(routine, iek_routine);
  return entity;
}

char *apply_init_priority(an_attribute *attribute, char *entity, an_il_entry_kind) {
  a_variable *variable = as_variable(entity);
  std::uint32_t priority;
  if (!is_class_struct_union_type(variable->type) || !variable->is_file_scope) {
    pos_error(ec_bad_variable_for_init_priority, &attribute->position);
    return nullptr;
  }
  if (!check_priority(attribute, ec_init_priority_reserved, &priority)) return nullptr;
  report_attribute_not_supported(attribute);
  return entity;
}

namespace {

// From 1 in the order of the list; 0: no kind of format that is known.
std::uint32_t format_archetype(const char *name) {
  static const char *const archetypes[] = {"printf", "scanf", "strftime", "strfmon"};
  std::size_t length = std::strlen(name);
  strip_underscores(&name, &length);
  std::string_view wanted(name, length);
  if (wanted.starts_with("gnu_")) wanted.remove_prefix(4);
  for (std::uint32_t i = 0; i < 4; ++i)
    if (wanted == archetypes[i]) return i + 1;
  return 0;
}

bool is_text_parameter(const a_type *routine_type, std::uint32_t number) {
  const a_param_type *param = param_types_of(routine_type);
  while (param != nullptr && --number != 0)
    param = param->next;
  if (param == nullptr || param->type_is_error) return true;
  return is_pointer_type(param->type) && is_character_type(type_pointed_to(param->type));
}

}  // namespace

// format(printf, 1, 2): parameter 1 is the format, the values begin at parameter 2 (0: none).
// Other compilers have kinds of formats of their own, which do no harm.
char *apply_format(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  std::uint32_t archetype = format_archetype(attribute->args->identifier);
  if (archetype == 0) {
    pos_st_warning(ec_invalid_argument_to_attribute, &attribute->args->position, attribute->name);
    return entity;
  }
  const a_type *type = type_of_attributed(entity, kind);
  std::uint32_t string_index, first_arg;
  const an_attribute_arg *second = attribute->args->next;
  if (!parameter_argument(attribute, second, type, false, &string_index) ||
      !parameter_argument(attribute, second->next, type, true, &first_arg))
    return entity;
  if (kind == iek_routine && !is_text_parameter(type, string_index)) {
    report_invalid_argument(attribute, second);
    return entity;
  }
  if (first_arg != 0 && first_arg <= string_index) {
    report_invalid_argument(attribute, second->next);
    return entity;
  }
  if (kind != iek_routine) return entity;
  a_gnu_routine_supplement *supplement = alloc_gnu_supplement_for_routine(as_routine(entity));
  supplement->format_kind = archetype;
  supplement->format_string_index = string_index;
  supplement->format_first_arg = first_arg;
  return entity;
}

char *apply_format_arg(an_attribute *attribute, char *entity, an_il_entry_kind) {
  a_routine *routine = as_routine(entity);
  std::uint32_t index;
  if (!parameter_argument(attribute, attribute->args, routine->type, false, &index)) return entity;
  alloc_gnu_supplement_for_routine(routine)->format_arg_index = index;
  return entity;
}

char *apply_alloc_size(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  if (!attribute_fits(attribute, entity, kind, "r|t|v|d|p")) return entity;
  const a_type *type = type_of_attributed(entity, kind);
  std::uint32_t numbers[2] = {};
  int count = 0;
  for (const an_attribute_arg *arg = attribute->args; arg != nullptr && count < 2; arg = arg->next)
    if (!parameter_argument(attribute, arg, type, false, &numbers[count++])) return entity;
  if (kind != iek_routine) return entity;
  a_gnu_routine_supplement *supplement = alloc_gnu_supplement_for_routine(as_routine(entity));
  supplement->alloc_size_first = numbers[0];
  supplement->alloc_size_second = numbers[1];
  return entity;
}
