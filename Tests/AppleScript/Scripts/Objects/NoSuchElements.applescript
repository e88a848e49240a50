tell application "Test Desk" to get every process of window 1
--! -1728 Can’t get every process of window 1.
