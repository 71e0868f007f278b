// options: --c99 --strict
enum a { big = 0x80000000 };
//             ^
// expect: error #67 enumeration value is out of "int" range
enum b { top = 0x7fffffff, over };
//                         ^
// expect: error #67 enumeration value is out of "int" range
enum c { twice, twice };
//              ^
// expect: error #102 "twice" has already been declared
enum d { };
//       ^
// expect: error #41 expected an identifier
enum f { comma, };
int value = comma;
