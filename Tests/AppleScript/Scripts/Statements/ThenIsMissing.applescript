if true 1
--! -2741 Expected end of line but found number.
