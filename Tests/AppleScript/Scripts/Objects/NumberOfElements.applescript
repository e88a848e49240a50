tell application "Test Desk"
    {number of windows, count windows, count of every process, number of tabs of window 1}
end tell
--> {2, 2, 3, 2}
