int i = __has_include("one.c");
