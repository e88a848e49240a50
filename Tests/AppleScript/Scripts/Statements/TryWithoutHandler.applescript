set x to 1
try
error "no"
end try
x
--> 1
