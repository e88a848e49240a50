set l to {1, 2}
repeat with x in l
set end of l to 0
end repeat
count l
--> 4
