{"abc" starts with "AB", "abc" begins with "b", "abc" ends with "c", {1, 2, 3} starts with {1, 2}, {1, 2, 3} ends with 3, {1} ends with {0, 1}}
--> {true, false, true, true, true, false}
