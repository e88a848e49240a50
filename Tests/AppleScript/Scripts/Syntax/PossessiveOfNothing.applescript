{1}'s
--! -2741 Expected property but found end of line.
