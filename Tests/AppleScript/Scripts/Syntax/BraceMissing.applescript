{1, 2
--! -2741 Expected “}” but found end of line.
