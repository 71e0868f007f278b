// options: --c11 --gcc
// A section's name is a string.
int data;
#pragma DATA_SECTION(data, 5)
//                         ^
// expect: error #821 badly formed pragma
