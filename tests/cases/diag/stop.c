int a = undef1;
#error stop €, all of you, since there is no way that goes on from here, none at all
int b;
