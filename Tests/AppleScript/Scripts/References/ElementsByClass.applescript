{every text of {1, "a", 2.0, "b"}, numbers of {1, "a", 2.0}, integer 1 of {"x", 5}, class of every text of {"a"}}
--> {{"a", "b"}, {1, 2.0}, 5, {text}}
