{1 < 2, 1 > 2, 1 <= 1, 1 >= 2, 1 ≤ 0, 2 ≥ 2}
--> {true, false, true, false, false, true}
