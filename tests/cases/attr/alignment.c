// options: --c11 --gcc
struct reduced { int a __attribute__((aligned(1))); };
//                   ^
// expect: warning #1236 a reduction in alignment without the "packed" attribute is ignored
#pragma DATA_ALIGN(fn, 8)
//      ^
// expect: warning #824 pragma DATA_ALIGN can only be applied to a file level symbol definition, not "fn"
void fn(void) {}
#pragma NO_HOOKS(undefined)
//      ^
// expect: warning #827 specified symbol 'undefined' undefined
