// What the rooms of attribute share: the tables, and the routines of the effects.
#ifndef PARSER_ATTRIBUTE_INTERNAL_H
#define PARSER_ATTRIBUTE_INTERNAL_H

#include <cstddef>

#include "DIAG/error.h"
#include "il/il.h"
#include "parser/attribute.h"

// Gives the entity, which may be another one; null: the attribute did not take effect.
using an_attribute_effect = char *(*)(an_attribute *attribute, char *entity, an_il_entry_kind kind);

struct an_attribute_kind_description {
  const char *applicability;
  an_attribute_effect apply;  // null: the attribute is only recorded
};
extern const an_attribute_kind_description attribute_kinds[atk_last];

// A spelling of an attribute.
struct an_attribute_row {
  an_attribute_kind kind;
  const char *name;
  const char *arguments;
  const char *modes;
};

// The first row of this name whose modes hold for the attribute's syntax and namespace; null: none.
const an_attribute_row *find_attribute_row(const char *name, std::size_t length,
                                           an_attribute_syntax syntax, const char *namespace_name);
// Drops surrounding __ from a name.
void strip_underscores(const char **name, std::size_t *length);

// Does the attribute fit the entity by an applicability string? Reports; the attribute is dropped
// then.
bool attribute_fits(an_attribute *attribute, char *entity, an_il_entry_kind kind,
                    const char *applicability);
inline void drop_attribute(an_attribute *attribute) {
  attribute->kind = atk_none;
}

// The type that an attribute of the entity changes: that of a variable, field or parameter, or what
// a typedef names; null: the entity has none.
a_type **type_slot_of(char *entity, an_il_entry_kind kind);
// The entity's type for questions; null: it has none.
a_type *type_of_attributed(char *entity, an_il_entry_kind kind);
a_symbol *symbol_of_attributed(char *entity, an_il_entry_kind kind);  // null: it has none

// Arguments.
bool integer_argument(const an_attribute_arg *arg,
                      std::int64_t *value);                // false: none, or too large
const char *string_argument(const an_attribute_arg *arg);  // null: none
// 1175, and the attribute is dropped.
void report_invalid_argument(an_attribute *attribute, const an_attribute_arg *arg);
void report_attribute_not_supported(an_attribute *attribute);

// One routine for each effect; the table names them.
#define EFFECT(name) char *apply_##name(an_attribute *, char *entity, an_il_entry_kind kind);
EFFECT(align)
EFFECT(packed)
EFFECT(unpacked)
EFFECT(mode)
EFFECT(transparent_union)
EFFECT(vector_type)
EFFECT(noreturn)
EFFECT(const)
EFFECT(pure)
EFFECT(warn_unused_result)
EFFECT(routine_mark)
EFFECT(unused)
EFFECT(used)
EFFECT(deprecated)
EFFECT(weak)
EFFECT(section)
EFFECT(alias)
EFFECT(constructor)
EFFECT(format)
EFFECT(format_arg)
EFFECT(alloc_size)
EFFECT(message)
EFFECT(target)
EFFECT(init_priority)
EFFECT(location)
EFFECT(calls)
EFFECT(noinit_persistent)
EFFECT(retain)
EFFECT(loop)
EFFECT(interrupt)
EFFECT(constrange)
EFFECT(memory_access)
EFFECT(not_supported)
#undef EFFECT

void clear_alias_fixups();
void clear_asm_name_table();

#endif
