error number -128
--! -128 User canceled.
