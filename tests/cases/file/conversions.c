// options: --c11 --abi=eabi
// Conversions between all kinds of arithmetic types.
int to_int(long long q, double d, float f, unsigned char c) { return (int)q + (int)d + (int)f + c; }
unsigned to_unsigned(signed char c, short s, double d) { return c + (unsigned)s + (unsigned)d; }
long long to_wide(int i, unsigned u, float f) { return i + (long long)u + (long long)f; }
char to_char(int i, long long q) { return (char)i + (unsigned char)q; }
_Bool to_bool(int i, double d, int *p, long long q) { return (_Bool)i | (_Bool)d | (_Bool)p | !!q; }
float to_float(int i, double d, long long q) { return i + (float)d + q; }
double to_double(unsigned u, float f) { return u + f * 2; }
void *to_pointer(unsigned u, int *p) { return u ? (void *)u : (char *)p + 1; }
unsigned from_pointer(void *p) { return (unsigned)p; }
int compare(unsigned u, int i, char c, double d) { return (u < 5) + (i > c) + (d <= i) + (u == (unsigned)i); }
