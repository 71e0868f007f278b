// options: --c99
// Sizes and bounds that initializers give; each wrong one makes a negative array bound.
int a[] = {[5] = 1, 2};
int check_a[sizeof(a) / sizeof(a[0]) == 7 ? 1 : -1];
char b[] = "";
int check_b[sizeof(b) == 1 ? 1 : -1];
char c[] = {"four"};
int check_c[sizeof(c) == 5 ? 1 : -1];
struct point {
  int x, y;
};
struct line {
  struct point from, to;
  char name[4];
};
struct line d[] = {1, 2, 3, 4, "ab", {{5, 6}, 7}, [4].to.y = 9, "cd", .1};
int check_d[sizeof(d) / sizeof(d[0]) == 6 ? 1 : -1];
struct line e = {.to = {1, 2}, .from.y = 3, 4};
union {
  int i;
  char bytes[4];
} u = {.bytes = {1, 2}}, v = {3};
struct {
  int tag;
  union {
    int i;
    float f;
  };
  int end;
} w = {1, {2}, 3}, x = {.f = 2.0f, 5};
int grid[][3] = {{1}, {2, 3}, 4, 5, 6, 7};
int check_grid[sizeof(grid) / sizeof(grid[0]) == 4 ? 1 : -1];
int old_forms[4] = {[1] 5, [3] 6};
struct point old_field = {y : 2, x : 1};
int *address = &a[2];
int (*function)(void);
