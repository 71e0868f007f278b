// options: --c11 --strict
// Arrays, functions and parameters of types that they cannot have.
void a1[3];
//     ^
// expect: error #90 array of void is not allowed
int a2[-1];
//     ^
// expect: error #95 the size of an array must be greater than zero
int a3[0];
//     ^
// expect: error #95 the size of an array must be greater than zero
int a4[2.5];
//     ^
// expect: error #159 expression must be an integral constant expression
int a5[3][];
//    ^
// expect: error #99 an array may not have elements of this type
extern int a6[];
int a7()[3];
//    ^
// expect: error #92 function returning array is not allowed
int a8()();
//    ^
// expect: error #91 function returning function is not allowed
int (*a9[3])(void);
int a10[3](void);
//     ^
// expect: error #89 array of functions is not allowed
struct incomplete a11;
//                ^
// expect: error #71 incomplete type is not allowed
struct incomplete *a12;
struct incomplete a13[2];
//                   ^
// expect: error #71 incomplete type is not allowed
extern struct incomplete a14;
void f1(struct incomplete p);
struct incomplete f2(void);
struct incomplete f3(void) { }
//                ^
// expect: error #1626 incomplete type "struct incomplete" is not allowed as the return type of a function definition
void f4(void v);
//           ^
// expect: error #528 a parameter may not have void type
void f5(void, int);
//          ^
// expect: error #528 a parameter may not have void type
void f6(int a, int a);
//                 ^
// expect: error #101 parameter "a" has already been declared
void f7(int, char b) { }
//         ^
// expect: error #142 a parameter of a function definition must have a name
void f8(int a[static 3], int b[const], int c[*]);
int b1[static 3];
//     ^
// expect: error #29 expected an expression
int b2[*];
//     ^
// expect: error #944 variable length array with unspecified bound is not allowed
int b3[const 3];
//     ^
// expect: error #752 type qualifier is not allowed
int long_name_ok, int;
//                ^
// expect: error #41 expected an identifier
int 5;
//  ^
// expect: error #41 expected an identifier
unsigned;
// expect: error #65 declaration does not declare anything
const;
// expect: error #65 declaration does not declare anything
typedef int;
// expect: error #377 declaration requires a typedef name
