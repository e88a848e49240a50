set n to 0
repeat 0 times
set n to 1
end repeat
n
--> 0
