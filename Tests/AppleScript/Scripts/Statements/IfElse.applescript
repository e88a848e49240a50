if false
1
else
3
end
--> 3
