false and 1 div 0 = 1
--> false
