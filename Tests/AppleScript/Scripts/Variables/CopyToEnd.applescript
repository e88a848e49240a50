set l to {}
copy 1 to end of l
l
--> {1}
