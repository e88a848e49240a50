if 1 = 2 then
1
else if 2 = 2 then
2
else
3
end if
--> 2
