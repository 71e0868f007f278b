// Attaching attributes: whether each may stand on its entity, and calling its effect.
//
// An applicability string lists, separated by |, what an attribute may stand on:
//
//     c class   e enum   t typedef or type   v variable   d field   r routine   p parameter
//     l label   n namespace   s statement   u using directive   E enumerator   T any type
//
// A W in front of a letter: there it is ignored with a warning. Behind a letter and a colon stand
// conditions: + or - (must or must not), a letter, and ! when breaking it is an error, not a
// warning. "r:+x!|v:+x!" is a routine or a variable, either with external linkage.
#include <cstdio>

#include "driver/switches.h"
#include "parser/attribute_internal.h"
#include "semantics/const_ints.h"
#include "semantics/symbol_tbl.h"
#include "semantics/types.h"

// ---- The entity --------------------------------------------------------------------------------

namespace {

a_variable *as_variable(char *entity) {
  return reinterpret_cast<a_variable *>(entity);
}
a_routine *as_routine(char *entity) {
  return reinterpret_cast<a_routine *>(entity);
}
a_type *as_type(char *entity) {
  return reinterpret_cast<a_type *>(entity);
}

// The letter of an applicability string; '\0': nothing applies.
char letter_of_entity(char *entity, an_il_entry_kind kind) {
  switch (kind) {
    case iek_type: {
      const a_type *type = as_type(entity);
      if (is_class_kind(type->kind)) return 'c';
      return type->kind == tk_integer && type->is_enum ? 'e' : 't';
    }
    case iek_variable:
      return as_variable(entity)->is_parameter ? 'p' : 'v';
    case iek_param_type:
      return 'p';
    case iek_field:
      return 'd';
    case iek_routine:
      return 'r';
    case iek_label:
      return 'l';
    case iek_namespace:
      return 'n';
    case iek_constant:
      return 'E';
    case iek_statement:
      return 's';
    case iek_using_decl:
      return 'u';
    default:
      return '\0';
  }
}

}  // namespace

a_type **type_slot_of(char *entity, an_il_entry_kind kind) {
  switch (kind) {
    case iek_variable:
      return &as_variable(entity)->type;
    case iek_field:
      return &reinterpret_cast<a_field *>(entity)->type;
    case iek_param_type:
      return &reinterpret_cast<a_param_type *>(entity)->type;
    case iek_routine:
      return &as_routine(entity)->type;
    case iek_type:
      return as_type(entity)->kind == tk_typeref ? &as_type(entity)->referenced_type : nullptr;
    default:
      return nullptr;
  }
}

a_type *type_of_attributed(char *entity, an_il_entry_kind kind) {
  if (kind == iek_type) return as_type(entity);
  a_type **slot = type_slot_of(entity, kind);
  return slot != nullptr ? *slot : nullptr;
}

a_symbol *symbol_of_attributed(char *entity, an_il_entry_kind kind) {
  a_source_correspondence *head = source_corresp_for_il_entry(entity, kind);
  return head != nullptr ? head->symbol : nullptr;
}

// ---- Conditions --------------------------------------------------------------------------------

