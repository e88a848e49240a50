set l to {}
repeat with c in "añb"
set end of l to contents of c
end repeat
l
--> {"a", "ñ", "b"}
