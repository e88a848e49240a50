try
7
on error
8
end try
--> 7
