// What the rooms of decl_inits share: the walk over the value of one object.
#ifndef PARSER_DECL_INITS_INTERNAL_H
#define PARSER_DECL_INITS_INTERNAL_H

#include "il/il_expr.h"
#include "parser/decl_inits.h"
#include "parser/decl_spec.h"
#include "parser/exprutil.h"

// One initializer while it is read. An expression that was read to see its type, and turned out to
// be the value of the first scalar further down, waits in pending.
struct an_init_walk {
  a_decl_parse_state *state;
  bool constant_required;  // a value that is no constant is an error
  bool any_dynamic;        // some value is computed at run time
  bool error;
  bool in_recovery;  // an element failed; no more messages about values
  bool has_pending;
  an_operand pending;
  an_expr_stack_entry entry;  // its expression context, open while has_pending
  int depth;                  // of braces and subobjects
};

// How the value of a subobject is written.
enum a_brace_form : std::uint8_t {
  bform_braces,      // its own braces: "{" is current
  bform_elided,      // elements of the list around it
  bform_designated,  // elided, and a designator of its own is current
};

inline constexpr int max_initializer_depth = 1000;

// decl_inits.cpp: the value of an object of type. *type is completed if its bound is open. Never
// null; an error constant after a message.
a_constant *scan_object_initializer(an_init_walk &walk, a_type **type);

// decl_inits_aggregate.cpp
// The "}" behind the elements of a list.
void scan_end_of_braced_list();
a_constant *scan_aggregate(an_init_walk &walk, a_type **type, a_brace_form form);
bool at_designator();

// decl_inits_scalar.cpp: values and strings.
// Reads an expression into walk.pending, unless one waits there.
void fetch_operand(an_init_walk &walk);
a_type *type_of_pending(const an_init_walk &walk);
// The value of a pending compound literal where only a constant will do; null for all else.
a_constant *constant_of_pending_literal(const an_init_walk &walk);
// Converts the pending expression to a scalar type, or to its own class type.
a_constant *convert_pending(an_init_walk &walk, a_type *type);
void drop_pending(an_init_walk &walk);  // if there is one
// A scalar without braces.
a_constant *scan_scalar_value(an_init_walk &walk, a_type *type);
// { value }
a_constant *scan_braced_scalar(an_init_walk &walk, a_type *type);
// A string literal that is the whole value stands here, perhaps in parentheses; for an array of
// characters of this type.
bool at_whole_string();
bool at_string_for(const a_type *type);
a_constant *scan_string_initializer(an_init_walk &walk, a_type **type);
a_constant *make_error_value(an_init_walk &walk);

#endif
