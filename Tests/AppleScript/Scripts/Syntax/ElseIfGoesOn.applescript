if false then
	4
else if true 3
	5
end if
--! -2741 Expected end of line but found number.
