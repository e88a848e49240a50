tell {1, 2} 3
	length
end tell
--! -2741 Expected end of line but found number.
