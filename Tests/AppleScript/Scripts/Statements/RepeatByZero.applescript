repeat with i from 1 to 2 by 0
end repeat
--! -2700 Can’t repeat in steps of 0.
--@ 29 1
