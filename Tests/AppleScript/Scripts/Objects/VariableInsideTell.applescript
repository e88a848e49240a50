tell application "Test Desk"
    set windowName to name of window 1
    windowName
end tell
--> "Start"
