// options: --c11 --gcc
// A flexible array member is the last of a struct and not its only one.
struct good { int n; char rest[]; };
struct alone { int a[]; };
//                 ^
// expect: error #1083 type containing an unknown-size array is not allowed
struct middle { int n; int a[]; int last; };
//                         ^
// expect: error #71 incomplete type is not allowed
union none { int n; int a[]; };
//                      ^
// expect: error #1083 type containing an unknown-size array is not allowed
struct inner { int n; struct good inside; };
struct good array[2];
//               ^
// expect: warning #1986 an array of a type with a flexible array member is nonstandard
struct zero { int a[0]; };
int size = sizeof(struct good);
int end = sizeof(((struct good *)0)->rest);
//              ^
// expect: error #71 incomplete type is not allowed
