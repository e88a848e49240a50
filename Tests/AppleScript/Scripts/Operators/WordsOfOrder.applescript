{1 is less than 2, 1 is greater than 2, 1 is less than or equal to 1, 1 is not less than 2, "a" comes before "b", "a" comes after "b", 3 is greater than or equal to 4}
--> {true, false, true, false, true, false, false}
