tell application "Test Desk"
    name of window id 12
end tell
--> "Downloads"
