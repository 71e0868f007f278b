/* Pointers to everything: arrays, functions, members, pointers; qualified ones; aliasing by char. */
int printf(const char *format, ...);
int strcmp(const char *a, const char *b);
void *malloc(__SIZE_T_TYPE__ size);
void free(void *block);
void qsort(void *base, __SIZE_T_TYPE__ count, __SIZE_T_TYPE__ size, int (*compare)(const void *, const void *));
void *bsearch(const void *key, const void *base, __SIZE_T_TYPE__ count, __SIZE_T_TYPE__ size, int (*compare)(const void *, const void *));

struct item { const char *name; int value; struct item *next; };
typedef int row[4];
typedef struct { int (*call)(void *self, int x); int base; } object;

static int matrix[3][4] = {{1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}};
static int total(int (*m)[4], int rows) { int s = 0, i, j; for (i = 0; i < rows; i++) for (j = 0; j < 4; j++) s += m[i][j]; return s; }
static int *cell(row *m, int i, int j) { return &m[i][j]; }
static void set(int **pp, int *p) { *pp = p; }
static int by_value(const void *a, const void *b) { return ((const struct item *)a)->value - ((const struct item *)b)->value; }
static int by_name(const void *a, const void *b) { return strcmp(((const struct item *)a)->name, ((const struct item *)b)->name); }
static int object_call(void *self, int x) { return ((object *)self)->base + x; }
static struct item *push(struct item *list, const char *name, int value) {
  struct item *n = malloc(sizeof *n);
  n->name = name, n->value = value, n->next = list;
  return n;
}
static void copy(char *restrict to, const char *restrict from) { while ((*to++ = *from++)); }
static int array_parameter(int a[static 2], int n, int b[][4]) { return a[1] * n + b[1][0]; }

int main(void) {
  int i = 1, j = 2, *p = &i, **pp = &p, ***ppp = &pp, (*pa)[4] = matrix, (*whole)[3][4] = &matrix;
  const int *pc = &i;
  int *const cp = &j;
  volatile int vi = 5, *vp = &vi;
  void *v = &i;
  char text[32], *end = text;
  struct item items[] = {{"d", 3}, {"a", 1}, {"c", 9}, {"b", -4}, {"e", 0}}, key = {"c"}, *found, *list = 0;
  object o = {object_call, 100};
  unsigned char *bytes;
  unsigned word = 0x01020304;
  int k, s = 0;
  set(pp, cp), **pp += 10, ***ppp *= 2;
  printf("%d %d %d %d\n", i, j, *pc, *p);
  printf("%d %d %d %d\n", total(matrix, 3), *cell(matrix, 2, 1), (*pa)[3], (*whole)[1][2]);
  pa++;
  printf("%d %d %d %d\n", (*pa)[0], pa[1][1], *(*(pa - 1) + 2), (int)(pa - matrix));
  printf("%d %d\n", (int)((char *)(pa + 1) - (char *)pa), (int)((char *)(&matrix + 1) - (char *)matrix));
  *vp += 1, *(int *)v = 77;
  printf("%d %d\n", vi, i);
  qsort(items, 5, sizeof *items, by_value);
  for (k = 0; k < 5; k++) printf("%s%d ", items[k].name, items[k].value);
  qsort(items, 5, sizeof *items, by_name);
  for (k = 0; k < 5; k++) printf("%s%d ", items[k].name, items[k].value);
  found = bsearch(&key, items, 5, sizeof *items, by_name);
  printf("%d\n", found ? found->value : -1);
  for (k = 0; k < 4; k++) list = push(list, "n", k);
  for (found = list; found; found = found->next) s = s * 10 + found->value;
  while (list) { struct item *next = list->next; free(list); list = next; }
  printf("%d %d\n", s, o.call(&o, 5));
  copy(text, "copied"), printf("%s %d\n", text, (int)(end - text));
  bytes = (unsigned char *)&word;
  for (k = 0, s = 0; k < 4; k++) s += bytes[k];
  printf("%d %d\n", s, array_parameter((int[]){3, 4}, 5, matrix));
  printf("%d %d %d\n", p == cp, (void *)p == v, p != (int *)0);
  printf("%s %c %c\n", "literal" + 3, "abc"[1], *("xyz" + 2));
  printf("%d\n", (int)sizeof(row[2]) + (int)sizeof(*pa) + (int)sizeof(pp) + (int)sizeof(object));
  return 0;
}
