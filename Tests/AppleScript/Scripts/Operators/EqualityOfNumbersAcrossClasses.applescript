1 = 1.0
--> true
