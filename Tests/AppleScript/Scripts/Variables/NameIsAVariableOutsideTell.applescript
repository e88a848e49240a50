set name to "x"
name & "y"
--> "xy"
