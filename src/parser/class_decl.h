// Class bodies. For C: the member declarations of a struct or union, bit-fields, anonymous members,
// the flexible array member, and the end of the definition, where the class gets its layout.
#ifndef PARSER_CLASS_DECL_H
#define PARSER_CLASS_DECL_H

#include <cstdint>

#include "UTIL/basics.h"
#include "il/il_fwd.h"
#include "il/src_seq.h"

// Reads the definition of class_type from "{" (C++: or ":") through "}" and the attributes behind
// it, which take part in the layout. The type is complete afterwards, also after errors.
void scan_class_definition(a_type *class_type, a_decl_parse_state *state, std::uint32_t flags);

// The end of a definition: flexible array member, checks over all members, layout.
void finish_class_definition(a_type *class_type, bool in_template);

// The fields of an anonymous struct or union become findable in the class around it; reports names
// that are there twice.
void check_anonymous_union_symbols(a_type *class_type, a_field *anonymous_field);

// C++ entry points; in C nothing is ever deferred.
void process_deferred_class_fixups_and_instantiations(bool nonlocal);
a_lambda *scan_lambda();

void class_decl_one_time_init();
void class_decl_trans_unit_init();

#endif
