1 +
--! -2741 Expected expression but found end of line.
