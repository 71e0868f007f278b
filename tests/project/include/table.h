#ifndef TABLE_H
#define TABLE_H
#include "size.h"
int table_sum(const int table[SIZE]);
#endif
