set t to ""
repeat with i from 1 to 4
set t to t & i
end repeat
t
--> "1234"
