return 1
2
--> 1
