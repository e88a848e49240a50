tell application "Test Desk"
    number of (every process whose background only is true)
end tell
--> 1
