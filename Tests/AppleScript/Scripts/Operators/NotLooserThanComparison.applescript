not 1 = 2
--> true
