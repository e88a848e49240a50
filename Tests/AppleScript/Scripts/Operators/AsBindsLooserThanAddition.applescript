1 + 2 as text
--> "3"
