
int from_inner = undef_i;
int o;
