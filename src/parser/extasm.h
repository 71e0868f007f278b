// Inline assembly: an asm with its text, as a declaration or as a statement, and the names of
// registers in asm specifications of register variables.
//
// The text goes into the output as it is. Only its directive is looked at: some would tear a
// function's code apart.
#ifndef PARSER_EXTASM_H
#define PARSER_EXTASM_H

#include "UTIL/basics.h"
#include "il/il_fwd.h"

// asm-declaration:
//     asm [qualifiers] ( string-literal ) ;
// The current token is asm. Gives the entry in a function; at file scope the entry is stored in the
// scope. Null when it is not allowed here, after a message.
an_asm_entry *asm_declaration(bool allowed, bool in_function, an_attribute *attributes);

inline constexpr int invalid_register = 58;
// The number of a register, with or without "%" before its name; invalid_register: unknown.
int name_to_register(const char *name);

void extasm_one_time_init();

#endif
