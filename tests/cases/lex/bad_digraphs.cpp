// options: --c++03 --strict --remarks
// Digraphs that look like an accident, and words of other dialects.
template_<::a> x;
//       ^
// expect: warning #725 use of alternative token "<:" appears to be unintended
//         ^
// expect: error #29 expected an expression
//              ^
// expect: error #17 expected a "]"
int y[<:1:>];
//    ^
// expect: error #29 expected an expression
%: define
//       ^
// expect: error #41 expected an identifier
int typeof_; int alignof;
