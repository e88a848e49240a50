some item of {7, 7}
--> 7
