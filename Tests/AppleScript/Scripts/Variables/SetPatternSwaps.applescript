set a to 1
set b to 2
set {a, b} to {b, a}
{a, b}
--> {2, 1}
