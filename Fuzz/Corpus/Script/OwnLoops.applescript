set n to 0
repeat
	set n to n + 1
	if n > 3 then exit repeat
end repeat
repeat while true
	set n to n & n
end repeat
