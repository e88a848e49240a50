set l to {1, 2}
items 2 thru 9 of l
--! -1728 Can’t get items 2 thru 9 of {1, 2}.
