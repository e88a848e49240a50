try 3
	4
end try
--! -2741 Expected end of line but found number.
