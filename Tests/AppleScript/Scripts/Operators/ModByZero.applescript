1.5 mod 0
--! -2701 Can’t divide 1.5 by zero.
