// Types as text: C declarations that a person can read.
#ifndef TYPES_TYPE_PRINT_H
#define TYPES_TYPE_PRINT_H

#include <string>

#include "TYPES/type_pkg.h"

// The type as in a cast, or with a declared name in its place: `int (*f)(char)`.
std::string type_as_text(const TYPE *type, const std::string &declared = "");

// The definition of a named type over as many lines as it needs, each with a newline:
// struct and union members with offsets and sizes in bits, enumerators, typedefs.
std::string type_definition_as_text(const TYPE *type);

#endif
