int a;
  #include "no_such.h"
