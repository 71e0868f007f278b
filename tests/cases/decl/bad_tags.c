// options: --c99
struct a { int x; };
struct a { int x; };
//     ^
// expect: error #249 struct "a" has already been defined
union a;
//    ^
// expect: error #471 tag kind of union is incompatible with declaration of struct "a"
union a *pa;
//    ^
// expect: error #471 tag kind of union is incompatible with declaration of struct "a"
enum a ea;
//   ^
// expect: error #471 tag kind of enum is incompatible with declaration of struct "a"
struct b;
struct b { struct b *next; };
enum c { c1, c2 };
enum c { c3 };
//   ^
// expect: error #249 enum "c" has already been defined
enum c vc;
struct c vs;
//     ^
// expect: error #471 tag kind of struct is incompatible with declaration of enum "c"
enum d;
enum d { d1 };
enum e ve;
//     ^
// expect: error #71 incomplete type is not allowed
enum f {};
//      ^
// expect: error #41 expected an identifier
struct g {};
union h {};
struct i { int : 3; };
struct j { struct j inner; };
//                  ^
// expect: error #71 incomplete type is not allowed
struct k { struct k *inner, again; };
//                          ^
// expect: error #71 incomplete type is not allowed
struct l { int a; struct { int b; union { int c; float d; }; }; };
struct m { int a; struct { int a; }; };
//                             ^
// expect: error #102 "a" has already been declared in the current scope
struct n { struct { int a; }; union { int b; int a; }; };
//                                               ^
// expect: error #102 "a" has already been declared in the current scope
struct o { struct tagged { int a; }; int b; };
struct p { int; int b; };
//         ^
// expect: warning #65 declaration does not declare anything
struct q { const; int b; };
//         ^
// expect: warning #65 declaration does not declare anything
struct r { int x, x; };
//                ^
// expect: error #102 "x" has already been declared in the current scope
struct s { int x; float x; };
//                      ^
// expect: error #102 "x" has already been declared in the current scope
struct t { static int x; };
//         ^
// expect: error #81 a storage class may not be specified here
struct u { typedef int x; };
//         ^
// expect: error #989 "typedef" may not be specified here
struct v { extern int x; register int y; auto int z; };
//         ^
// expect: error #81 a storage class may not be specified here
//                       ^
// expect: error #81 a storage class may not be specified here
//                                       ^
// expect: error #81 a storage class may not be specified here
struct w { int x = 1; };
//               ^
// expect: error #66 expected a ";"
struct x { int x() ; };
//             ^
// expect: error #170 function type is not allowed here
struct y { inline int x; };
//         ^
// expect: warning #328 "inline" is not allowed
struct z { void x; void *y; };
//              ^
// expect: error #71 incomplete type is not allowed
struct a0 { int x[]; int y; };
//              ^
// expect: error #71 incomplete type is not allowed
struct b0 { int x[]; };
//              ^
// expect: error #1083 type containing an unknown-size array is not allowed
struct c0 { int n; int x[]; };
struct c0 cs[2];
//          ^
// expect: warning #1986 an array of a type with a flexible array member is nonstandard
struct d0 { struct c0 inner; };
struct e0 { struct c0 inner; int after; };
union f0 { int a; int x[]; };
//                    ^
// expect: error #1083 type containing an unknown-size array is not allowed
struct g0 { int x[][]; };
//               ^
// expect: error #99 an array may not have elements of this type
struct h0 { int n; int x[0]; };
struct i0 { int x[-1]; };
//                ^
// expect: error #95 the size of an array must be greater than zero
int length;
struct j0 { int x[length]; };
//                ^
// expect: error #28 expression must have a constant value
struct k0 { int a int b; };
//                ^
// expect: error #66 expected a ";"
struct l0 { int a, ; };
//                 ^
// expect: error #41 expected an identifier
struct m0 { a; };
//          ^
// expect: error #20 identifier "a" is undefined
struct n0 { struct undefined u; struct undefined *p; };
//                           ^
// expect: error #71 incomplete type is not allowed
struct o0 { int a; } const;
//                   ^
// expect: warning #21 type qualifiers are meaningless in this declaration
struct p0 { int a; } static sp;
struct q0 { int a; } typedef tq;
tq vq;
struct r0 { int (*f)(struct r0 *); int (*g[3])(void); };
enum s0 { s1 = 5, s2 = s1, s3 = s4, s4 };
//                              ^
// expect: error #20 identifier "s4" is undefined
enum t0 { t1 = -1, t2 = 1.5, t3 = (int)2.5, t4 = "x" };
//                      ^
// expect: error #159 expression must be an integral constant expression
//                                               ^
// expect: error #159 expression must be an integral constant expression
enum u0 { u1 = length };
//             ^
// expect: error #28 expression must have a constant value
enum v0 { v1, v2, };
enum w0 { w1,, w2 };
//           ^
// expect: error #41 expected an identifier
enum x0 { 1 };
//        ^
// expect: error #41 expected an identifier
enum y0 { y1 y2 };
//           ^
// expect: error #68 expected a "}"
struct { int a; };
// expect: warning #65 declaration does not declare anything
struct;
//    ^
// expect: error #41 expected an identifier
enum;
//  ^
// expect: error #41 expected an identifier
int inner(void) {
  struct a { float y; } va = { 1.0f };
  union b { int q; } vb;
  struct b other;
//       ^
// expect: error #471 tag kind of struct is incompatible with declaration of union "b"
  struct b;
//       ^
// expect: error #471 tag kind of struct is incompatible with declaration of union "b"
  { struct b { int z; } fresh; fresh.z = 1; }
  enum c { c1 = 7 };
  struct z0 *p = 0;
  p->x = 1;
// expect: error #71 incomplete type is not allowed
  va.x = 1;
//   ^
// expect: error #137 struct "a" has no field "x"
  return sizeof(struct a) + c1;
}
