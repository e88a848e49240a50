item 2 of {"a", "b"}
--> "b"
