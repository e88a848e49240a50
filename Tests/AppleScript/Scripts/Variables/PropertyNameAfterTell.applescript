tell {1, 2}
	set amount to length
end tell
set length to 5
{amount, length}
--> {2, 5}
