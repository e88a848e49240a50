"a" & "b" = "ab"
--> true
