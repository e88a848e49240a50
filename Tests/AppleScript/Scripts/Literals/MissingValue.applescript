missing value
--> missing value
