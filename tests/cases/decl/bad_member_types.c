// options: --c11 --strict
// Tags and members that cannot be.
enum e1 { A = 2.5 };
//            ^
// expect: error #159 expression must be an integral constant expression
enum e2 { };
//        ^
// expect: error #41 expected an identifier
enum e3 { B, B };
//           ^
// expect: error #102 "B" has already been declared in the current scope
enum e4;
//   ^
// expect: error #103 forward declaration of an enum type is nonstandard
enum e5 *b4;
//   ^
// expect: error #103 forward declaration of an enum type is nonstandard
struct s1 { };
//        ^
// expect: error #621 struct or union declares no named members
struct s2 { int; };
//          ^
// expect: error #65 declaration does not declare anything
struct s3 { int a; int a; };
//                     ^
// expect: error #102 "a" has already been declared in the current scope
struct s4 { struct s4 inner; };
//                    ^
// expect: error #71 incomplete type is not allowed
struct s5 { int f(void); };
//              ^
// expect: error #170 function type is not allowed here
struct s6 { void v; };
//               ^
// expect: error #71 incomplete type is not allowed
struct s7 { int a[]; };
//              ^
// expect: error #1083 type containing an unknown-size array is not allowed
struct s8 { int n; int a[]; int last; };
//                     ^
// expect: error #71 incomplete type is not allowed
struct s9 { int n; struct s10 { int n; int a[]; } inner; };
struct c1 { int a : 0; };
//                  ^
// expect: error #108 a zero-length bit field must be unnamed
struct c2 { int a : 33; };
//                  ^
// expect: error #106 invalid size for bit field
struct c3 { int a : -1; };
//                  ^
// expect: error #106 invalid size for bit field
struct c4 { float a : 3; };
//                ^
// expect: error #107 invalid type for a bit field
struct c5 { int *a : 3; };
//               ^
// expect: error #107 invalid type for a bit field
struct c6 { int : 0; int b : 2; };
struct c7 { enum e1 a : 2; };
//                  ^
// expect: error #232 nonstandard type for a bit field
struct c8 { int a : 2.0; };
//                  ^
// expect: error #159 expression must be an integral constant expression
struct c9 { int n; const; };
//                 ^
// expect: error #65 declaration does not declare anything
struct d1 { static int a; };
//          ^
// expect: error #81 a storage class may not be specified here
struct d2 { int a = 3; };
//                ^
// expect: error #66 expected a ";"
struct d3 { typedef int a; };
//          ^
// expect: error #989 "typedef" may not be specified here
struct d4 { extern int a; };
//          ^
// expect: error #81 a storage class may not be specified here
union d5 d6;
//       ^
// expect: error #71 incomplete type is not allowed
struct d5 d7;
//     ^
// expect: error #471 tag kind of struct is incompatible with declaration of union "d5"
struct d8 { int a } d8;
//                ^
// expect: error #66 expected a ";"
