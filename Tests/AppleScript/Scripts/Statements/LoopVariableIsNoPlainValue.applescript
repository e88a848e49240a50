set l to {}
repeat with x in {1}
set end of l to x = 1
set end of l to contents of x = 1
end repeat
l
--> {false, true}
