tell application "Test Desk" to get process "nope"
--! -1728 Can’t get process "nope".
