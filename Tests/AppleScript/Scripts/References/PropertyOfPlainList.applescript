set l to {{a:1}, {a:2}}
a of l
--! -1728 Can’t get a of {{a:1}, {a:2}}.
