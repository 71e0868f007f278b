// options: --c99 --gcc --version=7M4
// What the target's intrinsics ask of their arguments.
int extract(int a) { return _sxtb(a, 8) + _sxtab(a, a, 16); }
int not_multiple(int a) { return _sxtb(a, 9); }
//                                        ^
// expect: error #1366 integer constant must be a multiple of 8
int too_much(int a) { return _sxtb(a, 32) + _ssatl(a, 3, 32); }
//                                    ^
// expect: error #23 integer constant is too large
//                                                       ^
// expect: error #23 integer constant is too large
int out_of_range(int a) { return _ssat16(a, 0) + _ssat16(a, 17); }
//                                          ^
// expect: error #1453 integer is out of allowable range for parameter
//                                                          ^
// expect: error #1453 integer is out of allowable range for parameter
void delay(int n) { __delay_cycles(10); __delay_cycles(n); }
//                                                     ^
// expect: error #664 expected an integer constant
void coprocessor(void) { __MCR(15, 0, 1, 2, 3, 4); __MCR(16, 8, 1, 2, 3, 4); }
//                                                       ^
// expect: error #23 integer constant is too large
//                                                           ^
// expect: error #23 integer constant is too large
int object, array[3];
unsigned address(int n) { return _symval(&object) + _symval(array) + _symval(address); }
unsigned no_address(int n) { return _symval(n + (char *)0); }
//                                  ^
// expect: error #2635 The argument to _symval must be the address of a global scope variable
void ranged(int a __attribute__((constrange(1, 5))));
void call(int n) { ranged(1); ranged(5); ranged(0); ranged(n); ranged(6); }
//                                              ^
// expect: error #1453 integer is out of allowable range for parameter [Value: 0, Allowable Range: (1,5)]
//                                                         ^
// expect: error #1512 input argument is not a valid constant
//                                                                    ^
// expect: error #1453 integer is out of allowable range for parameter [Value: 6, Allowable Range: (1,5)]
void bad_range(unsigned a __attribute__((constrange(5, 1))));
//                                       ^
// expect: error #1175 invalid argument to attribute "constrange"
void call_bad_range(void) { bad_range(3); }
