// options: --c11 --gcc
// The word alone.
asm
;
// expect: error #126 expected a "("
