// options: --c99 --abi=eabi --fp_mode=relaxed
// Under relaxed floating point a double math function whose value and arguments are float becomes
// its float form, if that is declared.
double sin(double);
float sinf(float);
double fmod(double, double);
float fmodf(float, float);
long lrint(double);
long lrintf(float);
double cos(double);
float returned(float x) { return sin(x); }
void assigned(float *p, float x) { *p = fmod(x, *p) + sin(2.0f * x); }
float divided(float x, float y) { return (float)fmod(x, y) / y; }
long whole(float x) { return lrint(x); }
int tested(float x) { return lrint(x) ? 1 : 0; }
float of_double(double d, float x) { return sin(d) + fmod(x, d); }
float explicit(float x) { return sin((double)x); }
float undeclared(float x) { return cos(x); }
double wanted(float x) { return sin(x); }
int compared(float x) { return sin(x) > 1; }
