set x to background only
--! -2741 Expected end of line but found identifier.
