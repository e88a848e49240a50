if false
	4
else 3
	5
end if
--! -2741 Expected end of line but found number.
