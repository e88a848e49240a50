set l to {1}
set x to end of l
--! -1728 Can’t get end of {1}.
