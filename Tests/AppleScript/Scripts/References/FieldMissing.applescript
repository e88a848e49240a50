set r to {a:1}
foo of r
--! -1728 Can’t get foo of {a:1}.
