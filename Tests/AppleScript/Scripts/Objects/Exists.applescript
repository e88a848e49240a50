tell application "Test Desk"
    {exists window 1, exists window 9, exists process "xterm", process "nope" exists}
end tell
--> {true, false, true, false}
