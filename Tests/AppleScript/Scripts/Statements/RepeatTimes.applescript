set n to 0
repeat 3 times
set n to n + 2
end repeat
n
--> 6
