set x to {1}
--> {1}
