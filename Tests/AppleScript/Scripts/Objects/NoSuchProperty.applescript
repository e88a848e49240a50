tell application "Test Desk" to get foo of window 1
--! -1728 Can’t get foo of window 1.
