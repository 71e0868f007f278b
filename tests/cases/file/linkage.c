// options: --c11 --gcc --abi=eabi
// Which symbols the file has, and of what class.
static int used = 1, unused = 2; extern int elsewhere, never_mentioned;
int common; static int counter(void) { static int n = 5; return n++; }
static int dropped(void) { return unused; }
int weak_one __attribute__((weak)); void weak_function(void) __attribute__((weak));
int placed __attribute__((section("mine"))) = 3; static int kept __attribute__((used)) = 4;
int renamed asm("other_name"); inline int inlined(int a) { return a; } extern int inlined(int a);
int aligned __attribute__((aligned(16))); void stops(void) __attribute__((noreturn));
int call(void) { extern int local_extern; weak_function(); if (used) stops(); return counter() + elsewhere + local_extern + renamed; }
