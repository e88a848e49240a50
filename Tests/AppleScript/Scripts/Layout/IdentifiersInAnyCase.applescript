set Foo to 1
fOO
--> 1
