{1 is 1, 1 equals 1, 1 is equal to 2, 1 is not 2, 1 isn't 1, 1 is not equal to 1, 1 does not equal 2}
--> {true, true, false, true, false, false, true}
