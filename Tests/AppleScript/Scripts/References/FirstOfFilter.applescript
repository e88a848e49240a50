first item of {1, 5, 7} whose it > 2
--> 5
