// options: --c11
// _Alignas, _Noreturn, _Static_assert, _Thread_local, inline, register and other specifiers of C11.
_Alignas(16) int aligned;
_Alignas(3) int odd;
//       ^
// expect: error #1166 invalid alignment value specified by attribute
_Alignas(int) char by_type;
_Alignas(1) int reduced;
// expect: error #2150 alignment cannot be set to less than the default alignment
_Alignas(8) typedef int type;
// expect: error #2830 alignas does not apply here
_Alignas(8) void function(void);
// expect: error #2830 alignas does not apply here
void parameter(_Alignas(8) int p);
//             ^
// expect: error #2830 alignas does not apply here
struct s { _Alignas(8) char c; _Alignas(8) int b : 3; };
//                             ^
// expect: error #2105 attribute "_Alignas" does not apply to bit-fields
void local(void) { register _Alignas(8) int r; _Alignas(void) int v; (void)r, (void)v; }
//                          ^
// expect: error #2113 attribute "_Alignas" does not apply to variables with register storage
//                                                      ^
// expect: error #71 incomplete type is not allowed
_Noreturn int variable;
// expect: error #2889 "_Noreturn" applies to functions only
_Noreturn void stops(void);
_Noreturn typedef void never(void);
// expect: error #2889 "_Noreturn" applies to functions only
_Static_assert(1, "holds");
_Static_assert(sizeof(int) == 2, "int is wide");
// expect: error #1847 static assertion failed with "int is wide"
_Static_assert(aligned, "not constant");
//             ^
// expect: error #28 expression must have a constant value
_Static_assert(1);
//              ^
// expect: error #255 expected a ","
_Static_assert(0, 5);
//                ^
// expect: error #1092 expected a string literal
inline int object;
// expect: error #328 "inline" is not allowed
inline int main(void) { return 0; }
// expect: error #406 function "main" may not be declared inline
inline int without_body(int a);
static inline int with_body(int a) { return a; }
register int file_level;
//           ^
// expect: error #151 a storage class of this kind is not allowed at file scope
auto int file_auto;
// expect: warning #1235 "auto" ignored at file scope
extern register int two;
//     ^
// expect: error #82 more than one storage class may not be specified
static extern int also_two;
//     ^
// expect: error #82 more than one storage class may not be specified
typedef static int three;
//      ^
// expect: error #82 more than one storage class may not be specified
long long long too_long;
//        ^
// expect: error #85 invalid combination of type specifiers
short double mixed;
// expect: error #85 invalid combination of type specifiers
unsigned float no_sign;
// expect: error #85 invalid combination of type specifiers
signed unsigned both;
//     ^
// expect: error #85 invalid combination of type specifiers
char char twice;
//   ^
// expect: error #85 invalid combination of type specifiers
_Bool unsigned flag;
// expect: error #85 invalid combination of type specifiers
void nothing;
//   ^
// expect: error #71 incomplete type is not allowed
void *const volatile *good;
const const int doubled;
//    ^
// expect: warning #84 type qualifier specified more than once
//              ^
// expect: warning #259 const variable "doubled" requires an initializer
restrict int no_pointer;
// expect: error #646 "restrict" is not allowed
int *restrict fine;
int (*restrict to_function)(void);
//    ^
// expect: error #647 a "restrict"-qualified pointer to a function is not allowed
typedef int function_type(void);
const function_type qualified;
// expect: warning #979 type qualifiers on a function type are ignored
