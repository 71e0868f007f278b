#define NAME one_by_macro
int not_wanted;
