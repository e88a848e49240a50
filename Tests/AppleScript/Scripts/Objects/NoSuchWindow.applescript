tell application "Test Desk" to get name of window 3
--! -1728 Can’t get window 3.
--app Test Desk
--@ 36 16
