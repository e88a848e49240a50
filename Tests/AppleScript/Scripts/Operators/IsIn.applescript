{"b" is in "abc", 4 is in {1, 2}, 4 is not in {1, 2}, 1 is contained by {1}, 1 is not contained by {1}}
--> {true, false, true, true, false}
