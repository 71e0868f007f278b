// options: --c --gcc --gnu_version=30300 --report_gnu_extensions
// Old compilers let further words change the type that a typedef names.
typedef int T;
unsigned T a;
// expect: warning #1889 modifying a typedef with further type specifiers is nonstandard
int is_unsigned[__builtin_types_compatible_p(__typeof__(a), unsigned int) ? 1 : -1];
//                                           ^
// expect: warning #1888 typeof is a GNU extension
