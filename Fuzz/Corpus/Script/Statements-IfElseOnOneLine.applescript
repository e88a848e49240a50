if false then 1 else 2
--> 2
