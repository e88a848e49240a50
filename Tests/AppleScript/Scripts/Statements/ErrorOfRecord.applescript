error {a:1}
--! -1700 Can’t make {a:1} into type text.
--@ 6 5
