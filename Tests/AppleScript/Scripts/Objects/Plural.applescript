tell application "Test Desk"
    name of windows
end tell
--> {"Start", "Downloads"}
