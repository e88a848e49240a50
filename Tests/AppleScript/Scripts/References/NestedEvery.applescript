words of paragraphs of "a b
c"
--> {{"a", "b"}, {"c"}}
