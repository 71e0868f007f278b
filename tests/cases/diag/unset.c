int f(void) {
  int unset;
  return unset;
}
