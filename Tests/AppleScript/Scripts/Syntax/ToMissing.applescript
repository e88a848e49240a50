set x 5
--! -2741 Expected “to” but found number.
