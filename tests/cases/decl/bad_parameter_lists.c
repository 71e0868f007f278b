// options: --c11
// One message for a parameter list that is none; calls are not held against it.
int f1(* *p, int **q) { return **q + (p != 0); }
//     ^
// expect: error #80 expected a type specifier
int f2(int a, , char *x, int j) { return a + j + *x; }
//            ^
// expect: error #80 expected a type specifier
int f3(int a, ) { return a; }
//            ^
// expect: error #80 expected a type specifier
int f4(void !) { return 0; }
//          ^
// expect: error #18 expected a ")"
extern void f5(void ;
//                  ^
// expect: error #18 expected a ")"
extern int f6(int a, int b ;
//                         ^
// expect: error #18 expected a ")"
int f7(int goto, int b) { return 1; }
//         ^
// expect: error #18 expected a ")"
int after(void) { return f1(1) + f2(1) + f3() + f4(1) + f6(1) + f7(2); }
