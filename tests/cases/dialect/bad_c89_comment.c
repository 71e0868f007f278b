/* options: --c89 --strict */
/* The comment of C++ is two divisions. */
int ok = 4 / 2;
// not a comment
/* expect: warning #2581 '//' comments are not allowed in strict C89 mode */
/* expect: error #171 expected a declaration */
/* expect-at-end: warning #12 parsing restarts */
