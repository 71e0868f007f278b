// options: --c11 --gcc
// An alignment is a power of two.
int data, more;
#pragma DATA_ALIGN(data, 16)
#pragma DATA_ALIGN(more, 3)
//      ^
// expect: error #818 integer parameter of pragma DATA_ALIGN must be power of 2
