tell application "Test Desk"
    {name of first window, name of last tab of first window, name of front window}
end tell
--> {"Start", "Mail", "Start"}
