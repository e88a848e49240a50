1 = 1 = 1
--! -2741 Expected end of line but found “=”.
