length of every item of {"a", "bcd"}
--> {1, 3}
