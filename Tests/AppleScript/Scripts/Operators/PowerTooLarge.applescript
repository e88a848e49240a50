10.0 ^ 1000
--! -2702 The result of a numeric operation was too large.
