// options: --c11 --gcc --remarks
// status: 4
#if __has_include_next("/usr/include/stdio.h")
//  ^
// expect: warning #2885 __has_include_next cannot be used in the primary source file
#endif
#include_next "not_there.h"
// expect: warning #1931 #include_next cannot be used in the primary source file
// expect: fatal error #1965 cannot open source file "not_there.h"
