// options: --c11
struct Open *po;
extern struct Open eo;
struct S { int a; struct { int in; union { int u1; float u2; }; }; int bits : 3; struct S *next; } s, *ps, **pps, as[2];
const struct S cs = {1};
union U { int i; float f; } u;
struct S mk(void), *mkp(void);
int i, a, *p;
enum E { E0 } e;
void select(void) {
  i = s.a + ps->a + (*ps).a + as->a + as[1].a + (&s)->a;
  i = mk().a + mkp()->a + (i ? s : *ps).a + (i, s).a + (s = *ps).a;
//                                           ^
// expect: warning #176 expression has no effect
  i = s.in + s.u1 + s.u2 + ps->u1;
  i = ps->next->next->a + (*pps)->a;
  i = ps.a;
//    ^
// expect: error #156 expression must have struct or union type
  i = s->a;
//    ^
// expect: error #133 expression must have pointer-to-struct-or-union type
  i = pps->a;
//    ^
// expect: error #133 expression must have pointer-to-struct-or-union type
  i = po->a;
//    ^
// expect: error #71 incomplete type is not allowed
  i = (*po).a;
//    ^
// expect: error #71 incomplete type is not allowed
  i = eo.a;
//    ^
// expect: error #71 incomplete type is not allowed
  i = u.a;
//      ^
// expect: error #137 union "U" has no field "a"
  i = u.i.x;
//    ^
// expect: error #156 expression must have struct or union type
  i = e.a;
//    ^
// expect: error #156 expression must have struct or union type
  i = p->a;
//    ^
// expect: error #133 expression must have pointer-to-struct-or-union type
  i = 5 .a;
//    ^
// expect: error #156 expression must have struct or union type
  i = s.S;
//      ^
// expect: error #137 struct "S" has no field "S"
  i = s.E0;
//      ^
// expect: error #137 struct "S" has no field "E0"
  i = s.next.a;
//    ^
// expect: error #156 expression must have struct or union type
  i = mk()->a;
//    ^
// expect: error #133 expression must have pointer-to-struct-or-union type
  i = s.missing.further.further;
//      ^
// expect: error #137 struct "S" has no field "missing"
  i = s.;
//      ^
// expect: error #135 expected a field name
  i = s.int;
//      ^
// expect: error #135 expected a field name
  i = s.(a);
//      ^
// expect: error #135 expected a field name
  i = ps->;
//        ^
// expect: error #135 expected a field name
  i = ps->*p;
//        ^
// expect: error #135 expected a field name
  cs.next->a = 2;
  cs.next = ps;
// expect: error #138 expression must be a modifiable lvalue
  cs.bits = 1;
// expect: error #138 expression must be a modifiable lvalue
  mk.a;
// expect: error #156 expression must have struct or union type
  mk()().a;
// expect: error #110 expression preceding parentheses of apparent call must have (pointer-to-) function type
  undefined.a;
// expect: error #20 identifier "undefined" is undefined
  undefined2->a.b;
// expect: error #20 identifier "undefined2" is undefined
}
