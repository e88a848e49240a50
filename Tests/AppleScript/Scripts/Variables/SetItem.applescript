set l to {1, 2, 3}
set item 2 of l to "x"
set last item of l to "y"
l
--> {1, "x", "y"}
