set i to 2
item i of {"a", "b"}
--> "b"
