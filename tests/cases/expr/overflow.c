// options: --c11
int a1 = 2147483647 + 1;
//                  ^
// expect: warning #62 integer operation result is out of range
int a2 = -2147483647 - 2;
//                   ^
// expect: warning #62 integer operation result is out of range
int a3 = 65536 * 65536;
//             ^
// expect: warning #62 integer operation result is out of range
int a4 = -(-2147483647 - 1);
//       ^
// expect: warning #62 integer operation result is out of range
int a5 = (-2147483647 - 1) / -1;
//                         ^
// expect: warning #62 integer operation result is out of range
int a6 = 2147483647 - -1;
//                  ^
// expect: warning #62 integer operation result is out of range
unsigned a7 = 4294967295u + 1u;
unsigned a8 = 0u - 1u;
long long a9 = 9223372036854775807LL + 1;
//                                   ^
// expect: warning #62 integer operation result is out of range
unsigned long long a10 = 18446744073709551615ULL + 1;
int a11 = 1 << 31;
int a12 = 1 << 30;
int a13 = 2147483647 << 1;
unsigned a14 = 1u << 31;
long long a15 = 1LL << 63;
int a16 = 1 >> 31;
int a17 = -1 >> 31;
int a18 = 2147483648 - 1;
int b1 = 2147483648;
//       ^
// expect: warning #69 integer conversion resulted in a change of sign
int b2 = -2147483648;
unsigned b3 = 4294967296;
//            ^
// expect: warning #70 integer conversion resulted in truncation
unsigned b4 = -1;
//            ^
// expect: warning #69 integer conversion resulted in a change of sign
unsigned b5 = (unsigned)-1;
signed char b6 = 128;
//               ^
// expect: warning #69 integer conversion resulted in a change of sign
signed char b7 = -128;
signed char b8 = -129;
//               ^
// expect: warning #69 integer conversion resulted in a change of sign
unsigned char b9 = 255;
unsigned char b10 = 256;
//                  ^
// expect: warning #70 integer conversion resulted in truncation
unsigned char b11 = -1;
//                  ^
// expect: warning #69 integer conversion resulted in a change of sign
unsigned char b12 = ~0;
short b13 = 32768;
//          ^
// expect: warning #69 integer conversion resulted in a change of sign
short b14 = 0xFFFF;
//          ^
// expect: warning #69 integer conversion resulted in a change of sign
unsigned short b15 = 65536;
//                   ^
// expect: warning #70 integer conversion resulted in truncation
char b16 = 255;
char b17 = 'a' + 300;
//         ^
// expect: warning #70 integer conversion resulted in truncation
_Bool b18 = 256;
int b19 = 1e9;
int b20 = 2.5;
unsigned char b21 = 255.5;
long long b22 = 18446744073709551615ULL;
//              ^
// expect: warning #69 integer conversion resulted in a change of sign
float b23 = 16777217;
enum { E3 = 4294967295u };
void assign(void) {
  signed char c;
  unsigned char uc;
  unsigned u;
  c = 127, c = -128;
  c = 128;
//    ^
// expect: warning #69 integer conversion resulted in a change of sign
  uc = 256;
//     ^
// expect: warning #70 integer conversion resulted in truncation
  uc = (unsigned char)256;
  u = -1;
//    ^
// expect: warning #69 integer conversion resulted in a change of sign
  u = ~0;
  u = -1u;
  c += 200;
  uc |= 0x100;
  uc = uc + 256;
  uc = 1 ? 2 : 300;
  c = u;
  u = 3000000000;
  u = 1 - 2;
//    ^
// expect: warning #69 integer conversion resulted in a change of sign
}
