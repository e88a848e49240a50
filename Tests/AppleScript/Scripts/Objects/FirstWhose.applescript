tell application "Test Desk"
    name of first process whose background only is true
end tell
--> "agent"
