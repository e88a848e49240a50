{a:1, 2}
--! -2741 Expected label but found number.
