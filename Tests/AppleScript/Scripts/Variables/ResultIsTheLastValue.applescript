1 + 1
result * 2
--> 4
