// options: --c99 --strict
// What came later than C99, and what C99 took away.
_Static_assert(1, "");
//             ^
// expect: error #80 expected a type specifier
_Alignas(8) int aligned;
//       ^
// expect: error #80 expected a type specifier
_Noreturn void stops(void);
// expect: error #20 identifier "_Noreturn" is undefined
int generic = _Generic(1, int: 2);
//            ^
// expect: error #20 identifier "_Generic" is undefined
//                        ^
// expect: error #256 type name is not allowed
//                           ^
// expect: error #18 expected a ")"
_Thread_local int t;
// expect: error #20 identifier "_Thread_local" is undefined
struct { int a; union { int b; int c; }; } anonymous;
//              ^
// expect: error #65 declaration does not declare anything
typedef int twice; typedef int twice;
//                             ^
// expect: error #102 "twice" has already been declared in the current scope
int implicit(void) { return undeclared(1); }
//                          ^
// expect: error #20 identifier "undeclared" is undefined
noint(void) { return 0; }
// expect: error #262 type specifier is missing, "int" assumed
static nointvar;
//     ^
// expect: error #262 type specifier is missing, "int" assumed
int noreturn_value(void) { return; }
//                         ^
// expect: error #118 non-void function "noreturn_value" should return a value
char *u = u8"text"; 
//        ^
// expect: error #20 identifier "u8" is undefined
//          ^
// expect: error #66 expected a ";"
int ok(void) { for (int i = 0; i < 3; i++) ; long long ll = 5; int a[] = {[2] = 1}; return a[2] + ll; }
enum e { A, B, };
