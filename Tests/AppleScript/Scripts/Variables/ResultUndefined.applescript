result
--! -2753 The variable result is not defined.
