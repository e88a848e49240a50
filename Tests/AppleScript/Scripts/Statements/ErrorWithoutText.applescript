error number 17
--! 17 An error of type 17 has occurred.
