tell application "Test Desk"
    count of properties of process 1
end tell
--> 3
