repeat with x in 5
end repeat
--! -1728 Can’t get every item of 5.
