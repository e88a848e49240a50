tell application "Test Desk" to get name of tab 9 of window 1
--! -1728 Can’t get tab 9 of window 1.
--app Test Desk
