5 as alias
--! -1700 Can’t make 5 into type alias.
