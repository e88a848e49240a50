{1, 2, 3}'s length
--> 3
