tell application "Test Desk"
    name of windows 1 thru 2
end tell
--> {"Start", "Downloads"}
