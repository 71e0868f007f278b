// What the rooms of the translation units share.
#ifndef DRIVER_TRANS_UNIT_INTERNAL_H
#define DRIVER_TRANS_UNIT_INTERNAL_H

#include "driver/trans_unit.h"

std::size_t size_of_trans_unit_variables();  // of a block that holds all registered variables
void save_trans_unit_variables(a_translation_unit *unit);
void load_trans_unit_variables(a_translation_unit *unit);
void forget_trans_unit_variables();

#endif
