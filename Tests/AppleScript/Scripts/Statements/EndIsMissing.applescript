repeat 2 times
1
--! -2741 Expected “end” but found end of script.
