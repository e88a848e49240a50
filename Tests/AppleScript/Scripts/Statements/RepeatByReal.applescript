set l to {}
repeat with i from 0 to 1 by 0.5
set end of l to i
end repeat
l
--> {0, 0.5, 1.0}
