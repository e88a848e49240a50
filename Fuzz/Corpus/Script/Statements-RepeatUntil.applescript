set n to 5
repeat until n = 0
set n to n - 1
end repeat
n
--> 0
