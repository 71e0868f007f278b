static int v1;
#pragma diag_warning 179
static int v2;
#pragma diag_suppress declared_but_not_referenced
static int v3;
#pragma diag_error 179 , 20
static int v4;
#pragma diag_remark (179)
static int v5;
#pragma diag_default 179
static int v6;
#pragma diag_warning 179
#pragma diag_push
#pragma diag_suppress 179
static int v7;
#pragma diag_push
#pragma diag_error 179
static int v8;
#pragma diag_pop
static int v9;
#pragma diag_pop
static int v10;
void f(void) {
#pragma diag_suppress 179
  int l1;
#pragma diag_warning 179
  int l2;
#pragma diag_error 179
}
#define LOUD _Pragma("diag_warning 179")
_Pragma("diag_push") _Pragma("diag_suppress 179") void g(void) { int u1; } _Pragma("diag_pop")
void h(void) { int u2; } LOUD void i(void) { int u3; }
#pragma diag_once 176
#pragma diag_suppress 179
void j(int a) {
  a == 1;
  a == 2;
#pragma diag_once 174
  a == 3;
}
#pragma diag_pop
#pragma diag_pop 1
#pragma diag_push (x)
#pragma diag_suppress
#pragma diag_suppress 5000
#pragma diag_suppress 0
#pragma diag_suppress no_such_tag, 20
#pragma diag_suppress 20 177
#pragma diag_suppress 20,
#pragma diag_suppress "x"
#pragma diag_suppress 20, "x", 5000
#pragma diag_suppress (20
#pragma diag_suppress (20) more
#pragma diag_suppress 20,,177
#pragma diag_suppress 99999999999999999999
#define TAG declared_but_not_referenced
#pragma diag_suppress TAG
#pragma diag_error 3
int k = undef;
