// External names. In C an entity's external name is its name.
#ifndef LOWER_LOWER_NAME_H
#define LOWER_LOWER_NAME_H

#include "il/il_fwd.h"

// Gives every entity of the unit its external name. Nothing in C.
void do_all_name_mangling(int pass);
void do_final_name_mangling();
// The name by which other files know the entity.
const char *external_name_of(const a_source_correspondence *entity);

#endif
