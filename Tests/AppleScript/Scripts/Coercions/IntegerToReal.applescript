1 as real
--> 1.0
