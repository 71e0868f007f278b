// options: --c11 --gcc
// The word alone, at the end of the file.
asm
// expect: error #126 expected a "("
