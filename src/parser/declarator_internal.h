// What the rooms of declarator share: the parts of a declarator while it is read.
#ifndef PARSER_DECLARATOR_INTERNAL_H
#define PARSER_DECLARATOR_INTERNAL_H

#include "parser/declarator.h"

enum a_declarator_part_kind : std::uint8_t { dpk_pointer, dpk_array, dpk_function };

// One pointer, array or function of a declarator; parts come from a free list.
struct a_declarator_part {
  a_declarator_part *next;  // applied after this one: nearer to the name
  a_declarator_part_kind kind;
  unsigned qualifiers;       // of a pointer; of an array: those inside [ ]
  a_type *type;              // array or function: made with its inner slot empty
  an_attribute *attributes;  // behind * or behind )
  a_source_position position;
};

struct a_part_list {
  a_declarator_part *head;
  a_declarator_part *tail;
};

// One declarator while it is read.
struct a_declarator_scan {
  std::uint64_t flags;  // a_declarator_flag
  a_decl_parse_state *state;
  a_symbol_locator *locator;
  a_func_info_block *func_info;  // may be null
  a_decl_pos_block *positions;   // may be null
  bool name_seen;
  bool error;
  int depth;  // of nested parentheses
};

a_declarator_part *alloc_declarator_part(a_declarator_part_kind kind);

// "[" is current: reads one array suffix. is_outermost: it stands nearest to the name.
a_declarator_part *scan_array_declarator(a_declarator_scan &scan, bool is_outermost);

// "(" is current: reads a parameter list. for_name: it applies to the declared name itself, so that
// a definition can follow.
void reset_prototype_depth();
a_declarator_part *scan_function_declarator(a_declarator_scan &scan, bool for_name);

#endif
