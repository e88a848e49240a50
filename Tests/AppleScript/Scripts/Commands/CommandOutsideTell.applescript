install plugin
--! -2741 Expected end of line but found identifier.
