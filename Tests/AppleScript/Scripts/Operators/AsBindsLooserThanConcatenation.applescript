1 & 2 as text
--> "12"
