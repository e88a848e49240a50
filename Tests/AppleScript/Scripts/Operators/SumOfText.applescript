1 + "x"
--! -1700 Can’t make "x" into type number.
--@ 0 7
