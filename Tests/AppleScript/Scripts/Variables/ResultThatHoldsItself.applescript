set l to {1}
set end of l to l
l
--! -2706 Stack overflow.
