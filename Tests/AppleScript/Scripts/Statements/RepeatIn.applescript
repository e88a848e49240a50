set t to 0
repeat with x in {1, 2, 3}
set t to t + x
end repeat
t
--> 6
