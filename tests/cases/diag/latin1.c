/* °°é */ int d = undef1;
const char *s = "§" + undef2;
/* Ã©°Ã */ int e = undef3;
