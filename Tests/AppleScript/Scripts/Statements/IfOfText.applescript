if "maybe" then 1
--! -1700 Can’t make "maybe" into type boolean.
--@ 3 7
