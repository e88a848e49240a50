every item of {1, 5, 2, 7} whose it > 2
--> {5, 7}
