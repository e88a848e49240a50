error "Bad thing" number 42
--! 42 Bad thing
--@ 0 27
