set n to 0
repeat
set n to n + 1
if n = 7 then exit repeat
end repeat
n
--> 7
