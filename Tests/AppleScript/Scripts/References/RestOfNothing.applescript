set l to {}
rest of l
--! -1728 Can’t get rest of {}.
