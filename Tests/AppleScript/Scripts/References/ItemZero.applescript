set l to {1}
item 0 of l
--! -1728 Can’t get item 0 of {1}.
