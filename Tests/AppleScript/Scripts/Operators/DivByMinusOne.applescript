{6 div -1, 6 mod -1, class of (6 div -1)}
--> {-6, 0, integer}
