{count {1, 2}, count of "abc", number of {}, count {a:1}}
--> {2, 3, 0, 1}
