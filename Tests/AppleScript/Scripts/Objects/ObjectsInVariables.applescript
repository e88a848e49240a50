tell application "Test Desk"
    set w to window 2
    {name of w, w's name, count tabs of w}
end tell
--> {"Downloads", "Downloads", 1}
