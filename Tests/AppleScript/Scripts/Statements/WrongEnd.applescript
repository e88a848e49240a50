repeat 2 times
1
end if
--! -2741 Expected end of line but found “if”.
