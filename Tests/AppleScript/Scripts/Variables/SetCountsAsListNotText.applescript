set x to "abc"
set x to x & "d"
length of x
--> 4
