repeat "many" times
end repeat
--! -1700 Can’t make "many" into type integer.
--@ 7 6
