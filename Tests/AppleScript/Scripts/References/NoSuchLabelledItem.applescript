character 4 of "abc"
--! -1728 Can’t get character 4 of "abc".
