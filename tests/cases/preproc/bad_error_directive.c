// options: --c99
// status: 4
int before = 1 % 2.5;
//               ^
// expect: error #31 expression must have integral type
#error here it is
// expect: fatal error #35 #error directive: here it is
int after = 1 % 2.5;
