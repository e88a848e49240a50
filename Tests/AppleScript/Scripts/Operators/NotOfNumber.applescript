not 5
--! -1700 Can’t make 5 into type boolean.
