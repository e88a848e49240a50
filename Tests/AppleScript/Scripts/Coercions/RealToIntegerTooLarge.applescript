1.0E+30 as integer
--! -1700 Can’t make 1.0E+30 into type integer.
