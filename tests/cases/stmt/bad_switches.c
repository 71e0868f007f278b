// options: --c11
enum Color { RED, GREEN, BLUE } color;
struct S { int a; } s;
int i, *p;
float f;
long long ll;
unsigned char uc;
const int ci = 3;
void values(int n, unsigned u) {
  switch (n) { case 1: case 2: case 3: case 1 + 1: break; }
//                                          ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 'a': case 97: ; }
//                            ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case RED: case 0: ; }
//                            ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case -1: case 0xFFFFFFFF: ; }
//                                     ^
// expect: warning #69 integer conversion resulted in a change of sign
//                           ^
// expect: error #1851 case label value has already appeared in this switch
  switch (u) { case -1: case 0xFFFFFFFF: ; }
//                    ^
// expect: warning #69 integer conversion resulted in a change of sign
//                           ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 5: case 3: case 9: case 7: case 3: case 8: case 9: ; }
//                                                  ^
// expect: error #1851 case label value has already appeared in this switch
//                                                                  ^
// expect: error #1851 case label value has already appeared in this switch
  switch (ll) { case 1LL << 32: case 0: case 1LL << 33: ; }
  switch (uc) { case 0: case 256: case 512: ; }
  switch (color) { case RED: case GREEN: case 7: ; }
  switch (n) { case ci: ; }
//                  ^
// expect: error #28 expression must have a constant value
  switch (n) { case n: ; }
//                  ^
// expect: error #28 expression must have a constant value
  switch (n) { case 1.0: ; }
//                  ^
// expect: error #159 expression must be an integral constant expression
  switch (n) { case (int)1.9: case 1: ; }
//                                 ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case "a": ; }
//                  ^
// expect: error #159 expression must be an integral constant expression
  switch (n) { case sizeof(int): case 4: ; }
//                                    ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 1 / 0: ; }
//                    ^
// expect: error #40 division by zero
  switch (n) { case &i: ; }
//                  ^
// expect: error #159 expression must be an integral constant expression
  switch (n) { case undefined_here: case 1: ; }
//                  ^
// expect: error #20 identifier "undefined_here" is undefined
  switch (n) { case : ; }
//                  ^
// expect: error #29 expected an expression
  switch (n) { case 1 ; }
//                    ^
// expect: error #54 expected a ":"
//                      ^
// expect: warning #128 expected a statement
  switch (n) { case 1, 2: ; }
//                   ^
// expect: error #54 expected a ":"
  switch (n) { case (1, 2): ; }
//                    ^
// expect: error #58 this operator is not allowed in a constant expression
  switch (n) { case i = 1: ; }
//                    ^
// expect: error #58 this operator is not allowed in a constant expression
  switch (n) { case 1 ? 2 : 3: case 2: ; }
//                                  ^
// expect: error #1851 case label value has already appeared in this switch
}
void ranges(int n) {
  switch (n) { case 1 ... 3: case 2: ; }
//                                ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 2: case 1 ... 3: ; }
//                          ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 1 ... 3: case 3 ... 5: ; }
//                                ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 1 ... 3: case 4 ... 6: case 0: case 7: ; }
  switch (n) { case 3 ... 1: ; }
//                        ^
// expect: error #1191 the second constant in a case range must be larger than the first
  switch (n) { case 1 ... 1: case 1: ; }
//                                ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 1 ... n: ; }
//                        ^
// expect: error #28 expression must have a constant value
  switch (n) { case -5 ... -1: case 0 ... 5: case -3: ; }
//                                                ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 'a' ... 'z': case 'A' ... 'Z': case '_': case 'q': ; }
//                                                                ^
// expect: error #1851 case label value has already appeared in this switch
  switch (n) { case 1 ... : ; }
//                        ^
// expect: error #29 expected an expression
}
void selectors(void) {
  switch (p) { case 0: ; }
//        ^
// expect: error #31 expression must have integral type
  switch (s) { case 0: ; }
//        ^
// expect: error #31 expression must have integral type
  switch (f) { case 0: ; }
//        ^
// expect: error #31 expression must have integral type
  switch ((void)0) { case 0: ; }
//        ^
// expect: error #31 expression must have integral type
  switch (values) { case 0: ; }
//        ^
// expect: error #31 expression must have integral type
  switch (undefined) { case 1: case 1: ; }
//        ^
// expect: error #20 identifier "undefined" is undefined
//                                  ^
// expect: error #1851 case label value has already appeared in this switch
  switch () { case 0: ; }
//        ^
// expect: error #29 expected an expression
  switch (int x = 1) { case 0: ; }
//        ^
// expect: error #256 type name is not allowed
  switch (color) case RED: i = 1;
  switch (i) i = 1;
//           ^
// expect: warning #112 statement is unreachable
  switch (i) ;
  switch (i) { }
  switch (i) default: ;
}
void shapes(int n) {
  switch (n) { default: default: ; }
//                      ^
// expect: error #125 a second default label stands in this switch
  switch (n) { case 1: switch (n) { case 1: default: ; } default: ; }
  switch (n) { case 1: { case 2: ; } while (n) { case 3: n--; } if (n) { case 4: ; } }
  switch (n) { case 1: }
//                     ^
// expect: warning #128 expected a statement
  switch (n) { case 1: int v; }
//                     ^
// expect: warning #1148 a declaration cannot have a label
  switch (n) { int hidden = 1; case 1: i = hidden; }
  switch (n) { case 1: continue; }
//                     ^
// expect: error #116 a continue statement must stand in a loop
  while (n) switch (n) { case 1: continue; default: break; }
  case 1: default: break;
// expect: error #122 a case label must stand in a switch
//        ^
// expect: error #123 a default label must stand in a switch
//                 ^
// expect: error #117 a break statement must stand in a loop or switch
}
