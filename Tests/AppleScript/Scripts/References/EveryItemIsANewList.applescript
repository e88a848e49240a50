set l to {1}
set m to every item of l
set end of m to 2
l
--> {1}
