L1
f(L2,
L3)