tell application "Test Desk" to set name of window 1 to "x"
--! -10006 Can’t set name of window "Start" of application "Test Desk" to "x".
