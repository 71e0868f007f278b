#include "sys"
