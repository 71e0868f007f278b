// options: -E --c --gcc --gnu_version=30200
char *L2 = "one
two \
still two
three" "/* four
five */"; int L6;
int L7;
