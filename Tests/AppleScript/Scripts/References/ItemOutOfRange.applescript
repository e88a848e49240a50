item 5 of {1, 2}
--! -1728 Can’t get item 5 of {1, 2}.
--@ 0 16
