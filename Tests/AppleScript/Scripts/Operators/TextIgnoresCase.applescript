{"ABC" = "abc", "É" = "é", "ß" = "SS"}
--> {true, true, false}
