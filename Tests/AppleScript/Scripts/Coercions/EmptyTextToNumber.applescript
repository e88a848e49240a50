"" as number
--! -1700 Can’t make "" into type number.
