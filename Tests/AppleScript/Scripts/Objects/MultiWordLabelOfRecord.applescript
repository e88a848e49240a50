tell application "Test Desk"
    set r to properties of process 2
    background only of r
end tell
--> true
