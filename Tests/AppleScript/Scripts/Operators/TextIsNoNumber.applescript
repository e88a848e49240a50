"1" = 1
--> false
