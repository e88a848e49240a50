true or 1 div 0 = 1
--> true
