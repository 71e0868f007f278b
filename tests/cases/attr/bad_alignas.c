// options: --c11 --remarks
struct s { int a; } x;
int _Alignas(8) late;
int *_Alignas(16) pointer;
//   ^
// expect: error #41 expected an identifier
_Alignas(8) int early;
void f(_Alignas(8) int p);
//     ^
// expect: error #2830 alignas does not apply here
_Alignas(8) typedef int t;
// expect: error #2830 alignas does not apply here
struct b { _Alignas(8) int c : 3; };
//         ^
// expect: error #2105 attribute "_Alignas" does not apply to bit-fields
_Alignas(2) int less;
// expect: error #2150 alignment cannot be set to less than the default alignment
register _Alignas(16) int r;
//                        ^
// expect: error #151 a storage class of this kind is not allowed at file scope
struct _Alignas(8) aligned_tag { int a; };
//     ^
// expect: error #1174 attribute "_Alignas" is not allowed here
