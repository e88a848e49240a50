tell application "Test Desk" to name of (get every window)
--! -1728 Can’t get name of {window "Start" of application "Test Desk", window "Downloads" of application "Test Desk"}.
