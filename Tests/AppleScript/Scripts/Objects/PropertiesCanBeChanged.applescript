tell application "Test Desk"
    set r to properties of process 1
    set name of r to "other"
    {name of r, name of process 1}
end tell
--> {"other", "xterm"}
