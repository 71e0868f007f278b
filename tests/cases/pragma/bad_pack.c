// options: --c11 --gcc
// Packing is a power of two.
#pragma pack(2)
struct s { int a; };
#pragma pack(3)
//           ^
// expect: error #663 invalid packing alignment value
struct t { int a; };
