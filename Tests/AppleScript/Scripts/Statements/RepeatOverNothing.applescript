set t to "x"
repeat with i from 1 to 0
set t to "y"
end repeat
t
--> "x"
