// options: --c11 --clang --clang_version=30700
int *_Nonnull a;
int *_Nullable b;
int *_Null_unspecified c;
