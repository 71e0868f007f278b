// External names of C entities.
#include "lower/lower_name.h"

#include "il/il.h"

void do_all_name_mangling(int) {}

void do_final_name_mangling() {}

const char *external_name_of(const a_source_correspondence *entity) {
  return entity->name;
}
