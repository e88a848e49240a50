{a:1} < 2
--! -1700 Can’t make {a:1} into type number.
