set |a to 1
--! -2741 Expected “|” but found end of line.
