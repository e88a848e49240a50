item 1 of {1} whose it > 2
--! -2741 Expected end of line but found “whose”.
