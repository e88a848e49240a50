set x to 1
if false then set x to 2
--> 1
