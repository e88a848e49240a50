set n to 1
repeat while n < 100
set n to n * 2
end repeat
n
--> 128
