copy 5 to x
x
--> 5
