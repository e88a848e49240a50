set r to {a:1}
set b of r to 2
--! -10006 Can’t set b of {a:1} to 2.
