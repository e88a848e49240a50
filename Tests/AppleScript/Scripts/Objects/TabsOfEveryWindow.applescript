tell application "Test Desk"
    name of tabs of windows
end tell
--> {{"News", "Mail"}, {"Café"}}
