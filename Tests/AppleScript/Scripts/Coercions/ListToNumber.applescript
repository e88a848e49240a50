{1, 2} as number
--! -1700 Can’t make {1, 2} into type number.
