"a
b"
--> "a\nb"
