set result to "a"
set other to result
set other to other & "b"
set result to result & "c"
{result, other}
--> {"abc", "ab"}
