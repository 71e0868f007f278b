// The registry of variables that differ from translation unit to translation unit.
#include <cstring>

#include "driver/trans_unit_internal.h"

int is_primary_translation_unit = 1;
const char *trans_unit_file_name;
bool translation_unit_needed_only_for_exported_templates;

namespace {

a_trans_unit_variable *trans_unit_variables;
a_trans_unit_variable *end_of_trans_unit_variables;
std::size_t saved_block_size;

// Tells the unit where the value of a variable lives now.
void set_unit_field(a_translation_unit *unit, const a_trans_unit_variable *variable, void *place) {
  if (variable->unit_field_offset == 0) return;
  std::memcpy(reinterpret_cast<char *>(unit) + variable->unit_field_offset, &place, sizeof place);
}

}  // namespace

void f_register_trans_unit_variable(void *address, std::size_t size,
                                    std::size_t unit_field_offset) {
  auto *variable =
      static_cast<a_trans_unit_variable *>(alloc_general(sizeof(a_trans_unit_variable)));
  *variable = {nullptr, address, size, saved_block_size, unit_field_offset};
  saved_block_size += (size + 7) & ~std::size_t{7};
  if (end_of_trans_unit_variables != nullptr) {
    end_of_trans_unit_variables->next = variable;
  } else {
    trans_unit_variables = variable;
  }
  end_of_trans_unit_variables = variable;
}

std::size_t size_of_trans_unit_variables() {
  return saved_block_size;
}

void fix_up_translation_unit(a_translation_unit *unit) {
  for (auto *variable = trans_unit_variables; variable != nullptr; variable = variable->next) {
    set_unit_field(unit, variable, variable->variable_address);
  }
}

void save_trans_unit_variables(a_translation_unit *unit) {
  for (auto *variable = trans_unit_variables; variable != nullptr; variable = variable->next) {
    char *place = unit->saved_variables + variable->offset_in_saved_block;
    std::memcpy(place, variable->variable_address, variable->size);
    set_unit_field(unit, variable, place);
  }
}

void load_trans_unit_variables(a_translation_unit *unit) {
  for (auto *variable = trans_unit_variables; variable != nullptr; variable = variable->next) {
    std::memcpy(variable->variable_address, unit->saved_variables + variable->offset_in_saved_block,
                variable->size);
    set_unit_field(unit, variable, variable->variable_address);
  }
}

void forget_trans_unit_variables() {
  trans_unit_variables = end_of_trans_unit_variables = nullptr;
  saved_block_size = 0;
}
