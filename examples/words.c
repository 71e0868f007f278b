/* Counts the words of a text and prints them in order. */
#include <stdarg.h>
#include <stddef.h>

int vprintf(const char *format, va_list list);
int strcmp(const char *a, const char *b);
size_t strlen(const char *text);
void *memcpy(void *to, const void *from, size_t size);
void *malloc(size_t size);
void free(void *block);
void qsort(void *base, size_t count, size_t size, int (*compare)(const void *, const void *));

struct word {
  char *text;
  int count;
};

static const char text[] = "the cat and the dog and the bird saw the cat";
static struct word words[32];
static size_t word_count;

static void print(const char *format, ...) {
  va_list list;
  va_start(list, format);
  vprintf(format, list);
  va_end(list);
}

static void add(const char *start, size_t length) {
  char *copy = malloc(length + 1);
  memcpy(copy, start, length);
  copy[length] = '\0';
  for (size_t i = 0; i < word_count; i++) {
    if (strcmp(words[i].text, copy) != 0) continue;
    words[i].count++;
    free(copy);
    return;
  }
  words[word_count++] = (struct word){.text = copy, .count = 1};
}

static int by_text(const void *a, const void *b) {
  return strcmp(((const struct word *)a)->text, ((const struct word *)b)->text);
}

int main(void) {
  const char *start = text;
  for (const char *c = text;; c++) {
    if (*c != ' ' && *c != '\0') continue;
    add(start, (size_t)(c - start));
    start = c + 1;
    if (*c == '\0') break;
  }
  qsort(words, word_count, sizeof *words, by_text);
  for (size_t i = 0; i < word_count; i++) print("%-5s %d\n", words[i].text, words[i].count);
  return 0;
}
