#define two(a, b) a + b
int x = two(1, 2);  // a comment
/* another
   comment */ int y = two(__LINE__,
                          4), z = 1 \
  + two(5, 6);
const char *s = "spli\
ced";
#ifdef two
int w;
#else
int two(
#endif
