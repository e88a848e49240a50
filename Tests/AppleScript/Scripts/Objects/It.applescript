tell application "Test Desk"
    tell window 2 to name of it
end tell
--> "Downloads"
