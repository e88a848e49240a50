1
end repeat
--! -2741 Expected expression but found “end”.
