// options: --c11 --gcc
int right1(int, char *); int right1(a, b) int a; char *b; { return a; }
int right2(int); int right2(a) char a; { return a; }
int right3(double); int right3(a) float a; { return a; }
int right4(int); int right4(a) const short a; { return a; }
int right5(int); int right5(a) { return a; }
int right6(); int right6(a, b) float a; char b; { return a; }
int right7(a) char a; { return a; } int right7(int);
int right8(char, unsigned short); int right8(a, b) char a; unsigned short b; { return a; }
int right9(int *, int (*)(void)); int right9(a, b) int a[3], b(void); { return *a; }
int wrong1(int); int wrong1(a) float a; { return a; }
//                                   ^
// expect: error #148 declaration is incompatible with function "wrong1(int)"
int wrong2(int, int); int wrong2(a) int a; { return a; }
//                                      ^
// expect: error #148 declaration is incompatible with function "wrong2(int, int)"
int wrong3(int); int wrong3(a, b) int a, b; { return a; }
//                                       ^
// expect: error #148 declaration is incompatible with function "wrong3(int)"
int wrong4(char *); int wrong4(a) int *a; { return *a; }
//                                     ^
// expect: error #148 declaration is incompatible with function "wrong4(char *)"
int wrong5(unsigned); int wrong5(a) unsigned short a; { return a; }
//                                                 ^
// expect: error #148 declaration is incompatible with function "wrong5(unsigned int)"
int wrong6(int, ...); int wrong6(a) int a; { return a; }
//                        ^
// expect: error #148 declaration is incompatible with function "wrong6(int, ...)"
int wrong7(int); long wrong7(a) int a; { return a; }
//                    ^
// expect: error #148 declaration is incompatible with function "wrong7(int)"
int wrong8(float); int wrong8(a) double a; { return a; }
//                                      ^
// expect: error #148 declaration is incompatible with function "wrong8(float)"
int wrong9(char); int wrong9(a) unsigned char a; { return a; }
//                                            ^
// expect: error #148 declaration is incompatible with function "wrong9(char)"
int wrong10(a) char a; { return a; } int wrong10(char);
//                                       ^
// expect: error #148 declaration is incompatible with function "wrong10()"
int after(void) { return right8(1, 2) + wrong1(1) + wrong2(1, 2); }
