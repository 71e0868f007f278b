// options: --gcc
#define CAT(a, b) CAT_(a, b)
#define CAT_(a, b) a##b
#define STR(x) #x
#define LIST(f) f(one) f(two)
#define ENTRY(n) int CAT(n, _count) = sizeof STR(n);
#define CALL(f, ...) f(0, ##__VA_ARGS__)
LIST(ENTRY)
int call(int a, ...);
int use(void) { return CALL(call) + CALL(call, 1, 2) + one_count + two_count; }
