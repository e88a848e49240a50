repeat with i from 1 to 5
if i = 3 then return i
end repeat
--> 3
