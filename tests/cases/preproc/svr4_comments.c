/* options: --svr4 */
#define cat(a, b) a/**/b
/*                 ^ */
/* expect: warning #786 empty comment interpreted as token-pasting operator "##" */
#define apart(a, b) a/**/ b
#define full(a, b) a/* */b
#define both(a, b) <a /**/b>
/*                    ^ */
/* expect: warning #786 empty comment */
#define ends(a) a /**/
#define starts(a) /**/a
cat(in, t) cat(, v) = starts(1) ends(+) 1;
apart(int, w);
full(int, z);
