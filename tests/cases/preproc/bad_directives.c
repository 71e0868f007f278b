// options: --gcc
#define f(a, a) a
// expect: error #50 duplicate macro parameter
//           ^
#define g(a) #b
// expect: error #53 macro parameter
//            ^
#define h ## a
// expect: error #51 first
//        ^
#undef 3
// expect: error #41 identifier
//     ^
#bogus
// expect: error #11 unrecognized
#else
// expect: error #37 missing
int x;
