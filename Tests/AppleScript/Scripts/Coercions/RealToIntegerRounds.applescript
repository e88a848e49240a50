{3.7 as integer, 2.2 as integer, "3.7" as integer}
--> {4, 2, 4}
