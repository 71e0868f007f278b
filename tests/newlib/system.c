/* What the C library asks of the system, by way of the few routines that the machine gives. */
#include <reent.h>
#include <stdlib.h>
#include <sys/stat.h>

int putchar(int c);

void *_malloc_r(struct _reent *r, size_t size) {
  return malloc(size);
}
void *_calloc_r(struct _reent *r, size_t count, size_t size) {
  return calloc(count, size);
}
void *_realloc_r(struct _reent *r, void *block, size_t size) {
  return realloc(block, size);
}
void _free_r(struct _reent *r, void *block) {
  free(block);
}

_ssize_t _write_r(struct _reent *r, int file, const void *data, size_t size) {
  const char *c = data;
  size_t i;
  for (i = 0; i < size; i++)
    putchar(c[i]);
  return (_ssize_t)size;
}
_ssize_t _read_r(struct _reent *r, int file, void *data, size_t size) {
  return 0;
}
_off_t _lseek_r(struct _reent *r, int file, _off_t offset, int whence) {
  return -1;
}
int _close_r(struct _reent *r, int file) {
  return 0;
}
int _isatty_r(struct _reent *r, int file) {
  return 1;
}
int _fstat_r(struct _reent *r, int file, struct stat *status) {
  status->st_mode = S_IFCHR;
  status->st_blksize = 0;
  return 0;
}
