#include "table.h"
int table_sum(const int table[SIZE]) {
  int sum = 0;
  for (int i = 0; i < SIZE; i++) sum += table[i];
  return sum;
}
