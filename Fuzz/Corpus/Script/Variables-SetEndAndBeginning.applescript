set l to {}
set end of l to 1
set beginning of l to 0
l
--> {0, 1}
