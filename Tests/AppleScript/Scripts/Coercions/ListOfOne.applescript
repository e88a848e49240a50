{{5} as integer, {"a"} as text, {{7}} as number}
--> {5, "a", 7}
