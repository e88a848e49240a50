{1 ≠ 2, 1 /= 1}
--> {true, false}
