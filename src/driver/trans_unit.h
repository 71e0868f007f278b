// Translation units: one record for each, the list of all, the stack of those that are active, and
// the variables that differ from unit to unit. A module registers such a variable once; switching
// to another unit saves all of them into the old unit and loads them from the new one.
//
// Unit records live in region 0, longer than every file scope.
#ifndef DRIVER_TRANS_UNIT_H
#define DRIVER_TRANS_UNIT_H

#include <cstddef>
#include <cstdint>

#include "driver/mem_manage.h"
#include "il/il_fwd.h"

struct an_exported_template_file;

struct a_translation_unit {
  a_translation_unit *next;                // in the list translation_units
  a_scope *file_scope;                     // null until the unit's initialisation made it
  char *saved_variables;                   // values of the registered variables while not current
  a_scope_pointers_block *scope_pointers;  // lists of entities of the file scope
  a_source_file *primary_source_file;      // null until the source is open
  an_exported_template_file *exported_template_file;  // null for an ordinary unit
  bool is_ordinary_unit;
  a_memory_region_number file_scope_region_number;
  bool power_advice_state[3];  // which parts of the power advice the unit has still to finish
};

// A variable that differs per unit.
struct a_trans_unit_variable {
  a_trans_unit_variable *next;  // in order of registration
  void *variable_address;
  std::size_t size;
  std::size_t offset_in_saved_block;
  std::size_t unit_field_offset;  // of a pointer in the unit to where the value now lives; 0: none
};

struct a_trans_unit_stack_entry {
  a_trans_unit_stack_entry *next;
  a_translation_unit *translation_unit;
};

// ---- Per compilation ---------------------------------------------------------------------------

extern a_translation_unit *curr_translation_unit;  // null: none yet
extern a_translation_unit *translation_units;      // the primary one first
extern a_trans_unit_stack_entry *curr_translation_unit_stack_entry;
extern int secondary_trans_units_on_stack;

// ---- Per translation unit ----------------------------------------------------------------------

extern int is_primary_translation_unit;
extern const char *trans_unit_file_name;
extern bool translation_unit_needed_only_for_exported_templates;

inline a_translation_unit *primary_translation_unit() {
  return translation_units;
}

// Registers a variable; with a unit_field_offset other than 0, the field there always points to the
// place of the variable's value.
void f_register_trans_unit_variable(void *address, std::size_t size, std::size_t unit_field_offset);
template <class T>
void register_trans_unit_variable(T *variable) {
  f_register_trans_unit_variable(const_cast<void *>(static_cast<const void *>(variable)), sizeof(T),
                                 0);
}
void fix_up_translation_unit(a_translation_unit *unit);

// Makes the unit's record, initialises all modules for it and opens its file scope; no file is
// read.
void begin_translation_unit(const char *name, int is_primary, an_exported_template_file *file);
// Reads one unit from its first token to its end.
void process_translation_unit(const char *name, int is_primary, an_exported_template_file *file);

void switch_translation_unit(a_translation_unit *unit);
void push_translation_unit_stack(a_translation_unit *unit);
void pop_translation_unit_stack();
// True if the symbol belongs to another unit, which is then pushed.
bool push_translation_unit_if_needed(a_symbol *symbol);
a_trans_unit_corresp *alloc_trans_unit_corresp();

// Ends the unit: its file scope, the functions that wait for the unit's id, the advice.
void translation_unit_wrapup();

void trans_unit_early_init();
void trans_unit_one_time_init();
void trans_unit_init();

#endif
