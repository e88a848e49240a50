set n to 0
repeat 3 times
repeat
set n to n + 1
exit repeat
end repeat
end repeat
n
--> 3
