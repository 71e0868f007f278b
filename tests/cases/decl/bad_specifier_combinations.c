// options: --c99
// Type keywords that do not go together, and those that are only repeated.
long long long a;
//        ^
// expect: error #85 invalid combination of type specifiers
int use_a = sizeof(a) == 8;
unsigned signed b;
//       ^
// expect: error #85 invalid combination
unsigned unsigned c;
//       ^
// expect: error #242 duplicate specifier
short double d;
// expect: error #85 invalid combination
int char e;
//  ^
// expect: error #85 invalid combination
static extern int f;
//     ^
// expect: error #82 more than one storage class
const const int g = 1;
//    ^
// expect: warning #84 type qualifier specified more than once
missing_t h;
// expect: error #20 identifier "missing_t" is undefined
static missing_t *i;
//     ^
// expect: error #20 identifier "missing_t" is undefined
auto int j;
// expect: warning #1235 "auto" ignored at file scope
int k[sizeof(long unsigned int long) == 8 ? 1 : -1];
double long m;
unsigned char const static n = 1;
