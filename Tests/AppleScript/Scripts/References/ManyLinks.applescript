set l to {{{{{5}}}}}
item 1 of item 1 of item 1 of item 1 of item 1 of l
--> 5
