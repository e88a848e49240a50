count of words of paragraphs of "a b
c"
--> {2, 1}
