// options: --c11
typedef int A3[3];
struct P { int x; const int cx; } pv;
struct Q { int x; int bits : 4; A3 arr; } q;
union U { int i; const float cf; } u1, u2;
struct Deep { struct { A3 a; const int c[2]; } in[2]; } d1, d2;
extern const volatile int port;
extern const A3 table;
extern struct Open open1, open2;
enum E { EA, EB };
struct Q make(void);
int i, *p;
const int *pc;
int *const cp = &i;
void *vp;
int two(int a, int b);
void assign(int n, const int k, int param[const]) {
  port = 1;
// expect: error #138 expression must be a modifiable lvalue
  table[1] = 2;
// expect: error #138 expression must be a modifiable lvalue
  *pc = 3;
// expect: error #138 expression must be a modifiable lvalue
  pc[2]++;
// expect: error #138 expression must be a modifiable lvalue
  pc = &i;
  cp = &i;
// expect: error #138 expression must be a modifiable lvalue
  *cp = 4;
  ++cp;
//  ^
// expect: error #138 expression must be a modifiable lvalue
  cp[0] = 5;
  k -= 1;
// expect: error #138 expression must be a modifiable lvalue
  param = p;
// expect: error #138 expression must be a modifiable lvalue
  param[0] = n;
  pv.x = 1;
  pv.cx = 1;
// expect: error #138 expression must be a modifiable lvalue
  pv = pv;
// expect: error #138 expression must be a modifiable lvalue
  u1 = u2;
// expect: error #138 expression must be a modifiable lvalue
  u1.i = 3;
  d1 = d2;
// expect: error #138 expression must be a modifiable lvalue
  d1.in[0].a[1] = 2;
  d1.in[0].c[1] = 2;
// expect: error #138 expression must be a modifiable lvalue
  open1 = open2;
// expect: error #138 expression must be a modifiable lvalue
  EA = 1;
// expect: error #138 expression must be a modifiable lvalue
  EB++;
// expect: error #138 expression must be a modifiable lvalue
  "text" = 0;
// expect: error #138 expression must be a modifiable lvalue
  q.arr = d1.in[0].a;
// expect: error #138 expression must be a modifiable lvalue
  make().x = 1;
// expect: error #138 expression must be a modifiable lvalue
  make().arr[0] = 1;
  (i++, n) = 1;
// expect: error #138 expression must be a modifiable lvalue
  (i ? i : n) = 1;
// expect: error #138 expression must be a modifiable lvalue
  (i = n) = 2;
// expect: error #138 expression must be a modifiable lvalue
  -i = 2;
// expect: error #138 expression must be a modifiable lvalue
  !i++;
// expect: warning #176 expression has no effect
  (int)i = 2;
// expect: error #138 expression must be a modifiable lvalue
  (int)i += 2;
// expect: error #138 expression must be a modifiable lvalue
  ((i)) = 2;
  *&i = 3;
  *vp = 0;
// expect: error #138 expression must be a modifiable lvalue
  sizeof i = 4;
// expect: error #138 expression must be a modifiable lvalue
  this_is_missing = 4;
// expect: error #20 identifier "this_is_missing" is undefined
  two = 0;
// expect: error #138 expression must be a modifiable lvalue
  two++;
// expect: error #138 expression must be a modifiable lvalue
  two(1, 2)++;
// expect: error #138 expression must be a modifiable lvalue
  --3;
//  ^
// expect: error #138 expression must be a modifiable lvalue
  i++--;
// expect: error #138 expression must be a modifiable lvalue
  (void)i = 1;
// expect: error #138 expression must be a modifiable lvalue
}
void address(register int r) {
  register struct Q rq;
  p = &i++;
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = &(i + 1);
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = &-i;
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = &two(1, 2);
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = &make().x;
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = &q.bits;
//     ^
// expect: error #140 taking the address of a bit-field is not allowed
  p = &(int)i;
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = &&i;
//    ^
// expect: error #1489 GCC && operator not supported
  p = &EA;
//     ^
// expect: error #160 expression must be an lvalue or a function designator
  p = &"s"[1] == 0 ? p : 0;
  p = &(q.arr)[1];
  p = &*p;
  p = &p[i];
  p = (int *)&q;
  (void)&two;
  (void)&*two;
  (void)&open1;
  (void)&table;
  (void)&"abc";
  (void)&(struct Q){1};
  (void)&make();
//       ^
// expect: error #160 expression must be an lvalue or a function designator
  (void)&1;
//       ^
// expect: error #160 expression must be an lvalue or a function designator
  (void)&r;
//       ^
// expect: warning #139 taking the address of a register variable is not allowed
  (void)&rq.x;
//       ^
// expect: warning #139 taking the address of a register variable is not allowed
}
