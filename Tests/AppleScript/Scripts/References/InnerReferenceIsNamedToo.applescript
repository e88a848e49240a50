set l to {{1}}
item 7 of item 1 of l
--! -1728 Can’t get item 7 of item 1 of {{1}}.
