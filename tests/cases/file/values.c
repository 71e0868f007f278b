// options: --c11 --abi=eabi --little_endian
// Initial values of every shape.
int scalar = 3, zero = 0, none;
long long wide = -1234567890123LL;
unsigned long long big = 0xfedcba9876543210ULL;
float f = 1.5f; double d = 1e300; float tiny = 1e-45f;
char text[8] = "abc", exact[3] = "xyz", all[] = "a\0b";
const char *pointer = "text", *inside = "inside" + 2;
int *address = &scalar, *element = 0; 
int array[10] = {1, 2, [7] = 8, 9};
struct point { int x, y; char name[4]; } point = {.y = 2, .name = "p"}, line[3] = {{1, 2}, [2] = {.x = 5}};
int *into = &array[3]; int *member = &line[2].y;
union u { char c; int i; double d; } u = {1}, v = {.d = 2.5};
int (*function)(void); int get(void); int (*known)(void) = get;
struct list { struct list *next; int value; } last = {0, 1}, first = {&last, 2};
int table[2][3] = {{1}, {4, 5, 6}};
const struct point *literal = &(struct point){7, 8, "q"};
unsigned cast = (unsigned)&scalar; long difference = (char *)&array[4] - (char *)&array[1];
struct flexible { int n; char rest[]; } flexible = {2, "hi"};
_Bool yes = 5; enum e { e0, e1 = 7 } e = e1;
