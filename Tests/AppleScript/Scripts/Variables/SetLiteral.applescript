set 1 to 2
--! -2741 Can’t set this expression to something.
--@ 4 1
