// The program: one compilation.
#include "driver/cfe.h"

int main(int argc, char **argv) {
  run_compilation(argc, argv);
}
