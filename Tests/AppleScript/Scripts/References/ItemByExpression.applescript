item (1 + 1) of {"a", "b"}
--> "b"
