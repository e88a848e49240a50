set x to 1
if x = 1 then set x to 5
x
--> 5
