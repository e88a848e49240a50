set a to {1, {2}}
copy a to b
set item 1 of item 2 of b to 9
a
--> {1, {2}}
