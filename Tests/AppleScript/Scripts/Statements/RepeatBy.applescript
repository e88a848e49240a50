set t to ""
repeat with i from 10 to 1 by -3
set t to t & i & " "
end repeat
t
--> "10 7 4 1 "
