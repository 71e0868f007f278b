/* Counts the ways to place eight queens on a board so that none attacks another. */
#include <stdbool.h>
int printf(const char *format, ...);

enum { SIZE = 8 };

struct board {
  int column[SIZE];
  unsigned used : SIZE;
};

static bool attacks(const struct board *board, int row, int column) {
  for (int above = 0; above < row; above++) {
    int distance = board->column[above] - column;
    if (distance == row - above || distance == above - row) return true;
  }
  return false;
}

static int solutions(struct board board, int row) {
  if (row == SIZE) return 1;
  int count = 0;
  for (int column = 0; column < SIZE; column++) {
    if (board.used & (1u << column) || attacks(&board, row, column)) continue;
    struct board next = board;
    next.column[row] = column;
    next.used |= 1u << column;
    count += solutions(next, row + 1);
  }
  return count;
}

int main(void) {
  printf("%d ways\n", solutions((struct board){0}, 0));
  return 0;
}
