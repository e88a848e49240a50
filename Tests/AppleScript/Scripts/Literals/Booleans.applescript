{true, false}
--> {true, false}
