the length of the {1, 2}
--> 2
