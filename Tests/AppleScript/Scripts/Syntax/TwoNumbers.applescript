1 2
--! -2740 A number can’t go after this number.
