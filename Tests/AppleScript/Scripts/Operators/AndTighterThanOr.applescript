true or false and false
--> true
