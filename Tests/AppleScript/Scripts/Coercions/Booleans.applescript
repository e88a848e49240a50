{"true" as boolean, "FALSE" as boolean, 1 as boolean, true as integer, true as text}
--> {true, false, true, 1, "true"}
