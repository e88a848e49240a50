tell application "Test Desk"
    tell window 2 to tell tab 1 to get URL
end tell
--> "about:blank"
