tell application "Test Desk"
    count of tabs of windows
end tell
--> {2, 1}
