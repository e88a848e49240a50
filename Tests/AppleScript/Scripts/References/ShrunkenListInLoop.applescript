set l to {{1}}
set x to item 1 of l
foo of x
--! -1728 Can’t get foo of {1}.
