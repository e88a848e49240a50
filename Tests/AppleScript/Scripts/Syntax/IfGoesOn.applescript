if true 3
	4
end if
--! -2741 Expected end of line but found number.
