// Names of the object file: aliases of other entities, entities found by their asm name, and the
// renaming of #pragma redefine_extname. All are settled at the end of the unit, when everything is
// declared.
#include <cstdio>
#include <cstring>

#include "driver/mem_manage.h"
#include "driver/switches.h"
#include "il/il_walk.h"
#include "parser/attribute_internal.h"
#include "semantics/symbol_tbl.h"
#include "source/lexical.h"
#include "target/pragma.h"

namespace {

// An entity with the attribute alias, whose target has to be found.
struct an_alias_fixup {
  an_alias_fixup *next;
  a_symbol *symbol;
  const char *target_name;
  an_attribute *attribute;
  a_source_position position;
};
an_alias_fixup *alias_fixups;
an_alias_fixup **last_alias_fixup = &alias_fixups;

// A name that redefine_extname replaces.
struct a_redefined_name {
  a_redefined_name *next;
  const a_symbol_header *old_name;
  const char *new_name;
  a_source_position position;
};
a_redefined_name *redefined_names;

struct an_asm_name_entry {
  an_asm_name_entry *next;
  const char *name;
  a_symbol *symbol;
};
constexpr std::size_t num_asm_name_buckets = 1000;
an_asm_name_entry **asm_name_table;  // null: no name was recorded

template <class T>
T *new_record() {
  T *record = static_cast<T *>(alloc_in_region(permanent_region, sizeof(T)));
  std::memset(static_cast<void *>(record), 0, sizeof(T));
  return record;
}

an_asm_name_entry **asm_name_bucket(const char *name) {
  return &asm_name_table[hash_of_name(name, std::strlen(name)) % num_asm_name_buckets];
}

a_symbol *find_by_asm_name(const char *name) {
  if (asm_name_table == nullptr) return nullptr;
  an_asm_name_entry *entry = *asm_name_bucket(name);
  while (entry != nullptr && std::strcmp(entry->name, name) != 0)
    entry = entry->next;
  return entry != nullptr ? entry->symbol : nullptr;
}

// The variable or routine of file scope with this name; its scope is still open.
a_symbol *find_by_name(const a_symbol_header *header) {
  for (a_symbol *symbol = header->active_symbols; symbol != nullptr; symbol = symbol->next_active)
    if (is_variable_symbol_kind(symbol->kind) || is_routine_symbol_kind(symbol->kind))
      return symbol;
  return nullptr;
}

// ---- Aliases -----------------------------------------------------------------------------------

a_symbol *target_of(const an_alias_fixup &fixup) {
  if (a_symbol *symbol = find_by_asm_name(fixup.target_name)) return symbol;
  return find_by_name(find_symbol_header(fixup.target_name, std::strlen(fixup.target_name)));
}

bool is_alias_loop(const a_routine *routine, const a_routine *target) {
  for (; target != nullptr; target = target->alias_target)
    if (target == routine) return true;
  return false;
}
bool is_alias_loop(const a_variable *variable, const a_variable *target) {
  for (; target != nullptr; target = target->alias_target)
    if (target == variable) return true;
  return false;
}

bool is_defined_or_alias(const a_symbol *symbol) {
  if (is_routine_symbol_kind(symbol->kind))
    return symbol->variant.routine->defined || symbol->variant.routine->is_alias;
  return symbol->variant.variable->defined || symbol->variant.variable->storage_class != sc_extern;
}

// An alias is a definition: no body, and no second alias, may stand beside it.
bool has_other_definition(const a_symbol *symbol) {
  if (!is_routine_symbol_kind(symbol->kind))
    return symbol->variant.variable->alias_target != nullptr;
  const a_routine *routine = symbol->variant.routine;
  return routine->defined || routine->alias_target != nullptr;
}

template <class T>
bool link_alias(const an_alias_fixup &fixup, T *entity, T *target, an_il_entry_kind kind) {
  if (is_alias_loop(entity, target)) {
    pos_sy_error(ec_alias_loop, &fixup.position, fixup.symbol);
    return false;
  }
  entity->alias_target = target;
  target->referenced = true;
  mark_as_needed(target, kind);
  mark_as_needed(entity, kind);
  return true;
}

bool resolve_alias(const an_alias_fixup &fixup) {
  if (has_other_definition(fixup.symbol)) {
    pos_sy_error(ec_already_defined, &fixup.position, fixup.symbol);
    return false;
  }
  a_symbol *target = target_of(fixup);
  if (target == nullptr) {
    pos_st_error(ec_aliased_name_undeclared, &fixup.position, fixup.target_name);
    return false;
  }
  bool is_routine = is_routine_symbol_kind(fixup.symbol->kind);
  if (is_routine != is_routine_symbol_kind(target->kind)) {
    pos_sy_error(ec_aliased_name_bad_kind, &fixup.position, target);
    return false;
  }
  if (!is_defined_or_alias(target)) {
    pos_sy_error(ec_aliased_name_bad_kind, &fixup.position, target);
    return false;
  }
  if (is_routine)
    return link_alias(fixup, fixup.symbol->variant.routine, target->variant.routine, iek_routine);
  if (!link_alias(fixup, fixup.symbol->variant.variable, target->variant.variable, iek_variable))
    return false;
  // The intermediate file has no form for it.
  pos_st_error(ec_not_supported, &fixup.position, "an alias of a variable is");
  return false;
}

void apply_redefined_names() {
  for (a_redefined_name *entry = redefined_names; entry != nullptr; entry = entry->next) {
    a_symbol *symbol = find_by_name(entry->old_name);
    if (symbol == nullptr) continue;
    if (is_routine_symbol_kind(symbol->kind)) {
      if (symbol->variant.routine->asm_name == nullptr)
        symbol->variant.routine->asm_name = entry->new_name;
    } else if (symbol->variant.variable->asm_name == nullptr) {
      symbol->variant.variable->asm_name = entry->new_name;
    }
  }
}

}  // namespace

