tell application "Test Desk"
set a to number of windows
tell application "Empty Desk" to set b to number of windows
end tell
{a, b}
--> {2, 0}
