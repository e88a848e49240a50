count 5
--! -1708 5 doesn’t understand the “count” message.
