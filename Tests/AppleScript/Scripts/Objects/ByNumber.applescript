tell application "Test Desk"
    name of window 2
end tell
--> "Downloads"
