int été = undef1;
int b = /* €😀 */ undef2;
const char *s = "😀" + undef3;
