// options: --c99 --strict --remarks
// Old forms of functions, which newer dialects only remark.
int proto(int, int);
int proto();
//  ^
// expect: remark #1273 the parameter types of function "proto" are lost in this declaration
void knr(a) {
//       ^
// expect: remark #1105 parameter "a" is not declared, "int" assumed
//       ^
// expect: remark #880 variable "a" was never referenced
}
asm("x");
//  ^
// expect: error #80 expected a type specifier
