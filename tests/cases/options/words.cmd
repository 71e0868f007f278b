--c -n "-DNAME=a b"
one.c ignored.c
