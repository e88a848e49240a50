tell application "Test Desk"
    tell window 2
    {name, number of tabs, name of tab 1}
    end tell
end tell
--> {"Downloads", 1, "Café"}
