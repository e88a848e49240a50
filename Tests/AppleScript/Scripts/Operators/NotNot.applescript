not not true
--> true
