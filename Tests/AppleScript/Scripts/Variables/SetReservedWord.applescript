set then to 1
--! -2741 Expected expression but found “then”.
