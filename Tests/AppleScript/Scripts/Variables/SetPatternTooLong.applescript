set {a, b} to {1}
--! -1728 Can’t get item 2 of {1}.
