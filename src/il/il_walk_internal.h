// What the general walker and the marking walks share.
#ifndef IL_IL_WALK_INTERNAL_H
#define IL_IL_WALK_INTERNAL_H

#include <cstdint>

extern std::uint32_t current_walk_number;  // what entries carry that the current walk has visited
void il_needed_init();

#endif
