#if 1
int open_if;
