1 of {1}
--! -2741 Expected end of line but found “of”.
