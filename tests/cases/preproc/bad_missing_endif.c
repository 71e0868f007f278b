// options: --gcc
#if 1
// expect: error #38 missing
int x;
