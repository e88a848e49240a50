set result to "a"
set result to result & "b"
result
--> "ab"
