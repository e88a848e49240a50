set l to {1}
set item 2 of l to 0
--! -10006 Can’t set item 2 of {1} to 0.
