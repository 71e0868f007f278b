#include "table.h"
#include "text.h"
int main(void) {
  static const int table[SIZE] = {1, 2};
  return table_sum(table) + text_length("abc");
}