void add_alias_fixup(a_symbol *symbol, const char *name, an_attribute *attribute,
                     const a_source_position *position) {
  an_alias_fixup *fixup = new_record<an_alias_fixup>();
  fixup->symbol = symbol;
  fixup->target_name = name;
  fixup->attribute = attribute;
  fixup->position = *position;
  *last_alias_fixup = fixup;
  last_alias_fixup = &fixup->next;
  if (!is_routine_symbol_kind(symbol->kind)) return;
  symbol->variant.routine->is_alias = true;
  alloc_gnu_supplement_for_routine(symbol->variant.routine)->alias_name = name;
}

void process_alias_fixup_list() {
  apply_redefined_names();
  for (an_alias_fixup *fixup = alias_fixups; fixup != nullptr; fixup = fixup->next)
    if (!resolve_alias(*fixup)) drop_attribute(fixup->attribute);
  clear_alias_fixups();
}

void clear_alias_fixups() {
  alias_fixups = nullptr;
  last_alias_fixup = &alias_fixups;
  redefined_names = nullptr;
}

// ---- Asm names ---------------------------------------------------------------------------------

void record_asm_name_for_lookup(a_symbol *symbol) {
  const char *name = nullptr;
  if (is_routine_symbol_kind(symbol->kind))
    name = symbol->variant.routine->asm_name;
  else if (is_variable_symbol_kind(symbol->kind))
    name = symbol->variant.variable->asm_name;
  if (name == nullptr) return;
  if (asm_name_table == nullptr) {
    std::size_t size = num_asm_name_buckets * sizeof *asm_name_table;
    asm_name_table = static_cast<an_asm_name_entry **>(alloc_in_region(permanent_region, size));
    std::memset(asm_name_table, 0, size);
  }
  an_asm_name_entry *entry = new_record<an_asm_name_entry>();
  an_asm_name_entry **bucket = asm_name_bucket(name);
  *entry = {*bucket, name, symbol};
  *bucket = entry;
}

void clear_asm_name_table() {
  asm_name_table = nullptr;
}

// ---- #pragma redefine_extname ------------------------------------------------------------------

// redefine_extname old new
void redefine_extname_pragma(a_pending_pragma *pragma) {
  begin_rescan_of_pragma_tokens(pragma);
  const a_symbol_header *names[2] = {};
  for (const a_symbol_header *&name : names) {
    if (curr_token != tok_identifier) {
      pos_error(ec_exp_identifier, &pos_curr_token);
      wrapup_rescan_of_pragma_tokens(true);
      return;
    }
    name = locator_for_curr_id.header;
    get_token();
  }
  wrapup_rescan_of_pragma_tokens(false);
  a_redefined_name *entry = new_record<a_redefined_name>();
  entry->old_name = names[0];
  entry->new_name = names[1]->name;
  entry->position = pragma->name_position;
  entry->next = redefined_names;
  redefined_names = entry;
  std::size_t size = sizeof "redefine_extname  " + names[0]->length + names[1]->length;
  char *text = static_cast<char *>(alloc_il(size));
  std::snprintf(text, size, "redefine_extname %s %s", names[0]->name, names[1]->name);
  pragma->text = text;
  create_il_entry_for_pragma(pragma, nullptr, nullptr);
}
