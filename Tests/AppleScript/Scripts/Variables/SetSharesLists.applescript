set a to {1}
set b to a
set end of b to 2
a
--> {1, 2}
