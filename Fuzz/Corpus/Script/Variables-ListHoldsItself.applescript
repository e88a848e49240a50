set l to {1}
set end of l to l
count of l
--> 2
