#if __has_include_next("/no/such/file.h")
int wrong;
#endif
int absolute;
