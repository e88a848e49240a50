tell application "Test Desk" to (window 1) as text
--! -1700 Can’t make window "Start" of application "Test Desk" into type text.
