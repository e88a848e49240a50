{5 as list, "a" as list}
--> {{5}, {"a"}}
