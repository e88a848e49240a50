1 + @
--! -2741 Expected expression but found unknown token.
