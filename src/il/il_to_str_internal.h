// What the rooms that form text share.
#ifndef IL_IL_TO_STR_INTERNAL_H
#define IL_IL_TO_STR_INTERNAL_H

#include <cstdint>

#include "il/il_to_str.h"

inline void put_text(const char *text, an_il_to_str_output_control_block *block) {
  block->output_text(text, block);
}
// Numbers and escapes of characters.
inline void put_literal_text(const char *text, an_il_to_str_output_control_block *block) {
  if (block->output_literal_text != nullptr)
    block->output_literal_text(text, block);
  else
    block->output_text(text, block);
}
void put_unsigned(std::uint64_t value, an_il_to_str_output_control_block *block);

#endif
