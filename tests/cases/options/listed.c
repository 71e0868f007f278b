#define plain 1 + 2
#define empty
#define f(a, b) a##b #a a   b
#define v(...) <__VA_ARGS__>
#define w(a, rest...) a, ##rest
#define none() x
#define gone 1
#undef gone
#define again 1
#undef again
#define again 2
#define hash # ## #
#define text "a  b" '\''
int plain_;
