"abc" as integer
--! -1700 Can’t make "abc" into type integer.
--@ 0 16
