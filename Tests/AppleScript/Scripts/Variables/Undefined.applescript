set x to 1
y
--! -2753 The variable y is not defined.
--@ 11 1
