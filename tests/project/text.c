#include "text.h"
int text_length(const char *text) {
  int n = 0;
  while (text[n]) n++;
  return n;
}
