1 / 0
--! -2701 Can’t divide 1 by zero.
--@ 0 5
