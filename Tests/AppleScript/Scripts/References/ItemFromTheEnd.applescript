item -1 of {"a", "b"}
--> "b"
