// options: --c11 --remarks
// A main of an odd form is told in a warning.
void main(long argc, char *argv, char **envp, int more) { (void)argc, (void)argv, (void)envp, (void)more; }
//   ^
// expect: remark #2085 the first parameter of function "main" should be of type "int"
//   ^
// expect: remark #2086 function "main" should have no parameters, or two
//   ^
// expect: remark #2087 the second parameter of function "main" should be of type "char **"