namespace {

// What a condition letter asks, and the codes when it must not and does, and must and does not.
struct a_condition {
  char letter;
  an_error_code disallowed, required;
  bool (*holds)(char *entity, an_il_entry_kind kind);
};

bool is_function_typed(char *entity, an_il_entry_kind) {
  return is_function_type(as_type(entity));
}
bool has_external_linkage(char *entity, an_il_entry_kind kind) {
  a_storage_class storage =
      kind == iek_routine ? as_routine(entity)->storage_class : as_variable(entity)->storage_class;
  return storage == sc_none || storage == sc_extern;
}
bool is_automatic(char *entity, an_il_entry_kind) {
  return as_variable(entity)->storage_class > sc_static;
}
bool is_local(char *entity, an_il_entry_kind) {
  return !as_variable(entity)->is_file_scope && !as_variable(entity)->is_static_data_member;
}

const a_condition conditions[] = {
    {'a', ec_attr_disallows_automatic_storage, ec_attr_requires_automatic_storage, is_automatic},
    {'h', ec_attr_disallows_handler_param, ec_attr_requires_handler_param,
     [](char *entity, an_il_entry_kind) -> bool {
       return as_variable(entity)->is_handler_parameter;
     }},
    {'l', ec_attribute_does_not_apply_to_local_variable, ec_attr_requires_local_variable, is_local},
    {'r', ec_attr_disallows_register_storage, ec_attr_requires_register_storage,
     [](char *entity, an_il_entry_kind) {
       return as_variable(entity)->declared_storage_class == sc_register;
     }},
    {'x', ec_attr_disallows_external_linkage, ec_attribute_requires_external_linkage,
     has_external_linkage},
    {'i', ec_attr_disallows_inline, ec_attr_requires_inline,
     [](char *entity, an_il_entry_kind) -> bool { return as_routine(entity)->is_inline; }},
    {'m', ec_attr_disallows_member_function, ec_attr_requires_member_function,
     [](char *entity, an_il_entry_kind) -> bool { return as_routine(entity)->is_class_member; }},
    {'p', ec_attr_disallows_pure_virtual_function, ec_attr_requires_pure_virtual_function,
     [](char *entity, an_il_entry_kind) -> bool { return as_routine(entity)->is_pure_virtual; }},
    {'v', ec_attr_disallows_virtual_function, ec_attr_requires_virtual_function,
     [](char *entity, an_il_entry_kind) -> bool { return as_routine(entity)->is_virtual; }},
    {'b', ec_attr_disallows_bit_field, ec_attr_requires_bit_field,
     [](char *entity, an_il_entry_kind) -> bool {
       return reinterpret_cast<a_field *>(entity)->is_bit_field;
     }},
    {'f', ec_attr_disallows_function_type, ec_attr_requires_function_type, is_function_typed},
    {'d', ec_attr_disallows_definition, ec_attr_requires_definition,
     [](char *entity, an_il_entry_kind) -> bool {
       return as_type(entity)->kind != tk_typeref && !as_type(entity)->is_incomplete;
     }},
};

const a_condition &condition_of_letter(char letter) {
  for (const a_condition &condition : conditions)
    if (condition.letter == letter) return condition;
  unexpected_state("unknown condition letter in the table of attributes");
}

// { (+ | -) letter [!] }   up to | or the end; reports and drops the attribute on the first
// failure.
bool conditions_hold(an_attribute *attribute, char *entity, an_il_entry_kind kind, const char *p) {
  while (*p == '+' || *p == '-') {
    bool must = *p++ == '+';
    const a_condition &condition = condition_of_letter(*p++);
    bool is_error = *p == '!';
    if (is_error) ++p;
    if (condition.holds(entity, kind) == must) continue;
    pos_st_diagnostic(is_error ? es_error : es_warning,
                      must ? condition.required : condition.disallowed, &attribute->position,
                      attribute->name);
    drop_attribute(attribute);
    return false;
  }
  return true;
}

const char *next_alternative(const char *p) {
  while (*p != '|' && *p != '\0')
    ++p;
  return *p == '|' ? p + 1 : p;
}

an_error_severity severity_of_misfit(const an_attribute *attribute, an_il_entry_kind kind) {
  if (attribute->syntax == asx_declspec && attribute->location == al_tag_end) return es_warning;
  if (kind != iek_type) return es_error;
  return attribute->gnu_namespace || attribute->syntax == asx_gnu ? es_warning : es_error;
}

}  // namespace

void report_bad_attribute_target(std::uint8_t severity, an_attribute *attribute) {
  auto level = static_cast<an_error_severity>(severity);
  if (attribute->syntax == asx_alignas)
    pos_diagnostic(level, ec_wrong_entity_for_alignas, &attribute->position);
  else
    pos_st_diagnostic(level, ec_wrong_entity_for_attribute, &attribute->position, attribute->name);
  drop_attribute(attribute);
}

bool attribute_fits(an_attribute *attribute, char *entity, an_il_entry_kind kind,
                    const char *applicability) {
  char letter = letter_of_entity(entity, kind);
  for (const char *p = applicability; *p != '\0'; p = next_alternative(p)) {
    bool ignored = *p == 'W';
    if (ignored) ++p;
    bool matches = *p == letter || (*p == 'T' && kind == iek_type);
    if (!matches) continue;
    if (ignored) {
      report_bad_attribute_target(es_warning, attribute);
      return false;
    }
    return p[1] != ':' || conditions_hold(attribute, entity, kind, p + 2);
  }
  report_bad_attribute_target(severity_of_misfit(attribute, kind), attribute);
  return false;
}

// ---- Arguments and reports ---------------------------------------------------------------------

bool integer_argument(const an_attribute_arg *arg, std::int64_t *value) {
  *value = 0;
  if (arg == nullptr || arg->kind != aak_constant || arg->constant->kind != ck_integer)
    return false;
  bool large = false;
  *value = value_of_integer_constant(arg->constant, &large);
  return !large;
}

