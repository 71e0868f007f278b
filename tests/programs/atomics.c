/* Atomic builtins: the forms for any size, by what the pointer points to. */
int printf(const char *format, ...);

enum { relaxed, consume, acquire, release, both, ordered };
enum color { red, green = 200 } color = green;
int x = 5;
unsigned char c = 1;
short s = -3;
long long q = 1LL << 40;
int *p = &x;
_Bool b;

static void loads_and_stores(void) {
  int *other = __atomic_load_n(&p, ordered);
  __atomic_store_n(&x, 3, relaxed);
  printf("%d %d\n", __atomic_load_n(&x, relaxed), other == p);
  printf("%d %d\n", __atomic_load_n(&s, acquire), __atomic_load_n(&color, relaxed));
  __atomic_store_n(&p, 0, release);
  printf("%d\n", p == 0);
}
static void exchanges(void) {
  int expected = 7, done;
  long long old = __atomic_exchange_n(&q, -7, relaxed);
  printf("%lld %lld\n", old, q);
  done = __atomic_compare_exchange_n(&x, &expected, 9, 0, ordered, ordered);
  printf("%d %d %d\n", done, expected, x);
  done = __atomic_compare_exchange_n(&x, &expected, 9, 0, ordered, ordered);
  printf("%d %d %d\n", done, expected, x);
  done = __sync_bool_compare_and_swap(&c, 1, 300);
  printf("%d %d\n", done, c);
  done = __sync_val_compare_and_swap(&c, 1, 2);
  printf("%d %d\n", done, c);
}
static void arithmetic(void) {
  int old = __sync_fetch_and_add(&x, 4);
  printf("%d %d\n", old, x);
  old = __sync_sub_and_fetch(&s, 4);
  printf("%d %d\n", old, s);
  old = __atomic_fetch_xor(&c, 0xff, ordered);
  printf("%d %d\n", old, c);
  old = __sync_fetch_and_nand(&x, 3);
  printf("%d %d\n", old, x);
  q = __atomic_fetch_or(&q, 0x100000000, relaxed) + 1;
  printf("%lld\n", q);
}
static void locks(void) {
  int old = __sync_lock_test_and_set(&b, 1);
  printf("%d %d\n", old, b);
  old = __sync_lock_test_and_set(&b, 1);
  __sync_lock_release(&b);
  __sync_synchronize();
  __atomic_thread_fence(ordered);
  printf("%d %d\n", old, b);
}
int main(void) {
  loads_and_stores();
  exchanges();
  arithmetic();
  locks();
  return 0;
}
