set l to {1, 2}
repeat with x in l
set contents of x to x * 10
end repeat
l
--> {10, 20}
