// options: --c11 --gcc
// Variable arguments outside of a function that has them, and of types that do not travel.
int no_ellipsis(int n) { __builtin_va_list list; __builtin_va_start(list, n); return n; }
//                                                                  ^
// expect: error #1239 va_start is only allowed in a function with an ellipsis
int not_last(int n, int m, ...) { __builtin_va_list list; __builtin_va_start(list, n); return n; }
int not_param(int n, ...) { int k; __builtin_va_list list; __builtin_va_start(list, k); return n; }
//                                                                                  ^
// expect: error #1117 operand must be a parameter of the function
int narrow(char c, ...) { __builtin_va_list list; __builtin_va_start(list, c); return __builtin_va_arg(list, char); }
//                                                                                                           ^
// expect: warning #1221 a value of type "char" arrives as "int" among variable arguments
int reg(register int c, ...) { __builtin_va_list list; __builtin_va_start(list, c); return __builtin_va_arg(list, float); }
//                                                                                                                ^
// expect: warning #1221 a value of type "float" arrives as "double" among variable arguments
