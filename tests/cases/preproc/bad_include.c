// options: --c99
// status: 4
int before;
#include "no_such_file.h"
// expect: fatal error #1965 cannot open source file "no_such_file.h"
int after;
