{a:1} as text
--! -1700 Can’t make {a:1} into type text.