const char *string_argument(const an_attribute_arg *arg) {
  if (arg == nullptr || arg->kind != aak_constant || arg->constant->kind != ck_string)
    return nullptr;
  return arg->constant->string_text;
}

void report_invalid_argument(an_attribute *attribute, const an_attribute_arg *arg) {
  pos_st_error(ec_invalid_argument_to_attribute,
               arg != nullptr ? &arg->position : &attribute->position, attribute->name);
  drop_attribute(attribute);
}

void report_attribute_not_supported(an_attribute *attribute) {
  char text[160];
  std::snprintf(text, sizeof text, "the attribute \"%.120s\" is", attribute->name);
  pos_st_warning(ec_not_supported, &attribute->position, text);
  drop_attribute(attribute);
}

// ---- Attaching ---------------------------------------------------------------------------------

namespace {

// The entity, which may be another one now.
char *apply_attribute(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  if (attribute->kind < atk_align) return entity;
  const an_attribute_kind_description &description = attribute_kinds[attribute->kind];
  if (description.applicability[0] != '\0' &&
      !attribute_fits(attribute, entity, kind, description.applicability))
    return entity;
  if (description.apply == nullptr) return entity;
  char *result = description.apply(attribute, entity, kind);
  if (result != nullptr) return result;
  drop_attribute(attribute);
  return entity;
}

// An attribute for types that reached an entity acts on the type of the entity:
// int x __attribute__((mode(DI)));
bool goes_to_type_of_entity(const an_attribute *attribute, an_il_entry_kind kind) {
  return attribute->is_type_attribute && kind != iek_type && attribute->kind >= atk_align &&
         attribute->location != al_tag_keyword && attribute->location != al_tag_end;
}

void apply_to_type_of_entity(an_attribute *attribute, char *entity, an_il_entry_kind kind) {
  a_type **slot = kind == iek_routine ? nullptr : type_slot_of(entity, kind);
  if (slot == nullptr) {
    report_bad_attribute_target(es_error, attribute);
    return;
  }
  *slot = as_type(apply_attribute(attribute, reinterpret_cast<char *>(*slot), iek_type));
}

}  // namespace

void attach_attributes(an_attribute *list, char *entity, an_il_entry_kind kind) {
  an_attribute **link = get_attribute_link(entity, kind);
  if (link == nullptr) {
    disallow_attributes(list);
    return;
  }
  link = f_last_attribute_link(link);
  *link = list;
  for (an_attribute *attribute = list; attribute != nullptr; attribute = attribute->next) {
    if (goes_to_type_of_entity(attribute, kind))
      apply_to_type_of_entity(attribute, entity, kind);
    else
      apply_attribute(attribute, entity, kind);
  }
}

a_type *make_typeref_with_attributes(a_type *type, an_attribute *list) {
  a_type *result = alloc_type(tk_typeref);
  result->referenced_type = type;
  result->qualifiers = typeref_has_attributes;
  result->typeref_supplement->attributes = list;
  result->typeref_supplement->original_type = type;
  return result;
}

// A typeref of our own in front of the type takes what the attributes change, so that the type
// itself, which others share, stays as it is.
void attach_type_attributes(a_type **type, an_attribute *list, a_decl_parse_state *state) {
  if (list == nullptr || is_error_type(*type)) return;
  a_type *target = *type;
  if (target->kind == tk_typeref && (target->qualifiers & typeref_has_attributes) != 0)
    *f_last_attribute_link(&target->typeref_supplement->attributes) = list;
  else
    target = make_typeref_with_attributes(target, list);
  for (an_attribute *attribute = list; attribute != nullptr; attribute = attribute->next) {
    attribute->parse_state = state;
    if (attribute->is_type_attribute)
      target->referenced_type = as_type(
          apply_attribute(attribute, reinterpret_cast<char *>(target->referenced_type), iek_type));
    else
      apply_attribute(attribute, reinterpret_cast<char *>(target), iek_type);
    attribute->parse_state = nullptr;
  }
  target->typeref_supplement->chain_end = nullptr;
  *type = target;
}

void transform_type_with_gnu_attributes(a_type **type, an_attribute *list,
                                        a_decl_parse_state *state) {
  attach_type_attributes(type, list, state);
}

void copy_gnu_type_properties(a_type *target, const a_type *source) {
  if (source->explicit_alignment) {
    target->alignment = source->alignment;
    target->explicit_alignment = true;
  }
  if (source->attributes != nullptr && target->attributes == nullptr)
    target->attributes = copy_of_attributes_list(source->attributes);
}
