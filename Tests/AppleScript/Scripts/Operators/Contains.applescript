{"Hello" contains "ELL", {1, 2, 3} contains {2, 3}, {1, 2} contains 2, {a:1, b:2} contains {b:2}, "abc" does not contain "x"}
--> {true, true, true, true, true}
