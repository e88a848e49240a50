try
	error "a"
on error m 3
	m
end try
--! -2741 Expected end of line but found number.
