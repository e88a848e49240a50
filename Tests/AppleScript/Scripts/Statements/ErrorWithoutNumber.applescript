error "Bad thing"
--! -2700 Bad thing
