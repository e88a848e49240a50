{"12" as integer, "1.5" as number, "7" as number, " 3 " as integer}
--> {12, 1.5, 7, 3}
