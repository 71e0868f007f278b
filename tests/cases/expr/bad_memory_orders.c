// options: --c11 --gcc
// A load cannot release, a store cannot acquire.
int x;
int load_and_store(int order) {
  __atomic_store_n(&x, 1, 2);
// expect: error #3191 invalid memory order for atomic function __atomic_store_4
  __atomic_store_n(&x, 1, 5);
  __atomic_store_n(&x, 1, order);
  return __atomic_load_n(&x, 0) + __atomic_load_n(&x, 3) + __atomic_load_n(&x, 4);
//                                ^
// expect: error #3191 invalid memory order for atomic function __atomic_load_4
//                                                         ^
// expect: error #3191 invalid memory order for atomic function __atomic_load_4
}
