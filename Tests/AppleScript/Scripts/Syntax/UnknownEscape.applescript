"a\d"
--! -2741 Expected “"” but found unknown token.
