5 as text & "a"
--> "5a"
