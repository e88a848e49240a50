5 as record
--! -1700 Can’t make 5 into type record.
